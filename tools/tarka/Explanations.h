//===- Explanations.h - what there is to say of a diagnostic ----*- C++ -*-===//
//
// The rows of both tables of diagnostics, and the explanations that belong to
// them: text files of the folder explanations/, built into the program. Each
// tells the rule and holds a program in two versions, one that breaks the rule
// and one that is mended.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_EXPLANATIONS_H
#define TARKA_TOOLS_EXPLANATIONS_H

#include "AST/Severity.h"
#include "llvm/ADT/StringRef.h"
#include <optional>
#include <string>
#include <vector>

namespace tarka {

/// A row of the front end's table of diagnostics or of the checks' catalogue.
struct DiagnosticRow {
  unsigned number;
  /// The number; for one that stands in two rows of the catalogue with the row: "3527-row181".
  std::string name;
  /// The enumerator that the code has for it: what is wrong in a few words.
  llvm::StringRef enumerator;
  Severity severity;
  /// The text as the table has it, with "%s" or "{0}" where an argument goes.
  llvm::StringRef message;

  /// The text to show, with dots where an argument goes.
  std::string shownMessage() const;
};

/// The first row of \p number; null when there is none.
const DiagnosticRow *findDiagnosticRow(unsigned number);

/// All rows in the order of their numbers.
const std::vector<DiagnosticRow> &diagnosticRows();

/// The two versions of a program.
enum class ProgramVersion { Wrong, Mended };

/// A line of a program as it is shown.
struct ProgramLine {
  std::string text;
  /// Its number in the file; a line that says "*> times: N" stands for as many.
  unsigned number;
  /// Whether the other version does not have it.
  bool differs;
};

/// A file of a program: the program itself, which comes first, or a copybook. A copybook may stand
/// for several, which are numbered from 1: in their names and lines "#" is the number, "#+1" the
/// one after it.
class ProgramFile {
public:
  explicit ProgramFile(llvm::StringRef name, unsigned count = 1) : name(name), count(count) {}

  llvm::StringRef getName() const { return name; }
  unsigned getCount() const { return count; }
  std::string nameOf(unsigned number) const { return numbered(name, number); }
  /// Takes one more line, beginning with its mark: ' ' of both versions, '-' only of the wrong one,
  /// '+' only of the mended one.
  void addLine(llvm::StringRef line) { lines.push_back(line); }
  /// The lines with their marks.
  const std::vector<llvm::StringRef> &markedLines() const { return lines; }

  /// The lines to show, without the expectations.
  std::vector<ProgramLine> linesOf(ProgramVersion version) const;
  /// The text to compile of file \p number, as linesOf() counts its lines.
  std::string sourceOf(ProgramVersion version, unsigned number) const;
  /// The same of the wrong program with the expectations in it, which --verify reads.
  std::string verifiedSource(unsigned number) const;

private:
  std::string numbered(llvm::StringRef text, unsigned number) const;

  llvm::StringRef name;
  unsigned count;
  std::vector<llvm::StringRef> lines;
};

/// The name of the program's own file, the first one.
inline constexpr char programFileName[] = "p.cbl";

struct Explanation {
  std::string rule;
  /// Why no program causes the diagnostic; empty for all but a few, and then there is no program.
  std::string neverIssued;
  std::vector<unsigned> related;
  /// The options that the program needs.
  std::vector<std::string> options;
  std::vector<ProgramFile> files;
};

/// The explanation of the row of this name; none when it is not written.
std::optional<Explanation> explanationOf(llvm::StringRef name);

/// What is left of \p line of a program without the comment that says what is expected; none when
/// it is nothing else.
std::optional<std::string> withoutExpectation(llvm::StringRef line);

} // namespace tarka

#endif // TARKA_TOOLS_EXPLANATIONS_H
