//===- CurrentUnit.h - what is being checked or lowered ---------*- C++ -*-===//
//
// Short ways to the compilation context and to the parts of the program that the walk is in.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_CURRENTUNIT_H
#define TARKA_LIB_ANALYZER_CURRENTUNIT_H

#include "AST/Program.h"
#include "Analyzer/TopLevel.h"

namespace tarka {

/// The compilation context, which the driver has made.
inline TopLevel &context() {
  return *TopLevel::getTopLevelInstance("");
}

/// The program being checked; null outside of any.
inline SourceUnit *currentUnit() {
  return context().getCurrentSourceUnit();
}

/// Its data division; null when it has none.
inline DataDivision *currentDivision() {
  SourceUnit *unit = currentUnit();
  return unit ? unit->getDataDivision() : nullptr;
}

/// Its own SPECIAL-NAMES; null when it has none. See SpecialNames.h for what programs around it
/// define.
inline ParaSpecialNames *currentSpecialNames() {
  SourceUnit *unit = currentUnit();
  return unit ? unit->getSpecialNames() : nullptr;
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_CURRENTUNIT_H
