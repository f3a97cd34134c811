//===- Program.h - compilation, source units, identification ----*- C++ -*-===//
//
// The top of the tree: one compilation, its programs with their divisions and
// nested programs, and the identification division.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_AST_PROGRAM_H
#define TARKA_AST_PROGRAM_H

#include "AST/DataDivision.h"
#include "AST/Environment.h"
#include "AST/Kinds.h"
#include "AST/Procedure.h"
#include <cstdint>
#include <vector>

namespace tarka {

/// PROGRAM-ID. name IS COMMON INITIAL RECURSIVE PROGRAM.
class ProgramIdParagraph : public Node {
public:
  /// \p name keeps its spelling; a literal keeps its quotes.
  ProgramIdParagraph(const Node *at, Word *name, ProgramIdType kind)
      : Node(at), type(kind), programName(name) {}

  /// COMMON takes precedence over INITIAL and RECURSIVE, for which there are flags.
  ProgramIdType getType() const { return type; }
  Word *getProgramName() const { return programName; }

  TARKA_FLAG(initial, Initial)
  TARKA_FLAG(recursive, Recursive)

private:
  ProgramIdType type;
  bool initial = false;
  bool recursive = false;
  Word *programName;
};

/// IDENTIFICATION DIVISION.
class IdentificationDivision : public Node {
public:
  IdentificationDivision(const Node *at, ProgramIdParagraph *programId)
      : Node(at), programIdPara(programId) {}

  ProgramIdParagraph *getProgramIDPara() const { return programIdPara; }

private:
  ProgramIdParagraph *programIdPara;
};

/// One program with its divisions and the programs nested in it.
class SourceUnit : public Owning<SourceUnit> {
public:
  SourceUnit(const Node *at, IdentificationDivision *identification, SourceUnit *outer)
      : Owning(at), idDivision(identification), parent(outer) {}

  IdentificationDivision *getIDDivision() const { return idDivision; }
  /// The unit that this one is nested in; null for an outermost one.
  SourceUnit *getParent() const { return parent; }
  bool isNested() const { return parent != nullptr; }
  /// The text of PROGRAM-ID as written, with the quotes of a literal.
  const std::string &getSourceUnitName() const {
    return idDivision->getProgramIDPara()->getProgramName()->getWordData();
  }
  /// SPECIAL-NAMES and the INPUT-OUTPUT SECTION of the unit itself; null when it has none.
  ParaSpecialNames *getSpecialNames() const {
    ConfigurationSection *configuration =
        environmentDivision ? environmentDivision->getConfigurationSection() : nullptr;
    return configuration ? configuration->getSpecialNames() : nullptr;
  }
  InputOutputSection *getInputOutputSection() const {
    return environmentDivision ? environmentDivision->getInputOutputSection() : nullptr;
  }

  void addNested(SourceUnit *unit) { nestedUnits.push_back(unit); }

  /// The programs that this unit may call because they are contained in it or in an outer one, in
  /// the order in which they were added.
  void addCallableList(const std::string &name);
  const std::list<std::string> &getCallableList() const;
  /// Makes \p unit, a COMMON program nested in this one, callable from its siblings and from all
  /// that is nested in them.
  void addCommonNested(const SourceUnit &unit);

  /// Divisions that the source does not have are null.
  TARKA_FIELD(EnvironmentDivision *, environmentDivision, EnvironmentDivision)
  TARKA_FIELD(DataDivision *, dataDivision, DataDivision)
  TARKA_FIELD(ProcedureDivision *, procDivision, ProcDivision)
  TARKA_LIST(SourceUnit, nestedUnits, NestedList)
  /// The EXEC blocks among the data entries, in source order.
  TARKA_LIST_ADD(ExecStatement, dataBlocks, DataBlock, DataBlock)

private:
  EnvironmentDivision *environmentDivision = nullptr;
  DataDivision *dataDivision = nullptr;
  ProcedureDivision *procDivision = nullptr;
  NodeList<SourceUnit> nestedUnits;
  NodeList<ExecStatement> dataBlocks;
  IdentificationDivision *idDivision;
  SourceUnit *parent;

  /// A program that can be called. The order is counted over all units.
  struct Callable {
    std::uint64_t order;
    const std::string *name;
    /// The unit itself, where it is one of commonNested.
    const SourceUnit *unit;
  };
  std::vector<Callable> callables;
  /// All siblings share this list: each with one of its own would take the square of their number.
  std::vector<Callable> commonNested;
  /// Made when it is asked for, of as many callables as are counted here.
  mutable std::list<std::string> callableList;
  mutable std::size_t listedCallables = 0;
};

/// One compilation.
class Program : public Node {
public:
  /// \p input is the name of the input, by which the graph's module is named.
  explicit Program(llvm::StringRef input) : inputName(&internString(input)) {}

  const std::string &getInputName() const { return *inputName; }
  void addSourceUnit(SourceUnit *unit) { sourceUnits.push_back(unit); }

  TARKA_LIST(SourceUnit, sourceUnits, SourceUnitList)

private:
  NodeList<SourceUnit> sourceUnits;
  const std::string *inputName;
};

} // namespace tarka

#endif // TARKA_AST_PROGRAM_H
