//===- CheckerState.h - what the checks remember ----------------*- C++ -*-===//
//
// A rule checks one node. What it must know about earlier nodes is kept here, in one
// object for each family of rules, and stays out of the installed header.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_CHECKERSTATE_H
#define TARKA_LIB_ANALYZER_CHECKERSTATE_H

#include "AST/Scope.h"
#include "Analyzer/Data/RedefinableEntries.h"
#include "Analyzer/Data/SymbolicCharacters.h"
#include "Analyzer/Environment/SharedAreas.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringSet.h"
#include <cstddef>
#include <map>
#include <optional>

namespace tarka {

/// The procedures of USE AFTER EXCEPTION of one unit: modes as bits by UseFileMode, files with
/// whether the procedure is GLOBAL.
struct ExceptionProcedures {
  unsigned modes = 0;
  unsigned globalModes = 0;
  llvm::DenseMap<const FileDescription *, bool> files;
};

struct SemanticChecker::State {
  /// The items of usedSrcList by what their operands are subscripted by, and how many items were
  /// read into it.
  llvm::DenseMap<DataDescription *, llvm::SmallVector<ReportDataDescription *, 1>>
      usedSrcBySubscript;
  std::size_t usedSrcRead = 0;
  RedefinableEntries redefinable;
  std::map<const SourceUnit *, ExceptionProcedures> exceptionProcedures;
  /// Absent until a CALL asks for it.
  std::optional<ProgramNames> programNames;
  SharedAreas sharedAreas;
  SymbolicCharacters symbolicCharacters;
  /// The texts of the names of the ENTRY statements.
  llvm::StringSet<> entryTexts;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_CHECKERSTATE_H
