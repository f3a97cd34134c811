//===- Names.h - user words and qualified names -----------------*- C++ -*-===//
//
// A user word as the programmer wrote it, and a word with its OF/IN qualifiers.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_NAMES_H
#define TARKA_AST_NAMES_H

#include "AST/Node.h"

namespace tarka {

/// The name of a program without the quotes of a literal; unpaired quotes are kept.
inline llvm::StringRef withoutQuotes(llvm::StringRef name) {
  for (char quote : {'\'', '"'})
    if (name.size() >= 2 && name.front() == quote && name.back() == quote)
      return name.drop_front().drop_back();
  return name;
}

/// One user word. User words compare in upper case: the parser folds them once and keeps the
/// spelling of the source as the second text.
class Word : public Node {
public:
  /// \p second is the spelling as written; it is empty for words that the compiler makes.
  Word(const Node *at, llvm::StringRef text, llvm::StringRef second)
      : Node(at), data(&internString(text)), spelling(&internString(second)) {}
  /// The same for texts that are interned already, see internString().
  Word(const SourceRange &where, const std::string *text, const std::string *second)
      : Node(where), data(text), spelling(second) {}

  /// The text of the word, in upper case when it is a user word.
  const std::string &getWordData() const { return *data; }
  /// The spelling as written; empty when the compiler made the word.
  const std::string &getSpelling() const { return *spelling; }
  /// The text for messages: the spelling, or the text where there is none.
  const std::string &getDisplayName() const { return spelling->empty() ? *data : *spelling; }

private:
  const std::string *data;
  const std::string *spelling;
};

/// A word with its qualifiers, in the order written: the name itself first, then the qualifiers,
/// nearest first.
class QualifiedWord : public Node {
public:
  explicit QualifiedWord(const Node *at) : Node(at) {}
  /// Takes over the words of \p words, which may be null.
  QualifiedWord(const Node *at, GivenList<Word> words) : Node(at), names(words.take()) {}

  void addNames(Word *word) { names.push_back(word); }

  TARKA_LIST(Word, names, Names)

private:
  NodeList<Word> names;
};

} // namespace tarka

#endif // TARKA_AST_NAMES_H
