//===- TreeText.cpp - the tree of a procedure division as text ------------===//

#include "TreeText.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

static const char *const operators[] = {"", "+", "-", "*", "/", "**", "pos", "neg"};
static const char *const figuratives[] = {"none",  "ZERO", "SPACE", "HIGH-VALUE", "LOW-VALUE",
                                          "QUOTE", "ALL",  "NULL",  "symbol"};
static const char *const relations[] = {"", ">", "<", "=", "!>", "!<", "!=", ">=", "<="};
static const char *const classes[] = {"",     "alphabetic", "lower",  "upper",
                                      "dbcs", "kanji",      "numeric"};

template <typename Enum> static unsigned number(Enum value) {
  return static_cast<unsigned>(value);
}

static std::string textOf(const QualifiedWord *name) {
  std::string text;
  for (Word *word : name->getNamesElements())
    text += (text.empty() ? "" : ".") + word->getWordData();
  return text;
}

/// The texts of the elements with a space between them.
template <typename List> std::string joined(const List &list) {
  std::string text;
  for (auto *element : list)
    text += (text.empty() ? "" : " ") + textOf(element);
  return text;
}

static std::string textOf(const ReferenceModifier *reference) {
  if (!reference)
    return "";
  return "[" + (reference->getFromExpr() ? textOf(reference->getFromExpr()) : "") + ":" +
         (reference->getCountExpr() ? textOf(reference->getCountExpr()) : "") + "]";
}

static std::string textOf(const FigurativeLiteralExpression *constant) {
  std::string text = figuratives[number(constant->getFigurativeType())];
  if (!constant->getSymbolName().empty())
    return constant->getSymbolName();
  return constant->getLiteral() ? text + " " + textOf(constant->getLiteral()) : text;
}

static std::string textOf(const SpecialRegisterIdentifierExpression *reg) {
  std::string text = "%" + reg->getRegisterWord()->getWordData();
  if (reg->getIdent())
    text += " " + textOf(reg->getIdent());
  if (reg->getFileExpr())
    text += " " + reg->getFileExpr()->getFileName()->getWordData();
  if (reg->getReportExpr())
    text += " " + reg->getReportExpr()->getReportName()->getWordData();
  return text + textOf(reg->getReferenceMod());
}

static std::string textOf(const DataIdentifierExpression *data) {
  std::string text = textOf(data->getQualifiedWord());
  if (SubscriptModifier *subscripts = data->getSubscriptMod())
    text += "(" + joined(subscripts->getSubscriptElements()) + ")";
  return text + textOf(data->getReferenceMod());
}

static std::string textOf(const FunctionIdentifierExpression *call) {
  std::string text = call->getFunctionName()->getWordData() + "{";
  text += joined(call->getFunctionArgListElements());
  if (call->getArgKeyword())
    text += " " + call->getArgKeyword()->getWordData();
  return text + "}" + textOf(call->getReferenceMod());
}

static std::string textOf(const AbbrRelationCombinedExpression *objects) {
  std::string text = "{" + textOf(objects->getLeft());
  for (AbbrRelationItem *item : objects->getRightAbbrListElements())
    text += std::string(item->getOpTy() == CombinedOperatorType::And ? " (and " : " (or ") +
            textOf(item->getCond()) + ")";
  return text + "}";
}

std::string textOf(const Expression *expression) {
  if (!expression)
    return "null";
  switch (expression->getExprType()) {
  case ExpressionType::NumericLiteral:
    return llvm::cast<NumericLiteralExpression>(expression)->getData();
  case ExpressionType::NonNumericLiteral:
    return "'" + llvm::cast<NonNumericLiteralExpression>(expression)->getData() + "'";
  case ExpressionType::FigurativeConstant:
    return textOf(llvm::cast<FigurativeLiteralExpression>(expression));
  case ExpressionType::Arithmetic: {
    auto *arithmetic = llvm::cast<ArithmeticExpression>(expression);
    std::string text = std::string("(") + operators[number(arithmetic->getOperator())] + " " +
                       textOf(arithmetic->getOperand1());
    if (arithmetic->getOperand2())
      text += " " + textOf(arithmetic->getOperand2());
    return text + ")";
  }
  case ExpressionType::DataIdentifier:
    return textOf(llvm::cast<DataIdentifierExpression>(expression));
  case ExpressionType::FileIdentifier:
    return "file:" + llvm::cast<FileIdentifierExpression>(expression)->getFileName()->getWordData();
  case ExpressionType::FunctionIdentifier:
    return textOf(llvm::cast<FunctionIdentifierExpression>(expression));
  case ExpressionType::SpecialRegister:
    return textOf(llvm::cast<SpecialRegisterIdentifierExpression>(expression));
  case ExpressionType::AbbrRelationCombined:
    return textOf(llvm::cast<AbbrRelationCombinedExpression>(expression));
  case ExpressionType::ReportIdentifier:
    return "report:" +
           llvm::cast<ReportIdentifierExpression>(expression)->getReportName()->getWordData();
  }
  return "?";
}

