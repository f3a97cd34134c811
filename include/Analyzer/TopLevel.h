//===- TopLevel.h - the compilation context ---------------------*- C++ -*-===//
//
// What every stage of the analysis shares for one compilation: the program, the
// source unit and the data sections being checked, the state that the graph
// builder keeps between statements, and facts of the environment division.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_TOPLEVEL_H
#define TARKA_ANALYZER_TOPLEVEL_H

#include "AST/Forward.h"
#include <list>
#include <memory>
#include <string>
#include <utility>

namespace llvm {
class LLVMContext;
class Module;
} // namespace llvm

namespace tarka {

class CFGFunc;
struct CompileSettings;

/// The one LLVM context of the process. It lives until the process ends, as does the module in it.
llvm::LLVMContext &globalContext();

/// The compilation context: one for the process, made on first use and never destroyed. Nothing in
/// it is reset when a source unit ends; the code that owns a field resets it. A process that
/// compiles several programs begins each with beginCompilation().
class TopLevel {
public:
  /// The context. The first call makes it, with \p id as the identifier of the compilation; later
  /// calls ignore \p id, so that the analysis itself asks with an empty one.
  static TopLevel *getTopLevelInstance(std::string id);

  /// Begins a compilation: the context and the compile options are as newly made, with \p id as the
  /// identifier and \p settings as the options. The instances stay the same, so that pointers to
  /// them stay valid. The tree and the graph of the compilation before keep their memory, but may
  /// no longer be checked or printed.
  static TopLevel &beginCompilation(std::string id, const CompileSettings &settings);

  TopLevel(const TopLevel &) = delete;
  TopLevel &operator=(const TopLevel &) = delete;

  /// The identifier of the compilation: the name of its input.
  const std::string &getID() const { return id; }
  /// The module of the compilation, named by the identifier.
  llvm::Module *getModule() const { return module; }

  /// The block in which the sentence being lowered began. NEXT SENTENCE goes to its Next block.
  void setCurrentSentenceCFGBlock(CFGBlock *block) { currentSentenceBlock = block; }
  CFGBlock *getCurrentSentenceCFGBlock() const { return currentSentenceBlock; }

  /// The function whose graph is being built.
  void setCurrentCFGFunction(CFGFunc *function) { currentCFGFunction = function; }
  CFGFunc *getCurrentCFGFunction() const { return currentCFGFunction; }

  /// The source unit being checked.
  void setCurrentSourceUnit(SourceUnit *unit) { currentSourceUnit = unit; }
  SourceUnit *getCurrentSourceUnit() const { return currentSourceUnit; }

  /// The compilation being checked.
  void setCurrentProgram(Program *program) { currentProgram = program; }
  Program *getCurrentProgram() const { return currentProgram; }

  /// The entries of the section being checked, level 01 and 77 at the top; null outside of one.
  void setCurrentDescSection(std::list<DataDescription *> *section) {
    currentDescSection = section;
  }
  std::list<DataDescription *> *getCurrentDescSection() const { return currentDescSection; }
  /// The same entries with all their children, in source order.
  void setCurrentFlatSection(std::list<DataDescription *> *section) {
    currentFlatSection = section;
  }
  std::list<DataDescription *> *getCurrentFlatSection() const { return currentFlatSection; }

  /// The continuation blocks of the PERFORMs being lowered, innermost last. removePerformAfter()
  /// and getPerformAfterEnd() need a list, so an earlier addPerformAfter().
  void addPerformAfter(CFGBlock *block);
  void removePerformAfter();
  std::list<CFGBlock *>::iterator getPerformAfterEnd();

  /// The collating tables made from ALPHABET clauses; null when there are none.
  void addColseq(int *table);
  std::list<int *> *getColseqList() const { return colseqs.get(); }

  /// Set while the sentence being lowered contains NEXT SENTENCE.
  void setHaveNextSentence(bool have) { haveNextSentence = have; }
  bool getHaveNextSentence() const { return haveNextSentence; }

  /// Set when SPECIAL-NAMES defines the name of an UPSI switch.
  void setHaveUPSI(bool have) { haveUPSI = have; }
  bool getHaveUPSI() const { return haveUPSI; }

  /// Set when "," is the decimal separator of PICTURE strings and numeric literals.
  void setIsDecimalPointComma(bool comma) { decimalPointIsComma = comma; }
  bool getIsDecimalPointComma() const { return decimalPointIsComma; }

  /// The function of the report declaratives, which is not in the list of the module.
  void setRptDeclCFGFunction(CFGFunc *function) { rptDeclCFGFunction = function; }
  CFGFunc *getRptDeclCFGFunction() const { return rptDeclCFGFunction; }

  /// Statements that the checks generate for report declaratives and pass on; null when there are
  /// none.
  void addStmtToDummyListUsedMove(Statement *statement);
  std::list<Statement *> *getDummyListUsedMove() const { return dummyListUsedMove.get(); }

private:
  TopLevel(std::string compilation, llvm::Module *itsModule)
      : id(std::move(compilation)), module(itsModule) {}
  TopLevel &operator=(TopLevel &&) = default;

  // The record is shared with later stages. Fields without an accessor are theirs; here they only
  // get their initial value.
  std::string firstText;
  std::string serialText = "0000000000000000";
  std::string id;
  llvm::Module *module;
  [[maybe_unused]] void *reserved1 = nullptr;
  [[maybe_unused]] void *reserved2 = nullptr;
  [[maybe_unused]] void *reserved3 = nullptr;
  CFGBlock *currentSentenceBlock = nullptr;
  CFGFunc *currentCFGFunction = nullptr;
  std::string furtherText;
  SourceUnit *currentSourceUnit = nullptr;
  Program *currentProgram = nullptr;
  std::list<DataDescription *> *currentDescSection = nullptr;
  std::list<DataDescription *> *currentFlatSection = nullptr;
  std::unique_ptr<std::list<CFGBlock *>> performAfters;
  std::unique_ptr<std::list<int *>> colseqs;
  bool haveNextSentence = false;
  [[maybe_unused]] void *reserved4 = nullptr;
  [[maybe_unused]] void *reserved5 = nullptr;
  [[maybe_unused]] void *reserved6 = nullptr;
  [[maybe_unused]] bool reservedFlag = false;
  [[maybe_unused]] int reservedCount = 0;
  bool haveUPSI = false;
  bool decimalPointIsComma = false;
  CFGFunc *rptDeclCFGFunction = nullptr;
  std::unique_ptr<std::list<Statement *>> dummyListUsedMove;
  [[maybe_unused]] void *reserved7 = nullptr;
};

} // namespace tarka

#endif // TARKA_ANALYZER_TOPLEVEL_H
