//===- Formatting.cpp - the layout of the lines ---------------------------===//
//
// The tree says where the lines belong on which something begins. A line on which
// nothing begins is the rest of the line before it and moves with that.
//
//===----------------------------------------------------------------------===//

#include "AST/DataTree.h"
#include "AST/NestedStatements.h"
#include "AST/Program.h"
#include "Print/LayoutModel.h"
#include "Report/Excerpt.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/Writing.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSwitch.h"
#include <map>

namespace tarka::lsp {

namespace {

// Columns of fixed form.
constexpr unsigned indicatorColumn = 7, areaAColumn = 8, lastColumn = 72;

/// A line of program text; its columns count characters, from 1.
struct CodeLine {
  llvm::StringRef text;
  unsigned first = 0;         ///< the column of the first word
  unsigned wanted = 0;        ///< where it belongs; 0 when nothing known begins on the line
  unsigned picture = 0;       ///< the column of PICTURE in an entry that begins on the line
  unsigned wantedPicture = 0; ///< where that belongs; 0 to leave it
};

class Formatter {
public:
  Formatter(Snapshot &owner, unsigned fileNumber, unsigned indentation)
      : snapshot(owner), file(fileNumber), step(indentation),
        isFixed(owner.isFixedForm(fileNumber)) {}

  void writeEdits(llvm::json::OStream &out, unsigned firstLine, unsigned lastLine);

private:
  void readLines(llvm::StringRef text);
  void addLine(unsigned number, llvm::StringRef text);
  void placeHeaders();
  void placeUnit(const SourceUnit &unit);
  void placeRecord(DataDescription *record);
  void placeRecords(const std::list<DataDescription *> &records);
  void alignPictures(llvm::ArrayRef<CodeLine *> entries);
  void placeBody(const ProcedureBody &body);
  void placeStatement(Statement &statement, unsigned column);
  template <typename Part> void placePart(Part &part, unsigned column);
  void placeStatements(NodeRange<Statement> statements, unsigned column);
  void placeWord(unsigned from, unsigned to, llvm::StringRef word, unsigned column);
  void placeTheRest();

  /// Says that \p node belongs at \p column, if it is the first on its line.
  void place(const Node &node, unsigned column);
  CodeLine *lineOf(const Node &node);
  unsigned areaB() const { return areaA + 4; }
  bool writeLine(llvm::json::OStream &out, unsigned number, const CodeLine &line) const;

