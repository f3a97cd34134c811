# LLVM, and how it is linked.
#
# No Tarka library contains LLVM code: the shared libraries leave LLVM's symbols undefined, and the
# program that is linked in the end brings the one copy. `tarka` takes it from the static component
# archives (only the objects it needs, so that it starts fast and stays small); a program that uses
# LLVM itself takes whichever copy it already has.
find_package(LLVM 19 REQUIRED CONFIG)

add_library(tarka_llvm_headers INTERFACE)
target_include_directories(tarka_llvm_headers SYSTEM INTERFACE ${LLVM_INCLUDE_DIRS})
separate_arguments(TARKA_LLVM_DEFINITIONS NATIVE_COMMAND "${LLVM_DEFINITIONS}")
target_compile_definitions(tarka_llvm_headers INTERFACE ${TARKA_LLVM_DEFINITIONS})

llvm_map_components_to_libnames(TARKA_LLVM_LIBS support core)
