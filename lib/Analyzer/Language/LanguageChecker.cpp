//===- LanguageChecker.cpp - the walk of the second pass ------------------===//

#include "Analyzer/LanguageChecker.h"
#include "AST/NestedStatements.h"
#include "AST/Procedure.h"
#include "AST/Program.h"
#include "Analyzer/SentenceWalk.h"
#include "EmbeddedRules.h"
#include "LanguageFamilies.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallPtrSet.h"

namespace tarka {

namespace {

constexpr LanguageRuleInfo ruleTable[] = {
#define LANGUAGE_RULE(name, number, severity, format) {number, #name, Severity::severity, format},
#include "Analyzer/LanguageRules.def"
};

} // namespace

llvm::ArrayRef<LanguageRuleInfo> languageRules() {
  return ruleTable;
}

LanguageReport::LanguageReport(const EarlierDiagnostics &earlier)
    : treeIncomplete(!earlier.isTreeComplete) {
  reported.reserve(earlier.places.size());
  for (const SourceRange &place : earlier.places)
    reported.emplace_back(place.file, place.beginLine, place.beginColumn);
  llvm::sort(reported);
}

bool LanguageReport::isReported(const Node &node) const {
  const SourceRange &range = node.getRange();
  auto next = llvm::lower_bound(reported, Place(range.file, range.beginLine, range.beginColumn));
  return next != reported.end() && *next <= Place(range.file, range.endLine, range.endColumn);
}

namespace {

class LanguageWalk {
public:
  explicit LanguageWalk(LanguageReport &languageReport)
      : report(languageReport), embedded(languageReport) {}

  void check(SourceUnit &unit) {
    report.setUnit(unit);
    current = &unit;
    if (const ParaSpecialNames *names = unit.getSpecialNames())
      checkSpecialNames(*names, report);
    checkFileControl(unit, report);
    if (DataDivision *division = unit.getDataDivision()) {
      checkFileDescriptions(*division, report);
      checkRecords(*division, report);
      checkVariableTables(*division, report);
      checkReportEntries(*division, report);
    }
    for (ExecStatement *block : unit.getDataBlockElements())
      embedded.check(*block, unit);
    if (ProcedureDivision *division = unit.getProcDivision())
      check(*division);
    files.finish(report);
    for (SourceUnit *nested : unit.getNestedListElements())
      check(*nested);
  }

  /// Checks what depends on the whole compilation, when all programs have been given.
  void finish(Program &program) { embedded.finish(program); }

private:
  void check(ProcedureDivision &division) {
    // Of a damaged source the header of the linkage section may be missing.
    if (!report.isTreeIncomplete())
      checkParameters(division, report);
    // What a declarative performs has been copied; it is checked where it is written.
    const NodeList<Section> &renamed = division.getRenameSectionListElements();
    const llvm::SmallPtrSet<const Section *, 4> copies(renamed.begin(), renamed.end());
    bool isUseMissing = true;
    for (Declaratives *declarative : division.getDeclElements()) {
      Section &section = *declarative->getSection();
      if (copies.contains(&section))
        continue;
      // A section without USE belongs to the one before it.
      isUseMissing &= !declarative->getUseStmt();
      if (isUseMissing && !report.isTreeIncomplete())
        report.report(LanguageRule::DeclarativeWithoutUse, *section.getSectionName(),
                      section.getSectionName()->getDisplayName());
      check(section);
    }
    sentences(division.getSentElements(), {});
    for (Paragraph *paragraph : division.getParaElements())
      sentences(paragraph->getSentElements(), {.inParagraph = true});
    for (Section *section : division.getSectElements())
      check(*section);
  }

  void check(Section &section) {
    sentences(section.getSentElements(), {.inSection = true});
    for (Paragraph *paragraph : section.getParaElements())
      sentences(paragraph->getSentElements(), {.inSection = true, .inParagraph = true});
  }

  void sentences(const NodeList<Sentence> &list, const StatementContext &context) {
    forEachSentence(list, [&](const Sentence *sentence) {
      for (Statement *statement : sentence->getStmtElements())
        check(*statement, context);
    });
  }

  void check(Statement &statement, const StatementContext &context) {
    checkOperands(statement, report);
    checkFileStatement(statement, files, report);
    checkStatement(statement, context, report);
    if (auto *block = llvm::dyn_cast<ExecStatement>(&statement))
      embedded.check(*block, *current);
    else if (auto *call = llvm::dyn_cast<CallStatement>(&statement))
      embedded.check(*call);
    forEachNestedList(statement, [&](NodeRange<Statement> nested) {
      for (Statement *inner : nested)
        check(*inner, context);
    });
  }

  LanguageReport &report;
  EmbeddedCheck embedded;
  FileUsage files;
  SourceUnit *current = nullptr;
};

} // namespace

std::vector<ErrorEntry> checkLanguage(Program &program, const EarlierDiagnostics &earlier) {
  LanguageReport report(earlier);
  LanguageWalk walk(report);
  for (SourceUnit *unit : program.getSourceUnitListElements())
    walk.check(*unit);
  walk.finish(program);
  return report.takeEntries();
}

} // namespace tarka
