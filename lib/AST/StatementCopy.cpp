//===- StatementCopy.cpp - statements of a copied section -----------------===//

#include "AST/StatementCopy.h"
#include "AST/NestedStatements.h"

namespace tarka {

namespace {

/// Copies the parts that a statement shares with its original after the node itself was copied.
/// What the checks and the graph builder set in a statement is cleared, to be set in the copy.
class CopyParts : public StatementVisitor<CopyParts> {
public:
  void visitAlterStatement(AlterStatement &copy) {
    for (auto item = copy.getAlterListBegin(); item != copy.getAlterListEnd(); ++item)
      *item = new AlterItem(*item, (*item)->getSrcProcName(), (*item)->getDstProcName());
  }
  void visitGotoStatement(GotoStatement &copy) { copy.forgetProcedures(); }
  void visitPerformStatement(PerformStatement &copy) {
    if (PerformProcedure *names = copy.getProcedureName())
      copy.setProcedureName(
          new PerformProcedure(names, names->getProcedureName1(), names->getProcedureName2()));
  }
  void visitSortStatement(SortStatement &copy) { copyProcedures(copy); }
  void visitMergeStatement(MergeStatement &copy) { copyProcedures(copy); }
  void visitXMLParseStatement(XMLParseStatement &copy) {
    static_cast<ProcedureRange &>(copy) = ProcedureRange();
  }

private:
  template <typename SortOrMerge> void copyProcedures(SortOrMerge &copy) {
    copy.setInput(copyOf(copy.getInput()));
    copy.setOutput(copyOf(copy.getOutput()));
  }
  static SortIO *copyOf(SortIO *original) {
    if (!original)
      return nullptr;
    auto *copy = new SortIO(*original);
    copy->getProcedures() = ProcedureRange();
    return copy;
  }
};

/// A copy of the node itself.
class CopyNode : public StatementVisitor<CopyNode, Statement *> {
public:
#define TARKA_STATEMENT(Kind, Number, Class, Verb)                                                 \
  Statement *visit##Class(Class &original) { return new Class(original); }
#include "AST/Statements.def"

  Statement *visitStatement(Statement &original) { return &original; }
};

} // namespace

Statement *copyStatement(Statement *original) {
  Statement *copy = CopyNode().visit(*original);
  CopyParts().visit(*copy);
  forEachNestedPart(*copy, [](auto parts) {
    for (auto &part : parts) {
      if constexpr (std::is_same_v<decltype(parts), NodeRange<Statement>>) {
        part = copyStatement(part);
      } else {
        part = new std::remove_reference_t<decltype(*part)>(*part);
        for (Statement *&statement : statementsOf(*part))
          statement = copyStatement(statement);
      }
    }
  });
  return copy;
}

} // namespace tarka
