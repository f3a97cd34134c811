//===- Meanings.h - what words of the language mean -------------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_FEATURES_MEANINGS_H
#define TARKA_TOOLS_LSP_FEATURES_MEANINGS_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka::lsp {

/// A word of the language: a verb, a figurative constant, a special register, a function.
struct WordMeaning {
  llvm::StringLiteral word;
  llvm::StringLiteral meaning;
  /// How a statement that begins with the word is written, as a snippet of the protocol; empty for
  /// what is no verb.
  llvm::StringLiteral snippet;
};

/// Sorted by word.
llvm::ArrayRef<WordMeaning> wordMeanings();

/// What \p word, in upper case, means in one line; empty for a word without a row.
std::string meaningOf(llvm::StringRef word);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_FEATURES_MEANINGS_H
