//===- ParseClauses.cpp - what all entries and their clauses share --------===//
//
// The entries of the environment and data division are clauses in any order up
// to a period. After a mistake in a clause, parsing resumes at
// the next word that begins a clause, and at the latest with the next entry.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseClauses.h"
#include "Parse/MisspeltWords.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

bool ClauseSet::contains(Keyword keyword) const {
  return llvm::is_contained(keywords, keyword) || llvm::is_contained(synonyms, keyword);
}

//===----------------------------------------------------------------------===//
// Where an entry ends
//===----------------------------------------------------------------------===//

bool ClauseParser::atEntryBoundary(const ClauseSet &clauses) {
  if (atPartHeader() || at(Keyword::Fd, Keyword::Sd, Keyword::Rd))
    return true;
  if (!peek().isFirstOnLine())
    return false;
  return at(Keyword::Cd, Keyword::Select, Keyword::Exec) ||
         (clauses.endsAtLevelNumber && atLevelNumber());
}

void ClauseParser::takeSectionHeader(Keyword header) {
  recovery.resumeReporting();
  if (at(Keyword::Section)) {
    error(DiagnosticId::Expected, here(), (textOf(header) + " SECTION").str(), "'SECTION'");
    stream.skip();
    accept(header);
    expectPeriod();
    return;
  }
  stream.skip();
  if (accept(Keyword::Section)) {
    expectPeriod();
    return;
  }
  expected("SECTION");
  if (atSequence(TokenKind::Period, Keyword::Section))
    stream.skip();
  // There is another word in place of SECTION.
  if (!at(TokenKind::Period) && !peek().isFirstOnLine())
    stream.skip();
  accept(Keyword::Section);
  accept(TokenKind::Period);
}

void ClauseParser::takeParagraphHeader() {
  stream.skip();
  expectPeriod();
}

//===----------------------------------------------------------------------===//
// Clauses
//===----------------------------------------------------------------------===//

SourceRange ClauseParser::parseClauses(const SourceRange &begin, const ClauseSet &clauses,
                                       llvm::function_ref<bool()> parseClause) {
  bool wasReadable = true;
  while (!at(TokenKind::Period)) {
    if (atEntryBoundary(clauses)) {
      if (wasReadable)
        missingPeriod();
      return from(begin).getRange();
    }
    wasReadable = parseClause();
    if (!wasReadable)
      skipToClause(clauses);
  }
  SourceRange place = from(begin).getRange();
  accept(TokenKind::Period);
  return place;
}

void ClauseParser::parseParagraphClauses(const ClauseSet &clauses,
                                         llvm::function_ref<bool()> parseClause) {
  bool needsPeriod = false;
  while (!atEntryBoundary(clauses)) {
    needsPeriod = !accept(TokenKind::Period);
    if (needsPeriod && !parseClause()) {
      skipToClause(clauses);
      needsPeriod = false;
    }
  }
  if (needsPeriod)
    missingPeriod();
}

/// True where the clause is known after all, with a misspelt keyword.
bool ClauseParser::unknownClause(const ClauseSet &clauses) {
  llvm::SmallVector<Keyword, 80> words(clauses.keywords);
  words.append(clauses.synonyms.begin(), clauses.synonyms.end());
  Keyword meant = peek().isWord() ? nearestKeyword(peek().text, words) : Keyword::None;
  if (meant != Keyword::None && textOf(meant) == peek().text && !at(meant)) {
    // An OS/VS COBOL word, which is a keyword only with its option.
    error(DiagnosticId::OsvsStatement, here(), peek().text);
    stream.skip();
    skipToClause(clauses, /*isUnknown=*/true);
    return false;
  }
  if (meant != Keyword::None && !at(meant)) {
    // The clause is read as the one that it was meant to be.
    error(DiagnosticId::MisspeltClause, here(), describe(peek()), clauses.owner, textOf(meant));
    stream.correct(meant);
    return true;
  }
  auto texts = llvm::map_range(clauses.keywords, textOf);
  error(DiagnosticId::UnknownClause, here(), describe(peek()), clauses.owner,
        llvm::join(texts, ", "));
  takeRun();
  skipToClause(clauses, /*isUnknown=*/true);
  return false;
}

bool ClauseParser::unsupportedClause(llvm::StringRef what, const ClauseSet &clauses) {
  error(DiagnosticId::NotSupported, here(), what);
  stream.skip();
  skipToClause(clauses);
  return true;
}

void ClauseParser::skipToClause(const ClauseSet &clauses, bool isUnknown) {
  Skipping skipping(*this);
  while (!at(TokenKind::Period) && !atEntryBoundary(clauses)) {
    bool isFirst = peek().isFirstOnLine();
    bool isInner = isUnknown && !isFirst && llvm::is_contained(clauses.innerWords, peek().keyword);
    if (clauses.contains(peek().keyword) && !isInner)
      return;
    if (clauses.beginsWithName && isFirst && atEnvironmentName(clauses))
      return;
    takeRun();
  }
}

bool ClauseParser::isRestOfEntry() {
  return peek().isFirstOnLine() && peek().isWord() && !peek().isUserWord() && !peek().isVerb() &&
         (recovery.isBehindMistake(here(), 1) || recovery.isBehindCopiedMistake(here()));
}

void ClauseParser::skipToEntry(const ClauseSet &clauses) {
  Skipping skipping(*this);
  while (!atEntryBoundary(clauses))
    if (accept(TokenKind::Period))
      return;
    else
      takeRun();
}

bool ClauseParser::atEnvironmentName(const ClauseSet &clauses) {
  if (at(TokenKind::AlphanumericLiteral))
    return peek(1).isOneOf(Keyword::Is, Keyword::On, Keyword::Off) || peek(1).isUserWord();
  if (!peek().isUserWord())
    return false;
  if (environmentNameType(peek().text) != EnvNameType::Unknown)
    return true;
  bool isFollowed = peek(1).isOneOf(Keyword::Is, Keyword::On, Keyword::Off) || peek(1).isUserWord();
  return isFollowed && nearestKeyword(peek().text, clauses.keywords) == Keyword::None;
}

} // namespace tarka