std::string textOf(const Condition *condition) {
  if (!condition)
    return "null";
  switch (condition->getType()) {
  case ConditionType::ConditionName:
    return "name:" + textOf(llvm::cast<ConditionNameCondition>(condition)->getConditionName());
  case ConditionType::Switch:
    return "switch:" + textOf(llvm::cast<SwitchCondition>(condition)->getSwitchName());
  case ConditionType::Relational: {
    auto *relation = llvm::cast<RelationalCondition>(condition);
    return std::string("(") + relations[number(relation->getConditionType())] + " " +
           textOf(relation->getLeft()) + " " + textOf(relation->getRight()) + ")";
  }
  case ConditionType::Class: {
    auto *test = llvm::cast<ClassCondition>(condition);
    unsigned kind = number(test->getClassType());
    return (kind > 8 ? "(isnt " : "(is ") + textOf(test->getLeft()) + " " +
           (test->getClassName() ? test->getClassName()->getWordData() : classes[kind % 8]) + ")";
  }
  case ConditionType::Sign: {
    auto *test = llvm::cast<SignCondition>(condition);
    static const char *const signs[] = {"zero", "positive", "negative"};
    unsigned kind = number(test->getSignType());
    return (kind > 3 ? "(isnt " : "(is ") + textOf(test->getOperand()) + " " + signs[kind % 3] +
           ")";
  }
  case ConditionType::Negated:
    return "(not " + textOf(llvm::cast<NegatedCondition>(condition)->getOperand()) + ")";
  case ConditionType::Combined: {
    auto *combined = llvm::cast<CombinedCondition>(condition);
    return std::string(combined->getOpTy() == CombinedOperatorType::And ? "(and " : "(or ") +
           textOf(combined->getLeft()) + " " + textOf(combined->getRight()) + ")";
  }
  case ConditionType::AbbrRelational: {
    auto *relation = llvm::cast<AbbrRelationalCondition>(condition);
    return std::string(relation->isRelationWritten() ? "(_ w" : "(_ ") +
           relations[number(relation->getConditionType())] + " " + textOf(relation->getRight()) +
           ")";
  }
  }
  return "?";
}

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

static std::string textOf(const ExceptionHandler *handler) {
  static const char *const names[] = {
      "", "exception", "at-end", "size-error", "invalid-key", "overflow", "end-of-page"};
  return std::string(handler->isNotOn() ? " not-" : " ") + names[number(handler->getType())] + " " +
         textOf(handler->getImperStmtListElements());
}

static std::string textOf(const Argument *argument) {
  static const char *const ways[] = {"", "ref ", "content ", "value "};
  return ways[number(argument->getType())] +
         (argument->isOmitted() ? "omitted" : textOf(argument->getExpr()));
}

static std::string textOf(const Parameter *parameter) {
  return (parameter->getType() == ParameterType::Value ? "value " : "ref ") +
         textOf(parameter->getExpr());
}

static std::string textOf(const PerformVarying *phrase) {
  return " varying " + textOf(phrase->getVaryingIdentifier()) + " " +
         textOf(phrase->getFromIdentifier()) + " " + textOf(phrase->getByIdentifier()) + " " +
         textOf(phrase->getUntilCondition());
}

static std::string textOf(PerformStatement &perform) {
  std::string text = "(perform";
  if (PerformProcedure *procedure = perform.getProcedureName()) {
    text += " " + textOf(procedure->getProcedureName1());
    if (procedure->getProcedureName2())
      text += " thru " + textOf(procedure->getProcedureName2());
  }
  if (PerformTest *test = perform.getPerformTest())
    text += test->getType() == PerformTestType::After ? " test-after" : " test-before";
  if (perform.getTimesInteger())
    text += " times " + textOf(perform.getTimesInteger());
  if (perform.getUntilCondition())
    text += " until " + textOf(perform.getUntilCondition());
  for (PerformVarying *phrase : perform.getPhraseListElements())
    text += textOf(phrase);
  if (!perform.getProcedureName())
    text += " " + textOf(perform.getInlineStatementsElements());
  return text + ")";
}

