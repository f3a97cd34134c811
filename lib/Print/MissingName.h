//===- MissingName.h - a name that is not there -----------------*- C++ -*-===//

#ifndef TARKA_PRINT_MISSINGNAME_H
#define TARKA_PRINT_MISSINGNAME_H

#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka {

/// "there is no NOUN NAME", with those of \p names that are near it, or all when they are few.
std::string explainMissing(llvm::StringRef noun, llvm::StringRef name,
                           llvm::ArrayRef<llvm::StringRef> names);

} // namespace tarka

#endif // TARKA_PRINT_MISSINGNAME_H
