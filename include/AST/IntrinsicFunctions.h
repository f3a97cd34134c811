//===- IntrinsicFunctions.h - the intrinsic functions by name ---*- C++ -*-===//

#ifndef TARKA_AST_INTRINSICFUNCTIONS_H
#define TARKA_AST_INTRINSICFUNCTIONS_H

#include "AST/Kinds.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <algorithm>
#include <cstddef>
#include <optional>

namespace tarka {

/// One intrinsic function of the language.
struct IntrinsicFunction {
  llvm::StringLiteral name;
  IntrinsicType type;
  /// True when the result is always an integer.
  bool isInteger;
  /// A letter for each argument: n for one that must be a number, i for one that must be an
  /// integer, a for others. After an argument that may be left out there is "?", after one that may
  /// be repeated "+".
  llvm::StringLiteral arguments;

  std::size_t getLeastArguments() const { return countArguments() - arguments.count('?'); }
  /// Nothing where any number of arguments is allowed.
  std::optional<std::size_t> getMostArguments() const {
    return arguments.ends_with("+") ? std::nullopt : std::optional(countArguments());
  }
  /// Whether argument \p number, from 0, must be a number.
  bool takesNumber(std::size_t number) const {
    return kindOf(number) == 'n' || kindOf(number) == 'i';
  }
  /// Whether argument \p number, from 0, must be an integer.
  bool takesInteger(std::size_t number) const { return kindOf(number) == 'i'; }

private:
  static bool isKind(char c) { return c == 'n' || c == 'i' || c == 'a'; }
  /// The letter of argument \p number, from 0; the last one stands for those that repeat it.
  char kindOf(std::size_t number) const {
    char last = 'a';
    for (char argument : arguments)
      if (isKind(argument)) {
        last = argument;
        if (number-- == 0)
          return last;
      }
    return last;
  }
  std::size_t countArguments() const {
    return static_cast<std::size_t>(std::count_if(arguments.begin(), arguments.end(), isKind));
  }
};

/// Every function, sorted by name.
llvm::ArrayRef<IntrinsicFunction> intrinsicFunctions();

/// The function of that name in upper case, or null when the language has none.
const IntrinsicFunction *findIntrinsicFunction(llvm::StringRef name);

} // namespace tarka

#endif // TARKA_AST_INTRINSICFUNCTIONS_H
