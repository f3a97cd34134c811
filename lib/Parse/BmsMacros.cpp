//===- BmsMacros.cpp - the macro statements of a BMS source ---------------===//

#include "Parse/BmsMacros.h"
#include "AST/Spelling.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

namespace {

constexpr size_t continuationColumn = 16;
constexpr size_t markColumn = 72;
constexpr size_t tabWidth = 8;

constexpr unsigned inMapset = 1U << unsigned(BmsMacroKind::Mapset);
constexpr unsigned inMap = 1U << unsigned(BmsMacroKind::Map);
constexpr unsigned inField = 1U << unsigned(BmsMacroKind::Field);

/// What an operand may be: any text where it has no words; otherwise one of the words, or a
/// sublist of them. The word "number" stands for a number.
struct OperandRule {
  llvm::StringLiteral keyword;
  unsigned macros; ///< those that have it
  llvm::StringLiteral words;
};

constexpr llvm::StringLiteral attributeTypes = "COLOR HILIGHT OUTLINE PS SOSI TRANSP VALIDN";

constexpr OperandRule operandRules[] = {
    {"ATTRB", inField, "ASKIP PROT UNPROT NUM BRT NORM DRK DET IC FSET"},
    {"BASE", inMapset, ""},
    {"CASE", inField, "MIXED"},
    {"COLOR", inMapset | inMap | inField, "DEFAULT BLUE RED PINK GREEN TURQUOISE YELLOW NEUTRAL"},
    {"COLUMN", inMap, "number NEXT SAME"},
    {"CTRL", inMapset | inMap, "PRINT L40 L64 L80 HONEOM FREEKB ALARM FRSET"},
    {"CURSLOC", inMapset | inMap, "YES NO"},
    {"DATA", inMapset | inMap, "FIELD BLOCK"},
    {"DSATTS", inMapset | inMap, attributeTypes},
    {"DSECT", inMapset, "ADS ADSL"},
    {"EXTATT", inMapset | inMap, "NO MAPONLY YES"},
    {"FIELDS", inMap, "NO"},
    {"FLDSEP", inMapset | inMap, ""},
    {"FOLD", inMapset, "LOWER UPPER"},
    {"GINIT", inField, ""},
    {"GRPNAME", inField, ""},
    {"HEADER", inMap, "YES"},
    {"HILIGHT", inMapset | inMap | inField, "OFF BLINK REVERSE UNDERLINE"},
    {"HTAB", inMapset, ""},
    {"INITIAL", inField, ""},
    {"JUSTIFY", inMap, "LEFT RIGHT FIRST LAST BOTTOM"},
    {"JUSTIFY", inField, "LEFT RIGHT BLANK ZERO"},
    {"LANG", inMapset, "ASM COBOL COBOL2 PLI C"},
    {"LDC", inMapset, ""},
    {"LENGTH", inField, "number"},
    {"LINE", inMap, "number NEXT SAME"},
    {"MAPATTS", inMapset | inMap, attributeTypes},
    {"MODE", inMapset | inMap, "IN OUT INOUT"},
    {"OBFMT", inMapset | inMap, "YES NO"},
    {"OCCURS", inField, "number"},
    {"OUTLINE", inMapset | inMap | inField, "BOX LEFT RIGHT OVER UNDER"},
    {"PARTN", inMapset | inMap, ""},
    {"PICIN", inField, ""},
    {"PICOUT", inField, ""},
    {"POS", inField, "number"},
    {"PS", inMapset | inMap | inField, ""},
    {"SIZE", inMap, "number"},
    {"SOSI", inMapset | inMap | inField, "YES NO"},
    {"STORAGE", inMapset, "AUTO"},
    {"SUFFIX", inMapset | inMap, ""},
    {"TERM", inMapset | inMap, ""},
    {"TIOAPFX", inMapset | inMap, "YES NO"},
    {"TRAILER", inMap, "YES"},
    {"TRANSP", inMapset | inMap | inField, "YES NO"},
    {"TRIGRAPH", inMapset, "YES NO"},
    {"TYPE", inMapset, "MAP DSECT FINAL &SYSPARM &&SYSPARM"},
    {"VALIDN", inMapset | inMap | inField, "MUSTFILL MUSTENTER TRIGGER USEREXIT"},
    {"VTAB", inMapset, ""},
    {"XINIT", inField, ""},
};

/// The statements of the assembler that stand in map sources and have no effect on the map.
constexpr llvm::StringLiteral assemblerStatements[] = {
    "ACTR",  "AGO",   "AIF",  "AMODE", "ANOP",  "COPY",  "CSECT",  "DSECT", "EJECT", "EQU",
    "GBLA",  "GBLB",  "GBLC", "ICTL",  "LCLA",  "LCLB",  "LCLC",   "LTORG", "MACRO", "MEND",
    "MEXIT", "MNOTE", "ORG",  "POP",   "PRINT", "PUNCH", "PUSH",   "REPRO", "RMODE", "RSECT",
    "SETA",  "SETB",  "SETC", "SPACE", "START", "TITLE", "DFHPSD", "DFHPDI"};

constexpr BmsMacroKind macroKinds[] = {BmsMacroKind::Mapset, BmsMacroKind::Map,
                                       BmsMacroKind::Field};

const BmsMacroKind *findMacro(llvm::StringRef operation) {
  const auto *found =
      llvm::find_if(macroKinds, [&](BmsMacroKind kind) { return nameOf(kind) == operation; });
  return found == std::end(macroKinds) ? nullptr : found;
}

/// "; is NAME meant?" for the name in \p names that \p word was most likely meant to be.
template <typename Names> std::string suggestion(llvm::StringRef word, const Names &names) {
  SpellingMatch match(word);
  for (llvm::StringRef name : names)
    match.consider(name);
  return match.getNearest().empty() ? "" : ("; is " + match.getNearest() + " meant?").str();
}

constexpr unsigned maxNumber = 32767;

bool isNumber(llvm::StringRef text) {
  unsigned number = 0;
  return !text.getAsInteger(10, number) && number <= maxNumber;
}

/// The words of a rule as a message lists them: A, B or C.
std::string listOf(llvm::StringRef words) {
  llvm::SmallVector<llvm::StringRef, 12> items;
  words.split(items, ' ');
  std::string text;
  for (size_t i = 0; i < items.size(); ++i) {
    if (i > 0)
      text += i + 1 == items.size() ? " or " : ", ";
    text += items[i] == "number" ? llvm::StringRef("a number") : items[i];
  }
  return text;
}

bool allows(const OperandRule &rule, llvm::StringRef item) {
  llvm::SmallVector<llvm::StringRef, 12> words;
  rule.words.split(words, ' ');
  return llvm::is_contained(words, item) || (llvm::is_contained(words, "number") && isNumber(item));
}

/// The label in upper case where \p line begins a DFHMSD with one; empty for any other line.
std::string mapsetIn(llvm::StringRef line) {
  size_t end = line.find_first_of(" \t");
  if (end == 0 || end == llvm::StringRef::npos || line.front() == '*')
    return {};
  llvm::StringRef operation =
      line.substr(end).ltrim(" \t").take_until([](char c) { return c <= ' '; });
  bool isMapset = operation.equals_insensitive(nameOf(BmsMacroKind::Mapset));
  return isMapset ? line.take_front(end).upper() : std::string();
}

} // namespace

