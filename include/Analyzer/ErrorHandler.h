//===- ErrorHandler.h - diagnostics and their report ------------*- C++ -*-===//
//
// The catalogue of diagnostics, one diagnostic with its place and text, and the
// collector that keeps them until they are printed.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_ERRORHANDLER_H
#define TARKA_ANALYZER_ERRORHANDLER_H

#include <cstddef>
#include <list>
#include <string>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

class Node;

/// What is wrong. The value is the place of the diagnostic in the catalogue.
enum class ErrorCode : int {
#define DIAGNOSTIC(name, number, format) name,
#include "Analyzer/Diagnostics.def"
};

/// How many diagnostics the catalogue holds.
inline constexpr std::size_t DiagnosticCount = 0
#define DIAGNOSTIC(name, number, format) +1
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

  /// Writes the line of the report, with its newline: file, place from and to, severity, number
  /// and message.
  void print(llvm::raw_ostream &out) const;
  /// The same to the standard error stream.
  void errorReport() const;

private:
  ErrorSeverity severity;
  Node *node;
  int number;
  std::string message;
};

/// Collects the diagnostics of one compilation in the order in which they are found. Nothing is
/// printed before Report().
class ErrorHandler {
public:
  ErrorHandler() = default;
  ErrorHandler(const ErrorHandler &) = delete;
  ErrorHandler &operator=(const ErrorHandler &) = delete;
  ~ErrorHandler();

  /// Notes an error at \p node, which must not be null. What follows is for the conversions of the
  /// format of \p code; where it has none, callers pass a null that is not looked at. A null text
  /// reads "(null)" in the message.
  void PushError(ErrorCode code, Node *node, ...);
  /// The same with a warning.
  void PushWarn(ErrorCode code, Node *node, ...);

  /// Prints every diagnostic to the standard error stream, in the order found.
  void Report();

  const std::list<ErrorEntry *> &getErrorList() const { return entries; }
  int getErrorCount() const { return errorCount; }
  int getWarningCount() const { return warningCount; }

private:
  std::list<ErrorEntry *> entries;
  int errorCount = 0;
  int warningCount = 0;
};

} // namespace tarka

#endif // TARKA_ANALYZER_ERRORHANDLER_H
