//===- Excerpt.h - a source line as a terminal shows it ---------*- C++ -*-===//

#ifndef TARKA_LIB_REPORT_EXCERPT_H
#define TARKA_LIB_REPORT_EXCERPT_H

#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka {

/// A source line with its tabs expanded and its control characters as blanks, and where in it the
/// columns of a place are. Columns count characters, from 1; a DBCS character between shift codes
/// has two. On a terminal a wide character takes two cells and a combining one none.
class Excerpt {
public:
  /// \p line is UTF-8. Of a long line a part around \p column is kept.
  Excerpt(llvm::StringRef line, unsigned column);

  const std::string &getText() const { return text; }
  /// How many cells stand before \p column.
  std::size_t cellsBefore(unsigned column) const;
  /// How many cells the line has, as far as it is shown.
  std::size_t size() const { return cellsBefore(static_cast<unsigned>(cells.size())); }

private:
  void append(llvm::StringRef line, std::size_t firstCell, std::size_t lastCell);

  std::string text;
  /// By column - 1: the cells of the whole line before it.
  llvm::SmallVector<std::size_t, 128> cells;
  /// How many cells of the line were cut off in front, less those of the dots that show it.
  std::size_t cutCells = 0;
};

/// The offset in bytes of \p column in \p line; its length when the line is shorter.
std::size_t offsetOfColumn(llvm::StringRef line, unsigned column);

/// The column of the character at \p offset in \p line.
unsigned columnOfOffset(llvm::StringRef line, std::size_t offset);

} // namespace tarka

#endif // TARKA_LIB_REPORT_EXCERPT_H
