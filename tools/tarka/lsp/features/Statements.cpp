//===- Statements.cpp - all statements of a program -----------------------===//

#include "lsp/features/Statements.h"
#include "AST/NestedStatements.h"

namespace tarka::lsp {

namespace {

class StatementWalk {
public:
  explicit StatementWalk(llvm::function_ref<void(Statement &)> visitor) : visit(visitor) {}

  void walk(SourceUnit &unit) {
    for (ExecStatement *block : unit.getDataBlockElements())
      walk(*block);
    if (ProcedureDivision *division = unit.getProcDivision()) {
      for (Declaratives *declarative : division->getDeclElements())
        walk(*declarative->getSection());
      walk(division->getSentElements());
      for (Paragraph *paragraph : division->getParaElements())
        walk(paragraph->getSentElements());
      for (Section *section : division->getSectElements())
        walk(*section);
    }
    for (SourceUnit *nested : unit.getNestedListElements())
      walk(*nested);
  }

private:
  void walk(Section &section) {
    walk(section.getSentElements());
    for (Paragraph *paragraph : section.getParaElements())
      walk(paragraph->getSentElements());
  }
  void walk(const NodeList<Sentence> &sentences) {
    for (Sentence *sentence : sentences)
      for (Statement *statement : sentence->getStmtElements())
        walk(*statement);
  }
  void walk(Statement &statement) {
    if (!statement.isWritten())
      return;
    visit(statement);
    forEachNestedList(statement, [&](NodeRange<Statement> list) {
      for (Statement *nested : list)
        walk(*nested);
    });
  }

  llvm::function_ref<void(Statement &)> visit;
};

} // namespace

void forEachStatement(Program &program, llvm::function_ref<void(Statement &)> visit) {
  for (SourceUnit *unit : program.getSourceUnitListElements())
    StatementWalk(visit).walk(*unit);
}

} // namespace tarka::lsp
