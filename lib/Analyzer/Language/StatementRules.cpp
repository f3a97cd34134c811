//===- StatementRules.cpp - parameters, other rules of one statement ------===//

#include "AST/Procedure.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/SmallPtrSet.h"

namespace tarka {

namespace {

std::string nameOf(const DataDescription &entry) {
  return entry.getDataName() ? entry.getDataName()->getDisplayName() : "FILLER";
}

bool isLinkageRecord(const DataDescription &entry) {
  return (entry.getLevelNum() == 1 || entry.getLevelNum() == 77) &&
         entry.getStorageType() == StorageType::Linkage;
}

/// A literal or figurative constant whose value is zero.
bool isZero(const Expression &operand) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&operand))
    return llvm::StringRef(number->getData()).find_first_not_of("+-.0") == llvm::StringRef::npos;
  const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&operand);
  return constant && constant->getFigurativeType() == FigurativeType::Zero;
}

class StatementCheck : public StatementVisitor<StatementCheck> {
public:
  StatementCheck(const StatementContext &statementContext, LanguageReport &languageReport)
      : context(statementContext), report(languageReport) {}

  void visitMoveStatement(MoveStatement &statement) {
    if (statement.isCorresponding())
      checkGroup(statement.getSource());
    for (IdentifierExpression *target : statement.getTargetListElements()) {
      checkReceiver(*target);
      if (statement.isCorresponding())
        checkGroup(target);
    }
  }

  void visitDivideStatement(DivideStatement &statement) {
    if (Expression *divisor =
            statement.getByExpr() ? statement.getByExpr() : statement.getOperand();
        divisor && statement.getSizeErrorHandlerSize() == 0)
      checkDivisor(*divisor, report);
  }

  void visitEvaluateStatement(EvaluateStatement &statement) { checkRanges(statement, report); }

  void visitPerformStatement(PerformStatement &statement) {
    if (const PerformProcedure *range = statement.getProcedureName())
      checkRange(*range);
    for (const PerformVarying *phrase : statement.getPhraseListElements())
      checkStep(*phrase);
  }

  /// The table and its keys.
  void visitSortTableStatement(SortTableStatement &statement) {
    auto parts = statement.getPartListElements();
    const DataDescription *table = parts.empty() ? nullptr : entryOfDataIdentifier(*parts.front());
    if (!table || isUnknown(*parts.front()))
      return;
    if (!table->getOccurs()) {
      report.report(LanguageRule::SortOfNoTable, *parts.front(), nameOf(*table));
      return;
    }
    for (Expression *key : parts) {
      const DataDescription *entry = entryOfDataIdentifier(*key);
      if (!entry || isUnknown(*key))
        continue;
      const DataDescription *group = entry;
      while (group && group != table)
        group = group->getParent();
      if (!group)
        report.report(LanguageRule::SortKeyOutsideTable, *key, nameOf(*entry), nameOf(*table));
    }
  }

  void visitAllocateStatement(AllocateStatement &statement) {
    for (Expression *item : statement.getPartListElements())
      if (const DataDescription *entry = entryOfDataIdentifier(*item);
          entry && !isUnknown(*item) && !isLinkageRecord(*entry))
        report.report(LanguageRule::AllocateNotLinkage, *item, nameOf(*entry));
    if (statement.getSourceListSize() > 0 && statement.getReceiverListSize() == 0)
      report.report(LanguageRule::AllocateNeedsReturning, statement);
    for (Expression *pointer : statement.getReceiverListElements())
      checkPointer(*pointer, "RETURNING of ALLOCATE");
  }

  void visitFreeStatement(FreeStatement &statement) {
    for (Expression *pointer : statement.getReceiverListElements())
      checkPointer(*pointer, "FREE");
  }

  void visitExitSectionStatement(ExitSectionStatement &statement) {
    if (!context.inSection)
      report.report(LanguageRule::ExitOutsideProcedure, statement, "SECTION", "section");
  }
  void visitExitParagraphStatement(ExitParagraphStatement &statement) {
    if (!context.inParagraph)
      report.report(LanguageRule::ExitOutsideProcedure, statement, "PARAGRAPH", "paragraph");
  }

