//===- Repairs.cpp - what one change of the source explains ---------------===//

#include "Report/Repairs.h"
#include "Excerpt.h"
#include "NumberClasses.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/Twine.h"
#include <cstdlib>
#include <optional>
#include <tuple>

namespace tarka {

namespace {

constexpr unsigned indicatorColumn = 7;
constexpr unsigned marginB = 12;
constexpr unsigned lastTextColumn = 72;
/// Around how many errors lines are exchanged.
constexpr std::size_t maxAnchors = 2;
/// How many doubled lines are tried.
constexpr std::size_t maxDoubled = 3;

bool isFinding(const Diagnostic &diagnostic) {
  return isError(diagnostic.severity) || diagnostic.severity == Severity::Warning;
}

/// Makes the changed texts of one source.
class RepairFinder {
public:
  RepairFinder(llvm::StringRef source, bool isFixed, unsigned fileNumber)
      : text(source), isFixedForm(isFixed), file(fileNumber) {
    text.split(lines, '\n');
    for (unsigned i = 0; i < lines.size(); ++i)
      if (isProgramText(lines[i]))
        codeLines.push_back(i);
  }

  std::vector<Repair> find(llvm::ArrayRef<Diagnostic> diagnostics);

private:
  /// The part of a line that holds program text: without sequence number and identification.
  llvm::StringRef programText(llvm::StringRef line) const {
    line = line.rtrim('\r');
    if (!isFixedForm)
      return line;
    return line.slice(offsetOfColumn(line, indicatorColumn),
                      offsetOfColumn(line, lastTextColumn + 1));
  }
  bool isProgramText(llvm::StringRef line) const {
    const llvm::StringRef program = programText(line);
    const bool isComment = isFixedForm ? program.starts_with("*") || program.starts_with("/")
                                       : program.ltrim().starts_with("*>");
    return !isComment && !program.trim().empty();
  }

  void insertHeader(llvm::StringRef header, std::size_t index);
  std::size_t recordLine(llvm::StringRef name) const;
  void exchangeLines(std::size_t first);
  void removeLine(std::size_t index);
  void breakLine(const SourceRange &place);
  void changeWords(const SourceRange &place);
  std::optional<std::pair<std::size_t, std::size_t>> wordAt(llvm::StringRef line,
                                                            std::size_t offset) const;
  std::optional<std::pair<std::size_t, std::size_t>> wordBefore(llvm::StringRef line,
                                                                std::size_t offset) const;

  /// The text with the lines from \p first to \p last, counted from 0, replaced.
  std::string replaceLines(std::size_t first, std::size_t last, const llvm::Twine &changed) const {
    const char *end = lines[last].end();
    return (text.take_front(static_cast<std::size_t>(lines[first].data() - text.data())) + changed +
            text.drop_front(static_cast<std::size_t>(end - text.data())))
        .str();
  }
  void add(std::string changed, std::size_t line, const llvm::Twine &description) {
    const unsigned number = static_cast<unsigned>(line) + 1;
    repairs.push_back(
        {std::move(changed), SourceRange(file, number, 1, number, 1), description.str()});
  }

