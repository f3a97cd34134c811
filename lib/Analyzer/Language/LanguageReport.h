//===- LanguageReport.h - where the second pass reports ---------*- C++ -*-===//

#ifndef TARKA_LIB_ANALYZER_LANGUAGEREPORT_H
#define TARKA_LIB_ANALYZER_LANGUAGEREPORT_H

#include "Analyzer/LanguageChecker.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/Support/FormatVariadic.h"
#include <tuple>
#include <vector>

namespace tarka {

/// Collects the diagnostics of the second pass. One mistake gets one message: a node in which an
/// earlier pass has reported something is skipped.
class LanguageReport {
public:
  explicit LanguageReport(const EarlierDiagnostics &earlier);

  /// The unit that what is reported from now on belongs to.
  void setUnit(SourceUnit &current) { unit = &current; }
  SourceUnit *getUnit() const { return unit; }

  /// True when parts of the source may be missing in the tree.
  bool isTreeIncomplete() const { return treeIncomplete; }
  /// Whether an earlier pass has reported anything.
  bool hasEarlier() const { return treeIncomplete || !reported.empty(); }
  /// Whether an earlier pass has reported something that begins within \p node.
  bool isReported(const Node &node) const;

  /// Reports that \p rule is broken at \p node, unless it is skipped or is not in the source.
  /// \p arguments fill in the format of the rule. Gives the entry, or null.
  template <typename... Arguments>
  ErrorEntry *report(LanguageRule rule, Node &node, Arguments &&...arguments) {
    if (node.getRange().origin != Origin::Source || isReported(node))
      return nullptr;
    const LanguageRuleInfo &info = languageRules()[static_cast<std::size_t>(rule)];
    entries.emplace_back(static_cast<ErrorEntry::ErrorSeverity>(info.severity), &node, info.number,
                         llvm::formatv(info.format, std::forward<Arguments>(arguments)...).str());
    // What a message is about comes first in quotes.
    ErrorEntry &entry = entries.back();
    entry.setSourceUnit(unit);
    entry.setSubject(
        llvm::StringRef(entry.getMessage()).split('\'').second.split('\'').first.str());
    return &entry;
  }

  std::vector<ErrorEntry> takeEntries() { return std::move(entries); }

private:
  /// File, line and column.
  using Place = std::tuple<unsigned, unsigned, unsigned>;

  /// Where earlier diagnostics begin, sorted.
  std::vector<Place> reported;
  bool treeIncomplete;
  SourceUnit *unit = nullptr;
  std::vector<ErrorEntry> entries;
};

/// "1 subscript", "3 subscripts".
inline std::string countOf(std::int64_t number, llvm::StringRef what) {
  return llvm::formatv("{0} {1}{2}", number, what, number == 1 ? "" : "s").str();
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_LANGUAGEREPORT_H
