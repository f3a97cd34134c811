//===- SentenceWalk.h - over the sentences of a procedure -------*- C++ -*-===//
//
// The nodes of a large program do not fit into the caches of the processor, and
// the checks, which do little with each of them, would wait for memory.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_SENTENCEWALK_H
#define TARKA_LIB_ANALYZER_SENTENCEWALK_H

#include "AST/Procedure.h"
#include "llvm/Support/Compiler.h"
#include <cstdint>

namespace tarka {

/// Asks for the memory of \p sentence and of the nodes below it, which the parser makes after the
/// sentence \p before and before the sentence itself.
///
/// GCC removes calls of functions that do nothing but this, unless they are always inlined.
LLVM_ATTRIBUTE_ALWAYS_INLINE void prefetch(const Sentence *before, const Sentence *sentence) {
  constexpr std::uintptr_t line = 64, maxLines = 8;
  const auto end = reinterpret_cast<std::uintptr_t>(sentence) + sizeof(Sentence);
  auto at = reinterpret_cast<std::uintptr_t>(before) + sizeof(Sentence);
  if (end - at > maxLines * line)
    at = end - 2 * line;
  for (; at < end; at += line)
    LLVM_PREFETCH(reinterpret_cast<const char *>(at), /*rw=*/0, /*locality=*/3);
}

/// Calls \p visit for each sentence, and asks for the memory of those that come next meanwhile.
template <typename Visitor>
void forEachSentence(const NodeList<Sentence> &sentences, Visitor visit) {
  constexpr std::ptrdiff_t ahead = 4;
  for (auto sentence = sentences.begin(), end = sentences.end(); sentence != end; ++sentence) {
    if (end - sentence > ahead)
      prefetch(sentence[ahead - 1], sentence[ahead]);
    visit(*sentence);
  }
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SENTENCEWALK_H
