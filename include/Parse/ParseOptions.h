//===- ParseOptions.h - options of the front end ----------*- C++ -*-===//
//
// The options of reading and parsing, and the limits that bound time and memory
// for every input.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_PARSEOPTIONS_H
#define TARKA_PARSE_PARSEOPTIONS_H

#include "llvm/ADT/IntrusiveRefCntPtr.h"
#include "llvm/Support/VirtualFileSystem.h"
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarka {

/// How the lines of a source are laid out.
enum class SourceFormat : uint8_t {
  Auto,  ///< detected from the content of the file
  Fixed, ///< sequence number, indicator in column 7, areas A and B, columns 73 on ignored
  Free   ///< every column is program text
};

/// The limits of one compilation.
struct ParseLimits {
  /// COPY inside copied text.
  unsigned copyDepth = 100;
  /// COPY statements carried out in all.
  unsigned copyExpansions = 100'000;
  /// Megabytes of the copybooks that COPY put in, each counted as often as it was copied.
  unsigned copiedMegabytes = 256;
  /// By how many tokens REPLACE and REPLACING may make the text longer in all.
  uint64_t replacementTokens = 2'000'000;
  /// >>IF and >>EVALUATE inside one another.
  unsigned directiveDepth = 256;
};

/// The options of the front end.
struct ParseOptions {
  /// The directories that are searched for copybooks, in this order, before the directory of the
  /// including file and the current directory.
  std::vector<std::string> includeDirectories;
  SourceFormat format = SourceFormat::Auto;
  /// The encoding of all source files, which isKnownEncoding(); empty is UTF-8.
  std::string encoding;
  /// Compilation variables for >>IF and >>EVALUATE: name and value. A value of digits is a number;
  /// an empty one only defines the variable.
  std::vector<std::pair<std::string, std::string>> defines;
  /// Read debugging lines even without WITH DEBUGGING MODE.
  bool debuggingLines = false;
  /// The words of OS/VS COBOL are reserved.
  bool osvs = false;
  /// Supply the EXEC interface block, DFHRESP and the copybooks of CICS.
  bool cics = false;
  /// Supply the copybooks of DB2.
  bool sql = false;
  /// The file system to read from; null is the real one.
  llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> fileSystem;
  ParseLimits limits;
};

} // namespace tarka

#endif // TARKA_PARSE_PARSEOPTIONS_H
