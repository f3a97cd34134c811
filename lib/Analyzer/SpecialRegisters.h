//===- SpecialRegisters.h - the entries of the special registers *- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_SPECIALREGISTERS_H
#define TARKA_LIB_ANALYZER_SPECIALREGISTERS_H

#include "AST/DataDescription.h"

namespace tarka {

/// Whether \p entry is the special register XML-TEXT, whose size at run time is that of the text
/// which XML PARSE has found.
bool isXmlTextRegister(const DataDescription &entry);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SPECIALREGISTERS_H
