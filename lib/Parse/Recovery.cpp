//===- Recovery.cpp - error recovery of the parser ------------------------===//

#include "Parse/Recovery.h"
#include "Parse/SourceDiagnostics.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Cascade suppression
//===----------------------------------------------------------------------===//

/// Whether \p id says that a part of a statement stands where no statement waits for it.
static bool isAboutStructure(DiagnosticId id) {
  switch (id) {
  case DiagnosticId::EndWithoutStatement:
  case DiagnosticId::ElseWithoutIf:
  case DiagnosticId::WhenWithoutEvaluate:
  case DiagnosticId::PhraseWithoutStatement:
    return true;
  default:
    return false;
  }
}

bool beginsSuppression(DiagnosticId id) {
  switch (id) {
  case DiagnosticId::Expected:
  case DiagnosticId::ReservedWord:
  case DiagnosticId::ProgramExpected:
  case DiagnosticId::PeriodMissing:
  case DiagnosticId::UnknownClause:
  case DiagnosticId::MisspeltClause:
  case DiagnosticId::HeaderNotHere:
  case DiagnosticId::NotAStatement:
  case DiagnosticId::MisspeltVerb:
  case DiagnosticId::OsvsStatement:
    return true;
  default:
    return isAboutStructure(id);
  }
}

/// Whether the mistake \p id, found at the beginning of a line, can mean that the line stands one
/// line too far up or down.
static bool canBeStrayLine(DiagnosticId id) {
  switch (id) {
  case DiagnosticId::ClauseTwice:
  case DiagnosticId::Expected:
  case DiagnosticId::PeriodMissing:
  case DiagnosticId::ReservedWord:
  case DiagnosticId::UnknownClause:
    return true;
  default:
    return false;
  }
}

/// Whether the mistake \p id can come from a line that stands one line too far up or down.
static bool canFollowStrayLine(DiagnosticId id) {
  switch (id) {
  case DiagnosticId::Expected:
  case DiagnosticId::ReservedWord:
  case DiagnosticId::DeclarativesOutOfPlace:
  case DiagnosticId::DivisionOutOfOrder:
  case DiagnosticId::HeaderMissing:
  case DiagnosticId::PeriodMissing:
  case DiagnosticId::UseOutsideDeclaratives:
    return true;
  default:
    return false;
  }
}

bool Recovery::isBehindMistake(const SourceRange &place, unsigned lines) const {
  return place.file == lastMistake.file && lastMistake.endLine < place.beginLine &&
         place.beginLine <= lastMistake.endLine + lines;
}

bool Recovery::isRestOfStatement(const Token &first) {
  constexpr unsigned near = 2;
  return first.isFirstOnLine() && isBehindMistake(first.place, near) && !stream.peek(1).isVerb();
}

/// Whether the next token is at \p place and begins a line.
bool Recovery::beginsLine(const SourceRange &place) const {
  const Token &next = stream.peek();
  return next.isFirstOnLine() && next.place.beginLine == place.beginLine &&
         next.place.beginColumn == place.beginColumn;
}

/// Whether the next token, at which the mistake \p id was found, may be the rest of a word: a
/// period or comma stands before it without a space.
bool Recovery::isRestOfWord(DiagnosticId id) const {
  if (id != DiagnosticId::Expected && id != DiagnosticId::MisspeltVerb &&
      id != DiagnosticId::NotAStatement)
    return false;
  const SourceRange &last = stream.getLastPlace();
  const Token &next = stream.peek();
  const unsigned distance = next.isAfterComma() ? 2 : 1;
  return next.isWord() && last.file == next.place.file && last.endLine == next.place.beginLine &&
         last.endColumn + distance == next.place.beginColumn;
}

