//===- Operands.cpp - the operands of a statement -------------------------===//

#include "AST/Operands.h"
#include "AST/Embedded.h"
#include "AST/StatementVisitor.h"

namespace tarka {

namespace {

class OperandWalk : public StatementVisitor<OperandWalk> {
public:
  OperandWalk(llvm::function_ref<void(Expression &, OperandRole)> onOperand,
              llvm::function_ref<void(Condition &, OperandRole)> onCondition)
      : operandFound(onOperand), conditionFound(onCondition) {}

  // Arithmetic.

  void visitAddStatement(AddStatement &s) {
    all(s.getOperandListElements());
    one(s.getToOperand());
    all(s.getToListElements(), updateOf(s));
    all(s.getGivingListElements(), resultOf(s));
    one(s.getCorrespondingExpr());
    one(s.getToRoundExpr(), OperandRole::MayUpdate);
  }
  void visitSubtractStatement(SubtractStatement &s) {
    all(s.getOperandListElements());
    one(s.getFromExpr());
    all(s.getFromListElements(), updateOf(s));
    all(s.getGivingListElements(), resultOf(s));
    one(s.getCorrExpr());
    one(s.getFromRoundExpr(), OperandRole::MayUpdate);
  }
  void visitMultiplyStatement(MultiplyStatement &s) {
    one(s.getOperand());
    one(s.getByOperand());
    all(s.getByListElements(), updateOf(s));
    all(s.getGivingListElements(), resultOf(s));
  }
  void visitDivideStatement(DivideStatement &s) {
    one(s.getOperand());
    one(s.getIntoExpr());
    one(s.getByExpr());
    all(s.getToListElements(), updateOf(s));
    all(s.getGivingListElements(), resultOf(s));
    one(s.getRemainderExpr(), resultOf(s));
  }
  void visitComputeStatement(ComputeStatement &s) {
    all(s.getOperandListElements(), resultOf(s));
    one(s.getArithmeticExpression());
  }

  // Programs and procedures.

