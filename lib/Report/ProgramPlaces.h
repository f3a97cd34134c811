//===- ProgramPlaces.h - what of a program is where -------------*- C++ -*-===//
//
// Finds for a place in a source file the entry, the file or the division of the
// program that it is in.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_REPORT_PROGRAMPLACES_H
#define TARKA_LIB_REPORT_PROGRAMPLACES_H

#include "AST/Node.h"
#include "llvm/ADT/ArrayRef.h"
#include <map>
#include <vector>

namespace tarka {

class DataDescription;
class FileDescription;
class Program;
class SourceUnit;

/// A line and a column, in the order of the text.
using SourcePosition = std::pair<unsigned, unsigned>;

inline SourcePosition beginOf(const SourceRange &range) {
  return {range.beginLine, range.beginColumn};
}

/// The declarations of a program by their places.
class ProgramPlaces {
public:
  /// The SELECT or the FD entry of a file.
  struct FilePart {
    SourceRange range;
    FileDescription *file;
  };
  using FileParts = std::map<std::pair<unsigned, SourcePosition>, FilePart>;
  using Entries = std::vector<const DataDescription *>;

  explicit ProgramPlaces(Program &program);

  /// The entry that \p place begins in; null outside of the data division.
  const DataDescription *entryAt(const SourceRange &place) const;
  /// The file whose SELECT or FD entry \p place begins in; null elsewhere.
  const FileDescription *fileAt(const SourceRange &place) const;
  /// The SELECT or FD entry that begins last before \p place in its source file; null for none.
  const FilePart *filePartBefore(const SourceRange &place) const;
  bool isInProcedures(const SourceRange &place) const;
  /// The innermost unit that \p place is in; null where there is none.
  const SourceUnit *unitAt(const SourceRange &place) const;
  /// Whether \p place is in \p unit, or behind its last word and before any other unit.
  bool isInUnit(const SourceRange &place, const SourceUnit &unit) const;

  /// The data description entries in the order of the text, by source file.
  const std::map<unsigned, Entries> &getEntries() const { return entries; }
  /// Those of one source file.
  llvm::ArrayRef<const DataDescription *> entriesOf(unsigned file) const;
  const FileParts &getFileParts() const { return fileParts; }

private:
  void enterUnit(SourceUnit &unit);
  void enterFile(FileDescription &file);
  void enterRecord(DataDescription *record);

  std::map<unsigned, Entries> entries;
  FileParts fileParts;
  /// The beginning of a unit, or of its procedures.
  struct UnitPart {
    const SourceUnit *unit;
    bool isProcedures;
  };
  /// The part that begins last before \p place in its source file; null for none.
  const UnitPart *unitPartBefore(const SourceRange &place) const;

  std::map<std::pair<unsigned, SourcePosition>, UnitPart> unitParts;
};

} // namespace tarka

#endif // TARKA_LIB_REPORT_PROGRAMPLACES_H
