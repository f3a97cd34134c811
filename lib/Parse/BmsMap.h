//===- BmsMap.h - the symbolic map of a mapset ------------------*- C++ -*-===//
//
// A CICS program copies the symbolic description map of a mapset: the records
// that the assembler generates from the macros DFHMSD, DFHMDI and DFHMDF. Where the
// member does not exist, it is generated here.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_BMSMAP_H
#define TARKA_LIB_PARSE_BMSMAP_H

#include "AST/Node.h"
#include "llvm/ADT/StringRef.h"
#include <string>
#include <vector>

namespace tarka {

class SourceDiagnostics;
class SourceFile;
class WordTable;

/// The COBOL text of a symbolic map, one entry per line, in free form.
struct SymbolicMap {
  std::string text;
  /// The macro that each line comes from: the place of its label.
  std::vector<SourceRange> places;
  /// Whether there is a mapset at all.
  bool isThere = false;
};

/// Makes the symbolic map of \p mapset, or of all mapsets of \p file where none has that name. What
/// is wrong in the macros is reported with its place in \p file: 100 to 119.
///
/// Names that COBOL cannot have, reserved words of \p words among them, are replaced by FILLER, so
/// that a mistake in one field leaves all others where they are.
SymbolicMap makeSymbolicMap(const SourceFile &file, llvm::StringRef mapset, WordTable &words,
                            SourceDiagnostics &diagnostics);

} // namespace tarka

#endif // TARKA_LIB_PARSE_BMSMAP_H
