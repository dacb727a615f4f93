# One static library a layer of cmake/layers.txt, its sub-folders with it. A layer links to its neighbours alone, so an arrow in
# another direction does not link either.

# Defines torvane_<layer>, and <layer>_test if there are unit tests. `neighbours`: names of layers.
function(torvane_layer layer neighbours)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${layer}/*.cc
       ${PROJECT_SOURCE_DIR}/src/${layer}/*/*.cc)
  set(tests ${sources})
  list(FILTER sources EXCLUDE REGEX "_test\\.cc$")
  list(FILTER tests INCLUDE REGEX "_test\\.cc$")
  add_library(torvane_${layer} STATIC ${sources})
  target_include_directories(torvane_${layer} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  set_target_properties(torvane_${layer} PROPERTIES LINKER_LANGUAGE CXX)
  list(TRANSFORM neighbours PREPEND torvane_)
  target_link_libraries(torvane_${layer} PUBLIC ${neighbours})
  if(TORVANE_TESTS AND tests)
    find_package(GTest REQUIRED)
    include(GoogleTest)
    add_executable(${layer}_test ${tests})
    target_link_libraries(${layer}_test PRIVATE torvane_${layer} GTest::gtest_main)
    target_compile_definitions(${layer}_test PRIVATE TORVANE_SOURCE="${PROJECT_SOURCE_DIR}")
    gtest_discover_tests(${layer}_test DISCOVERY_MODE PRE_TEST)
  endif()
endfunction()

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/layers.txt)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/layers.txt rows REGEX "^[a-z]+:")
foreach(row IN LISTS rows)
  string(REGEX MATCHALL "[a-z/]+" names "${row}")
  list(FILTER names EXCLUDE REGEX "/")  # sub-folders are no libraries
  list(POP_FRONT names layer)
  if(EXISTS ${PROJECT_SOURCE_DIR}/src/${layer}/CMakeLists.txt)
    add_subdirectory(src/${layer})  # programs beside the library
  else()
    torvane_layer(${layer} "${names}")
  endif()
endforeach()
