//===- Suppressions.cpp - comments that turn diagnostics off --------------===//

#include "Report/Excerpt.h"
#include "Report/Selection.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

/// Fixed form: the column of the indicator, from 0.
constexpr std::size_t indicator = 6;

/// The next marker at or after \p from. A colon is rare in COBOL text and memchr() is fast.
std::size_t findMarker(llvm::StringRef text, std::size_t from) {
  const std::size_t beforeColon = Suppressions::marker.size() - 1;
  for (std::size_t colon = text.find(':', from + beforeColon); colon != llvm::StringRef::npos;
       colon = text.find(':', colon + 1))
    if (text.substr(colon - beforeColon).starts_with(Suppressions::marker))
      return colon - beforeColon;
  return llvm::StringRef::npos;
}

/// The text from \p at to the end of its line.
llvm::StringRef lineFrom(llvm::StringRef text, std::size_t at) {
  return text.substr(at).take_until([](char c) { return c == '\n' || c == '\r'; });
}

/// Whether a line has no program text. Also lines of fixed form with an asterisk or slash in
/// column 7 are comments.
bool isBlankOrComment(llvm::StringRef line) {
  const llvm::StringRef text = line.ltrim();
  if (text.empty() || text.starts_with("*>"))
    return true;
  if (line.size() <= indicator)
    return false;
  const llvm::StringRef rest = line.drop_front(indicator);
  return rest.front() == '*' || rest.front() == '/' || rest.starts_with("*>");
}

/// Whether \p before, which is the text of a line in front of a comment, holds program text and not
/// only a sequence number.
bool hasProgramText(llvm::StringRef before, bool isFixedComment) {
  if (isFixedComment || before.trim(" \t0123456789").empty())
    return false;
  return before.size() != indicator || before.contains('.');
}

} // namespace

/// A comment that begins with the marker.
struct Suppressions::Comment {
  unsigned line;         ///< its number
  unsigned nextLine;     ///< that of the next line with program text
  llvm::StringRef whole; ///< the whole line
  std::size_t start;     ///< where the text after the marker begins in it
  bool isOnLineOfItsOwn;
};

Suppressions::Suppressions(unsigned fileNumber, llvm::StringRef text) : file(fileNumber) {
  unsigned line = 1;
  std::size_t counted = 0;
  auto countTo = [&](std::size_t at) {
    line += static_cast<unsigned>(text.slice(counted, at).count('\n'));
    counted = at;
  };
  for (std::size_t at = findMarker(text, 0); at != llvm::StringRef::npos;
       at = findMarker(text, at + marker.size())) {
    const std::size_t newLine = text.rfind('\n', at);
    const std::size_t lineStart = newLine == llvm::StringRef::npos ? 0 : newLine + 1;
    const llvm::StringRef before = text.slice(lineStart, at).rtrim(' ');
    const bool isFixedComment = before.size() == indicator + 1 && before.ends_with("*");
    if (!isFixedComment && !before.ends_with("*>"))
      continue;
    countTo(at);
    Comment comment{line, line + 1, lineFrom(text, lineStart), at + marker.size() - lineStart,
                    !hasProgramText(before.drop_back(isFixedComment ? 1 : 2), isFixedComment)};
    for (std::size_t next = text.find('\n', at); next != llvm::StringRef::npos;
         next = text.find('\n', next + 1), ++comment.nextLine)
      if (!isBlankOrComment(lineFrom(text, next + 1)))
        break;
    readComment(comment);
  }
  for (auto [index, one] : llvm::enumerate(suppressions))
    if (one.firstLine == one.lastLine)
      byLine[one.firstLine].push_back(index);
    else
      regions.push_back(index);
}

void Suppressions::readComment(const Comment &comment) {
  llvm::SmallVector<llvm::StringRef, 8> words;
  llvm::SplitString(comment.whole.drop_front(comment.start), words, " \t,");
  auto placeOf = [&](llvm::StringRef word) {
    const std::size_t at = word.data() - comment.whole.data();
    return SourceRange{file, comment.line, columnOfOffset(comment.whole, at), comment.line,
                       columnOfOffset(comment.whole, at + word.size() - 1)};
  };
  const llvm::StringRef verb = words.empty() ? "" : words.front();
  if (verb != "off" && verb != "on") {
    const llvm::StringRef at = verb.empty() ? comment.whole.substr(comment.start - 1, 1) : verb;
    faults.push_back({placeOf(at), "'off' or 'on' is expected after 'tarka:'"});
    return;
  }
  llvm::ArrayRef<llvm::StringRef> rest = llvm::ArrayRef(words).drop_front();
  llvm::SmallVector<llvm::StringRef, 4> written;
  llvm::SmallVector<NumberRange, 4> numbers;
  for (; !rest.empty(); rest = rest.drop_front()) {
    const std::optional<NumberRange> range = parseNumbers(rest.front());
    if (!range)
      break;
    written.push_back(rest.front());
    numbers.push_back(*range);
  }
  if (verb == "on") {
    endRegions(comment.line, written);
    return;
  }
  if (written.empty()) {
    faults.push_back({placeOf(rest.empty() ? verb : rest.front()),
                      "the number of a diagnostic, a range of numbers or the name of a group is "
                      "expected after 'off'"});
    return;
  }
  for (const auto &[word, range] : llvm::zip_equal(written, numbers)) {
    // Unless an "on" follows, the comment holds for one line.
    const unsigned line = comment.isOnLineOfItsOwn ? comment.nextLine : comment.line;
    if (comment.isOnLineOfItsOwn)
      open.push_back(suppressions.size());
    suppressions.push_back(
        {placeOf(word), word.str(), range, line, line, llvm::join(rest, " "), false});
  }
}

/// Ends the regions that "on" in \p line names: for each of \p words the latest "off" of it that is
/// open, without words all of the latest comment.
void Suppressions::endRegions(unsigned line, llvm::ArrayRef<llvm::StringRef> words) {
  auto end = [&](std::size_t position) {
    suppressions[open[position]].lastLine = line;
    open.erase(open.begin() + static_cast<std::ptrdiff_t>(position));
  };
  if (words.empty() && !open.empty()) {
    const unsigned latest = suppressions[open.back()].place.beginLine;
    while (!open.empty() && suppressions[open.back()].place.beginLine == latest)
      end(open.size() - 1);
  }
  for (llvm::StringRef word : words)
    for (std::size_t position = open.size(); position-- > 0;)
      if (suppressions[open[position]].written == word) {
        end(position);
        break;
      }
}

bool Suppressions::suppress(const Diagnostic &diagnostic) {
  if (diagnostic.severity == Severity::Fatal)
    return false;
  const unsigned line = diagnostic.place.beginLine;
  bool isSuppressed = false;
  auto consider = [&](std::size_t index) {
    Suppression &one = suppressions[index];
    if (one.firstLine <= line && line <= one.lastLine && one.numbers.contains(diagnostic.number))
      one.isUsed = isSuppressed = true;
  };
  if (auto found = byLine.find(line); found != byLine.end())
    llvm::for_each(found->second, consider);
  llvm::for_each(regions, consider);
  return isSuppressed;
}

} // namespace tarka
