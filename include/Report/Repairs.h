//===- Repairs.h - what one change of the source explains -------*- C++ -*-===//
//
// One mistake often has several diagnostics: of two lines that changed places, each
// is wrong where it stands, and so is what depends on them. What was meant is not
// known, but it can be tried: when one small change of the source leaves only part
// of the diagnostics, those that are gone have one cause.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_REPAIRS_H
#define TARKA_REPORT_REPAIRS_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <cstddef>
#include <string>
#include <vector>

namespace tarka {

/// A change that may make of a source what was meant.
struct Repair {
  /// The whole changed text.
  std::string text;
  /// Where the change is, in the unchanged source.
  SourceRange place;
  /// What may be wrong, and the change: "lines 7 and 8 may be exchanged: in the other order".
  std::string description;
};

/// The changes that are worth trying for the source \p text of file number \p file, in which
/// \p diagnostics were found, in the order of the text: two lines or words exchanged, one that is
/// there twice or too many removed, a period inserted, a line broken at column 72. They are made
/// around the first errors, so their number does not grow with the source.
std::vector<Repair> likelyRepairs(llvm::StringRef text, bool isFixedForm, unsigned file,
                                  llvm::ArrayRef<Diagnostic> diagnostics);

/// How many of \p diagnostics have no counterpart in \p remaining, what is found after a change of
/// the source. 0 when the change causes diagnostics that were not there before.
std::size_t countExplained(llvm::ArrayRef<Diagnostic> diagnostics,
                           llvm::ArrayRef<Diagnostic> remaining);

/// Keeps of the \p diagnostics that have no counterpart in \p remaining the one that is nearest to
/// \p repair, with a note that describes it.
void explainBy(const Repair &repair, std::vector<Diagnostic> &diagnostics,
               llvm::ArrayRef<Diagnostic> remaining);

} // namespace tarka

#endif // TARKA_REPORT_REPAIRS_H