llvm::StringRef nameOf(BmsMacroKind kind) {
  constexpr llvm::StringLiteral names[] = {"DFHMSD", "DFHMDI", "DFHMDF"};
  return names[unsigned(kind)];
}

//===----------------------------------------------------------------------===//
// Operands
//===----------------------------------------------------------------------===//

llvm::SmallVector<std::string, 4> BmsOperand::getItems() const {
  llvm::StringRef list = value;
  if (list.consume_front("("))
    list.consume_back(")");
  llvm::SmallVector<llvm::StringRef, 4> parts;
  list.split(parts, ',', -1, /*KeepEmpty=*/false);
  llvm::SmallVector<std::string, 4> items;
  for (llvm::StringRef part : parts)
    items.push_back(part.upper());
  return items;
}

std::string BmsOperand::getText() const {
  llvm::StringRef quoted = value;
  if (!quoted.consume_front("'"))
    return value;
  quoted.consume_back("'");
  std::string text;
  for (size_t i = 0; i < quoted.size(); ++i) {
    text += quoted[i];
    bool isDoubled =
        (quoted[i] == '\'' || quoted[i] == '&') && quoted.substr(i + 1, 1) == quoted.substr(i, 1);
    i += isDoubled;
  }
  return text;
}

unsigned BmsOperand::getNumber() const {
  llvm::SmallVector<std::string, 4> items = getItems();
  unsigned number = 0;
  if (items.size() != 1 || llvm::StringRef(items.front()).getAsInteger(10, number))
    return 0;
  return number;
}

