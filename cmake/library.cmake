# The library as others use it: libtorvane, static and shared, of all layers below the command line. Its shared face
# is the functions of include/torvane/c.h alone.

configure_file(include/torvane/version.h.in include/torvane/version.h @ONLY)
target_include_directories(torvane_library PUBLIC include ${PROJECT_BINARY_DIR}/include)

set(objects)
set(waiting library)
set(below)
while(waiting)
  list(POP_FRONT waiting layer)
  if(NOT layer IN_LIST below)
    list(APPEND below ${layer})
    list(APPEND objects $<TARGET_OBJECTS:torvane_${layer}>)
    get_target_property(neighbours torvane_${layer} LINK_LIBRARIES)
    list(FILTER neighbours INCLUDE REGEX "^torvane_")
    list(TRANSFORM neighbours REPLACE "^torvane_" "")
    list(APPEND waiting ${neighbours})
  endif()
endwhile()

find_package(Threads REQUIRED)
foreach(kind static shared)
  string(TOUPPER ${kind} type)
  add_library(torvane_${kind} ${type} ${objects})
  add_library(torvane::${kind} ALIAS torvane_${kind})
  target_include_directories(torvane_${kind} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                             $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
                             $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(torvane_${kind} PRIVATE Threads::Threads)
  set_target_properties(torvane_${kind} PROPERTIES OUTPUT_NAME torvane EXPORT_NAME ${kind} LINKER_LANGUAGE CXX
                        ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
endforeach()
set(symbols ${CMAKE_CURRENT_LIST_DIR}/library.map)
set_target_properties(torvane_shared PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                      LINK_DEPENDS ${symbols})
target_link_options(torvane_shared PRIVATE -Wl,--version-script=${symbols})
