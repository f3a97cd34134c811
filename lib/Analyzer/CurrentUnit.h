//===- CurrentUnit.h - what is being checked or lowered ---------*- C++ -*-===//
//
// Access to the compilation context and to the program that is being checked.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_CURRENTUNIT_H
#define TARKA_LIB_ANALYZER_CURRENTUNIT_H

#include "AST/Program.h"
#include "AST/Scope.h"
#include "Analyzer/EnterpriseRules.h"
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

/// Makes a program the current one as long as this lives.
class CurrentUnitScope {
public:
  explicit CurrentUnitScope(SourceUnit *unit) : previous(currentUnit()) {
    context().setCurrentSourceUnit(unit);
  }
  ~CurrentUnitScope() { context().setCurrentSourceUnit(previous); }
  CurrentUnitScope(const CurrentUnitScope &) = delete;
  CurrentUnitScope &operator=(const CurrentUnitScope &) = delete;

private:
  SourceUnit *previous;
};

/// The names that it can see.
inline Scope currentScope() {
  return Scope(currentUnit());
}

/// Its data division; null when it has none.
inline DataDivision *currentDivision() {
  SourceUnit *unit = currentUnit();
  return unit ? unit->getDataDivision() : nullptr;
}

/// The SPECIAL-NAMES that apply to it: its own; with --enterprise, where it has none, those of the
/// nearest program around it. Null when there are none. Scope.h has the rules that always apply to
/// nested programs.
inline ParaSpecialNames *currentSpecialNames() {
  SourceUnit *unit = currentUnit();
  if (followsEnterprise(EnterpriseRule::OuterSpecialNames))
    while (unit && !unit->getSpecialNames())
      unit = unit->getParent();
  return unit ? unit->getSpecialNames() : nullptr;
}

/// Makes a program the current one until the end of the scope.
class UnitScope {
public:
  explicit UnitScope(SourceUnit *unit) : before(currentUnit()) {
    context().setCurrentSourceUnit(unit);
  }
  ~UnitScope() { context().setCurrentSourceUnit(before); }
  UnitScope(const UnitScope &) = delete;
  UnitScope &operator=(const UnitScope &) = delete;

private:
  SourceUnit *before;
};

/// Ends DECIMAL-POINT IS COMMA with the program that contains it.
class DecimalPointScope {
public:
  DecimalPointScope() : before(context().getIsDecimalPointComma()) {}
  ~DecimalPointScope() { context().setIsDecimalPointComma(before); }
  DecimalPointScope(const DecimalPointScope &) = delete;
  DecimalPointScope &operator=(const DecimalPointScope &) = delete;

private:
  bool before;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_CURRENTUNIT_H
