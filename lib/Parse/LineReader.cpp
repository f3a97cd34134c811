//===- LineReader.cpp - lines of program text -----------------------------===//

#include "Parse/LineReader.h"
#include "Parse/CharacterTable.h"
#include "Parse/TextChunk.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Compiler.h"
#include <algorithm>
#include <bit>
#include <cstring>

namespace tarka {

namespace {

constexpr unsigned indicatorColumn = 7;
constexpr unsigned textColumn = 8;
constexpr unsigned areaBColumn = 12;
constexpr unsigned lastTextColumn = 72;

bool isContinuationByte(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Counts columns along a line: those of the characters, of which one outside ASCII takes two
/// between shift codes, as its two bytes did where the shift codes come from.
class ColumnCounter {
public:
  /// A tab goes on to the next multiple of \p width.
  explicit ColumnCounter(unsigned width) : tabWidth(width) {}

  /// The column after the characters passed.
  unsigned getColumn() const { return column; }

  /// Goes on over \p c.
  void pass(char c) {
    if (!isContinuationByte(c))
      column += isDouble && static_cast<unsigned char>(c) >= 0x80 ? 2 : 1;
    if (c == shiftOut || c == shiftIn)
      isDouble = c == shiftOut;
  }
  /// The same with tabs.
  void passWithTabs(char c) {
    if (c == '\t')
      column = (column - 1) / tabWidth * tabWidth + tabWidth + 1;
    else
      pass(c);
  }

private:
  static constexpr char shiftOut = '\x0E';
  static constexpr char shiftIn = '\x0F';

  unsigned tabWidth;
  unsigned column = 1;
  bool isDouble = false;
};

constexpr unsigned allBytes = 0xFFFF;

const char *trimEnd(const char *begin, const char *end) {
  if (end > begin && !isBlank(end[-1]))
    return end;
  while (end - begin >= TextChunk::size) {
    const unsigned text = TextChunk(end - TextChunk::size).findEqual(' ') ^ allBytes;
    if (text) {
      end -= std::countl_zero(static_cast<uint16_t>(text));
      break;
    }
    end -= TextChunk::size;
  }
  while (end > begin && isBlank(end[-1]))
    --end;
  return end;
}

bool beginsWith(const char *at, const char *end, llvm::StringRef text) {
  return llvm::StringRef(at, end - at).starts_with(text);
}

/// Follows literals through text that comes in pieces, to know whether one is open at its end.
class LiteralTracker {
public:
  void read(llvm::StringRef text) {
    for (size_t i = 0; i < text.size(); ++i) {
      char c = text[i];
      closed = open && c == open ? c : 0;
      if (open)
        open = closed ? 0 : open;
      else if (c == '"' || c == '\'')
        open = c;
      else if (c == '*' && text.substr(i).starts_with("*>"))
        return;
    }
  }
  /// The quote that would close the literal; 0 when none is open.
  char openQuote() const { return open; }
  /// The quote that the text ends with, if it closed a literal.
  char quoteJustClosed() const { return closed; }

private:
  char open = 0;
  char closed = 0;
};

} // namespace

LineReader::LineReader(const SourceFile &file, SourceFormat format, SourceDiagnostics &diagnostics,
                       bool isMain, bool formatIsGuessed)
    : diagnostics(diagnostics), fileNumber(file.getNumber()), tabWidth(file.getTabWidth()),
      format(format), isGuessed(formatIsGuessed), optionsMayCome(isMain),
      position(file.getText().begin()), fileEnd(file.getText().end()) {}

bool LineReader::next() {
  PhysicalLine line;
  while (readPhysicalLine(line)) {
    if (optionsMayCome && isOptionsLine(line))
      continue;
    if (format == SourceFormat::Free ? acceptFree(line) : acceptFixed(line)) {
      optionsMayCome = false;
      return true;
    }
  }
  return false;
}

SourceRange LineReader::endOfFile() const {
  unsigned line = std::max(linesRead, 1u);
  return {fileNumber, line, 1, line, 1};
}

/// The first control byte or byte outside ASCII from \p at on, or the end of the file.
LLVM_ATTRIBUTE_ALWAYS_INLINE const char *LineReader::skipPlainText(const char *at) const {
  for (; fileEnd - at >= TextChunk::size; at += TextChunk::size)
    if (unsigned unusual = TextChunk(at).findUnusual())
      return at + std::countr_zero(unusual);
  while (at < fileEnd && static_cast<signed char>(*at) >= ' ')
    ++at;
  return at;
}

/// The first character of [\p from, \p end), a part of a line, that is not blank; else \p end.
LLVM_ATTRIBUTE_ALWAYS_INLINE const char *LineReader::skipBlanks(const char *from,
                                                                const char *end) const {
  while (from < end && fileEnd - from >= TextChunk::size) {
    const unsigned spaces = TextChunk(from).findEqual(' ');
    from += TextChunk::countFirst(spaces);
    if (spaces != allBytes)
      break;
  }
  while (from < end && isBlank(*from))
    ++from;
  return std::min(from, end);
}

/// Finds the line that begins at \p from, and returns where the next one does. A line ends with LF,
/// CR LF or CR.
LLVM_ATTRIBUTE_ALWAYS_INLINE const char *LineReader::findLine(const char *from,
                                                              PhysicalLine &line) const {
  line.start = from;
  line.isPlain = true;
  line.controlBytes = false;
  const char *at = skipPlainText(from);
  for (; at < fileEnd && *at != '\n' && *at != '\r'; at = skipPlainText(at + 1)) {
    if (*at == '\t' || static_cast<unsigned char>(*at) >= 0x80)
      line.isPlain = false;
    else if (!isBlank(*at))
      line.controlBytes = true;
  }
  line.end = at;
  if (at < fileEnd && *at == '\r')
    ++at;
  if (at < fileEnd && *at == '\n')
    ++at;
  return at;
}

LLVM_ATTRIBUTE_ALWAYS_INLINE bool LineReader::readPhysicalLine(PhysicalLine &line) {
  if (position == fileEnd)
    return false;
  position = findLine(position, line);
  line.number = ++linesRead;
  return true;
}

/// Finds the parts of a line in fixed form. Columns count characters, and tabs as wide as they are
/// in the file.
LLVM_ATTRIBUTE_ALWAYS_INLINE LineReader::FixedLine
LineReader::divide(const PhysicalLine &line) const {
  if (!line.isPlain)
    return divideUnplain(line);
  FixedLine parts;
  size_t length = line.end - line.start;
  auto columnAt = [&](size_t column) { return line.start + std::min(length, column - 1); };
  if (length >= indicatorColumn)
    parts.indicator = line.start[indicatorColumn - 1];
  parts.text = columnAt(textColumn);
  parts.areaB = columnAt(areaBColumn);
  parts.limit = columnAt(lastTextColumn + 1);
  return parts;
}

LineReader::FixedLine LineReader::divideUnplain(const PhysicalLine &line) const {
  FixedLine parts;
  parts.text = parts.areaB = parts.limit = line.end;
  ColumnCounter counter(tabWidth);
  for (const char *at = line.start; at < line.end; ++at) {
    const unsigned column = counter.getColumn();
    if (!isContinuationByte(*at)) {
      if (column == indicatorColumn)
        parts.indicator = *at == '\t' ? ' ' : *at;
      if (column >= textColumn)
        parts.text = std::min(parts.text, at);
      if (column >= areaBColumn)
        parts.areaB = std::min(parts.areaB, at);
      if (column > lastTextColumn) {
        parts.limit = at;
        break;
      }
    }
    counter.passWithTabs(*at);
  }
  return parts;
}

/// The column in which the character at \p at stands or would stand.
unsigned LineReader::columnBehind(const PhysicalLine &line, const char *at) const {
  if (line.isPlain)
    return static_cast<unsigned>(at - line.start) + 1;
  ColumnCounter counter(tabWidth);
  for (const char *from = line.start; from < at; ++from)
    counter.passWithTabs(*from);
  return counter.getColumn();
}

void LineReader::report(DiagnosticId id, const PhysicalLine &line, const char *at,
                        llvm::StringRef text) {
  if (quiet)
    return;
  unsigned column = columnOf(line.start, at);
  diagnostics.report(id, SourceRange{fileNumber, line.number, column, line.number, column}, text);
}

/// Makes [begin, end) of \p line, in which \p first is not blank, the text to read.
void LineReader::take(const PhysicalLine &line, const char *begin, const char *first,
                      const char *end) {
  textBegin = begin;
  firstText = first;
  textEnd = end;
  lineStart = line.start;
  lineNumber = line.number;
  bytesAreColumns = line.isPlain;
  isPlain = bytesAreColumns && end - lineStart < SourceRange::maxColumn;
  controlBytes = line.controlBytes;
  segments.clear();
}

bool LineReader::acceptFree(const PhysicalLine &line) {
  const char *begin = skipBlanks(line.start, line.end);
  const char *end = trimEnd(begin, line.end);
  if (begin == end || beginsWith(begin, end, "*>"))
    return false;
  // Where the columns before the indicator were cut off, an asterisk in the first one that is left
  // marks a comment.
  if (isGuessed && begin == line.start && *begin == '*')
    return false;
  take(line, line.start, begin, end);
  areaB = end;
  return true;
}

LLVM_ATTRIBUTE_ALWAYS_INLINE bool LineReader::acceptFixed(const PhysicalLine &line) {
  FixedLine parts = divide(line);
  const char *first = skipBlanks(line.start, line.end);
  // A directive that changes the form is usually written for the form that it changes to.
  if (first < parts.text && beginsWith(first, line.end, ">>")) {
    parts.text = parts.areaB = first;
    parts.limit = line.end;
  } else if (parts.indicator != ' ' && !acceptIndicator(line, parts)) {
    return false;
  }
  const char *end = trimEnd(parts.text, parts.limit);
  if (first < parts.text)
    first = skipBlanks(parts.text, end);
  if (first >= end || beginsWith(first, end, "*>"))
    return false;
  if (parts.limit < line.end) {
    noteCut(line, parts);
    linesIdentified += !isBlank(*parts.limit);
  }
  take(line, parts.text, first, end);
  areaB = parts.areaB;
  pastMargin = llvm::StringRef(parts.limit, line.end - parts.limit);
  if (isContinuedNext())
    joinContinuations(line, parts.limit);
  return true;
}

/// Notes text that goes on past column 72: a word that crosses it, or one that begins behind it. A
/// sequence number or an identification of the line, which may stand there as well, has digits in
/// it; an identification without digits stands there in most lines.
void LineReader::noteCut(const PhysicalLine &line, const FixedLine &parts) {
  constexpr unsigned lastColumn = 80;
  const bool isIdentified = linesIdentified * 2 >= linesRead || linesRead < 2;
  const bool isCrossed = !isBlank(parts.limit[-1]) && !isBlank(*parts.limit);
  const char *begin = isCrossed ? parts.limit : skipBlanks(parts.limit, line.end);
  while (isCrossed && begin > parts.text && !isBlank(begin[-1]))
    --begin;
  const char *end = std::find_if(std::max(begin, parts.limit), line.end, isBlank);
  if (begin == line.end || (!isCrossed && isIdentified) ||
      std::any_of(parts.limit, end, llvm::isDigit) ||
      llvm::StringRef(parts.text, parts.limit - parts.text).contains("*>"))
    return;
  const bool isBeyond = columnBehind(line, trimEnd(parts.limit, line.end)) > lastColumn + 1;
  SourceRange place = {fileNumber, line.number, columnBehind(line, begin), line.number,
                       columnBehind(line, isCrossed ? parts.limit : end) - 1};
  diagnostics.noteCutLine(isCrossed ? DiagnosticId::TextPastMargin : DiagnosticId::WordPastMargin,
                          place, llvm::StringRef(begin, end - begin),
                          isCrossed && (isBeyond || !isIdentified) && !quiet);
}

/// Whether a line whose column 7 is not blank holds program text.
bool LineReader::acceptIndicator(const PhysicalLine &line, FixedLine &parts) {
  const char *at = parts.text > line.start ? parts.text - 1 : parts.text;
  switch (parts.indicator) {
  case '*':
  case '/':
    return false;
  case 'D':
  case 'd':
    return debugging;
  case '-':
    report(DiagnosticId::NothingToContinue, line, at);
    return true;
  default:
    break;
  }
  if (classOf(parts.indicator) == CharacterClass::Blank)
    return true;
  report(DiagnosticId::UnknownIndicator, line, at, showText(llvm::StringRef(&parts.indicator, 1)));
  // $SET and the like are directives of other compilers.
  if (parts.indicator == '$')
    return false;
  // Program text that begins a column too early is read all the same.
  if (isWordCharacter(parts.indicator) && parts.text < parts.limit && isWordCharacter(*parts.text))
    parts.text = at;
  return true;
}

/// A line CBL or PROCESS, which may begin in any column, after a sequence number or without one.
bool LineReader::isOptionsLine(const PhysicalLine &line) {
  llvm::StringRef text(line.start, line.end - line.start);
  if (format != SourceFormat::Free)
    text = text.take_front(lastTextColumn);
  text = text.ltrim("0123456789 \t");
  llvm::StringRef word = text.take_while(isWordCharacter);
  if (!word.equals_insensitive("CBL") && !word.equals_insensitive("PROCESS"))
    return false;
  optionsText += text.drop_front(word.size());
  optionsText += ',';
  return true;
}

/// Whether the line that begins at \p at shows in its first characters that it holds text and does
/// not continue another line, as most lines do.
LLVM_ATTRIBUTE_ALWAYS_INLINE bool LineReader::beginsText(const char *at) const {
  constexpr unsigned toIndicator = (1 << indicatorColumn) - 1;
  if (fileEnd - at < TextChunk::size || (TextChunk(at).findUnusual() & toIndicator) ||
      at[indicatorColumn - 1] != ' ')
    return false;
  const char *first = skipBlanks(at + indicatorColumn, fileEnd);
  return first < fileEnd && *first > ' ' && *first != '*';
}

/// Whether the next line that is neither comment nor blank continues the line just read.
LLVM_ATTRIBUTE_ALWAYS_INLINE bool LineReader::isContinuedNext() const {
  return position < fileEnd && !beginsText(position) && findContinuation();
}

bool LineReader::findContinuation() const {
  for (const char *at = position; at < fileEnd && !beginsText(at);) {
    PhysicalLine line;
    at = findLine(at, line);
    const FixedLine parts = divide(line);
    if (parts.indicator == '-')
      return true;
    // Only lines that are ignored can stand before a continuation.
    const char *first = skipBlanks(parts.text, parts.limit);
    const bool isComment = parts.indicator == '*' || parts.indicator == '/' ||
                           ((parts.indicator == 'D' || parts.indicator == 'd') && !debugging) ||
                           first == parts.limit || beginsWith(first, parts.limit, "*>");
    if (!isComment)
      return false;
  }
  return false;
}

/// Puts the text of \p line, which ends at \p limit, and of its continuation lines together.
void LineReader::joinContinuations(const PhysicalLine &line, const char *limit) {
  llvm::SmallString<256> joined;
  LiteralTracker literals;
  PhysicalLine last = line;
  const char *lastLimit = limit;
  const char *begin = textBegin;
  size_t indent = firstText - textBegin;
  size_t areaASize = areaB - textBegin;
  bool control = controlBytes;

  auto append = [&](const PhysicalLine &from, const char *first, const char *end) {
    segments.push_back({joined.size(), first, from.start, from.end, from.number});
    llvm::StringRef text(first, end - first);
    literals.read(text);
    joined += text;
  };
  segments.clear();
  append(line, begin, trimEnd(begin, limit));

  do {
    PhysicalLine more;
    FixedLine parts;
    do {
      readPhysicalLine(more);
      parts = divide(more);
    } while (parts.indicator != '-');
    control |= more.controlBytes;
    const char *end = trimEnd(parts.text, parts.limit);
    const char *first = skipBlanks(parts.text, end);
    if (first < parts.areaB && first < end)
      report(DiagnosticId::ContinuationInAreaA, more, first);

    const char *written = segments.back().source + (joined.size() - segments.back().offset);
    bool isFull = columnBehind(last, written) > lastTextColumn;
    if (char quote = literals.openQuote()) {
      // A literal that goes on has all the spaces up to column 72, and begins again with a quote.
      joined += llvm::StringRef(written, lastLimit - written);
      for (unsigned column = columnBehind(last, lastLimit); column <= lastTextColumn; ++column)
        joined += ' ';
      if (first < end && *first == quote)
        ++first;
      else
        report(DiagnosticId::ContinuedLiteralWithoutQuote, more, first < end ? first : more.start,
               quote == '"' ? "a quotation mark" : "an apostrophe");
    } else if (char closed = literals.quoteJustClosed();
               closed && isFull && beginsWith(first, end, std::string(2, closed))) {
      // A quote inside a literal is written twice: once in column 72, and once after the quote
      // with which the literal begins again.
      ++first;
    }
    append(more, first, end);
    last = more;
    lastLimit = parts.limit;
  } while (isContinuedNext());

  // Tokens point into the joined text, so it stays.
  char *text = static_cast<char *>(allocateForever(joined.size(), 1));
  std::memcpy(text, joined.data(), joined.size());
  textBegin = text;
  firstText = text + indent;
  textEnd = text + joined.size();
  areaB = text + std::min(areaASize, joined.size());
  isPlain = bytesAreColumns = false;
  controlBytes = control;
  currentSegment = 0;
}

/// The column of the character at \p at in the line that begins at \p start: as many characters
/// as there are up to there, with both columns of those that take two.
unsigned LineReader::columnOf(const char *start, const char *at) {
  if (controlBytes) {
    while (at > start && isContinuationByte(*at))
      --at;
    ColumnCounter counter(tabWidth);
    for (const char *from = start; from < at; ++from)
      counter.pass(*from);
    return std::min(counter.getColumn(), SourceRange::maxColumn);
  }
  const char *behind = at < fileEnd ? at + 1 : at;
  if (countedLine != start || behind < countedTo) {
    countedLine = countedTo = start;
    countedColumns = 0;
  }
  countedColumns += std::count_if(countedTo, behind, [](char c) { return !isContinuationByte(c); });
  countedTo = behind;
  return std::clamp(countedColumns, 1u, SourceRange::maxColumn);
}

void LineReader::locate(const char *at, unsigned &line, unsigned &column) {
  if (segments.empty()) {
    line = lineNumber;
    column = columnOf(lineStart, at);
    return;
  }
  size_t offset = at - textBegin;
  if (segments[currentSegment].offset > offset)
    currentSegment = 0;
  while (currentSegment + 1 < segments.size() && segments[currentSegment + 1].offset <= offset)
    ++currentSegment;
  const Segment &segment = segments[currentSegment];
  line = segment.line;
  // The spaces that a literal has up to column 72 need not stand in the file.
  size_t room = segment.lineEnd - segment.source;
  column = columnOf(segment.lineStart, segment.source + std::min(offset - segment.offset, room));
}

SourceRange LineReader::rangeOfUnplain(const char *first, const char *last) {
  if (bytesAreColumns) {
    auto columnOfByte = [this](const char *at) {
      return static_cast<unsigned>(
          std::min<std::ptrdiff_t>(at - lineStart + 1, SourceRange::maxColumn));
    };
    return {fileNumber, lineNumber, columnOfByte(first), lineNumber, columnOfByte(last)};
  }
  unsigned beginLine = 0, beginColumn = 0, endLine = 0, endColumn = 0;
  locate(first, beginLine, beginColumn);
  locate(last, endLine, endColumn);
  return {fileNumber, beginLine, beginColumn, endLine, endColumn};
}

} // namespace tarka
