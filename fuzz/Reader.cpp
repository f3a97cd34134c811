//===- Reader.cpp - fuzzes lines and tokens of one file -------------------===//

#include "Input.h"
#include "Parse/Lexer.h"
#include "Parse/SourceFile.h"
#include "Process.h"
#include "llvm/Support/MemoryBuffer.h"

using namespace tarka;

/// Aborts when \p place is empty: every token has a place in its file.
static void checkPlace(const SourceRange &place) {
  bool isInOrder = place.beginLine < place.endLine ||
                   (place.beginLine == place.endLine && place.beginColumn <= place.endColumn);
  if (place.beginLine == 0 || place.beginColumn == 0 || !isInOrder)
    abort();
}

static void read(const SourceFile &file, SourceFormat format, const ParseOptions &options) {
  FrontEndDiagnostics diagnostics;
  LexerContext context(options, diagnostics);
  Lexer lexer(file, format, context, /*isMain=*/true);
  Token token;
  do {
    lexer.next(token);
    checkPlace(token.place);
  } while (!token.is(TokenKind::EndOfFile));
  for (const DiagnosticEntry &entry : diagnostics.getEntries())
    checkPlace(entry.place);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzz::Run run;
  llvm::StringRef text(reinterpret_cast<const char *>(data), size);
  ParseOptions options = fuzz::optionsFor(text);
  SourceFile file(fuzz::mainFile, llvm::MemoryBuffer::getMemBufferCopy(text));
  read(file, file.getFormat(SourceFormat::Fixed), options);
  read(file, SourceFormat::Fixed, options);
  read(file, SourceFormat::Free, options);
  return 0;
}
