//===- ReportLayout.cpp - where the items of a report are printed ---------===//

#include "Print/ReportLayout.h"
#include "Print/LayoutModel.h"
#include "Report/Utf8.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/raw_ostream.h"
#include <algorithm>

namespace tarka {

//===----------------------------------------------------------------------===//
// Columns
//===----------------------------------------------------------------------===//

long long printedWidth(const ReportDataDescription &entry) {
  if (const ClausePicture *picture = entry.getPicture())
    return picture->getSize() + entry.hasSeparateSign();
  long long width = 0;
  if (const ClauseReportValue *value = entry.getReportValueClause())
    for (const PhraseValue *phrase : value->getValue()->getPhraseValElements())
      if (auto *text =
              llvm::dyn_cast_if_present<NonNumericLiteralExpression>(phrase->getLiteral1()))
        width = std::max<long long>(width, text->getLength());
  return width;
}

/// Calls \p visit for the entries of a report group in source order, with how deep each stands.
template <typename Visitor>
static void forEachItem(const DataDescription &entry, unsigned depth, Visitor visit) {
  if (auto *item = llvm::dyn_cast<ReportDataDescription>(&entry))
    visit(*item, depth);
  for (const DataDescription *child : entry.getChildrenElements())
    forEachItem(*child, depth + 1, visit);
}

ReportColumns::ReportColumns(const ReportDescription &report) {
  for (const ReportDataDescription *group : report.getRecordListElements()) {
    // The last column that is filled so far; below 0 when it is not known.
    long long end = 0;
    forEachItem(*group, 0, [&](const ReportDataDescription &entry, unsigned) {
      if (entry.getLineClause())
        end = 0;
      if (entry.getColumnClause())
        place(entry, end);
    });
  }
}

/// Items that occur several times leave open where the next one stands that counts from them.
static bool isRepeated(const DataDescription &entry) {
  for (const DataDescription *item = &entry; item; item = item->getParent())
    if (item->getOccurs())
      return true;
  return false;
}

void ReportColumns::place(const ReportDataDescription &entry, long long &end) {
  const ClauseColumn &clause = *entry.getColumnClause();
  const long long width = printedWidth(entry);
  const bool isCounted = !clause.isRelative() || (clause.getNumbersListSize() == 1 && end >= 0);
  const long long base = clause.isRelative() ? end : 0;
  end = -1;
  if (width == 0 || !isCounted)
    return;
  std::vector<ColumnRange> found;
  for (const Expression *number : clause.getNumbersListElements()) {
    auto *literal = llvm::dyn_cast<NumericLiteralExpression>(number);
    if (!literal)
      return;
    long long first = base + literal->getIntegerValue();
    if (clause.getAlignment() == ColumnAlignment::Right)
      first -= width - 1;
    else if (clause.getAlignment() == ColumnAlignment::Center)
      first -= (width - 1) / 2;
    found.push_back({first, first + width - 1});
  }
  if (!found.empty() && !isRepeated(entry))
    end = found.back().last;
  ranges[&entry] = std::move(found);
}

const std::vector<ColumnRange> &ReportColumns::of(const DataDescription &entry) const {
  static const std::vector<ColumnRange> none;
  auto found = ranges.find(&entry);
  return found == ranges.end() ? none : found->second;
}

//===----------------------------------------------------------------------===//
// Words
//===----------------------------------------------------------------------===//

namespace {

/// An operand as a person would write it; "..." for an expression.
std::string wordsOf(const Expression *operand) {
  if (auto *literal = llvm::dyn_cast_if_present<LiteralExpression>(operand))
    return literalText(*literal);
  if (auto *counter = llvm::dyn_cast_if_present<SpecialRegisterIdentifierExpression>(operand))
    return counter->getRegisterWord() ? counter->getRegisterWord()->getDisplayName() : "...";
  std::string name = operandText(operand);
  return name.empty() ? "..." : name;
}

template <typename Operand>
std::string wordsOf(const NodeList<Operand> &operands, const char *separator = " ") {
  std::string words;
  for (const Operand *operand : operands)
    words += (words.empty() ? "" : separator) + wordsOf(operand);
  return words;
}

/// The numbers of a LINE or COLUMN clause.
template <typename Clause> std::string numbersOf(const Clause &clause) {
  return (clause.isRelative() ? "+" : "") + wordsOf(clause.getNumbersListElements());
}

std::string linesOf(const ReportDataDescription &entry) {
  const ClauseLine *line = entry.getLineClause();
  if (!line)
    return "";
  std::string text = line->getNumbersListSize() ? numbersOf(*line) : "";
  if (line->getNextPage())
    text += text.empty() ? "next page" : " next page";
  return text;
}

std::string columnsOf(const ReportDataDescription &entry, const ReportColumns &columns) {
  if (!entry.getColumnClause())
    return "";
  std::string text;
  for (const ColumnRange &range : columns.of(entry)) {
    text += (text.empty() ? "" : " ") + std::to_string(range.first);
    if (range.last != range.first)
      text += '-' + std::to_string(range.last);
  }
  return text.empty() ? numbersOf(*entry.getColumnClause()) : text;
}

std::string typeOf(const ClauseType &type) {
  std::string text = nameOf(type.getTypeOption()).str();
  std::string controls = wordsOf(type.getControlIdListElements(), ", ");
  if (type.getReportFinal())
    controls = "FINAL" + (controls.empty() ? "" : ", " + controls);
  return controls.empty() ? text : text + " FOR " + controls;
}

std::string sumOf(const SumClauseExpr &sum) {
  std::string text = "SUM " + wordsOf(sum.getNameListElements());
  if (sum.getUponListSize())
    text += " UPON " + wordsOf(sum.getUponListElements());
  return text;
}

/// What the entry says, clause by clause.
std::vector<std::string> partsOf(const ReportDataDescription &entry) {
  std::vector<std::string> parts;
  if (const ClauseType *type = entry.getTypeClause())
    parts.push_back(typeOf(*type));
  if (const ClausePicture *picture = entry.getPicture())
    parts.push_back("PIC " + picture->getCharStringWord()->getWordData());
  if (const ClauseReportOccurs *occurs = entry.getReportOccursClause()) {
    parts.push_back("OCCURS " + std::to_string(occurs->getOccurs()->getMostOccurrences()));
    if (occurs->getStepExpr())
      parts.back() += " STEP " + wordsOf(occurs->getStepExpr());
  }
  if (const ClauseSource *source = entry.getSourceClause()) {
    parts.push_back("SOURCE");
    for (const SourceClauseExpr *operand : source->getSourceExprListElements())
      parts.back() += ' ' + (operand->getSumExpr() ? sumOf(*operand->getSumExpr())
                                                   : wordsOf(operand->getExpr()));
  }
  if (const ClauseReportValue *value = entry.getReportValueClause()) {
    parts.push_back("VALUE");
    for (const PhraseValue *phrase : value->getValue()->getPhraseValElements())
      parts.back() += ' ' + valueText(phrase->getLiteral1(), phrase->getWord1());
  }
  if (const ClauseSum *sum = entry.getSumClause())
    for (const SumClauseExpr *operand : sum->getSumExprListElements())
      parts.push_back(sumOf(*operand));
  if (const ClauseCount *count = entry.getCountClause())
    parts.push_back("COUNT OF " + wordsOf(count->getCountDataListElements()));
  if (entry.isGroupIndicate())
    parts.push_back("GROUP INDICATE");
  if (entry.getClausePresentWhenListSize() + entry.getClausePresentAfterListSize() != 0)
    parts.push_back("conditional");
  return parts;
}

/// The numbers of PAGE LIMIT that are written, each with its name in JSON and in words.
struct PageNumber {
  llvm::StringLiteral key;
  llvm::StringLiteral words;
  const Expression *number;
};

std::vector<PageNumber> pageNumbersOf(const ReportDescription &report) {
  const ClausePageLimit *page = report.getPageLimitClause();
  if (!page)
    return {};
  std::vector<PageNumber> numbers{
      {"lines", "lines of a page", page->getPageLimit()},
      {"columns", "columns of a page", page->getColumns()},
      {"heading", "heading from", page->getHeading()},
      {"firstDetail", "first detail from", page->getFirstDetail()},
      {"lastControlHeading", "last control heading to", page->getLastControlHeading()},
      {"lastDetail", "last detail to", page->getLastDetail()},
      {"footing", "footing to", page->getFooting()}};
  llvm::erase_if(numbers, [](const PageNumber &one) { return !one.number; });
  return numbers;
}

//===----------------------------------------------------------------------===//
// Text
//===----------------------------------------------------------------------===//

struct ReportRow {
  SourceRange place;
  std::string item;
  std::string lines;
  std::string columns;
  std::vector<std::string> parts;
};

std::vector<ReportRow> rowsOf(const ReportDescription &report) {
  std::vector<ReportRow> rows;
  ReportRow head;
  head.place = report.getRange();
  head.item = "RD " + report.getReportName()->getDisplayName();
  for (const PageNumber &one : pageNumbersOf(report))
    head.parts.push_back((one.words + " " + wordsOf(one.number)).str());
  rows.push_back(std::move(head));

  const ReportColumns columns(report);
  for (const ReportDataDescription *group : report.getRecordListElements())
    forEachItem(*group, 0, [&](const ReportDataDescription &entry, unsigned depth) {
      constexpr unsigned deepest = 10;
      const unsigned level = entry.getLevelNum();
      std::string item(std::size_t{2} * std::min(depth, deepest), ' ');
      item += (level < 10 ? "0" : "") + std::to_string(level) + ' ' + entryName(entry).str();
      rows.push_back({placeOf(entry), std::move(item), linesOf(entry), columnsOf(entry, columns),
                      partsOf(entry)});
    });
  return rows;
}

/// Writes rows of at most 100 columns, unless a single clause is longer than that.
class ReportTable {
public:
  explicit ReportTable(llvm::raw_ostream &output) : os(output) {}

