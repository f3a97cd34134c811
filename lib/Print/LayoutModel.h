//===- LayoutModel.h - what the layout printers have in common --*- C++ -*-===//
//
// The sections of a program in the form that the printers need, and the texts for
// the clauses of an entry.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_TOOLS_LAYOUTMODEL_H
#define TARKA_TOOLS_LAYOUTMODEL_H

#include "AST/KindNames.h"
#include "Print/PrintLayout.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/StringRef.h"
#include <vector>

namespace tarka {

/// The records of a section, or of one file of the file section.
struct RecordGroup {
  const FileDescription *file = nullptr;
  std::vector<const DataDescription *> records;
  /// The special registers that are left out, and their bytes.
  std::size_t hiddenRecords = 0;
  std::int64_t hiddenBytes = 0;

  /// The storage of all records, in bytes. Records that share an area count as one.
  std::int64_t bytes() const;
};

struct LayoutSection {
  llvm::StringLiteral name;
  StorageType storage;
  std::vector<RecordGroup> groups;

  std::size_t recordCount() const;
  std::int64_t bytes() const;
};

/// The sections of \p unit that hold storage and of which \p view shows something, in their order.
/// The groups of the report section are lines on paper and not among them, see ReportLayout.h.
std::vector<LayoutSection> layoutSections(const SourceUnit &unit, const LayoutView &view);

/// Calls \p visit for every program, a nested one after the one around it.
void forEachUnit(const Program &program, llvm::function_ref<void(const SourceUnit &)> visit);

/// PROGRAM-ID without the quotes of a literal.
llvm::StringRef programName(const SourceUnit &unit);
/// The name as written; FILLER where there is none.
llvm::StringRef entryName(const DataDescription &entry);
/// Where the entry, or at least its name, stands in the source. File 0 for what has no place there.
SourceRange placeOf(const DataDescription &entry);
/// The file that the entry is the LINAGE-COUNTER of; null for every other entry.
const FileDescription *linageFile(const DataDescription &entry);
/// A record of a file that shares the area of the first one without a REDEFINES clause.
bool isImplicitRedefinition(const DataDescription &entry);

/// F, V, S or U; empty when no mode is given.
llvm::StringRef recordingModeName(const FileDescription &file);
/// The SIGN clause that holds for a signed numeric item, its own or that of a group; null without.
const ClauseSign *signOf(const DataDescription &entry);

/// A literal as it would be written.
std::string literalText(const LiteralExpression &literal);
/// A name with its qualifiers: A OF B.
std::string operandText(const Expression *operand);
/// One end of a value of a VALUE clause, which may still be a word.
std::string valueText(const LiteralExpression *literal, const Word *word);

/// Bytes of all occurrences together, with every OCCURS DEPENDING ON table at its smallest.
std::int64_t minTotalSize(const DataDescription &entry);

} // namespace tarka

#endif // TARKA_TOOLS_LAYOUTMODEL_H
