//===- PrintLayout.cpp - records as a table and as JSON -------------------===//

#include "Print/PrintLayout.h"
#include "AST/StorageLayout.h"
#include "Print/JsonVersion.h"
#include "Print/LayoutModel.h"
#include "Print/ReportLayout.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Format.h"
#include "llvm/Support/JSON.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>

namespace tarka {

namespace {

/// Calls \p visit with \p entry, its condition names and what is subordinate to it, in source
/// order, and with how deep each stands.
template <typename Visitor>
void forEachRow(const DataDescription &entry, unsigned depth, Visitor visit) {
  visit(entry, depth);
  for (const DataDescription *conditionName : entry.getCondNameChildrenElements())
    forEachRow(*conditionName, depth + 1, visit);
  for (const DataDescription *child : entry.getChildrenElements())
    forEachRow(*child, depth + 1, visit);
}

//===----------------------------------------------------------------------===//
// What the text says of an entry
//===----------------------------------------------------------------------===//

/// A description: parts that are set off by commas, each of some words.
class Description {
public:
  /// Begins a part with \p words.
  Description &part(const llvm::Twine &text) {
    if (!parts.empty())
      parts.back().back() += ',';
    parts.emplace_back();
    return add(text);
  }
  /// Goes on with more words.
  Description &add(const llvm::Twine &text) {
    std::string whole = text.str();
    llvm::SmallVector<llvm::StringRef, 8> pieces;
    llvm::StringRef(whole).split(pieces, ' ', -1, /*KeepEmpty=*/false);
    for (llvm::StringRef piece : pieces)
      parts.back().push_back(piece.str());
    return *this;
  }
  /// Goes on with \p text, which stays together although it may hold blanks.
  Description &addWhole(std::string text) {
    parts.back().push_back(std::move(text));
    return *this;
  }
  bool empty() const { return parts.empty(); }
  llvm::ArrayRef<std::vector<std::string>> getParts() const { return parts; }

private:
  std::vector<std::vector<std::string>> parts;
};

/// A size or an offset, which may be beyond what can be counted.
std::string sizeText(std::int64_t bytes) {
  return bytes == MaxStorageSize ? "too large" : std::to_string(bytes);
}

/// "20 bytes", or "20 to 200 bytes".
std::string byteRange(std::int64_t min, std::int64_t max) {
  const char *unit = max == MaxStorageSize ? "" : max == 1 ? " byte" : " bytes";
  return (min == max ? "" : sizeText(min) + " to ") + sizeText(max) + unit;
}

void describeValues(Description &text, const ClauseValue &clause) {
  text.part("VALUE");
  for (const PhraseValue *phrase : clause.getPhraseValElements()) {
    text.addWhole(valueText(phrase->getLiteral1(), phrase->getWord1()));
    if (phrase->getLiteral2() || phrase->getWord2())
      text.add("THRU").addWhole(valueText(phrase->getLiteral2(), phrase->getWord2()));
  }
  if (clause.getFalseValue())
    text.part("FALSE").addWhole(literalText(*clause.getFalseValue()));
}

void describeOccurs(Description &text, const DataDescription &entry) {
  const ClauseOccurs &occurs = *entry.getOccurs();
  text.part("OCCURS");
  if (occurs.isVariableTable())
    text.add(std::to_string(occurs.getLeastOccurrences()) + " TO");
  text.add(std::to_string(occurs.getMostOccurrences()));
  if (occurs.isVariableTable())
    text.add("DEPENDING ON " + operandText(occurs.getOdoName()));
  if (occurs.getIndexListSize() != 0)
    text.add("INDEXED BY");
  for (const DataIdentifierExpression *index : occurs.getIndexListElements())
    text.add(operandText(index));
  text.part(byteRange(minTotalSize(entry), entry.getTotalAllocSize()) + " in all");
}

/// What the data of an entry are.
void describeData(Description &text, const DataDescription &entry) {
  llvm::StringRef category = nameOf(entry.getDataCategory());
  if (entry.hasSubordinateData()) {
    text.part(category == "national" ? "national group" : "group");
    if (entry.getMinAllocSize() != entry.getAllocSize())
      text.part(byteRange(entry.getMinAllocSize(), entry.getAllocSize()));
    return;
  }
  llvm::StringRef usage = nameOf(entry.getUsageType());
  if (entry.getPicture())
    text.part("")
        .addWhole("PIC " + entry.getPicture()->getCharStringWord()->getWordData())
        .add(usage);
  else
    text.part(usage);
  if (!category.empty() && !category.equals_insensitive(usage))
    text.part(category);
}

void describeClauses(Description &text, const DataDescription &entry) {
  if (const ClauseSign *sign = signOf(entry))
    text.part("SIGN")
        .add(sign->isLeading() ? "LEADING" : "TRAILING")
        .add(sign->isSeperate() ? "SEPARATE" : "");
  if (entry.getOccurs())
    describeOccurs(text, entry);
  if (entry.getRedefines()) {
    text.part("REDEFINES " + operandText(entry.getRedefines()->getData()));
    if (isImplicitRedefinition(entry))
      text.add("(implicit)");
  }
  if (entry.getSynchronized())
    text.part("SYNCHRONIZED");
  if (entry.getJustified())
    text.part("JUSTIFIED");
  if (entry.getBlankZero())
    text.part("BLANK WHEN ZERO");
  if (entry.getExternal())
    text.part("EXTERNAL");
  // What is subordinate to a GLOBAL record takes the clause over.
  if (entry.getGlobal() && !entry.getOwner())
    text.part("GLOBAL");
}

Description describe(const DataDescription &entry) {
  Description text;
  if (entry.getLevelNum() == 88) {
    if (entry.getValue())
      describeValues(text, *entry.getValue());
    return text;
  }
  if (const ClauseRenames *renames = entry.getRenames()) {
    text.part("RENAMES " + operandText(renames->getFromData()));
    if (renames->getToData())
      text.add("THRU " + operandText(renames->getToData()));
    return text;
  }
  describeData(text, entry);
  describeClauses(text, entry);
  if (!entry.isWritten())
    text.part("compiler-made");
  if (const FileDescription *file = linageFile(entry))
    text.add("for " + file->getFileName()->getDisplayName());
  return text;
}

Description describe(const FileDescription &file) {
  Description text;
  if (llvm::StringRef mode = recordingModeName(file); !mode.empty())
    text.part("recording mode " + mode);
  if (const ClauseRecord *clause = file.getRecord()) {
    const NumericLiteralExpression *min = clause->getMinLength();
    const NumericLiteralExpression *max = clause->getMaxLength();
    if (min && max)
      text.part("records of " + byteRange(min->getIntegerValue(), max->getIntegerValue()));
    else if (max)
      text.part("records of up to " + max->getData() + " bytes");
    else if (min)
      text.part(clause->getIsVarying() ? "records of at least" : "records of")
          .add(min->getData() + " bytes");
  }
  if (file.getExternal())
    text.part("EXTERNAL");
  if (file.getGlobal())
    text.part("GLOBAL");
  return text;
}

//===----------------------------------------------------------------------===//
// The table
//===----------------------------------------------------------------------===//

/// A row of the table but for its description.
struct Row {
  SourceRange place;
  std::string item;
  /// Below 0 where the row has none.
  std::int64_t offset = -1;
  std::int64_t bytes = -1;
};

Row makeRow(const DataDescription &entry, unsigned depth) {
  // A column holds the deepest hierarchy with its longest names; the level numbers tell the rest.
  constexpr unsigned deepest = 20;
  Row row;
  row.place = placeOf(entry);
  row.item.assign(std::size_t{2} * std::min(depth, deepest), ' ');
  const unsigned level = entry.getLevelNum();
  row.item += (level < 10 ? "0" : "") + std::to_string(level) + ' ';
  row.item += entryName(entry);
  if (level != 88) {
    row.offset = entry.getOffset();
    row.bytes = entry.getAllocSize();
  }
  return row;
}

Row makeRow(const RecordGroup &group) {
  Row row;
  row.place = group.file->getRange();
  row.item =
      (nameOf(group.file->getType()) + " " + group.file->getFileName()->getDisplayName()).str();
  row.bytes = group.bytes();
  return row;
}

/// At least four digits, which keeps the offsets of ordinary records in line.
std::string hexadecimal(std::int64_t number) {
  if (number < 0 || number == MaxStorageSize)
    return "";
  std::string digits = llvm::utohexstr(static_cast<std::uint64_t>(number));
  return std::string(4 - std::min<std::size_t>(digits.size(), 4), '0') + digits;
}

/// Writes rows of at most 100 columns. The columns are as wide as what they hold.
class Table {
public:
  explicit Table(llvm::raw_ostream &output) : os(output) {}