  void print(const std::vector<ReportRow> &rows) {
    for (const ReportRow &row : rows) {
      // A row that has more to say than this pushes its description to the right.
      fit(numberWidth, std::to_string(row.place.beginLine), 10);
      fit(itemWidth, row.item, 32);
      fit(linesWidth, row.lines, 12);
      fit(columnsWidth, row.columns, 14);
    }
    os << llvm::right_justify("Line", numberWidth) << "  " << llvm::left_justify("Item", itemWidth)
       << "  " << llvm::right_justify("On line", linesWidth) << "  "
       << llvm::right_justify("Columns", columnsWidth) << "  Description\n";
    for (const ReportRow &row : rows)
      print(row);
  }

private:
  static constexpr unsigned LineWidth = 100;

  static void fit(unsigned &width, llvm::StringRef text, unsigned widest) {
    width = std::max(width, std::min<unsigned>(text.size(), widest));
  }

  void print(const ReportRow &row) {
    const unsigned column = numberWidth + itemWidth + linesWidth + columnsWidth + 8;
    const std::string number = std::to_string(row.place.beginLine);
    std::string line(numberWidth - std::min<std::size_t>(number.size(), numberWidth), ' ');
    line += number + "  " + row.item;
    append(line, row.lines, numberWidth + itemWidth + 4, linesWidth);
    append(line, row.columns, numberWidth + itemWidth + linesWidth + 6, columnsWidth);
    for (const std::string &part : row.parts) {
      const bool isFirst = &part == &row.parts.front();
      const std::string text = part + (&part == &row.parts.back() ? "" : ",");
      if (line.size() + 1 + text.size() > LineWidth && line.size() > column) {
        os << line << '\n';
        line.assign(column, ' ');
      } else if (isFirst) {
        line.resize(std::max<std::size_t>(line.size() + 2, column), ' ');
      } else {
        line += ' ';
      }
      line += text;
    }
    os << llvm::StringRef(line).rtrim() << '\n';
  }

