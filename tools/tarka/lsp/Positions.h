//===- Positions.h - characters as editors count them -----------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_POSITIONS_H
#define TARKA_TOOLS_LSP_POSITIONS_H

#include "llvm/ADT/StringRef.h"
#include <cstdint>

namespace tarka::lsp {

/// In what units an editor counts the characters of a line.
enum class PositionEncoding : std::uint8_t {
  Utf16, ///< as every editor can
  Utf8,  ///< bytes, for editors that offer it
};

/// The number of units of \p text, which is UTF-8 and a part of a line.
unsigned countUnits(llvm::StringRef text, PositionEncoding encoding);

/// The offset in bytes of unit number \p unit, from 0, in \p line; its length when the line is
/// shorter, the beginning of the character when the unit is within one.
std::size_t offsetOfUnit(llvm::StringRef line, unsigned unit, PositionEncoding encoding);

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_POSITIONS_H
