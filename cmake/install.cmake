# What `cmake --install` puts where, and the packages that are made of it.
include(CMakePackageConfigHelpers)

install(TARGETS torvane DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET torvane_serve)
  install(TARGETS torvane_serve DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(PROGRAMS cluster/torvane-cluster DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS torvane_static torvane_shared EXPORT torvane DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/torvane DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(FILES ${PROJECT_BINARY_DIR}/include/torvane/version.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/torvane)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/torvane)

# English gets its large lexicon where the files are there that it is made of (Debian: wordnet-base).
set(wordnet /usr/share/wordnet)
find_program(TORVANE_PYTHON3 python3)
if(EXISTS ${wordnet}/index.noun AND TORVANE_PYTHON3)
  set(large ${PROJECT_BINARY_DIR}/large)
  file(GLOB words CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/english/*.lex)
  set(lexicon)
  foreach(file kept.lex lexicon.hdr lexicon.idx lexicon.license lexicon.txt vocabulary.lsp)
    list(APPEND lexicon ${large}/english/${file})
  endforeach()
  # The first look into the dictionary writes its index.
  add_custom_command(OUTPUT ${lexicon}
                     COMMAND ${CMAKE_COMMAND} -E rm -rf ${large}
                     COMMAND ${TORVANE_PYTHON3} ${PROJECT_SOURCE_DIR}/script/lib/lexicon.py ${PROJECT_SOURCE_DIR}/data
                             ${wordnet} ${large}
                     COMMAND sh -c "echo word | $<TARGET_FILE:torvane> parse --data ${large} --quiet > ${large}/word.txt 2>&1"
                     DEPENDS torvane script/lib/lexicon.py ${words} VERBATIM)
  add_custom_target(torvane_lexicon ALL DEPENDS ${lexicon})
  install(FILES ${lexicon} DESTINATION ${CMAKE_INSTALL_DATADIR}/torvane/english)
else()
  message(STATUS "No WordNet (wordnet-base): English is installed with its starter lexicon")
endif()

install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.md" PATTERN man EXCLUDE)

# Pages and completion.
set(page ${PROJECT_BINARY_DIR}/share/man/torvane-language.7)
set(completion ${PROJECT_BINARY_DIR}/share/bash-completion/completions/torvane)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/share/man ${PROJECT_BINARY_DIR}/share/bash-completion/completions)
add_custom_command(OUTPUT ${page}
                   COMMAND awk -f ${PROJECT_SOURCE_DIR}/script/lib/language_page.awk
                           ${PROJECT_SOURCE_DIR}/docs/man/torvane.1 ${PROJECT_SOURCE_DIR}/docs/language.md > ${page}
                   DEPENDS script/lib/language_page.awk docs/man/torvane.1 docs/language.md VERBATIM)
add_custom_command(OUTPUT ${completion} COMMAND torvane completion > ${completion} DEPENDS torvane VERBATIM)
add_custom_target(torvane_pages ALL DEPENDS ${page} ${completion})
install(FILES docs/man/torvane.1 docs/man/torvane-cluster.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man7)
install(FILES ${completion} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

# For those who build with the library. The prefix may move.
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/torvane)
file(RELATIVE_PATH to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/torvane.pc.in torvane.pc @ONLY)
configure_package_config_file(cmake/torvaneConfig.cmake.in torvaneConfig.cmake INSTALL_DESTINATION ${config})
write_basic_package_version_file(torvaneConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/torvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
install(FILES ${PROJECT_BINARY_DIR}/torvaneConfig.cmake ${PROJECT_BINARY_DIR}/torvaneConfigVersion.cmake
        DESTINATION ${config})
install(EXPORT torvane NAMESPACE torvane:: FILE torvaneTargets.cmake DESTINATION ${config})

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_VENDOR "the torvane authors")
set(CPACK_PACKAGE_CONTACT "the torvane authors <torvane@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "dependency parser whose languages are data")
set(CPACK_PACKAGE_DESCRIPTION
    "Parses text into dependency trees, with a command line, a library for C, C++\nand Python, and an English grammar.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
if(TARGET torvane_python)
  set(CPACK_DEBIAN_PACKAGE_SUGGESTS "python3, python3-distributed")
endif()
include(CPack)
