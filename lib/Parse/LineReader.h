//===- LineReader.h - lines of program text ---------------------*- C++ -*-===//
//
// Implements the layout of lines in fixed and in free form: which lines contain
// program text, and how a line is continued on the next. The layers above see only
// text; every position in it can be mapped to its place in the file.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_LINEREADER_H
#define TARKA_PARSE_LINEREADER_H

#include "Parse/SourceDiagnostics.h"
#include "Parse/SourceFile.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/SmallVector.h"
#include <string>
#include <utility>

namespace tarka {

/// Reads the lines of program text of one file. Comment lines, blank lines and, unless they are
/// requested, debugging lines are skipped. In fixed form a line and its continuation lines
/// are one.
class LineReader {
public:
  /// \p isMain says that compiler options (CBL and PROCESS lines) may stand before the program.
  LineReader(const SourceFile &file, SourceFormat format, SourceDiagnostics &diagnostics,
             bool isMain, bool formatIsGuessed);

  /// Moves on to the next line; false at the end of the file.
  bool next();

  /// The text of the line, from column 8 (fixed form) or 1 (free form) without the spaces at its
  /// end. It is not empty.
  const char *begin() const { return textBegin; }
  const char *end() const { return textEnd; }
  /// The first character of the line that is not blank.
  const char *first() const { return firstText; }
  /// Up to where the memory after the line can be read.
  const char *getReadableEnd() const { return segments.empty() ? fileEnd : textEnd; }

  /// Whether \p at lies in area A; in free form every position does.
  bool isInAreaA(const char *at) const { return at < areaB; }

  SourceFormat getFormat() const { return format; }
  /// Changes the form from the next line on.
  void setFormat(SourceFormat newFormat) {
    format = newFormat;
    isGuessed = false;
  }
  void setDebuggingMode(bool on) { debugging = on; }
  /// Says that a program ended: before the next one there may be CBL and PROCESS lines.
  void expectOptions() { optionsMayCome = true; }
  /// The text of the CBL and PROCESS lines passed since it was asked for last.
  std::string takeOptionsText() { return std::exchange(optionsText, {}); }
  bool hasOptionsText() const { return !optionsText.empty(); }
  /// Sets whether mistakes in the layout of lines are not reported (in text that is skipped).
  void setQuiet(bool on) { quiet = on; }

  /// What stands past column 72 of the line that was read last; empty in free form.
  llvm::StringRef getTextPastMargin() const { return pastMargin; }
  /// The text of the file that was not read yet.
  llvm::StringRef getRest() const { return {position, static_cast<size_t>(fileEnd - position)}; }

  /// Whether the line was put together from more than one of the file.
  bool isContinued() const { return !segments.empty(); }
  /// Whether the line holds bytes that are not characters.
  bool hasControlBytes() const { return controlBytes; }

  /// The place of the characters from \p first to \p last, both in the line and inclusive.
  SourceRange rangeOf(const char *first, const char *last) {
    if (isPlain) {
      unsigned column = static_cast<unsigned>(first - lineStart) + 1;
      return {fileNumber, lineNumber, column, lineNumber,
              column + static_cast<unsigned>(last - first)};
    }
    return rangeOfUnplain(first, last);
  }
  /// The place after the last line of the file.
  SourceRange endOfFile() const;

private:
  /// A line as it stands in the file.
  struct PhysicalLine {
    const char *start = nullptr;
    const char *end = nullptr; ///< after the last character, before the line's end
    unsigned number = 0;
    bool isPlain = true; ///< a byte is a column: no tab, no character of several bytes
    bool controlBytes = false;
  };
  /// The parts of a line in fixed form.
  struct FixedLine {
    char indicator = ' ';
    const char *text = nullptr;  ///< column 8
    const char *areaB = nullptr; ///< column 12
    const char *limit = nullptr; ///< after column 72 or the line's end
  };
  /// A piece of a continued line: where it begins in the joined text and in the file.
  struct Segment {
    size_t offset;
    const char *source;
    const char *lineStart;
    const char *lineEnd;
    unsigned line;
  };

  bool readPhysicalLine(PhysicalLine &line);
  const char *findLine(const char *from, PhysicalLine &line) const;
  const char *skipPlainText(const char *at) const;
  const char *skipBlanks(const char *from, const char *end) const;
  FixedLine divide(const PhysicalLine &line) const;
  FixedLine divideUnplain(const PhysicalLine &line) const;
  unsigned columnBehind(const PhysicalLine &line, const char *at) const;
  bool acceptFixed(const PhysicalLine &line);
  void noteCut(const PhysicalLine &line, const FixedLine &parts);
  bool acceptFree(const PhysicalLine &line);
  bool acceptIndicator(const PhysicalLine &line, FixedLine &parts);
  bool isOptionsLine(const PhysicalLine &line);
  bool isContinuedNext() const;
  bool findContinuation() const;
  bool beginsText(const char *at) const;
  void joinContinuations(const PhysicalLine &line, const char *limit);
  void take(const PhysicalLine &line, const char *begin, const char *first, const char *end);
  void report(DiagnosticId id, const PhysicalLine &line, const char *at, llvm::StringRef text = {});
  SourceRange rangeOfUnplain(const char *first, const char *last);
  void locate(const char *at, unsigned &line, unsigned &column);
  unsigned columnOf(const char *start, const char *at);

  SourceDiagnostics &diagnostics;
  const unsigned fileNumber;
  const unsigned tabWidth;
  SourceFormat format;
  bool isGuessed; ///< the form was not named, but found out from the lines
  bool debugging = false;
  bool quiet = false;
  /// Whether a CBL or PROCESS line may still come.
  bool optionsMayCome;
  std::string optionsText;

  /// The first byte that was not read yet, and the end of the file.
  const char *position;
  const char *const fileEnd;
  unsigned linesRead = 0;
  unsigned linesIdentified = 0; ///< lines of program text with something in column 73

  llvm::StringRef pastMargin;
  // The line that is being read.
  const char *textBegin = nullptr;
  const char *firstText = nullptr;
  const char *textEnd = nullptr;
  const char *areaB = nullptr;
  const char *lineStart = nullptr;
  unsigned lineNumber = 0;
  bool bytesAreColumns = true; ///< no tab, no character of several bytes, not continued
  bool isPlain = true;         ///< the same, and no column is too great for a place
  bool controlBytes = false;
  /// The pieces of a continued line, empty when it is not continued.
  llvm::SmallVector<Segment, 4> segments;
  size_t currentSegment = 0;

  // Columns are counted from the position that was asked for last.
  const char *countedLine = nullptr;
  const char *countedTo = nullptr;
  unsigned countedColumns = 0;
};

} // namespace tarka

#endif // TARKA_PARSE_LINEREADER_H
