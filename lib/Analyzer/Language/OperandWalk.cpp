//===- OperandWalk.cpp - the operands of a statement ----------------------===//

#include "OperandWalk.h"
#include "AST/Embedded.h"
#include "AST/StatementVisitor.h"

namespace tarka {

namespace {

class OperandWalk : public StatementVisitor<OperandWalk> {
public:
  OperandWalk(llvm::function_ref<void(Expression &)> onOperand,
              llvm::function_ref<void(Condition &)> onCondition)
      : operandFound(onOperand), conditionFound(onCondition) {}

  // Arithmetic.

  void visitAddStatement(AddStatement &s) {
    all(s.getOperandListElements());
    one(s.getToOperand());
    all(s.getToListElements());
    all(s.getGivingListElements());
    one(s.getCorrespondingExpr());
    one(s.getToRoundExpr());
  }
  void visitSubtractStatement(SubtractStatement &s) {
    all(s.getOperandListElements());
    one(s.getFromExpr());
    all(s.getFromListElements());
    all(s.getGivingListElements());
    one(s.getCorrExpr());
    one(s.getFromRoundExpr());
  }
  void visitMultiplyStatement(MultiplyStatement &s) {
    one(s.getOperand());
    one(s.getByOperand());
    all(s.getByListElements());
    all(s.getGivingListElements());
  }
  void visitDivideStatement(DivideStatement &s) {
    one(s.getOperand());
    one(s.getIntoExpr());
    one(s.getByExpr());
    all(s.getToListElements());
    all(s.getGivingListElements());
    one(s.getRemainderExpr());
  }
  void visitComputeStatement(ComputeStatement &s) {
    all(s.getOperandListElements());
    one(s.getArithmeticExpression());
  }

  // Programs and procedures.

  void visitCallStatement(CallStatement &s) {
    one(s.getProcedureName());
    for (Argument *argument : s.getArgumentListElements())
      one(argument->getExpr());
    one(s.getReturn());
  }
  void visitCancelStatement(CancelStatement &s) { all(s.getProgramListElements()); }
  void visitGotoStatement(GotoStatement &s) { one(s.getDependingName()); }
  void visitPerformStatement(PerformStatement &s) {
    one(s.getTimesInteger());
    one(s.getUntilCondition());
    for (PerformVarying *phrase : s.getPhraseListElements()) {
      one(phrase->getVaryingIdentifier());
      one(phrase->getFromIdentifier());
      one(phrase->getByIdentifier());
      one(phrase->getUntilCondition());
    }
  }

  /// Host variables of SQL can be tables as a whole.
  void visitExecStatement(ExecStatement &s) {
    if (s.getCommand() && s.getCommand()->getLanguage() != ExecType::Sql)
      for (EmbeddedOperand *operand : s.getCommand()->getOperandElements())
        one(operand->getValue());
  }

  // Decisions.

  void visitIfStatement(IfStatement &s) { one(s.getCondition()); }
  void visitEvaluateStatement(EvaluateStatement &s) {
    for (EvaluateSubject *subject : s.getSubjectListElements()) {
      one(subject->getExpr());
      one(subject->getCond());
    }
    for (EvaluateCase *oneCase : s.getWhenCaseListElements())
      for (EvaluateWhen *when : oneCase->getWhenListElements())
        for (EvaluateObject *object : when->getWhenObjListElements()) {
          one(object->getCondition());
          one(object->getFrontExpression());
          one(object->getRearExpression());
        }
  }
  void visitSearchStatement(SearchStatement &s) {
    one(s.getVaryingIdentifier());
    for (SearchWhen *when : s.getWhenListElements())
      one(when->getCondition());
  }

  // Data.

