//===- ErrorHandler.h - diagnostics and their report ------------*- C++ -*-===//
//
// The catalogue of diagnostics, one diagnostic with its place and text, and the
// collector that keeps them until they are printed.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_ERRORHANDLER_H
#define TARKA_ANALYZER_ERRORHANDLER_H

#include "AST/Severity.h"
#include <cstddef>
#include <list>
#include <string>
#include <vector>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

class SourceUnit;

/// What is wrong. The value is the place of the diagnostic in the catalogue.
enum class ErrorCode : int {
#define DIAGNOSTIC(name, number, severity, format) name,
#include "Analyzer/Diagnostics.def"
};

/// How many diagnostics the catalogue holds.
inline constexpr std::size_t DiagnosticCount = 0
#define DIAGNOSTIC(name, number, severity, format) +1
#include "Analyzer/Diagnostics.def"
    ;

/// One row of the catalogue.
struct ErrorInfo {
  /// The number that the report prints; 0 in the row that ends the catalogue.
  int number;
  /// The printf format of the message; a few take one text (%s).
  const char *format;
};

/// The catalogue, in the order of ErrorCode, ended by a row of number 0.
extern const ErrorInfo ErrorInfoStruct[DiagnosticCount + 1];

/// The row of \p code.
inline const ErrorInfo &errorInfo(ErrorCode code) {
  return ErrorInfoStruct[static_cast<std::size_t>(code)];
}

/// The severity of \p code in the catalogue: which of PushError() and PushWarn() reports it.
Severity severityOf(ErrorCode code);

/// A further place that explains a diagnostic.
struct ErrorNote {
  std::string text;
  SourceRange place;
};

/// One diagnostic.
class ErrorEntry {
public:
  enum ErrorSeverity : int { Fatal = 0, Error = 1, Warning = 2, Info = 3 };

  /// \p at must stay valid until the entry was printed for the last time.
  ErrorEntry(ErrorSeverity kind, Node *at, int diagnostic, std::string text)
      : severity(kind), node(at), number(diagnostic), message(std::move(text)) {}

  ErrorSeverity getSeverity() const { return severity; }
  Node *getNode() const { return node; }
  /// The number of the catalogue, for example 3106.
  int getNumber() const { return number; }
  const std::string &getMessage() const { return message; }

  /// What the diagnostic is about, as the check names it. Where the check names nothing, the
  /// report derives it from the node.
  const std::string &getSubject() const { return subject; }
  void setSubject(std::string what) { subject = std::move(what); }
  /// The operand that the diagnostic is about, where its node has several: the subscript of an
  /// item, the operand of an expression. Null where it is about the node.
  const Node *getOperand() const { return operand; }
  void setOperand(const Node *about) { operand = about; }
  /// The second operand that the diagnostic is about: the sender where the receiver of a MOVE is
  /// the node, the right side of a comparison where the left side is. Null where there is only one.
  const Node *getOtherOperand() const { return otherOperand; }
  void setOtherOperand(const Node *other) { otherOperand = other; }
  /// Places that explain the diagnostic, such as "first declared here".
  const std::vector<ErrorNote> &getNotes() const { return notes; }
  void addNote(std::string text, const Node &at) {
    notes.push_back({std::move(text), at.getRange()});
  }
  /// The source unit whose check pushed the diagnostic; null outside of one.
  SourceUnit *getSourceUnit() const { return sourceUnit; }
  void setSourceUnit(SourceUnit *unit) { sourceUnit = unit; }

  /// Writes the line of the report, see printReportLine(). Subject and notes are not part of it.
  void print(llvm::raw_ostream &out) const;
  /// The same to the standard error stream.
  void errorReport() const;

private:
  ErrorSeverity severity;
  Node *node;
  int number;
  std::string message;
  std::string subject;
  std::vector<ErrorNote> notes;
  SourceUnit *sourceUnit = nullptr;
  const Node *operand = nullptr;
  const Node *otherOperand = nullptr;
};

/// Collects the diagnostics of one compilation in the order in which they are found. Nothing is
/// printed before Report().
class ErrorHandler {
public:
  ErrorHandler() = default;
  ErrorHandler(const ErrorHandler &) = delete;
  ErrorHandler &operator=(const ErrorHandler &) = delete;
  ~ErrorHandler();

  /// Records an error at \p node, which must not be null. What follows is for the conversions of
  /// the format of \p code; where it has none, callers pass a null, which is ignored. A null text
  /// reads "(null)" in the message.
  void PushError(ErrorCode code, Node *node, ...);
  /// The same with a warning.
  void PushWarn(ErrorCode code, Node *node, ...);

  /// Prints every diagnostic to the standard error stream, in the order found.
  void Report();

  /// The diagnostic that was pushed last, to which a check may add a subject and notes.
  ErrorEntry &lastEntry() { return *entries.back(); }
  const std::list<ErrorEntry *> &getErrorList() const { return entries; }
  int getErrorCount() const { return errorCount; }
  int getWarningCount() const { return warningCount; }

private:
  void push(ErrorEntry::ErrorSeverity severity, ErrorCode code, Node *node, std::string message);

  std::list<ErrorEntry *> entries;
  int errorCount = 0;
  int warningCount = 0;
};

} // namespace tarka

#endif // TARKA_ANALYZER_ERRORHANDLER_H
