//===- SCStmtConditional.cpp - IF and EVALUATE ----------------------------===//

#include "AST/Condition.h"
#include "Analyzer/Expression/Comparison.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <optional>

namespace tarka {

bool SemanticChecker::semanticCheck(IfStatement &statement) {
  return OperandCheck(*this)
      .one(statement.getCondition())
      .all(statement.getIfStmtListElements())
      .all(statement.getElseStmtListElements());
}

//===----------------------------------------------------------------------===//
// EVALUATE
//===----------------------------------------------------------------------===//

namespace {

/// The classes of data, which the categories fall into.
enum class DataClass { Alphabetic, Alphanumeric, Numeric, National, Dbcs, Other };

/// None for what takes the class of what stands beside it: a figurative constant, and an operand of
/// which nothing is known.
std::optional<DataClass> classOf(const Expression &operand) {
  switch (operand.getDataCategory()) {
  case DataCategory::Alphabetic:
    return DataClass::Alphabetic;
  case DataCategory::Alphanumeric:
    if (llvm::isa<FigurativeLiteralExpression>(operand))
      return std::nullopt;
    return DataClass::Alphanumeric;
  case DataCategory::AlphanumericEdited:
    return DataClass::Alphanumeric;
  case DataCategory::NumericEdited: {
    const DataDescription *entry = entryOf(operand);
    return entry && entry->getUsageType() == UsageType::National ? DataClass::National
                                                                 : DataClass::Alphanumeric;
  }
  case DataCategory::Numeric:
    if (llvm::isa<FigurativeLiteralExpression>(operand))
      return std::nullopt;
    return DataClass::Numeric;
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
  case DataCategory::Index:
    return DataClass::Numeric;
  case DataCategory::National:
  case DataCategory::NationalEdited:
    return DataClass::National;
  case DataCategory::Dbcs:
    return DataClass::Dbcs;
  case DataCategory::Unclassified:
    return std::nullopt;
  case DataCategory::Pointer:
    break;
  }
  return DataClass::Other;
}

/// Whether the two ends of a range are of one class. A figurative constant goes with characters of
/// every class, ZERO with numbers as well.
bool isRangeOfOneClass(const Expression &front, const Expression &rear) {
  std::optional<DataClass> frontClass = classOf(front);
  std::optional<DataClass> rearClass = classOf(rear);
  if (frontClass && rearClass)
    return frontClass == rearClass;
  const Expression &other = frontClass ? rear : front;
  return (frontClass ? frontClass : rearClass) != DataClass::Numeric || other.isInteger() ||
         isUnknown(other);
}

/// Checks the objects of EVALUATE one by one against the subjects.
class EvaluateCheck {
public:
  EvaluateCheck(SemanticChecker &theChecker, EvaluateStatement &statement);

  void check(EvaluateWhen &when);
  bool isRight() const { return ok; }

private:
  /// A subject, and whether its own check has passed.
  struct Subject {
    EvaluateSubject *node;
    bool isBound;
  };

  void report(ErrorCode code, Node *node) { ok = checker.report(code, node); }
  template <typename Part> bool bind(Part *part) {
    bool bound = !part || checker.semanticCheck(*part);
    ok &= bound;
    return bound;
  }
  void check(EvaluateObject &object, const Subject *subject);
  bool compare(Expression &operand, EvaluateObject &object, const Subject &subject);

  SemanticChecker &checker;
  llvm::SmallVector<Subject, 4> subjects;
  bool ok = true;
};

EvaluateCheck::EvaluateCheck(SemanticChecker &theChecker, EvaluateStatement &statement)
    : checker(theChecker) {
  for (EvaluateSubject *subject : statement.getSubjectListElements()) {
    bool isBound = bind(subject->getExpr());
    isBound &= bind(subject->getCond());
    subjects.push_back({subject, isBound});
  }
}

/// WHEN has one object for every subject; WHEN OTHER has none.
void EvaluateCheck::check(EvaluateWhen &when) {
  if (when.getType() == EvalWhenType::Other)
    return;
  if (when.getWhenObjListSize() != subjects.size())
    report(ErrorCode::EvaluateCountMismatch, &when);
  const Subject *subject = subjects.begin();
  for (EvaluateObject *object : when.getWhenObjListElements())
    check(*object, subject != subjects.end() ? subject++ : nullptr);
}

/// A truth value is compared with a truth value, an operand with operands.
void EvaluateCheck::check(EvaluateObject &object, const Subject *subject) {
  bool isValueWanted = subject && subject->node->getType() == EvalSubjectType::Expression;
  switch (object.getType()) {
  case EvalObjectType::Any:
    return;
  case EvalObjectType::Condition:
  case EvalObjectType::True:
  case EvalObjectType::False:
    bind(object.getCondition());
    if (isValueWanted)
      ok = checker.report(ErrorCode::EvaluateTypeMismatch, &object, *subject->node->getExpr());
    return;
  case EvalObjectType::Expression:
  case EvalObjectType::Range:
    break;
  }

  Expression *front = object.getFrontExpression();
  Expression *rear = object.getRearExpression();
  bool isFrontBound = bind(front);
  bool isRearBound = bind(rear);
  if (rear && isFrontBound && isRearBound && !isRangeOfOneClass(*front, *rear)) {
    ok = checker.report(ErrorCode::EvaluateThroughClassMismatch, rear, *front);
    return;
  }
  if (!subject)
    return;
  if (!isValueWanted)
    return report(ErrorCode::EvaluateTypeMismatch, &object);
  if (!subject->isBound)
    return;
  // One message for both ends of a range.
  if (isFrontBound && !compare(*front, object, *subject))
    return;
  if (rear && isRearBound)
    compare(*rear, object, *subject);
}

/// The operand must be of a kind that the subject can be compared with; pointers have no order, so
/// they cannot form a range.
bool EvaluateCheck::compare(Expression &operand, EvaluateObject &object, const Subject &subject) {
  Expression &value = *subject.node->getExpr();
  if (isUnknown(value) || isUnknown(operand))
    return true;
  bool isRangeOfPointers = object.getType() == EvalObjectType::Range &&
                           operand.getDataCategory() == DataCategory::Pointer;
  if (isRangeOfPointers || !areComparable(value, operand)) {
    ok = checker.report(ErrorCode::EvaluateTypeMismatch, &operand, value);
    return false;
  }
  return checker.checkCompareable(&value, &operand, RelationalConditionType::Equal);
}

} // namespace

bool SemanticChecker::semanticCheck(EvaluateStatement &statement) {
  EvaluateCheck evaluate(*this, statement);
  OperandCheck statements(*this);
  for (EvaluateCase *oneCase : statement.getWhenCaseListElements()) {
    for (EvaluateWhen *when : oneCase->getWhenListElements())
      evaluate.check(*when);
    statements.all(oneCase->getWhenStmtListElements());
  }
  return evaluate.isRight() && statements;
}

} // namespace tarka
