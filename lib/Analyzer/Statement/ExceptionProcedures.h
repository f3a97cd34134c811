//===- ExceptionProcedures.h - who may run a USE procedure ------*- C++ -*-===//
//
// Which input-output statements can lead into a procedure of USE AFTER EXCEPTION.
// The mode that a file is open in is known at run time only, so a statement counts
// when there is a procedure for any mode that it can work in, whatever phrases it
// has: these handle one condition each, and there are other errors.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_EXCEPTIONPROCEDURES_H
#define TARKA_LIB_ANALYZER_EXCEPTIONPROCEDURES_H

#include "AST/Forward.h"
#include "AST/Kinds.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include <map>

namespace tarka {

class FileStatement;
class IdentifierExpression;
class SemanticChecker;

/// The procedures of USE AFTER EXCEPTION of the programs of a compilation.
class ExceptionProcedures {
public:
  /// Whether an exception of \p file, when it is open in one of \p modes, has a procedure: one of
  /// the current program, or a GLOBAL one of a program around it.
  bool has(const FileDescription *file, llvm::ArrayRef<UseFileMode> modes);

private:
  /// The procedures of one program: modes as bits by UseFileMode, files with whether the procedure
  /// is GLOBAL.
  struct Procedures {
    unsigned modes = 0;
    unsigned globalModes = 0;
    llvm::DenseMap<const FileDescription *, bool> files;
  };
  const Procedures &proceduresOf(SourceUnit &unit);

  std::map<const SourceUnit *, Procedures> procedures;
};

/// Marks \p statement when an exception of \p file, which may be null, runs a procedure.
void markDeclaratives(SemanticChecker &checker, FileStatement &statement,
                      const FileDescription *file, llvm::ArrayRef<UseFileMode> modes);
/// The same for a statement that names a record of the file.
void markDeclaratives(SemanticChecker &checker, FileStatement &statement,
                      const IdentifierExpression *record, llvm::ArrayRef<UseFileMode> modes);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_EXCEPTIONPROCEDURES_H
