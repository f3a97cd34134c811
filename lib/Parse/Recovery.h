//===- Recovery.h - error recovery of the parser ----------------*- C++ -*-===//
//
// One mistake gets one message. After a message the parser synchronizes: it skips
// to a token at which it can resume, such as a verb, a clause or a period. This
// class holds what it needs to know for that: which further mistakes are cascades
// of the one reported, which statements enclose the current one and what they
// still wait for, and which parts of statements were met without their statement.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_RECOVERY_H
#define TARKA_LIB_PARSE_RECOVERY_H

#include "Parse/Diagnostics.h"
#include "Parse/OpenConstructs.h"
#include "Parse/Preprocessor.h"
#include "Parse/Verbs.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallSet.h"
#include "llvm/ADT/SmallVector.h"
#include <cstdint>
#include <utility>

namespace tarka {

/// Whether it is uncertain after the message \p id what the next tokens are meant to be.
bool beginsSuppression(DiagnosticId id);

/// A statement being parsed.
struct EnclosingStatement {
  EnclosingStatement(Keyword theVerb, PhraseSet alreadyGiven, uint64_t theNumber)
      : verb(theVerb), scope(scopeOf(theVerb)), given(alreadyGiven), number(theNumber) {}

  /// The END- word of the statement, which must have one.
  Keyword getEndWord() const { return scope->endWord; }
  bool canEndWith(Keyword endWord) const {
    return verb == Keyword::None || (scope && scope->endWord == endWord);
  }
  bool canTake(const PhraseStart &phrase) const {
    const bool canHave = verb == Keyword::None || (scope && scope->phrases.contains(phrase.type));
    return canHave && !given.contains(phrase);
  }

  Keyword verb; ///< None for an unknown statement, which any phrase and END- word may belong to
  const ScopedVerb *scope;
  bool hasElse = false;
  PhraseSet given;     ///< the phrases already given
  uint64_t number = 0; ///< counts statements in the order in which they begin
};

/// The parts that can be found without their statement.
enum class StrayPart : uint8_t { Else = 1, When = 2, Phrase = 4 };

class Recovery {
public:
  explicit Recovery(TokenStream &tokens) : stream(tokens), constructs(tokens.getOpenConstructs()) {}

  //===--------------------------------------------------------------------===//
  // Cascade suppression
  //===--------------------------------------------------------------------===//

  /// Notes the mistake \p id at \p place. False when it is a cascade of an earlier mistake and must
  /// not be reported.
  ///
  /// After a message that leaves open what the next tokens are, mistakes are suppressed until three
  /// tokens were read without one. They are also suppressed in text that the token stream has
  /// reported as damaged. Some mistakes are what an earlier one leaves over:
  /// - an ELSE, WHEN, END- word or phrase without its statement, in a sentence with a mistake and
  /// in
  ///   the next one: which statement it belongs to is not known there;
  /// - a word that begins no statement and no clause, in the line of a mistake;
  /// - a period or header that is missing, or a header out of its place, behind a line that does
  /// not
  ///   begin as lines do: the two may be exchanged;
  /// - what is missing where a copybook was not found;
  /// - each use of a reserved word that a declaration has as its name.
  bool shouldReport(DiagnosticId id, const SourceRange &place);

  /// Ends the suppression: the next token begins a construct in a place where one may begin.
  void resumeReporting() { suppressedUntil = 0; }

  /// Notes that a declaration has \p name, a reserved word, as its name. One message is enough for
  /// the declaration and all uses, which may come first.
  void noteReservedName(const Token &name) {
    if (!name.isVerb())
      reservedNames.insert(name.keyword);
  }
  bool isReservedName(const Token &word) const { return reservedNames.contains(word.keyword); }
  /// Whether \p word, which is reserved, was reported in the place of a name.
  bool isReservedNameReported(const Token &word) const {
    return isReservedName(word) || reservedUses.contains(word.keyword);
  }

