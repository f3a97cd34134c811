//===- Parser.cpp - fuzzes the whole front end ----------------------------===//

#include "Input.h"
#include "Parse/Parse.h"
#include "Process.h"

using namespace tarka;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::Run run;
  ParseOptions options = fuzz::optionsFor({reinterpret_cast<const char *>(data), size});
  FrontEndDiagnostics diagnostics;
  (void)parseProgram(fuzz::mainFile, "MAIN", options, diagnostics);
  return 0;
}
