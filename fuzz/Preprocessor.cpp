//===- Preprocessor.cpp - fuzzes COPY, REPLACE and directives -------------===//

#include "Parse/Preprocessor.h"
#include "Input.h"
#include "Process.h"

using namespace tarka;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::Run run;
  ParseOptions options = fuzz::optionsFor({reinterpret_cast<const char *>(data), size});
  SourceManager files(options);
  FrontEndDiagnostics diagnostics;
  llvm::ErrorOr<const SourceFile *> file = files.open(fuzz::mainFile);
  if (!file)
    return -1;
  TokenStream tokens(**file, files, diagnostics);
  while (!tokens.atEnd())
    tokens.skip();
  return 0;
}
