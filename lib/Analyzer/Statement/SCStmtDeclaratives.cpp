//===- SCStmtDeclaratives.cpp - statements that may run a USE procedure ---===//
//
// Which input-output statements can lead into a procedure of USE AFTER
// EXCEPTION. What mode a file is open in is known at run time only, so a
// statement counts when there is a procedure for any mode that it can work in.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// The exception procedures of \p unit, read from its declaratives when first asked for.
const ExceptionProcedures &SemanticChecker::exceptionProceduresOf(SourceUnit &unit) {
  auto [position, isNew] = state->exceptionProcedures.try_emplace(&unit);
  ExceptionProcedures &procedures = position->second;
  ProcedureDivision *division = unit.getProcDivision();
  if (!isNew || !division)
    return procedures;

  const bool isCurrent = &unit == currentUnit();
  for (const Declaratives *declarative : division->getDeclElements()) {
    const UseStatement *use = declarative->getUseStmt();
    if (!use || use->getTimingType() != UseTimingType::AfterException)
      continue;
    if (use->getFileMode() != UseFileMode::None) {
      const unsigned mode = 1u << static_cast<unsigned>(use->getFileMode());
      procedures.modes |= mode;
      procedures.globalModes |= use->isGlobal() ? mode : 0;
    }
    for (IdentifierExpression *name : use->getFileListElements()) {
      auto *fileName = llvm::dyn_cast<FileIdentifierExpression>(name);
      if (!fileName)
        continue;
      // A declarative may use a file whose own USE comes later and is not bound yet.
      FileDescription *file = fileName->getFileDescription();
      if (!file && isCurrent)
        if (auto found = currentScope().findFiles(&fileName->getFileName()->getWordData());
            !found.empty())
          file = found.front();
      if (file)
        procedures.files[file] |= use->isGlobal();
    }
  }
  return procedures;
}

/// Whether an exception of \p file, when it is open in one of \p modes, has a procedure: one of the
/// current unit, or a GLOBAL one of a unit around it.
bool SemanticChecker::hasExceptionProcedure(const FileDescription *file,
                                            llvm::ArrayRef<UseFileMode> modes) {
  unsigned wanted = 0;
  for (UseFileMode mode : modes)
    wanted |= 1u << static_cast<unsigned>(mode);
  SourceUnit *current = currentUnit();
  for (SourceUnit *unit = current; unit; unit = unit->getParent()) {
    const ExceptionProcedures &procedures = exceptionProceduresOf(*unit);
    const bool isOuter = unit != current;
    if ((isOuter ? procedures.globalModes : procedures.modes) & wanted)
      return true;
    auto ofFile = procedures.files.find(file);
    if (ofFile != procedures.files.end() && (!isOuter || ofFile->second))
      return true;
  }
  return false;
}

void SemanticChecker::markDeclaratives(FileStatement &statement, const FileDescription *file,
                                       llvm::ArrayRef<UseFileMode> modes) {
  if (file && hasExceptionProcedure(file, modes))
    statement.setIsDeclaratives(true);
}

/// For a statement that names the record of a file.
void SemanticChecker::markDeclaratives(FileStatement &statement, IdentifierExpression *record,
                                       llvm::ArrayRef<UseFileMode> modes) {
  if (const DataDescription *entry = record ? record->getDataDescription() : nullptr)
    markDeclaratives(statement, entry->getFileDescription(), modes);
}

} // namespace tarka