/// Whether the mistake \p id at \p place is what an earlier one leaves over.
bool Recovery::isLeftOver(DiagnosticId id, const SourceRange &place) const {
  constexpr unsigned near = 2;
  constexpr unsigned nearWithComments = 3;
  if (isAboutStructure(id))
    return isStructureUncertain() || (lastId == DiagnosticId::PhraseWithoutStatement &&
                                      id != lastId && isBehindMistake(place, nearWithComments));
  const bool isInLine = place.file == lastMistake.file && place.beginLine == lastMistake.endLine;
  if (isInLine && isRestOfWord(id))
    return true;
  if (id == DiagnosticId::UnknownClause)
    return isInLine ||
           (((lastIsStrayLine && beginsLine(place)) || lastId == DiagnosticId::ClauseMissing) &&
            isBehindMistake(place, near));
  // A period within a verb makes a name of its beginning.
  if (id == DiagnosticId::NotAStatement)
    return isInLine && lastId == DiagnosticId::ProcedureNameInAreaB;
  // A line that is there twice repeats all its clauses.
  if (id == DiagnosticId::ClauseTwice && lastId == id && lastIsStrayLine && isInLine)
    return true;
  if (id == DiagnosticId::NotSupported && place.file == lastMistake.file &&
      place.beginLine == lastMistake.beginLine && place.beginColumn == lastMistake.beginColumn)
    return true;
  // What an entry is without may be in the line of the mistake.
  if (id == DiagnosticId::LevelWithoutRecord || id == DiagnosticId::RecordWithoutFile)
    return isBehindMistake(place, near);
  if (id == DiagnosticId::ClauseMissing || id == DiagnosticId::DependingMissing)
    return lastIsStrayLine && isBehindMistake(place, near);
  const bool isLack = id == DiagnosticId::Expected || id == DiagnosticId::ReservedWord;
  if (!canFollowStrayLine(id) || !beginsLine(place))
    return false;
  // Where two lines in succession lack something, one of them alone begins with a verb if they are
  // exchanged.
  const bool wasLack = lastId == DiagnosticId::Expected || lastId == DiagnosticId::ReservedWord;
  if (isLack && wasLack && lastIsAtVerb == stream.peek().isVerb())
    return false;
  // Periods can be missing in lines in succession.
  if (!isLack && lastId == DiagnosticId::PeriodMissing)
    return false;
  // A header that is found too late follows the line that it is missing before.
  if (id == DiagnosticId::PeriodMissing && lastId == DiagnosticId::HeaderMissing)
    return isBehindMistake(place, 1);
  return lastIsStrayLine && isBehindMistake(place, nearWithComments);
}

/// Whether what is missing before \p place may be in a copybook that was not found.
bool Recovery::isInMissingCopybook(DiagnosticId id, const SourceRange &place) const {
  const bool isLack = id == DiagnosticId::PeriodMissing || id == DiagnosticId::HeaderMissing ||
                      id == DiagnosticId::Expected || id == DiagnosticId::RecordWithoutFile ||
                      id == DiagnosticId::GroupWithoutReport;
  return isLack && stream.getSourceDiagnostics().isCopybookMissing(stream.getLastPlace(), place);
}

/// Whether the next token is a reserved word that was reported as the name of a declaration.
bool Recovery::isUseOfReservedName(DiagnosticId id) const {
  const bool isWrongWord = id == DiagnosticId::ReservedWord || id == DiagnosticId::Expected ||
                           id == DiagnosticId::UnknownClause;
  return isWrongWord && isReservedName(stream.peek());
}

bool Recovery::shouldReport(DiagnosticId id, const SourceRange &place) {
  constexpr unsigned suppressedTokens = 3;
  const SourceDiagnostics &source = stream.getSourceDiagnostics();
  const bool isCascade = isLeftOver(id, place) || sentenceIsAbandoned ||
                         stream.getTaken() < suppressedUntil || isSuspect() ||
                         isDoubtful(stream.peek()) || source.isDamaged(place) ||
                         source.isDamaged(stream.getLastPlace()) ||
                         isInMissingCopybook(id, place) || isUseOfReservedName(id);
  if (isCascade || isError(infoOf(id).severity)) {
    constructs.noteMistake();
    sentenceIsDamaged = true;
    lastMistake = place;
    if (!isCascade || id != DiagnosticId::ClauseTwice)
      lastIsStrayLine = !isCascade && beginsLine(place) && canBeStrayLine(id);
    lastIsAtVerb = stream.peek().isVerb();
    lastId = id;
    // A misspelt verb is read as what it was meant to be, and of parts without their statement
    // those that belong together are known.
    if (id != DiagnosticId::MisspeltVerb && id != DiagnosticId::OsvsStatement &&
        !isAboutStructure(id))
      tornLine = place.endLine;
  }
  if (!isCascade)
    lastReport = stream.getTaken();
  if (!isCascade && id == DiagnosticId::ReservedWord && !stream.peek().isVerb())
    reservedUses.insert(stream.peek().keyword);
  if (isCascade || beginsSuppression(id))
    suppressedUntil = stream.getTaken() + suppressedTokens;
  return !isCascade;
}

