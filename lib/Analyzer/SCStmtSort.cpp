//===- SCStmtSort.cpp - SORT, MERGE, RELEASE and RETURN -------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "OperandCheck.h"

namespace tarka {

/// The records of a sort file come as from a file that is open for input.
bool SemanticChecker::semanticCheck(ReturnStatement &statement) {
  bool result = OperandCheck(*this)
                    .one(statement.getFileName())
                    .one(statement.getIntoIdentifier())
                    .all(statement.getEndHandlerElements());
  if (!statement.getEndHandlerSize())
    markDeclaratives(statement, describedBy(statement.getFileName()), UseFileMode::Input);
  return result;
}

/// The records of a sort file go as to a file that is open for output.
bool SemanticChecker::semanticCheck(ReleaseStatement &statement) {
  bool result =
      OperandCheck(*this).one(statement.getRecordName()).one(statement.getFromIdentifier());
  markDeclaratives(statement, statement.getRecordName(), UseFileMode::Output);
  return result;
}

/// An input or output procedure is run like a performed range.
bool SemanticChecker::checkSortIO(SortIO *phrase, Statement &statement) {
  if (!phrase)
    return true;
  if (phrase->getType() == SortIOType::Procedure)
    return resolveRange(phrase->getProcedures(), phrase->getFromProcedureName(),
                        phrase->getToProcedureName(), statement);
  return OperandCheck(*this).all(phrase->getFileNameListElements());
}

/// What SORT and MERGE have in common: the file, its keys, and where records come from and go to.
template <typename SortOrMerge>
bool SemanticChecker::checkSort(SortOrMerge &statement, const std::list<SortKey *> &keys) {
  OperandCheck check(*this);
  check.one(statement.getFileName());
  for (SortKey *key : keys)
    check.all(key->getKeyNameListElements());
  bool result = check;
  result &= checkSortIO(statement.getInput(), statement);
  result &= checkSortIO(statement.getOutput(), statement);
  return result;
}

bool SemanticChecker::semanticCheck(SortStatement &statement) {
  return checkSort(statement, statement.getKeyListElements());
}

bool SemanticChecker::semanticCheck(MergeStatement &statement) {
  return checkSort(statement, statement.getKeySeqElements());
}

} // namespace tarka
