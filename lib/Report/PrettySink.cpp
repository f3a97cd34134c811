//===- PrettySink.cpp - the report for a person at a terminal -------------===//

#include "Report/Excerpt.h"
#include "Report/Sink.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/WithColor.h"

namespace tarka {

namespace {

/// How wide the numbers of lines are shown.
constexpr unsigned numberWidth = 6;

llvm::raw_ostream::Colors colorOf(Severity severity) {
  if (isError(severity))
    return llvm::raw_ostream::RED;
  return severity == Severity::Warning ? llvm::raw_ostream::MAGENTA : llvm::raw_ostream::BLUE;
}

/// The cells that are marked below a line: from \p begin to before \p end, which is greater.
struct Marks {
  std::size_t begin;
  std::size_t end;

  auto operator<=>(const Marks &) const = default;
};

Marks marksOf(const Excerpt &excerpt, const SourceRange &place) {
  const std::size_t begin = excerpt.cellsBefore(place.beginColumn);
  // What goes on in further lines is marked to the end of this one.
  const std::size_t end =
      place.endLine == place.beginLine ? excerpt.cellsBefore(place.endColumn + 1) : excerpt.size();
  return {begin, std::max(end, begin + 1)};
}

class PrettySink : public Sink {
public:
  PrettySink(llvm::raw_ostream &stream, bool useColor)
      : out(stream), mode(useColor ? llvm::ColorMode::Enable : llvm::ColorMode::Disable) {
    out.enable_colors(useColor);
  }

  void beginFile(llvm::StringRef) override { flush(); }
  void report(const Diagnostic &diagnostic) override { pending.push_back(diagnostic); }
  void end(const RunSummary &) override { flush(); }

private:
  using Group = llvm::SmallVector<const Diagnostic *, 2>;

  void flush();
  void printGroup(const Group &group);
  void printHeader(const SourceRange &place, llvm::raw_ostream::Colors color, llvm::StringRef kind,
                   llvm::StringRef text);
  void printExcerpt(llvm::StringRef line, llvm::ArrayRef<SourceRange> places);
  void printFix(const Diagnostic &diagnostic);

  llvm::raw_ostream &out;
  llvm::ColorMode mode;
  /// Those of the compilation that are not printed yet.
  std::vector<Diagnostic> pending;
  bool isFirst = true;
};

/// What was found in one line comes together, where the first of them stands.
void PrettySink::flush() {
  std::vector<Group> groups;
  llvm::DenseMap<std::pair<unsigned, unsigned>, std::size_t> byLine;
  for (const Diagnostic &diagnostic : pending) {
    auto [position, isNew] =
        byLine.try_emplace({diagnostic.place.file, diagnostic.place.beginLine}, groups.size());
    if (isNew)
      groups.emplace_back();
    groups[position->second].push_back(&diagnostic);
  }
  for (const Group &group : groups)
    printGroup(group);
  pending.clear();
}

void PrettySink::printGroup(const Group &group) {
  if (!isFirst)
    out << '\n';
  isFirst = false;
  llvm::SmallVector<SourceRange, 2> places;
  for (const Diagnostic *diagnostic : group) {
    printHeader(diagnostic->place, colorOf(diagnostic->severity),
                (severityName(diagnostic->severity) + " " + llvm::Twine(diagnostic->number)).str(),
                diagnostic->getMessage());
    places.push_back(diagnostic->place);
  }
  printExcerpt(group.front()->line, places);
  for (const Diagnostic *diagnostic : group) {
    for (const DiagnosticNote &note : diagnostic->notes) {
      printHeader(note.place, llvm::raw_ostream::CYAN, "note", note.text);
      printExcerpt(note.line, note.place);
    }
    if (!diagnostic->copiedFrom.empty())
      printHeader({}, llvm::raw_ostream::CYAN, "note", "copied from " + diagnostic->copiedFrom);
    printFix(*diagnostic);
  }
}

void PrettySink::printHeader(const SourceRange &place, llvm::raw_ostream::Colors color,
                             llvm::StringRef kind, llvm::StringRef text) {
  if (place.beginLine != 0)
    llvm::WithColor(out, llvm::raw_ostream::SAVEDCOLOR, /*Bold=*/true, /*BG=*/false, mode)
        << fileNameOf(place.file) << ':' << place.beginLine << ':' << place.beginColumn << ": ";
  llvm::WithColor(out, color, /*Bold=*/true, /*BG=*/false, mode) << kind << ": ";
  llvm::WithColor(out, llvm::raw_ostream::SAVEDCOLOR, /*Bold=*/true, /*BG=*/false, mode) << text;
  out << '\n';
}

void PrettySink::printExcerpt(llvm::StringRef line, llvm::ArrayRef<SourceRange> places) {
  if (line.trim().empty())
    return;
  const SourceRange &first = places.front();
  const Excerpt excerpt(line, first.beginColumn);
  out << llvm::format_decimal(first.beginLine, numberWidth) << " | " << excerpt.getText() << '\n';
  // As many lines of marks as places overlap.
  llvm::SmallVector<Marks, 2> all;
  for (const SourceRange &place : places)
    all.push_back(marksOf(excerpt, place));
  llvm::sort(all);
  all.erase(llvm::unique(all), all.end());
  while (!all.empty()) {
    std::size_t cell = 0;
    out.indent(numberWidth) << " | ";
    llvm::erase_if(all, [&](const Marks &marks) {
      if (marks.begin < cell)
        return false;
      out.indent(static_cast<unsigned>(marks.begin - cell));
      llvm::WithColor(out, llvm::raw_ostream::GREEN, /*Bold=*/true, /*BG=*/false, mode)
          << '^' << std::string(marks.end - marks.begin - 1, '~');
      cell = marks.end;
      return true;
    });
    out << '\n';
  }
}

void PrettySink::printFix(const Diagnostic &diagnostic) {
  for (const TextEdit &edit : diagnostic.fix) {
    out.indent(numberWidth) << " = ";
    llvm::WithColor(out, llvm::raw_ostream::CYAN, /*Bold=*/true, /*BG=*/false, mode) << "fix: ";
    if (edit.oldText.empty())
      out << "insert '" << edit.newText << "' in line " << edit.place.beginLine << ", column "
          << edit.place.beginColumn << '\n';
    else
      out << "write " << edit.newText << " for " << edit.oldText << '\n';
  }
}

} // namespace

std::unique_ptr<Sink> makePrettySink(llvm::raw_ostream &out, bool color) {
  return std::make_unique<PrettySink>(out, color);
}

} // namespace tarka
