//===- Baseline.cpp - findings that are known -----------------------------===//
//
// A baseline is a text file with one finding per line, so that a version control
// system can merge it: the fingerprint, and for readers the number, the file and
// the message.
//
//===----------------------------------------------------------------------===//

#include "Report/Reporter.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/MemoryBuffer.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka {

static constexpr llvm::StringLiteral header = "# tarka baseline 1";

llvm::Expected<Baseline> Baseline::read(const std::string &path) {
  auto buffer = llvm::MemoryBuffer::getFile(path);
  if (!buffer)
    return llvm::createStringError(buffer.getError(), "the baseline %s cannot be read: %s",
                                   path.c_str(), buffer.getError().message().c_str());
  llvm::StringRef rest = (*buffer)->getBuffer();
  if (!rest.starts_with(header))
    return llvm::createStringError("%s is not a baseline: it does not begin with '%s'",
                                   path.c_str(), header.data());
  Baseline baseline;
  while (!rest.empty()) {
    auto [line, tail] = rest.split('\n');
    rest = tail;
    line = line.trim();
    if (!line.empty() && !line.starts_with("#"))
      baseline.findings[line.split(' ').first].push_back(line.str());
  }
  return baseline;
}

void Baseline::add(const Diagnostic &diagnostic) {
  findings[diagnostic.fingerprint].push_back(
      diagnostic.fingerprint + " " + std::to_string(diagnostic.number) + " " +
      fileNameOf(diagnostic.place.file) + ": " + diagnostic.getMessage());
}

bool Baseline::take(const Diagnostic &diagnostic) {
  auto found = findings.find(diagnostic.fingerprint);
  if (found == findings.end() || found->second.empty())
    return false;
  found->second.pop_back();
  return true;
}

std::vector<std::string> Baseline::remaining() const {
  // By file and number.
  std::vector<std::tuple<llvm::StringRef, llvm::StringRef, llvm::StringRef>> sorted;
  for (const auto &entry : findings)
    for (llvm::StringRef line : entry.second) {
      auto [number, rest] = line.split(' ').second.split(' ');
      sorted.emplace_back(rest.split(": ").first, number, line);
    }
  llvm::sort(sorted);
  std::vector<std::string> lines;
  lines.reserve(sorted.size());
  for (const auto &[file, number, line] : sorted)
    lines.push_back(line.str());
  return lines;
}

std::size_t Baseline::size() const {
  std::size_t count = 0;
  for (const auto &entry : findings)
    count += entry.second.size();
  return count;
}

void Baseline::write(llvm::raw_ostream &out) const {
  out << header << "\n# Findings that 'tarka check --baseline' does not report.\n";
  for (const std::string &line : remaining())
    out << line << '\n';
}

} // namespace tarka
