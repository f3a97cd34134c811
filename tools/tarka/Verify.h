//===- Verify.h - expectations in the source --------------------*- C++ -*-===//

#ifndef TARKA_TOOLS_VERIFY_H
#define TARKA_TOOLS_VERIFY_H

#include "Analyzer/CheckListener.h"
#include "Analyzer/ErrorHandler.h"
#include "Report/Diagnostic.h"
#include "llvm/ADT/ArrayRef.h"
#include <string>
#include <vector>

namespace tarka {

/// A line of a source file, from 1.
struct SourceLine {
  std::string file;
  unsigned line;

  bool operator==(const SourceLine &other) const = default;
};

/// The result of the check of one part of a program, with the errors that were reported in it and
/// not in a part within it.
struct PartResult {
  struct Error {
    SourceLine place;
    int number;
  };

  SourceLine begin;
  CheckedPart kind = CheckedPart::Program;
  bool ok = true;
  /// Whether a part within this one failed.
  bool hasFailedPart = false;
  std::vector<Error> errors;
};

/// Listens to a checker and keeps the results that say something: those of parts that fail, and of
/// parts with errors.
class PartResults : public CheckListener {
public:
  /// \p handler collects the errors of the checker.
  explicit PartResults(const ErrorHandler &handler) : collected(handler), open(1) {}

  void partBegins(CheckedPart kind, const Node &part) override;
  void partEnds(bool ok) override;
  /// Ends the compilation of \p file, which has the result \p ok.
  void finish(const std::string &file, bool ok);

  llvm::ArrayRef<PartResult> getResults() const { return results; }

private:
  /// Assigns the errors reported since the last call to the innermost part.
  void assignErrors();

  const ErrorHandler &collected;
  std::size_t assigned = 0;
  /// The compilation and the parts that have begun in it, the innermost last.
  std::vector<PartResult> open;
  std::vector<PartResult> results;
};

/// Compares the report with the expectations in comments of the source \p file and of the copybooks
/// that something was reported in:
///
///     *> expect: 3106           a diagnostic that begins in this line
///     *> expect@+1: 3106 3118   diagnostics of the next line (@-2: of the line two before)
///     *> expect: 3106:12-20     one that begins in column 12 and ends in column 20
///     *> expect-pass            the check passes although an error is reported in this line
///     *> expect-pass: 3468      a check passes although these diagnostics are reported, anywhere
///     *> expect-fail            the check of what begins in this line fails without an error
///
/// Every diagnostic must be expected, and every expected one reported. The check of a part must
/// fail exactly when an error is reported in it or a part of it fails. Differences are written to
/// \p out; true when there is none. \p parts is null for a program that was only read.
/// \p encoding is that of the files; empty is UTF-8.
bool verifyReport(const std::string &file, const std::string &encoding,
                  llvm::ArrayRef<Diagnostic> findings, const PartResults *parts,
                  llvm::raw_ostream &out);

} // namespace tarka

#endif // TARKA_TOOLS_VERIFY_H
