//===- OperandKinds.h - what an operand that was bound is -----------------===//
//
// Properties of an operand that the rules of many statements need, once its own
// check has passed.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_OPERANDKINDS_H
#define TARKA_LIB_ANALYZER_OPERANDKINDS_H

#include "AST/DataDescription.h"
#include "AST/Expression.h"

namespace tarka {

/// The entry that the operand refers to; null when it is not a data item.
inline DataDescription *entryOf(const Expression &operand) {
  if (const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand);
      special && (special->getType() == SpecialRegisterType::LengthOf ||
                  special->getType() == SpecialRegisterType::AddressOf))
    return nullptr;
  const auto *identifier = llvm::dyn_cast<IdentifierExpression>(&operand);
  return identifier ? identifier->getDataDescription() : nullptr;
}

/// The entry of an operand that is a data identifier, as most rules mean it: null for functions and
/// special registers.
inline DataDescription *entryOfDataIdentifier(const Expression &operand) {
  const auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&operand);
  return identifier ? identifier->getDataDescription() : nullptr;
}

/// Index-names are those entries with USAGE INDEX that the checks make.
inline bool isIndexName(const DataDescription &entry) {
  return entry.getIsCompilerMade() && entry.getUsageType() == UsageType::Index;
}

inline bool isConditionName(const DataDescription &entry) {
  return entry.getLevelNum() == 88;
}

/// The kind of the operand is not known: its entry is in error, which has been reported.
inline bool isUnknown(const Expression &operand) {
  return operand.getDataCategory() == DataCategory::Unclassified;
}

inline bool isReferenceModified(const Expression &operand) {
  const auto *identifier = llvm::dyn_cast<IdentifierExpression>(&operand);
  return identifier && identifier->getReferenceMod();
}

/// The subscript ALL, which is kept as a named figurative constant.
inline bool isAllSubscript(const Expression &subscript) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&subscript);
  return constant && constant->getSymbolName() == "ALL";
}

/// A whole group, not a part of it.
inline bool isGroupItem(const Expression &operand) {
  const DataDescription *entry = entryOf(operand);
  return entry && entry->hasSubordinateData() && !isReferenceModified(operand);
}

/// A condition-name has the category of its conditional variable, but is not a data item.
inline bool isConditionName(const Expression &operand) {
  const DataDescription *entry = entryOf(operand);
  return entry && isConditionName(*entry);
}

inline bool isFloat(const Expression &operand) {
  DataCategory category = operand.getDataCategory();
  return category == DataCategory::ExternalFloat || category == DataCategory::InternalFloat;
}

/// A number to calculate with: of numeric or floating-point category. An item of the report section
/// is the number that it is to print, whatever the editing.
inline bool isNumber(const Expression &operand) {
  if (isConditionName(operand))
    return false;
  if (operand.getDataCategory() == DataCategory::NumericEdited) {
    const DataDescription *entry = entryOf(operand);
    return entry && entry->getStorageType() == StorageType::Report;
  }
  return operand.getDataCategory() == DataCategory::Numeric || isFloat(operand);
}

/// An integer that is not a condition-name of an integer item.
inline bool holdsInteger(const Expression &operand) {
  return operand.isInteger() && !isConditionName(operand);
}

/// Whether a number can be stored in it: a number, or an item that edits it.
inline bool isNumberOrEdited(const Expression &operand) {
  return isNumber(operand) ||
         (operand.getDataCategory() == DataCategory::NumericEdited && !isConditionName(operand));
}

/// A special register that can be read but not set: LENGTH OF and ADDRESS OF give a value, not an
/// item, and LINAGE-COUNTER belongs to the output of its file.
inline bool isReadOnlyRegister(const Expression &operand) {
  const auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&operand);
  return special && (special->getType() == SpecialRegisterType::LengthOf ||
                     special->getType() == SpecialRegisterType::AddressOf ||
                     special->getType() == SpecialRegisterType::LinageCounter);
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_OPERANDKINDS_H
