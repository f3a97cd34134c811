//===- Diagnostic.h - one diagnostic of any stage ---------------*- C++ -*-===//
//
// The common form of the diagnostics of the front end, of the checks and of later
// passes. It holds everything that a report shows, so that it can be
// sent from the process that found it to the one that prints it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_DIAGNOSTIC_H
#define TARKA_REPORT_DIAGNOSTIC_H

#include "AST/Severity.h"
#include "llvm/ADT/StringRef.h"
#include <string>
#include <vector>

namespace tarka {

class SourceUnit;

/// A further place that explains a diagnostic, such as "first declared here".
struct DiagnosticNote {
  std::string text;
  SourceRange place;
  /// The source line that the place begins in, as UTF-8; empty where it cannot be shown.
  std::string line;
};

/// One diagnostic.
struct Diagnostic {
  int number = 0;
  Severity severity = Severity::Error;
  /// The text of the table, with its arguments filled in.
  std::string text;
  /// What it is about: a name or a literal, as written. Empty where it is not known.
  std::string subject;
  /// What the subject is: "PIC X(30)" for the name of an item.
  std::string detail;
  /// The same of the second operand that the diagnostic involves; empty where there is none.
  std::string otherSubject;
  std::string otherDetail;
  /// The name that was probably meant in the place of the subject.
  std::string suggestion;
  SourceRange place;
  /// The source line that the place begins in, as UTF-8; empty where it cannot be shown.
  std::string line;
  std::vector<DiagnosticNote> notes;
  /// Where else the subject draws the same diagnostic: the other uses of a name that is not
  /// declared.
  std::vector<SourceRange> furtherPlaces;
  /// For text of a copybook where it was copied, "FILE:LINE", and in how many places more.
  std::string copiedFrom;
  /// The edits that certainly correct it; empty where there are none.
  std::vector<TextEdit> fix;
  /// The name of the source file of the compilation, without its directory. The place itself may
  /// be in a copybook.
  std::string program;
  /// Identifies the finding from one run to the next, wherever its line has moved to.
  std::string fingerprint;
  /// The source files of all compilations that have this same diagnostic of a copybook; empty when
  /// it was found in one only.
  std::vector<std::string> programs;
  /// How many compilations have it, counted even where they are not listed; 0 for one only.
  unsigned programCount = 0;
  /// The node that a check reports, and the program unit. Null for the front end, and in another
  /// process than the one that found it.
  const Node *node = nullptr;
  const Node *otherNode = nullptr;
  SourceUnit *unit = nullptr;

  /// The text followed by its subject, and by the numbers of places and programs that have the
  /// diagnostic.
  std::string getMessage() const;
};

/// The characters of \p line in the columns from \p begin to \p end, which count from 1; a DBCS
/// character between shift codes has two.
llvm::StringRef sliceColumns(llvm::StringRef line, unsigned begin, unsigned end);

/// Gives each of \p diagnostics, which are those of one compilation in the order found, its
/// fingerprint: made of the number, the program and the text of the line with its spaces squeezed.
/// Several with equal ones are distinguished by their order.
void setFingerprints(std::vector<Diagnostic> &diagnostics);

} // namespace tarka

#endif // TARKA_REPORT_DIAGNOSTIC_H
