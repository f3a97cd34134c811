//===- SCCondition.cpp - checks of conditions -----------------------------===//

#include "AST/ClausePicture.h"
#include "AST/DataDescription.h"
#include "AST/ExpressionVisitor.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/Expression/Comparison.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/NamedReport.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <algorithm>
#include <cassert>
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// Dispatch
//===----------------------------------------------------------------------===//

namespace {

/// Hands a condition to the check of its class.
class ConditionCheck : public ConditionVisitor<ConditionCheck, bool> {
public:
  explicit ConditionCheck(SemanticChecker &semanticChecker) : checker(semanticChecker) {}

#define TARKA_CONDITION(Kind, Number, Class)                                                       \
  bool visit##Class(Class &condition) { return checker.semanticCheck(condition); }
#include "AST/Conditions.def"

  bool visitCondition(Condition &) {
    assert(0 && "invalid Condition Type\n");
    return false;
  }

private:
  SemanticChecker &checker;
};

} // namespace

bool SemanticChecker::semanticCheck(Condition &condition) {
  return ConditionCheck(*this).visit(condition);
}

bool SemanticChecker::semanticCheck(NegatedCondition &condition) {
  return semanticCheck(*condition.getOperand());
}

/// Long chains of AND and OR lean to the left, so that side is walked by a loop; the conditions are
/// still visited in the order in which they are written.
bool SemanticChecker::semanticCheck(CombinedCondition &condition) {
  llvm::SmallVector<CombinedCondition *, 8> chain{&condition};
  while (auto *left = llvm::dyn_cast_if_present<CombinedCondition>(chain.back()->getLeft()))
    chain.push_back(left);
  bool ok = true;
  if (Condition *first = chain.back()->getLeft())
    ok = semanticCheck(*first);
  for (CombinedCondition *link : llvm::reverse(chain))
    if (Condition *right = link->getRight())
      ok &= semanticCheck(*right);
  return ok;
}

bool SemanticChecker::semanticCheck(AbbrRelationalCondition &condition) {
  return !condition.getRight() || semanticCheck(*condition.getRight());
}

//===----------------------------------------------------------------------===//
// Condition names and switches
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(ConditionNameCondition &condition) {
  DataIdentifierExpression *name = condition.getConditionName();
  if (!name)
    return report(ErrorCode::ConditionNameMissing, &condition);
  if (!semanticCheck(*name, false, false))
    return false;
  if (name->getDataDescription()->getLevelNum() != 88)
    return report(ErrorCode::ConditionNameNotLevel88, &condition);
  return true;
}

/// Attaches the clause that defines the switch, and notes whether its ON status was named.
static void attachSwitch(SwitchCondition &condition, ClauseEnvName &clause,
                         const std::string &statusName) {
  Word *on = clause.getOnCondition();
  if (on && on->getWordData() == statusName)
    condition.setOnCond(true);
  condition.setEnvClause(&clause);
  condition.setMnemonicName(clause.getMnemonicName());
}

/// A switch is named by its status name alone, which must then be unique, or qualified by the
/// mnemonic name of the switch.
bool SemanticChecker::semanticCheck(SwitchCondition &condition) {
  ParaSpecialNames *specialNames = currentSpecialNames();
  if (!specialNames)
    return report(ErrorCode::SwitchConditionUndefined, &condition);

  QualifiedWord *name = condition.getSwitchName();
  Word *status = *name->getNamesBegin();
  NodeList<ClauseEnvName> found = specialNames->findClauseEnvNameByCondName(status);
  switch (name->getNamesSize()) {
  case 1:
    if (found.empty())
      return report(ErrorCode::SwitchConditionUndefined, &condition);
    if (found.size() > 1)
      return report(ErrorCode::SwitchConditionNotUnique, name);
    attachSwitch(condition, *found.front(), status->getWordData());
    return true;
  case 2: {
    const std::string &mnemonic = (*std::next(name->getNamesBegin()))->getWordData();
    for (ClauseEnvName *clause : found)
      if (clause->getMnemonicName() && clause->getMnemonicName()->getWordData() == mnemonic) {
        attachSwitch(condition, *clause, status->getWordData());
        return true;
      }
    return report(ErrorCode::SwitchConditionUndefined, name);
  }
  default:
    return report(ErrorCode::SwitchConditionUndefined, &condition);
  }
}

//===----------------------------------------------------------------------===//
// Relations
//===----------------------------------------------------------------------===//

