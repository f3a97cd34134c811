//===- Document.cpp - a text that an editor has open ----------------------===//

#include "lsp/Document.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka::lsp {

/// Lines end with LF, CR LF or CR, as in the protocol and in the front end.
const std::vector<std::size_t> &Document::getLines() {
  if (!lines.empty())
    return lines;
  lines = {0};
  for (std::size_t at = 0; (at = text.find_first_of("\r\n", at)) != std::string::npos;) {
    at += text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
    lines.push_back(at);
  }
  return lines;
}

llvm::StringRef Document::lineOf(unsigned number) {
  if (number == 0 || number > getLines().size())
    return "";
  return llvm::StringRef(text).substr(lines[number - 1]).take_until([](char c) {
    return c == '\n' || c == '\r';
  });
}

std::size_t Document::offsetOf(std::int64_t line, std::int64_t character,
                               PositionEncoding encoding) {
  if (line < 0)
    return 0;
  if (static_cast<std::uint64_t>(line) >= getLines().size())
    return text.size();
  const auto unit = static_cast<unsigned>(std::clamp<std::int64_t>(character, 0, ~0u));
  return lines[static_cast<std::size_t>(line)] +
         offsetOfUnit(lineOf(static_cast<unsigned>(line) + 1), unit, encoding);
}

mlir::lsp::Position Document::positionOf(std::size_t offset, PositionEncoding encoding) {
  const auto line = std::prev(
      llvm::partition_point(getLines(), [&](std::size_t begin) { return begin <= offset; }));
  const llvm::StringRef before = llvm::StringRef(text).slice(*line, offset);
  return {static_cast<int>(line - lines.begin()), static_cast<int>(countUnits(before, encoding))};
}

void Document::replace(std::size_t begin, std::size_t end, llvm::StringRef with, EditMap *edits) {
  // An editor that sends more than what has changed, up to the whole text, moves nothing else.
  const llvm::StringRef old = llvm::StringRef(text).slice(begin, end);
  const auto [oldEnd, newEnd] = std::mismatch(old.begin(), old.end(), with.begin(), with.end());
  const auto same = static_cast<std::size_t>(oldEnd - old.begin());
  begin += same;
  with = with.drop_front(same);
  while (end > begin && !with.empty() && text[end - 1] == with.back()) {
    --end;
    with = with.drop_back();
  }
  if (edits)
    edits->add(begin, end, with.size());
  text.replace(begin, end - begin, with.data(), with.size());
  lines.clear();
}

bool Document::change(const llvm::json::Array &changes, std::int64_t newVersion,
                      PositionEncoding encoding, EditMap *edits) {
  version = newVersion;
  auto offset = [&](const llvm::json::Object &position) {
    return offsetOf(position.getInteger("line").value_or(0),
                    position.getInteger("character").value_or(0), encoding);
  };
  for (const llvm::json::Value &value : changes) {
    const llvm::json::Object *one = value.getAsObject();
    const std::optional<llvm::StringRef> with = one ? one->getString("text") : std::nullopt;
    if (!with)
      return false;
    const llvm::json::Object *range = one->getObject("range");
    if (!range) {
      replace(0, text.size(), *with, edits);
      continue;
    }
    const llvm::json::Object *start = range->getObject("start");
    const llvm::json::Object *end = range->getObject("end");
    if (!start || !end)
      return false;
    const std::size_t from = offset(*start);
    replace(from, std::max(from, offset(*end)), *with, edits);
  }
  return true;
}

} // namespace tarka::lsp
