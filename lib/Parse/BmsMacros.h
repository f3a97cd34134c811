//===- BmsMacros.h - the macro statements of a BMS source -------*- C++ -*-===//
//
// A BMS source is assembler language: a name in column 1, an operation, operands
// without spaces, then remarks. A mark in column 72 continues a statement in column
// 16 of the next line. This reader makes statements from the lines and checks the
// operands of DFHMSD, DFHMDI and DFHMDF against one table; BmsMap interprets them.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_BMSMACROS_H
#define TARKA_LIB_PARSE_BMSMACROS_H

#include "Parse/SourceDiagnostics.h"
#include "Parse/SourceFile.h"
#include "llvm/ADT/SmallVector.h"
#include <string>
#include <utility>
#include <vector>

namespace tarka {

/// The macros that define a mapset, a map and a field.
enum class BmsMacroKind : uint8_t { Mapset, Map, Field };

/// KEYWORD=value
struct BmsOperand {
  std::string keyword; ///< in upper case
  std::string value;   ///< as written: a sublist with its parentheses, text with its quotes
  SourceRange place;
  bool isWrong = false; ///< the value was reported

  /// The items of a sublist in upper case, or the only value.
  llvm::SmallVector<std::string, 4> getItems() const;
  /// The text between the quotes, doubled quotes and ampersands once; a value without quotes as it
  /// is.
  std::string getText() const;
  /// The value of the operand as a number; 0 when it is not a number.
  unsigned getNumber() const;
};

/// One of the three macros with its operands.
struct BmsMacro {
  BmsMacroKind kind = BmsMacroKind::Mapset;
  std::string label; ///< in upper case, empty when there is none
  SourceRange place; ///< of the label, or of the operation where there is no label
  std::vector<BmsOperand> operands;

  /// Null when the macro does not have it.
  const BmsOperand *find(llvm::StringRef keyword) const;
  /// Whether the operand \p keyword has the only value \p value.
  bool has(llvm::StringRef keyword, llvm::StringRef value) const;
};

/// The name of the macro: DFHMSD, DFHMDI or DFHMDF.
llvm::StringRef nameOf(BmsMacroKind kind);

/// The labels of all mapsets that \p text defines, in upper case.
std::vector<std::string> mapsetsIn(llvm::StringRef text);

/// Reads the macros of one file.
class BmsReader {
public:
  /// Reads the macros of the mapset \p onlyMapset, in upper case; of all mapsets when it is empty.
  BmsReader(const SourceFile &file, llvm::StringRef onlyMapset, SourceDiagnostics &diagnostics);

  /// Reads the next DFHMSD, DFHMDI or DFHMDF; false at the end of the source. Statements of the
  /// assembler are passed over. Reports statements and operands that are wrong: 100 to 107.
  bool next(BmsMacro &macro);

private:
  /// The place of a character of a statement.
  struct Position {
    unsigned line;
    unsigned column;
  };
  /// A line up to its end, each character with its column.
  struct Line {
    std::string text;              ///< tabs expanded, at least 80 columns
    std::vector<unsigned> columns; ///< of each byte, as they stand in the file
    bool isContinued = false;
  };

  bool readLine(Line &line);
  bool readStatement();
  void takeContinuations();
  bool takeContinuation();
  void append(const Line &line, size_t from);
  bool readMacro(BmsMacro &macro);
  void readOperands(BmsMacro &macro, size_t at);
  size_t findOperandEnd(size_t begin, std::string &operand);
  size_t nextPart(size_t at) const;
  void addOperand(BmsMacro &macro, llvm::StringRef text, const SourceRange &place);
  SourceRange rangeOf(size_t first, size_t last) const;
  /// Reports \p id, but not for a mapset that was not requested.
  template <typename... Arguments>
  void report(DiagnosticId id, const SourceRange &place, Arguments &&...arguments) {
    if (!isSkipping)
      diagnostics.report(id, place, std::forward<Arguments>(arguments)...);
  }

  SourceDiagnostics &diagnostics;
  const unsigned fileNumber;
  llvm::StringRef rest;
  unsigned lineNumber = 0;

  // The statement that is being read, its lines put together.
  std::string statement;
  std::vector<Position> positions;
  /// Where the text of each continuation line begins.
  std::vector<size_t> parts;
  bool isContinued = false; ///< the line read last has a mark in column 72
  bool isAtEnd = false;

  const std::string onlyMapset;
  bool isSkipping; ///< another mapset is being read
};

} // namespace tarka

#endif // TARKA_LIB_PARSE_BMSMACROS_H
