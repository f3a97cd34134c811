//===- FileUsage.cpp - what the statements of a program do with files -----===//

#include "FileUsage.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

constexpr unsigned bitOf(OpenType mode) {
  return 1U << static_cast<unsigned>(mode);
}

constexpr unsigned anyInput = bitOf(OpenType::Input) | bitOf(OpenType::InputOutput);
constexpr unsigned newRecords = bitOf(OpenType::Output) | bitOf(OpenType::Extend);
constexpr unsigned inputOutput = bitOf(OpenType::InputOutput);

/// A use of an opened file: the modes that allow it.
struct OpenNeed {
  FileUse use;
  llvm::StringLiteral verb;
  unsigned modes;
  llvm::StringLiteral modeNames;
};

constexpr OpenNeed openNeeds[] = {
    {FileUse::Read, "READ", anyInput, "INPUT or I-O"},
    {FileUse::Start, "START", anyInput, "INPUT or I-O"},
    {FileUse::Rewrite, "REWRITE", inputOutput, "I-O"},
    {FileUse::Delete, "DELETE", inputOutput, "I-O"},
    {FileUse::Write, "WRITE", newRecords, "OUTPUT or EXTEND"},
    {FileUse::WriteByKey, "WRITE", newRecords | inputOutput, "OUTPUT, EXTEND or I-O"},
};

} // namespace

void FileUsage::addOpen(const FileDescription &file, OpenType mode) {
  files[&file].modes |= bitOf(mode);
}

void FileUsage::add(FileUse use, const FileDescription &file, Node &place) {
  auto &uses = files[&file].uses;
  if (llvm::none_of(uses, [use](const auto &known) { return known.first == use; }))
    uses.emplace_back(use, &place);
}

void FileUsage::addSort(const FileDescription &file, const SortIO *input, const SortIO *output) {
  File &entry = files[&file];
  entry.hasInputProcedure |= input && input->getFromProcedureName();
  entry.hasOutputProcedure |= output && output->getFromProcedureName();
}

void FileUsage::finish(LanguageReport &report) {
  // The statement that opens the file may be missing in the tree.
  if (!report.isTreeIncomplete())
    for (const auto &[file, found] : files)
      check(*file, found, report);
  files.clear();
}

void FileUsage::check(const FileDescription &file, const File &found, LanguageReport &report) {
  const std::string &name = file.getFileName()->getDisplayName();
  // Other programs open files that they share with this one.
  const bool isShared = file.getExternal() || file.getGlobal() || found.isPassed;
  for (const auto &[use, place] : found.uses) {
    if (use == FileUse::Release && !found.hasInputProcedure)
      report.report(LanguageRule::SortProcedureMissing, *place, name, "INPUT", "RELEASE");
    else if (use == FileUse::Return && !found.hasOutputProcedure)
      report.report(LanguageRule::SortProcedureMissing, *place, name, "OUTPUT", "RETURN");
    // Of a file that is not opened at all, nothing is known.
    if (isShared || found.modes == 0)
      continue;
    for (const OpenNeed &need : openNeeds)
      if (need.use == use && !(need.modes & found.modes))
        report.report(LanguageRule::FileNeverOpened, *place, name, need.modeNames, need.verb);
  }
}

} // namespace tarka
