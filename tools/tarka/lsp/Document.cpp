//===- Document.cpp - a text that an editor has open ----------------------===//

#include "lsp/Document.h"

namespace tarka::lsp {

/// Lines end with LF, CR LF or CR, as in the protocol and in the front end.
void Document::findLines() {
  lines = {0};
  for (std::size_t at = 0; (at = text.find_first_of("\r\n", at)) != std::string::npos;) {
    at += text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
    lines.push_back(at);
  }
}

/// What lies behind the end of a line is its end, what lies behind the last line the end of the
/// text.
std::size_t Document::offsetOf(const llvm::json::Object &position,
                               PositionEncoding encoding) const {
  const auto line = static_cast<std::uint64_t>(position.getInteger("line").value_or(0));
  const auto character = static_cast<unsigned>(position.getInteger("character").value_or(0));
  if (line >= lines.size())
    return text.size();
  const llvm::StringRef rest = llvm::StringRef(text).substr(lines[line]);
  const llvm::StringRef whole = rest.take_until([](char c) { return c == '\n' || c == '\r'; });
  return lines[line] + offsetOfUnit(whole, character, encoding);
}

void Document::replace(std::size_t begin, std::size_t end, llvm::StringRef with) {
  text.replace(begin, end - begin, with.data(), with.size());
  lines.clear();
}

bool Document::change(const llvm::json::Array &changes, std::int64_t newVersion,
                      PositionEncoding encoding) {
  version = newVersion;
  for (const llvm::json::Value &value : changes) {
    const llvm::json::Object *one = value.getAsObject();
    const std::optional<llvm::StringRef> with = one ? one->getString("text") : std::nullopt;
    if (!with)
      return false;
    const llvm::json::Object *range = one->getObject("range");
    if (!range) {
      replace(0, text.size(), *with);
      continue;
    }
    const llvm::json::Object *start = range->getObject("start");
    const llvm::json::Object *end = range->getObject("end");
    if (!start || !end)
      return false;
    if (lines.empty())
      findLines();
    const std::size_t from = offsetOf(*start, encoding);
    replace(from, std::max(from, offsetOf(*end, encoding)), *with);
  }
  return true;
}

} // namespace tarka::lsp
