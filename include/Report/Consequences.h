//===- Consequences.h - one message for one mistake -------------*- C++ -*-===//
//
// Takes out of a report what follows from another of its errors. The checks
// report every place where a wrong declaration does harm; a person needs to see
// the declaration.
//
// A consequence is an error that
// - repeats another one: the same number and text at the same place;
// - is found by a check in text that the front end could not read, or in the line and
//   sentence of such text;
// - says of a name what was said of it before, such as that it is undefined, in the
//   program or in one that is nested in it;
// - concerns an undefined name where a copybook is missing, unless it is near a
//   declared one, or where the text that the front end could not read has the
//   name in a declaration;
// - concerns an item whose entry, or group, or member has an error itself, or a
//   file whose SELECT or FD entry has, or is in the line of such an item;
// - concerns a program, declarative or paragraph whose header, USE or content could
//   not be read.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_CONSEQUENCES_H
#define TARKA_REPORT_CONSEQUENCES_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

class Program;

/// Gives line \p number of a source file without its end; empty where it cannot be read.
using LineLookup = llvm::function_ref<llvm::StringRef(unsigned file, unsigned number)>;

/// What the front end says of the text that it could not read as meant.
struct DamagedText {
  /// Whether something at a place is damaged.
  llvm::function_ref<bool(const SourceRange &)> contains;
  /// Where the damaged text has a name.
  llvm::function_ref<llvm::SmallVector<SourceRange, 2>(llvm::StringRef)> findName;
};

/// Removes the consequences from \p diagnostics, which are those of \p program in the order found
/// and still have their nodes. An error that is the first one about its name gets the further
/// places; any other error that has consequences gets a note with their number at the place of the
/// first one, and the error of a missing copybook names the names that it probably left undefined.
/// Of the warnings only that of a line that is cut at column 72 has consequences, and only those
/// about embedded blocks can be one; a diagnostic with a fix stays.
void removeConsequences(std::vector<Diagnostic> &diagnostics, Program &program,
                        const DamagedText &damage, LineLookup lineOf);

} // namespace tarka

#endif // TARKA_REPORT_CONSEQUENCES_H
