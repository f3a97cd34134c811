//===- SCStmtOperands.cpp - the operands of statements --------------------===//
//
// Statements whose operands are bound and checked one by one, in the order in
// which they are written, so that every name in a program stands for something.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/SemanticChecker.h"
#include <algorithm>
#include <cstdint>

namespace tarka {

namespace {

/// Checks one part of a statement after the other and keeps the result of all. Null parts, phrases
/// that are not written, are right.
class OperandCheck {
public:
  explicit OperandCheck(SemanticChecker &checkerOfAll) : checker(checkerOfAll) {}

  template <typename Part> OperandCheck &one(Part *part) {
    if (part)
      result &= checker.semanticCheck(*part);
    return *this;
  }
  template <typename Part> OperandCheck &all(const std::list<Part *> &parts) {
    for (Part *part : parts)
      one(part);
    return *this;
  }
  OperandCheck &receiver(RoundedOperand *receiver) {
    return receiver ? one(receiver->first) : *this;
  }
  OperandCheck &receivers(const std::list<RoundedOperand *> &list) {
    for (RoundedOperand *operand : list)
      receiver(operand);
    return *this;
  }
  OperandCheck &regions(const std::list<InspectRegion *> &list) {
    for (InspectRegion *region : list)
      one(region->getExpr());
    return *this;
  }
  operator bool() const { return result; }

private:
  SemanticChecker &checker;
  bool result = true;
};

/// The description that a file-name was bound to; null when there is none.
const FileDescription *describedBy(const FileIdentifierExpression *name) {
  return name ? name->getFileDescription() : nullptr;
}

UseFileMode useModeOf(OpenType mode) {
  switch (mode) {
  case OpenType::Input:
    return UseFileMode::Input;
  case OpenType::Output:
    return UseFileMode::Output;
  case OpenType::InputOutput:
    return UseFileMode::InputOutput;
  case OpenType::Extend:
    return UseFileMode::Extend;
  }
  return UseFileMode::None;
}

} // namespace

//===----------------------------------------------------------------------===//
// Arithmetic
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(AddStatement &statement) {
  return OperandCheck(*this)
      .all(statement.getOperandListElements())
      .one(statement.getToOperand())
      .receivers(statement.getToListElements())
      .receivers(statement.getGivingListElements())
      .one(statement.getCorrespondingExpr())
      .receiver(statement.getToRoundExpr())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(SubtractStatement &statement) {
  return OperandCheck(*this)
      .all(statement.getOperandListElements())
      .one(statement.getFromExpr())
      .receivers(statement.getFromListElements())
      .receivers(statement.getGivingListElements())
      .one(statement.getCorrExpr())
      .receiver(statement.getFromRoundExpr())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(MultiplyStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getOperand())
      .one(statement.getByOperand())
      .receivers(statement.getByListElements())
      .receivers(statement.getGivingListElements())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(DivideStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getOperand())
      .one(statement.getIntoExpr())
      .one(statement.getByExpr())
      .receivers(statement.getToListElements())
      .receivers(statement.getGivingListElements())
      .one(statement.getRemainderExpr())
      .all(statement.getSizeErrorHandlerElements());
}

bool SemanticChecker::semanticCheck(ComputeStatement &statement) {
  return OperandCheck(*this)
      .receivers(statement.getOperandListElements())
      .one(statement.getArithmeticExpression())
      .all(statement.getSizeErrorHandlerElements());
}

//===----------------------------------------------------------------------===//
// Control
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(IfStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getCondition())
      .all(statement.getIfStmtListElements())
      .all(statement.getElseStmtListElements());
}

bool SemanticChecker::semanticCheck(EvaluateStatement &statement) {
  OperandCheck check(*this);
  for (EvaluateSubject *subject : statement.getSubjectListElements())
    check.one(subject->getExpr()).one(subject->getCond());
  for (EvaluateCase *oneCase : statement.getWhenCaseListElements()) {
    for (EvaluateWhen *when : oneCase->getWhenListElements())
      for (EvaluateObject *object : when->getWhenObjListElements())
        check.one(object->getCondition())
            .one(object->getFrontExpression())
            .one(object->getRearExpression());
    check.all(oneCase->getWhenStmtListElements());
  }
  return check;
}

bool SemanticChecker::semanticCheck(SearchStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getSearchIdentifier())
      .one(statement.getVaryingIdentifier())
      .all(statement.getAtHandlerElements());
  for (SearchWhen *when : statement.getWhenListElements())
    check.one(when->getCondition()).all(when->getStatementListElements());
  return check;
}

