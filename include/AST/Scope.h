//===- Scope.h - which names a program can see ------------------*- C++ -*-===//
//
// The rules of name visibility, for the parser and the checks alike: a program
// sees the names that it declares itself, and of the programs around it those
// that are GLOBAL. The nearest program that has a name hides the ones further
// out.
//
// What is GLOBAL: the entries of a record are when the record, or the file or
// report that it belongs to, has the clause; a condition-name is with its
// conditional variable. The names of SPECIAL-NAMES hold in every nested program.
//
// Names are texts of words, which internString() makes unique, and are compared by address.
// Every lookup is a few steps in an index for each program between the one that
// asks and the one that declares the name.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_SCOPE_H
#define TARKA_AST_SCOPE_H

#include "AST/Program.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/STLFunctionalExtras.h"
#include "llvm/ADT/SmallVector.h"
#include <utility>

namespace tarka {

/// The entries that a data-name can mean: all entries of one data division that have this name, in
/// the order of DataDivision::findItemByName(). False when there are none.
struct Homonyms {
  DataDivision *division = nullptr;
  std::list<DataDescription *> *entries = nullptr;

  explicit operator bool() const { return division != nullptr; }
};

/// The names that one program can see.
class Scope {
public:
  /// The scope of \p program; where it is null, no name is visible.
  explicit Scope(SourceUnit *program) : unit(program) {}

  //===--------------------------------------------------------------------===//
  // Data items
  //===--------------------------------------------------------------------===//

  /// The entries that \p name can mean: those of the program itself, else those of the nearest
  /// program around it whose first entry of the name is GLOBAL. Only the first entry decides; its
  /// namesakes in that program remain candidates whether they are GLOBAL or not.
  Homonyms findItems(const std::string *name) const;
  /// Whether findItems() finds any. To ask costs less than to find.
  bool isItem(const std::string *name) const { return declarerOf(name) != nullptr; }
  /// The entry of the program itself that alone has the name; null when there is none or another.
  DataDescription *findOnlyOwnItem(const std::string *name) const {
    DataDivision *division = unit ? unit->getDataDivision() : nullptr;
    return division ? division->findOnlyItemByInternedName(name) : nullptr;
  }
  /// The entry that the checks bind a reference of \p words to: the name, then its qualifiers,
  /// nearest first. Null when none fits; a reference that fits several is bound to one of them.
  DataDescription *findReferenced(const NodeList<Word> &words) const;
  /// Whether one of the entries that \p name can mean is a condition-name (level 88).
  bool isConditionName(const std::string *name) const;
  /// The entry of the special register \p name. Registers belong to the outermost program, and
  /// programs nested in it share them without GLOBAL. Null when no program around has one.
  DataDescription *findRegister(const std::string *name) const;

  //===--------------------------------------------------------------------===//
  // Files and reports
  //===--------------------------------------------------------------------===//

  /// The FD and SD entries of that name: those of the program itself, else the GLOBAL ones of the
  /// nearest program around it that has any.
  llvm::SmallVector<FileDescription *, 2> findFiles(const std::string *name) const;
  /// Whether \p name means a file where a data item could stand as well: the nearest program that
  /// declares either decides. In the program itself a SELECT is enough.
  bool isFileName(const std::string *name) const;
  /// The files with LINAGE that an unqualified LINAGE-COUNTER can mean, by the rule of findFiles().
  llvm::SmallVector<FileDescription *, 2> findFilesWithLinage() const;

  /// The first report of that name of the program itself, else the first GLOBAL one of the nearest
  /// program around it that has any; null when there is none.
  ReportDescription *findReport(const std::string *name) const;
  /// The reports that an unqualified PAGE-COUNTER or LINE-COUNTER can mean: all of the program
  /// itself, else the GLOBAL ones of the nearest program around it that has any.
  llvm::SmallVector<ReportDescription *, 2> findReports() const;

  //===--------------------------------------------------------------------===//
  // SPECIAL-NAMES
  //===--------------------------------------------------------------------===//

  // The clause that defines the name, in the program itself or the nearest one around it that has
  // such a clause; null when there is none.

