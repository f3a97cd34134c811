//===- ParseEmbedded.cpp - blocks of embedded languages -----------------===//

#include "AST/Spelling.h"
#include "Parse/Embedded/EmbeddedParser.h"
#include "Parse/MisspeltWords.h"
#include "Parse/ParserBase.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
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

/// Whether the word after EXEC is no language but the beginning of a command, or a language
/// misspelt.
static bool isNoLanguage(const Token &word) {
  static constexpr llvm::StringLiteral commands[] = {
      "ADDRESS", "ASSIGN",  "CLOSE",  "COMMIT", "DECLARE", "DELETE", "FETCH",
      "HANDLE",  "INCLUDE", "INSERT", "LINK",   "OPEN",    "READ",   "RECEIVE",
      "RETURN",  "REWRITE", "SELECT", "SEND",   "UPDATE",  "WRITE",  "XCTL",
  };
  static constexpr Keyword languages[] = {Keyword::Cics, Keyword::Sql, Keyword::Dli};
  return isReserved(word.keyword) || llvm::is_contained(commands, word.text) ||
         nearestKeyword(word.text, languages) != Keyword::None;
}

/// Whether the text of an SQL block is INCLUDE, misspelt or out of its place, and a name.
static bool isMisspeltInclude(llvm::StringRef text) {
  llvm::SmallVector<llvm::StringRef, 3> words;
  llvm::SplitString(text, words);
  if (words.size() < 2 || words.size() > 3)
    return false;
  auto isInclude = [](llvm::StringRef word) { return word.equals_insensitive("INCLUDE"); };
  const std::string first = words.front().upper();
  SpellingMatch match(first);
  return (words.size() == 2 && !isInclude(words.front()) && match.consider("INCLUDE")) ||
         llvm::any_of(llvm::drop_begin(words), isInclude);
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
  const bool isWrong = type == ExecType::Other && isNoLanguage(peek());
  const unsigned tornLine = recovery.getTornLine();
  if (isWrong)
    expected("SQL, CICS or DLI");
  context.embeddedLanguages.set(static_cast<unsigned>(type));
  context.isTranslated |= type == ExecType::Cics || type == ExecType::Dli;
  stream.skip();
  llvm::StringRef text;
  EmbeddedCommand *command = nullptr;
  if (at(TokenKind::EmbeddedText)) {
    text = peek().text;
    if (type == ExecType::Sql && isMisspeltInclude(text)) {
      const llvm::StringRef word = text.ltrim().split(' ').first;
      const SourceRange place = peek().embedded->rangeOf(word);
      error(DiagnosticId::MisspeltVerb, place, ("'" + word + "'").str(), "INCLUDE");
      context.diagnostics.getDamage().addLostCopy(place);
    }
    if (!text.empty())
      command = parseCommand(context, type, {text, *peek().embedded});
    stream.skip();
    if (text.empty() && at(Keyword::EndExec)) {
      expected("a command");
      // Among data entries it would copy text, most likely.
      if (context.unit && !context.unit->getProcDivision())
        context.diagnostics.getDamage().addLostCopy(here());
    }
  }
  // The stream has reported an END-EXEC that is missing. Without it the text may have taken the
  // period, and ends of statements, with it.
  const bool isClosed = accept(Keyword::EndExec);
  if (!isClosed && !at(TokenKind::Period))
    recovery.noteUnknownStatement();
  if (isClosed)
    recovery.resetTornLine(tornLine);
  else
    recovery.noteSentenceDamage();
  auto *block = make<ExecStatement>(begin, type, text);
  if (isWrong)
    context.diagnostics.getDamage().add(block->getRange());
  // Where a block has no end, its text is not only the command.
  if (isClosed)
    block->setCommand(command);
  return block;
}

bool ParserBase::skipEmbeddedBlock() {
  if (at(Keyword::Exec, Keyword::Execute)) {
    if (ExecStatement *block = parseEmbeddedBlock(); block && context.unit)
      context.unit->addDataBlock(block);
  } else {
    if (!atMisspeltBlock())
      return false;
    error(DiagnosticId::MisspeltVerb, here(), describe(peek()), textOf(Keyword::Exec));
    skipEmbeddedText();
  }
  accept(TokenKind::Period);
  return true;
}

/// Whether a block begins where an entry may begin, with another word in the place of EXEC, or with
/// EXEC and the language in one word.
bool ParserBase::atMisspeltBlock() {
  if (!at(TokenKind::Word) || !peek().isFirstOnLine())
    return false;
  if (peek(1).isOneOf(Keyword::Sql, Keyword::Cics, Keyword::Dli) && !peek(1).isFirstOnLine())
    return true;
  llvm::StringRef word = peek().text;
  return peek().isUserWord() && word.consume_front("EXEC") &&
         (word.ends_with("SQL") || word.ends_with("CICS") || word.ends_with("DLI"));
}

/// The text of a block whose EXEC is misspelt, so that the stream has made tokens of it.
void ParserBase::skipEmbeddedText() {
  Skipping skipping(*this);
  while (!at(Keyword::EndExec) && !atUnitBoundary())
    stream.skip();
  accept(Keyword::EndExec);
}

} // namespace tarka