bool SemanticChecker::semanticCheck(OnStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getOnExpr())
      .one(statement.getEveryExpr())
      .one(statement.getUntilExpr())
      .all(statement.getUntilStmtListElements())
      .all(statement.getElseStmtListElements());
}

bool SemanticChecker::semanticCheck(StopStatement &statement) {
  return OperandCheck(*this).one(statement.getLiteral());
}

/// A name that is no data item is the name of the program itself.
bool SemanticChecker::semanticCheck(CallStatement &statement) {
  OperandCheck check(*this);
  auto *name = llvm::dyn_cast_if_present<DataIdentifierExpression>(statement.getProcedureName());
  if (name && !name->getSubscriptMod() && !name->getReferenceMod() &&
      name->getQualifiedWord()->getNamesSize() == 1) {
    if (!semanticCheck(*name, true, false))
      statement.setProcedureName(new NonNumericLiteralExpression(
          name, (*name->getQualifiedWord()->getNamesBegin())->getDisplayName()));
  } else {
    check.one(statement.getProcedureName());
  }
  for (Argument *argument : statement.getArgumentListElements())
    check.one(argument->getExpr());
  return check.one(statement.getReturn()).all(statement.getExceptHandlerElements());
}

bool SemanticChecker::semanticCheck(CancelStatement &statement) {
  return OperandCheck(*this).all(statement.getProgramListElements());
}

//===----------------------------------------------------------------------===//
// Data
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(AcceptStatement &statement) {
  return OperandCheck(*this).one(statement.getVariable());
}

bool SemanticChecker::semanticCheck(DisplayStatement &statement) {
  return OperandCheck(*this).all(statement.getIdenLiterListElements());
}

bool SemanticChecker::semanticCheck(SetStatement &statement) {
  OperandCheck check(*this);
  for (SetItem *item : statement.getItemListElements()) {
    // The names of switches are mnemonic names, not data.
    if (item->getType() != SetItemType::Switch)
      check.all(item->getSetListElements());
    check.all(item->getCondListElements());
    if (item->getToValue())
      check.one(item->getToValue()->getToExpr());
  }
  return check;
}

bool SemanticChecker::semanticCheck(InitializeStatement &statement) {
  OperandCheck check(*this);
  check.all(statement.getIdentifierListElements());
  for (InitializeReplacingItem *item : statement.getReplacingListElements())
    check.one(item->getByExpr());
  return check;
}

bool SemanticChecker::semanticCheck(InspectStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getIdentifier());
  for (TallyingItem *item : statement.getTallyingListElements()) {
    check.one(item->getIdentifier());
    for (TallyingItemFor *phrase : item->getTallyingForListElements()) {
      check.regions(phrase->getInspectRegionListElements());
      for (TallyingRegion *tallied : phrase->getTallyingRegionListElements())
        check.one(tallied->getExpr()).regions(tallied->getRegionPhraseListElements());
    }
  }
  for (ReplacingItem *item : statement.getReplacingListElements()) {
    check.one(item->getExpr()).regions(item->getInspectRegionListElements());
    for (ReplacingRegion *replaced : item->getReplacingRegionListElements())
      check.one(replaced->getExpr())
          .one(replaced->getByExpr())
          .regions(replaced->getRegionListElements());
  }
  if (ConvertingItem *converting = statement.getConverting())
    check.one(converting->getExpr())
        .one(converting->getToExpr())
        .regions(converting->getRegionListElements());
  return check;
}

bool SemanticChecker::semanticCheck(StringStatement &statement) {
  OperandCheck check(*this);
  for (StringItem *item : statement.getItemListElements())
    check.all(item->getStringNameListElements()).one(item->getDelimitedName());
  return check.one(statement.getIntoIdentifier())
      .one(statement.getWithPointerIdentifier())
      .all(statement.getOverflowHandlerElements());
}

