//===- SourceDamage.h - text that could not be read as meant ----*- C++ -*-===//
//
// After an error the front end goes on with a tree in which what the wrong text
// declares may be missing or incomplete. What later stages find wrong with it is
// a consequence of the error. This class says which text and which names that
// concerns.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_SOURCEDAMAGE_H
#define TARKA_PARSE_SOURCEDAMAGE_H

#include "AST/Node.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/ADT/StringSet.h"
#include <utility>

namespace tarka {

/// The damaged text of one compilation. Text is damaged where the front end reported an error, from
/// the beginning of the construct that is wrong to the token at which parsing resumed.
class SourceDamage {
public:
  bool empty() const { return lines.empty() && !copybookIsMissing; }

  /// Whether \p place begins, ends, or has a line between in damaged text. What is found wrong
  /// there is most likely a consequence of the error that was reported for it.
  bool contains(const SourceRange &place) const;

  /// Whether \p name, in any case, is a word of damaged text, or would be but for one character
  /// that makes two of it (CUST,NAME for CUST-NAME). What it names may be missing from the tree or
  /// differ from what was meant.
  bool hasName(llvm::StringRef name) const;

  /// The words of the damaged text, in upper case.
  const llvm::StringSet<> &getNames() const { return names; }

  /// Whether text is missing of which not even the names are known: a copybook was not found or not
  /// readable, or its COPY statement could only be read in part.
  bool isCopybookMissing() const { return copybookIsMissing; }

  //===--------------------------------------------------------------------===//
  // For the front end
  //===--------------------------------------------------------------------===//

  /// Marks the lines of \p place as damaged.
  void add(const SourceRange &place);
  void addMissingCopybook() { copybookIsMissing = true; }
  /// Adds the words that \p text, the text of file number \p file, has on damaged lines.
  void collectNames(unsigned file, llvm::StringRef text);

private:
  void addWords(llvm::StringRef text);

  llvm::DenseSet<std::pair<unsigned, unsigned>> lines; ///< file and line
  llvm::StringSet<> names;
  llvm::StringSet<> brokenNames; ///< strings between blanks that are more than one word
  bool copybookIsMissing = false;
};

} // namespace tarka

#endif // TARKA_PARSE_SOURCEDAMAGE_H
