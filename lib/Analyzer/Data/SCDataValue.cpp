//===- SCDataValue.cpp - VALUE --------------------------------------------===//
//
// The values of condition names, and the initial values of items: which entries
// can have one, and which literals fit which category. Symbolic characters are
// turned into literals on the way.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/StorageLayout.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/APInt.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Symbolic characters
//===----------------------------------------------------------------------===//

namespace {

/// The SYMBOLIC CHARACTERS clause that defines \p name, in the program being checked or in one
/// around it; null when there is none.
ClauseSymbolic *findSymbolicClause(const Word *name) {
  for (SourceUnit *unit = currentUnit(); unit; unit = unit->getParent())
    if (ParaSpecialNames *specialNames = unit->getSpecialNames())
      if (ClauseSymbolic *clause = specialNames->findClauseSymbolicByWord(name))
        return clause;
  return nullptr;
}

/// The integer that belongs to the symbolic character \p name; null when it is missing.
NumericLiteralExpression *findOrdinal(const ClauseSymbolic &clause, const Word *name) {
  // A clause is written out by name once, so that many characters can be referred to many times.
  using Ordinals = llvm::DenseMap<const std::string *, NumericLiteralExpression *>;
  static auto *known = new llvm::DenseMap<const ClauseSymbolic *, Ordinals>;
  auto [entry, isNew] = known->try_emplace(&clause);
  if (isNew)
    for (const PhrsSymbolic *phrase : clause.getSymbolicListElements())
      for (auto [symbol, ordinal] :
           llvm::zip(phrase->getSourceListElements(), phrase->getIntegerListElements()))
        entry->second.try_emplace(&symbol->getWordData(), ordinal);
  return entry->second.lookup(&name->getWordData());
}

/// The literal of one character; \p at is its position.
NonNumericLiteralExpression *characterLiteral(const Node *at, char character) {
  const char quote = character == '"' ? '\'' : '"';
  const char text[] = {quote, character, quote};
  return new NonNumericLiteralExpression(at, llvm::StringRef(text, sizeof(text)));
}

} // namespace

/// A symbolic character is ALL of the character at its place in the character set, from 1.
LiteralExpression *SemanticChecker::convertSymbolicValue(Word *name) {
  constexpr long long characters = 256;
  const ClauseSymbolic *clause = findSymbolicClause(name);
  const NumericLiteralExpression *ordinal = clause ? findOrdinal(*clause, name) : nullptr;
  const long long place = ordinal ? ordinal->getIntegerValue() : 0;
  if (place < 1 || place > characters) {
    report(ErrorCode::SymbolicCharacterUndefined, name);
    return nullptr;
  }
  return new FigurativeLiteralExpression(name, FigurativeType::AllLiteral,
                                         characterLiteral(name, static_cast<char>(place - 1)));
}

