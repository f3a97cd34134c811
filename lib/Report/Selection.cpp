//===- Selection.cpp - choosing what is reported --------------------------===//

#include "Report/Selection.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

namespace {

constexpr int maxNumber = 9999;

constexpr DiagnosticGroup groups[] = {
    {"front-end", {1, 999}, "what reading the source reports"},
    {"source", {1, 199}, "source text, copybooks, directives"},
    {"syntax", {200, 999}, "the syntax of all divisions"},
    {"cobol", {1000, 4003}, "the rules of the language"},
    {"flow", {4004, 5000}, "checks on flow and data"},
    {"language", {5001, 5200}, "further rules of the language"},
    {"embedded", {5201, 5500}, "CICS, SQL and DL/I"},
    {"calls", {5501, 5600}, "calls between programs"},
    {"portability", {5601, 5999}, "language that other compilers do not accept"},
    {"all", {1, maxNumber}, "everything"},
};

} // namespace

llvm::ArrayRef<DiagnosticGroup> diagnosticGroups() {
  return groups;
}

std::optional<NumberRange> parseNumbers(llvm::StringRef word) {
  const auto *group = llvm::find_if(
      groups, [&](const DiagnosticGroup &one) { return word.equals_insensitive(one.name); });
  if (group != std::end(groups))
    return group->range;
  auto [first, last] = word.split('-');
  NumberRange range;
  if (first.getAsInteger(10, range.first))
    return std::nullopt;
  range.last = range.first;
  if (word.contains('-') && last.getAsInteger(10, range.last))
    return std::nullopt;
  if (range.first < 1 || range.first > range.last || range.last > maxNumber)
    return std::nullopt;
  return range;
}

std::string Selection::add(Action action, llvm::StringRef words) {
  llvm::SmallVector<llvm::StringRef, 4> items;
  llvm::SplitString(words, items, ", ");
  if (items.empty())
    return words.empty() ? " " : words.str();
  for (llvm::StringRef item : items) {
    const std::optional<NumberRange> range = parseNumbers(item);
    if (!range)
      return item.str();
    rules.push_back({*range, action});
  }
  return "";
}

bool Selection::apply(Diagnostic &diagnostic) const {
  if (diagnostic.severity == Severity::Fatal)
    return true;
  for (const Rule &rule : llvm::reverse(rules)) {
    if (!rule.range.contains(diagnostic.number))
      continue;
    if (rule.action == Action::Off)
      return false;
    diagnostic.severity = rule.action == Action::Error ? Severity::Error : Severity::Warning;
    return true;
  }
  return true;
}

std::string Selection::describe() const {
  std::string text;
  for (const Rule &rule : rules)
    text += std::to_string(rule.range.first) + '-' + std::to_string(rule.range.last) + ' ' +
            std::to_string(static_cast<int>(rule.action)) + ';';
  return text;
}

} // namespace tarka
