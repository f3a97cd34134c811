//===- CallCheck.h - the parts of the check of a CALL -----------*- C++ -*-===//
//
// What may be passed to a program, whether that is what the program expects, where
// it is in the same compilation, and the calls of DL/I.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_CALLCHECK_H
#define TARKA_LIB_ANALYZER_CALLCHECK_H

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/SmallPtrSet.h"
#include "llvm/ADT/StringRef.h"

namespace tarka {

/// The arguments of a CALL that are wrong whatever the program is.
using RefusedArguments = llvm::SmallPtrSet<const Argument *, 4>;

/// Checks an argument by itself: what may be passed BY REFERENCE, BY CONTENT and BY VALUE.
bool checkArgument(SemanticChecker &checker, Argument &argument);

/// The program of the compilation that a CALL in the current unit reaches by \p name; null when
/// there is none.
SourceUnit *findProgram(SemanticChecker &checker, llvm::StringRef name);

/// Checks a CALL against the header of \p program, which it reaches, and gives it the parameters of
/// the program. About arguments that are refused nothing more is reported.
bool checkPrototype(SemanticChecker &checker, CallStatement &call, SourceUnit &program,
                    const RefusedArguments &refused);

/// Whether calls of \p program are calls of DL/I, by the compile options.
bool isDliCall(llvm::StringRef program);

/// Puts the number of arguments in front of them, and a MOVE that sets it in front of the CALL. A
/// call that passes the number itself stays as it is.
bool prepareDliCall(SemanticChecker &checker, CallStatement &call, llvm::StringRef program,
                    const RefusedArguments &refused);

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_CALLCHECK_H
