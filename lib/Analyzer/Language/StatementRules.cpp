//===- StatementRules.cpp - parameters, other rules of one statement ------===//

#include "AST/Procedure.h"
#include "AST/StatementVisitor.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/SmallPtrSet.h"

namespace tarka {

namespace {

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

void checkParameters(ProcedureDivision &division, LanguageReport &report) {
  llvm::SmallPtrSet<const DataDescription *, 8> parameters;
  auto check = [&](Expression *item) {
    auto *identifier = llvm::dyn_cast_or_null<DataIdentifierExpression>(item);
    const DataDescription *entry = identifier ? identifier->getDataDescription() : nullptr;
    if (!entry || !entry->getDataName())
      return false;
    const bool isRecord = entry->getLevelNum() == 1 || entry->getLevelNum() == 77;
    if (!isRecord || entry->getStorageType() != StorageType::Linkage)
      report.report(LanguageRule::ParameterNotLinkageRecord, *item,
                    entry->getDataName()->getDisplayName());
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
