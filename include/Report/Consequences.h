//===- Consequences.h - one message for one mistake -------------*- C++ -*-===//
//
// Takes out of a report what follows from another of its errors. The checks
// report every place where a wrong declaration does harm; a person needs to see
// the declaration.
//
// A consequence is an error that
// - repeats another one: the same number and text at the same place;
// - is found by a check in a line that the front end could not read, or is a
//   further one that the front end reports there;
// - says of a name what was said of it before, such as that it is undefined;
// - concerns an undefined name where a copybook is missing, or where the text
//   that the front end could not read has the name in a declaration;
// - concerns an item whose entry, or group, or member has an error itself.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_CONSEQUENCES_H
#define TARKA_REPORT_CONSEQUENCES_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/STLFunctionalExtras.h"

namespace tarka {

class Program;

/// Gives line \p number of a source file without its end; empty where it cannot be read.
using LineLookup = llvm::function_ref<llvm::StringRef(unsigned file, unsigned number)>;

/// Removes the consequences from \p diagnostics, which are those of \p program in the order found
/// and still have their nodes. Each error that has consequences gets a note with their number at
/// the place of the first one, and the error of a missing copybook names the names that it probably
/// left undefined. Warnings neither have consequences nor are any, and a diagnostic with a fix
/// stays.
void removeConsequences(std::vector<Diagnostic> &diagnostics, Program &program, LineLookup lineOf);

} // namespace tarka

#endif // TARKA_REPORT_CONSEQUENCES_H
