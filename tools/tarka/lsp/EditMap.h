//===- EditMap.h - where text is after it has been edited -------*- C++ -*-===//

#ifndef TARKA_TOOLS_LSP_EDITMAP_H
#define TARKA_TOOLS_LSP_EDITMAP_H

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace tarka::lsp {

/// Relates the offsets of a text to those of a later version of it. What lies between the edits has
/// only moved.
class EditMap {
public:
  /// Records that the bytes from \p begin to \p end of the later text were replaced by \p length
  /// others.
  void add(std::size_t begin, std::size_t end, std::size_t length);

  /// Where the bytes from \p begin to \p end are in the later text; what has been replaced at
  /// either end of them is left out.
  std::pair<std::size_t, std::size_t> toLater(std::size_t begin, std::size_t end) const;
  /// Whether any of these bytes has been replaced, or something stands between them.
  bool isEdited(std::size_t begin, std::size_t end) const;
  /// Where \p offset of the later text was; none within new text.
  std::optional<std::size_t> toEarlier(std::size_t offset) const;

private:
  /// A piece of the earlier text and what stands there now.
  struct Hunk {
    std::size_t begin, end;
    std::size_t laterBegin, laterEnd;
  };
  /// In the order of the text, with unchanged text between any two.
  std::vector<Hunk> hunks;
};

} // namespace tarka::lsp

#endif // TARKA_TOOLS_LSP_EDITMAP_H
