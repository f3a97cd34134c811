//===- SCStmtExamine.cpp - EXAMINE of OS/VS COBOL -------------------------===//
//
// EXAMINE counts and replaces characters of an item: a MOVE to TALLY and an INSPECT.
//
//===----------------------------------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Statement/OsvsMaker.h"

namespace tarka {

namespace {

/// In EXAMINE, digits are written as a number, in INSPECT as characters.
Expression *asCharacters(Expression *operand) {
  auto *number = llvm::dyn_cast_if_present<NumericLiteralExpression>(operand);
  if (!number || !number->isInteger() || number->isSigned())
    return operand;
  return generate<NonNumericLiteralExpression>(number, quotedText(number->getData()));
}

/// The INSPECT that is equivalent to the EXAMINE; \p counter is null where nothing is counted.
class ExamineConverter {
public:
  explicit ExamineConverter(ExamineStatement &theStatement)
      : statement(theStatement),
        subject(llvm::cast<IdentifierExpression>(statement.getExamineExpr())),
        sought(asCharacters(statement.getOptExpr())), by(asCharacters(statement.getByExpr())) {}

  InspectStatement *make(IdentifierExpression *counter, bool replaces) {
    auto *inspect = generate<InspectStatement>(&statement, subject, nullptr, nullptr, nullptr);
    if (counter)
      inspect->addTallying(tallying(counter));
    if (replaces)
      inspect->addReplacing(replacing());
    return inspect;
  }

private:
  bool isUntilFirst() const { return statement.getOptionType() == ExamineOptionType::UntilFirst; }
  bool isLeading() const { return statement.getOptionType() == ExamineOptionType::Leading; }

  /// Everything before the first one: UNTIL FIRST.
  NodeList<InspectRegion> untilFirst() {
    return {generate<InspectRegion>(&statement, InspRegType::Before, sought)};
  }

  TallyingItem *tallying(IdentifierExpression *counter) {
    TallyingItemFor *phrase = nullptr;
    if (isUntilFirst()) {
      NodeList<InspectRegion> regions = untilFirst();
      phrase = generate<TallyingItemFor>(&statement, InspTailType::Characters, &regions, nullptr);
    } else {
      phrase = generate<TallyingItemFor>(
          &statement, isLeading() ? InspTailType::Leading : InspTailType::All, nullptr, nullptr);
      phrase->addTallyingRegion(generate<TallyingRegion>(&statement, sought, nullptr));
    }
    NodeList<TallyingItemFor> phrases{phrase};
    return generate<TallyingItem>(&statement, counter, &phrases);
  }

  ReplacingItem *replacing() {
    if (isUntilFirst()) {
      NodeList<InspectRegion> regions = untilFirst();
      return generate<ReplacingItem>(&statement, InspReplType::Characters, by, &regions, nullptr);
    }
    InspReplType which = isLeading() ? InspReplType::Leading : InspReplType::All;
    if (statement.getOptionType() == ExamineOptionType::First)
      which = InspReplType::First;
    auto *item = generate<ReplacingItem>(&statement, which, nullptr, nullptr, nullptr);
    item->addReplacingRegion(generate<ReplacingRegion>(&statement, sought, by, nullptr));
    return item;
  }

  ExamineStatement &statement;
  IdentifierExpression *subject;
  Expression *sought;
  Expression *by;
};

} // namespace

/// EXAMINE counts in TALLY, which it sets to zero first.
bool SemanticChecker::semanticCheck(ExamineStatement &statement) {
  if (!llvm::isa<IdentifierExpression>(statement.getExamineExpr()))
    return report(ErrorCode::InspectIdentifierType, statement.getExamineExpr());
  OsvsMaker make(*this, statement);
  ExamineConverter convert(statement);
  bool counts = statement.getExamType() != ExamineType::Replacing;
  bool replaces = statement.getExamType() != ExamineType::Tallying;
  if (counts)
    statement.setMoveStmt(make.move(make.zero(), make.reference("TALLY")));
  statement.setInspectStmt(convert.make(counts ? make.reference("TALLY") : nullptr, replaces));

  // Replacing names every operand, and counting only some of them again.
  IdentifierExpression *counter = replaces ? nullptr : make.reference("TALLY");
  return semanticCheck(*convert.make(counter, replaces));
}

} // namespace tarka
