//===- SCStmtCallArgument.cpp - what can be passed to a program -----------===//

#include "AST/DataDescription.h"
#include "AST/Usage.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/CallCheck.h"

namespace tarka {

namespace {

/// Checks one argument against the rules of the way in which it is passed.
class ArgumentCheck {
public:
  ArgumentCheck(SemanticChecker &checkerOfAll, Argument &argumentOfCall)
      : checker(checkerOfAll), argument(argumentOfCall), operand(argumentOfCall.getExpr()) {}

  bool check();

private:
  bool report(ErrorCode code) { return checker.report(code, operand); }
  bool byReference();
  bool byContent();
  bool byValue();
  bool literalByContent();
  bool literalByValue();
  bool itemByValue(const DataIdentifierExpression &item);
  bool checkAddress();

  /// ADDRESS OF and LENGTH OF; None for operands that are not a register.
  SpecialRegisterType registerType() const {
    auto *specialRegister = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(operand);
    return specialRegister ? specialRegister->getType() : SpecialRegisterType::None;
  }
  /// The entry whose address is passed.
  const DataDescription &addressedEntry() const {
    return *llvm::cast<SpecialRegisterIdentifierExpression>(operand)->getDataDescription();
  }

  SemanticChecker &checker;
  Argument &argument;
  Expression *operand;
};

bool ArgumentCheck::check() {
  if (argument.isOmitted())
    return argument.getType() != ArgType::Value ||
           checker.report(ErrorCode::CallOmittedByValue, &argument);
  if (!checker.semanticCheck(*operand))
    return false;
  if (const DataDescription *entry = entryOfDataIdentifier(*operand)) {
    if (isConditionName(*entry))
      return report(ErrorCode::CallArgumentNameInvalid);
    if (isIndexName(*entry))
      return report(ErrorCode::PointerOrIndexNotAllowed);
  }
  // A literal is not an item that could be passed by reference: the program gets a copy of it.
  if (llvm::isa<LiteralExpression>(operand) && argument.getType() == ArgType::Reference)
    argument.setType(ArgType::Content);
  switch (argument.getType()) {
  case ArgType::Reference:
    return byReference();
  case ArgType::Content:
    return byContent();
  case ArgType::Value:
    return byValue();
  }
  return true;
}

/// Something with storage of its own: an item of any level, a file, the address of a record.
bool ArgumentCheck::byReference() {
  if (llvm::isa<FunctionIdentifierExpression>(operand))
    return report(ErrorCode::CallReferenceArgumentInvalid);
  if (auto *file = llvm::dyn_cast<FileIdentifierExpression>(operand))
    return file->getFileDescription()->getType() != FileDescType::SortMerge ||
           report(ErrorCode::CallReferenceArgumentInvalid);
  if (registerType() == SpecialRegisterType::LengthOf)
    return report(ErrorCode::CallReferenceArgumentInvalid);
  if (registerType() == SpecialRegisterType::AddressOf) {
    // The program may change the address, which only a record of the linkage section allows.
    const DataDescription &entry = addressedEntry();
    if ((entry.getLevelNum() != 1 && entry.getLevelNum() != 77) ||
        entry.getStorageType() != StorageType::Linkage)
      return report(ErrorCode::CallReferenceSpecialRegister);
  }
  return true;
}

bool ArgumentCheck::byContent() {
  if (llvm::isa<LiteralExpression>(operand))
    return literalByContent();
  if (llvm::isa<FileIdentifierExpression>(operand))
    return report(ErrorCode::CallContentArgumentInvalid);
  return checkAddress();
}

/// The figurative constants that stand for no character of their own.
bool isAllOrNull(const Expression &operand) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return isAllLiteral(operand) ||
         (constant && constant->getFigurativeType() == FigurativeType::Null);
}

/// Nothing says how a numeric literal would be stored.
bool ArgumentCheck::literalByContent() {
  if (llvm::isa<NumericLiteralExpression>(operand))
    return report(ErrorCode::CallLiteralArgumentKind);
  return !isAllOrNull(*operand) || report(ErrorCode::CallContentFigurativeConstant);
}

/// The address of an item that the program itself lays out. The message mentions only the linkage
/// section; it dates from when the addresses of other items could not be passed.
bool ArgumentCheck::checkAddress() {
  if (registerType() != SpecialRegisterType::AddressOf)
    return true;
  const DataDescription &entry = addressedEntry();
  bool isInRecord = entry.getLevelNum() != 66 && !isConditionName(entry);
  StorageType storage = entry.getStorageType();
  return (isInRecord && storage != StorageType::File && storage != StorageType::Report) ||
         report(ErrorCode::CallContentSpecialRegister);
}

/// What fits into a register of the machine.
bool ArgumentCheck::byValue() {
  if (llvm::isa<LiteralExpression>(operand))
    return literalByValue();
  if (auto *item = llvm::dyn_cast<DataIdentifierExpression>(operand))
    return itemByValue(*item);
  if (llvm::isa<SpecialRegisterIdentifierExpression>(operand))
    return checkAddress();
  return report(ErrorCode::CallValueArgumentInvalid);
}

bool ArgumentCheck::literalByValue() {
  if (llvm::isa<FigurativeLiteralExpression>(operand))
    return !isAllOrNull(*operand) || report(ErrorCode::CallValueFigurativeConstant);
  auto *characters = llvm::dyn_cast<NonNumericLiteralExpression>(operand);
  if (!characters)
    return true;
  switch (characters->getNonNumericLiteralType()) {
  case NonNumericLiteralType::Dbcs:
  case NonNumericLiteralType::NullTerminated:
    return report(ErrorCode::NonNumericLiteralNotAllowed);
  default:
    return characters->getLength() == 1 || report(ErrorCode::CallValueLiteralTooLong);
  }
}

/// The length of \p item in characters; 0 where only the running program knows.
std::int64_t lengthInCharacters(const DataIdentifierExpression &item) {
  if (const ReferenceModifier *part = item.getReferenceMod()) {
    auto *length = llvm::dyn_cast_if_present<NumericLiteralExpression>(part->getCountExpr());
    return length ? length->getIntegerValue() : 0;
  }
  std::int64_t bytes = item.getDataDescription()->getElemAllocSize();
  return item.getDataCategory() == DataCategory::National ? bytes / 2 : bytes;
}

/// A binary or floating-point number, a pointer, or a single character.
bool ArgumentCheck::itemByValue(const DataIdentifierExpression &item) {
  const DataDescription &entry = *item.getDataDescription();
  if (entry.hasSubordinateData() && !item.getReferenceMod())
    return report(ErrorCode::CallValueNotElementary);
  switch (item.getDataCategory()) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::National:
    return lengthInCharacters(item) <= 1 || report(ErrorCode::DataItemTooLong);
  case DataCategory::Index:
    return report(ErrorCode::PointerOrIndexNotAllowed);
  case DataCategory::Pointer:
  case DataCategory::InternalFloat:
    return true;
  case DataCategory::Numeric:
    break;
  default:
    return report(ErrorCode::CallArgumentType);
  }
  return isBinary(entry.getUsageType()) || report(ErrorCode::CallArgumentType);
}

} // namespace

bool checkArgument(SemanticChecker &checker, Argument &argument) {
  return ArgumentCheck(checker, argument).check();
}

} // namespace tarka
