//===- IntrinsicFunctions.h - the intrinsic functions by name ---*- C++ -*-===//

#ifndef TARKA_AST_INTRINSICFUNCTIONS_H
#define TARKA_AST_INTRINSICFUNCTIONS_H

#include "AST/Kinds.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <cstddef>
#include <optional>

namespace tarka {

/// One intrinsic function of the language.
struct IntrinsicFunction {
  llvm::StringLiteral name;
  IntrinsicType type;
  /// True when the result is always an integer.
  bool isInteger;
  /// A letter for each argument: n for one that must be a number, a for others. After an argument
  /// that may be left out there is "?", after one that may be repeated "+".
  llvm::StringLiteral arguments;

  std::size_t getLeastArguments() const { return countArguments() - arguments.count('?'); }
  /// Nothing where any number of arguments is allowed.
  std::optional<std::size_t> getMostArguments() const {
    return arguments.ends_with("+") ? std::nullopt : std::optional(countArguments());
  }
  /// Whether argument \p number, from 0, must be a number.
  bool takesNumber(std::size_t number) const {
    for (char argument : arguments)
      if (argument == 'n' || argument == 'a') {
        if (number == 0)
          return argument == 'n';
        --number;
      }
    return arguments.ends_with("n+");
  }

private:
  std::size_t countArguments() const { return arguments.count('n') + arguments.count('a'); }
};

/// Every function, sorted by name.
llvm::ArrayRef<IntrinsicFunction> intrinsicFunctions();

/// The function of that name in upper case, or null when the language has none.
const IntrinsicFunction *findIntrinsicFunction(llvm::StringRef name);

} // namespace tarka

#endif // TARKA_AST_INTRINSICFUNCTIONS_H
