//===- SuppliedText.h - copybooks that come with CICS and DB2 ---*- C++ -*-===//
//
// The copybooks that no shop keeps with its sources, because the products that
// define them supply them, and the constants that CICS gives names to.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_SUPPLIEDTEXT_H
#define TARKA_LIB_PARSE_SUPPLIEDTEXT_H

#include "Parse/Keywords.h"
#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka {

class SourceFile;
struct ParseOptions;

/// The option that supplies a copybook.
enum class SupplyOption : uint8_t { Cics, Sql };

/// A copybook as it is supplied.
struct SuppliedCopybook {
  llvm::StringLiteral name;
  SupplyOption option;
  llvm::StringLiteral text; ///< good for fixed and for free form

  /// Whether \p options ask for it.
  bool isWanted(const ParseOptions &options) const;
  /// The option as it is written.
  llvm::StringRef getOptionText() const {
    return option == SupplyOption::Cics ? "--cics" : "--sql";
  }
  /// The name that places in the copybook have for its file: <supplied>/NAME.
  std::string getFileName() const { return "<supplied>/" + name.str(); }
};

/// Whether \p name is the getFileName() of a supplied copybook.
inline bool isSuppliedFileName(llvm::StringRef name) {
  return name.starts_with("<supplied>/");
}

/// The supplied copybook \p name, in upper or lower case; null when there is none.
const SuppliedCopybook *findSuppliedCopybook(llvm::StringRef name);

} // namespace tarka

#endif // TARKA_LIB_PARSE_SUPPLIEDTEXT_H