/// All words are tried, even after one has failed.
bool SemanticChecker::convertSymbolicValues(ClauseValue &clause) {
  bool ok = true;
  for (PhraseValue *phrase : clause.getPhraseValElements()) {
    if (Word *word = phrase->getWord1()) {
      if (LiteralExpression *literal = convertSymbolicValue(word)) {
        phrase->setLiteral1(literal);
        phrase->setWord1(nullptr);
      } else {
        ok = false;
      }
    }
    if (Word *word = phrase->getWord2()) {
      if (LiteralExpression *literal = convertSymbolicValue(word)) {
        phrase->setLiteral2(literal);
        phrase->setWord2(nullptr);
      } else {
        ok = false;
      }
    }
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// Which entries can have VALUE
//===----------------------------------------------------------------------===//

bool SemanticChecker::checkClauseValue(ClauseValue *clause) {
  bool ok = convertSymbolicValues(*clause);
  for (PhraseValue *phrase : clause->getPhraseValElements()) {
    if (phrase->getLiteral1())
      ok &= semanticCheck(*phrase->getLiteral1());
    if (phrase->getLiteral2())
      ok &= semanticCheck(*phrase->getLiteral2());
  }
  return ok;
}

/// What is written beside the one value that an item starts with: further values, the end of a
/// range and the value of FALSE are for condition names. Null when there is nothing, and for items
/// of a report, which have a value for each of their lines.
static Node *surplusValue(const DataDescription &entry, const ClauseValue &clause) {
  if (entry.getType() == DescType::Report || clause.getPhraseValSize() == 0)
    return nullptr;
  if (LiteralExpression *end = clause.getPhraseValElements().front()->getLiteral2())
    return end;
  if (clause.isListValue())
    return *std::next(clause.getPhraseValElements().begin());
  return clause.getFalseValue();
}

bool SemanticChecker::checkClauseValue(DataDescription &entry) {
  ClauseValue &clause = *entry.getValue();
  if (!convertSymbolicValues(clause))
    return false;

  // Storage that comes from outside is not initialised. The clause is looked at all the same.
  const bool isConditionName = entry.getLevelNum() == 88;
  const StorageType storage = entry.getStorageType();
  if (storage == StorageType::Linkage || storage == StorageType::File) {
    if (isConditionName)
      return true;
    entry.setValue(nullptr);
  }

  // Nor are EXTERNAL storage, which is an error, and redefined storage, which passes in silence.
  bool ok = true;
  if (entry.getExternal())
    ok = report(ErrorCode::ValueWithExternalOrRedefines, &entry);
  if (entry.getRedefines()) {
    entry.setValue(nullptr);
    return true;
  }
  for (const DataDescription *group = entry.getParent(); group; group = group->getParent()) {
    if (group->getExternal()) {
      ok = report(ErrorCode::ValueWithExternalOrRedefines, &entry);
      break;
    }
    if (group->getRedefines()) {
      entry.setValue(nullptr);
      return true;
    }
  }

  if (isConditionName)
    return checkConditionValues(entry, clause, ok);
  if (entry.isGroupItem())
    ok &= checkGroupLiteral(entry, clause);
  else if (Node *surplus = surplusValue(entry, clause))
    ok = report(ErrorCode::ValueDoesNotFitPicture, surplus);
  // What is wrong with the literal is reported, but the entry does not fail for it: on purpose.
  if (clause.getPhraseValSize() != 0)
    checkLiteralValue(&entry, clause.getPhraseValElements().front()->getLiteral1());
  return ok;
}

//===----------------------------------------------------------------------===//
// Groups
//===----------------------------------------------------------------------===//

namespace {

bool isNull(const LiteralExpression &literal) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal);
  return constant && constant->getFigurativeType() == FigurativeType::Null;
}

bool isFigurative(const LiteralExpression &literal, FigurativeType type) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal);
  return constant && constant->getFigurativeType() == type;
}

} // namespace

/// The VALUE of a group is one literal of characters.
bool SemanticChecker::checkGroupLiteral(DataDescription &group, const ClauseValue &clause) {
  bool ok = true;
  if (clause.isListValue() || surplusValue(group, clause))
    ok = report(ErrorCode::GroupValueInvalid, &group);
  const LiteralExpression *literal =
      clause.getPhraseValSize() ? clause.getPhraseValElements().front()->getLiteral1() : nullptr;
  if (literal && (isNull(*literal) || llvm::isa<NumericLiteralExpression>(literal)))
    ok = report(ErrorCode::GroupValueInvalid, &group);
  for (DataDescription *child : group.getChildrenElements())
    ok &= checkGroupValue(child);
  return ok;
}

bool SemanticChecker::checkGroupValue(DataDescription *subordinate) {
  bool ok = true;
  for (DataDescription *child : subordinate->getChildrenElements())
    ok &= checkGroupValue(child);
  if (subordinate->getJustified() || subordinate->getSynchronized())
    ok = report(ErrorCode::GroupValueJustifiedOrSynchronized, subordinate);
  if (subordinate->getUsageType() != UsageType::Display)
    ok = report(ErrorCode::GroupValueUsageNotDisplay, subordinate);
  if (subordinate->getValue())
    ok = report(ErrorCode::GroupValueSubordinateValue, subordinate);
  return ok;
}

//===----------------------------------------------------------------------===//
// Condition names
//===----------------------------------------------------------------------===//

/// Whether the conditional variable can have the value.
static bool isValueOf(const LiteralExpression &value, DataCategory variable) {
  const DataCategory category = value.getDataCategory();
  if (category == variable)
    return true;
  if (llvm::isa<FigurativeLiteralExpression>(value) && variable == DataCategory::Alphanumeric)
    return isFigurative(value, FigurativeType::Zero);
  switch (category) {
  case DataCategory::Alphanumeric:
    return variable == DataCategory::Alphabetic || variable == DataCategory::AlphanumericEdited ||
           variable == DataCategory::NumericEdited;
  case DataCategory::Numeric:
    return variable == DataCategory::NumericEdited;
  default:
    return false;
  }
}

