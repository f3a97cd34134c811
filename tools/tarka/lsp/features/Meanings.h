//===- Meanings.h - what words of the language mean -------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_MEANINGS_H
#define TARKA_TOOLS_LSP_FEATURES_MEANINGS_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka::lsp {

/// A word of the language: a verb, a phrase, a figurative constant, a special register, a level
/// number.
struct WordMeaning {
  llvm::StringLiteral word;
  llvm::StringLiteral meaning;
  /// How a statement that begins with the word is written, as a snippet of the protocol; empty for
  /// what is no verb.
  llvm::StringLiteral snippet;
};

/// Sorted by word.
llvm::ArrayRef<WordMeaning> wordMeanings();

/// What \p word, in upper case, means in one line of Markdown; empty for a word without a row.
std::string meaningOf(llvm::StringRef word);

/// An intrinsic function.
struct FunctionMeaning {
  llvm::StringLiteral name;
  /// A word for each argument, with blanks between them: "rate amount...", "text [codepage]".
  llvm::StringLiteral arguments;
  llvm::StringLiteral meaning;

  llvm::SmallVector<llvm::StringRef, 4> argumentList() const;
  /// The call as it is written: "PRESENT-VALUE (rate amount...)"; the name alone without arguments.
  std::string call() const;
};

/// The function \p name, which is in upper case; null when there is none.
const FunctionMeaning *functionMeaningOf(llvm::StringRef name);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_MEANINGS_H
