//===- ParseStatement.h - statements in general -----------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENT_H
#define TARKA_LIB_PARSE_PARSESTATEMENT_H

#include "Parse/ParseCondition.h"
#include "Parse/Verbs.h"

namespace tarka {

class StatementParser : public ConditionParser {
public:
  using ConditionParser::ConditionParser;

  /// Statements as long as verbs follow. What is not a statement and ends none of the enclosing
  /// statements is reported and skipped. Failed when statements were there but all of them failed.
  Outcome parseStatements(NodeList<Statement> &statements);
  /// NOTE: a remark up to its period, or the whole paragraph where it is the first word of one. Its
  /// text is not tokenized: an apostrophe in it opens no literal.
  void skipNote(bool isWholeParagraph);

protected:
  /// The statements of a branch, of which there must be one. False where there is none; that is
  /// reported only when \p isNeeded.
  bool parseBranch(NodeList<Statement> &statements, bool isNeeded = true);
  /// The exception phrases of the innermost statement in any order, with or without NOT, each with
  /// its statements. A phrase given twice is left for the enclosing statement.
  void parseExceptionPhrases(NodeList<ExceptionHandler> &handlers);
  /// The exception phrase that begins with the next token:
  /// [NOT] {[ON] {SIZE ERROR | OVERFLOW | EXCEPTION} | [AT] {END | END-OF-PAGE | EOP}
  ///   | INVALID [KEY]}
  std::optional<PhraseStart> atExceptionPhrase();
  /// Skips to where a statement begins or the enclosing statement, or the sentence, goes on.
  void skipToStatement(bool passesWhen = false);
  bool atResumption(bool passesWhen);
  /// The items of USING in the header of the procedure division or in ENTRY.
  bool parseParameters(NodeList<Parameter> &parameters);

  /// The end of a statement: its END- word.
  template <typename T> T *finish(T *statement) {
    accept(recovery.getInnermost().getEndWord());
    return complete(statement);
  }
  /// The end of a statement: its exception phrases and its END- word.
  template <typename T, typename Base>
  T *finish(T *statement, void (Base::*addHandler)(ExceptionHandler *)) {
    NodeList<ExceptionHandler> handlers;
    parseExceptionPhrases(handlers);
    for (ExceptionHandler *handler : handlers)
      (statement->*addHandler)(handler);
    return finish(statement);
  }

private:
  /// The statement whose verb is next. Null after a failure; then the tokens up to the next place
  /// to resume are skipped, and with them the phrases and the END- word of the statement. A
  /// function that parses one statement need not synchronize by itself.
  Statement *parseStatement();
  Statement *parseStatementOf(Keyword verb);
  StatementResult dispatchStatement(Keyword verb);
  StatementResult rejectStatement();
  StatementResult rejectUse();
  StatementResult parseNote();
  StatementResult parseEnter();
  StatementResult parseSeek();
  StatementResult parseService();
  Statement *makePlaceholder(const SourceRange &begin);
  void warnOfAreaA(const Token &verb);

  /// What is remembered along a list of statements.
  struct StatementList {
    Keyword lastVerb = Keyword::None; ///< of the statement parsed last
    bool lastIsKept = false;          ///< it is in the list
    bool lastIsWrong = false;         ///< what follows it was not understood
  };
  /// Whether the next token rightly ends a list of statements; otherwise it is reported and
  /// skipped.
  bool endsStatements(StatementList &list);
  bool rejectWord(StatementList &list);
  bool rejectPhrase(const Token &first);
  bool correctMisspelt();
  bool correctDividedEnd();
  void skipRestOfStatement(Keyword verb);
  void abandonSentence();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENT_H
