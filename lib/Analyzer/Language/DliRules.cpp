//===- DliRules.cpp - the functions of DL/I -------------------------------===//

#include "AST/NestedStatements.h"
#include "AST/Operands.h"
#include "AST/Procedure.h"
#include "AST/Spelling.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "EmbeddedRules.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

namespace {

/// The functions of EXEC DLI, abbreviated and in full.
constexpr llvm::StringLiteral commandFunctions[] = {
    "GU",         "GN",         "GNP",      "ISRT",       "REPL",
    "DLET",       "GET UNIQUE", "INSERT",   "DELETE",     "GET NEXT IN PARENT",
    "GET NEXT",   "REPLACE",    "SCHD",     "TERM",       "CHKP",
    "SCHEDULE",   "TERMINATE",  "POS",      "CHECKPOINT", "SYMCHKP",
    "XRST",       "LOAD",       "POSITION", "STAT",       "ROLB",
    "STATISTICS", "ROLL",       "ROLS",     "SETS",       "SETU",
    "ACCEPT",     "QUERY",      "REFRESH",  "LOG",        "DEQ",
    "INQY",       "RETRIEVE",   "ICMD",     "RCMD",       "GCMD",
    "GMSG",       "CMD",        "AUTH",     "CHNG",       "INIT",
    "PURG",
};

/// The functions of CALL.
constexpr llvm::StringLiteral callFunctions[] = {
    "GU",   "GHU",  "GN",   "GHN",  "GNP",  "GHNP", "ISRT", "REPL", "DLET", "FLD",
    "POS",  "OPEN", "CLSE", "CHKP", "XRST", "LOG",  "LOGZ", "STAT", "ROLB", "ROLL",
    "ROLS", "SETS", "SETU", "SETO", "SYNC", "INIT", "INQY", "AUTH", "CHNG", "CMD",
    "GCMD", "GMSG", "ICMD", "RCMD", "PURG", "APSB", "DPSB", "DEQ",  "GSCD", "CIMS",
    "SNAP", "PCB",  "TERM", "ICAL", "RLSE", "GUR",  "GB",   "GSAM", "ACK",  "BKO",
};

llvm::StringRef nearestIn(llvm::ArrayRef<llvm::StringLiteral> functions, llvm::StringRef name) {
  SpellingMatch match(name);
  for (llvm::StringRef function : functions)
    match.consider(function);
  return match.getNearest();
}

bool isCallFunction(llvm::StringRef function) {
  return llvm::is_contained(callFunctions, function);
}

/// Whether \p program is an interface module of DL/I.
bool isInterface(llvm::StringRef program) {
  return llvm::StringSwitch<bool>(program)
      .CasesLower("cbltdli", "aibtdli", "ceetdli", true)
      .Default(false);
}

/// The text of the VALUE of \p item in upper case; empty without one.
std::string valueOf(const DataDescription &item) {
  const ClauseValue *value = item.getValue();
  if (!value || value->getPhraseValElements().empty() || item.getLevelNum() == 88)
    return {};
  const auto *literal = llvm::dyn_cast_if_present<NonNumericLiteralExpression>(
      value->getPhraseValElements().front()->getLiteral1());
  return literal ? llvm::StringRef(literal->getData()).trim().upper() : std::string();
}

/// Finds out whether a program changes an item: some statement writes to it, to a group around it,
/// or to a redefinition of the record. DL/I itself does not change the function.
class ChangeSearch {
public:
  explicit ChangeSearch(const DataDescription &item) : sought(item) {}

