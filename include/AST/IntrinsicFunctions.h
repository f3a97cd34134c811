//===- IntrinsicFunctions.h - the intrinsic functions by name ---*- C++ -*-===//

#ifndef TARKA_AST_INTRINSICFUNCTIONS_H
#define TARKA_AST_INTRINSICFUNCTIONS_H

#include "AST/Kinds.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"

namespace tarka {

/// One intrinsic function of the language.
struct IntrinsicFunction {
  llvm::StringLiteral name;
  IntrinsicType type;
  /// True when the result is always an integer.
  bool isInteger;
};

/// Every function, sorted by name.
llvm::ArrayRef<IntrinsicFunction> intrinsicFunctions();

/// The function of that name in upper case, or null when the language has none.
const IntrinsicFunction *findIntrinsicFunction(llvm::StringRef name);

} // namespace tarka

#endif // TARKA_AST_INTRINSICFUNCTIONS_H
