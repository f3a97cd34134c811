//===- SourceDamage.h - text that could not be read as meant ----*- C++ -*-===//
//
// After an error the front end continues with a tree in which the declarations of
// the wrong text may be missing or incomplete. Errors that later stages find
// because of that are consequences of the first one. This class tells which text
// and which names are affected.
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

  /// Whether \p place shares a line with damaged text. An error there is most likely a consequence
  /// of the error that was reported for that text.
  bool contains(const SourceRange &place) const;

  /// Whether \p name, in any case, is a word of damaged text, or would be but for one character
  /// that makes two of it (CUST,NAME for CUST-NAME). What it names may be missing from the tree or
  /// differ from what was meant.
  bool hasName(llvm::StringRef name) const;

  /// The words of the damaged text, in upper case.
  const llvm::StringSet<> &getNames() const { return names; }

  /// Whether text is missing whose names are not known: a copybook was not found or not readable,
  /// or its COPY statement could only be parsed in part.
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
