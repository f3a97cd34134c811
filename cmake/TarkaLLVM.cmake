# How LLVM is linked: the definition of the target Tarka::LLVM, used by the build and, in
# an installed copy, by TarkaConfig.cmake.
#
# No Tarka library contains LLVM code: the shared libraries leave LLVM's symbols undefined, and the
# program that links them provides the single copy. By default it takes that copy from the
# static component archives: the linker pulls in the objects that are referred to, those that
# the shared libraries need included, and exports them to the libraries. With
# `set(Tarka_LLVM SHARED)` before find_package(Tarka) the copy is libLLVM.so: the right choice for a
# program that links it anyway, and for a plugin whose host program is linked without CMake.
#
# Requires a preceding find_package(LLVM).
if(TARGET Tarka::LLVM)
  return()
endif()

add_library(Tarka::LLVM INTERFACE IMPORTED)
separate_arguments(_tarka_llvm_definitions NATIVE_COMMAND "${LLVM_DEFINITIONS}")
set_target_properties(Tarka::LLVM PROPERTIES
  INTERFACE_INCLUDE_DIRECTORIES "${LLVM_INCLUDE_DIRS}"
  INTERFACE_COMPILE_OPTIONS "${_tarka_llvm_definitions}"
  # The archives depend on libraries, such as Z3, that only unused objects need.
  INTERFACE_LINK_OPTIONS "LINKER:--as-needed")
unset(_tarka_llvm_definitions)

if(Tarka_LLVM STREQUAL "SHARED")
  set_target_properties(Tarka::LLVM PROPERTIES INTERFACE_LINK_LIBRARIES LLVM)
else()
  # Only programs link the archives; otherwise there would be several copies.
  set_target_properties(Tarka::LLVM PROPERTIES INTERFACE_LINK_LIBRARIES
    "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:LLVMCore;LLVMSupport>")
endif()
