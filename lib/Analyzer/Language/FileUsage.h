//===- FileUsage.h - what the statements of a program do with files -*- C++ -*-===//
//
// Which files a program opens and how, and what it does with them, to find
// statements that the file is never opened for, whatever way the program takes.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_FILEUSAGE_H
#define TARKA_LIB_ANALYZER_FILEUSAGE_H

#include "AST/FileDescription.h"
#include "AST/StatementFile.h"
#include "LanguageReport.h"
#include "llvm/ADT/MapVector.h"
#include "llvm/ADT/SmallVector.h"
#include <utility>

namespace tarka {

/// A statement on a file, as far as the open mode or the sort procedure that it needs depends on
/// it.
enum class FileUse : std::uint8_t {
  Read,
  Start,
  Rewrite,
  Delete,
  Write,      ///< of a sequential file
  WriteByKey, ///< of a relative or indexed file
  Release,
  Return,
};

/// Collects the statements on the files of one program.
class FileUsage {
public:
  void addOpen(const FileDescription &file, OpenType mode);
  /// \p place is the operand that a message points at.
  void add(FileUse use, const FileDescription &file, Node &place);
  /// SORT, or MERGE without \p input. The phrases can be null.
  void addSort(const FileDescription &file, const SortIO *input, const SortIO *output);
  /// The file is an argument of CALL.
  void addPassed(const FileDescription &file) { files[&file].isPassed = true; }

  /// Reports what is missing in the whole program, and forgets everything.
  void finish(LanguageReport &report);

private:
  struct File {
    /// A bit for each OpenType.
    unsigned modes = 0;
    bool isPassed = false;
    bool hasInputProcedure = false;
    bool hasOutputProcedure = false;
    /// The first statement of each use.
    llvm::SmallVector<std::pair<FileUse, Node *>, 4> uses;
  };

  static void check(const FileDescription &file, const File &found, LanguageReport &report);

  llvm::MapVector<const FileDescription *, File> files;
};

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_FILEUSAGE_H