/// The operand with fewer decimal places takes over the digits and decimal places of the other one.
static void alignScales(Expression &left, Expression &right) {
  if (right.getSrcScale() > left.getSrcScale()) {
    left.setSrcDigitNum(right.getSrcDigitNum());
    left.setSrcScale(right.getSrcScale());
  } else if (right.getSrcScale() < left.getSrcScale()) {
    right.setSrcDigitNum(left.getSrcDigitNum());
    right.setSrcScale(left.getSrcScale());
  }
}

/// The group that the operand is bound to; null when it is anything else.
static DataDescription *groupOf(const Expression &operand) {
  DataDescription *entry = entryOfDataIdentifier(operand);
  return entry && entry->getChildrenSize() > 0 ? entry : nullptr;
}

bool SemanticChecker::semanticCheck(RelationalCondition &condition) {
  Expression &left = *condition.getLeft();
  Expression &right = *condition.getRight();
  bool leftOk = semanticCheck(left);
  bool rightOk = semanticCheck(right);
  alignScales(left, right);
  if (!leftOk || !rightOk)
    return false;

  bool ok = checkCompareable(&left, &right, condition.getConditionType());

  // Under an EBCDIC collating sequence two groups of one shape are compared item by item.
  if (CompileOption::getCompileOptionInstance()->isOptionSeqEbcdic()) {
    DataDescription *leftGroup = groupOf(left);
    DataDescription *rightGroup = groupOf(right);
    if (leftGroup && rightGroup && leftGroup->getAllocSize() == rightGroup->getAllocSize())
      condition.setIsSameGroup(checkSameGroup(leftGroup, rightGroup));
  }
  return ok;
}

namespace {

/// Whether two categories may be compared.
enum Comparison : char {
  No = ' ',
  Yes = 'Y',
  National = 'N', ///< yes, and a figurative constant beside a national operand becomes national
};

constexpr int categoryCount = 13;

/// Rows are the category of the left operand, columns that of the right one, both by the values of
/// DataCategory. Two alphanumeric-edited operands do not compare, although each of them does with
/// the categories around it: programs rely on it.
constexpr char comparisons[categoryCount][categoryCount + 1] = {
    // 0 none, 1 alphabetic, 2 alphanumeric, 3 numeric, 4 alphanumeric-edited, 5 numeric-edited,
    // 6 national, 7 national-edited, 8 DBCS, 9 external float, 10 internal float, 11 pointer,
    // 12 index
    // 0123456789..12
    "             ", // none
    " YN Y N      ", // alphabetic
    " NYYYYN      ", // alphanumeric
    "  YY YY  YY Y", // numeric
    " YY  Y       ", // alphanumeric-edited
    "  YYYY       ", // numeric-edited
    " NNY  N Y    ", // national
    "             ", // national-edited
    "      Y N    ", // DBCS
    "   Y     YY  ", // external float
    "   Y     YY  ", // internal float
    "             ", // pointer: compared with pointers only, and not through this table
    "   Y        Y", // index
};

/// The usage of the entry that an operand is bound to; none for other operands.
std::optional<UsageType> usageOfIdentifier(const Expression &operand) {
  const DataDescription *entry = entryOfDataIdentifier(operand);
  return entry ? std::optional(entry->getUsageType()) : std::nullopt;
}

Comparison comparisonOf(const Expression &left, const Expression &right) {
  return Comparison(comparisons[static_cast<int>(left.getDataCategory())]
                               [static_cast<int>(right.getDataCategory())]);
}

bool isCharacters(DataCategory category) {
  switch (category) {
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
  case DataCategory::AlphanumericEdited:
  case DataCategory::NumericEdited:
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return true;
  default:
    return false;
  }
}

bool isSpace(const Expression &operand) {
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return constant && constant->getFigurativeType() == FigurativeType::Space;
}

/// What Enterprise COBOL compares beyond the table: characters of every category with each other,
/// with integers and with floating-point numbers in characters; DBCS characters with SPACE; a
/// group, byte by byte, with floating-point numbers and DBCS characters.
bool compareInEnterprise(const Expression &left, const Expression &right) {
  using enum DataCategory;
  auto compares = [](const Expression &operand, const Expression &other) {
    const DataCategory category = operand.getDataCategory();
    if (groupOf(other) && (category == Dbcs || category == InternalFloat))
      return true;
    return category == Dbcs ? isSpace(other)
                            : isCharacters(category) || category == ExternalFloat ||
                                  (category == Numeric && operand.isInteger());
  };
  return compares(left, right) && compares(right, left);
}

bool arePointers(const Expression &left, const Expression &right) {
  return left.getDataCategory() == DataCategory::Pointer &&
         right.getDataCategory() == DataCategory::Pointer;
}

/// Whether \p operand is a literal that has more characters or digits than the item \p other.
bool isLongerThan(const Expression &operand, const Expression &other) {
  const DataDescription *item = entryOfDataIdentifier(other);
  if (!item)
    return false;
  if (const auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(&operand))
    return static_cast<std::int64_t>(text->getData().size()) > item->getAllocSize();
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&operand);
  const ClausePicture *picture = number ? item->getPicture() : nullptr;
  return picture && (number->getDigitsNum() > picture->getDigitNum() ||
                     number->getScale() > picture->getScale() ||
                     (!number->isPositive() && !picture->isSigned()));
}

} // namespace

