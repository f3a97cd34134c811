//===- Usage.h - properties of usages ---------------------------*- C++ -*-===//
//
// The families of usages that more than one rule depends on.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_USAGE_H
#define TARKA_AST_USAGE_H

#include "AST/Kinds.h"

namespace tarka {

/// BINARY, COMP, COMP-4 and COMP-5: binary numbers of two, four or eight bytes.
constexpr bool isBinary(UsageType usage) {
  return usage == UsageType::Binary || usage == UsageType::Comp || usage == UsageType::Comp4 ||
         usage == UsageType::Comp5;
}

/// COMP-3 and PACKED-DECIMAL: two digits per byte.
constexpr bool isPackedDecimal(UsageType usage) {
  return usage == UsageType::Comp3 || usage == UsageType::PackedDecimal;
}

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

#endif // TARKA_AST_USAGE_H
