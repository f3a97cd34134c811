//===- SCStmtGoto.cpp - GO TO ---------------------------------------------===//

#include "AST/Statement.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"

namespace tarka {

bool SemanticChecker::semanticCheck(GotoStatement &statement) {
  for (QualifiedWord *name : statement.getProcedureNameListElements()) {
    // No statement is given: the name stays as it is when the section is copied.
    Section *section = findSectionFromQualWord(name, nullptr);
    Paragraph *paragraph = section ? nullptr : findParagraphFromQualWord(name, &statement);
    if (!section && !paragraph)
      return false;
    statement.addProcedure(new GotoProcedure(section, paragraph));
  }
  bool ok = true;
  if (IdentifierExpression *depending = statement.getDependingName()) {
    ok &= semanticCheck(*depending);
    if (!holdsInteger(*depending))
      ok = report(ErrorCode::GoToDependingNotInteger, depending);
  }
  return ok;
}

} // namespace tarka