  Snapshot &snapshot;
  unsigned file;
  unsigned step; ///< what each level of nesting adds
  bool isFixed;
  unsigned areaA = areaAColumn;
  /// By number. Lines that are not to be touched are absent.
  std::map<unsigned, CodeLine> lines;
};

//===----------------------------------------------------------------------===//
// Lines
//===----------------------------------------------------------------------===//

/// The upper-case word at the beginning of \p text, with its hyphens.
std::string firstWord(llvm::StringRef text) {
  return text.take_while([](char c) { return llvm::isAlnum(c) || c == '-'; }).upper();
}

void Formatter::addLine(unsigned number, llvm::StringRef text) {
  llvm::StringRef body = text;
  if (isFixed) {
    if (text.size() < areaAColumn || !llvm::StringRef(" Dd").contains(text[indicatorColumn - 1]))
      return;
    body = text.take_front(offsetOfColumn(text, lastColumn + 1)).drop_front(indicatorColumn);
  }
  const llvm::StringRef words = body.ltrim(' ');
  // Comments and directives are where their writer wants them; the width of a tab is a matter of
  // taste.
  if (words.empty() || text.contains('\t') || words.starts_with("*>") || words.starts_with(">>"))
    return;
  CodeLine &line = lines[number];
  line.text = text;
  line.first = static_cast<unsigned>(words.data() - text.data()) + 1;
}

void Formatter::readLines(llvm::StringRef text) {
  unsigned number = 0;
  while (!text.empty()) {
    auto [line, rest] = text.split('\n');
    text = rest;
    ++number;
    // A word or literal that is continued ends in column 72 of the line before.
    if (isFixed && line.size() >= indicatorColumn && line[indicatorColumn - 1] == '-') {
      lines.erase(number - 1);
      continue;
    }
    addLine(number, line.rtrim("\r"));
  }
}

CodeLine *Formatter::lineOf(const Node &node) {
  if (!node.isWritten() || node.getRange().file != file)
    return nullptr;
  auto line = lines.find(node.getRange().beginLine);
  return line != lines.end() && line->second.first == node.getRange().beginColumn ? &line->second
                                                                                  : nullptr;
}

void Formatter::place(const Node &node, unsigned column) {
  if (CodeLine *line = lineOf(node))
    line->wanted = column;
}

/// The headers, which have no nodes in the tree.
void Formatter::placeHeaders() {
  for (auto &[number, line] : lines) {
    const llvm::StringRef words = line.text.drop_front(line.first - 1);
    const std::string first = firstWord(words);
    const std::string second = firstWord(words.drop_front(first.size()).ltrim(' '));
    const bool isHeader =
        second == "DIVISION" || second == "SECTION" ||
        (first == "END" && (second == "DECLARATIVES" || second == "PROGRAM")) ||
        llvm::StringSwitch<bool>(first)
            .Cases("PROGRAM-ID", "AUTHOR", "INSTALLATION", "DATE-WRITTEN", "DATE-COMPILED", true)
            .Cases("SECURITY", "SOURCE-COMPUTER", "OBJECT-COMPUTER", "SPECIAL-NAMES", true)
            .Cases("REPOSITORY", "FILE-CONTROL", "I-O-CONTROL", "DECLARATIVES", true)
            .Cases("FD", "SD", "RD", true)
            .Default(false);
    if (isHeader)
      line.wanted = areaA;
    else if (first == "SELECT")
      line.wanted = areaB();
  }
}

//===----------------------------------------------------------------------===//
// Data
//===----------------------------------------------------------------------===//

/// How many groups \p entry is in; a condition-name is below its variable.
unsigned depthOf(const DataDescription &entry) {
  unsigned depth = 0;
  const DataDescription *around = &entry;
  while ((around = around->getLevelNum() == 88 ? around->getCondNameParent() : around->getParent()))
    ++depth;
  return entry.getLevelNum() == 66 ? 1 : depth;
}

void Formatter::placeRecord(DataDescription *record) {
  std::vector<CodeLine *> entries;
  forEachEntry(record, [&](DataDescription *entry) {
    CodeLine *line = lineOf(*entry);
    if (!line)
      return;
    const unsigned depth = depthOf(*entry);
    line->wanted = depth == 0 ? areaA : areaB() + (depth - 1) * step;
    // PIC comes after the level and the name, or something else does.
    const llvm::StringRef words = line->text.drop_front(line->first - 1);
    llvm::StringRef rest = words.ltrim("0123456789").ltrim(' ');
    if (firstWord(rest) != "PIC" && firstWord(rest) != "PICTURE")
      rest = rest.drop_while([](char c) { return c != ' '; }).ltrim(' ');
    if (firstWord(rest) == "PIC" || firstWord(rest) == "PICTURE") {
      line->picture = static_cast<unsigned>(rest.data() - line->text.data()) + 1;
      entries.push_back(line);
    }
  });
  alignPictures(entries);
}

/// Puts the pictures of a record into the column that most of them are in. Where there is none,
/// they move no further than they must: into the first column that one of them is in and that all
/// names leave room for, else into the first one behind the names.
void Formatter::alignPictures(llvm::ArrayRef<CodeLine *> entries) {
  std::map<unsigned, unsigned> count;
  unsigned needed = 0;
  for (const CodeLine *line : entries) {
    ++count[line->picture];
    const llvm::StringRef before = line->text.take_front(line->picture - 1).rtrim(' ');
    needed = std::max<unsigned>(needed, before.size() + line->wanted - line->first + 2);
  }
  const auto usual =
      llvm::max_element(count, [](const auto &a, const auto &b) { return a.second < b.second; });
  if (usual == count.end())
    return;
  const bool isUsual = usual->second > entries.size() / 2 && usual->first >= needed;
  const auto fitting = count.lower_bound(needed);
  const unsigned column = isUsual ? usual->first : fitting != count.end() ? fitting->first : needed;
  for (CodeLine *line : entries)
    line->wantedPicture = column;
}

void Formatter::placeRecords(const std::list<DataDescription *> &records) {
  for (DataDescription *record : records)
    placeRecord(record);
}

//===----------------------------------------------------------------------===//
// Procedures
//===----------------------------------------------------------------------===//

/// Says where the first \p word belongs that begins a line after line \p from and before line
/// \p to.
void Formatter::placeWord(unsigned from, unsigned to, llvm::StringRef word, unsigned column) {
  for (auto line = lines.upper_bound(from); line != lines.end() && line->first < to; ++line)
    if (!line->second.wanted &&
        firstWord(line->second.text.drop_front(line->second.first - 1)) == word) {
      line->second.wanted = column;
      return;
    }
}

void Formatter::placeStatements(NodeRange<Statement> statements, unsigned column) {
  for (Statement *statement : statements)
    placeStatement(*statement, column);
}

/// A WHEN, or a phrase, with its statements.
template <typename Part> void Formatter::placePart(Part &part, unsigned column) {
  if constexpr (std::is_same_v<Part, EvaluateCase>)
    for (const EvaluateWhen *when : part.getWhenListElements())
      place(*when, column);
  place(part, column);
  placeStatements(statementsOf(part), column + step);
}

void Formatter::placeStatement(Statement &statement, unsigned column) {
  place(statement, column);
  const unsigned begin = statement.getRange().beginLine, end = statement.getRange().endLine;
  auto *condition = llvm::dyn_cast<IfStatement>(&statement);
  unsigned elseLine = 0;
  if (condition && !condition->getElseStmtListElements().empty())
    elseLine = condition->getElseStmtListElements().front()->getRange().beginLine;
  bool isElse = false;
  forEachNestedPart(statement, [&](auto parts) {
    if constexpr (std::is_same_v<decltype(parts), NodeRange<Statement>>) {
      // ELSE IF on one line is a chain of equal alternatives.
      const bool isChain = isElse && elseLine && llvm::hasSingleElement(parts) &&
                           (*parts.begin())->getType() == StatementType::If &&
                           !lineOf(**parts.begin());
      placeStatements(parts, isChain ? column : column + step);
      isElse = true;
    } else {
      for (auto *part : parts)
        placePart(*part, column + step);
    }
  });
  // Inner statements have placed theirs, so what is left is this one's.
  if (elseLine)
    placeWord(begin, elseLine + 1, "ELSE", column);
  const auto last = lines.find(end);
  if (end > begin && last != lines.end() && !last->second.wanted &&
      llvm::StringRef(firstWord(last->second.text.drop_front(last->second.first - 1)))
          .starts_with("END-"))
    last->second.wanted = column;
}

void Formatter::placeBody(const ProcedureBody &body) {
  place(body, areaA);
  for (const Sentence *sentence : body.getSentElements())
    for (Statement *statement : sentence->getStmtElements())
      placeStatement(*statement, areaB());
}

void Formatter::placeUnit(const SourceUnit &unit) {
  if (DataDivision *data = unit.getDataDivision()) {
    if (data->getWorkSection())
      placeRecords(*data->getWorkSection());
    placeRecords(data->getLocalSectionElements());
    placeRecords(data->getLinkSectionElements());
    for (const FileDescription *description : data->getFileSectionElements())
      placeRecords(description->getRecordDescElements());
  }
  const ProcedureDivision *division = unit.getProcDivision();
  if (!division)
    return;
  auto placeSection = [&](const Section &section) {
    placeBody(section);
    for (const Paragraph *paragraph : section.getParaElements())
      placeBody(*paragraph);
  };
  for (const Declaratives *declarative : division->getDeclElements()) {
    placeSection(*declarative->getSection());
    if (const UseStatement *use = declarative->getUseStmt())
      place(*use, areaB());
  }
  for (const Sentence *sentence : division->getSentElements())
    for (Statement *statement : sentence->getStmtElements())
      placeStatement(*statement, areaB());
  for (const Paragraph *paragraph : division->getParaElements())
    placeBody(*paragraph);
  for (const Section *section : division->getSectElements())
    placeSection(*section);
}

//===----------------------------------------------------------------------===//
// Edits
//===----------------------------------------------------------------------===//

/// Moves the lines on which nothing begins with the line before them.
void Formatter::placeTheRest() {
  int shift = 0;
  for (auto &[number, line] : lines) {
    const std::string word = firstWord(line.text.drop_front(line.first - 1));
    if (line.wanted) {
      shift = static_cast<int>(line.wanted) - static_cast<int>(line.first);
    } else if (word == "COPY" || word == "REPLACE") {
      // What they bring begins in either area.
      line.wanted = line.first;
    } else {
      line.wanted = static_cast<unsigned>(
          std::max(static_cast<int>(areaB()), static_cast<int>(line.first) + shift));
    }
  }
}

/// Writes the edits of one line: the blanks before its first word, those before its picture, and
/// those before the text after column 72. False when the line would become too long.
bool Formatter::writeLine(llvm::json::OStream &out, unsigned number, const CodeLine &line) const {
  struct Gap {
    unsigned begin; ///< offset of the first blank
    unsigned end;   ///< offset after the last one
    unsigned width;
  };
  llvm::SmallVector<Gap, 3> gaps;
  const unsigned margin = isFixed ? indicatorColumn : 0;
  gaps.push_back({margin, line.first - 1, line.wanted - 1 - margin});
  int shift = static_cast<int>(line.wanted) - static_cast<int>(line.first);
  if (line.wantedPicture) {
    const auto nameEnd =
        static_cast<unsigned>(line.text.take_front(line.picture - 1).rtrim(' ').size());
    const int newEnd = static_cast<int>(nameEnd) + shift;
    const unsigned width =
        static_cast<unsigned>(std::max(1, static_cast<int>(line.wantedPicture) - 1 - newEnd));
    gaps.push_back({nameEnd, line.picture - 1, width});
    shift = newEnd + static_cast<int>(width) - static_cast<int>(line.picture - 1);
  }
  if (isFixed) {
    const auto limit = offsetOfColumn(line.text, lastColumn + 1);
    const llvm::StringRef body = line.text.take_front(limit).rtrim(' ');
    const auto columns = static_cast<int>(columnOfOffset(line.text, body.size())) - 1;
    if (columns + shift > static_cast<int>(lastColumn))
      return false;
    if (limit < line.text.size())
      gaps.push_back({static_cast<unsigned>(body.size()), static_cast<unsigned>(limit),
                      static_cast<unsigned>(static_cast<int>(lastColumn) - columns - shift)});
  }
  for (const Gap &gap : gaps) {
    if (gap.end - gap.begin == gap.width)
      continue;
    auto position = [&](unsigned offset) {
      return mlir::lsp::Position(
          static_cast<int>(number) - 1,
          static_cast<int>(countUnits(line.text.take_front(offset), snapshot.getEncoding())));
    };
    writeEdit(out, {position(gap.begin), position(gap.end)}, std::string(gap.width, ' '));
  }
  return true;
}

void Formatter::writeEdits(llvm::json::OStream &out, unsigned firstLine, unsigned lastLine) {
  readLines(snapshot.getCompilation().getLines().textOf(file));
  if (!isFixed && !lines.empty())
    areaA = lines.begin()->second.first;
  placeHeaders();
  forEachUnit(*snapshot.getProgram(), [&](const SourceUnit &one) { placeUnit(one); });
  placeTheRest();
  out.array([&] {
    for (const auto &[number, line] : lines)
      if (number >= firstLine && number <= lastLine)
        writeLine(out, number, line);
  });
}

} // namespace

llvm::Error format(Snapshot &snapshot, const Parameters &parameters, llvm::json::OStream &out) {
  const std::optional<unsigned> file = snapshot.fileOf(parameters);
  if (!file) {
    out.value(nullptr);
    return llvm::Error::success();
  }
  constexpr std::int64_t usual = 4, most = 12;
  std::int64_t indentation = usual;
  if (const llvm::json::Object *options = parameters.getObject("options"))
    indentation = std::clamp<std::int64_t>(options->getInteger("tabSize").value_or(usual), 1, most);
  unsigned first = 1, last = ~0u;
  if (const llvm::json::Object *range = parameters.getObject("range")) {
    const llvm::json::Object *start = range->getObject("start"), *end = range->getObject("end");
    const std::optional<SourcePoint> from = start ? snapshot.pointOf(*file, *start) : std::nullopt;
    const std::optional<SourcePoint> to = end ? snapshot.pointOf(*file, *end) : std::nullopt;
    if (!from || !to)
      return llvm::createStringError("the range is not in the document");
    first = from->line;
    last = to->line;
    // A range that ends before the first character of a line does not hold the line.
    if (to->column == 1 && last > first)
      --last;
  }
  Formatter(snapshot, *file, static_cast<unsigned>(indentation)).writeEdits(out, first, last);
  return llvm::Error::success();
}

} // namespace tarka::lsp