  bool isChangedIn(Program &program) {
    for (SourceUnit *unit : program.getSourceUnitListElements())
      visit(*unit);
    return found;
  }

private:
  void visit(SourceUnit &unit) {
    if (ProcedureDivision *division = unit.getProcDivision())
      visit(*division);
    for (SourceUnit *nested : unit.getNestedListElements())
      visit(*nested);
  }
  void visit(ProcedureDivision &division) {
    auto sentences = [&](const auto &part) {
      for (Sentence *sentence : part.getSentElements())
        for (Statement *statement : sentence->getStmtElements())
          visitNested(*statement);
    };
    auto section = [&](const Section &part) {
      sentences(part);
      for (Paragraph *paragraph : part.getParaElements())
        sentences(*paragraph);
    };
    for (Declaratives *declarative : division.getDeclElements())
      section(*declarative->getSection());
    sentences(division);
    for (Paragraph *paragraph : division.getParaElements())
      sentences(*paragraph);
    for (Section *part : division.getSectElements())
      section(*part);
  }
  void visitNested(Statement &statement) {
    visit(statement);
    forEachNestedList(statement, [&](NodeRange<Statement> nested) {
      for (Statement *inner : nested)
        visitNested(*inner);
    });
  }
  void visit(Statement &statement) {
    const auto *call = llvm::dyn_cast<CallStatement>(&statement);
    const auto *name = llvm::dyn_cast_if_present<NonNumericLiteralExpression>(
        call ? call->getProcedureName() : nullptr);
    if (name && isInterface(name->getData()))
      return;
    if (auto *exec = llvm::dyn_cast<ExecStatement>(&statement)) {
      if (EmbeddedCommand *command = exec->getCommand())
        for (EmbeddedOperand *operand : command->getOperandElements())
          if (operand->isWritten() && operand->getValue())
            written(*operand->getValue());
      return;
    }
    forEachOperand(
        statement,
        [&](Expression &operand, OperandRole role) {
          if (isWritten(role))
            written(operand);
        },
        [](Condition &, OperandRole) {});
  }
  void written(const Expression &operand) {
    const auto *identifier = llvm::dyn_cast<IdentifierExpression>(&operand);
    const DataDescription *entry = identifier ? identifier->getDataDescription() : nullptr;
    if (!entry)
      return;
    for (const DataDescription *around = &sought; around; around = around->getParent())
      found |= around == entry;
    const DataDescription *object = entry->getRootDesc()->getRedefineObject();
    found |= object && object->getRootDesc() == sought.getRootDesc();
  }

  const DataDescription &sought;
  bool found = false;
};

} // namespace

void DliCheck::check(EmbeddedCommand &command) {
  llvm::StringRef name = command.getName();
  if (!llvm::is_contained(commandFunctions, name)) {
    report.report(LanguageRule::DliUnknownCommand, command, name,
                  suggestion(nearestIn(commandFunctions, name)));
    return;
  }
  for (EmbeddedOperand *operand : command.getOperandElements())
    if (operand->isWritten() && llvm::isa_and_present<LiteralExpression>(operand->getValue()))
      report.report(LanguageRule::CicsLiteralWritten, *operand->getValue(), operand->getName(),
                    name);
}

void DliCheck::check(CallStatement &call) {
  const auto *program =
      llvm::dyn_cast_if_present<NonNumericLiteralExpression>(call.getProcedureName());
  if (!program || !isInterface(program->getData()))
    return;
  // The number of the arguments may come first.
  auto argument = call.getArgumentListElements().begin();
  const auto end = call.getArgumentListElements().end();
  if (argument != end && (*argument)->getExpr() &&
      (*argument)->getExpr()->getDataCategory() == DataCategory::Numeric)
    ++argument;
  Expression *function = argument == end ? nullptr : (*argument)->getExpr();
  if (!function)
    return;
  if (const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(function))
    return reportFunction(*function, llvm::StringRef(literal->getData()).trim().upper());
  const DataDescription *item = entryOfDataIdentifier(*function);
  if (!item)
    return;
  std::string value = valueOf(*item);
  if (!value.empty() && !isCallFunction(value) && item->getStorageType() != StorageType::Linkage)
    suspects.push_back({function, item, report.getUnit(), std::move(value)});
}

void DliCheck::finish(Program &program) {
  for (Suspect &suspect : suspects)
    if (!ChangeSearch(*suspect.item).isChangedIn(program)) {
      report.setUnit(*suspect.unit);
      reportFunction(*suspect.argument, suspect.function);
    }
}

void DliCheck::reportFunction(Expression &argument, llvm::StringRef function) {
  if (!isCallFunction(function))
    report.report(LanguageRule::DliUnknownFunction, argument, function,
                  suggestion(nearestIn(callFunctions, function)));
}

} // namespace tarka
