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
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringRef.h"
#include <utility>

namespace tarka {

/// The damaged text of one compilation. Text is damaged where the front end reported an error, from
/// the beginning of the construct that is wrong to the token at which parsing resumed.
class SourceDamage {
public:
  bool empty() const { return lines.empty() && !copybookIsMissing; }

  /// Whether some character of \p place is damaged. What is found wrong there is most likely a
  /// consequence of the error that was reported for it; other statements of the line are not
  /// concerned.
  bool contains(const SourceRange &place) const;

  /// Where \p name, in any case, is a word of a damaged line, or would be but for one character
  /// that makes two of it (CUST,NAME for CUST-NAME). What it names there may be missing from the
  /// tree or differ from what was meant.
  llvm::SmallVector<SourceRange, 2> findName(llvm::StringRef name) const;

  /// Whether text is missing whose names are not known: a copybook was not found or not readable,
  /// or its COPY statement could only be parsed in part.
  bool isCopybookMissing() const { return copybookIsMissing; }

  //===--------------------------------------------------------------------===//
  // For the front end
  //===--------------------------------------------------------------------===//

  /// Marks the text at \p place as damaged.
  void add(const SourceRange &place);
  void addMissingCopybook() { copybookIsMissing = true; }
  /// Marks the text at \p place as damaged, which was meant to copy other text, though it does not
  /// have the word COPY or INCLUDE.
  void addLostCopy(const SourceRange &place);
  /// Adds the words that \p text, the text of file number \p file, has on damaged lines.
  void collectNames(unsigned file, llvm::StringRef text);

private:
  /// The damaged columns of one line, both ends included.
  struct Columns {
    unsigned first;
    unsigned last;
  };
  using Words = llvm::StringMap<llvm::SmallVector<SourceRange, 1>>;

  void addWords(unsigned file, unsigned line, llvm::StringRef text);

  llvm::DenseMap<std::pair<unsigned, unsigned>, llvm::SmallVector<Columns, 1>> lines; ///< by file
  Words names;       ///< in upper case
  Words brokenNames; ///< strings between blanks that are more than one word, in upper case
  bool copybookIsMissing = false;
};

} // namespace tarka

#endif // TARKA_PARSE_SOURCEDAMAGE_H
