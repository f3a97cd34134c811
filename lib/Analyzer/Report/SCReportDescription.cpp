//===- SCReportDescription.cpp - report descriptions and their groups -----===//
//
// One RD: its clauses, its groups by their type, and the lines and columns that
// the groups are made of. The entries of a group are data description entries
// first, and pass the checks of those; what each of them shows is checked in
// SCReportEntry.cpp.
//
//===----------------------------------------------------------------------===//

#include "AST/DataTree.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Report/ReportCheck.h"
#include "llvm/Support/SaveAndRestore.h"

namespace tarka {

namespace {

/// Calls \p visit for every entry of the report, in source order.
template <typename Visitor> void forEachReportEntry(ReportDescription &report, Visitor visit) {
  for (ReportDataDescription *group : report.getRecordListElements())
    forEachEntry(group, [&](DataDescription *entry) {
      if (auto *reportEntry = llvm::dyn_cast<ReportDataDescription>(entry))
        visit(*reportEntry);
    });
}

} // namespace

//===----------------------------------------------------------------------===//
// Numbers and names of clauses
//===----------------------------------------------------------------------===//

bool checkReportNumber(SemanticChecker &checker, Expression *number, bool isRelative) {
  if (!number)
    return true;
  if (!checker.semanticCheck(*number))
    return false;
  auto *literal = llvm::dyn_cast<NumericLiteralExpression>(number);
  if (!literal)
    return number->isInteger() || checker.report(ErrorCode::LinageNotUnsigned, number);
  if (literal->isSigned())
    return checker.report(ErrorCode::LinageNotUnsigned, number);
  if (!literal->isInteger() || (literal->getIntegerValue() == 0 && !isRelative))
    return checker.report(ErrorCode::LinageNotInteger, number);
  return true;
}

bool checkControlName(SemanticChecker &checker, IdentifierExpression &name) {
  if (!checker.semanticCheck(name))
    return false;
  // A condition name has no value that could change.
  const DataDescription *item = name.getDataDescription();
  if (item && item->getLevelNum() == 88)
    return checker.report(ErrorCode::LabelNotDataItem, &name);
  return true;
}

bool checkVarying(SemanticChecker &checker, const std::list<VaryingPhrase *> *phrases) {
  bool ok = true;
  if (phrases)
    for (const VaryingPhrase *phrase : *phrases)
      for (Expression *bound : {phrase->getFromExpr(), phrase->getByExpr()})
        if (bound)
          ok &= checker.semanticCheck(*bound);
  return ok;
}

//===----------------------------------------------------------------------===//
// The clauses of the RD
//===----------------------------------------------------------------------===//

namespace {

bool checkControls(SemanticChecker &checker, const ClauseControl &clause) {
  bool ok = true;
  for (IdentifierExpression *name : clause.getControlIdListElements())
    ok &= checkControlName(checker, *name);
  return ok;
}

/// A literal, a data item, or a mnemonic name, which the data division does not define.
bool checkCode(SemanticChecker &checker, Expression &code) {
  auto *name = llvm::dyn_cast<DataIdentifierExpression>(&code);
  if (!name || name->getQualifiedWord()->getNamesSize() > 1)
    return checker.semanticCheck(code);
  return checker.semanticCheck(*name, /*silentIfUndefined=*/true) ||
         currentScope().findMnemonicName(
             &(*name->getQualifiedWord()->getNamesBegin())->getWordData()) ||
         checker.report(ErrorCode::MnemonicNameUndefined, name);
}

bool checkPageLimit(SemanticChecker &checker, const ClausePageLimit &page) {
  bool ok = true;
  for (Expression *number :
       {page.getPageLimit(), page.getColumns(), page.getHeading(), page.getFirstDetail(),
        page.getLastControlHeading(), page.getLastDetail(), page.getFooting()})
    ok &= checkReportNumber(checker, number);
  return ok;
}

/// Of several reports of one name, each but the first is reported.
bool checkReportName(SemanticChecker &checker, ReportDescription &report) {
  DataDivision *division = currentUnit()->getDataDivision();
  Word *name = report.getReportName();
  if (!division || division->findReports(name->getWordData()).front() == &report)
    return true;
  return checker.report(ErrorCode::IdentifierNotUnique, name, name->getWordData().c_str());
}

bool checkDescriptionClauses(SemanticChecker &checker, ReportDescription &report) {
  bool ok = checkReportName(checker, report);
  if (const ClauseControl *control = report.getControlClause())
    ok &= checkControls(checker, *control);
  if (const ClauseCode *code = report.getCodeClause())
    ok &= checkCode(checker, *code->getCodeExpr());
  if (const ClausePageLimit *page = report.getPageLimitClause())
    ok &= checkPageLimit(checker, *page);
  if (const ClauseLineLimit *limit = report.getLineLimitClause())
    ok &= checkReportNumber(checker, limit->getLineLimitExpr());
  if (const ClauseOverflow *overflow = report.getOverflowClause())
    if (overflow->getLiteral())
      ok &= checker.semanticCheck(*overflow->getLiteral());
  return ok;
}

//===----------------------------------------------------------------------===//
// Entries as data
//===----------------------------------------------------------------------===//

/// Makes entries for the counters of VARYING that the program does not describe, so that the
/// operands of SOURCE can be subscripted by them.
void createCounters(SemanticChecker &checker, const std::list<VaryingPhrase *> *phrases) {
  DataDivision *division = currentUnit()->getDataDivision();
  if (!phrases || !division)
    return;
  for (const VaryingPhrase *phrase : *phrases) {
    const auto *known = division->findItemByName(phrase->getName()->getWordData());
    if (known && !known->empty())
      continue;
    auto *counter = generate<DataDescription>(nullptr);
    counter->setLevelNum(77);
    counter->setDataName(phrase->getName());
    counter->setPicture(generate<ClausePicture>(nullptr, generate<Word>(nullptr, "S9(9)", "")));
    counter->setUsage(generate<ClauseUsage>(nullptr, UsageType::Binary));
    counter->setIsCompilerMade(true);
    division->addWorkSection(counter);
    checker.semanticCheck(*counter);
  }
}

/// Only characters can be printed. National and DBCS characters are allowed, although the message
/// names DISPLAY only.
bool isPrintable(UsageType usage) {
  return usage == UsageType::Display || usage == UsageType::Display1 ||
         usage == UsageType::National;
}

/// Prepares an entry for the checks of data description entries: copies the clauses that both have.
bool prepareEntry(SemanticChecker &checker, ReportDataDescription &entry) {
  if (const ClauseReportOccurs *occurs = entry.getReportOccursClause()) {
    entry.setOccurs(occurs->getOccurs());
    createCounters(checker, occurs->getVaryingList());
  }
  if (const ClauseLine *line = entry.getLineClause())
    createCounters(checker, line->getVaryingList());
  if (const ClauseReportSign *sign = entry.getReportSignClause(); sign && entry.getPicture())
    entry.setSign(sign->getSign());
  if (const ClauseUsage *usage = entry.getUsage(); usage && !isPrintable(usage->getType()))
    return checker.report(ErrorCode::ReportUsageNotDisplay, &entry);
  return true;
}

//===----------------------------------------------------------------------===//
// Groups
//===----------------------------------------------------------------------===//

/// Adds a group to the list of its type.
void sortGroup(ReportDescription &report, ReportDataDescription *group) {
  const ClauseType *type = group->getTypeClause();
  switch (type ? type->getTypeOption() : ReportGroupType::None) {
  case ReportGroupType::ReportHeading:
    return report.addRHDesc(group);
  case ReportGroupType::PageHeading:
    return report.addPHDesc(group);
  case ReportGroupType::ControlHeading:
    return report.addCHDesc(group);
  case ReportGroupType::Detail:
    return report.addDEDesc(group);
  case ReportGroupType::ControlFooting:
    return report.addCFDesc(group);
  case ReportGroupType::PageFooting:
    return report.addPFDesc(group);
  case ReportGroupType::ReportFooting:
    return report.addRFDesc(group);
  case ReportGroupType::None:
    return;
  }
}

/// The controls of a control heading or footing. ALL stands for every control of the report; a
/// report with a single control need not name it again.
bool settleControls(SemanticChecker &checker, const ReportDescription &report, ClauseType &type) {
  bool ok = true;
  for (IdentifierExpression *name : type.getControlIdListElements())
    ok &= checkControlName(checker, *name);

  const bool isOfControl = type.getTypeOption() == ReportGroupType::ControlHeading ||
                           type.getTypeOption() == ReportGroupType::ControlFooting;
  const ClauseControl *controls = report.getControlClause();
  if (!isOfControl || !controls || type.getReportFinal() || type.getControlIdListSize() != 0)
    return ok;
  const bool hasFinal = controls->getControlOption() == ControlOption::Final;
  if (!type.isAll() && controls->getControlIdListSize() + hasFinal != 1)
    return ok;
  type.setReportFinal(hasFinal);
  for (IdentifierExpression *control : controls->getControlIdListElements())
    type.addControlId(control);
  return ok;
}

//===----------------------------------------------------------------------===//
// Lines and columns
//===----------------------------------------------------------------------===//

/// The entry with LINE that \p entry is or stands below; null when there is none.
ReportDataDescription *lineOf(DataDescription *entry) {
  for (; entry; entry = entry->getParent())
    if (auto *line = llvm::dyn_cast<ReportDataDescription>(entry); line && line->getLineClause())
      return line;
  return nullptr;
}

/// The line number of an entry with a single absolute line; 0 otherwise.
long long absoluteLine(const ReportDataDescription &entry) {
  const ClauseLine &clause = *entry.getLineClause();
  if (clause.isRelative() || clause.getNumbersListSize() != 1)
    return 0;
  auto *literal = llvm::dyn_cast<NumericLiteralExpression>(clause.getNumbersListElements().front());
  return literal ? literal->getIntegerValue() : 0;
}

/// Appends a line to its group. A line above the one before it is swapped with that one.
void addLine(ReportDataDescription &group, ReportDataDescription &line) {
  ReportDataDescription *previous =
      group.getLineDescListSize() ? group.getLineDescListElements().back() : nullptr;
  line.setCurrHeadDesc(&line);
  line.setPrevHeadDesc(previous);
  group.addLineDesc(&line);
  if (!previous)
    return;
  const long long number = absoluteLine(line);
  if (number != 0 && number < absoluteLine(*previous) && !line.getLineClause()->getNextPage())
    group.swapLineDesc();
}

/// TYPE is allowed only at the top of a group, LINE not below another LINE, and COLUMN only at or
/// below a LINE.
bool checkStructure(SemanticChecker &checker, ReportDataDescription &group,
                    ReportDataDescription &entry) {
  bool ok = true;
  if (&entry != &group && entry.getTypeClause())
    ok = checker.report(ErrorCode::LevelHierarchyIncorrect, &entry);
  if (entry.getLineClause()) {
    if (lineOf(entry.getParent()))
      return checker.report(ErrorCode::LevelHierarchyIncorrect, &entry);
    addLine(group, entry);
  }
  ReportDataDescription *line = lineOf(&entry);
  entry.setCurrLineDesc(line);
  if (line && line != &entry) {
    entry.setCurrHeadDesc(line);
    entry.setPrevHeadDesc(line->getPrevHeadDesc());
  }
  if (!entry.getColumnClause())
    return ok;
  if (!line)
    return checker.report(ErrorCode::LevelHierarchyIncorrect, &entry);
  line->addColDesc(&entry);
  return ok;
}

} // namespace

//===----------------------------------------------------------------------===//
// One report
//===----------------------------------------------------------------------===//

/// While the report is current, every data item that is bound is noted as used by it.
bool SemanticChecker::semanticCheck(ReportDescription &description) {
  const llvm::SaveAndRestore current(state->currentReport, &description);
  bool ok = checkDescriptionClauses(*this, description);

  // Entries may name later ones, so all of them are checked as data first.
  forEachReportEntry(description,
                     [&](ReportDataDescription &entry) { ok &= prepareEntry(*this, entry); });
  for (ReportDataDescription *group : description.getRecordListElements())
    ok &= semanticCheck(static_cast<DataDescription &>(*group));

  for (ReportDataDescription *group : description.getRecordListElements()) {
    // The groups of a GLOBAL report are GLOBAL. They are marked after the check of the GLOBAL
    // clause, because two such reports may have groups of the same name.
    group->setGlobal(description.getGlobal());
    sortGroup(description, group);
    if (ClauseType *type = group->getTypeClause())
      ok &= settleControls(*this, description, *type);
    forEachEntry(group, [&](DataDescription *entry) {
      if (auto *reportEntry = llvm::dyn_cast<ReportDataDescription>(entry)) {
        ok &= checkStructure(*this, *group, *reportEntry);
        ok &= checkReportEntry(*this, *reportEntry);
      }
    });
  }
  return ok;
}

} // namespace tarka