  /// Makes the columns wide enough for \p row.
  void fit(const Row &row);
  /// Comes after the last row to fit and before the first to print.
  void settle();
  void printHeader();
  void print(const Row &row, const Description &description);

private:
  static constexpr unsigned LineWidth = 100;
  /// Longer names have a line to themselves.
  static constexpr unsigned LongestItem = 36;

  unsigned descriptionColumn() const {
    return lineWidth + itemWidth + offsetWidth + hexWidth + bytesWidth + 10;
  }
  void printFileOf(const Row &row);
  void printDescription(const Description &description);
  void printBroken(llvm::StringRef text, unsigned column, unsigned width);

  llvm::raw_ostream &os;
  unsigned lineWidth = 4;
  unsigned itemWidth = 12;
  unsigned offsetWidth = 6;
  unsigned hexWidth = 4;
  unsigned bytesWidth = 5;
  /// The source file of the row before.
  unsigned file = 0;
};

void Table::fit(const Row &row) {
  lineWidth = std::max<unsigned>(lineWidth, std::to_string(row.place.beginLine).size());
  itemWidth = std::max<unsigned>(itemWidth, row.item.size());
  offsetWidth = std::max<unsigned>(offsetWidth, sizeText(row.offset).size());
  hexWidth = std::max<unsigned>(hexWidth, hexadecimal(row.offset).size());
  bytesWidth = std::max<unsigned>(bytesWidth, sizeText(row.bytes).size());
}

/// Leaves room for the description, however large the numbers are.
void Table::settle() {
  constexpr unsigned shortestDescription = 24;
  const unsigned others = descriptionColumn() - itemWidth;
  const unsigned room = LineWidth - shortestDescription - std::min(others, 60u);
  itemWidth = std::min({itemWidth, LongestItem, room});
}

void Table::printHeader() {
  os << llvm::right_justify("Line", lineWidth) << "  " << llvm::left_justify("Item", itemWidth)
     << "  " << llvm::right_justify("Offset", offsetWidth) << "  "
     << llvm::right_justify("Hex", hexWidth) << "  " << llvm::right_justify("Bytes", bytesWidth)
     << "  Description\n";
  file = 0;
}

/// Lines count within a file: where the file changes, a line of the table names it.
void Table::printFileOf(const Row &row) {
  if (row.place.beginLine == 0 || row.place.file == file)
    return;
  file = row.place.file;
  os << "-- " << fileNameOf(file) << " --\n";
}

/// \p text in lines of at most \p width, each but the first after \p column blanks.
void Table::printBroken(llvm::StringRef text, unsigned column, unsigned width) {
  os << text.take_front(width);
  while (text.size() > width) {
    text = text.drop_front(width);
    os << '\n';
    os.indent(column) << text.take_front(width);
  }
}

/// Breaks lines between parts where it can, and within a part where that is too long for a line. A
/// word that is too long even so has a line to itself, which may begin further to the left; only
/// what is too long for that line as well is broken.
void Table::printDescription(const Description &description) {
  const unsigned column = descriptionColumn();
  const std::size_t width = LineWidth - column;
  const std::size_t fullWidth = LineWidth - lineWidth - 2;
  std::size_t used = 0;
  auto print = [&](llvm::StringRef word, std::size_t needed) {
    const bool isLong = word.size() > width;
    unsigned at = isLong ? LineWidth - std::min(word.size(), fullWidth) : column;
    if (used == 0 && !isLong) {
      os << "  ";
    } else if (used != 0 && used + 1 + needed <= width) {
      os << ' ';
      ++used;
    } else {
      os << '\n';
      os.indent(at);
      used = 0;
    }
    printBroken(word, at, LineWidth - at);
    used += isLong ? width : word.size();
  };
  for (const std::vector<std::string> &part : description.getParts()) {
    std::size_t length = part.size() - 1;
    for (const std::string &word : part)
      length += word.size();
    for (const std::string &word : part)
      print(word, &word == &part.front() && length <= width ? length : word.size());
  }
}

void Table::print(const Row &row, const Description &description) {
  printFileOf(row);
  os << llvm::right_justify(row.place.beginLine ? std::to_string(row.place.beginLine) : "",
                            lineWidth)
     << "  ";
  llvm::StringRef item = row.item;
  if (item.size() > itemWidth) {
    printBroken(item, lineWidth + 2, LineWidth - lineWidth - 2);
    os << '\n';
    os.indent(lineWidth + 2);
    item = "";
  }
  const bool isLast = row.bytes < 0 && description.empty();
  os << llvm::left_justify(item, isLast ? 0 : itemWidth);
  if (!isLast) {
    os << "  ";
    if (row.offset < 0)
      os.indent(offsetWidth + 2 + hexWidth);
    else
      os << llvm::right_justify(sizeText(row.offset), offsetWidth) << "  "
         << llvm::right_justify(hexadecimal(row.offset), hexWidth);
    os << "  ";
    if (row.bytes < 0)
      os.indent(bytesWidth);
    else
      os << llvm::right_justify(sizeText(row.bytes), bytesWidth);
  }
  printDescription(description);
  os << '\n';
}

//===----------------------------------------------------------------------===//
// The text form
//===----------------------------------------------------------------------===//

class TextPrinter {
public:
  TextPrinter(llvm::raw_ostream &output, const LayoutView &wanted) : os(output), view(wanted) {}

