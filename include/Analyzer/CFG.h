//===- CFG.h - the control-flow graph ---------------------------*- C++ -*-===//
//
// The output of the analyzer for a code generator: one module for a compilation,
// one function for a source unit, each with a graph of named blocks whose
// elements point back into the checked tree. docs/cfg.md describes the shape of
// each construct.
//
// Names of blocks are a contract and are not unique: every IF has its
// "tkdummy_then". A lookup by name gives the block that was made first.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_ANALYZER_CFG_H
#define TARKA_ANALYZER_CFG_H

#include "AST/Forward.h"
#include "AST/Node.h"
#include "llvm/ADT/DenseMap.h"
#include <array>

namespace tarka {

class CFGFunc;
class CFGGraph;
class CFGModule;
class EntryStatement;
class Parameter;
class Returning;

/// A record of the graph: it lives in the arena and is never freed.
struct CFGRecord {
  static void *operator new(std::size_t size) { return allocateForever(size, alignof(void *)); }
  static void operator delete(void *) {}
};

/// One element of a block: a statement or a description, by its type.
class CFGElem : public CFGRecord {
public:
  /// What the element describes.
  enum class ElemType : std::uint8_t {
    Statement = 0,
    DataDeclaration = 1,
    FileDeclaration = 2,
    ReportDeclaration = 3,
  };

  CFGElem(ElemType kind, DataDescription *dataDescription, FileDescription *fileDescription,
          Statement *statement, CFGBlock *holder, ReportDescription *reportDescription)
      : type(kind), data(dataDescription), file(fileDescription), stmt(statement), block(holder),
        report(reportDescription) {}

  ElemType getType() const { return type; }
  // The node of the element; each is null in an element of another type.
  DataDescription *getData() const { return data; }
  FileDescription *getFile() const { return file; }
  Statement *getStmt() const { return stmt; }
  ReportDescription *getReport() const { return report; }
  /// The block that holds the element.
  CFGBlock *getBlock() const { return block; }

private:
  ElemType type;
  DataDescription *data;
  FileDescription *file;
  Statement *stmt;
  CFGBlock *block;
  ReportDescription *report;
};

/// What a block is, apart from its elements.
enum class CFGBlockType : std::uint8_t {
  Ordinary = 0,
  Procedure = 1, ///< the first block of a paragraph or a section
};

/// What a block is for, where the graph's readers treat it apart. Names of blocks are for code
/// generators and people; nothing here is decided by them.
enum class CFGBlockRole : std::uint8_t {
  Plain,
  Frame,        ///< around the procedures: text before it falls into it, as into a procedure
  LaterWhen,    ///< the test of a WHEN after the first of an EVALUATE
  SortInput,    ///< performs the INPUT PROCEDURE of a SORT
  LastPhase,    ///< the last phase of SORT or MERGE, which writes the files of GIVING
  XmlParser,    ///< delivers one event of XML PARSE, or ends the loop
  XmlProcedure, ///< performs the processing procedure
  XmlResult,    ///< whether the parser goes on
  XmlException, ///< selects a phrase of XML PARSE
};

/// The ways in which one block points at another.
enum class CFGLink : std::uint8_t {
  Successor,
  Then,
  Else,
  End,
  Next,
  OnSize,
  NotOnSize,
  Inline,
  After,
  Return,
};
inline constexpr std::size_t cfgLinkCount = 10;

/// The names of the links in printed forms, by CFGLink.
inline constexpr llvm::StringLiteral cfgLinkNames[cfgLinkCount] = {
    "successor", "then", "else", "end", "next", "onSize", "notOnSize", "inline", "after", "return",
};

/// Declares get<Name>Block() and add<Name>Block(), which replaces an earlier block.
#define TARKA_CFG_LINK(Name)                                                                       \
  CFGBlock *get##Name##Block() const {                                                             \
    return getLink(CFGLink::Name);                                                                 \
  }                                                                                                \
  void add##Name##Block(CFGBlock *target) {                                                        \
    links[static_cast<std::size_t>(CFGLink::Name)] = target;                                       \
  }

/// A run of elements that is entered at its beginning only.
///
/// A block without terminator falls through to its successor or, where it has none, to the block
/// made after it in the same graph.
class CFGBlock : public CFGRecord {
public:
  /// A block that is in no list yet; \p owner may be null. CFGGraph::addBlock() adds it.
  CFGBlock(llvm::StringRef blockName, CFGGraph *owner)
      : CFGBlock(&internString(blockName), owner) {}
  /// The same with a name that lives forever, such as that of a Word.
  CFGBlock(const std::string *blockName, CFGGraph *owner) : name(blockName), graph(owner) {}

