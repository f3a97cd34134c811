//===- SCFileControl.cpp - FILE-CONTROL ----------------------------------===//
//
// The items that the clauses of a SELECT entry name, with their sections and
// categories.
//
//===----------------------------------------------------------------------===//

#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "AST/Program.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

namespace {

bool hasScalingPosition(const DataDescription &item) {
  return llvm::StringRef(item.getPicture()->getExtendedPicture()).contains('P');
}

/// The first item of FILE STATUS.
bool checkFileStatus(SemanticChecker &checker, DataIdentifierExpression &status) {
  if (!checker.semanticCheck(status, false, false))
    return false;
  bool ok = true;
  DataDescription &item = *status.getDataDescription();
  if (item.getStorageType() == StorageType::File)
    ok = checker.report(ErrorCode::FileStatusSection, &status);
  DataCategory category = item.getDataCategory();
  if (category != DataCategory::Alphanumeric && category != DataCategory::Numeric &&
      category != DataCategory::National)
    ok = checker.report(ErrorCode::FileStatusCategory, &status);
  if (category != DataCategory::Numeric)
    return ok;
  if (item.getUsageType() != UsageType::Display && item.getUsageType() != UsageType::National)
    ok = checker.report(ErrorCode::FileStatusUsageOrPicture, &status);
  if (!item.getPicture())
    ok = checker.report(ErrorCode::FileStatusUsageOrPicture, &status);
  else if (hasScalingPosition(item))
    ok = checker.report(ErrorCode::FileStatusScaledPicture, &status);
  return ok;
}

bool checkPassword(SemanticChecker &checker, ClausePassWord &clause) {
  DataIdentifierExpression *name = clause.getDataName();
  if (!checker.semanticCheck(*name, false, false))
    return false;
  bool ok = true;
  DataDescription *item = name->getDataDescription();
  if (item->getStorageType() != StorageType::WorkingStorage)
    ok = checker.report(ErrorCode::KeyItemSection, item);
  switch (item->getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::National:
    return ok;
  default:
    return checker.report(ErrorCode::PasswordCategory, item);
  }
}

} // namespace

bool SemanticChecker::semanticCheck(ParaFileControl &entry) {
  bool ok = true;
  if (entry.getAssign())
    ok &= checkClauseAssign(entry);
  if (entry.getReserve())
    ok &= checkClauseReserve(entry);
  if (entry.getOrganization())
    ok &= checkClauseOrganization(entry);
  if (entry.getPadding())
    ok &= checkClausePadding(entry);
  if (entry.getRecordDelimiter())
    ok &= checkClauseRecordDelimiter(entry);
  if (entry.getAccess())
    ok &= checkClauseAccess(entry);
  if (entry.getStatus())
    ok &= checkClauseStatus(entry);
  if (entry.getRecordKey())
    ok &= checkClauseRecordKey(entry);
  if (entry.getRelativeKey())
    ok &= checkClauseRelativeKey(entry);
  if (entry.getAlternateListSize() > 0)
    ok &= checkClauseAlternateList(entry);
  if (entry.getPassWord())
    ok &= checkPassword(*this, *entry.getPassWord());
  return ok;
}

bool SemanticChecker::checkClauseAssign(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseOrganization(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseRecordDelimiter(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseAccess(ParaFileControl &) {
  return true;
}

bool SemanticChecker::checkClauseReserve(ParaFileControl &entry) {
  NumericLiteralExpression *count = entry.getReserve()->getReserveCount();
  if (!count)
    return true;
  bool ok = semanticCheck(*count);
  // RESERVE shares the message of MEMORY SIZE.
  if (!count->isInteger())
    ok = report(ErrorCode::MemorySizeNotInteger, count);
  return ok;
}

bool SemanticChecker::checkClausePadding(ParaFileControl &entry) {
  Expression *character = entry.getPadding()->getCharacter();
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(character);
  if (!identifier) {
    bool ok = semanticCheck(*character);
    auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(character);
    if (!literal || literal->getLength() != 1)
      ok = report(ErrorCode::PaddingNotSingleCharacter, character);
    return ok;
  }
  if (!semanticCheck(*identifier, false, false))
    return false;
  bool ok = true;
  DataDescription *item = identifier->getDataDescription();
  if (!item->getPicture() || item->getPicture()->getSize() != 1)
    ok = report(ErrorCode::PaddingNotSingleCharacter, identifier);
  if (item->getStorageType() == StorageType::File)
    ok = report(ErrorCode::PaddingItemInFileSection, item);
  return ok;
}

bool SemanticChecker::checkClauseStatus(ParaFileControl &entry) {
  bool ok = checkFileStatus(*this, *entry.getStatus()->getStatus_1());
  // The second item receives the status of a VSAM file: three binary fields, six bytes in all.
  constexpr int vsamStatusSize = 6;
  if (DataIdentifierExpression *second = entry.getStatus()->getStatus_2()) {
    if (!semanticCheck(*second, false, false))
      return false;
    DataDescription &item = *second->getDataDescription();
    if (item.getChildrenSize() == 0 || item.getAllocSize() != vsamStatusSize)
      ok = report(ErrorCode::FileStatusGroupSize, second);
  }
  return ok;
}

bool SemanticChecker::checkClauseRecordKey(ParaFileControl &entry) {
  ClauseRecordKey &clause = *entry.getRecordKey();
  bool ok = semanticCheck(*clause.getDataName(), false, false);
  if (ok) {
    DataDescription *key = clause.getDataName()->getDataDescription();
    // The text of the message says the opposite of the rule; programs rely on both.
    if (key->getStorageType() != StorageType::File)
      ok = report(ErrorCode::KeyItemSection, key);
    if (key->checkContainsOdo())
      ok = report(ErrorCode::RecordKeyVariableOccurrence, key);
  }
  if (clause.getPassWord())
    ok &= checkPassword(*this, *clause.getPassWord());
  return ok;
}

bool SemanticChecker::checkClauseRelativeKey(ParaFileControl &entry) {
  DataIdentifierExpression *name = entry.getRelativeKey()->getDataName();
  if (!semanticCheck(*name, false, false))
    return false;
  bool ok = true;
  DataDescription *key = name->getDataDescription();
  if (key->getDataCategory() != DataCategory::Numeric)
    ok = report(ErrorCode::RelativeKeyInvalid, key);
  if (ClausePicture *picture = key->getPicture()) {
    if (picture->isSigned() || picture->getScale() > 0)
      ok = report(ErrorCode::RelativeKeyInvalid, key);
    if (hasScalingPosition(*key))
      ok = report(ErrorCode::RelativeKeyInvalid, key);
  }
  return ok;
}

bool SemanticChecker::checkClauseAlternateList(ParaFileControl &entry) {
  bool ok = true;
  for (ClauseAlternate *alternate : entry.getAlternateListElements()) {
    ok &= semanticCheck(*alternate->getDataName(), false, false);
    if (alternate->getPassWord())
      ok &= checkPassword(*this, *alternate->getPassWord());
  }
  return ok;
}

} // namespace tarka