static std::string textOf(const EvaluateSubject *subject) {
  switch (subject->getType()) {
  case EvalSubjectType::True:
    return "true";
  case EvalSubjectType::False:
    return "false";
  case EvalSubjectType::Condition:
    return "?" + textOf(subject->getCond());
  case EvalSubjectType::Expression:
    return textOf(subject->getExpr());
  }
  return "?";
}

static std::string textOf(const EvaluateObject *object) {
  switch (object->getType()) {
  case EvalObjectType::Any:
    return "any";
  case EvalObjectType::True:
    return "true";
  case EvalObjectType::False:
    return "false";
  case EvalObjectType::Condition:
    return "?" + textOf(object->getCondition());
  case EvalObjectType::Expression:
  case EvalObjectType::Range:
    break;
  }
  std::string text = (object->isNot() ? "!" : "") + textOf(object->getFrontExpression());
  return object->getRearExpression() ? text + ".." + textOf(object->getRearExpression()) : text;
}

static std::string textOf(EvaluateStatement &evaluate) {
  std::string text = "(evaluate " + joined(evaluate.getSubjectListElements());
  for (EvaluateCase *branch : evaluate.getWhenCaseListElements()) {
    for (EvaluateWhen *when : branch->getWhenListElements())
      text += when->getType() == EvalWhenType::Other
                  ? " other"
                  : " when " + joined(when->getWhenObjListElements());
    text += " " + textOf(branch->getWhenStmtListElements());
  }
  return text + ")";
}

static std::string textOf(SearchStatement &search) {
  std::string text = search.getType() == SearchType::Binary ? "(search-all " : "(search ";
  text += textOf(search.getSearchIdentifier());
  if (search.getVaryingIdentifier())
    text += " varying " + textOf(search.getVaryingIdentifier());
  for (ExceptionHandler *handler : search.getAtHandlerElements())
    text += textOf(handler);
  for (SearchWhen *when : search.getWhenListElements())
    text +=
        " when " + textOf(when->getCondition()) + " " + textOf(when->getStatementListElements());
  return text + ")";
}

static std::string textOf(CallStatement &call) {
  std::string text = "(call " + textOf(call.getProcedureName());
  for (Argument *argument : call.getArgumentListElements())
    text += " " + textOf(argument);
  if (call.getReturn())
    text += " returning " + textOf(call.getReturn());
  for (ExceptionHandler *handler : call.getExceptHandlerElements())
    text += textOf(handler);
  return text + ")";
}

static std::string textOf(GotoStatement &jump) {
  std::string text = "(go";
  for (QualifiedWord *name : jump.getProcedureNameListElements())
    text += " " + textOf(name);
  if (jump.getDependingName())
    text += " depending " + textOf(jump.getDependingName());
  return text + ")";
}

static std::string textOf(AlterStatement &alter) {
  std::string text = "(alter";
  for (AlterItem *item : alter.getAlterListElements())
    text += " " + textOf(item->getSrcProcName()) + "->" + textOf(item->getDstProcName());
  return text + ")";
}

static std::string textOf(OnStatement &on) {
  std::string text = "(on " + textOf(on.getOnExpr());
  if (on.getEveryExpr())
    text += " every " + textOf(on.getEveryExpr());
  if (on.getUntilExpr())
    text += " until " + textOf(on.getUntilExpr());
  text += " " + textOf(on.getUntilStmtListElements());
  if (on.getElseStmtListSize() != 0)
    text += " else " + textOf(on.getElseStmtListElements());
  return text + ")";
}

std::string textOf(const std::list<Statement *> &statements) {
  std::string text = "{";
  for (Statement *statement : statements)
    text += (text.size() == 1 ? "" : " ") + textOf(statement);
  return text + "}";
}

