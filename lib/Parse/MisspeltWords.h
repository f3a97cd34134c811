//===- MisspeltWords.h - keywords most likely meant -------------*- C++ -*-===//

#ifndef TARKA_LIB_PARSE_MISSPELTWORDS_H
#define TARKA_LIB_PARSE_MISSPELTWORDS_H

#include "Parse/Keywords.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/StringRef.h"

namespace tarka {

/// The one of \p candidates that \p word was most likely meant to be; None when none is near.
Keyword nearestKeyword(llvm::StringRef word, llvm::ArrayRef<Keyword> candidates);

/// The keyword with any of \p flags (KF_Verb ...) that \p word was most likely meant to be; empty
/// when none is near.
llvm::StringRef suggestKeyword(llvm::StringRef word, uint16_t flags);

/// The reserved word that is nearest to \p word; empty when none is near. Of equally near ones, one
/// of the same length: letters are exchanged more often than left out.
llvm::StringRef suggestReservedWord(llvm::StringRef word);

} // namespace tarka

#endif // TARKA_LIB_PARSE_MISSPELTWORDS_H
