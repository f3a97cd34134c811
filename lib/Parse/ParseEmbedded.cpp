//===- ParseEmbedded.cpp - blocks of embedded languages -----------------===//

#include "Parse/MisspeltWords.h"
#include "Parse/ParserBase.h"

namespace tarka {

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
  if (at(TokenKind::EmbeddedText)) {
    text = peek().text;
    stream.skip();
  }
  // The stream has reported an END-EXEC that is missing. Without it the text may have taken the
  // period, and ends of statements, with it.
  if (!accept(Keyword::EndExec) && !at(TokenKind::Period))
    recovery.noteUnknownStatement();
  return make<ExecStatement>(begin, type, text);
}

bool ParserBase::skipEmbeddedBlock() {
  if (at(Keyword::Exec, Keyword::Execute)) {
    parseEmbeddedBlock();
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
