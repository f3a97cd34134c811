//===- ExceptionProcedures.cpp - who may run a USE procedure --------------===//

#include "Analyzer/Statement/ExceptionProcedures.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"

namespace tarka {

/// Reads the declaratives of \p unit when it is asked about for the first time.
const ExceptionProcedures::Procedures &ExceptionProcedures::proceduresOf(SourceUnit &unit) {
  auto [position, isNew] = procedures.try_emplace(&unit);
  Procedures &found = position->second;
  ProcedureDivision *division = unit.getProcDivision();
  if (!isNew || !division)
    return found;

  const bool isCurrent = &unit == currentUnit();
  for (const Declaratives *declarative : division->getDeclElements()) {
    const UseStatement *use = declarative->getUseStmt();
    if (!use || use->getTimingType() != UseTimingType::AfterException)
      continue;
    if (use->getFileMode() != UseFileMode::None) {
      const unsigned mode = 1u << static_cast<unsigned>(use->getFileMode());
      found.modes |= mode;
      found.globalModes |= use->isGlobal() ? mode : 0;
    }
    for (IdentifierExpression *name : use->getFileListElements()) {
      auto *fileName = llvm::dyn_cast<FileIdentifierExpression>(name);
      if (!fileName)
        continue;
      // A declarative may use a file whose own USE comes later and is not bound yet.
      FileDescription *file = fileName->getFileDescription();
      if (!file && isCurrent)
        if (auto files = currentScope().findFiles(&fileName->getFileName()->getWordData());
            !files.empty())
          file = files.front();
      if (file)
        found.files[file] |= use->isGlobal();
    }
  }
  return found;
}

bool ExceptionProcedures::has(const FileDescription *file, llvm::ArrayRef<UseFileMode> modes) {
  unsigned wanted = 0;
  for (UseFileMode mode : modes)
    wanted |= 1u << static_cast<unsigned>(mode);
  SourceUnit *current = currentUnit();
  for (SourceUnit *unit = current; unit; unit = unit->getParent()) {
    const Procedures &found = proceduresOf(*unit);
    const bool isOuter = unit != current;
    if ((isOuter ? found.globalModes : found.modes) & wanted)
      return true;
    auto ofFile = found.files.find(file);
    if (ofFile != found.files.end() && (!isOuter || ofFile->second))
      return true;
  }
  return false;
}

void markDeclaratives(SemanticChecker &checker, FileStatement &statement,
                      const FileDescription *file, llvm::ArrayRef<UseFileMode> modes) {
  if (file && checker.getState().exceptionProcedures.has(file, modes))
    statement.setIsDeclaratives(true);
}

void markDeclaratives(SemanticChecker &checker, FileStatement &statement,
                      const IdentifierExpression *record, llvm::ArrayRef<UseFileMode> modes) {
  if (const DataDescription *entry = record ? record->getDataDescription() : nullptr)
    markDeclaratives(checker, statement, entry->getFileDescription(), modes);
}

} // namespace tarka
