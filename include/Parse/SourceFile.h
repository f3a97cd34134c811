//===- SourceFile.h - source files and where they are found -----*- C++ -*-===//
//
// A file of source text in memory, and the manager that reads files through a
// virtual file system, each of them once, and finds copybooks.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_PARSE_SOURCEFILE_H
#define TARKA_PARSE_SOURCEFILE_H

#include "AST/Node.h"
#include "Parse/Encoding.h"
#include "Parse/ParseOptions.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/ADT/StringMap.h"
#include "llvm/ADT/StringRef.h"
#include "llvm/Support/ErrorOr.h"
#include "llvm/Support/MemoryBuffer.h"
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarka {

class SourceDamage;

/// The mark by which a text is known to be UTF-8, whatever the encoding of the files is.
inline constexpr llvm::StringLiteral byteOrderMark = "\xEF\xBB\xBF";

/// The text of one file. It stays at its address in memory until the process ends.
class SourceFile {
public:
  /// The first fault in the bytes of a file.
  enum class Fault : uint8_t { None, Binary, Ebcdic, Undecodable };

  /// A file of UTF-8 text with the bytes \p contents.
  SourceFile(llvm::StringRef name, std::unique_ptr<llvm::MemoryBuffer> contents);
  /// A file whose text was decoded from another encoding.
  SourceFile(llvm::StringRef name, const DecodedText &decoded);

  /// The name as it was given or found.
  llvm::StringRef getName() const { return name; }
  /// The number for SourceRange::file.
  unsigned getNumber() const { return number; }
  /// The text without a byte-order mark. A byte 0 follows the last one.
  llvm::StringRef getText() const { return text; }
  /// Whether the file is not text, or not in its encoding, and the offset of the first such byte.
  Fault getFault() const { return fault; }
  size_t getFaultOffset() const { return faultOffset; }
  /// The byte that could not be decoded.
  unsigned char getUndecodableByte() const { return undecodableByte; }
  /// True at the first call only, so that the fault is reported once.
  bool isFaultNew() const { return std::exchange(faultIsNew, false); }
  /// The format of its lines, see detectSourceFormat(); \p otherwise where they fit both formats.
  SourceFormat getFormat(SourceFormat otherwise) const;
  /// The distance of tab stops in columns: 4 where comment lines, headers and records are in their
  /// columns only with that, otherwise 8.
  unsigned getTabWidth() const;

private:
  llvm::StringRef name;
  unsigned number;
  std::unique_ptr<llvm::MemoryBuffer> contents;
  llvm::StringRef text;
  Fault fault = Fault::None;
  size_t faultOffset = llvm::StringRef::npos;
  unsigned char undecodableByte = 0;
  mutable bool faultIsNew = true;
  mutable SourceFormat format = SourceFormat::Auto;
  mutable bool formatIsKnown = false;
  mutable unsigned tabWidth = 0; ///< 0 until it is known
};

/// Whether the extension of \p path is one that only copybooks have: .cpy, .copy, .inc ...
bool hasCopybookExtension(llvm::StringRef path);

/// Whether the file \p path may define mapsets: ".bms" in any case.
bool isMapFileName(llvm::StringRef path);

/// The format of the lines of \p text: Fixed or Free; \p otherwise where they fit both.
SourceFormat detectSourceFormat(llvm::StringRef text, SourceFormat otherwise = SourceFormat::Fixed);

/// Reads files, keeps them, and finds copybooks.
class SourceManager {
public:
  /// \p options must outlive the manager.
  explicit SourceManager(const ParseOptions &options);
  ~SourceManager();

  const ParseOptions &getOptions() const { return options; }

  /// The file \p path, read from the file system the first time. The error code is the reason
  /// why it cannot be read, such as a missing file; the caller reports it.
  llvm::ErrorOr<const SourceFile *> open(llvm::StringRef path);

  /// Collects the names in damaged text of the files that were read.
  void collectDamagedNames(SourceDamage &damage) const;

  /// A file \p name that holds \p text and exists in memory only.
  const SourceFile &addText(llvm::StringRef name, llvm::StringRef text);

  /// The copybook \p textName of \p library (empty when not given) as \p includer would copy it:
  /// the include directories, the directory of the includer and the current directory are
  /// searched, with the name as written, in upper and in lower case, plain and with the usual
  /// extensions. A name with a directory in it is taken as a path as well.
  llvm::ErrorOr<const SourceFile *> findCopybook(llvm::StringRef textName, llvm::StringRef library,
                                                 const SourceFile &includer);

  /// The source of the BMS mapset \p name, searched for in the same directories: the file of that
  /// name with the extension .bms, or else the first .bms file that defines such a mapset.
  llvm::ErrorOr<const SourceFile *> findMapset(llvm::StringRef name, llvm::StringRef library,
                                               const SourceFile &includer);

  /// The directories that findCopybook() searches, for use in a message.
  std::string describeSearch(llvm::StringRef library, const SourceFile &includer) const;

  /// The same directories, in order; "." is the current one.
  std::vector<std::string> searchDirectories(llvm::StringRef library,
                                             const SourceFile &includer) const;

private:
  llvm::ErrorOr<const SourceFile *> findMember(llvm::StringRef name, llvm::StringRef library,
                                               const SourceFile &includer,
                                               llvm::ArrayRef<llvm::StringLiteral> extensions);
  const llvm::StringMap<std::string> &mapsetsOf(llvm::StringRef directory);

  const ParseOptions &options;
  llvm::IntrusiveRefCntPtr<llvm::vfs::FileSystem> fileSystem;
  llvm::StringMap<const SourceFile *> files;
  /// Where a member was found before, by name, library, extensions and the includer's directory.
  llvm::StringMap<std::string> found;
  /// The files that define mapsets, by the mapset, of the directories looked at.
  llvm::StringMap<llvm::StringMap<std::string>> mapsets;
};

} // namespace tarka

#endif // TARKA_PARSE_SOURCEFILE_H
