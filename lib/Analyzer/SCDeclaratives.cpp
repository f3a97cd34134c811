//===- SCDeclaratives.cpp - declaratives and USE --------------------------===//
//
// What a USE statement names: files, groups of a report, procedures to debug.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/Support/SaveAndRestore.h"

namespace tarka {

namespace {

/// Whether the procedures of \p use need files with labels.
bool needsLabels(const UseStatement &use) {
  return use.getTimingType() == UseTimingType::AfterLabel ||
         use.getTimingType() == UseTimingType::BeforeLabel ||
         !followsEnterprise(EnterpriseRule::UseOfUnlabelledFile);
}

bool checkUseFile(SemanticChecker &checker, const UseStatement &use, IdentifierExpression &name) {
  if (!checker.semanticCheck(name))
    return false;
  const auto *fileName = llvm::dyn_cast<FileIdentifierExpression>(&name);
  if (!fileName)
    return true;
  bool ok = true;
  const FileDescription *file = fileName->getFileDescription();
  if (file->getType() == FileDescType::SortMerge)
    ok = checker.report(ErrorCode::UseSortMergeFile, &name);
  if (const ClauseLabel *label = file->getLabel();
      label && label->getType() == LabelType::Omitted && needsLabels(use))
    ok = checker.report(ErrorCode::UseLabelOmittedFile, &name);
  return ok;
}

/// The groups of USE BEFORE REPORTING. The declaratives of a report are numbered from 1 in the
/// order of the source.
bool checkUseReporting(SemanticChecker &checker, UseStatement &use) {
  if (use.getReportListSize() == 0)
    return false;
  for (IdentifierExpression *name : use.getReportListElements()) {
    if (!checker.semanticCheck(*name))
      return false;
    auto *group = llvm::dyn_cast_or_null<ReportDataDescription>(name->getDataDescription());
    if (!group)
      return checker.report(ErrorCode::StatementInvalid, name);
    ReportDescription *description = group->getReportDescription();
    checker.setCurrentRD(description);
    int index = description->getDeclIndexCnt() + 1;
    group->setDeclIndex(index);
    description->setDeclIndexCnt(index);
  }
  return true;
}

/// The procedures of USE FOR DEBUGGING: sections first, then paragraphs.
bool checkUseProcedures(SemanticChecker &checker, UseStatement &use) {
  bool ok = true;
  auto *procedures = makeList<UseProcedure *>();
  for (Word *word : use.getProcedureListElements()) {
    auto *name = generate<QualifiedWord>(word);
    name->addNames(word);
    Section *section = checker.findSectionFromQualWord(name, nullptr);
    Paragraph *paragraph = section ? nullptr : checker.findParagraphFromQualWord(name, nullptr);
    if (!section && !paragraph) {
      ok = false;
      continue;
    }
    auto *procedure = generate<UseProcedure>(word);
    procedure->setSection(section);
    procedure->setParagraph(paragraph);
    procedures->push_back(procedure);
  }
  use.setUseProcedureList(procedures);
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(Declaratives &declarative) {
  // USE BEFORE REPORTING sets the report for the section that follows it.
  const llvm::SaveAndRestore reportScope(state->currentReport);
  bool ok = true;
  if (UseStatement *use = declarative.getUseStmt()) {
    setIsDeclaratives(true);
    ok &= semanticCheck(*use);
  }
  if (Section *section = declarative.getSection()) {
    const llvm::SaveAndRestore outer(state->outerSection, section);
    const llvm::SaveAndRestore flag(state->inDeclaratives, true);
    ok &= semanticCheck(*section);
    // Control returns from a declarative as from a performed section.
    section->setIsPerformThru(true);
  }
  return ok;
}

bool SemanticChecker::semanticCheck(UseStatement &use) {
  bool ok = true;
  if (use.getTimingType() == UseTimingType::BeforeReporting) {
    setIsDeclaratives(false);
    if (!checkUseReporting(*this, use))
      return false;
  } else if (use.getFileListSize() != 0) {
    if (use.getTimingType() == UseTimingType::ForDebugging &&
        !followsEnterprise(EnterpriseRule::UseDebuggingFile))
      ok = report(ErrorCode::UseDebuggingWithFileName, &use);
    for (IdentifierExpression *name : use.getFileListElements())
      ok &= checkUseFile(*this, use, *name);
  }
  if (use.getProcedureListSize() != 0)
    ok &= checkUseProcedures(*this, use);
  return ok;
}

} // namespace tarka