  /// The label of the block, which other blocks may have as well.
  const std::string &getName() const { return *name; }

  // Each appends one element for the node, which is not null.
  void addCFGElemStmt(Statement *statement);
  void addCFGElemDecl(DataDescription *data);
  void addCFGElemFileDecl(FileDescription *file);
  void addCFGElemReportDecl(ReportDescription *report);
  /// The elements in the order in which control passes them.
  const std::list<CFGElem *> &getElements() const { return elements; }

  /// Whether the block ends in a transfer of control.
  bool getHaveTerminator() const { return haveTerminator; }
  void setHaveTerminator(bool value) { haveTerminator = value; }
  CFGBlockType getBlockType() const { return blockType; }
  void setBlockType(CFGBlockType type) { blockType = type; }
  CFGBlockRole getRole() const { return role; }
  void setRole(CFGBlockRole value) { role = value; }

  /// The graph that the block belongs to; null until a block made without one is added to one.
  CFGGraph *getGraph() const { return graph; }
  /// The index of the block in the list of its graph, from 0; -1 while it is in no list.
  int getPlace() const { return place; }

  /// The block in which control continues.
  TARKA_CFG_LINK(Successor)
  /// The true branch of a condition, or the exception branch of a statement.
  TARKA_CFG_LINK(Then)
  /// The false branch, or the branch without exception.
  TARKA_CFG_LINK(Else)
  /// Where the branches of a compound statement join.
  TARKA_CFG_LINK(End)
  /// For the first block of a sentence: the block after the sentence, target of NEXT SENTENCE.
  TARKA_CFG_LINK(Next)
  /// ON SIZE ERROR.
  TARKA_CFG_LINK(OnSize)
  /// NOT ON SIZE ERROR.
  TARKA_CFG_LINK(NotOnSize)
  /// The body of an inline PERFORM.
  TARKA_CFG_LINK(Inline)
  /// What comes after a PERFORM, or after a declarative entered from an input-output statement.
  TARKA_CFG_LINK(After)
  /// Where a performed range or a declarative returns to.
  TARKA_CFG_LINK(Return)

  /// Any of them; null when it is not set.
  CFGBlock *getLink(CFGLink link) const { return links[static_cast<std::size_t>(link)]; }

private:
  friend class CFGGraph;

  void addElement(CFGElem::ElemType type, DataDescription *data, FileDescription *file,
                  Statement *statement, ReportDescription *report);

  const std::string *name;
  std::list<CFGElem *> elements;
  CFGGraph *graph;
  std::array<CFGBlock *, cfgLinkCount> links{};
  int place = -1;
  bool haveTerminator = false;
  CFGBlockType blockType = CFGBlockType::Ordinary;
  CFGBlockRole role = CFGBlockRole::Plain;
};

#undef TARKA_CFG_LINK

/// The blocks of one function, in the order in which they were made.
class CFGGraph : public CFGRecord {
public:
  /// Appends a new block to the list. Blocks of the same name may exist.
  CFGBlock *createBlock(llvm::StringRef name) { return createBlock(&internString(name)); }
  /// The same with a name that lives forever, such as that of a Word.
  CFGBlock *createBlock(const std::string *name);
  /// The first block of exactly that name, case included; null when there is none.
  CFGBlock *findBlock(llvm::StringRef name);
  /// Appends a block that was made outside of a graph, and becomes its graph.
  void addBlock(CFGBlock *block);

  /// The blocks in the order in which they were added, which is the order of falling through.
  const std::list<CFGBlock *> &getBlockList() const { return blocks; }

private:
  std::list<CFGBlock *> blocks;
  /// The first block of each name, made at the first lookup: the builder needs none, and neither do
  /// many users of the graph.
  llvm::DenseMap<llvm::StringRef, CFGBlock *> firstOfName;
  /// The last block in the index; the end of the list before the first lookup.
  std::list<CFGBlock *>::iterator lastIndexed = blocks.end();
};

/// The parameters and the result of a function, or of one of its entries.
class CFGSignature : public CFGRecord {
public:
  /// Inserts the range before the present parameters.
  template <typename Iterator> void insertParams(Iterator first, Iterator last) {
    parameters.insert(parameters.begin(), first, last);
  }
  /// The items of USING, in their order.
  const std::list<Parameter *> &getParams() const { return parameters; }

  /// The phrase RETURNING; null without one.
  Returning *getReturning() const { return returning; }
  void setReturning(Returning *phrase) { returning = phrase; }

private:
  std::list<Parameter *> parameters;
  Returning *returning = nullptr;
};