const BmsOperand *BmsMacro::find(llvm::StringRef keyword) const {
  const auto *found =
      std::find_if(operands.data(), operands.data() + operands.size(),
                   [&](const BmsOperand &operand) { return operand.keyword == keyword; });
  return found == operands.data() + operands.size() ? nullptr : found;
}

bool BmsMacro::has(llvm::StringRef keyword, llvm::StringRef value) const {
  const BmsOperand *operand = find(keyword);
  return operand && llvm::StringRef(operand->value).equals_insensitive(value);
}

//===----------------------------------------------------------------------===//
// Statements
//===----------------------------------------------------------------------===//

BmsReader::BmsReader(const SourceFile &file, llvm::StringRef onlyMapset,
                     SourceDiagnostics &diagnostics)
    : diagnostics(diagnostics), fileNumber(file.getNumber()), rest(file.getText()),
      onlyMapset(onlyMapset), isSkipping(!onlyMapset.empty()) {}

/// Reads a line, spreads its tabs and gives each byte the column that it has in the file.
bool BmsReader::readLine(Line &line) {
  if (rest.empty())
    return false;
  auto [text, tail] = rest.split('\n');
  rest = tail;
  ++lineNumber;
  text = text.rtrim("\r\x1A");
  line = Line();
  size_t width = 0;
  size_t mark = 0; // the byte that stands in column 72
  unsigned column = 0;
  for (char c : text) {
    bool isContinuationByte = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    column += !isContinuationByte;
    size_t count = c == '\t' ? tabWidth - width % tabWidth : 1;
    for (size_t i = 0; i < count; ++i) {
      width += !isContinuationByte;
      if (width == markColumn && mark == 0)
        mark = line.text.size();
      line.text += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
      line.columns.push_back(column);
    }
  }
  line.isContinued = mark != 0 && line.text[mark] != ' ';
  if (mark != 0) {
    // What follows the mark is the sequence number.
    line.text.resize(mark);
    line.columns.resize(mark);
  }
  for (; width < markColumn - 1 && line.isContinued; ++width) {
    line.text += ' ';
    line.columns.push_back(++column);
  }
  return true;
}

void BmsReader::append(const Line &line, size_t from) {
  isContinued = line.isContinued;
  for (size_t i = from; i < line.text.size(); ++i) {
    statement += line.text[i];
    positions.push_back({lineNumber, line.columns[i]});
  }
}

/// Reads a statement with its continuation lines, passing over comments and blank lines.
bool BmsReader::readStatement() {
  statement.clear();
  positions.clear();
  parts.clear();
  Line line;
  do {
    if (isAtEnd || !readLine(line))
      return false;
  } while (line.text.empty() || line.text.front() == '*' ||
           llvm::StringRef(line.text).starts_with(".*") ||
           llvm::StringRef(line.text).trim().empty());
  if (std::string mapset = mapsetIn(line.text); !mapset.empty())
    isSkipping = !onlyMapset.empty() && mapset != onlyMapset;
  append(line, 0);
  takeContinuations();
  return true;
}

