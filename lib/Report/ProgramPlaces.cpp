//===- ProgramPlaces.cpp - what of a program is where ---------------------===//

#include "ProgramPlaces.h"
#include "AST/DataTree.h"
#include "AST/Program.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

ProgramPlaces::ProgramPlaces(Program &program) {
  for (SourceUnit *unit : program.getSourceUnitListElements())
    enterUnit(*unit);
  for (auto &[file, ofFile] : entries)
    llvm::sort(ofFile, [](const DataDescription *left, const DataDescription *right) {
      return std::pair(beginOf(left->getRange()), left->getSourceOrder()) <
             std::pair(beginOf(right->getRange()), right->getSourceOrder());
    });
}

void ProgramPlaces::enterUnit(SourceUnit &unit) {
  const SourceRange &whole = unit.getRange();
  unitParts.try_emplace({whole.file, beginOf(whole)}, UnitPart{&unit, false});
  if (const ProcedureDivision *procedures = unit.getProcDivision())
    unitParts[{procedures->getRange().file, beginOf(procedures->getRange())}] = {&unit, true};
  if (DataDivision *division = unit.getDataDivision()) {
    for (FileDescription *file : division->getFileSectionElements()) {
      enterFile(*file);
      for (DataDescription *record : file->getRecordDescElements())
        enterRecord(record);
    }
    if (const auto *records = division->getWorkSection())
      for (DataDescription *record : *records)
        enterRecord(record);
    for (DataDescription *record : division->getLocalSectionElements())
      enterRecord(record);
    for (DataDescription *record : division->getLinkSectionElements())
      enterRecord(record);
    for (ReportDescription *report : division->getReportSectionElements())
      for (DataDescription *group : report->getRecordListElements())
        enterRecord(group);
  }
  for (SourceUnit *nested : unit.getNestedListElements())
    enterUnit(*nested);
}

void ProgramPlaces::enterFile(FileDescription &file) {
  auto add = [&](const SourceRange &range) {
    fileParts.try_emplace({range.file, beginOf(range)}, FilePart{range, &file});
  };
  add(file.getRange());
  if (const ParaFileControl *select = file.getFileControl())
    add(select->getRange());
}

void ProgramPlaces::enterRecord(DataDescription *record) {
  forEachEntry(record, [&](const DataDescription *entry) {
    if (entry->isWritten())
      entries[entry->getRange().file].push_back(entry);
  });
}

llvm::ArrayRef<const DataDescription *> ProgramPlaces::entriesOf(unsigned file) const {
  const auto ofFile = entries.find(file);
  if (ofFile == entries.end())
    return {};
  return ofFile->second;
}

const DataDescription *ProgramPlaces::entryAt(const SourceRange &place) const {
  const llvm::ArrayRef<const DataDescription *> ofFile = entriesOf(place.file);
  const auto *next = llvm::upper_bound(
      ofFile, beginOf(place), [](const SourcePosition &position, const DataDescription *entry) {
        return position < beginOf(entry->getRange());
      });
  if (next == ofFile.begin())
    return nullptr;
  const DataDescription *entry = *std::prev(next);
  const SourceRange &range = entry->getRange();
  // The period that ends the entry belongs to its last line too.
  return place.beginLine <= range.endLine ? entry : nullptr;
}

const ProgramPlaces::FilePart *ProgramPlaces::filePartBefore(const SourceRange &place) const {
  const auto next = fileParts.upper_bound({place.file, beginOf(place)});
  if (next == fileParts.begin() || std::prev(next)->first.first != place.file)
    return nullptr;
  return &std::prev(next)->second;
}

const FileDescription *ProgramPlaces::fileAt(const SourceRange &place) const {
  const FilePart *part = filePartBefore(place);
  return part && place.beginLine <= part->range.endLine ? part->file : nullptr;
}

const ProgramPlaces::UnitPart *ProgramPlaces::unitPartBefore(const SourceRange &place) const {
  const auto next = unitParts.upper_bound({place.file, beginOf(place)});
  if (next == unitParts.begin() || std::prev(next)->first.first != place.file)
    return nullptr;
  return &std::prev(next)->second;
}

bool ProgramPlaces::isInProcedures(const SourceRange &place) const {
  const UnitPart *part = unitPartBefore(place);
  return part && part->isProcedures;
}

const SourceUnit *ProgramPlaces::unitAt(const SourceRange &place) const {
  const UnitPart *part = unitPartBefore(place);
  return part ? part->unit : nullptr;
}

bool ProgramPlaces::isInUnit(const SourceRange &place, const SourceUnit &unit) const {
  const SourceRange &whole = unit.getRange();
  if (place.file == whole.file && whole.beginLine <= place.beginLine &&
      place.beginLine <= whole.endLine)
    return true;
  const UnitPart *part = unitPartBefore(place);
  return part && part->unit == &unit;
}

} // namespace tarka
