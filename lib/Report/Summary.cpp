//===- Summary.cpp - what came out of a run, for a person -----------------===//

#include "Report/Sink.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/WithColor.h"

namespace tarka {

namespace {

/// A text is cut off after this many characters.
constexpr std::size_t titleWidth = 72;

std::string count(std::uint64_t number, llvm::StringRef what) {
  return (llvm::Twine(number) + " " + what + (number == 1 ? "" : "s")).str();
}

std::string shorten(std::string text) {
  llvm::StringRef cut = text;
  if (cut.size() <= titleWidth)
    return text;
  // Not in the middle of a word, nor of a character.
  return (cut.take_front(titleWidth).rsplit(' ').first + " ...").str();
}

} // namespace

void printSummary(llvm::raw_ostream &out, const RunSummary &summary, bool color,
                  llvm::function_ref<std::string(int number)> title) {
  const llvm::ColorMode mode = color ? llvm::ColorMode::Enable : llvm::ColorMode::Disable;
  out.enable_colors(color);

  // The most frequent number first.
  std::vector<std::pair<int, unsigned>> numbers(summary.numbers.begin(), summary.numbers.end());
  llvm::sort(numbers, [](const auto &left, const auto &right) {
    return std::make_pair(right.second, left.first) < std::make_pair(left.second, right.first);
  });
  for (const auto &[number, times] : numbers)
    out << llvm::format_decimal(times, 6) << " x " << llvm::format_decimal(number, 4) << "  "
        << shorten(title(number)) << '\n';

  out << count(summary.files, "file");
  if (summary.lines)
    out << ", " << count(summary.lines, "line");
  out << ": ";
  if (summary.errors)
    llvm::WithColor(out, llvm::HighlightColor::Error, mode) << count(summary.errors, "error");
  else
    out << "no errors";
  out << ", ";
  if (summary.warnings)
    llvm::WithColor(out, llvm::HighlightColor::Warning, mode) << count(summary.warnings, "warning");
  else
    out << "no warnings";
  if (summary.known)
    out << ", " << summary.known << " known";
  if (summary.gone)
    out << ", " << summary.gone << " of the baseline gone";
  out << llvm::format(" (%.2f s)\n", summary.seconds);
}

} // namespace tarka