/// Adds the lines that marks in column 72 announce to the statement.
void BmsReader::takeContinuations() {
  while (isContinued) {
    SourceRange mark{fileNumber, lineNumber, markColumn, lineNumber, markColumn};
    if (takeContinuation())
      continue;
    // The next line is a statement of its own: the mark does not belong there.
    report(DiagnosticId::BmsContinuation, mark);
    isContinued = false;
  }
}

/// Adds the next line to the statement if it is laid out as a continuation line.
bool BmsReader::takeContinuation() {
  llvm::StringRef restBefore = rest;
  Line line;
  bool isThere = readLine(line);
  llvm::StringRef text = line.text;
  bool fits = isThere && text.size() >= continuationColumn &&
              text.take_front(continuationColumn - 1).trim().empty();
  if (!fits) {
    rest = restBefore;
    lineNumber -= isThere;
    return false;
  }
  parts.push_back(statement.size());
  append(line, continuationColumn - 1);
  return true;
}

bool BmsReader::next(BmsMacro &macro) {
  while (readStatement())
    if (readMacro(macro) && !isSkipping)
      return true;
  return false;
}

/// Makes a macro of the statement; false when it is none.
bool BmsReader::readMacro(BmsMacro &macro) {
  llvm::StringRef text = statement;
  macro = BmsMacro();
  size_t labelEnd = std::min(text.find(' '), text.size());
  size_t begin = text.find_first_not_of(' ', labelEnd);
  if (begin == llvm::StringRef::npos)
    return false;
  size_t end = std::min(text.find(' ', begin), text.size());
  std::string operation = text.slice(begin, end).upper();
  if (operation == "END") {
    isAtEnd = true;
    return false;
  }
  SourceRange place = rangeOf(begin, end - 1);
  const BmsMacroKind *kind = findMacro(operation);
  if (!kind) {
    llvm::StringRef names[] = {nameOf(BmsMacroKind::Mapset), nameOf(BmsMacroKind::Map),
                               nameOf(BmsMacroKind::Field)};
    if (!llvm::is_contained(assemblerStatements, operation))
      report(DiagnosticId::BmsUnknownMacro, place,
             showText(llvm::StringRef(operation).take_front(60)), suggestion(operation, names));
    return false;
  }
  macro.kind = *kind;
  macro.label = text.take_front(labelEnd).upper();
  macro.place = labelEnd > 0 ? rangeOf(0, labelEnd - 1) : place;
  readOperands(macro, text.find_first_not_of(' ', end));
  return true;
}

/// The continuation line that follows \p at.
size_t BmsReader::nextPart(size_t at) const {
  const auto *part = std::upper_bound(parts.data(), parts.data() + parts.size(), at);
  return part == parts.data() + parts.size() ? std::string::npos : *part;
}

/// Reads operands from \p at up to the blank that ends them. A blank after a comma leaves the rest
/// of the line to remarks; the operands go on in the next line.
void BmsReader::readOperands(BmsMacro &macro, size_t at) {
  while (at < statement.size()) {
    if (statement[at] == ' ') {
      size_t part = nextPart(at);
      if (part == std::string::npos)
        return;
      at = statement.find_first_not_of(' ', part);
      continue;
    }
    std::string operand;
    size_t end = findOperandEnd(at, operand);
    bool isListOpen = llvm::StringRef(operand).ends_with(",");
    bool isComma = end < statement.size() && statement[end] == ',';
    bool isLineOver = end + 1 >= statement.size() || statement[end + 1] == ' ';
    if (isListOpen || (isComma && isLineOver && nextPart(end) == std::string::npos)) {
      report(DiagnosticId::BmsContinuationMissing, rangeOf(end - isListOpen, end));
      // The line that was meant to continue the statement does so.
      if (takeContinuation()) {
        takeContinuations();
        continue;
      }
    }
    if (!operand.empty())
      addOperand(macro, operand, rangeOf(at, std::min(end, statement.size()) - 1));
    if (!isComma)
      return;
    at = end + 1;
  }
}

