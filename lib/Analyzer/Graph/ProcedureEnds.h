//===- ProcedureEnds.h - where procedures end in a graph --------*- C++ -*-===//
//
// The blocks of a function follow each other as in the source. These functions
// recognise the blocks that follow the last one of a paragraph or section.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_ANALYZER_GRAPH_PROCEDUREENDS_H
#define TARKA_LIB_ANALYZER_GRAPH_PROCEDUREENDS_H

#include "AST/Statement.h"
#include "Analyzer/CFG.h"
#include "llvm/Support/Casting.h"

namespace tarka {

/// Whether \p block belongs to its section as a whole, so that the paragraph before it is over.
inline bool endsParagraph(const CFGBlock *block) {
  if (block->getName() == "tkdummy_end_section")
    return true;
  if (block->getElements().empty() || !block->getElements().front()->getStmt())
    return false;
  auto *exit = llvm::dyn_cast<InnerExitStatement>(block->getElements().front()->getStmt());
  return exit && exit->getSection();
}

/// Whether \p block is outside all procedures and follows those before it.
inline bool endsSection(const CFGBlock *block) {
  return block->getName() == "tkdummy_end_declaratives" ||
         block->getName() == "tkdummy_rpt_declaratives_end";
}

} // namespace tarka

#endif // TARKA_LIB_ANALYZER_GRAPH_PROCEDUREENDS_H