  /// Its check fails without a message, so that no graph is made.
  void visitAlterStatement(AlterStatement &statement) {
    report.report(LanguageRule::AlterNotAnalysed, statement);
  }

private:
  void checkPointer(Expression &operand, llvm::StringRef what) {
    const DataDescription *entry = entryOfDataIdentifier(operand);
    if (entry && !isUnknown(operand) && entry->getUsageType() != UsageType::Pointer)
      report.report(LanguageRule::PointerNeeded, operand, nameOf(*entry), what);
  }

  void checkStep(const PerformVarying &phrase) {
    auto *step = llvm::dyn_cast_or_null<NumericLiteralExpression>(phrase.getByIdentifier());
    const DataDescription *varied = phrase.getVaryingIdentifier()
                                        ? entryOfDataIdentifier(*phrase.getVaryingIdentifier())
                                        : nullptr;
    if (!step || !varied)
      return;
    if (isZero(*step))
      report.report(LanguageRule::StepIsZero, *step, nameOf(*varied));
    else if (isIndexName(*varied) && !step->isInteger())
      report.report(LanguageRule::StepOfIndexNotInteger, *step, nameOf(*varied), step->getData());
  }

  /// The last procedure stands before the first one, so that only GO TO can lead to its end. A
  /// section that a paragraph is performed through can be the one around it.
  void checkRange(const PerformProcedure &range) {
    const Node *first = range.getBeginParagraph();
    const Node *last = range.getThruParagraph();
    if (!first && (last || range.getThruSection()))
      first = range.getBeginSection();
    if (!last && !range.getBeginParagraph())
      last = range.getThruSection();
    if (!first || !last || !range.getProcedureName2() ||
        first->getRange().file != last->getRange().file ||
        last->getRange().beginLine >= first->getRange().beginLine)
      return;
    auto nameOfProcedure = [](const QualifiedWord &name) -> const std::string & {
      return name.getNamesElements().front()->getDisplayName();
    };
    report.report(LanguageRule::PerformRangeReversed, *range.getProcedureName2(),
                  nameOfProcedure(*range.getProcedureName2()),
                  nameOfProcedure(*range.getProcedureName1()));
  }

  void checkReceiver(IdentifierExpression &target) {
    auto *special = llvm::dyn_cast<SpecialRegisterIdentifierExpression>(&target);
    if (!special || special->getType() != SpecialRegisterType::LengthOf)
      return;
    if (const DataDescription *entry = special->getDataDescription(); entry && entry->getDataName())
      report.report(LanguageRule::LengthOfAsReceiver, target,
                    entry->getDataName()->getDisplayName());
  }

  void checkGroup(Expression *operand) {
    const DataDescription *entry = operand ? entryOfDataIdentifier(*operand) : nullptr;
    if (entry && entry->getDataName() && !isUnknown(*operand) && !isGroupItem(*operand))
      report.report(LanguageRule::CorrespondingNotGroup, *operand,
                    entry->getDataName()->getDisplayName());
  }

  const StatementContext &context;
  LanguageReport &report;
};

} // namespace

void checkDivisor(Expression &divisor, LanguageReport &report) {
  const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&divisor);
  if (isZero(divisor))
    report.report(LanguageRule::DivisionByZero, divisor, number ? number->getData() : "ZERO");
}

void checkParameters(ProcedureDivision &division, LanguageReport &report) {
  llvm::SmallPtrSet<const DataDescription *, 8> parameters;
  // Several that are wrong have one cause, most often a lost header of the linkage section.
  bool isReported = false;
  auto check = [&](Expression *item) {
    auto *identifier = llvm::dyn_cast_or_null<DataIdentifierExpression>(item);
    const DataDescription *entry = identifier ? identifier->getDataDescription() : nullptr;
    if (!entry || !entry->getDataName())
      return false;
    const bool isUsable = isLinkageRecord(*entry);
    if (!isUsable && !isReported)
      report.report(LanguageRule::ParameterNotLinkageRecord, *item,
                    entry->getDataName()->getDisplayName());
    isReported |= !isUsable;
    return true;
  };
  for (Parameter *parameter : division.getParameterElements()) {
    Expression *item = parameter->getExpr();
    if (check(item) && !parameters.insert(entryOfDataIdentifier(*item)).second)
      report.report(LanguageRule::ParameterRepeated, *item,
                    entryOfDataIdentifier(*item)->getDataName()->getDisplayName());
  }
  if (const Returning *returning = division.getReturning())
    check(returning->getReturnItem());
}

void checkStatement(Statement &statement, const StatementContext &context, LanguageReport &report) {
  StatementCheck(context, report).visit(statement);
}

} // namespace tarka