std::string textOf(Statement *statement) {
  switch (statement->Statement::getType()) {
  case StatementType::Alter:
    return textOf(*llvm::cast<AlterStatement>(statement));
  case StatementType::Call:
    return textOf(*llvm::cast<CallStatement>(statement));
  case StatementType::Cancel:
    return "(cancel " + joined(llvm::cast<CancelStatement>(statement)->getProgramListElements()) +
           ")";
  case StatementType::Continue:
    return "continue";
  case StatementType::Display:
    return "display";
  case StatementType::Entry: {
    auto *entry = llvm::cast<EntryStatement>(statement);
    return "(entry " + textOf(entry->getEntryLiteral()) + " " +
           joined(entry->getParameterElements()) + ")";
  }
  case StatementType::Evaluate:
    return textOf(*llvm::cast<EvaluateStatement>(statement));
  case StatementType::Exec: {
    auto *exec = llvm::cast<ExecStatement>(statement);
    return "(exec" + std::to_string(number(exec->getType())) + " " +
           llvm::StringRef(exec->getText()).trim().str() + ")";
  }
  case StatementType::Exit:
    return "exit";
  case StatementType::ExitParagraph:
    return "exit-paragraph";
  case StatementType::ExitPerform:
    return llvm::cast<ExitPerformStatement>(statement)->isCycle() ? "exit-cycle" : "exit-perform";
  case StatementType::ExitProgram:
    return "exit-program";
  case StatementType::ExitSection:
    return "exit-section";
  case StatementType::Goback:
    return "goback";
  case StatementType::Goto:
    return textOf(*llvm::cast<GotoStatement>(statement));
  case StatementType::If: {
    auto *branch = llvm::cast<IfStatement>(statement);
    std::string text =
        "(if " + textOf(branch->getCondition()) + " " + textOf(branch->getIfStmtListElements());
    if (branch->getElseStmtListSize() != 0)
      text += " else " + textOf(branch->getElseStmtListElements());
    return text + ")";
  }
  case StatementType::NextSentence:
    return "next-sentence";
  case StatementType::On:
    return textOf(*llvm::cast<OnStatement>(statement));
  case StatementType::Perform:
    return textOf(*llvm::cast<PerformStatement>(statement));
  case StatementType::Read: {
    std::string text = "(read";
    for (ExceptionHandler *handler : llvm::cast<ReadStatement>(statement)->getErrorListElements())
      text += textOf(handler);
    return text + ")";
  }
  case StatementType::Search:
    return textOf(*llvm::cast<SearchStatement>(statement));
  case StatementType::Stop: {
    auto *stop = llvm::cast<StopStatement>(statement);
    return stop->getLiteral() ? "(stop " + textOf(stop->getLiteral()) + ")" : "stop-run";
  }
  case StatementType::Trace:
    return llvm::cast<TraceStatement>(statement)->getType() == TraceType::Ready ? "ready-trace"
                                                                                : "reset-trace";
  default:
    return "#" + std::to_string(number(statement->Statement::getType()));
  }
}

//===----------------------------------------------------------------------===//
// Structure
//===----------------------------------------------------------------------===//

static std::string textOf(Sentence *sentence) {
  std::string text = textOf(sentence->getStmtElements());
  return "[" + text.substr(1, text.size() - 2) + "]";
}

static std::string textOf(Paragraph *paragraph) {
  std::string text = paragraph->getParagraphName()->getWordData() + ":";
  for (Sentence *sentence : paragraph->getSentElements())
    text += " " + textOf(sentence);
  return text;
}

static std::string textOf(Section *section) {
  std::string text = section->getSectionName()->getWordData() + " SECTION";
  if (section->getPriorityNumExpr())
    text += " " + textOf(section->getPriorityNumExpr());
  for (Sentence *sentence : section->getSentElements())
    text += " " + textOf(sentence);
  for (Paragraph *paragraph : section->getParaElements())
    text += " " + textOf(paragraph);
  return text;
}

static std::string textOf(UseStatement *use) {
  if (!use)
    return "";
  std::string text = "(use" + std::to_string(number(use->getTimingType()));
  if (use->isGlobal())
    text += " global";
  if (use->getLabelType() != UseLabelType::None)
    text += " label" + std::to_string(number(use->getLabelType()));
  if (use->getLabelPosition() != UseLabelPosition::None)
    text += " position" + std::to_string(number(use->getLabelPosition()));
  if (use->getFileMode() != UseFileMode::None)
    text += " mode" + std::to_string(number(use->getFileMode()));
  if (use->isAllProcedures())
    text += " all";
  for (IdentifierExpression *file : use->getFileListElements())
    text += " " + textOf(file);
  for (IdentifierExpression *report : use->getReportListElements())
    text += " " + textOf(report);
  for (Word *procedure : use->getProcedureListElements())
    text += " " + procedure->getWordData();
  return text + ") ";
}

std::string textOf(ProcedureDivision &division) {
  std::string text;
  auto add = [&](const std::string &part) { text += (text.empty() ? "" : "\n") + part; };
  if (division.getParameterSize() != 0)
    add("using " + joined(division.getParameterElements()));
  if (division.getReturning())
    add("returning " + textOf(division.getReturning()->getReturnItem()));
  for (Declaratives *declarative : division.getDeclElements())
    add("declare " + textOf(declarative->getUseStmt()) + textOf(declarative->getSection()));
  for (Sentence *sentence : division.getSentElements())
    add(textOf(sentence));
  for (Paragraph *paragraph : division.getParaElements())
    add(textOf(paragraph));
  for (Section *section : division.getSectElements())
    add(textOf(section));
  return text;
}

} // namespace tarka