/// \p ok is the result so far. Each value that is checked decides anew, so that a later one that
/// is right makes up for an earlier one that was not: on purpose.
bool SemanticChecker::checkConditionValues(DataDescription &conditionName, ClauseValue &clause,
                                           bool ok) {
  const DataDescription *variable = conditionName.getOwner();
  for (const PhraseValue *phrase : clause.getPhraseValElements()) {
    LiteralExpression *value = phrase->getLiteral1();
    if (!value)
      return report(ErrorCode::Level88NeedsValue, &conditionName);
    ok = semanticCheck(*value);
    if (!ok)
      return false;
    if (variable && !isValueOf(*value, variable->getDataCategory()))
      ok = report(ErrorCode::ConditionNameValueType, &conditionName);
    if (LiteralExpression *through = phrase->getLiteral2()) {
      ok = semanticCheck(*through);
      if (!ok)
        return false;
      if (through->getDataCategory() != value->getDataCategory())
        ok = report(ErrorCode::ValueThroughTypesDiffer, &conditionName);
    }
  }
  if (LiteralExpression *whenFalse = clause.getFalseValue()) {
    ok &= semanticCheck(*whenFalse);
    if (variable && !isValueOf(*whenFalse, variable->getDataCategory()))
      ok = report(ErrorCode::ConditionNameValueType, &conditionName);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// Initial values
//===----------------------------------------------------------------------===//

/// Notes that the storage of \p entry does not start empty.
static void noteInitialValue(DataDescription &entry) {
  const StorageType storage = entry.getStorageType();
  if (storage == StorageType::Linkage || storage == StorageType::File)
    return;
  for (DataDescription *item = &entry; item; item = item->getParent())
    item->setHaveValue(true);
}

bool SemanticChecker::checkLiteralValue(DataDescription *entry, LiteralExpression *literal) {
  // A level 66 has no storage of its own; its clause has been reported.
  if (entry->getLevelNum() == 66)
    return false;
  noteInitialValue(*entry);
  if (!literal)
    return report(ErrorCode::Level88NeedsValue, entry);
  if (!semanticCheck(*literal))
    return false;
  // Of a group that has been reported already.
  if (entry->isGroupItem() && (isNull(*literal) || llvm::isa<NumericLiteralExpression>(literal)))
    return false;
  return checkInitialValue(*entry, *literal);
}

/// The rule for each category. What has none has been reported with its PICTURE or its USAGE.
bool SemanticChecker::checkInitialValue(const DataDescription &entry, LiteralExpression &literal) {
  const DataCategory category = entry.getDataCategory();
  switch (category) {
  case DataCategory::Unclassified:
    return true;
  case DataCategory::Index:
    return report(ErrorCode::ValueWithIndex, &literal);
  case DataCategory::ExternalFloat:
    return report(ErrorCode::ValueWithExternalFloat, &literal);
  case DataCategory::Pointer:
    return checkHaveNullValue(&entry, &literal);
  default:
    if (isNull(literal))
      return checkHaveNullValue(&entry, &literal);
  }

  switch (category) {
  case DataCategory::Numeric:
    return checkNumericValue(entry, literal);
  case DataCategory::InternalFloat:
    if (!llvm::isa<NumericLiteralExpression>(literal) &&
        !isFigurative(literal, FigurativeType::Zero))
      return report(ErrorCode::ValueInternalFloatLiteral, &literal);
    return true;
  case DataCategory::Dbcs:
    return checkDbcsValue(entry, literal);
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return checkNationalValue(entry, literal);
  default:
    if (entry.getUsageType() == UsageType::National)
      return checkNationalValue(entry, literal);
    return checkCharacterValue(entry, literal);
  }
}

bool SemanticChecker::checkHaveNullValue(const DataDescription *entry, LiteralExpression *literal) {
  if ((entry->getDataCategory() == DataCategory::Pointer) == isNull(*literal))
    return true;
  return report(llvm::isa<FigurativeLiteralExpression>(literal) ? ErrorCode::ValueFigurativeConstant
                                                                : ErrorCode::ValueDoesNotFitPicture,
                literal);
}

/// INIT gives an initial value to every item of the program's own storage.
bool SemanticChecker::checkInitSpace(DataDescription &entry) {
  const StorageType storage = entry.getStorageType();
  if (storage != StorageType::WorkingStorage && storage != StorageType::LocalStorage)
    return true;
  if (entry.isGroupItem() || entry.getLevelNum() == 66 || entry.getLevelNum() == 88 ||
      entry.getIsCompilerMade())
    return true;
  for (const DataDescription *item = &entry; item; item = item->getParent())
    if (item->getExternal() || item->getRedefines())
      return true;
  noteInitialValue(entry);
  return true;
}

//===----------------------------------------------------------------------===//
// Characters
//===----------------------------------------------------------------------===//

/// The literal of ALL; the literal itself when it is no ALL.
static const LiteralExpression &innerLiteral(const LiteralExpression &literal) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal);
  return constant && constant->getLiteral() ? *constant->getLiteral() : literal;
}

