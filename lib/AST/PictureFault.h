//===- PictureFault.h - where a PICTURE string is wrong ---------*- C++ -*-===//

#ifndef TARKA_LIB_AST_PICTUREFAULT_H
#define TARKA_LIB_AST_PICTUREFAULT_H

#include "llvm/ADT/StringRef.h"
#include <cstddef>

namespace tarka {

/// The offset of the character at which \p text, a PICTURE character string that breaks a rule,
/// goes wrong: the length of its longest beginning that breaks none.
std::size_t findPictureFault(llvm::StringRef text);

} // namespace tarka

#endif // TARKA_LIB_AST_PICTUREFAULT_H
