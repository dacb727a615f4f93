# The reference pages are in the program, so that it has them wherever it is.
set(pages language formats grammar patterns using)
list(TRANSFORM pages REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/docs/\\1.md" OUTPUT_VARIABLE page_files)
list(JOIN pages "," page_names)
add_custom_command(
  OUTPUT ${PROJECT_BINARY_DIR}/pages.cc
  COMMAND ${CMAKE_COMMAND} -DFOLDER=${PROJECT_SOURCE_DIR}/docs -DPAGES=${page_names} -DOUT=${PROJECT_BINARY_DIR}/pages.cc
          -P ${CMAKE_CURRENT_LIST_DIR}/write_pages.cmake
  DEPENDS ${page_files} ${CMAKE_CURRENT_LIST_DIR}/write_pages.cmake
  VERBATIM)
target_sources(torvane_cli PRIVATE ${PROJECT_BINARY_DIR}/pages.cc)
