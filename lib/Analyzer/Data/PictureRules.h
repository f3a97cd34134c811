//===- PictureRules.h - what PICTURE, USAGE and VALUE share ---------------===//
//
// Facts about pictures that more than one clause depends on.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_PICTURERULES_H
#define TARKA_LIB_ANALYZER_PICTURERULES_H

#include "AST/Kinds.h"

namespace tarka {

/// The most digits that a number can have.
constexpr int MaxDigits = 31;

/// The size and category of these follow from the usage alone, so they have no PICTURE.
constexpr bool excludesPicture(UsageType usage) {
  switch (usage) {
  case UsageType::Comp1:
  case UsageType::Comp2:
  case UsageType::Index:
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return true;
  default:
    return false;
  }
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_PICTURERULES_H
