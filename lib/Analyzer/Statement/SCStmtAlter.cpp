//===- SCStmtAlter.cpp - ALTER --------------------------------------------===//

#include "AST/Procedure.h"
#include "AST/Statement.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

/// False when the rest of the statement is not checked.
static bool resolveItem(SemanticChecker &checker, AlterItem &item, AlterStatement &statement) {
  if (Paragraph *source = checker.findParagraphFromQualWord(item.getSrcProcName(), &statement)) {
    if (source->getSentSize() != 1 || source->getSentElements().front()->getStmtSize() != 1)
      return checker.report(ErrorCode::AlterTargetNotGoTo, item.getSrcProcName());
    // The message of another rule: later stages know this fault by its number.
    if (!llvm::isa<GotoStatement>(source->getSentElements().front()->getStmtElements().front()))
      return checker.report(ErrorCode::AlphabetLiteralKind, item.getSrcProcName());
    item.setSrcParagraph(source);
  } else {
    checker.report(ErrorCode::AlterTargetNotGoTo, item.getSrcProcName());
  }

  if (Section *section = checker.findSectionFromQualWord(item.getDstProcName(), nullptr))
    item.setDstSection(section);
  else
    item.setDstParagraph(checker.findParagraphFromQualWord(item.getDstProcName(), &statement));
  return item.getDstSection() || item.getDstParagraph();
}

/// ALTER never passes, even when nothing is wrong with it: a program whose branches change at run
/// time must not reach later stages.
bool SemanticChecker::semanticCheck(AlterStatement &statement) {
  for (AlterItem *item : statement.getAlterListElements())
    if (!resolveItem(*this, *item, statement))
      break;
  return false;
}

} // namespace tarka