/// A literal may be shorter than the item, never longer.
bool SemanticChecker::checkValueLength(const DataDescription &entry, LiteralExpression &literal) {
  const auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(&literal);
  if (!text)
    return true;
  std::int64_t positions = 0;
  if (!entry.isGroupItem())
    positions = entry.getPicture()->getSize();
  else if (entry.getDataCategory() == DataCategory::National)
    positions = entry.getAllocSize() / 2;
  else
    positions = entry.getAllocSize();
  std::int64_t length = text->getLength();
  if (text->getNonNumericLiteralType() == NonNumericLiteralType::NullTerminated)
    ++length;
  if (length > positions)
    return report(ErrorCode::ValueTooLong, &literal);
  return true;
}

/// Alphabetic, alphanumeric and edited items, and groups: an alphanumeric literal or a figurative
/// constant. Editing does not come in here.
bool SemanticChecker::checkCharacterValue(const DataDescription &entry,
                                          LiteralExpression &literal) {
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal);
  const bool isFloat = number && number->getLiteralType() == NumericLiteralType::FloatingPoint;
  if (entry.getDataCategory() == DataCategory::Alphabetic &&
      (isFloat || isFigurative(literal, FigurativeType::Zero)))
    return report(ErrorCode::FloatOrZeroIdentifier, &literal);
  if (isFigurative(literal, FigurativeType::Zero))
    return true;
  if (innerLiteral(literal).getDataCategory() != DataCategory::Alphanumeric)
    return report(ErrorCode::ValueDoesNotFitPicture, &literal);
  return checkValueLength(entry, literal);
}

bool SemanticChecker::checkNationalValue(const DataDescription &entry, LiteralExpression &literal) {
  if (auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal)) {
    // Figurative constants stand for the characters that the item has.
    if (constant->getFigurativeType() != FigurativeType::AllLiteral) {
      constant->setIsNational(true);
      return true;
    }
  }
  if (innerLiteral(literal).getDataCategory() != DataCategory::National)
    return report(ErrorCode::ValueNationalLiteral, &literal);
  return checkValueLength(entry, literal);
}

bool SemanticChecker::checkDbcsValue(const DataDescription &entry, LiteralExpression &literal) {
  if (isFigurative(literal, FigurativeType::Space))
    return true;
  if (innerLiteral(literal).getDataCategory() != DataCategory::Dbcs)
    return report(ErrorCode::ValueDbcsLiteral, &literal);
  return checkValueLength(entry, literal);
}

//===----------------------------------------------------------------------===//
// Numbers
//===----------------------------------------------------------------------===//

namespace {

/// The digits of a fixed-point literal on both sides of its decimal point.
struct FixedPointDigits {
  explicit FixedPointDigits(const NumericLiteralExpression &literal) {
    for (char c : literal.getData())
      if (llvm::isDigit(c))
        integer.push_back(c);
    const std::size_t scale = std::min<std::size_t>(literal.getScale(), integer.size());
    decimals = integer.str().take_back(scale);
    integer.resize(integer.size() - scale);
  }

  /// Without zeros in front.
  llvm::StringRef significantInteger() const { return integer.str().ltrim('0'); }
  /// Without zeros at the end.
  llvm::StringRef significantDecimals() const { return decimals.str().rtrim('0'); }
  bool isZero() const { return significantInteger().empty() && significantDecimals().empty(); }

