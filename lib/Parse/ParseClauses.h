//===- ParseClauses.h - entries and their clauses ---------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSECLAUSES_H
#define TARKA_LIB_PARSE_PARSECLAUSES_H

#include "Parse/ParseCondition.h"
#include "llvm/ADT/STLFunctionalExtras.h"

namespace tarka {

/// The clauses of one kind of entry or paragraph: for messages and for
/// synchronization after a mistake.
struct ClauseSet {
  llvm::StringRef owner;                ///< "a data description entry"
  llvm::ArrayRef<Keyword> keywords;     ///< a word for each clause, as a message lists them
  llvm::ArrayRef<Keyword> synonyms;     ///< further words that a clause can begin with
  llvm::ArrayRef<Keyword> innerWords{}; ///< those of them that also stand within other clauses
  bool beginsWithName = false;          ///< environment names begin a clause too
  bool endsAtLevelNumber = false;       ///< entries with level numbers follow

  bool contains(Keyword keyword) const;
};

class ClauseParser : public ConditionParser {
public:
  using ConditionParser::ConditionParser;

  /// Whether something is next that cannot belong to an entry of \p clauses any more: a header, or
  /// the first word or level number of another entry at the beginning of a line.
  bool atEntryBoundary(const ClauseSet &clauses);
  /// The header of a section that begins with \p header, with its first word next.
  void takeSectionHeader(Keyword header);
  /// The header of a paragraph and its period.
  void takeParagraphHeader();
  /// Reports that the next token begins no clause of \p clauses and skips to the next clause. True
  /// when it is a misspelt keyword, which is now next, corrected.
  bool unknownClause(const ClauseSet &clauses);
  /// Skips to a word that begins a clause of \p clauses, to a period or to the next entry. In a
  /// clause that \p isUnknown, words that can stand within other clauses do not count.
  void skipToClause(const ClauseSet &clauses, bool isUnknown = false);
  /// Whether a line that begins with a reserved word, where an entry should begin, is next to that
  /// of a mistake: it is the rest of that entry.
  bool isRestOfEntry();
  /// Skips the next period and what comes before it, or to the next entry.
  void skipToEntry(const ClauseSet &clauses);
  /// Parses clauses with \p parseClause, which returns false on failure, up to and with the period
  /// that ends the entry. Returns the place from \p begin to the last token before the period.
  SourceRange parseClauses(const SourceRange &begin, const ClauseSet &clauses,
                           llvm::function_ref<bool()> parseClause);
  /// The same for a paragraph, in which every clause may have a period of its own.
  void parseParagraphClauses(const ClauseSet &clauses, llvm::function_ref<bool()> parseClause);
  /// Reports that \p what is not supported and skips the clause that begins with the next token.
  /// Always true.
  bool unsupportedClause(llvm::StringRef what, const ClauseSet &clauses);

  /// Parses with \p parse a clause that \p owner may have one of, and attaches it with \p set. A
  /// second one is reported and left out. False when the clause could not be parsed.
  template <typename Owner, typename Base, typename Clause, typename Parse>
  bool parseOnce(Owner &owner, Clause *(Base::*get)() const, void (Base::*set)(Clause *),
                 Parse parse) {
    bool isSecond = (owner.*get)() != nullptr;
    if (isSecond)
      error(DiagnosticId::ClauseTwice, here(), describe(peek()));
    Clause *clause = call(parse);
    if (clause && !isSecond)
      (owner.*set)(clause);
    return clause != nullptr;
  }
  /// A clause of one word.
  template <typename Clause> Clause *parseBareClause() {
    SourceRange begin = here();
    stream.skip();
    return make<Clause>(begin);
  }
  /// Whether an environment-name clause can begin with the next words. A misspelt keyword of
  /// \p clauses could as well, and is the more likely explanation of a name that no system has.
  bool atEnvironmentName(const ClauseSet &clauses);
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSECLAUSES_H
