//===- SCExprIdentifiers.cpp - file, report and register identifiers ------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Files
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(FileIdentifierExpression &identifier) {
  llvm::SmallVector<FileDescription *, 2> found =
      currentScope().findFiles(&identifier.getFileName()->getWordData());
  if (found.empty())
    return report(ErrorCode::FileNameUndefined, &identifier);
  identifier.setFileDescription(found.front());
  if (found.size() > 1)
    return report(ErrorCode::FileNameNotUnique, &identifier);
  return true;
}

//===----------------------------------------------------------------------===//
// Reports
//===----------------------------------------------------------------------===//

ReportDescription *SemanticChecker::findReport(const std::string &name) {
  return currentScope().findReport(&internString(name));
}

bool SemanticChecker::semanticCheck(ReportIdentifierExpression &identifier) {
  ReportDescription *found = findReport(identifier.getReportName()->getWordData());
  if (!found)
    return report(ErrorCode::IdentifierUndefined, &identifier);
  identifier.setReportDescription(found);
  return true;
}

//===----------------------------------------------------------------------===//
// Special registers
//===----------------------------------------------------------------------===//

namespace {

bool checkLinageCounter(SemanticChecker &checker,
                        SpecialRegisterIdentifierExpression &specialRegister) {
  if (FileIdentifierExpression *file = specialRegister.getFileExpr()) {
    if (!checker.semanticCheck(*file))
      return false;
    if (!file->getFileDescription()->getLinage())
      return checker.report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
    specialRegister.setDataDescription(file->getFileDescription()->getLineageCounter());
    return true;
  }
  llvm::SmallVector<FileDescription *, 2> files = currentScope().findFilesWithLinage();
  if (files.empty())
    return checker.report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
  if (files.size() > 1)
    return checker.report(ErrorCode::LinageCounterNotQualified, &specialRegister);
  specialRegister.setDataDescription(files.front()->getLineageCounter());
  return true;
}

/// Condition-names and index-names have no length.
bool hasLength(const DataDescription &entry) {
  return !isConditionName(entry) && !isIndexName(entry);
}

/// Whether an unqualified PAGE-COUNTER or LINE-COUNTER is that of one report: the current one, or
/// the only one that is visible.
bool isOneReportMeant(const ReportDescription *current) {
  return current || currentScope().findReports().size() == 1;
}

} // namespace

bool SemanticChecker::semanticCheck(SpecialRegisterIdentifierExpression &specialRegister) {
  switch (specialRegister.getType()) {
  case SpecialRegisterType::AddressOf:
  case SpecialRegisterType::LengthOf: {
    Expression *operand = specialRegister.getIdent();
    if (!operand)
      return report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
    if (!semanticCheck(*operand))
      return false;
    auto *identifier = llvm::dyn_cast<IdentifierExpression>(operand);
    DataDescription *entry = identifier ? identifier->getDataDescription() : nullptr;
    specialRegister.setDataDescription(entry);
    if (entry && specialRegister.getType() == SpecialRegisterType::LengthOf && !hasLength(*entry))
      return report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
    return true;
  }
  case SpecialRegisterType::LinageCounter:
    return checkLinageCounter(*this, specialRegister);
  case SpecialRegisterType::PageCounter:
  case SpecialRegisterType::LineCounter:
    if (ReportIdentifierExpression *name = specialRegister.getReportExpr())
      return semanticCheck(*name);
    return isOneReportMeant(getCurrentRD()) ||
           report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
  default:
    break;
  }

  // Every other register is an entry that the checks have added to working-storage.
  Word *word = specialRegister.getRegisterWord();
  if (!word)
    return report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
  if (DataDescription *entry = currentScope().findRegister(&word->getWordData()))
    specialRegister.setDataDescription(entry);
  // Some registers have no entry; their category is known nevertheless.
  if (specialRegister.getDataCategory() == DataCategory::Unclassified)
    return report(ErrorCode::SpecialRegisterInvalid, &specialRegister);
  if (ReferenceModifier *modifier = specialRegister.getReferenceMod())
    for (Expression *part : {modifier->getFromExpr(), modifier->getCountExpr()})
      if (part)
        semanticCheck(*part);
  return true;
}

} // namespace tarka
