//===- Utf8.h - texts for forms that are UTF-8 ------------------*- C++ -*-===//

#ifndef TARKA_LIB_REPORT_UTF8_H
#define TARKA_LIB_REPORT_UTF8_H

#include "llvm/Support/JSON.h"

namespace tarka {

/// \p text with a replacement character for each byte that is not UTF-8, as in names of files.
inline std::string toUtf8(llvm::StringRef text) {
  return llvm::json::isUTF8(text) ? text.str() : llvm::json::fixUTF8(text);
}

} // namespace tarka

#endif // TARKA_LIB_REPORT_UTF8_H
