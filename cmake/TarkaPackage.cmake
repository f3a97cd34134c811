# What a distribution package has besides libraries, headers and the program, and the package itself:
# man pages, shell completions, tarka.pc; `cpack -G DEB` in the build directory makes tarka_*.deb.

# The program writes them from its own table of options.
set(TARKA_GENERATED ${PROJECT_BINARY_DIR}/generated)
add_custom_command(
  OUTPUT ${TARKA_GENERATED}/tarka.bash ${TARKA_GENERATED}/_tarka ${TARKA_GENERATED}/tarka.fish
    ${TARKA_GENERATED}/man/tarka.1
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${TARKA_GENERATED}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${TARKA_GENERATED}
  COMMAND tarka generate bash --output ${TARKA_GENERATED}/tarka.bash
  COMMAND tarka generate zsh --output ${TARKA_GENERATED}/_tarka
  COMMAND tarka generate fish --output ${TARKA_GENERATED}/tarka.fish
  COMMAND tarka generate man ${TARKA_GENERATED}/man
  DEPENDS tarka
  COMMENT "Generating man pages and shell completions"
  VERBATIM)
add_custom_target(tarka_generated ALL DEPENDS ${TARKA_GENERATED}/tarka.bash)

install(FILES ${TARKA_GENERATED}/tarka.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tarka)
install(FILES ${TARKA_GENERATED}/_tarka DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${TARKA_GENERATED}/tarka.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(DIRECTORY ${TARKA_GENERATED}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# For programs that are built without CMake. The prefix is found from the file's own place.
file(RELATIVE_PATH TARKA_PREFIX_FROM_PC
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
list(JOIN LLVM_LIBRARY_DIRS " -L" TARKA_PC_LLVM_DIRECTORIES)
configure_file(cmake/tarka.pc.in ${PROJECT_BINARY_DIR}/tarka.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tarka.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarka)
set(CPACK_PACKAGE_CONTACT "The maintainers of Tarka")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "analyser of COBOL source")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Tarka reports what is wrong with COBOL programs and where, lays out their
records, and hands a checked tree and a control-flow graph to other tools.
The package has the program, its libraries and their headers.")
# Programs that link the libraries need LLVM; the program itself does not.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "llvm-19-dev")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  ${PROJECT_BINARY_DIR}/lib/AST ${PROJECT_BINARY_DIR}/lib/Parse ${PROJECT_BINARY_DIR}/lib/Analyzer
  ${PROJECT_BINARY_DIR}/lib/Flow ${PROJECT_BINARY_DIR}/lib/Report)
include(CPack)
