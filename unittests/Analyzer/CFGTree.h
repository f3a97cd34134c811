//===- CFGTree.h - small checked trees and the shape of their graph -------===//
//
// Builds checked trees for the tests of the graph, and prints a graph in a
// short form.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_UNITTESTS_ANALYZER_CFGTREE_H
#define TARKA_UNITTESTS_ANALYZER_CFGTREE_H

#include "AST/Expression.h"
#include "AST/KindNames.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CFGBuilder.h"
#include "Analyzer/CFGVerifier.h"
#include "llvm/Support/raw_ostream.h"

namespace tarka::test {

using Statements = NodeList<Statement>;

inline Node *atLine(unsigned line) {
  return new Node(SourceRange{internFileName("test.cbl"), line, 12, line, 20});
}

inline Word *word(llvm::StringRef text) {
  return new Word(atLine(1), text, "");
}

/// A node on a line; the arguments are those of its constructor after the position.
template <typename Statement, typename... Arguments>
Statement *make(unsigned line, Arguments... arguments) {
  return new Statement(atLine(line), arguments...);
}

/// A statement without an effect.
inline Statement *plain(unsigned line = 1) {
  return make<ContinueStatement>(line);
}

inline IfStatement *ifThen(const Statements &then, const Statements &otherwise = {}) {
  auto *statement = make<IfStatement>(1);
  for (Statement *nested : then)
    statement->addIfStmt(nested);
  for (Statement *nested : otherwise)
    statement->addElseStmt(nested);
  return statement;
}

inline ExceptionHandler *phrase(ExceptionHandlerType type, bool isNot = false,
                                Statements statements = {plain()}) {
  return new ExceptionHandler(atLine(1), type, isNot, &statements);
}

/// PERFORM of a range that the checks have resolved, with its last procedure marked.
inline PerformStatement *perform(unsigned line, PerformStmtType type, Paragraph *begin,
                                 Paragraph *thru) {
  auto *range = new PerformProcedure(atLine(line), nullptr, nullptr);
  range->setBeginParagraph(begin);
  range->setThruParagraph(thru);
  thru->setIsPerformThru(true);
  auto *statement = make<PerformStatement>(line, type);
  statement->setProcedureName(range);
  return statement;
}

inline PerformStatement *performInline(unsigned line, PerformStmtType type,
                                       const Statements &body) {
  auto *statement = make<PerformStatement>(line, type);
  for (Statement *nested : body)
    statement->addInlineStatement(nested);
  return statement;
}

inline GotoStatement *goTo(Paragraph *target) {
  auto *statement = make<GotoStatement>(1);
  statement->addProcedure(new GotoProcedure(nullptr, target));
  return statement;
}

template <typename Procedure> Procedure *fill(Procedure *procedure, const Statements &statements) {
  auto *sentence = new Sentence(atLine(1));
  for (Statement *statement : statements)
    sentence->addStmt(statement);
  procedure->addSent(sentence);
  return procedure;
}

inline Paragraph *paragraph(llvm::StringRef name, const Statements &statements = {plain()}) {
  return fill(new Paragraph(atLine(1), word(name)), statements);
}

inline SourceUnit *sourceUnit(llvm::StringRef name, SourceUnit *parent = nullptr) {
  auto *id = new ProgramIdParagraph(atLine(1), word(name), ProgramIdType::None);
  auto *unit = new SourceUnit(atLine(1), new IdentificationDivision(atLine(1), id), parent);
  if (parent)
    parent->addNested(unit);
  return unit;
}

/// A compilation of one program.
struct Tree {
  Program program{"test.cbl"};
  SourceUnit *unit = sourceUnit("PROG");
  ProcedureDivision *division = new ProcedureDivision(atLine(1));
  CFGModule *module = nullptr;

  Tree() {
    program.addSourceUnit(unit);
    unit->setProcDivision(division);
  }
  /// A program of one sentence.
  explicit Tree(const Statements &statements) : Tree() { fill(division, statements); }

  Paragraph *add(Paragraph *added) {
    division->addPara(added);
    return added;
  }
  Section *add(llvm::StringRef section, const NodeList<Paragraph> &paragraphs) {
    auto *added = new Section(atLine(1), word(section));
    for (Paragraph *paragraph : paragraphs)
      added->addPara(paragraph);
    division->addSect(added);
    return added;
  }

  CFGFunc *build() {
    module = CFGBuilder().createModule(program);
    return module->getFuncList().front();
  }
};

/// One line a block: place, name, "*" for the start of a procedure, "!" for a terminator, the
/// statements, the links that are set.
inline std::string shapeOf(const CFGGraph *graph) {
  std::string text;
  llvm::raw_string_ostream os(text);
  for (const CFGBlock *block : graph->getBlockList()) {
    os << block->getPlace() << ' ' << block->getName()
       << (block->getBlockType() == CFGBlockType::Procedure ? "*" : "")
       << (block->getHaveTerminator() ? "!" : "");
    for (const CFGElem *element : block->getElements())
      os << " [" << (element->getStmt() ? verbOf(element->getStmt()->getType()) : "declaration")
         << ']';
    for (std::size_t link = 0; link < cfgLinkCount; ++link)
      if (const CFGBlock *target = block->getLink(static_cast<CFGLink>(link)))
        os << ' ' << cfgLinkNames[link] << '=' << target->getPlace();
    os << '\n';
  }
  return text;
}

/// The shape of the only program of a tree, without its first two blocks: "entry" and
/// "tkdummy_unnamed_sentence".
inline std::string shapeOf(const Statements &statements) {
  Tree tree(statements);
  std::string shape = shapeOf(tree.build()->getBody());
  return shape.substr(shape.find("1 tkdummy_unnamed_sentence"));
}

/// What the verifier has to say, a line for each failure.
inline std::string failuresOf(CFGModule &module) {
  std::string text;
  llvm::raw_string_ostream os(text);
  for (const CFGFailure &failure : verifyModule(module))
    os << failure << '\n';
  return text;
}

} // namespace tarka::test

#endif // TARKA_UNITTESTS_ANALYZER_CFGTREE_H
