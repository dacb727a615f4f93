# Writes reference pages into a source file: cmake -DFOLDER=docs -DPAGES=a,b -DOUT=FILE -P write_pages.cmake
string(REPLACE "," ";" pages "${PAGES}")
set(lines "")
set(table "")
foreach(page IN LISTS pages)
  file(READ ${FOLDER}/${page}.md text)
  string(REGEX REPLACE "\n$" "" text "${text}")
  string(REPLACE "\n" ")page\",\n    R\"page(" text "${text}")
  string(APPEND lines "constexpr std::string_view k_${page}[] = {\n    R\"page(${text})page\"};\n")
  string(APPEND table "    {\"${page}\", k_${page}},\n")
endforeach()
file(WRITE ${OUT} "// Written by the build.\n#include \"cli/pages.h\"\n\nnamespace torvane {\nnamespace {\n\n${lines}
constexpr ReferencePage kPages[] = {\n${table}};\n
}  // namespace\n\nstd::span<const ReferencePage> all_pages() {\n  return kPages;\n}\n\n}  // namespace torvane\n")
