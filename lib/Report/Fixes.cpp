//===- Fixes.cpp - changing the source as diagnostics propose -------------===//

#include "Report/Fixes.h"
#include "Report/Excerpt.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/raw_ostream.h"
#include <map>

namespace tarka {

namespace {

/// Fixed form: the last column of program text.
constexpr unsigned lastTextColumn = 72;
/// How many unchanged lines a diff shows around a changed one.
constexpr std::size_t contextLines = 3;

} // namespace

FixedSource::FixedSource(llvm::StringRef text, bool isFixed) : isFixedForm(isFixed) {
  while (!text.empty()) {
    const std::size_t newLine = text.find('\n');
    llvm::StringRef whole =
        text.take_front(newLine == llvm::StringRef::npos ? newLine : newLine + 1);
    const llvm::StringRef before = whole.rtrim("\r\n");
    lines.push_back({before, whole.drop_front(before.size()), {}});
    text = text.drop_front(whole.size());
  }
}

/// The changed program text. The text after column 72 does not move.
std::string FixedSource::Line::after(bool isFixed) const {
  std::string text = before.str();
  std::string behind;
  if (isFixed) {
    const std::size_t limit = offsetOfColumn(before, lastTextColumn + 1);
    behind = before.drop_front(limit).str();
    text.resize(limit);
  }
  for (const TextEdit &edit : edits) {
    const std::size_t begin = offsetOfColumn(before, edit.place.beginColumn);
    const std::size_t next = offsetOfColumn(before, edit.place.endColumn + 1);
    text.replace(begin, next - begin, edit.newText);
  }
  if (isFixed && !edits.empty()) {
    text = llvm::StringRef(text).rtrim().str();
    const unsigned next = columnOfOffset(text, text.size());
    if (!behind.empty() && next <= lastTextColumn)
      text.append(lastTextColumn + 1 - next, ' ');
  }
  return text + behind;
}

/// Whether the program text of a line in fixed form ends where it may.
bool FixedSource::Line::fits() const {
  Line program = *this;
  program.before = before.take_front(offsetOfColumn(before, lastTextColumn + 1));
  const std::string text = program.after(true);
  return columnOfOffset(text, text.size()) <= lastTextColumn + 1;
}

bool FixedSource::canMake(const TextEdit &edit) const {
  const SourceRange &place = edit.place;
  if (place.beginLine == 0 || place.beginLine > lines.size() || place.endLine != place.beginLine)
    return false;
  const Line &line = lines[place.beginLine - 1];
  const std::size_t begin = offsetOfColumn(line.before, place.beginColumn);
  const std::size_t end = offsetOfColumn(line.before, place.endColumn + 1);
  if (end < begin || !line.before.slice(begin, end).equals_insensitive(edit.oldText))
    return false;
  return llvm::none_of(line.edits, [&](const TextEdit &other) {
    return place.beginColumn <= other.place.endColumn + 1u &&
           other.place.beginColumn <= place.endColumn + 1u;
  });
}

bool FixedSource::apply(llvm::ArrayRef<TextEdit> edits) {
  std::map<std::size_t, std::vector<TextEdit>> saved;
  for (const TextEdit &edit : edits) {
    bool isMade = canMake(edit);
    if (isMade) {
      const std::size_t index = edit.place.beginLine - 1;
      Line &line = lines[index];
      saved.try_emplace(index, line.edits);
      line.edits.push_back(edit);
      llvm::sort(line.edits, [](const TextEdit &left, const TextEdit &right) {
        return left.place.beginColumn > right.place.beginColumn;
      });
      isMade = !isFixedForm || line.fits();
    }
    if (!isMade) {
      for (auto &[index, before] : saved)
        lines[index].edits = std::move(before);
      return false;
    }
  }
  return true;
}

bool FixedSource::isChanged() const {
  return llvm::any_of(lines, [](const Line &line) { return !line.edits.empty(); });
}

std::string FixedSource::getText() const {
  std::string text;
  for (const Line &line : lines)
    text += line.after(isFixedForm) + line.end.str();
  return text;
}

void FixedSource::printDiff(llvm::raw_ostream &out, llvm::StringRef name) const {
  out << "--- " << name << "\n+++ " << name << '\n';
  for (std::size_t at = 0; at < lines.size();) {
    if (lines[at].edits.empty()) {
      ++at;
      continue;
    }
    // A hunk goes on as long as the next change is near.
    const std::size_t first = at > contextLines ? at - contextLines : 0;
    std::size_t last = at;
    for (std::size_t next = at; next < lines.size() && next <= last + 2 * contextLines; ++next)
      if (!lines[next].edits.empty())
        last = next;
    const std::size_t end = std::min(last + contextLines + 1, lines.size());
    out << "@@ -" << first + 1 << ',' << end - first << " +" << first + 1 << ',' << end - first
        << " @@\n";
    for (std::size_t index = first; index < end; ++index) {
      const Line &line = lines[index];
      auto print = [&](char mark, llvm::StringRef text) {
        out << mark << text << line.end;
        if (line.end.empty())
          out << "\n\\ No newline at end of file\n";
      };
      print(line.edits.empty() ? ' ' : '-', line.before);
      if (!line.edits.empty())
        print('+', line.after(isFixedForm));
    }
    at = end;
  }
}

} // namespace tarka
