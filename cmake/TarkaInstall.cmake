# Installation: libraries, headers, the program, and the CMake package that find_package(Tarka) reads.
include(CMakePackageConfigHelpers)

set(TARKA_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tarka)

install(TARGETS tarkaAST tarkaParse tarkaAnalyzer tarkaFlow tarkaReport EXPORT TarkaTargets)
install(TARGETS tarka)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tarka
  FILES_MATCHING PATTERN *.h PATTERN *.def)

install(EXPORT TarkaTargets NAMESPACE Tarka:: DESTINATION ${TARKA_PACKAGE_DIR})
configure_package_config_file(cmake/TarkaConfig.cmake.in ${PROJECT_BINARY_DIR}/TarkaConfig.cmake
  INSTALL_DESTINATION ${TARKA_PACKAGE_DIR} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TarkaConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/TarkaConfig.cmake
  ${PROJECT_BINARY_DIR}/TarkaConfigVersion.cmake
  cmake/TarkaLLVM.cmake
  DESTINATION ${TARKA_PACKAGE_DIR})