  llvm::StringRef text;
  bool isFixedForm;
  unsigned file;
  llvm::SmallVector<llvm::StringRef, 0> lines;
  /// The indexes in lines of those with program text.
  std::vector<unsigned> codeLines;
  std::vector<Repair> repairs;
};

/// Inserts \p header before the line at \p index.
void RepairFinder::insertHeader(llvm::StringRef header, std::size_t index) {
  add(replaceLines(index, index,
                   llvm::Twine(std::string(indicatorColumn, ' ')) + header + ".\n" + lines[index]),
      index,
      "the header " + header + " may be missing before line " + llvm::Twine(index + 1) +
          ": with it");
}

/// The index of the line with the level 01 or 77 entry of \p name; that behind the last line where
/// none begins with it.
std::size_t RepairFinder::recordLine(llvm::StringRef name) const {
  for (const unsigned index : codeLines) {
    auto [level, rest] = llvm::getToken(programText(lines[index]));
    const bool isRecord = level == "01" || level == "1" || level == "77";
    if (isRecord && llvm::getToken(rest, " .").first.equals_insensitive(name))
      return index;
  }
  return lines.size();
}

/// Exchanges number \p first of the lines with program text and the next one.
void RepairFinder::exchangeLines(std::size_t first) {
  const unsigned upper = codeLines[first];
  const unsigned lower = codeLines[first + 1];
  const llvm::StringRef between(lines[upper].end(),
                                static_cast<std::size_t>(lines[lower].data() - lines[upper].end()));
  add(replaceLines(upper, lower, lines[lower] + between + lines[upper]), upper,
      "lines " + llvm::Twine(upper + 1) + " and " + llvm::Twine(lower + 1) +
          " may be exchanged: in the other order");
}

/// Removes number \p index of the lines with program text, which is the one before it again.
void RepairFinder::removeLine(std::size_t index) {
  const unsigned line = codeLines[index];
  add(replaceLines(line, line, ""), line,
      "line " + llvm::Twine(line + 1) + " is line " + llvm::Twine(codeLines[index - 1] + 1) +
          " again: without it");
}

/// Begins a new line where the line at \p place runs past the margin.
void RepairFinder::breakLine(const SourceRange &place) {
  const std::size_t index = place.beginLine - 1;
  const llvm::StringRef line = lines[index].rtrim("\r ");
  const std::size_t limit = offsetOfColumn(line, lastTextColumn + 1);
  // A word that is cut in two belongs to the new line.
  const std::size_t space = line.take_front(limit + 1).rfind(' ');
  if (limit >= line.size() || space == llvm::StringRef::npos || space < indicatorColumn)
    return;
  add(replaceLines(index, index,
                   line.take_front(space) + "\n" + llvm::Twine(std::string(marginB - 1, ' ')) +
                       line.drop_front(space + 1)),
      index, "what stands past column 72 may belong to a line of its own: in one");
}

/// The word, literal or mark of \p line at or behind \p offset: where it begins and ends.
std::optional<std::pair<std::size_t, std::size_t>> RepairFinder::wordAt(llvm::StringRef line,
                                                                        std::size_t offset) const {
  const std::size_t begin = line.find_first_not_of(" ,;", offset);
  if (begin == llvm::StringRef::npos)
    return std::nullopt;
  const char first = line[begin];
  std::size_t end = begin + 1;
  if (first == '"' || first == '\'') {
    end = line.find(first, begin + 1);
    end = end == llvm::StringRef::npos ? line.size() : end + 1;
  } else if (llvm::isAlnum(first)) {
    while (end < line.size() && (llvm::isAlnum(line[end]) || line[end] == '-' || line[end] == '_'))
      ++end;
  }
  return std::pair(begin, end);
}

std::optional<std::pair<std::size_t, std::size_t>>
RepairFinder::wordBefore(llvm::StringRef line, std::size_t offset) const {
  std::optional<std::pair<std::size_t, std::size_t>> last;
  const std::size_t start = isFixedForm ? offsetOfColumn(line, indicatorColumn + 1) : 0;
  for (auto word = wordAt(line, start); word && word->second <= offset;
       word = wordAt(line, word->second))
    last = word;
  return last;
}

/// Removes the word at \p place, divides it at a hyphen, exchanges it with its neighbours, or ends
/// the text before it with a period.
void RepairFinder::changeWords(const SourceRange &place) {
  const std::size_t index = place.beginLine - 1;
  const llvm::StringRef whole = lines[index];
  const llvm::StringRef line =
      isFixedForm ? whole.take_front(offsetOfColumn(whole, lastTextColumn + 1)) : whole;
  const llvm::StringRef behind = whole.drop_front(line.size());
  const auto word = wordAt(line, offsetOfColumn(line, place.beginColumn));
  if (!word)
    return;
  const auto [begin, end] = *word;
  const llvm::StringRef name = line.slice(begin, end);
  // The identification area stays where it is, as far as possible.
  auto change = [&](const llvm::Twine &changed, const llvm::Twine &description) {
    std::string program = changed.str();
    if (!behind.empty())
      program.resize(std::max(program.size(), line.size()), ' ');
    if (program.size() <= line.size() || behind.trim().empty())
      add(replaceLines(index, index, program + behind), index, description);
  };
  auto exchange = [&](std::pair<std::size_t, std::size_t> left,
                      std::pair<std::size_t, std::size_t> right) {
    const llvm::StringRef first = line.slice(left.first, left.second);
    const llvm::StringRef second = line.slice(right.first, right.second);
    change(line.take_front(left.first) + second + line.slice(left.second, right.first) + first +
               line.drop_front(right.second),
           "'" + first + "' and '" + second + "' may be exchanged: in the other order");
  };
  change(line.take_front(begin) + line.drop_front(end),
         "'" + name + "' may be superfluous: without it");
  for (std::size_t hyphen = name.find('-');
       hyphen != llvm::StringRef::npos && llvm::isAlpha(name[0]);
       hyphen = name.find('-', hyphen + 1))
    change(line.take_front(begin + hyphen) + " " + line.drop_front(begin + hyphen + 1),
           "'" + name + "' may be two words: as '" + name.take_front(hyphen) + "' and '" +
               name.drop_front(hyphen + 1) + "'");
  const auto before = wordBefore(line, begin);
  if (before) {
    exchange(*before, *word);
    change(line.take_front(before->second) + "." + line.drop_front(before->second),
           "a period may be missing before '" + name + "': with it");
  }
  if (const auto next = wordAt(line, end))
    exchange(*word, *next);
  // The period may be missing at the end of the line before.
  const auto own = llvm::lower_bound(codeLines, index);
  if (before || own == codeLines.begin())
    return;
  const std::size_t previous = *std::prev(own);
  const llvm::StringRef text72 = lines[previous].take_front(
      isFixedForm ? offsetOfColumn(lines[previous], lastTextColumn + 1) : llvm::StringRef::npos);
  const llvm::StringRef trimmed = text72.rtrim();
  if (trimmed.size() < text72.size() || text72.size() == lines[previous].size())
    add(replaceLines(
            previous, previous,
            trimmed + "." +
                lines[previous].drop_front(std::min(trimmed.size() + 1, lines[previous].size()))),
        previous, "a period may be missing behind line " + llvm::Twine(previous + 1) + ": with it");
}

std::vector<Repair> RepairFinder::find(llvm::ArrayRef<Diagnostic> diagnostics) {
  llvm::SmallVector<SourceRange, maxAnchors> anchors;
  std::size_t firstParameter = lines.size();
  for (const Diagnostic &diagnostic : diagnostics) {
    const SourceRange &place = diagnostic.place;
    if (!isFinding(diagnostic) || place.file != file || place.beginLine == 0 ||
        place.beginLine > lines.size() || anchors.size() == maxAnchors)
      continue;
    if (anchors.empty() || anchors.back().beginLine != place.beginLine)
      anchors.push_back(place);
    if (isTextPastMargin(diagnostic.number))
      breakLine(place);
    if (isMissingHeader(diagnostic.number))
      insertHeader(
          llvm::StringRef(diagnostic.text).split("the header ").second.split(" is missing").first,
          anchors.front().beginLine - 1);
    if (isAboutLinkage(diagnostic.number))
      firstParameter = std::min(firstParameter, recordLine(diagnostic.subject));
  }
  if (firstParameter < lines.size())
    insertHeader("LINKAGE SECTION", firstParameter);
  for (const SourceRange &place : anchors) {
    const auto own = llvm::lower_bound(codeLines, place.beginLine - 1);
    const auto at = static_cast<std::size_t>(own - codeLines.begin());
    // The line of the error with the one before it, the one behind it, and the two before it.
    for (const std::size_t first : {at - 1, at, at - 2})
      if (first < codeLines.size() && first + 1 < codeLines.size())
        exchangeLines(first);
  }
  if (!anchors.empty())
    changeWords(anchors.front());
  std::size_t doubled = 0;
  for (std::size_t i = 1; i < codeLines.size() && doubled < maxDoubled; ++i)
    if (programText(lines[codeLines[i]]).trim() == programText(lines[codeLines[i - 1]]).trim()) {
      removeLine(i);
      ++doubled;
    }
  return std::move(repairs);
}

/// The same for two diagnostics that say the same of the same line.
std::string keyOf(const Diagnostic &diagnostic) {
  return std::to_string(diagnostic.number) + '\n' + diagnostic.subject + '\n' +
         diagnostic.otherSubject + '\n' + llvm::StringRef(diagnostic.line).trim().str();
}

using Counts = llvm::StringMap<unsigned>;

Counts countsOf(llvm::ArrayRef<Diagnostic> diagnostics) {
  Counts counts;
  for (const Diagnostic &diagnostic : diagnostics)
    if (isFinding(diagnostic))
      ++counts[keyOf(diagnostic)];
  return counts;
}

} // namespace

std::vector<Repair> likelyRepairs(llvm::StringRef text, bool isFixedForm, unsigned file,
                                  llvm::ArrayRef<Diagnostic> diagnostics) {
  return RepairFinder(text, isFixedForm, file).find(diagnostics);
}

std::size_t countExplained(llvm::ArrayRef<Diagnostic> diagnostics,
                           llvm::ArrayRef<Diagnostic> remaining) {
  const Counts before = countsOf(diagnostics);
  std::size_t kept = 0;
  for (const auto &entry : countsOf(remaining)) {
    if (entry.getValue() > before.lookup(entry.getKey()))
      return 0;
    kept += entry.getValue();
  }
  return static_cast<std::size_t>(llvm::count_if(diagnostics, isFinding)) - kept;
}

void explainBy(const Repair &repair, std::vector<Diagnostic> &diagnostics,
               llvm::ArrayRef<Diagnostic> remaining) {
  Counts left = countsOf(remaining);
  std::vector<std::size_t> explained;
  for (std::size_t i = 0; i < diagnostics.size(); ++i) {
    if (!isFinding(diagnostics[i]))
      continue;
    if (unsigned &count = left[keyOf(diagnostics[i])]; count > 0)
      --count;
    else
      explained.push_back(i);
  }
  if (explained.size() < 2)
    return;
  // An error rather than a warning, near to the change rather than far from it.
  auto distance = [&](std::size_t index) {
    const SourceRange &place = diagnostics[index].place;
    const auto lines =
        static_cast<long>(place.beginLine) - static_cast<long>(repair.place.beginLine);
    return std::tuple(!isError(diagnostics[index].severity), place.file != repair.place.file,
                      std::abs(lines));
  };
  const std::size_t cause = *llvm::min_element(explained, [&](std::size_t one, std::size_t other) {
    return distance(one) < distance(other);
  });
  const std::size_t others = explained.size() - 1;
  diagnostics[cause].notes.push_back({repair.description + " this and " + std::to_string(others) +
                                          (others == 1 ? " more error are gone; --all shows it"
                                                       : " more errors are gone; --all shows them"),
                                      repair.place, ""});
  std::size_t index = 0;
  llvm::erase_if(diagnostics, [&](const Diagnostic &) {
    const std::size_t own = index++;
    return own != cause && llvm::is_contained(explained, own);
  });
}

} // namespace tarka
