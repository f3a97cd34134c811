//===- LayoutModel.cpp - what the layout printers have in common ----------===//

#include "Print/LayoutModel.h"
#include "AST/DataTree.h"
#include "AST/StorageLayout.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/MathExtras.h"
#include <algorithm>

namespace tarka {

//===----------------------------------------------------------------------===//
// Entries
//===----------------------------------------------------------------------===//

llvm::StringRef programName(const SourceUnit &unit) {
  return withoutQuotes(unit.getSourceUnitName());
}

llvm::StringRef entryName(const DataDescription &entry) {
  return entry.getDataName() ? llvm::StringRef(entry.getDataName()->getDisplayName()) : "FILLER";
}

SourceRange placeOf(const DataDescription &entry) {
  if (entry.getRange().beginLine || !entry.getDataName())
    return entry.getRange();
  return entry.getDataName()->getRange();
}

const FileDescription *linageFile(const DataDescription &entry) {
  const FileDescription *file = entry.getFileDescription();
  return file && file->getLineageCounter() == &entry ? file : nullptr;
}

bool isImplicitRedefinition(const DataDescription &entry) {
  return entry.getRedefines() && !entry.getParent() && entry.getStorageType() == StorageType::File;
}

llvm::StringRef recordingModeName(const FileDescription &file) {
  const ClauseRecordingMode *mode = file.getRecordingMode();
  return mode ? nameOf(mode->getRecordingType()) : "";
}

const ClauseSign *signOf(const DataDescription &entry) {
  const UsageType usage = entry.getUsageType();
  if (!entry.getPicture() || !entry.getPicture()->isSigned() ||
      (usage != UsageType::Display && usage != UsageType::National))
    return nullptr;
  for (const DataDescription *from = &entry; from; from = from->getOwner())
    if (from->getSign())
      return from->getSign();
  return nullptr;
}

//===----------------------------------------------------------------------===//
// Literals and names
//===----------------------------------------------------------------------===//

static std::string quoted(llvm::StringRef text) {
  // An apostrophe in the text needs no doubling between quotation marks, and the other way round.
  const char quote = text.contains('"') && !text.contains('\'') ? '\'' : '"';
  std::string result(1, quote);
  for (char character : text) {
    result += character;
    if (character == quote)
      result += quote;
  }
  return result + quote;
}

std::string literalText(const LiteralExpression &literal) {
  if (auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal))
    return number->getData();
  if (auto *text = llvm::dyn_cast<NonNumericLiteralExpression>(&literal)) {
    return nameOf(text->getNonNumericLiteralType()).str() + quoted(text->getData());
  }
  auto &constant = llvm::cast<FigurativeLiteralExpression>(literal);
  if (constant.getFigurativeType() == FigurativeType::SymbolicCharacter)
    return constant.getSymbolName();
  std::string name = nameOf(constant.getFigurativeType()).str();
  if (constant.getFigurativeType() == FigurativeType::AllLiteral && constant.getLiteral())
    name += ' ' + literalText(*constant.getLiteral());
  return name;
}

std::string operandText(const Expression *operand) {
  auto *identifier = llvm::dyn_cast_if_present<DataIdentifierExpression>(operand);
  if (!identifier || !identifier->getQualifiedWord())
    return "";
  std::string text;
  for (const Word *word : identifier->getQualifiedWord()->getNamesElements()) {
    if (!text.empty())
      text += " OF ";
    text += word->getDisplayName();
  }
  return text;
}

std::string valueText(const LiteralExpression *literal, const Word *word) {
  if (literal)
    return literalText(*literal);
  return word ? word->getDisplayName() : "";
}

//===----------------------------------------------------------------------===//
// Sizes
//===----------------------------------------------------------------------===//

std::int64_t minTotalSize(const DataDescription &entry) {
  const ClauseOccurs *occurs = entry.getOccurs();
  return multiplySizes(entry.getMinAllocSize(), occurs ? occurs->getLeastOccurrences() : 1);
}

std::int64_t RecordGroup::bytes() const {
  std::int64_t total = 0;
  for (const DataDescription *record : records) {
    // The storage of a redefinition is that of its object, which is as long as the longest of them.
    if (record->getRedefineObject())
      continue;
    std::int64_t size = record->getTotalAllocSize();
    for (const DataDescription *subject : record->getRedefineSubjectElements())
      size = std::max(size, subject->getTotalAllocSize());
    total = addSizes(total, size);
  }
  return total;
}

std::size_t LayoutSection::recordCount() const {
  std::size_t count = 0;
  for (const RecordGroup &group : groups)
    count += group.records.size();
  return count;
}

std::int64_t LayoutSection::bytes() const {
  std::int64_t total = 0;
  for (const RecordGroup &group : groups)
    total = addSizes(total, group.bytes());
  return total;
}

//===----------------------------------------------------------------------===//
// Programs and sections
//===----------------------------------------------------------------------===//