/// A condition-name is a condition on its conditional variable and has no value of its own.
bool areComparable(const Expression &left, const Expression &right) {
  if (isConditionName(left) || isConditionName(right))
    return false;
  if (!arePointers(left, right))
    return comparisonOf(left, right) != No ||
           (followsEnterprise(EnterpriseRule::ComparisonOfClasses) &&
            compareInEnterprise(left, right));
  // A data pointer does not compare with a pointer to code.
  std::optional<UsageType> leftUsage = usageOfIdentifier(left);
  std::optional<UsageType> rightUsage = usageOfIdentifier(right);
  return !leftUsage || !rightUsage ||
         (leftUsage == UsageType::Pointer) == (rightUsage == UsageType::Pointer);
}

bool SemanticChecker::checkCompareable(Expression *left, Expression *right,
                                       RelationalConditionType relation) {
  bool ok = true;
  if (arePointers(*left, *right) && relation != RelationalConditionType::Equal &&
      relation != RelationalConditionType::NotEqual)
    ok = report(ErrorCode::PointerRelationNotEquality, left, *right);
  if (!areComparable(*left, *right))
    return report(ErrorCode::ComparisonInvalid, left, *right);
  if (comparisonOf(*left, *right) == National)
    checkNationalCmpFiguExpr(left, right);
  if (isLongerThan(*left, *right) || isLongerThan(*right, *left))
    state->hasPlainOperands = false;
  return ok;
}

/// The figurative constant that \p operand is, when it stands for characters.
static FigurativeLiteralExpression *characterFigurative(Expression *operand) {
  auto *figurative = llvm::dyn_cast<FigurativeLiteralExpression>(operand);
  if (!figurative || figurative->getFigurativeType() < FigurativeType::Zero ||
      figurative->getFigurativeType() > FigurativeType::AllLiteral)
    return nullptr;
  return figurative;
}

bool SemanticChecker::checkNationalCmpFiguExpr(Expression *left, Expression *right) {
  FigurativeLiteralExpression *figurative = nullptr;
  if (left->getDataCategory() == DataCategory::National)
    figurative = characterFigurative(right);
  if (!figurative && right->getDataCategory() == DataCategory::National)
    figurative = characterFigurative(left);
  if (figurative)
    figurative->setIsNational(true);
  return true;
}

bool SemanticChecker::checkSameGroup(DataDescription *left, DataDescription *right) {
  if (left->getChildrenSize() != right->getChildrenSize() || left->isRedefineSubject() ||
      right->isRedefineSubject())
    return false;
  if (left->getChildrenSize() > 0)
    return std::equal(
        left->getChildrenBegin(), left->getChildrenEnd(), right->getChildrenBegin(),
        [this](DataDescription *a, DataDescription *b) { return checkSameGroup(a, b); });
  return left->getDataCategory() == right->getDataCategory() &&
         left->getAllocSize() == right->getAllocSize() &&
         (left->getDataCategory() != DataCategory::Numeric ||
          left->getUsageType() == right->getUsageType());
}

//===----------------------------------------------------------------------===//
// Classes and signs
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(ClassCondition &condition) {
  state->hasPlainOperands = false;
  bool ok = semanticCheck(*condition.getLeft());
  if (condition.getType() != ClassConditionType::ClassName &&
      condition.getType() != ClassConditionType::NotClassName)
    return ok;
  ParaSpecialNames *specialNames = currentSpecialNames();
  ClauseClass *clause =
      specialNames ? specialNames->findClauseClassByWord(condition.getClassName()) : nullptr;
  if (!clause)
    return reportName(*this, ErrorCode::ClassConditionUndefined, &condition,
                      condition.getClassName());
  condition.setClauseClass(clause);
  return ok;
}

bool SemanticChecker::semanticCheck(SignCondition &condition) {
  if (!semanticCheck(*condition.getOperand()))
    return false;
  const Expression &operand = *condition.getOperand();
  const bool isNumeric = operand.getDataCategory() == DataCategory::Numeric || isFloat(operand);
  return (isNumeric && !isConditionName(operand)) ||
         report(ErrorCode::SignConditionNotNumeric, &condition);
}

} // namespace tarka
