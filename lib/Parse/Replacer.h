//===- Replacer.h - REPLACING and REPLACE -----------------------*- C++ -*-===//
//
// Replaces words in a stream of tokens. The units of comparison are text words: a
// word, a number, a literal, or one punctuation mark. Where replacement text and
// other text have no space between them, they are scanned again as one; so
// :TAG:-NAME becomes a word, and X(:LENGTH:) a picture.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_REPLACER_H
#define TARKA_LIB_PARSE_REPLACER_H

#include "Parse/Lexer.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringMap.h"
#include <deque>
#include <string>
#include <vector>

namespace tarka {

/// One pair of texts: what is replaced and what replaces it.
struct Replacement {
  enum class Kind : uint8_t {
    Whole,   ///< whole text words
    Leading, ///< the beginning of a word
    Trailing ///< the end of a word
  };

  Kind kind = Kind::Whole;
  llvm::SmallVector<Token, 4> from;
  llvm::SmallVector<Token, 4> to;
  /// For parts of words: the texts themselves, the one to be replaced in upper case.
  std::string fromPart;
  std::string toPart;
};

class Replacer {
public:
  /// Gives the next token of the text in which words are replaced.
  using Source = llvm::function_ref<void(Token &)>;

  /// \p tokensAdded counts by how many tokens all replacers of a compilation have made the text
  /// longer.
  Replacer(LexerContext &context, uint64_t &tokensAdded)
      : context(context), tokensAdded(tokensAdded) {}

  /// Applies \p pairs from now on; at any place the first pair that matches counts.
  void setReplacements(std::vector<Replacement> pairs);
  /// Whether next() is needed: there are pairs, or tokens that were read ahead.
  bool isActive() const {
    return !replacements.empty() || !ready.empty() || hasAhead || !made.empty() || !window.empty();
  }

  /// Gives the next token after replacement. A REPLACE statement is never read past, and never
  /// looked at beyond its first word.
  void next(Token &token, Source source);

private:
  void fillRun(Source source);
  void produce(Token &token, Source source);
  bool replaceFront(Source source);
  bool matches(const Replacement &pair, Source source, size_t &length);
  bool matchesPart(const Replacement &pair, const Token &token) const;
  void makeWhole(const Replacement &pair, size_t length);
  void makePart(const Replacement &pair);
  void put(llvm::ArrayRef<Token> tokens, const Token &first, const Token &last, size_t length);
  const Token &windowAt(size_t index, Source source);
  void splitPicture(const Token &picture);
  void readAgain(bool asPicture);

  LexerContext &context;
  uint64_t &tokensAdded;
  std::vector<Replacement> replacements;
  /// The pairs by the text of their first word, and those for parts of words.
  llvm::StringMap<llvm::SmallVector<unsigned, 2>> byFirstText;
  llvm::SmallVector<unsigned, 4> partial;

  std::deque<Token> window; ///< read from the source, not replaced yet
  std::deque<Token> made;   ///< replacing text
  bool spaceIsDue = false;  ///< something was replaced by nothing after a space
  Token ahead;              ///< the first token of the next run
  bool hasAhead = false;
  llvm::SmallVector<Token, 16> run; ///< tokens without a space between them
  bool afterPicture = false;
  std::deque<Token> ready;
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_REPLACER_H