  llvm::SmallString<40> integer;
  llvm::SmallString<40> decimals;
};

/// Whether the value fits the digits of the picture without the loss of any but zeros.
bool fitsDigits(const FixedPointDigits &value, const ClausePicture &picture) {
  const std::size_t scale = picture.getScale();
  const std::size_t integerDigits = picture.getDigitNum() - picture.getScale();
  return value.significantInteger().size() <= integerDigits &&
         value.significantDecimals().size() <= scale;
}

/// Whether the value fits the bytes of a COMP-5 item, which holds what its bytes can hold whatever
/// the number of its digits.
bool fitsBytes(const FixedPointDigits &value, bool isNegative, const ClausePicture &picture) {
  const std::size_t scale = picture.getScale();
  if (value.significantDecimals().size() > scale)
    return false;
  llvm::SmallString<64> digits = value.significantInteger();
  digits += value.significantDecimals();
  digits.append(scale - value.significantDecimals().size(), '0');
  // As many bits as any number of the language needs.
  const llvm::APInt number(256, digits.empty() ? "0" : digits.str(), 10);
  const unsigned bits = 8 * static_cast<unsigned>(binarySize(picture.getStoredDigitNum()));
  if (!picture.isSigned())
    return number.getActiveBits() <= bits;
  // The negative side reaches one further.
  return (isNegative ? number - 1 : number).getActiveBits() < bits || number.isZero();
}

} // namespace

/// A numeric item: ZERO, or a fixed-point literal whose sign and digits the PICTURE provides for.
bool SemanticChecker::checkNumericValue(const DataDescription &entry, LiteralExpression &literal) {
  if (llvm::isa<FigurativeLiteralExpression>(literal)) {
    if (isFigurative(literal, FigurativeType::Zero))
      return true;
    return report(ErrorCode::ValueFigurativeConstant, &literal);
  }
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal);
  if (!number || number->getLiteralType() == NumericLiteralType::FloatingPoint)
    return report(ErrorCode::ValueDoesNotFitPicture, &literal);

  bool ok = true;
  const ClausePicture &picture = *entry.getPicture();
  if (number->isSigned() && !picture.isSigned())
    ok = report(ErrorCode::ValueSignedForUnsigned, &literal);
  // A picture beyond the limit has been reported, and no value of the language fills it.
  constexpr int maxDigits = 31;
  if (picture.getDigitNum() > maxDigits)
    return ok;
  const FixedPointDigits value(*number);
  const bool isScaled = picture.getDigitNum() != picture.getStoredDigitNum();
  if (isScaled)
    ok &= checkScaledValue(picture, value.significantInteger(), value.decimals, literal);
  else if (entry.getUsageType() == UsageType::Comp5
               ? !fitsBytes(value, llvm::StringRef(number->getData()).starts_with("-"), picture)
               : !fitsDigits(value, picture))
    ok = report(ErrorCode::ValueTooLong, &literal);
  return ok;
}

/// Scaling positions hold zeros only. An item 99PPP is zero or lies between 1000 and 99000, an item
/// PPP99 between 0.00000 and 0.00099.
bool SemanticChecker::checkScaledValue(const ClausePicture &picture, llvm::StringRef integer,
                                       llvm::StringRef decimals, LiteralExpression &literal) {
  const std::size_t digits = picture.getDigitNum();
  const std::size_t scaling = digits - picture.getStoredDigitNum();
  const bool hasDecimals = !decimals.rtrim('0').empty();
  if (integer.empty() && !hasDecimals)
    return true;
  bool isInRange;
  bool losesDigits;
  if (picture.isPFront()) {
    isInRange = integer.empty() && decimals.take_front(scaling).ltrim('0').empty();
    losesDigits = decimals.rtrim('0').size() > digits;
  } else {
    isInRange = integer.size() > scaling && integer.size() <= digits;
    losesDigits = hasDecimals || !integer.take_back(scaling).trim('0').empty();
  }
  if (!isInRange)
    return report(ErrorCode::ValueRangeWithScaledPicture, &literal);
  if (losesDigits)
    return report(ErrorCode::ValueWithScaledPicture, &literal);
  return true;
}

} // namespace tarka
