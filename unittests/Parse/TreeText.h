//===- TreeText.h - the tree of a procedure division as text ----*- C++ -*-===//
//
// Prefix notation for tests:
//   expressions   A  A.G  T(I (+ J 1))  X[1:2]  (+ A (* B C))  (neg A)  'text'  MAX{A B}
//   objects in parentheses                      {B (or C) (or w> D)}
//   conditions    (= A B)  (and c d)  (not c)  (is A numeric)  name:EOF  switch:UPSI-ON
//   a relation without its subject              (_ = B), (_ w= B) with its operator written
//   statements    (if c then (...) else (...))  (perform P thru Q times 3) ...
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_UNITTESTS_PARSE_TREETEXT_H
#define TARKA_UNITTESTS_PARSE_TREETEXT_H

#include "AST/Condition.h"
#include "AST/Procedure.h"
#include "AST/Statement.h"
#include <string>

namespace tarka {

std::string textOf(const Expression *expression);
std::string textOf(const Condition *condition);
/// Statements of the branch family in full, of all others the kind.
std::string textOf(Statement *statement);
std::string textOf(const std::list<Statement *> &statements);
/// Sentences as [...], paragraphs as P: ..., sections as S SECTION ...
std::string textOf(ProcedureDivision &division);

} // namespace tarka

#endif // TARKA_UNITTESTS_PARSE_TREETEXT_H