  /// Whether a line that begins with \p first, the next token, can be the rest of a statement in
  /// which there was a mistake: it is close behind that, and holds no statement of its own.
  bool isRestOfStatement(const Token &first);
  /// Whether \p place is in one of the \p lines behind the line of the last mistake.
  bool isBehindMistake(const SourceRange &place, unsigned lines) const;
  /// Whether the last mistake is in a copybook that was copied close before \p place.
  bool isBehindCopiedMistake(const SourceRange &place) const {
    constexpr uint64_t maxTokens = 300;
    return lastMistake.beginLine != 0 && place.file != lastMistake.file &&
           stream.getTaken() <= lastReport + maxTokens && lastReport <= stream.getTaken();
  }
  /// Whether the statements around the next token may be others than they seem: there was a mistake
  /// in the sentence or in the one before it, and not far from here.
  bool isStructureUncertain() const { return isNear(tornLine) || isNear(tornLineOfLastSentence); }
  /// The line of the mistake in the sentence that makes the statements around it uncertain; 0 where
  /// there is none.
  unsigned getTornLine() const { return tornLine; }
  /// The mistake that was found last is a line that begins with a word of another statement, so
  /// that the line may stand in the wrong place.
  void noteStrayLine() {
    lastIsStrayLine = true;
    lastIsAtVerb = false;
  }
  /// Sets the line back to \p line: what came since was read to its end in spite of its mistakes.
  void resetTornLine(unsigned line) { tornLine = line; }

  /// Whether the mistake at the next token has been reported: nothing was read since.
  bool hasReportedHere() const { return stream.getTaken() == lastReport; }

  /// A construct whose parse function asks, before it is through, whether a mistake was found in
  /// it: reported or suppressed, in the syntax or in the source text.
  class ConstructScope : public OpenConstructs::Scope {
  public:
    explicit ConstructScope(Recovery &owner) : Scope(owner.constructs) {}
  };

  /// Whether a mistake was found in the innermost construct.
  bool isConstructDamaged() const { return constructs.isInnermostDamaged(); }

  //===--------------------------------------------------------------------===//
  // Enclosing statements
  //===--------------------------------------------------------------------===//

  /// Makes a statement the innermost one as long as it lives.
  class StatementScope {
  public:
    StatementScope(Recovery &owner, Keyword verb, PhraseSet given = {}) : recovery(owner) {
      recovery.enclosing.emplace_back(verb, given, ++recovery.statementsBegun);
    }
    ~StatementScope() { recovery.enclosing.pop_back(); }
    StatementScope(const StatementScope &) = delete;
    StatementScope &operator=(const StatementScope &) = delete;

  private:
    Recovery &recovery;
  };

  /// From the outermost to the innermost.
  llvm::ArrayRef<EnclosingStatement> getEnclosing() const { return enclosing; }
  /// The innermost statement; there must be one.
  EnclosingStatement &getInnermost() { return enclosing.back(); }

  /// Whether an enclosing statement can be ended by \p endWord.
  bool canEndWith(Keyword endWord) const;
  /// Whether an enclosing statement can go on with ELSE.
  bool canTakeElse() const;
  /// Whether an enclosing statement can go on with WHEN.
  bool canTakeWhen() const;
  /// Whether an enclosing statement can go on with \p phrase.
  bool canTakePhrase(const PhraseStart &phrase) const;

  //===--------------------------------------------------------------------===//
  // Abandoned END- words
  //===--------------------------------------------------------------------===//

  /// Holds the abandoned END- words of one list of statements as long as it lives.
  class ListScope {
  public:
    explicit ListScope(Recovery &owner) : recovery(owner), outerBegin(owner.abandonedBegin) {
      recovery.abandonedBegin = recovery.abandonedEnds.size();
    }
    ~ListScope() {
      if (recovery.abandonedEnds.size() > recovery.abandonedBegin)
        recovery.loosenEnds();
      recovery.abandonedBegin = outerBegin;
    }
    ListScope(const ListScope &) = delete;
    ListScope &operator=(const ListScope &) = delete;

  private:
    Recovery &recovery;
    size_t outerBegin;
  };