bool SemanticChecker::semanticCheck(UnstringStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getSourceIdentifier());
  for (UnstringDelimitedItem *item : statement.getDelimiterListElements())
    check.one(item->getDelimiter());
  for (UnstringIntoItem *item : statement.getIntoListElements())
    check.one(item->getTargetIdentifier())
        .one(item->getDelimiter())
        .one(item->getCountIdentifier());
  return check.one(statement.getWithPointerId())
      .one(statement.getTallyingId())
      .all(statement.getOverflowHandlerElements());
}

bool SemanticChecker::semanticCheck(TransformStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getTransformExpr())
      .one(statement.getFromExpr())
      .one(statement.getToExpr());
}

bool SemanticChecker::semanticCheck(ExamineStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getExamineExpr())
      .one(statement.getOptExpr())
      .one(statement.getByExpr());
}

bool SemanticChecker::semanticCheck(ExhibitStatement &statement) {
  return OperandCheck(*this).all(statement.getExhibitExprListElements());
}

//===----------------------------------------------------------------------===//
// Files
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(OpenStatement &statement) {
  OperandCheck check(*this);
  for (OpenItem *item : statement.getItemListElements())
    for (OpenFile *file : item->getFileListElements()) {
      check.one(file->getFileName());
      markDeclaratives(statement, describedBy(file->getFileName()), useModeOf(item->getType()));
    }
  return check;
}

bool SemanticChecker::semanticCheck(CloseStatement &statement) {
  OperandCheck check(*this);
  for (CloseFile *file : statement.getCloseFileListElements()) {
    check.one(file->getFileName());
    markDeclaratives(
        statement, describedBy(file->getFileName()),
        {UseFileMode::Input, UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  }
  return check;
}

bool SemanticChecker::semanticCheck(ReadStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .one(statement.getIntoIdentifier())
                    .one(statement.getKeyName())
                    .all(statement.getErrorListElements());
  if (!statement.getErrorListSize())
    markDeclaratives(statement, describedBy(statement.getFileName()),
                     {UseFileMode::Input, UseFileMode::InputOutput});
  return result;
}

/// After ADVANCING, a name that is no data item is a mnemonic name.
bool SemanticChecker::semanticCheck(WriteStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getRecordName()).one(statement.getFromIdentifier());
  if (WriteAdvancing *advancing = statement.getAdvancing()) {
    auto *name = llvm::dyn_cast_if_present<DataIdentifierExpression>(advancing->getValue());
    if (!name)
      check.one(advancing->getValue());
    else if (!semanticCheck(*name, true, false)) {
      advancing->setMnemonicName(*name->getQualifiedWord()->getNamesBegin());
      advancing->setType(WriteAdvType::Mnemonic);
    }
  }
  if (WritePositioning *positioning = statement.getPositioning())
    check.one(positioning->getLineExpr());
  if (!statement.getExceptionHandlerListSize())
    markDeclaratives(statement, statement.getRecordName(),
                     {UseFileMode::Output, UseFileMode::InputOutput, UseFileMode::Extend});
  return check.all(statement.getExceptionHandlerListElements());
}

bool SemanticChecker::semanticCheck(RewriteStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getRecordName())
                    .one(statement.getFromIdentifier())
                    .all(statement.getInvalidKeyHandlerElements());
  if (!statement.getInvalidKeyHandlerSize())
    markDeclaratives(statement, statement.getRecordName(), UseFileMode::InputOutput);
  return result;
}

bool SemanticChecker::semanticCheck(DeleteStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .all(statement.getInvalidKeyHandlerElements());
  if (!statement.getInvalidKeyHandlerSize())
    markDeclaratives(statement, describedBy(statement.getFileName()), UseFileMode::InputOutput);
  return result;
}

bool SemanticChecker::semanticCheck(StartStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .one(statement.getKey() ? statement.getKey()->getDataName() : nullptr)
                    .all(statement.getInvalidKeyHandlerElements());
  if (!statement.getInvalidKeyHandlerSize())
    markDeclaratives(statement, describedBy(statement.getFileName()),
                     {UseFileMode::Input, UseFileMode::InputOutput});
  return result;
}

