//===- SourceDamage.cpp - text that could not be read as meant ------------===//

#include "Parse/SourceDamage.h"
#include "Parse/CharacterTable.h"
#include "llvm/ADT/STLExtras.h"
#include <algorithm>

namespace tarka {

/// The last column of a line, whatever its length.
static constexpr unsigned endOfLine = ~0u;

void SourceDamage::add(const SourceRange &place) {
  if (place.beginLine == 0)
    return;
  const unsigned lastLine = std::max(place.beginLine, place.endLine);
  for (unsigned line = place.beginLine; line <= lastLine; ++line) {
    const Columns added = {line == place.beginLine ? place.beginColumn : 1U,
                           line == place.endLine ? place.endColumn : endOfLine};
    auto &known = lines[{place.file, line}];
    if (llvm::none_of(known, [&](const Columns &columns) {
          return columns.first <= added.first && added.last <= columns.last;
        }))
      known.push_back(added);
  }
}

void SourceDamage::addLostCopy(const SourceRange &place) {
  add(place);
  names["COPY"].push_back(place);
  copybookIsMissing = true;
}

bool SourceDamage::contains(const SourceRange &place) const {
  for (unsigned line = place.beginLine; line <= place.endLine; ++line) {
    const auto damaged = lines.find({place.file, line});
    if (damaged == lines.end())
      continue;
    const unsigned first = line == place.beginLine ? place.beginColumn : 1;
    const unsigned last = line == place.endLine ? place.endColumn : endOfLine;
    if (llvm::any_of(damaged->second, [&](const Columns &columns) {
          return columns.first <= last && first <= columns.last;
        }))
      return true;
  }
  return false;
}

void SourceDamage::collectNames(unsigned file, llvm::StringRef text) {
  for (unsigned line = 1; !text.empty(); ++line) {
    llvm::StringRef rest = text.take_until([](char c) { return c == '\n' || c == '\r'; });
    text = text.drop_front(rest.size());
    if (!text.consume_front("\r\n"))
      text = text.drop_front(!text.empty());
    if (lines.contains({file, line}))
      addWords(file, line, rest);
  }
}

void SourceDamage::addWords(unsigned file, unsigned line, llvm::StringRef text) {
  const char *begin = text.data();
  llvm::StringRef previous;
  auto add = [&](Words &words, llvm::StringRef word) {
    const auto column = static_cast<unsigned>(word.data() - begin) + 1;
    const auto length = static_cast<unsigned>(word.size());
    words[word.upper()].push_back({file, line, column, line, column + length - 1});
  };
  while (!(text = text.drop_while(isBlank)).empty()) {
    llvm::StringRef run = text.take_until(isBlank);
    text = text.drop_front(run.size());
    llvm::StringRef whole = run.trim(".,;()\"'");
    if (!llvm::all_of(whole, isWordCharacter))
      add(brokenNames, whole);
    // A blank can stand in the place of a character as well.
    if (!previous.empty() && whole.begin() == previous.end() + 1)
      add(brokenNames, {previous.data(), previous.size() + 1 + whole.size()});
    previous = whole;
    while (!run.empty()) {
      const llvm::StringRef word = run.take_while(isWordCharacter);
      run = run.drop_front(std::max<size_t>(word.size(), 1));
      if (word.empty())
        continue;
      // The text that these words copy in is not there.
      copybookIsMissing |= word.equals_insensitive("COPY") || word.equals_insensitive("INCLUDE");
      add(names, word);
    }
  }
}

llvm::SmallVector<SourceRange, 2> SourceDamage::findName(llvm::StringRef name) const {
  const std::string upper = name.upper();
  llvm::SmallVector<SourceRange, 2> places;
  if (const auto found = names.find(upper); found != names.end())
    llvm::append_range(places, found->second);
  for (const auto &broken : brokenNames)
    if (broken.getKey().size() == upper.size() &&
        broken.getKey().edit_distance(upper, /*AllowReplacements=*/true, 1) <= 1)
      llvm::append_range(places, broken.second);
  return places;
}

} // namespace tarka
