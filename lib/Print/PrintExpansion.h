//===- PrintExpansion.h - the text after COPY and REPLACE -------*- C++ -*-===//
//
// The program as one source, for people and for programs.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PRINT_PRINTEXPANSION_H
#define TARKA_PRINT_PRINTEXPANSION_H

#include "llvm/ADT/StringRef.h"

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

class Expansion;

/// Which parts of an expansion are printed, and how.
struct ExpansionView {
  /// Comments say where the following lines come from.
  bool lineMarkers = false;
};

/// Prints the source that \p expansion is of with what COPY and REPLACE make of it: the lines as
/// they stand, comments and columns included, copied text in the place of COPY, and replacing words
/// in the place of those that they replace. The output is a source of the same program. A COPY
/// without a member stays.
void printExpansionText(llvm::raw_ostream &os, const Expansion &expansion,
                        const ExpansionView &view);

/// Prints every word with its place and the COPY that it comes from as one JSON object. \p
/// expansion has kept its words.
void printExpansionJson(llvm::raw_ostream &os, const Expansion &expansion);

/// Prints what the program in \p file copies: where each member was found, or was looked for in
/// vain.
void printCopiesText(llvm::raw_ostream &os, llvm::StringRef file, const Expansion &expansion);
/// The same as one JSON object.
void printCopiesJson(llvm::raw_ostream &os, llvm::StringRef file, const Expansion &expansion);

} // namespace tarka

#endif // TARKA_PRINT_PRINTEXPANSION_H
