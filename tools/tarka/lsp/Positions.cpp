//===- Positions.cpp - characters as editors count them -------------------===//

#include "lsp/Positions.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

namespace {

/// The bytes of the character that \p lead begins. A byte that begins none counts as one.
unsigned lengthOfCharacter(unsigned char lead) {
  if (lead < 0xC0)
    return 1;
  return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// Characters beyond the first plane take two units.
unsigned unitsOfCharacter(unsigned char lead) {
  return lead < 0xF0 ? 1 : 2;
}

} // namespace

unsigned countUnits(llvm::StringRef text, PositionEncoding encoding) {
  if (encoding == PositionEncoding::Utf8)
    return static_cast<unsigned>(text.size());
  unsigned units = 0;
  for (std::size_t offset = 0; offset < text.size();) {
    const auto lead = static_cast<unsigned char>(text[offset]);
    units += unitsOfCharacter(lead);
    offset += lengthOfCharacter(lead);
  }
  return units;
}

std::size_t offsetOfUnit(llvm::StringRef line, unsigned unit, PositionEncoding encoding) {
  if (encoding == PositionEncoding::Utf8)
    return std::min<std::size_t>(unit, line.size());
  std::size_t offset = 0;
  for (unsigned before = 0; offset < line.size();) {
    const auto lead = static_cast<unsigned char>(line[offset]);
    before += unitsOfCharacter(lead);
    if (before > unit)
      break;
    offset += lengthOfCharacter(lead);
  }
  return std::min(offset, line.size());
}

} // namespace tarka::lsp
