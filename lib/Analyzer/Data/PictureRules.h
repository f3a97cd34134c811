//===- PictureRules.h - what PICTURE, USAGE and VALUE share ---------------===//
//
// Facts about pictures that more than one clause depends on.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_PICTURERULES_H
#define TARKA_LIB_ANALYZER_PICTURERULES_H

#include "AST/Usage.h"

namespace tarka {

/// The most digits that a number can have.
constexpr int MaxDigits = 31;

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_PICTURERULES_H
