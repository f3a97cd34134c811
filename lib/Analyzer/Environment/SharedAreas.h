//===- SharedAreas.h - files that share storage -----------------*- C++ -*-===//
//
// SAME AREA and SAME RECORD AREA put the records of several files in one place.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_SHAREDAREAS_H
#define TARKA_LIB_ANALYZER_SHAREDAREAS_H

#include "AST/Forward.h"
#include "llvm/ADT/DenseMap.h"

namespace tarka {

class ClauseSame;

/// The SAME clauses of the compilation by the files that they name.
class SharedAreas {
public:
  /// Notes that \p clause names \p file. Other kinds of SAME share no records.
  void add(const FileDescription *file, const ClauseSame &clause);

  /// True when the records of two files occupy the same storage: those of one file, and of files
  /// that one SAME AREA or SAME RECORD AREA clause names together.
  bool isShared(const FileDescription *left, const FileDescription *right) const;

private:
  /// The last clause of each kind that names a file; null when there is none.
  struct Clauses {
    const ClauseSame *area = nullptr;
    const ClauseSame *recordArea = nullptr;
  };
  llvm::DenseMap<const FileDescription *, Clauses> clauses;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_SHAREDAREAS_H