namespace {

RecordGroup select(const std::list<DataDescription *> &records, const LayoutView &view) {
  RecordGroup group;
  for (const DataDescription *record : records) {
    const bool isWanted = view.record.empty() ? view.all || record->getOrigin() != Origin::Supplied
                                              : entryName(*record).equals_insensitive(view.record);
    if (isWanted) {
      group.records.push_back(record);
    } else if (view.record.empty()) {
      ++group.hiddenRecords;
      group.hiddenBytes = addSizes(group.hiddenBytes, record->getTotalAllocSize());
    }
  }
  return group;
}

LayoutSection fileSection(const DataDivision &division, const LayoutView &view) {
  LayoutSection section{"FILE SECTION", StorageType::File, {}};
  for (const FileDescription *file : division.getFileSectionElements()) {
    // All records of a file are its programmer's, but the one made for a report file.
    RecordGroup group = select(file->getRecordDescElements(), view);
    group.file = file;
    if (view.record.empty() || !group.records.empty())
      section.groups.push_back(std::move(group));
  }
  return section;
}

} // namespace

std::vector<LayoutSection> layoutSections(const SourceUnit &unit, const LayoutView &view) {
  std::vector<LayoutSection> sections;
  DataDivision *division = unit.getDataDivision();
  if (!division)
    return sections;
  auto add = [&](llvm::StringLiteral name, StorageType storage,
                 const std::list<DataDescription *> &records) {
    RecordGroup group = select(records, view);
    if (!group.records.empty() || group.hiddenRecords != 0)
      sections.push_back({name, storage, {std::move(group)}});
  };
  if (LayoutSection files = fileSection(*division, view); !files.groups.empty())
    sections.push_back(std::move(files));
  add("WORKING-STORAGE SECTION", StorageType::WorkingStorage,
      listOrEmpty(division->getWorkSection()));
  add("LOCAL-STORAGE SECTION", StorageType::LocalStorage, division->getLocalSectionElements());
  add("LINKAGE SECTION", StorageType::Linkage, division->getLinkSectionElements());
  return sections;
}

static void visitUnit(const SourceUnit &unit, llvm::function_ref<void(const SourceUnit &)> visit) {
  visit(unit);
  for (const SourceUnit *nested : unit.getNestedListElements())
    visitUnit(*nested, visit);
}

void forEachUnit(const Program &program, llvm::function_ref<void(const SourceUnit &)> visit) {
  for (const SourceUnit *unit : program.getSourceUnitListElements())
    visitUnit(*unit, visit);
}

//===----------------------------------------------------------------------===//
// A record that is not there
//===----------------------------------------------------------------------===//

namespace {

/// The first record that holds an item called \p name; null when there is none.
const DataDescription *findHolder(llvm::ArrayRef<const DataDescription *> records,
                                  llvm::StringRef name) {
  for (const DataDescription *record : records) {
    bool holdsName = false;
    forEachEntryIf(const_cast<DataDescription *>(record), [&](const DataDescription *entry) {
      holdsName |= name.equals_insensitive(entryName(*entry));
      return !holdsName;
    });
    if (holdsName)
      return record;
  }
  return nullptr;
}

std::string join(llvm::ArrayRef<llvm::StringRef> names) {
  return llvm::join(names, ", ");
}

} // namespace

std::optional<std::string> explainMissingRecord(const Program &program, llvm::StringRef name) {
  std::vector<const DataDescription *> records;
  bool isThere = false;
  forEachUnit(program, [&](const SourceUnit &unit) {
    LayoutView all;
    all.all = true;
    for (const LayoutSection &section : layoutSections(unit, all))
      for (const RecordGroup &group : section.groups)
        for (const DataDescription *record : group.records) {
          isThere |= name.equals_insensitive(entryName(*record));
          records.push_back(record);
        }
  });
  if (isThere)
    return std::nullopt;
  std::string none = "there is no record " + name.str();
  if (const DataDescription *holder = findHolder(records, name))
    return none + ", but an item of this name in the record " + entryName(*holder).str();

  // Names that differ in no more than a third of their letters are near.
  const unsigned allowed = std::max<unsigned>(1, name.size() / 3);
  constexpr std::size_t few = 20;
  std::vector<llvm::StringRef> near, written;
  for (const DataDescription *record : records) {
    llvm::StringRef other = entryName(*record);
    if (name.edit_distance_insensitive(other, true, allowed) <= allowed &&
        !llvm::is_contained(near, other))
      near.push_back(other);
    if (record->getOrigin() != Origin::Supplied && written.size() <= few &&
        !llvm::is_contained(written, other))
      written.push_back(other);
  }
  if (!near.empty())
    return none + "; similar: " + join(near);
  if (written.empty())
    return none + ", nor any other";
  if (written.size() > few)
    return none;
  return none + "; there are " + join(written);
}

} // namespace tarka
