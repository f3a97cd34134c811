//===- ReportDamage.h - what errors make unreliable -------------*- C++ -*-===//
//
// Which declarations of a program are not as the programmer meant them, and
// because of which error: entries and files that have an error themselves, text
// that the front end could not read, copybooks that are missing, and
// declarations whose names are lost. An error is known by its index in the
// report.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_REPORT_REPORTDAMAGE_H
#define TARKA_LIB_REPORT_REPORTDAMAGE_H

#include "ProgramPlaces.h"
#include "Report/Consequences.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/DenseSet.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/StringMap.h"

namespace tarka {

/// In the place of the index of a diagnostic: there is none.
constexpr std::size_t noDiagnostic = ~std::size_t(0);

/// \p entry if it has a USAGE clause, else the nearest group around it that has one; \p entry where
/// there is none.
const DataDescription *groupWithUsage(const DataDescription &entry);

/// The errors of a report by what they make unreliable. The functions return the index of the error
/// that is responsible, or noDiagnostic.
class ReportDamage {
public:
  ReportDamage(const std::vector<Diagnostic> &report, const ProgramPlaces &programPlaces,
               const DamagedText &damage, LineLookup lookup);

  /// The error because of which text at \p place is damaged.
  std::size_t at(const SourceRange &place) const;
  /// The error of the front end in the line and sentence that \p place begins in: what else is
  /// wrong there is not certain.
  std::size_t inLineOf(const SourceRange &place) const;
  /// The error of the front end in the line of \p place, where that is a word cut at column 72: the
  /// line is one that was joined to it.
  std::size_t ofCutWord(const SourceRange &place) const;
  /// The first error of the front end from \p begin to \p end, which are in one file.
  std::size_t between(const SourceRange &begin, const SourceRange &end) const;
  /// The error of the front end in the SPECIAL-NAMES paragraph of \p unit or of one around it, or
  /// of a copybook that is missing in its configuration section.
  std::size_t ofSpecialNames(const SourceUnit *unit) const;
  /// The error of the front end in the header of the procedure division of another unit than
  /// \p caller.
  std::size_t ofProcedureHeader(const SourceUnit *caller) const;
  /// The first error of the operand \p node.
  std::size_t ofOperand(const Node *node) const;
  /// The error of \p entry, of a group that it belongs to, or of what belongs to it, other than
  /// \p except.
  std::size_t of(const DataDescription *entry, std::size_t except) const;
  /// The error of \p entry or of a group that it belongs to, other than \p except.
  std::size_t ofEntryOrGroup(const DataDescription *entry, std::size_t except) const;
  /// The error of the SELECT or FD entry of \p file, or of its records, other than \p except.
  std::size_t of(const FileDescription *file, std::size_t except) const;
  /// The error of a group around \p entry that has a PICTURE, which members cannot belong to.
  std::size_t ofGroupWithPicture(const DataDescription *entry) const;
  /// The error of the entry before \p entry where that is a group without members: its members may
  /// have come to \p entry instead.
  std::size_t ofEmptyGroupBefore(const DataDescription *entry) const;
  /// The error of a copybook that is missing in the program where members of \p entry, or what
  /// else belongs to it, may stand.
  std::size_t ofMissingCopybookIn(const DataDescription *entry) const;
  /// The error of a copybook that is missing within \p range.
  std::size_t ofMissingCopybookIn(const SourceRange &range) const;
  /// The error of a copybook that is missing where records of \p file may stand.
  std::size_t ofMissingCopybookIn(const FileDescription *file) const;
  /// The first file without records among the errors.
  std::size_t ofFileWithoutRecords() const { return fileWithoutRecords; }
  /// The error in \p entry that explains other errors, \p index among them, in the same entry.
  std::size_t withinEntry(const DataDescription *entry, std::size_t index) const;
  /// The error because of which a declaration of \p name is not in the tree as meant: the damaged
  /// text has the name where one can be declared.
  std::size_t ofDeclaration(llvm::StringRef name, bool isProcedure);
  /// The error of a CURRENCY SIGN clause that holds in \p unit.
  std::size_t ofCurrencySigns(const SourceUnit *unit) const;
  /// The error behind which the text is missing that may declare the name that \p diagnostic is
  /// about: among the procedures for the name of a procedure, else before them, in the unit or one
  /// around it.
  std::size_t missingTextFor(const Diagnostic &diagnostic) const;
  /// The first error of \p unit about a file without FD or SD entry, or without SELECT entry.
  std::size_t ofUndescribedFile(const SourceUnit *unit) const;
  /// The error of the front end about an entry without its record, next to \p entry, which is a
  /// group without members: the lines may be exchanged.
  std::size_t ofRecordNear(const DataDescription *entry) const;
  /// The error of the front end in or behind the entry before \p entry.
  std::size_t ofDamagedEntryBefore(const DataDescription *entry) const;
  /// The error of \p entry that explains another wrong entry: a group without members, where the
  /// entry before it has got them.
  std::size_t ofGroupWithPictureBefore(const DataDescription *entry) const;
  /// The first error that can mean that the header of a procedure is missing.
  std::size_t ofLostProcedure() const {
    return lostProcedures.empty() ? noDiagnostic : lostProcedures.front();
  }
  /// Notes that the error \p index can mean that one declaration is missing with its name.
  void addLostName(std::size_t index) { lostNames.push_back(index); }
  /// The error that leaves a declaration without a name which may be the one that \p diagnostic is
  /// about. Each stands for one name only, which \p key identifies.
  std::size_t takeLostName(const Diagnostic &diagnostic, const std::string &key);

private:
  void note(std::size_t index);
  void note(const DataDescription *entry, std::size_t index);
  void note(const FileDescription *file, std::size_t index);
  void noteText();
  void noteLostDeclaration(std::size_t index);
  void noteLostLevel(std::size_t index);
  void noteFilesWithoutRecords();
  void noteFileBefore(std::size_t index);
  void noteFileBehind(std::size_t index);
  void noteMissingLines();
  std::size_t missingCopybookWhere(llvm::function_ref<bool(const SourceRange &)> isMeant) const;
  bool isNameReserved(std::size_t index) const;
  bool isBeforeData(const SourceRange &place) const;
  const DataDescription *entryBefore(const SourceRange &place) const;
  bool isNameKnown(const SourceRange &place) const;
  bool beginsLine(const SourceRange &place) const;
  bool isBehindLevel(const SourceRange &place) const;
  void noteRecordBehind(const DataDescription &entry, std::size_t index);
  llvm::StringRef damagedLineBefore(const SourceRange &place) const;
  std::size_t nearestFrontEndError(const SourceRange &place) const;