  void print(const Program &program);

private:
  void printUnit(const SourceUnit &unit, llvm::ArrayRef<LayoutSection> sections);
  void addTotals(llvm::StringRef program, llvm::ArrayRef<LayoutSection> sections);
  void printTotals();

  struct Total {
    std::string program;
    std::string section;
    std::size_t records;
    std::int64_t bytes;
    std::string remark;
  };

  llvm::raw_ostream &os;
  const LayoutView &view;
  std::vector<Total> totals;
};

void TextPrinter::print(const Program &program) {
  forEachUnit(program, [&](const SourceUnit &unit) {
    std::vector<LayoutSection> sections = layoutSections(unit, view);
    // Of programs that are silent on a certain record nothing is said.
    if (!view.record.empty() && sections.empty())
      return;
    printUnit(unit, sections);
    addTotals(programName(unit), sections);
  });
  if (view.record.empty())
    printTotals();
}

void TextPrinter::printUnit(const SourceUnit &unit, llvm::ArrayRef<LayoutSection> sections) {
  os << "PROGRAM " << programName(unit);
  if (unit.isNested())
    os << " in " << programName(*unit.getParent());
  os << "\n\n";

  Table table(os);
  for (const LayoutSection &section : sections)
    for (const RecordGroup &group : section.groups) {
      if (group.file)
        table.fit(makeRow(group));
      for (const DataDescription *record : group.records)
        forEachRow(*record, 0, [&](const DataDescription &entry, unsigned depth) {
          table.fit(makeRow(entry, depth));
        });
    }

  table.settle();

  for (const LayoutSection &section : sections) {
    if (section.recordCount() == 0 && !section.groups.front().file)
      continue;
    os << section.name << '\n';
    table.printHeader();
    for (const RecordGroup &group : section.groups) {
      if (group.file)
        table.print(makeRow(group), describe(*group.file));
      for (const DataDescription *record : group.records)
        forEachRow(*record, 0, [&](const DataDescription &entry, unsigned depth) {
          table.print(makeRow(entry, depth), describe(entry));
        });
    }
    os << '\n';
  }
  if (view.record.empty())
    printReportsText(os, unit);
}

void TextPrinter::addTotals(llvm::StringRef program, llvm::ArrayRef<LayoutSection> sections) {
  for (const LayoutSection &section : sections) {
    if (section.recordCount() != 0)
      totals.push_back({program.str(), section.name.str(), section.recordCount(), section.bytes(),
                        section.storage == StorageType::Linkage ? "not allocated here" : ""});
    for (const RecordGroup &group : section.groups)
      if (group.hiddenRecords != 0)
        totals.push_back({program.str(), "special registers", group.hiddenRecords,
                          group.hiddenBytes, "shown with --all"});
  }
}

void TextPrinter::printTotals() {
  unsigned programWidth = 7, bytesWidth = 5;
  constexpr unsigned sectionWidth = 23;
  for (const Total &total : totals) {
    programWidth = std::max<unsigned>(programWidth, total.program.size());
    bytesWidth = std::max<unsigned>(bytesWidth, sizeText(total.bytes).size());
  }
  programWidth = std::min(programWidth, 36u);
  os << "OVERVIEW\n"
     << llvm::left_justify("Program", programWidth) << "  "
     << llvm::left_justify("Section", sectionWidth) << "  Records  "
     << llvm::right_justify("Bytes", bytesWidth) << '\n';
  for (const Total &total : totals) {
    if (total.program.size() > programWidth)
      os << total.program << '\n' << llvm::left_justify("", programWidth);
    else
      os << llvm::left_justify(total.program, programWidth);
    os << "  " << llvm::left_justify(total.section, sectionWidth) << "  "
       << llvm::format_decimal(total.records, 7) << "  "
       << llvm::right_justify(sizeText(total.bytes), bytesWidth);
    if (!total.remark.empty())
      os << "  " << total.remark;
    os << '\n';
  }
}

//===----------------------------------------------------------------------===//
// JSON
//===----------------------------------------------------------------------===//

class JsonPrinter {
public:
  JsonPrinter(llvm::raw_ostream &output, const LayoutView &wanted)
      : json(output, /*IndentSize=*/1), view(wanted) {}