  /// The statement that \p endWord ends was skipped, but perhaps not as far as that word: it may
  /// still follow in the innermost list.
  void expectAbandonedEnd(Keyword endWord) { abandonedEnds.push_back(endWord); }
  /// Whether \p endWord belongs to a statement of the innermost list that was skipped. It counts
  /// once.
  bool acceptAbandonedEnd(Keyword endWord);

  //===--------------------------------------------------------------------===//
  // The sentence
  //===--------------------------------------------------------------------===//

  /// The sentence holds a statement that is unknown. The ELSE, WHEN, END- words and phrases after
  /// it that belong to no other statement are taken for its own, and what is wrong with the
  /// statement after it for a consequence.
  void noteUnknownStatement() {
    unknownStatement = true;
    suspect = statementsBegun + 1;
  }
  bool hasUnknownStatement() const { return unknownStatement; }

  /// A statement broke off at \p verb, the next token. Within a line, the verb may stand in the
  /// place of what was needed there. At the beginning of a line, the rest of the statement may be
  /// at the beginning of a later line, after lines that were exchanged.
  /// \p brokenVerb is that of the statement, of which phrases may follow.
  void noteBrokenOff(const Token &verb, Keyword brokenVerb);
  /// A phrase of a statement of \p verb could not be read and ends with a period: the END- word of
  /// the statement may follow in the next sentence.
  void noteCutOff(Keyword verb);
  /// An END- word that belongs to no statement was reported. It may stand in the place of another.
  void noteUnmatchedEnd() { unmatchedEnd = true; }
  bool hasUnmatchedEnd() const { return unmatchedEnd; }
  /// Whether the statement that is about to begin may begin with a word that is none of its own.
  bool isVerbDoubtful() const {
    return doubtful == statementsBegun + 1 && doubtfulPart == DoubtfulPart::All;
  }
  /// Notes that \p keyword is missing at the next token, and tells whether it is found, out of its
  /// place, soon after that.
  void noteMissing(Keyword keyword) {
    missing = keyword;
    missingSince = stream.getTaken();
  }
  bool isDisplaced(Keyword keyword) const {
    return keyword != Keyword::None && keyword == missing &&
           stream.getTaken() <= missingSince + nearTokens;
  }
  /// Notes that \p keyword was found out of its place, and tells whether it is missing soon after
  /// that.
  void noteStray(Keyword keyword) {
    stray = keyword;
    straySince = stream.getTaken();
  }
  bool wasStray(Keyword keyword) const {
    return keyword == stray && stream.getTaken() <= straySince + nearTokens;
  }
  /// A mistake was found in the sentence that somebody else reports: the token stream, or the
  /// checks.
  void noteSentenceDamage() {
    sentenceIsDamaged = true;
    lastMistake = stream.getLastPlace();
    tornLine = lastMistake.endLine;
  }
  /// Whether a mistake was found in the sentence.
  bool isSentenceDamaged() const { return sentenceIsDamaged; }

  /// A mistake was found at a period inside of statements. The period may be the mistake: in the
  /// next sentence of the paragraph the parts of these statements may come without messages.
  void noteMisplacedPeriod();
  /// Whether \p endWord ends a statement that a misplaced period cut off, or one of the sentence
  /// that was skipped in a list that ended before the word.
  bool isCutOff(Keyword endWord) const {
    return expectedEnds.contains(endWord) || looseEnds.contains(endWord);
  }

  /// Notes \p part, which belongs to no statement. False when the sentence has another one like it:
  /// both belong to one statement, most likely, which was reported. The statement that follows may
  /// be the one that the part was meant for.
  bool isFirstStray(StrayPart part);
  /// Whether the END- word of \p verb ends a statement of which stray parts were found.
  bool endsStray(Keyword verb);

  /// Nothing more is parsed or reported up to the end of the sentence.
  void abandonSentence() { sentenceIsAbandoned = true; }
  bool isSentenceAbandoned() const { return sentenceIsAbandoned; }

