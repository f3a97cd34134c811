//===- Fixes.h - changing the source as diagnostics propose -----*- C++ -*-===//

#ifndef TARKA_REPORT_FIXES_H
#define TARKA_REPORT_FIXES_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/ArrayRef.h"

namespace tarka {

/// A source text with some of its lines changed.
class FixedSource {
public:
  /// \p text is UTF-8; with \p isFixedForm the program text ends at column 72, and the text after
  /// it stays in its columns.
  FixedSource(llvm::StringRef text, bool isFixedForm);

  /// Makes all of \p edits, which are for this text, or none of them. False when the old text is
  /// not in its place, an edit overlaps one made before, or a line of fixed form becomes too long.
  bool apply(llvm::ArrayRef<TextEdit> edits);

  /// Whether an edit was made.
  bool isChanged() const;
  /// The text with the edits.
  std::string getText() const;
  /// Writes the changes as a unified diff of the file \p name.
  void printDiff(llvm::raw_ostream &out, llvm::StringRef name) const;

private:
  struct Line {
    llvm::StringRef before; ///< without its end
    llvm::StringRef end;    ///< LF or CR LF, empty at the end of the file
    /// The edits made, by column from the right.
    std::vector<TextEdit> edits;

    /// The line with its edits; in fixed form the text after column 72 stays in its columns.
    std::string after(bool isFixedForm) const;
    bool fits() const;
  };
  bool canMake(const TextEdit &edit) const;

  std::vector<Line> lines;
  bool isFixedForm;
};

} // namespace tarka

#endif // TARKA_REPORT_FIXES_H
