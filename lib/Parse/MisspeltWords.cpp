//===- MisspeltWords.cpp - keywords that were most likely meant ---------===//

#include "Parse/MisspeltWords.h"
#include "AST/Spelling.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

Keyword nearestKeyword(llvm::StringRef word, llvm::ArrayRef<Keyword> candidates) {
  SpellingMatch match(word);
  for (Keyword candidate : candidates)
    match.consider(textOf(candidate));
  const auto *found = llvm::find_if(
      candidates, [&](Keyword candidate) { return textOf(candidate) == match.getNearest(); });
  return found == candidates.end() ? Keyword::None : *found;
}

llvm::StringRef suggestKeyword(llvm::StringRef word, uint16_t flags) {
  SpellingMatch match(word);
#define KEYWORD(Enumerator, Text, Flags)                                                           \
  if ((Flags) & flags)                                                                             \
    match.consider(Text);
#include "Parse/Keywords.def"
  return match.getNearest();
}

llvm::StringRef suggestReservedWord(llvm::StringRef word) {
  SpellingMatch match(word);
  for (bool isSameLength : {true, false}) {
#define KEYWORD(Enumerator, Text, Flags)                                                           \
  if (!((Flags) & (KF_ContextSensitive | KF_OsvsOnly)) &&                                          \
      (word.size() == llvm::StringRef(Text).size()) == isSameLength)                               \
    match.consider(Text);
#include "Parse/Keywords.def"
  }
  return match.getNearest();
}

} // namespace tarka