  const std::vector<Diagnostic> &diagnostics;
  const ProgramPlaces &places;
  const DamagedText &damagedText;
  LineLookup lineOf;
  /// The errors of the front end, by file and position.
  std::map<std::pair<unsigned, SourcePosition>, std::size_t> frontEndErrors;

  // By what has an error, the diagnostic that says so first.
  llvm::DenseMap<const DataDescription *, std::size_t> entries;
  llvm::DenseMap<const DataDescription *, std::size_t> groups;
  llvm::DenseMap<const FileDescription *, std::size_t> files;
  llvm::DenseMap<const Node *, std::size_t> operands;
  llvm::DenseMap<const SourceUnit *, std::size_t> currencySigns;
  std::size_t fileWithoutRecords = noDiagnostic;
  /// Errors that mean that text of unknown content is missing, and where: a copybook, the records
  /// of a file, the members of a group.
  struct MissingText {
    std::size_t error;
    SourceRange place;
  };
  std::vector<MissingText> missingTexts;
  llvm::DenseMap<const SourceUnit *, std::size_t> undescribedFiles;
  /// Errors each of which leaves one declaration without its name, of data, files and procedures,
  /// and the undeclared names that they were taken for.
  std::vector<std::size_t> lostNames;
  std::vector<std::size_t> lostFiles;
  std::vector<std::size_t> lostProcedures;
  llvm::StringMap<std::size_t> foundNames;
  /// The words behind which a period is missing, in upper case: another character may stand in its
  /// place.
  std::vector<std::pair<std::string, std::size_t>> wordsWithoutPeriod;
  /// Answers of ofDeclaration().
  llvm::StringMap<std::size_t> damagedNames;
  llvm::StringMap<std::size_t> damagedProcedures;
  /// The entries behind one whose level is not known.
  llvm::DenseSet<const DataDescription *> inDoubt;
};

} // namespace tarka

#endif // TARKA_LIB_REPORT_REPORTDAMAGE_H