  /// Puts \p text at the right end of a field that begins at \p column.
  static void append(std::string &line, llvm::StringRef text, unsigned column, unsigned width) {
    if (text.empty())
      return;
    line.resize(std::max<std::size_t>(line.size() + 2, column), ' ');
    if (line.size() + text.size() < column + width)
      line.resize(column + width - text.size(), ' ');
    line += text;
  }

  llvm::raw_ostream &os;
  unsigned numberWidth = 4;
  unsigned itemWidth = 12;
  unsigned linesWidth = 7;
  unsigned columnsWidth = 7;
};

} // namespace

void printReportsText(llvm::raw_ostream &os, const SourceUnit &unit) {
  DataDivision *division = unit.getDataDivision();
  if (!division || division->getReportSectionSize() == 0)
    return;
  std::vector<ReportRow> rows;
  for (const ReportDescription *report : division->getReportSectionElements())
    llvm::append_range(rows, rowsOf(*report));
  os << "REPORT SECTION\n";
  ReportTable(os).print(rows);
  os << '\n';
}

//===----------------------------------------------------------------------===//
// JSON
//===----------------------------------------------------------------------===//

namespace {

void printPlace(llvm::json::OStream &json, const SourceRange &place) {
  json.attribute("file", toUtf8(fileNameOf(place.file)));
  json.attribute("line", place.beginLine);
}

/// Numbers that are literals as numbers, names as strings.
template <typename Clause> void printNumbers(llvm::json::OStream &json, const Clause &clause) {
  json.attributeArray("numbers", [&] {
    for (const Expression *number : clause.getNumbersListElements())
      if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(number))
        json.value(literal->getIntegerValue());
      else
        json.value(toUtf8(wordsOf(number)));
  });
  if (clause.isRelative())
    json.attribute("relative", true);
}

void printItem(llvm::json::OStream &json, const ReportDataDescription &entry,
               const ReportColumns &columns) {
  json.object([&] {
    json.attribute("level", entry.getLevelNum());
    json.attribute("name", toUtf8(entryName(entry)));
    printPlace(json, placeOf(entry));
    if (const ClauseType *type = entry.getTypeClause()) {
      json.attribute("type", nameOf(type->getTypeOption()));
      if (type->getReportFinal())
        json.attribute("final", true);
      if (type->getControlIdListSize() != 0)
        json.attributeArray("controls", [&] {
          for (const IdentifierExpression *control : type->getControlIdListElements())
            json.value(toUtf8(wordsOf(control)));
        });
    }
    if (const ClauseLine *line = entry.getLineClause())
      json.attributeObject("onLine", [&] {
        printNumbers(json, *line);
        if (line->getNextPage())
          json.attribute("nextPage", true);
      });
    if (const ClauseColumn *column = entry.getColumnClause())
      json.attributeObject("column", [&] { printNumbers(json, *column); });
    if (!columns.of(entry).empty())
      json.attributeArray("columns", [&] {
        for (const ColumnRange &range : columns.of(entry))
          json.object([&] {
            json.attribute("first", range.first);
            json.attribute("last", range.last);
          });
      });
    if (entry.getPicture())
      json.attribute("picture", toUtf8(entry.getPicture()->getCharStringWord()->getWordData()));
    if (entry.getChildrenSize() != 0)
      json.attributeArray("items", [&] {
        for (const DataDescription *child : entry.getChildrenElements())
          if (auto *item = llvm::dyn_cast<ReportDataDescription>(child))
            printItem(json, *item, columns);
      });
  });
}

} // namespace

void printReportsJson(llvm::json::OStream &json, const SourceUnit &unit) {
  DataDivision *division = unit.getDataDivision();
  if (!division || division->getReportSectionSize() == 0)
    return;
  json.attributeArray("reports", [&] {
    for (const ReportDescription *report : division->getReportSectionElements())
      json.object([&] {
        json.attribute("name", toUtf8(report->getReportName()->getDisplayName()));
        printPlace(json, report->getRange());
        json.attributeObject("page", [&] {
          for (const PageNumber &one : pageNumbersOf(*report))
            if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(one.number))
              json.attribute(one.key, literal->getIntegerValue());
            else
              json.attribute(one.key, toUtf8(wordsOf(one.number)));
        });
        const ReportColumns columns(*report);
        json.attributeArray("groups", [&] {
          for (const ReportDataDescription *group : report->getRecordListElements())
            printItem(json, *group, columns);
        });
      });
  });
}

} // namespace tarka
