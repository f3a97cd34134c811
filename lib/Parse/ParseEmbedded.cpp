//===- ParseEmbedded.cpp - blocks of embedded languages -----------------===//

#include "Parse/Embedded/EmbeddedParser.h"
#include "Parse/MisspeltWords.h"
#include "Parse/ParserBase.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

/// The command that a block of \p language holds; null where it is not understood.
static EmbeddedCommand *parseCommand(ParserContext &context, ExecType language,
                                     const EmbeddedSource &source) {
  switch (language) {
  case ExecType::Cics:
    return parseCicsCommand(context, source);
  case ExecType::Sql:
    return parseSqlCommand(context, source);
  case ExecType::Dli:
    return parseDliCommand(context, source);
  case ExecType::Other:
    return nullptr;
  }
  llvm_unreachable("every language is handled");
}

/// EXEC language text END-EXEC
ExecStatement *ParserBase::parseEmbeddedBlock() {
  SourceRange begin = here();
  acceptAny(Keyword::Exec, Keyword::Execute);
  if (!peek().isWord())
    return expected("the name of a language");
  ExecType type = at(Keyword::Cics)                   ? ExecType::Cics
                  : at(Keyword::Sql, Keyword::Sqlims) ? ExecType::Sql
                  : at(Keyword::Dli)                  ? ExecType::Dli
                                                      : ExecType::Other;
  context.embeddedLanguages.set(static_cast<unsigned>(type));
  context.isTranslated |= type == ExecType::Cics || type == ExecType::Dli;
  stream.skip();
  llvm::StringRef text;
  EmbeddedCommand *command = nullptr;
  if (at(TokenKind::EmbeddedText)) {
    text = peek().text;
    if (!text.empty())
      command = parseCommand(context, type, {text, *peek().embedded});
    stream.skip();
  }
  // The stream has reported an END-EXEC that is missing. Without it the text may have taken the
  // period, and ends of statements, with it.
  if (!accept(Keyword::EndExec) && !at(TokenKind::Period))
    recovery.noteUnknownStatement();
  auto *block = make<ExecStatement>(begin, type, text);
  block->setCommand(command);
  return block;
}

bool ParserBase::skipEmbeddedBlock() {
  if (at(Keyword::Exec, Keyword::Execute)) {
    if (ExecStatement *block = parseEmbeddedBlock(); block && context.unit)
      context.unit->addDataBlock(block);
  } else {
    bool isMisspelt = peek().isUserWord() &&
                      peek(1).isOneOf(Keyword::Sql, Keyword::Cics, Keyword::Dli) &&
                      nearestKeyword(peek().text, Keyword::Exec) != Keyword::None;
    if (!isMisspelt)
      return false;
    error(DiagnosticId::MisspeltVerb, here(), describe(peek()), textOf(Keyword::Exec));
    skipEmbeddedText();
  }
  accept(TokenKind::Period);
  return true;
}

/// The text of a block whose EXEC is misspelt, so that the stream has made tokens of it.
void ParserBase::skipEmbeddedText() {
  Skipping skipping(*this);
  while (!at(Keyword::EndExec) && !atUnitBoundary())
    stream.skip();
  accept(Keyword::EndExec);
}

} // namespace tarka