  void print(const Program &program);

private:
  void printUnit(const SourceUnit &unit, llvm::ArrayRef<LayoutSection> sections);
  void printSection(const LayoutSection &section);
  void printFile(const RecordGroup &group);
  void printRecords(llvm::StringRef key, const RecordGroup &group);
  void printEntry(const DataDescription &entry);
  void printData(const DataDescription &entry);
  void printOccurs(const DataDescription &entry);
  void printValues(const ClauseValue &clause);
  void printPlace(const SourceRange &place);

  /// Leaves the field out when there is no text.
  void text(llvm::StringRef key, llvm::StringRef value) {
    if (!value.empty())
      json.attribute(key, toUtf8(value));
  }
  /// Leaves the field out when it does not hold.
  void flag(llvm::StringRef key, bool holds) {
    if (holds)
      json.attribute(key, true);
  }

  llvm::json::OStream json;
  const LayoutView &view;
};

void JsonPrinter::print(const Program &program) {
  json.object([&] {
    printVersion(json);
    text("name", program.getInputName());
    json.attributeArray("programs", [&] {
      forEachUnit(program, [&](const SourceUnit &unit) {
        std::vector<LayoutSection> sections = layoutSections(unit, view);
        if (view.record.empty() || !sections.empty())
          printUnit(unit, sections);
      });
    });
  });
}

void JsonPrinter::printUnit(const SourceUnit &unit, llvm::ArrayRef<LayoutSection> sections) {
  json.object([&] {
    text("name", programName(unit));
    if (unit.isNested())
      text("nestedIn", programName(*unit.getParent()));
    printPlace(unit.getRange());
    json.attributeArray("sections", [&] {
      for (const LayoutSection &section : sections)
        printSection(section);
    });
    if (view.record.empty())
      printReportsJson(json, unit);
  });
}

void JsonPrinter::printSection(const LayoutSection &section) {
  json.object([&] {
    text("name", section.name.drop_back(llvm::StringRef(" SECTION").size()));
    json.attribute("bytes", section.bytes());
    if (section.storage == StorageType::File) {
      json.attributeArray("files", [&] {
        for (const RecordGroup &group : section.groups)
          printFile(group);
      });
      return;
    }
    const RecordGroup &group = section.groups.front();
    printRecords("records", group);
    if (group.hiddenRecords != 0)
      json.attributeObject("specialRegisters", [&] {
        json.attribute("count", group.hiddenRecords);
        json.attribute("bytes", group.hiddenBytes);
      });
  });
}

void JsonPrinter::printFile(const RecordGroup &group) {
  const FileDescription &file = *group.file;
  json.object([&] {
    json.attribute("kind", nameOf(file.getType()));
    text("name", file.getFileName()->getDisplayName());
    printPlace(file.getRange());
    json.attribute("bytes", group.bytes());
    text("recordingMode", recordingModeName(file));
    if (const ClauseRecord *clause = file.getRecord()) {
      if (clause->getMinLength())
        json.attribute("recordMin", clause->getMinLength()->getIntegerValue());
      if (clause->getMaxLength())
        json.attribute("recordMax", clause->getMaxLength()->getIntegerValue());
    }
    flag("external", file.getExternal());
    flag("global", file.getGlobal());
    printRecords("records", group);
  });
}

void JsonPrinter::printRecords(llvm::StringRef key, const RecordGroup &group) {
  json.attributeArray(key, [&] {
    for (const DataDescription *record : group.records)
      printEntry(*record);
  });
}

void JsonPrinter::printEntry(const DataDescription &entry) {
  json.object([&] {
    json.attribute("level", entry.getLevelNum());
    text("name", entryName(entry));
    printPlace(placeOf(entry));
    flag("compilerMade", !entry.isWritten());
    if (const FileDescription *file = linageFile(entry))
      text("forFile", file->getFileName()->getDisplayName());
    if (entry.getLevelNum() == 88) {
      if (entry.getValue())
        printValues(*entry.getValue());
      return;
    }
    json.attribute("offset", entry.getOffset());
    json.attribute("bytes", entry.getAllocSize());
    if (const ClauseRenames *renames = entry.getRenames())
      json.attributeObject("renames", [&] {
        text("from", operandText(renames->getFromData()));
        text("through", operandText(renames->getToData()));
      });
    else
      printData(entry);
    auto printAll = [&](llvm::StringRef key, const auto &entries) {
      if (!entries.empty())
        json.attributeArray(key, [&] {
          for (const DataDescription *one : entries)
            printEntry(*one);
        });
    };
    printAll("conditionNames", entry.getCondNameChildrenElements());
    printAll("items", entry.getChildrenElements());
  });
}

void JsonPrinter::printData(const DataDescription &entry) {
  if (entry.hasSubordinateData()) {
    if (entry.getMinAllocSize() != entry.getAllocSize())
      json.attribute("minBytes", entry.getMinAllocSize());
  } else {
    if (entry.getPicture())
      text("picture", entry.getPicture()->getCharStringWord()->getWordData());
    text("usage", nameOf(entry.getUsageType()));
  }
  text("category", nameOf(entry.getDataCategory()));
  if (const ClauseSign *sign = signOf(entry))
    json.attributeObject("sign", [&] {
      json.attribute("leading", sign->isLeading());
      json.attribute("separate", sign->isSeperate());
    });
  if (entry.getOccurs())
    printOccurs(entry);
  if (entry.getRedefines())
    text("redefines", operandText(entry.getRedefines()->getData()));
  flag("implicitRedefinition", isImplicitRedefinition(entry));
  flag("synchronized", entry.getSynchronized());
  flag("justified", entry.getJustified());
  flag("blankWhenZero", entry.getBlankZero());
  flag("external", entry.getExternal());
  flag("global", entry.getGlobal() && !entry.getOwner());
}

void JsonPrinter::printOccurs(const DataDescription &entry) {
  const ClauseOccurs &occurs = *entry.getOccurs();
  json.attributeObject("occurs", [&] {
    json.attribute("min", occurs.getLeastOccurrences());
    json.attribute("max", occurs.getMostOccurrences());
    text("dependingOn", operandText(occurs.getOdoName()));
    json.attribute("minBytes", minTotalSize(entry));
    json.attribute("bytes", entry.getTotalAllocSize());
    if (occurs.getIndexListSize() != 0)
      json.attributeArray("indexes", [&] {
        for (const DataIdentifierExpression *index : occurs.getIndexListElements())
          json.value(toUtf8(operandText(index)));
      });
  });
}

void JsonPrinter::printValues(const ClauseValue &clause) {
  json.attributeArray("values", [&] {
    for (const PhraseValue *phrase : clause.getPhraseValElements())
      json.object([&] {
        text("from", valueText(phrase->getLiteral1(), phrase->getWord1()));
        text("through", valueText(phrase->getLiteral2(), phrase->getWord2()));
      });
  });
  if (clause.getFalseValue())
    text("falseValue", literalText(*clause.getFalseValue()));
}

void JsonPrinter::printPlace(const SourceRange &place) {
  if (place.beginLine == 0)
    return;
  text("file", fileNameOf(place.file));
  json.attribute("line", place.beginLine);
}

} // namespace

void printLayoutText(llvm::raw_ostream &os, const Program &program, const LayoutView &view) {
  TextPrinter(os, view).print(program);
}

void printLayoutJson(llvm::raw_ostream &os, const Program &program, const LayoutView &view) {
  JsonPrinter(os, view).print(program);
  os << '\n';
}

} // namespace tarka
