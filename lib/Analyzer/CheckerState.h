//===- CheckerState.h - what the checks remember ----------------*- C++ -*-===//
//
// A rule checks one node. What it must know about earlier nodes is kept here, in one
// object for each family of rules, and not in the installed header.
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
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringSet.h"
#include <cstdint>
#include <list>
#include <optional>

namespace tarka {

/// The special register XML-TEXT of the source unit being checked.
struct XmlTextRegister {
  /// Null when the source unit has none of its own.
  DataDescription *entry = nullptr;
  /// The size in bytes of the largest item that an XML PARSE of the source unit reads; 1 when there
  /// is no such statement.
  std::uint64_t size = 1;
};

struct SemanticChecker::State {
  /// The section whose statements are being checked, or null.
  Section *outerSection = nullptr;
  /// Set while the USE statement of a declarative is checked.
  bool isDeclaratives = false;
  /// Set while the section of a declarative is checked.
  bool inDeclaratives = false;
  /// Of the statement being checked, see Statement::hasPlainOperands().
  bool hasPlainOperands = true;
  /// The report whose description, or whose USE BEFORE REPORTING declarative, is being checked.
  ReportDescription *currentReport = nullptr;
  /// The index names with a parent, which freeIndex() removes.
  llvm::SmallVector<DataDescription *, 0> boundIndexes;
  XmlTextRegister xmlText;

  /// The report items that have a SOURCE clause.
  NodeList<ReportDataDescription> usedSources;
  /// Those items by the subscripts of their SOURCE.
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
