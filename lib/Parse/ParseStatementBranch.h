//===- ParseStatementBranch.h - IF, PERFORM, CALL ... -----------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_PARSESTATEMENTBRANCH_H
#define TARKA_LIB_PARSE_PARSESTATEMENTBRANCH_H

#include "Parse/ParseStatement.h"

namespace tarka {

class BranchStatements : public StatementParser {
public:
  using StatementParser::StatementParser;

  // Each with its verb next.
  StatementResult parseAlter();
  StatementResult parseCall();
  StatementResult parseCancel();
  StatementResult parseContinue();
  StatementResult parseEntry();
  StatementResult parseEvaluate();
  StatementResult parseExec();
  StatementResult parseExit();
  StatementResult parseGoback();
  StatementResult parseGoto();
  StatementResult parseInvoke();
  StatementResult parseIf();
  StatementResult parseNextSentence();
  StatementResult parseOn();
  StatementResult parsePerform();
  StatementResult parseSearch();
  StatementResult parseStop();
  StatementResult parseTrace();

private:
  StatementResult parsePerformInline(PerformStatement *perform, bool isComplete);
  bool parsePerformPhrase(PerformStatement &perform);
  PerformVarying *parsePerformVarying();
  bool atTimesPhrase();
  bool atPerformPhrase();
  bool parseCallArguments(CallStatement &call);
  Argument *parseCallArgument(ArgType type, const SourceRange &begin);
  bool parseElse(NodeList<Statement> &statements);
  EvaluateSubject *parseEvaluateSubject();
  EvaluateCase *parseEvaluateCase(EvaluateStatement &evaluate, bool &isComplete);
  EvaluateWhen *parseEvaluateWhen(EvaluateStatement &evaluate);
  EvaluateObject *parseEvaluateObject(const EvaluateSubject *subject);
  EvaluateObject *parseEvaluateCondition(const SourceRange &begin, Condition *condition);
  EvaluateObject *parseEvaluateOperand(const SourceRange &begin, bool isTruthWanted);
  SearchWhen *parseSearchWhen();
  AlterItem *parseAlterItem();
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_PARSESTATEMENTBRANCH_H
