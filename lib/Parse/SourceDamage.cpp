//===- SourceDamage.cpp - text that could not be read as meant ------------===//

#include "Parse/SourceDamage.h"
#include "Parse/CharacterTable.h"
#include "llvm/ADT/STLExtras.h"
#include <algorithm>

namespace tarka {

void SourceDamage::add(const SourceRange &place) {
  if (place.beginLine == 0)
    return;
  for (unsigned line = place.beginLine; line <= std::max(place.beginLine, place.endLine); ++line)
    lines.insert({place.file, line});
}

bool SourceDamage::contains(const SourceRange &place) const {
  for (unsigned line = place.beginLine; line <= place.endLine; ++line)
    if (lines.contains({place.file, line}))
      return true;
  return false;
}

void SourceDamage::collectNames(unsigned file, llvm::StringRef text) {
  for (unsigned line = 1; !text.empty(); ++line) {
    llvm::StringRef rest = text.take_until([](char c) { return c == '\n' || c == '\r'; });
    text = text.drop_front(rest.size());
    if (!text.consume_front("\r\n"))
      text = text.drop_front(!text.empty());
    if (!lines.contains({file, line}))
      continue;
    addWords(rest);
  }
}

void SourceDamage::addWords(llvm::StringRef text) {
  while (!(text = text.drop_while(isBlank)).empty()) {
    llvm::StringRef run = text.take_until(isBlank);
    text = text.drop_front(run.size());
    llvm::StringRef whole = run.trim(".,;()\"'");
    if (!llvm::all_of(whole, isWordCharacter))
      brokenNames.insert(whole.upper());
    while (!run.empty()) {
      std::string word = run.take_while(isWordCharacter).upper();
      run = run.drop_front(std::max<size_t>(word.size(), 1));
      // The text that these words copy in is not there.
      copybookIsMissing |= word == "COPY" || word == "INCLUDE";
      if (!word.empty())
        names.insert(word);
    }
  }
}

bool SourceDamage::hasName(llvm::StringRef name) const {
  std::string upper = name.upper();
  return names.contains(upper) || llvm::any_of(brokenNames.keys(), [&](llvm::StringRef broken) {
           return broken.size() == upper.size() && broken.edit_distance(upper, true, 1) <= 1;
         });
}

} // namespace tarka