/// The records of a sort file come as from a file that is open for input.
bool SemanticChecker::semanticCheck(ReturnStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .one(statement.getIntoIdentifier())
                    .all(statement.getEndHandlerElements());
  if (!statement.getEndHandlerSize())
    markDeclaratives(statement, describedBy(statement.getFileName()), UseFileMode::Input);
  return result;
}

/// The records of a sort file go as to a file that is open for output.
bool SemanticChecker::semanticCheck(ReleaseStatement &statement) {
  bool result =
      OperandCheck(*this).one(statement.getRecordName()).one(statement.getFromIdentifier());
  markDeclaratives(statement, statement.getRecordName(), UseFileMode::Output);
  return result;
}

/// An input or output procedure is run like a performed range.
bool SemanticChecker::checkSortIO(SortIO *phrase, Statement &statement) {
  if (!phrase)
    return true;
  if (phrase->getType() == SortIOType::Procedure)
    return resolveRange(phrase->getProcedures(), phrase->getFromProcedureName(),
                        phrase->getToProcedureName(), statement);
  return OperandCheck(*this).all(phrase->getFileNameListElements());
}

/// What SORT and MERGE have in common: the file, its keys, and where records come from and go to.
template <typename SortOrMerge>
bool SemanticChecker::checkSort(SortOrMerge &statement, const std::list<SortKey *> &keys) {
  OperandCheck check(*this);
  check.one(statement.getFileName());
  for (SortKey *key : keys)
    check.all(key->getKeyNameListElements());
  bool result = check;
  result &= checkSortIO(statement.getInput(), statement);
  result &= checkSortIO(statement.getOutput(), statement);
  return result;
}

bool SemanticChecker::semanticCheck(SortStatement &statement) {
  return checkSort(statement, statement.getKeyListElements());
}

bool SemanticChecker::semanticCheck(MergeStatement &statement) {
  return checkSort(statement, statement.getKeySeqElements());
}

//===----------------------------------------------------------------------===//
// XML and reports
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(XMLGenerateStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getGenIdent())
      .one(statement.getFromIdent())
      .one(statement.getCountIdent())
      .one(statement.getCodePage())
      .one(statement.getNameSpaceExpr())
      .one(statement.getPrefixExpr())
      .all(statement.getOnExcpHandlerElements());
}

/// The processing procedure is run like a performed range. The register XML-TEXT will have to hold
/// the largest document that the source unit parses.
bool SemanticChecker::semanticCheck(XMLParseStatement &statement) {
  OperandCheck check(*this);
  check.one(statement.getParseIdent())
      .one(statement.getCodePage())
      .one(statement.getValidatingIdent());
  if (DataDescription *document =
          statement.getParseIdent() ? statement.getParseIdent()->getDataDescription() : nullptr)
    setXmlTextSize(std::max<std::uint64_t>(getXmlTextSize(), document->getAllocSize()));
  bool result = check;
  result &= resolveRange(statement, statement.getParseProcedure(), statement.getThruProcedure(),
                         statement);
  return OperandCheck(*this).all(statement.getOnExcpHandlerElements()) && result;
}

bool SemanticChecker::semanticCheck(RwGenerateStatement &statement) {
  // A name without qualifiers is that of a report, or of a group of a report.
  auto *name = llvm::dyn_cast_if_present<ReportIdentifierExpression>(statement.getFileName());
  if (!name)
    return OperandCheck(*this).one(statement.getFileName());
  if (findReport(name->getReportName()->getWordData()))
    return semanticCheck(*name);
  std::list<Word *> words{name->getReportName()};
  auto *group =
      new DataIdentifierExpression(name, new QualifiedWord(name, &words), nullptr, nullptr);
  statement.setFileName(group);
  return semanticCheck(*group, false, true);
}

bool SemanticChecker::semanticCheck(RwInitiateStatement &statement) {
  return OperandCheck(*this).all(statement.getInitiateNameListElements());
}

bool SemanticChecker::semanticCheck(RwTerminateStatement &statement) {
  return OperandCheck(*this).all(statement.getTerminateNameListElements());
}

bool SemanticChecker::semanticCheck(RwSuppressStatement &) {
  return true;
}

} // namespace tarka
