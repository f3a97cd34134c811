//===- Excerpt.cpp - a source line as a terminal shows it -----------------===//

#include "Report/Excerpt.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/ConvertUTF.h"
#include "llvm/Support/Unicode.h"
#include <algorithm>

namespace tarka {

namespace {

constexpr std::size_t tabWidth = 8;
/// How many cells of a line are shown at most, and how many of them before the place at least.
constexpr std::size_t maxCells = 132;
constexpr std::size_t cellsInFront = 60;
constexpr llvm::StringLiteral dots = "...";

constexpr char shiftOut = '\x0E';
constexpr char shiftIn = '\x0F';

/// Goes over the characters of a line.
class Characters {
public:
  explicit Characters(llvm::StringRef line) : rest(line) {}

  bool atEnd() const { return rest.empty(); }
  /// Takes the next character.
  llvm::StringRef next() {
    const std::size_t size = std::min<std::size_t>(
        llvm::getNumBytesForUTF8(static_cast<llvm::UTF8>(rest.front())), rest.size());
    const llvm::StringRef character = rest.take_front(size);
    rest = rest.drop_front(size);
    columns = isDouble && size > 1 ? 2 : 1;
    if (character.front() == shiftOut || character.front() == shiftIn)
      isDouble = character.front() == shiftOut;
    return character;
  }
  /// How many columns the character taken last has.
  unsigned columnsOfLast() const { return columns; }

private:
  llvm::StringRef rest;
  unsigned columns = 1;
  bool isDouble = false;
};

/// How many cells \p character takes when \p cells stand before it.
std::size_t cellsOf(llvm::StringRef character, std::size_t cells) {
  if (character == "\t")
    return tabWidth - cells % tabWidth;
  const int width = llvm::sys::unicode::columnWidthUTF8(character);
  return width < 0 ? 1 : static_cast<std::size_t>(width);
}

} // namespace

Excerpt::Excerpt(llvm::StringRef line, unsigned column) {
  line = line.rtrim();
  std::size_t width = 0;
  for (Characters characters(line); !characters.atEnd();) {
    const llvm::StringRef character = characters.next();
    cells.append(characters.columnsOfLast(), width);
    width += cellsOf(character, width);
  }
  cells.push_back(width);

  if (width <= maxCells) {
    append(line, 0, width);
    return;
  }
  const std::size_t at = cellsBefore(column);
  const std::size_t first = at > cellsInFront ? at - cellsInFront : 0;
  const std::size_t last = std::min(width, first + maxCells);
  if (first > 0)
    text = dots;
  append(line, first, last);
  if (last < width)
    text += dots;
  cutCells = first > 0 ? first - dots.size() : 0;
}

/// Appends what stands in the cells from \p firstCell to before \p lastCell.
void Excerpt::append(llvm::StringRef line, std::size_t firstCell, std::size_t lastCell) {
  std::size_t cell = 0;
  for (Characters characters(line); !characters.atEnd() && cell < lastCell;) {
    const llvm::StringRef character = characters.next();
    const std::size_t width = cellsOf(character, cell);
    const bool isShown = llvm::sys::unicode::columnWidthUTF8(character) >= 0;
    if (cell >= firstCell)
      text += isShown ? character.str() : std::string(width, ' ');
    else if (cell + width > firstCell)
      text.append(cell + width - firstCell, ' ');
    cell += width;
  }
}

std::size_t Excerpt::cellsBefore(unsigned column) const {
  const std::size_t index = column == 0 ? 0 : column - 1;
  const std::size_t whole =
      index < cells.size() ? cells[index] : cells.back() + (index + 1 - cells.size());
  return whole > cutCells ? whole - cutCells : 0;
}

std::size_t offsetOfColumn(llvm::StringRef line, unsigned column) {
  unsigned at = 1;
  std::size_t offset = 0;
  for (Characters characters(line); !characters.atEnd() && at < column;) {
    offset += characters.next().size();
    at += characters.columnsOfLast();
  }
  return offset;
}

unsigned columnOfOffset(llvm::StringRef line, std::size_t offset) {
  unsigned column = 1;
  std::size_t at = 0;
  for (Characters characters(line); !characters.atEnd() && at < offset;) {
    at += characters.next().size();
    column += characters.columnsOfLast();
  }
  return column;
}

} // namespace tarka