/// An ENTRY statement: a further way into its function.
class CFGEntry : public CFGSignature {
public:
  /// \p place counts the entries of the function from 1.
  CFGEntry(const std::string &entryName, const std::string &functionName, int place)
      : name(&internString(entryName)), funcName(&internString(functionName)), index(place) {}

  /// The name that a CALL of the entry uses.
  const std::string &getName() const { return *name; }
  /// The name of the function.
  const std::string &getFuncName() const { return *funcName; }
  /// The number of the entry in its function, from 1.
  int getIndex() const { return index; }

  /// The block in which control begins; null until it is set, like the function.
  CFGBlock *getEntryBlock() const { return entryBlock; }
  void setEntryBlock(CFGBlock *block) { entryBlock = block; }
  CFGFunc *getFunc() const { return func; }
  void setFunc(CFGFunc *function) { func = function; }
  /// The statement in the tree; null for an entry that was made by hand.
  const EntryStatement *getStatement() const { return statement; }
  void setStatement(const EntryStatement *entry) { statement = entry; }

private:
  const std::string *name;
  const std::string *funcName;
  CFGBlock *entryBlock = nullptr;
  CFGFunc *func = nullptr;
  const EntryStatement *statement = nullptr;
  int index;
};

/// One source unit, or the declaratives of the report writer.
class CFGFunc : public CFGSignature {
public:
  CFGFunc(const std::string &functionName, CFGModule *owner, SourceUnit *unit)
      : name(&internString(functionName)), module(owner), sourceUnit(unit) {}

  /// The program's name without the quotes of a literal.
  const std::string &getName() const { return *name; }
  /// The module that the function is made for; for report declaratives too.
  CFGModule *getModule() const { return module; }

  /// The blocks of the function; null until they are made.
  CFGGraph *getBody() const { return body; }
  void setBody(CFGGraph *graph) { body = graph; }
  /// The program; null for report declaratives.
  SourceUnit *getSourceUnit() const { return sourceUnit; }
  void setSourceUnit(SourceUnit *unit) { sourceUnit = unit; }

  void addEntry(CFGEntry *entry) { entries.push_back(entry); }
  std::size_t getEntryListSize() const { return entries.size(); }
  const std::list<CFGEntry *> &getEntryList() const { return entries; }

  /// The sections of the USE BEFORE REPORTING declaratives; null in other functions.
  std::list<Section *> *getSectionList() const { return sectionList; }
  /// Keeps a pointer to \p sections in place of an earlier list.
  void setSectionList(std::list<Section *> *sections) { sectionList = sections; }

private:
  const std::string *name;
  CFGGraph *body = nullptr;
  CFGModule *module;
  SourceUnit *sourceUnit;
  std::list<CFGEntry *> entries;
  std::list<Section *> *sectionList = nullptr;
};

/// One compilation.
class CFGModule : public CFGRecord {
public:
  explicit CFGModule(const std::string &inputName) : name(&internString(inputName)) {}

  /// The name of the compilation's input.
  const std::string &getName() const { return *name; }

  /// Appends the range to the WORKING-STORAGE entries of all source units.
  void insertGlobalVar(std::list<DataDescription *>::iterator first,
                       std::list<DataDescription *>::iterator last) {
    globalVars.insert(globalVars.end(), first, last);
  }
  const std::list<DataDescription *> &getGlobalVars() const { return globalVars; }

  void addFunc(CFGFunc *function) { functions.push_back(function); }
  /// The functions of the source units, in the order of the source. The function of the report
  /// declaratives is not among them, see TopLevel::getRptDeclCFGFunction().
  const std::list<CFGFunc *> &getFuncList() const { return functions; }

  /// A function of report declaratives, with the function of the source unit that has them.
  struct ReportDeclaratives {
    CFGFunc *function;
    const CFGFunc *ofUnit;
  };
  /// Adds the function \p function of the report declaratives of \p ofUnit.
  void addReportDeclaratives(CFGFunc *function, const CFGFunc *ofUnit) {
    reportDeclaratives.push_back({function, ofUnit});
  }
  /// Those of every unit that has report declaratives, in the order of the units.
  const std::list<ReportDeclaratives> &getReportDeclaratives() const { return reportDeclaratives; }

private:
  const std::string *name;
  std::list<DataDescription *> globalVars;
  std::list<CFGFunc *> functions;
  std::list<ReportDeclaratives> reportDeclaratives;
};

} // namespace tarka

#endif // TARKA_ANALYZER_CFG_H
