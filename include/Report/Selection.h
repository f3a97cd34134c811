//===- Selection.h - choosing what is reported ------------------*- C++ -*-===//
//
// Which diagnostics are reported, and with which severity, by number: by the
// command line for all files, by comments in a source for its lines.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_SELECTION_H
#define TARKA_REPORT_SELECTION_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include <optional>

namespace tarka {

/// Numbers of diagnostics, both ends included.
struct NumberRange {
  int first = 0;
  int last = 0;

  bool contains(int number) const { return first <= number && number <= last; }
};

/// A name for a range of numbers.
struct DiagnosticGroup {
  llvm::StringLiteral name;
  NumberRange range;
  llvm::StringLiteral description;
};

/// The groups by ascending number.
llvm::ArrayRef<DiagnosticGroup> diagnosticGroups();

/// Parses "3310", "3301-3399" or the name of a group; nothing when \p word is none of them.
std::optional<NumberRange> parseNumbers(llvm::StringRef word);

/// What is done with diagnostics by their numbers. Of several rules for a number, the last applies.
class Selection {
public:
  enum class Action : std::uint8_t { Off, Warn, Error };

  /// Adds a rule for \p words: numbers, ranges and groups with commas between them. Returns the
  /// first word that is none of them; empty when all are valid.
  std::string add(Action action, llvm::StringRef words);

  /// Sets the severity of \p diagnostic; false when it is not to be reported. A fatal error is not
  /// changed, because the text after it was not read.
  bool apply(Diagnostic &diagnostic) const;

  /// The rules in words; equal for two selections only when they do the same.
  std::string describe() const;

private:
  struct Rule {
    NumberRange range;
    Action action;
  };
  std::vector<Rule> rules;
};

/// What a comment in a source turns off:
///
///     MOVE A TO B.  *> tarka: off 3468 A is checked before     this line
///     *> tarka: off 3310 3403                                  the next line with program text
///     *> tarka: off 3310  ...  *> tarka: on 3310               the lines between them
///
/// "on" ends the latest "off" of each of its numbers; without numbers, all of the latest comment.
/// What follows the numbers of "off" is the reason. A comment with several numbers gives several of
/// these.
struct Suppression {
  /// The number, range or group in the comment.
  SourceRange place;
  /// The same as written.
  std::string written;
  NumberRange numbers;
  unsigned firstLine = 0;
  unsigned lastLine = 0;
  std::string reason;
  bool isUsed = false;
};

/// A comment "tarka:" that cannot be understood.
struct SuppressionFault {
  SourceRange place;
  std::string text;
};

/// The suppressions of one file.
class Suppressions {
public:
  /// The word that every such comment has.
  static constexpr llvm::StringLiteral marker = "tarka:";

  /// Reads the comments of \p text, the whole text of file number \p fileNumber.
  Suppressions(unsigned fileNumber, llvm::StringRef text);

  /// Whether a comment turns off \p diagnostic, whose place is in the file. A fatal error cannot be
  /// turned off.
  bool suppress(const Diagnostic &diagnostic);

  llvm::ArrayRef<Suppression> getAll() const { return suppressions; }
  llvm::ArrayRef<SuppressionFault> getFaults() const { return faults; }

private:
  struct Comment;
  void readComment(const Comment &comment);
  void endRegions(unsigned line, llvm::ArrayRef<llvm::StringRef> words);

  unsigned file;
  std::vector<Suppression> suppressions;
  /// Those of a comment on a line of its own, which a later "on" may end, by their indexes.
  std::vector<std::size_t> open;
  std::vector<SuppressionFault> faults;
  /// The indexes of those that apply to one line, and of the others.
  llvm::DenseMap<unsigned, llvm::SmallVector<std::size_t, 2>> byLine;
  std::vector<std::size_t> regions;
};

} // namespace tarka

#endif // TARKA_REPORT_SELECTION_H