//===----------------------------------------------------------------------===//
// Enclosing statements
//===----------------------------------------------------------------------===//

bool Recovery::canEndWith(Keyword endWord) const {
  return llvm::any_of(llvm::reverse(enclosing),
                      [endWord](const EnclosingStatement &one) { return one.canEndWith(endWord); });
}

bool Recovery::canTakeElse() const {
  return llvm::any_of(llvm::reverse(enclosing), [](const EnclosingStatement &one) {
    return (one.verb == Keyword::If || one.verb == Keyword::On) && !one.hasElse;
  });
}

bool Recovery::canTakeWhen() const {
  return llvm::any_of(llvm::reverse(enclosing), [](const EnclosingStatement &one) {
    return one.verb == Keyword::Evaluate || one.verb == Keyword::Search;
  });
}

bool Recovery::canTakePhrase(const PhraseStart &phrase) const {
  return llvm::any_of(llvm::reverse(enclosing),
                      [&](const EnclosingStatement &one) { return one.canTake(phrase); });
}

//===----------------------------------------------------------------------===//
// Abandoned END- words and stray parts
//===----------------------------------------------------------------------===//

bool Recovery::acceptAbandonedEnd(Keyword endWord) {
  auto *found = std::find(abandonedEnds.begin() + abandonedBegin, abandonedEnds.end(), endWord);
  if (found == abandonedEnds.end())
    return false;
  abandonedEnds.erase(found);
  return true;
}

/// At the end of a list, which may have ended too early because of the mistake for which its END-
/// words were abandoned.
void Recovery::loosenEnds() {
  for (size_t i = abandonedBegin; i < abandonedEnds.size(); ++i)
    looseEnds.insert(abandonedEnds[i]);
  abandonedEnds.truncate(abandonedBegin);
  hasEnds = true;
}

/// At the end of a sentence: what a misplaced period has cut off is expected in the next one.
void Recovery::passEnds() {
  expectedEnds = std::exchange(cutEnds, {});
  looseEnds.clear();
  hasEnds = !expectedEnds.empty();
}

/// The parts of statements of \p verb that can be found without their statement.
static uint8_t strayPartsOf(Keyword verb) {
  unsigned parts = 0;
  if (verb == Keyword::If)
    parts = static_cast<unsigned>(StrayPart::Else);
  else if (verb == Keyword::Evaluate || verb == Keyword::Search)
    parts = static_cast<unsigned>(StrayPart::When);
  if (const ScopedVerb *scope = scopeOf(verb); scope && !scope->phrases.empty())
    parts |= static_cast<unsigned>(StrayPart::Phrase);
  return static_cast<uint8_t>(parts);
}

void Recovery::noteMisplacedPeriod() {
  for (const EnclosingStatement &one : enclosing) {
    cutParts |= strayPartsOf(one.verb);
    if (one.scope)
      cutEnds.insert(one.scope->endWord);
  }
  hasEnds = true;
}

void Recovery::noteCutOff(Keyword verb) {
  if (const ScopedVerb *scope = scopeOf(verb))
    cutEnds.insert(scope->endWord);
  hasEnds = true;
}

void Recovery::noteBrokenOff(const Token &verb, Keyword brokenVerb) {
  strayParts |= strayPartsOf(brokenVerb);
  doubtful = statementsBegun + 1;
  doubtfulPart = verb.isFirstOnLine() ? DoubtfulPart::LineBeginnings : DoubtfulPart::All;
  // Its phrases and END- word may be meant for the statement that broke off.
  unknownStatement |= !verb.isFirstOnLine();
}

bool Recovery::isFirstStray(StrayPart part) {
  auto bit = static_cast<uint8_t>(part);
  // AT END and WHEN can both be left of a SEARCH.
  const uint8_t related =
      part == StrayPart::When ? bit | static_cast<uint8_t>(StrayPart::Phrase) : bit;
  const bool isFirst = !unknownStatement && !(strayParts & related);
  strayParts |= bit;
  suspect = statementsBegun + 1;
  return isFirst;
}

bool Recovery::endsStray(Keyword verb) {
  const unsigned parts = strayPartsOf(verb);
  const bool isStray = strayParts & parts;
  strayParts &= static_cast<uint8_t>(~parts);
  return isStray;
}

} // namespace tarka
