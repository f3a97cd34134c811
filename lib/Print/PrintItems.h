//===- PrintItems.h - where an item is written and read ---------*- C++ -*-===//

#ifndef TARKA_PRINT_PRINTITEMS_H
#define TARKA_PRINT_PRINTITEMS_H

#include "llvm/ADT/StringRef.h"
#include <optional>
#include <string>

namespace llvm {
class raw_ostream;
} // namespace llvm

namespace tarka {

class CFGModule;

/// What to tell a person when no program of \p module declares an item of the name; nothing when
/// one does.
std::optional<std::string> explainMissingItem(const CFGModule &module, llvm::StringRef name);

/// For each item of the name \p name, which may be qualified as in "A OF B": where it is written
/// and which reads that can reach, where it is read and from what.
void printItemsText(llvm::raw_ostream &os, const CFGModule &module, llvm::StringRef name);
/// The same as one JSON object.
void printItemsJson(llvm::raw_ostream &os, const CFGModule &module, llvm::StringRef name);

} // namespace tarka

#endif // TARKA_PRINT_PRINTITEMS_H
