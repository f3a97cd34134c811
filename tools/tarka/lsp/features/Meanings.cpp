//===- Meanings.cpp - what words of the language mean ---------------------===//

#include "lsp/features/Meanings.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka::lsp {

namespace {

constexpr WordMeaning words[] = {
#define WORD(Word, Meaning, Snippet) {Word, Meaning, Snippet},
#include "lsp/features/Words.def"
};

constexpr FunctionMeaning functions[] = {
#define FUNCTION(Name, Arguments, Meaning) {Name, Arguments, Meaning},
#include "lsp/features/Functions.def"
};

} // namespace

llvm::ArrayRef<WordMeaning> wordMeanings() {
  return words;
}

std::string meaningOf(llvm::StringRef word) {
  const WordMeaning *found =
      llvm::lower_bound(words, word, [](const WordMeaning &row, llvm::StringRef wanted) {
        return row.word < wanted;
      });
  if (found == std::end(words) || found->word != word)
    return "";
  return "**" + word.str() + "**: " + found->meaning.str();
}

llvm::SmallVector<llvm::StringRef, 4> FunctionMeaning::argumentList() const {
  llvm::SmallVector<llvm::StringRef, 4> list;
  llvm::SplitString(arguments, list);
  return list;
}

std::string FunctionMeaning::call() const {
  return arguments.empty() ? name.str() : (name + " (" + arguments + ")").str();
}

const FunctionMeaning *functionMeaningOf(llvm::StringRef name) {
  const FunctionMeaning *found =
      llvm::lower_bound(functions, name, [](const FunctionMeaning &row, llvm::StringRef wanted) {
        return row.name < wanted;
      });
  return found != std::end(functions) && found->name == name ? found : nullptr;
}

} // namespace tarka::lsp
