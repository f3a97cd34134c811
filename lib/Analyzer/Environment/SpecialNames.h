//===- SpecialNames.h - what the names of SPECIAL-NAMES stand for ---------===//
//
// A mnemonic name stands for a device, a switch or a carriage control, an
// alphabet-name for a collating sequence. The names of a program are visible in the
// programs nested in it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_SPECIALNAMES_H
#define TARKA_LIB_ANALYZER_SPECIALNAMES_H

#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"

namespace tarka {

/// The clause that \p find returns for \p name in the SPECIAL-NAMES of the current source unit, or
/// of the nearest one around it; null when there is none.
template <typename Clause>
Clause *findSpecialName(const Word &name,
                        Clause *(ParaSpecialNames::*find)(const Word *name) const) {
  for (SourceUnit *unit = currentUnit(); unit; unit = unit->getParent())
    if (ParaSpecialNames *specialNames = unit->getSpecialNames())
      if (Clause *clause = (specialNames->*find)(&name))
        return clause;
  return nullptr;
}

/// The clause that defines the mnemonic name \p name; null when there is none.
inline ClauseEnvName *findMnemonicName(const Word &name) {
  return findSpecialName(name, &ParaSpecialNames::findClauseEnvNameByWord);
}

/// The ALPHABET clause that defines \p name; null when there is none.
inline ClauseAlphabet *findAlphabet(const Word &name) {
  return findSpecialName(name, &ParaSpecialNames::findClauseAlphabetByWord);
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SPECIALNAMES_H