  ClauseAlphabet *findAlphabet(const std::string *name) const;
  ClauseClass *findClass(const std::string *name) const;
  ClauseEnvName *findMnemonicName(const std::string *name) const;
  ClauseSymbolic *findSymbolicCharacter(const std::string *name) const;

  // Whether the name means this where a data item could stand as well: a data item of a program
  // hides the names of SPECIAL-NAMES of the programs around it.

  bool isSymbolicCharacter(const std::string *name) const;
  /// The name of the ON or OFF status of a switch.
  bool isSwitchName(const std::string *name) const;

  //===--------------------------------------------------------------------===//
  // All names
  //===--------------------------------------------------------------------===//

  /// Whether the name is declared as anything that can be an operand.
  bool isDeclared(const std::string *name) const;

  /// Calls \p visit for every entry with a name that findItems() gives for its name: the program's
  /// own entries first, each division in source order.
  void forEachItem(llvm::function_ref<void(DataDescription *)> visit) const;
  /// The same for the files that findFiles() gives for their names.
  void forEachFile(llvm::function_ref<void(FileDescription *)> visit) const;
  /// Calls \p visit for every name that a SPECIAL-NAMES paragraph defines, that of the program
  /// first.
  void forEachSpecialName(llvm::function_ref<void(const Word *)> visit) const;

private:
  /// The program of which findItems() gives the entries.
  const SourceUnit *declarerOf(const std::string *name) const;
  bool isHiddenIn(const SourceUnit *declaring, const std::string *name) const;
  template <typename Clause>
  std::pair<Clause, SourceUnit *> findSpecialName(const std::string *name,
                                                  Clause (ParaSpecialNames::*find)(const Word *name)
                                                      const) const;

  SourceUnit *unit;
};

/// Whether the entry is visible in the programs that are nested in its own.
bool isGlobal(const DataDescription &entry);

//===----------------------------------------------------------------------===//
// Which of several entries a reference means
//===----------------------------------------------------------------------===//

/// An entry that the qualifiers of a reference fit.
struct QualifiedMatch {
  DataDescription *entry;
  /// The last qualifier that was compared is the name of the file or report.
  bool isThroughOwner;
};

/// The entries of \p homonyms that the qualifiers in \p words fit, in their order. \p words holds
/// the name and then at least one qualifier, nearest first. Qualifiers may leave out groups; what
/// follows the name of a file or report is not compared. A record that is qualified by its file or
/// report ends the search.
llvm::SmallVector<QualifiedMatch, 2> matchQualified(const Homonyms &homonyms,
                                                    const NodeList<Word> &words);

/// What a name without qualifiers means.
struct UnqualifiedMatch {
  DataDescription *entry;
  /// False when other entries are meant just as well; the first one is still used.
  bool isUnique;
};

/// Of \p homonyms, which are not empty, the one that the name alone means: an entry of the report
/// section only when there is no other, or when \p prefersReportItem. Of entries of the report
/// section alone, it is the last one, and counts as unique.
UnqualifiedMatch matchUnqualified(const Homonyms &homonyms, bool prefersReportItem);

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

/// Finds the programs of a compilation that a CALL can reach by their names. Program names are the
/// same in upper and lower case, and with or without quotes.
class ProgramNames {
public:
  ProgramNames() = default;
  /// The names of all programs in \p program.
  explicit ProgramNames(const Program &program);

  /// Adds a program. Of two that have one name in one program, the first one is found.
  void add(SourceUnit &unit);

  /// The program that a CALL in \p caller reaches by \p name: one that is nested in the caller, a
  /// COMMON one that is nested in a program around it, or an outermost one. Null when there is no
  /// such program in the compilation.
  SourceUnit *find(const SourceUnit *caller, llvm::StringRef name) const;

private:
  /// By the program that contains them, null for the outermost ones, and their names.
  llvm::DenseMap<std::pair<const SourceUnit *, const std::string *>, SourceUnit *> programs;
};

} // namespace tarka

#endif // TARKA_AST_SCOPE_H
