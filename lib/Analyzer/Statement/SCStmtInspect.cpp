//===- SCStmtInspect.cpp - INSPECT ----------------------------------------===//
//
// INSPECT examines the characters of one item, so everything it compares them
// with or puts in their place is characters of the same kind. TRANSFORM and
// EXAMINE come here too, as the INSPECT that does their work.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Statement/OperandCheck.h"

namespace tarka {

namespace {

/// Checks one INSPECT, operand by operand in the order in which they are written.
class InspectCheck {
public:
  InspectCheck(SemanticChecker &checkerOfAll, InspectStatement &inspect)
      : checker(checkerOfAll), statement(inspect) {}

  bool check();

private:
  bool checkSubject();
  bool checkCounter(IdentifierExpression &counter);
  bool checkTallying(TallyingItem &item);
  bool checkReplacing(ReplacingItem &item);
  bool checkConverting(ConvertingItem &item);
  bool checkOperand(Expression &operand, ErrorCode notCharacters);
  bool checkPair(Expression &replaced, Expression &by, ErrorCode notCharacters);
  bool checkRegions(const NodeList<InspectRegion> &regions);

  SemanticChecker &checker;
  InspectStatement &statement;
  CharacterKind subjectKind = CharacterKind::Unknown;
};

bool InspectCheck::check() {
  bool ok = checkSubject();
  for (TallyingItem *item : statement.getTallyingListElements())
    ok &= checkTallying(*item);
  for (ReplacingItem *item : statement.getReplacingListElements())
    ok &= checkReplacing(*item);
  if (ConvertingItem *item = statement.getConverting())
    ok &= checkConverting(*item);
  return ok;
}

/// The inspected item is held in characters. The characters of a function can be counted, but there
/// is not an item to store others in.
bool InspectCheck::checkSubject() {
  IdentifierExpression &subject = *statement.getIdentifier();
  if (!checker.semanticCheck(subject))
    return false;
  const bool isChanged = statement.getReplacingListSize() != 0 || statement.getConverting();
  if (llvm::isa<FunctionIdentifierExpression>(subject) && isChanged)
    return checker.report(ErrorCode::FunctionInReceivingArea, &subject);
  CharacterKind kind = characterKindOf(subject);
  if (kind == CharacterKind::None)
    return checker.report(ErrorCode::InspectIdentifierType, &subject);
  subjectKind = kind;
  return true;
}

//===----------------------------------------------------------------------===//
// Operands
//===----------------------------------------------------------------------===//

/// Characters of the kind of the subject. What has no characters at all, or any number of them as
/// ALL literal has, draws \p notCharacters.
bool InspectCheck::checkOperand(Expression &operand, ErrorCode notCharacters) {
  if (!checker.semanticCheck(operand))
    return false;
  CharacterKind kind = characterKindOf(operand);
  if (kind == CharacterKind::None || isAllLiteral(operand))
    return checker.report(notCharacters, &operand);
  if (!areOfOneKind(kind, subjectKind))
    return checker.report(ErrorCode::InspectOperandCategoryDiffers, &operand);
  adaptFigurative(operand, subjectKind);
  return true;
}

/// What is replaced is as long as what it is replaced by. A figurative constant is one character in
/// the first place, and takes the size of the other operand in the second.
bool InspectCheck::checkPair(Expression &replaced, Expression &by, ErrorCode notCharacters) {
  bool replacedOk = checkOperand(replaced, notCharacters);
  if (!checkOperand(by, notCharacters) || !replacedOk)
    return false;
  if (llvm::isa<FigurativeLiteralExpression>(by))
    return true;
  std::optional<std::int64_t> replacedSize = characterCountOf(replaced);
  std::optional<std::int64_t> bySize = characterCountOf(by);
  if (replacedSize && bySize && *replacedSize != *bySize)
    return checker.report(ErrorCode::InspectReplacingSizeDiffers, &by);
  return true;
}

/// BEFORE and AFTER. A figurative constant does not stand for a DBCS character there.
bool InspectCheck::checkRegions(const NodeList<InspectRegion> &regions) {
  bool ok = true;
  for (InspectRegion *region : regions) {
    Expression &limit = *region->getExpr();
    if (!checkOperand(limit, ErrorCode::InspectRegionOperandKind))
      ok = false;
    else if (subjectKind == CharacterKind::Dbcs && llvm::isa<FigurativeLiteralExpression>(limit))
      ok = checker.report(ErrorCode::InspectDbcsFigurativeRegion, &limit);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// Phrases
//===----------------------------------------------------------------------===//

bool InspectCheck::checkCounter(IdentifierExpression &counter) {
  if (!checker.semanticCheck(counter))
    return false;
  if (counterFaultOf(counter) != CounterFault::None)
    return checker.report(ErrorCode::InspectTallyingNotInteger, &counter);
  return true;
}

bool InspectCheck::checkTallying(TallyingItem &item) {
  bool ok = checkCounter(*item.getIdentifier());
  for (TallyingItemFor *phrase : item.getTallyingForListElements()) {
    ok &= checkRegions(phrase->getInspectRegionListElements());
    for (TallyingRegion *tallied : phrase->getTallyingRegionListElements()) {
      ok &= checkOperand(*tallied->getExpr(), ErrorCode::InspectOperandCategoryDiffers);
      ok &= checkRegions(tallied->getRegionPhraseListElements());
    }
  }
  return ok;
}

bool InspectCheck::checkReplacing(ReplacingItem &item) {
  bool ok = true;
  // CHARACTERS are replaced one by one.
  if (Expression *by = item.getExpr()) {
    ok &= checkOperand(*by, ErrorCode::InspectOperandCategoryDiffers);
    if (ok && characterCountOf(*by).value_or(1) != 1)
      ok = checker.report(ErrorCode::InspectReplacingSizeDiffers, by);
  }
  ok &= checkRegions(item.getInspectRegionListElements());
  for (ReplacingRegion *replaced : item.getReplacingRegionListElements()) {
    ok &= checkPair(*replaced->getExpr(), *replaced->getByExpr(),
                    ErrorCode::InspectOperandCategoryDiffers);
    ok &= checkRegions(replaced->getRegionListElements());
  }
  return ok;
}

bool InspectCheck::checkConverting(ConvertingItem &item) {
  bool ok = checkPair(*item.getExpr(), *item.getToExpr(), ErrorCode::InspectConvertingInvalid);
  return checkRegions(item.getRegionListElements()) && ok;
}

} // namespace

bool SemanticChecker::semanticCheck(InspectStatement &statement) {
  return InspectCheck(*this, statement).check();
}

} // namespace tarka
