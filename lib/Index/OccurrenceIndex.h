//===- OccurrenceIndex.h - where names are declared and used ----*- C++ -*-===//
//
// Every name of a program at every place where it is written, sorted by place:
// what editors ask for as definition, references, highlights and rename.
//
// The names are those of the words that the front end has delivered to the parser,
// so each of them is there, in clauses and statements alike, and in those that
// could not be parsed too. What a name means is decided by the scope of its
// program, as in the checks. What a statement does with it comes from the tree.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_INDEX_OCCURRENCEINDEX_H
#define TARKA_LIB_INDEX_OCCURRENCEINDEX_H

#include "AST/Node.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/DenseMap.h"
#include "llvm/ADT/SmallVector.h"
#include <cstdint>
#include <optional>
#include <vector>

namespace tarka {

class Expansion;
class Program;
class SourceUnit;

/// What a name is the name of.
enum class SymbolKind : std::uint8_t {
  Item, ///< a data item; a report item too
  ConditionName,
  IndexName,
  SpecialRegister, ///< has no declaration in the source
  File,
  Report,
  Section,
  Paragraph,
  Program,
  /// Of SPECIAL-NAMES: a mnemonic-name, the status of a switch, an alphabet, a class, a symbolic
  /// character.
  SpecialName,
};

/// A symbol of the index, by its number.
using SymbolId = std::uint32_t;

/// Something that has a name.
struct Symbol {
  SymbolKind kind = SymbolKind::Item;
  /// The name in upper case and as it is declared, interned.
  const std::string *name = nullptr;
  const std::string *spelling = nullptr;
  /// Where the name stands in its declaration; of no file for a special register.
  SourceRange place;
  /// What is declared: a DataDescription, FileDescription, ReportDescription, Section, Paragraph,
  /// SourceUnit, or the clause of SPECIAL-NAMES; ParaFileControl for a file without a description.
  /// Null where the checks have made nothing of it, as for an index-name with errors.
  const Node *node = nullptr;
  /// The program that declares it.
  SourceUnit *unit = nullptr;
  /// The section of a paragraph, the table of an index-name; the symbol itself where there is none.
  SymbolId around = 0;
};

/// What is done with a name at one place.
enum class Use : std::uint8_t {
  Declaration,
  Mention, ///< neither reads nor writes: a clause, a qualifier, a procedure that is performed
  Read,
  Write,
  ReadWrite,
};

/// A name at one place. Names stand on one line, but for those that are continued. In a copybook
/// that is copied several times, one place can have names of several symbols.
struct Occurrence {
  std::uint32_t file = 0;
  std::uint32_t line = 0;
  std::uint32_t column = 0;
  std::uint32_t endLine = 0;
  std::uint32_t endColumn = 0;
  SymbolId symbol = 0;
  Use use = Use::Mention;
  /// The word was put there by REPLACE or REPLACING: what stands at the place is another text.
  bool isReplaced = false;

  SourceRange getPlace() const { return {file, line, column, endLine, endColumn}; }
};

class OccurrenceIndex {
public:
  /// The names of \p program, which \p expansion has the words of.
  OccurrenceIndex(Program &program, const Expansion &expansion);

  llvm::ArrayRef<Symbol> getSymbols() const { return symbols; }
  const Symbol &getSymbol(SymbolId symbol) const { return symbols[symbol]; }
  /// The symbol that declares \p node; none when it has no name in the source.
  std::optional<SymbolId> symbolOf(const Node &node) const;

  /// All occurrences by file, line and column; several at one place stay in the order of the text
  /// that was compiled.
  llvm::ArrayRef<Occurrence> getOccurrences() const { return occurrences; }
  /// Those of one file.
  llvm::ArrayRef<Occurrence> inFile(unsigned file) const;
  /// Those with a name that \p column is in or directly behind.
  llvm::ArrayRef<Occurrence> at(unsigned file, unsigned line, unsigned column) const;
  /// Those of one symbol, by place.
  llvm::SmallVector<Occurrence, 16> occurrencesOf(SymbolId symbol) const;
  /// Those of the symbols that have an occurrence at one of the places of \p symbol: of a copybook
  /// that several programs copy, the names in all of them. Each place once.
  llvm::SmallVector<Occurrence, 16> relatedOccurrences(SymbolId symbol) const;

private:
  friend class IndexBuilder;

  std::vector<Symbol> symbols;
  std::vector<Occurrence> occurrences;
  /// By symbol, the numbers of its occurrences: those of symbol s from starts[s] to starts[s + 1].
  std::vector<std::uint32_t> bySymbol;
  std::vector<std::uint32_t> starts;
  llvm::DenseMap<const Node *, SymbolId> byNode;
};

} // namespace tarka

#endif // TARKA_LIB_INDEX_OCCURRENCEINDEX_H