/// Where the operand that begins at \p begin ends: at a comma outside of parentheses, a blank, or
/// the end. \p operand takes its text, without what separates the lines.
size_t BmsReader::findOperandEnd(size_t begin, std::string &operand) {
  llvm::StringRef text = statement;
  unsigned depth = 0;
  size_t quote = std::string::npos;
  for (size_t at = begin; at < text.size(); ++at) {
    char c = text[at];
    if (c == '\'')
      quote = quote == std::string::npos ? at : std::string::npos;
    bool isQuoted = quote != std::string::npos;
    if (!isQuoted && c == ',' && depth == 0)
      return at;
    if (!isQuoted && c == ' ') {
      size_t part = operand.empty() || operand.back() != ',' ? std::string::npos : nextPart(at);
      if (part == std::string::npos)
        return at;
      at = text.find_first_not_of(' ', part) - 1;
      if (at + 1 == 0) // npos: nothing but blanks
        return text.size();
      continue;
    }
    depth += !isQuoted && c == '(';
    depth -= !isQuoted && c == ')' && depth > 0;
    operand += c;
  }
  if (quote != std::string::npos)
    report(DiagnosticId::BmsOpenText, rangeOf(quote, quote));
  return text.size();
}

/// Adds KEYWORD=value to \p macro if the macro has such an operand.
void BmsReader::addOperand(BmsMacro &macro, llvm::StringRef text, const SourceRange &place) {
  llvm::StringRef name = nameOf(macro.kind);
  auto [word, value] = text.split('=');
  std::string keyword = word.upper();
  if (word.size() == text.size() || word.empty() || !llvm::all_of(word, llvm::isAlnum)) {
    report(DiagnosticId::BmsOperandExpected, place, name, showText(text.take_front(60)));
    return;
  }
  unsigned here = 1U << unsigned(macro.kind);
  const auto *rule = llvm::find_if(operandRules, [&](const OperandRule &one) {
    return one.keyword == keyword && (one.macros & here);
  });
  if (rule == std::end(operandRules)) {
    llvm::SmallVector<llvm::StringRef, 40> names;
    for (const OperandRule &one : operandRules)
      if (one.macros & here)
        names.push_back(one.keyword);
    report(DiagnosticId::BmsUnknownOperand, place, name, llvm::StringRef(keyword).take_front(60),
           suggestion(keyword, names));
    return;
  }
  if (macro.find(keyword)) {
    report(DiagnosticId::BmsOperandTwice, place, keyword);
    return;
  }
  BmsOperand operand{keyword, value.str(), place};
  llvm::SmallVector<std::string, 4> items = operand.getItems();
  auto isFit = [&](const std::string &item) { return allows(*rule, item); };
  if (!rule->words.empty() && (items.empty() || !llvm::all_of(items, isFit))) {
    operand.isWrong = true;
    report(DiagnosticId::BmsOperandValue, place, keyword, showText(value.take_front(60)),
           listOf(rule->words));
  }
  macro.operands.push_back(std::move(operand));
}

SourceRange BmsReader::rangeOf(size_t first, size_t last) const {
  Position begin = positions[std::min(first, positions.size() - 1)];
  Position end = positions[std::min(last, positions.size() - 1)];
  return {fileNumber, begin.line, begin.column, end.line, end.column};
}

std::vector<std::string> mapsetsIn(llvm::StringRef text) {
  std::vector<std::string> mapsets;
  while (!text.empty()) {
    auto [line, tail] = text.split('\n');
    text = tail;
    if (std::string mapset = mapsetIn(line); !mapset.empty())
      mapsets.push_back(std::move(mapset));
  }
  return mapsets;
}

} // namespace tarka
