//===- Subject.h - what a diagnostic is about -------------------*- C++ -*-===//
//
// Derives from the node that a diagnostic points at what the programmer wrote
// there, so that a report can name it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_REPORT_SUBJECT_H
#define TARKA_REPORT_SUBJECT_H

#include "Report/Diagnostic.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/StringMap.h"

namespace tarka {

class SourceUnit;
class Word;

/// What a diagnostic is about.
struct Subject {
  /// A name with its qualifiers or a literal, as written. Empty for other nodes, which the source
  /// text shows better.
  std::string name;
  /// What the item is that the name refers to, "PIC S9(5) COMP-3".
  std::string detail;
};

/// The subject of a diagnostic at \p node.
Subject subjectOf(const Node &node);

/// The kind of name that is not declared.
enum class NameKind {
  Operand, ///< data items, and names of SPECIAL-NAMES
  Procedure,
  File,
  SpecialName,
};

/// The declarations of \p name in the program, as notes of a diagnostic which says that the name is
/// not unique. At most \p limit.
std::vector<DiagnosticNote> declarationsOf(llvm::StringRef name, SourceUnit &unit, unsigned limit);

/// Finds the name that was probably meant by one which is not declared.
class NearNames {
public:
  /// The declared name, as written in its declaration, that is nearest to \p name and visible in
  /// \p unit; empty when none is near. A program with very many undeclared names gets no more
  /// answers after a while, so that the work stays in proportion to the source.
  llvm::StringRef find(llvm::StringRef name, NameKind kind, SourceUnit &unit);

  /// The same for "NAME OF QUALIFIER OF ...", whose name is declared, but not within the
  /// qualifiers: the name that was meant by the first wrong qualifier or, when all of them are
  /// right, by NAME.
  llvm::StringRef findQualified(llvm::StringRef reference, SourceUnit &unit);

private:
  struct Names {
    std::vector<const Word *> words;
    llvm::StringMap<llvm::StringRef> answers;
  };
  Names &namesOf(NameKind kind, SourceUnit &unit);

  llvm::DenseMap<std::pair<SourceUnit *, unsigned>, Names> units;
};

} // namespace tarka

#endif // TARKA_REPORT_SUBJECT_H