  void visitCallStatement(CallStatement &s) {
    one(s.getProcedureName());
    for (Argument *argument : s.getArgumentListElements())
      one(argument->getExpr(),
          argument->getType() == ArgType::Reference ? OperandRole::MayUpdate : OperandRole::Read);
    one(s.getReturn(), OperandRole::MayWrite);
  }
  void visitCancelStatement(CancelStatement &s) { all(s.getProgramListElements()); }
  void visitGotoStatement(GotoStatement &s) { one(s.getDependingName()); }
  void visitPerformStatement(PerformStatement &s) {
    one(s.getTimesInteger());
    one(s.getUntilCondition());
    for (PerformVarying *phrase : s.getPhraseListElements()) {
      one(phrase->getVaryingIdentifier(), OperandRole::Update);
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
    one(s.getVaryingIdentifier(), OperandRole::MayUpdate);
    for (SearchWhen *when : s.getWhenListElements())
      one(when->getCondition());
  }

  // Data.

  void visitAcceptStatement(AcceptStatement &s) {
    // A device may have nothing more to give.
    const AcceptFrom *from = s.getFromType();
    const bool isDevice = !from || from->getType() == AcceptFromType::None ||
                          from->getType() == AcceptFromType::Device;
    one(s.getVariable(), isDevice ? OperandRole::MayWrite : OperandRole::Write);
  }
  void visitDisplayStatement(DisplayStatement &s) { all(s.getIdenLiterListElements()); }
  void visitMoveStatement(MoveStatement &s) {
    one(s.getSource());
    all(s.getTargetListElements(),
        s.isCorresponding() ? OperandRole::Corresponds : OperandRole::Write);
  }
  void visitSetStatement(SetStatement &s) {
    for (SetItem *item : s.getItemListElements()) {
      // The names of switches are bound to nothing.
      if (item->getType() != SetItemType::Switch)
        for (Expression *receiver : item->getSetListElements())
          one(receiver, roleIn(*item, *receiver));
      all(item->getCondListElements(), OperandRole::Write);
      if (SetToValue *value = item->getToValue())
        one(value->getToExpr());
    }
  }
  void visitInitializeStatement(InitializeStatement &s) {
    all(s.getIdentifierListElements(), OperandRole::Initialize);
    for (InitializeReplacingItem *item : s.getReplacingListElements())
      one(item->getByExpr());
  }
  void visitInspectStatement(InspectStatement &s) {
    const bool isChanged = s.getReplacingListSize() || s.getConverting();
    one(s.getIdentifier(), isChanged ? OperandRole::MayUpdate : OperandRole::Read);
    for (TallyingItem *item : s.getTallyingListElements()) {
      one(item->getIdentifier(), OperandRole::Update);
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
    one(s.getIntoIdentifier(), OperandRole::MayWrite);
    one(s.getWithPointerIdentifier(), OperandRole::Update);
  }
  void visitUnstringStatement(UnstringStatement &s) {
    one(s.getSourceIdentifier());
    for (UnstringDelimitedItem *item : s.getDelimiterListElements())
      one(item->getDelimiter());
    for (UnstringIntoItem *item : s.getIntoListElements()) {
      one(item->getTargetIdentifier(), OperandRole::MayWrite);
      one(item->getDelimiter(), OperandRole::MayWrite);
      one(item->getCountIdentifier(), OperandRole::MayWrite);
    }
    one(s.getWithPointerId(), OperandRole::Update);
    one(s.getTallyingId(), OperandRole::Update);
  }
  void visitOperandStatement(OperandStatement &s) {
    all(s.getSourceListElements());
    all(s.getReceiverListElements(), OperandRole::MayWrite);
  }
  void visitTransformStatement(TransformStatement &s) {
    one(s.getTransformExpr(), OperandRole::MayUpdate);
    one(s.getFromExpr());
    one(s.getToExpr());
  }
  void visitExamineStatement(ExamineStatement &s) {
    one(s.getExamineExpr(), s.getByExpr() ? OperandRole::MayUpdate : OperandRole::Read);
    one(s.getOptExpr());
    one(s.getByExpr());
  }
  void visitExhibitStatement(ExhibitStatement &s) { all(s.getExhibitExprListElements()); }

  // Files and documents.

  void visitReadStatement(ReadStatement &s) { one(s.getIntoIdentifier(), OperandRole::MayWrite); }
  void visitWriteStatement(WriteStatement &s) {
    one(s.getFromIdentifier());
    // A mnemonic-name is bound to nothing.
    if (WriteAdvancing *phrase = s.getAdvancing(); phrase && !phrase->getMnemonicName())
      one(phrase->getValue());
    if (WritePositioning *phrase = s.getPositioning())
      one(phrase->getLineExpr());
  }
  void visitRewriteStatement(RewriteStatement &s) { one(s.getFromIdentifier()); }
  void visitReturnStatement(ReturnStatement &s) {
    one(s.getIntoIdentifier(), OperandRole::MayWrite);
  }
  void visitReleaseStatement(ReleaseStatement &s) { one(s.getFromIdentifier()); }
  void visitXMLGenerateStatement(XMLGenerateStatement &s) {
    one(s.getGenIdent(), OperandRole::MayWrite);
    one(s.getFromIdent());
    one(s.getCountIdent(), OperandRole::MayWrite);
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
  /// A result that does not fit is not stored where ON SIZE ERROR is written.
  static OperandRole updateOf(const ArithmeticStatement &s) {
    return s.getSizeErrorHandlerSize() ? OperandRole::MayUpdate : OperandRole::Update;
  }
  static OperandRole resultOf(const ArithmeticStatement &s) {
    return s.getSizeErrorHandlerSize() ? OperandRole::MayWrite : OperandRole::Write;
  }
  static OperandRole roleIn(const SetItem &item, const Expression &receiver) {
    if (const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&receiver);
        special && special->getType() == SpecialRegisterType::AddressOf)
      return OperandRole::SetAddress;
    return item.getType() == SetItemType::To ? OperandRole::Write : OperandRole::Update;
  }

  void one(Expression *operand, OperandRole role = OperandRole::Read) {
    if (operand)
      operandFound(*operand, role);
  }
  void one(Condition *condition, OperandRole role = OperandRole::Read) {
    if (condition)
      conditionFound(*condition, role);
  }
  void one(const RoundedOperand *operand, OperandRole role) {
    if (operand)
      one(operand->first, role);
  }
  template <typename Part>
  void all(const NodeList<Part> &parts, OperandRole role = OperandRole::Read) {
    for (Part *part : parts)
      one(part, role);
  }
  void regions(const NodeList<InspectRegion> &list) {
    for (InspectRegion *region : list)
      one(region->getExpr());
  }

  llvm::function_ref<void(Expression &, OperandRole)> operandFound;
  llvm::function_ref<void(Condition &, OperandRole)> conditionFound;
};

} // namespace

void forEachOperand(Statement &statement,
                    llvm::function_ref<void(Expression &, OperandRole)> onOperand,
                    llvm::function_ref<void(Condition &, OperandRole)> onCondition) {
  OperandWalk(onOperand, onCondition).visit(statement);
}

} // namespace tarka
