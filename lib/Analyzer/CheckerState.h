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
#include "Analyzer/Expression/SubscriptedSources.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/Statement/ExceptionProcedures.h"
#include "llvm/ADT/StringSet.h"
#include <optional>

namespace tarka {

struct SemanticChecker::State {
  /// Of the items of getUsedSrcListBegin().
  SubscriptedSources subscriptedSources;
  RedefinableEntries redefinable;
  ExceptionProcedures exceptionProcedures;
  /// Absent until a CALL asks for it.
  std::optional<ProgramNames> programNames;
  SharedAreas sharedAreas;
  SymbolicCharacters symbolicCharacters;
  /// The texts of the names of the ENTRY statements.
  llvm::StringSet<> entryTexts;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_CHECKERSTATE_H
