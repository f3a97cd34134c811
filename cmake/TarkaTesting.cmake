# tarka_add_test(<name> <command> [<argument>...])
# One entry of ctest. The names of a sanitizer build carry a prefix, so that one run can show the
# tests of both builds; the variable tarka_test_name returns the full name to the caller.
function(tarka_add_test name)
  if(TARKA_SANITIZE)
    string(PREPEND name sanitize.)
  endif()
  add_test(NAME ${name} COMMAND ${ARGN})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
  if(TARKA_SANITIZE)
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${TARKA_SANITIZER_ENVIRONMENT}")
  endif()
  set(tarka_test_name ${name} PARENT_SCOPE)
endfunction()

# Every sanitizer report is fatal and has a stack trace.
set(TARKA_SANITIZER_ENVIRONMENT
  # LLVM sets a signal stack of its own, which the sanitizer would unmap when a thread ends.
  ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1:detect_leaks=0:use_sigaltstack=0
  UBSAN_OPTIONS=print_stacktrace=1
  ASAN_SYMBOLIZER_PATH=${LLVM_TOOLS_BINARY_DIR}/llvm-symbolizer
  UBSAN_SYMBOLIZER_PATH=${LLVM_TOOLS_BINARY_DIR}/llvm-symbolizer)
