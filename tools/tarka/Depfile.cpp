//===- Depfile.cpp - the dependencies of a report, for Make and Ninja -----===//

#include "Depfile.h"
#include "OutputFile.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Path.h"

namespace tarka {

namespace {

bool isWantedBy(const Request &request) {
  return request.writeDepfile || !request.depfile.empty();
}

/// \p path as Make and Ninja read it.
std::string escape(llvm::StringRef path) {
  std::string text;
  for (const char c : path) {
    if (c == ' ' || c == '#')
      text += '\\';
    if (c == '$')
      text += '$';
    text += c;
  }
  return text;
}

} // namespace

std::string checkDepfileOptions(const Request &request) {
  if (isWantedBy(request) && request.output.empty() && request.depfileTargets.empty())
    return "a depfile needs a target: give --output FILE, or -MT NAME";
  return "";
}

Depfile::Depfile(const Request &request)
    : wanted(isWantedBy(request)), file(request.depfile), targets(request.depfileTargets) {
  if (!wanted)
    return;
  if (targets.empty())
    targets.push_back(request.output);
  if (file.empty()) {
    llvm::SmallString<128> name(request.output.empty() ? targets.front() : request.output);
    llvm::sys::path::replace_extension(name, "d");
    file = name.str();
  }
}

void Depfile::add(llvm::ArrayRef<std::string> paths) {
  for (const std::string &path : paths)
    inputs.insert(path);
}

bool Depfile::write() {
  if (!wanted)
    return true;
  std::vector<llvm::StringRef> sorted;
  for (const auto &entry : inputs)
    sorted.push_back(entry.first());
  llvm::sort(sorted);

  OutputFile output(file);
  if (llvm::raw_ostream *out = output.stream()) {
    llvm::ListSeparator space(" ");
    for (const std::string &target : targets)
      *out << space << escape(target);
    *out << ':';
    for (llvm::StringRef path : sorted)
      *out << " \\\n  " << escape(path);
    *out << '\n';
    for (llvm::StringRef path : sorted)
      *out << '\n' << escape(path) << ":\n";
    output.commit();
  }
  if (output.getError().empty())
    return true;
  llvm::errs() << "tarka: cannot write " << file << ": " << output.getError() << '\n';
  return false;
}

} // namespace tarka
