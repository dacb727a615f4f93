# Puts the page with its style and its script into a source file: cmake -DFOLDER=src/service -DOUT=FILE -P this
file(READ ${FOLDER}/page.html html)
file(READ ${FOLDER}/page.css style)
file(READ ${FOLDER}/page.js script)
string(REPLACE "/*style*/" "${style}" html "${html}")
string(REPLACE "/*script*/" "${script}" html "${html}")
string(REPLACE "\n" ")page\"\n    R\"page(\n" html "${html}")
string(REPLACE "R\"page(\n" "\"\\n\" R\"page(" html "${html}")
file(WRITE ${OUT} "// Written by the build.\n#include \"service/page.h\"\n
std::string_view torvane::service_page() {\n  return R\"page(${html})page\";\n}\n")
