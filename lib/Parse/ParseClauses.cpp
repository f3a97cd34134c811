//===- ParseClauses.cpp - what all entries and their clauses share --------===//
//
// The entries of the environment and data division are clauses in any order up
// to a period. A mistake costs the clause that it stands in: reading goes on at
// the next word that begins a clause, and at the latest with the next entry.
//
//===----------------------------------------------------------------------===//

#include "AST/Spelling.h"
#include "Parse/Parser.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

bool ClauseSet::contains(Keyword keyword) const {
  return llvm::is_contained(keywords, keyword) || llvm::is_contained(synonyms, keyword);
}

//===----------------------------------------------------------------------===//
// Where an entry ends
//===----------------------------------------------------------------------===//

bool Parser::atPartHeader() {
  switch (peek().keyword) {
  case Keyword::Identification:
  case Keyword::Id:
  case Keyword::ProgramId:
  case Keyword::Environment:
  case Keyword::Data:
  case Keyword::Procedure:
  case Keyword::Division:
  case Keyword::End:
    return atUnitBoundary();
  case Keyword::Section:
    return peek().isFirstOnLine();
  case Keyword::SourceComputer:
  case Keyword::ObjectComputer:
  case Keyword::SpecialNames:
  case Keyword::Repository:
  case Keyword::FileControl:
  case Keyword::IOControl:
    return true;
  case Keyword::Communication:
  case Keyword::Configuration:
  case Keyword::InputOutput:
  case Keyword::Linkage:
  case Keyword::LocalStorage:
  case Keyword::WorkingStorage:
    return peek().isFirstOnLine() || peek(1).is(Keyword::Section);
  case Keyword::File:
  case Keyword::Report:
    return peek(1).is(Keyword::Section) || atMisspeltSection();
  case Keyword::None:
    return at(TokenKind::EndOfFile) ||
           (at(TokenKind::Word) && peek(1).isOneOf(Keyword::Section, Keyword::Division));
  default:
    return peek().isFirstOnLine() && peek().isInAreaA() && peek(1).is(Keyword::Division);
  }
}

bool Parser::atLevelNumber() {
  if (!at(TokenKind::IntegerLiteral) || !peek().isFirstOnLine() || peek().spelling.size() > 2)
    return false;
  // A number that belongs to a clause is followed by another one, by the unit that it counts, or by
  // what goes on with a list of values.
  const Token &next = peek(1);
  if (!next.isWord() || next.isFigurativeConstant())
    return false;
  if (next.isUserWord())
    return !isSymbolicCharacter(*next.getInternedText());
  return !next.isOneOf(Keyword::Areas, Keyword::Character, Keyword::Characters, Keyword::Depending,
                       Keyword::False, Keyword::Footing, Keyword::Heading, Keyword::Lines,
                       Keyword::Record, Keyword::Records, Keyword::Thru, Keyword::Through,
                       Keyword::Times, Keyword::To, Keyword::When);
}

bool Parser::atEntryBoundary(const ClauseSet &clauses) {
  if (atPartHeader())
    return true;
  if (!peek().isFirstOnLine())
    return false;
  return at(Keyword::Fd, Keyword::Sd, Keyword::Rd, Keyword::Cd, Keyword::Select, Keyword::Exec) ||
         (clauses.endsAtLevelNumber && atLevelNumber());
}

void Parser::takeSectionHeader(Keyword header) {
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
  // Something else stands in the place of SECTION.
  if (!at(TokenKind::Period) && !peek().isFirstOnLine())
    stream.skip();
  accept(Keyword::Section);
  accept(TokenKind::Period);
}

void Parser::missingPeriod() {
  // The end of the file is no place to look at.
  SourceRange place = at(TokenKind::EndOfFile) ? stream.getLastPlace() : here();
  error(DiagnosticId::PeriodMissing, place, describe(peek()));
}

void Parser::expectPeriod() {
  if (accept(TokenKind::Period))
    return;
  missingPeriod();
  // What else stands in the line of a header belongs to nothing.
  while (!peek().isFirstOnLine() && !atPartHeader() &&
         !at(TokenKind::IntegerLiteral, Keyword::Fd, Keyword::Sd, Keyword::Rd, Keyword::Select))
    if (accept(TokenKind::Period))
      return;
    else
      stream.skip();
}

//===----------------------------------------------------------------------===//
// Clauses
//===----------------------------------------------------------------------===//

Node Parser::parseClauses(const SourceRange &begin, const ClauseSet &clauses,
                          llvm::function_ref<bool()> parseClause) {
  bool wasReadable = true;
  while (!at(TokenKind::Period)) {
    if (atEntryBoundary(clauses)) {
      if (wasReadable)
        missingPeriod();
      return from(begin);
    }
    wasReadable = parseClause();
    if (!wasReadable)
      recoverToClause(clauses);
  }
  Node place = from(begin);
  accept(TokenKind::Period);
  return place;
}

void Parser::parseParagraphClauses(const ClauseSet &clauses,
                                   llvm::function_ref<bool()> parseClause) {
  bool needsPeriod = false;
  while (!atEntryBoundary(clauses)) {
    needsPeriod = !accept(TokenKind::Period);
    if (needsPeriod && !parseClause()) {
      recoverToClause(clauses);
      needsPeriod = false;
    }
  }
  if (needsPeriod)
    missingPeriod();
}

/// Gives true where the clause is known after all: a keyword of it is misspelt.
bool Parser::unknownClause(const ClauseSet &clauses) {
  llvm::SmallVector<Keyword, 80> words(clauses.keywords);
  words.append(clauses.synonyms.begin(), clauses.synonyms.end());
  Keyword meant = peek().isWord() ? nearestKeyword(peek().text, words) : Keyword::None;
  if (meant != Keyword::None && textOf(meant) == peek().text && !at(meant)) {
    // A word of OS/VS COBOL, which is no keyword without its option.
    error(DiagnosticId::OsvsStatement, here(), peek().text);
    stream.skip();
    recoverToClause(clauses, /*isUnknown=*/true);
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
  recoverToClause(clauses, /*isUnknown=*/true);
  return false;
}

bool Parser::unsupportedClause(llvm::StringRef what, const ClauseSet &clauses) {
  error(DiagnosticId::NotSupported, here(), what);
  stream.skip();
  recoverToClause(clauses);
  return true;
}

void Parser::recoverToClause(const ClauseSet &clauses, bool isUnknown) {
  while (!at(TokenKind::Period) && !atEntryBoundary(clauses)) {
    bool isFirst = peek().isFirstOnLine();
    bool isInner = isUnknown && !isFirst && llvm::is_contained(clauses.innerWords, peek().keyword);
    if (clauses.contains(peek().keyword) && !isInner)
      return;
    if (clauses.beginsWithName && isFirst && atEnvironmentName())
      return;
    takeRun();
  }
}

void Parser::recoverToEntry(const ClauseSet &clauses) {
  while (!atEntryBoundary(clauses))
    if (accept(TokenKind::Period))
      return;
    else
      takeRun();
}

Keyword Parser::nearestKeyword(llvm::StringRef word, llvm::ArrayRef<Keyword> candidates) {
  SpellingMatch match(word);
  for (Keyword candidate : candidates)
    match.consider(textOf(candidate));
  const auto *found = llvm::find_if(
      candidates, [&](Keyword candidate) { return textOf(candidate) == match.getNearest(); });
  return found == candidates.end() ? Keyword::None : *found;
}

Expression *Parser::parseNumberOrDataName(llvm::StringRef what) {
  if (atNumericLiteral())
    return parseNumericLiteral();
  return parseDataName(what);
}

} // namespace tarka
