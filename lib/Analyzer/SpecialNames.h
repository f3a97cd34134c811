//===- SpecialNames.h - what the names of SPECIAL-NAMES stand for ---------===//
//
// A mnemonic name stands for a device, a switch or a carriage control. The
// paragraph of a program holds in the programs nested in it as well.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_SPECIALNAMES_H
#define TARKA_LIB_ANALYZER_SPECIALNAMES_H

#include "AST/Program.h"
#include "Analyzer/TopLevel.h"

namespace tarka {

/// The clause that defines the mnemonic name \p name for the current source unit; null when there
/// is none.
inline ClauseEnvName *findMnemonicName(const Word &name) {
  for (SourceUnit *unit = TopLevel::getTopLevelInstance("")->getCurrentSourceUnit(); unit;
       unit = unit->getParent())
    if (ParaSpecialNames *specialNames = unit->getSpecialNames())
      if (ClauseEnvName *clause = specialNames->findClauseEnvNameByWord(&name))
        return clause;
  return nullptr;
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SPECIALNAMES_H
