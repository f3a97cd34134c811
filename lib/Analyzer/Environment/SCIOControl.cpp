//===- SCIOControl.cpp - I-O-CONTROL -------------------------------------===//
//
// The files that RERUN, SAME, MULTIPLE FILE and APPLY WRITE ONLY name.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

bool SemanticChecker::semanticCheck(ParaIOControl &entry) {
  bool ok = true;
  if (entry.getRerun())
    ok &= checkClauseRerun(entry);
  if (entry.getSame())
    ok &= checkClauseSame(entry);
  if (entry.getMultipleFile())
    ok &= checkClauseMultipleFile(entry);
  if (entry.getApplyWriteOnly())
    ok &= checkClauseApplyWriteOnly(entry);
  return ok;
}

namespace {

/// The SELECT entry of a file; null when it has none.
ParaFileControl *fileControlOf(FileIdentifierExpression &file) {
  InputOutputSection *inputOutput = currentUnit()->getInputOutputSection();
  return inputOutput ? inputOutput->findFileControlByName(*file.getFileName()) : nullptr;
}

} // namespace

bool SemanticChecker::checkClauseRerun(ParaIOControl &entry) {
  ClauseRerun &clause = *entry.getRerun();
  bool ok = true;
  if (FileIdentifierExpression *name = clause.getFileName()) {
    // RERUN may also name where the checkpoints go, which is not a file of the program.
    if (currentScope().findFiles(&name->getFileName()->getWordData()).empty()) {
      clause.setAssignment(name->getFileName());
    } else {
      ok &= semanticCheck(*name);
      // Without an ORGANIZATION clause a file is sequential.
      ParaFileControl *control = fileControlOf(*name);
      if (control && control->getOrganization() &&
          control->getOrganizationType() != OrganizationType::Sequential)
        ok = report(ErrorCode::RerunFileNotSequential, control->getOrganization());
    }
  }
  if (clause.getRecordCount())
    ok &= semanticCheck(*clause.getRecordCount());
  if (clause.getEveryFileName())
    ok &= semanticCheck(*clause.getEveryFileName());
  return ok;
}

void SharedAreas::add(const FileDescription *file, const ClauseSame &clause) {
  if (clause.getType() == SameType::None)
    clauses[file].area = &clause;
  else if (clause.getType() == SameType::Record)
    clauses[file].recordArea = &clause;
}

bool SharedAreas::isShared(const FileDescription *left, const FileDescription *right) const {
  if (left == right)
    return true;
  auto [area, recordArea] = clauses.lookup(left);
  auto [otherArea, otherRecordArea] = clauses.lookup(right);
  return (area && area == otherArea) || (recordArea && recordArea == otherRecordArea);
}

bool SemanticChecker::checkClauseSame(ParaIOControl &entry) {
  ClauseSame &clause = *entry.getSame();
  if (clause.getFileNameListSize() == 0)
    return report(ErrorCode::SameClauseInvalid, &clause);
  bool ok = true;
  for (IdentifierExpression *name : clause.getFileNameListElements()) {
    auto *file = llvm::dyn_cast<FileIdentifierExpression>(name);
    if (!file) {
      ok = report(ErrorCode::SameFileExternalOrNotFile, name);
      continue;
    }
    if (!semanticCheck(*file)) {
      ok = false;
      continue;
    }
    const FileDescription *description = file->getFileDescription();
    if (description->getExternal())
      ok = report(ErrorCode::SameFileExternalOrNotFile, name);
    state->sharedAreas.add(description, clause);
  }
  return ok;
}

bool SemanticChecker::checkClauseMultipleFile(ParaIOControl &entry) {
  ClauseMultipleFile &clause = *entry.getMultipleFile();
  if (clause.getMultipleFileListSize() == 0)
    return report(ErrorCode::MultipleFileInvalid, &clause);
  bool ok = true;
  for (PrsMultipleFile *phrase : clause.getMultipleFileListElements()) {
    ok &= semanticCheck(*phrase->getFileName());
    if (phrase->getPosition())
      ok &= semanticCheck(*phrase->getPosition());
  }
  return ok;
}

bool SemanticChecker::checkClauseApplyWriteOnly(ParaIOControl &entry) {
  ClauseApplyWriteOnly &clause = *entry.getApplyWriteOnly();
  if (clause.getFileNameListSize() == 0)
    return report(ErrorCode::ApplyWriteOnlyInvalid, &clause);
  bool ok = true;
  for (IdentifierExpression *name : clause.getFileNameListElements()) {
    auto *file = llvm::dyn_cast<FileIdentifierExpression>(name);
    if (!file) {
      ok = report(ErrorCode::ApplyWriteOnlyInvalid, name);
      continue;
    }
    ok &= semanticCheck(*file);
    ParaFileControl *control = fileControlOf(*file);
    if (control && control->getOrganization() &&
        control->getOrganizationType() != OrganizationType::Sequential)
      ok = report(ErrorCode::ApplyWriteOnlyFileNotSequential, name);
  }
  return ok;
}

} // namespace tarka
