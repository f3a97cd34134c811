//===- Encoding.h - source files in other encodings than UTF-8 --*- C++ -*-===//
//
// The front end works on UTF-8. A file in another encoding, such as EBCDIC, is
// decoded when it is read.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_ENCODING_H
#define TARKA_PARSE_ENCODING_H

#include "llvm/ADT/StringRef.h"
#include <string>

namespace tarka {

/// Whether iconv knows \p encoding, such as "UTF-8", "IBM-1047" or "IBM037".
bool isKnownEncoding(const std::string &encoding);

/// Whether \p text is most likely COBOL in EBCDIC.
bool looksLikeEbcdic(llvm::StringRef text);

/// Text as UTF-8.
struct DecodedText {
  std::string text;
  /// The first byte that is not a character of the encoding: the offset in the text of the space
  /// that replaces it, npos when there is none, and its value.
  size_t firstUndecodable = llvm::StringRef::npos;
  unsigned char undecodableByte = 0;
};

/// Decodes \p bytes, which are in a known \p encoding. A byte-order mark takes precedence over the
/// encoding named.
///
/// Of EBCDIC text NEL and LF end lines, as CR LF and CR do; where there are no ends of lines, each
/// 80 bytes are a line. Shift codes around DBCS characters stay.
DecodedText decodeText(llvm::StringRef bytes, const std::string &encoding);

} // namespace tarka

#endif // TARKA_PARSE_ENCODING_H