  void endSentence() {
    tornLineOfLastSentence = std::exchange(tornLine, 0U);
    sentenceIsAbandoned = unknownStatement = sentenceIsDamaged = false;
    strayParts = std::exchange(cutParts, uint8_t(0));
    if (hasEnds)
      passEnds();
    unmatchedEnd = false;
    suspect = doubtful = 0;
  }
  void endParagraph() {
    strayParts = 0;
    expectedEnds.clear();
  }

private:
  /// How many tokens a keyword may be out of its place.
  static constexpr unsigned nearTokens = 24;

  /// How many lines behind a mistake the statements around a token stay uncertain.
  static constexpr unsigned nearLines = 10;
  bool isNear(unsigned line) const {
    return line != 0 && stream.peek().place.beginLine <= line + nearLines;
  }

  bool isLeftOver(DiagnosticId id, const SourceRange &place) const;
  bool isRestOfWord(DiagnosticId id) const;
  bool isInMissingCopybook(DiagnosticId id, const SourceRange &place) const;
  bool isUseOfReservedName(DiagnosticId id) const;
  bool beginsLine(const SourceRange &place) const;
  void loosenEnds();
  void passEnds();

  TokenStream &stream;
  OpenConstructs &constructs;
  /// The number of tokens taken from the stream up to which mistakes are suppressed.
  uint64_t suppressedUntil = 0;
  /// The number of tokens that were taken when a mistake was reported last.
  uint64_t lastReport = ~uint64_t(0);

  /// The reserved words that declarations have as their names, and those that were reported in the
  /// place of any name.
  llvm::SmallSet<Keyword, 4> reservedNames;
  llvm::SmallSet<Keyword, 4> reservedUses;

  llvm::SmallVector<EnclosingStatement, 16> enclosing;
  /// The END- words of all open lists, and where those of the innermost one begin.
  llvm::SmallVector<Keyword, 8> abandonedEnds;
  size_t abandonedBegin = 0;

  /// Whether a mistake at \p next belongs to a statement that was begun by the end of another one.
  bool isDoubtful(const Token &next) const {
    return !enclosing.empty() && enclosing.back().number == doubtful &&
           (doubtfulPart == DoubtfulPart::All || next.isFirstOnLine());
  }
  bool isSuspect() const {
    return llvm::any_of(enclosing,
                        [this](const EnclosingStatement &one) { return one.number == suspect; });
  }

  bool unknownStatement = false;
  bool unmatchedEnd = false;
  bool sentenceIsAbandoned = false;
  bool sentenceIsDamaged = false;
  /// Whether there was a mistake after which the rest of the sentence may be taken for other
  /// statements than it is.
  unsigned tornLine = 0;
  unsigned tornLineOfLastSentence = 0;
  /// Where the last mistake was found.
  SourceRange lastMistake;
  DiagnosticId lastId = DiagnosticId::Expected;
  /// Whether it was a line that does not begin as lines do there.
  bool lastIsStrayLine = false;
  bool lastIsAtVerb = false;
  uint8_t strayParts = 0;
  /// What a misplaced period of this sentence and of the one before it have cut off.
  uint8_t cutParts = 0;
  llvm::SmallSet<Keyword, 4> cutEnds;
  llvm::SmallSet<Keyword, 4> expectedEnds;
  /// The END- words of statements of this sentence that were skipped in lists that have ended.
  llvm::SmallSet<Keyword, 4> looseEnds;
  /// Whether one of these sets may hold anything.
  bool hasEnds = false;
  uint64_t statementsBegun = 0;
  /// The number of the statement in which mistakes are consequences of what stands before it.
  uint64_t suspect = 0;
  /// The number of the statement before which another one broke off, and where in it mistakes are
  /// consequences of that.
  enum class DoubtfulPart : uint8_t { All, LineBeginnings };
  uint64_t doubtful = 0;
  DoubtfulPart doubtfulPart = DoubtfulPart::All;
  /// The keyword that was missing last.
  Keyword missing = Keyword::None;
  uint64_t missingSince = 0;
  /// The keyword that began no statement last.
  Keyword stray = Keyword::None;
  uint64_t straySince = 0;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_RECOVERY_H