  void visitAcceptStatement(AcceptStatement &s) { one(s.getVariable()); }
  void visitDisplayStatement(DisplayStatement &s) { all(s.getIdenLiterListElements()); }
  void visitMoveStatement(MoveStatement &s) {
    one(s.getSource());
    all(s.getTargetListElements());
  }
  void visitSetStatement(SetStatement &s) {
    for (SetItem *item : s.getItemListElements()) {
      // The names of switches are bound to nothing.
      if (item->getType() != SetItemType::Switch)
        all(item->getSetListElements());
      all(item->getCondListElements());
      if (SetToValue *value = item->getToValue())
        one(value->getToExpr());
    }
  }
  void visitInitializeStatement(InitializeStatement &s) {
    all(s.getIdentifierListElements());
    for (InitializeReplacingItem *item : s.getReplacingListElements())
      one(item->getByExpr());
  }
  void visitInspectStatement(InspectStatement &s) {
    one(s.getIdentifier());
    for (TallyingItem *item : s.getTallyingListElements()) {
      one(item->getIdentifier());
      for (TallyingItemFor *part : item->getTallyingForListElements()) {
        regions(part->getInspectRegionListElements());
        for (TallyingRegion *tallied : part->getTallyingRegionListElements()) {
          one(tallied->getExpr());
          regions(tallied->getRegionPhraseListElements());
        }
      }
    }
    for (ReplacingItem *item : s.getReplacingListElements()) {
      one(item->getExpr());
      regions(item->getInspectRegionListElements());
      for (ReplacingRegion *replaced : item->getReplacingRegionListElements()) {
        one(replaced->getExpr());
        one(replaced->getByExpr());
        regions(replaced->getRegionListElements());
      }
    }
    if (ConvertingItem *converting = s.getConverting()) {
      one(converting->getExpr());
      one(converting->getToExpr());
      regions(converting->getRegionListElements());
    }
  }
  void visitStringStatement(StringStatement &s) {
    for (StringItem *item : s.getItemListElements()) {
      all(item->getStringNameListElements());
      one(item->getDelimitedName());
    }
    one(s.getIntoIdentifier());
    one(s.getWithPointerIdentifier());
  }
  void visitUnstringStatement(UnstringStatement &s) {
    one(s.getSourceIdentifier());
    for (UnstringDelimitedItem *item : s.getDelimiterListElements())
      one(item->getDelimiter());
    for (UnstringIntoItem *item : s.getIntoListElements()) {
      one(item->getTargetIdentifier());
      one(item->getDelimiter());
      one(item->getCountIdentifier());
    }
    one(s.getWithPointerId());
    one(s.getTallyingId());
  }
  void visitTransformStatement(TransformStatement &s) {
    one(s.getTransformExpr());
    one(s.getFromExpr());
    one(s.getToExpr());
  }
  void visitExamineStatement(ExamineStatement &s) {
    one(s.getExamineExpr());
    one(s.getOptExpr());
    one(s.getByExpr());
  }
  void visitExhibitStatement(ExhibitStatement &s) { all(s.getExhibitExprListElements()); }

  // Files and documents.

  void visitReadStatement(ReadStatement &s) { one(s.getIntoIdentifier()); }
  void visitWriteStatement(WriteStatement &s) {
    one(s.getFromIdentifier());
    // A mnemonic-name is bound to nothing.
    if (WriteAdvancing *phrase = s.getAdvancing(); phrase && !phrase->getMnemonicName())
      one(phrase->getValue());
    if (WritePositioning *phrase = s.getPositioning())
      one(phrase->getLineExpr());
  }
  void visitRewriteStatement(RewriteStatement &s) { one(s.getFromIdentifier()); }
  void visitReturnStatement(ReturnStatement &s) { one(s.getIntoIdentifier()); }
  void visitReleaseStatement(ReleaseStatement &s) { one(s.getFromIdentifier()); }
  void visitXMLGenerateStatement(XMLGenerateStatement &s) {
    one(s.getGenIdent());
    one(s.getFromIdent());
    one(s.getCountIdent());
    one(s.getCodePage());
    one(s.getNameSpaceExpr());
    one(s.getPrefixExpr());
  }
  void visitXMLParseStatement(XMLParseStatement &s) {
    one(s.getParseIdent());
    one(s.getCodePage());
    one(s.getValidatingIdent());
  }

private:
  void one(Expression *operand) {
    if (operand)
      operandFound(*operand);
  }
  void one(Condition *condition) {
    if (condition)
      conditionFound(*condition);
  }
  void one(const RoundedOperand *operand) {
    if (operand)
      one(operand->first);
  }
  template <typename Part> void all(const std::list<Part *> &parts) {
    for (Part *part : parts)
      one(part);
  }
  void regions(const std::list<InspectRegion *> &list) {
    for (InspectRegion *region : list)
      one(region->getExpr());
  }

  llvm::function_ref<void(Expression &)> operandFound;
  llvm::function_ref<void(Condition &)> conditionFound;
};

} // namespace

void forEachOperand(Statement &statement, llvm::function_ref<void(Expression &)> onOperand,
                    llvm::function_ref<void(Condition &)> onCondition) {
  OperandWalk(onOperand, onCondition).visit(statement);
}

} // namespace tarka
