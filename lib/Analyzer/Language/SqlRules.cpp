//===- SqlRules.cpp - the rules of EXEC SQL -------------------------------===//

#include "SqlRules.h"
#include "AST/DataDescription.h"
#include "AST/Spelling.h"
#include "AST/Usage.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "EmbeddedRules.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// Why DB2 cannot use \p entry as a host variable; empty when it can. Groups are host structures or
/// strings of varying length.
llvm::StringRef faultOf(const DataDescription &entry) {
  if (isConditionName(entry))
    return "a condition-name";
  switch (entry.getUsageType()) {
  case UsageType::Index:
    return "an index";
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return "a pointer";
  default:
    break;
  }
  switch (entry.getDataCategory()) {
  case DataCategory::NumericEdited:
  case DataCategory::AlphanumericEdited:
    return "an edited item";
  default:
    return "";
  }
}

bool isHalfwordInteger(const DataDescription &entry) {
  const ClausePicture *picture = entry.getPicture();
  return isBinary(entry.getUsageType()) && picture && picture->getScale() == 0 &&
         picture->getDigitNum() <= 4;
}

/// How many values \p entry holds: 1 for an elementary item and a string of varying length, whose
/// parts have level 49; for a structure as many as its members. 0 when it is not certain.
unsigned countValues(const DataDescription &entry) {
  if (!entry.isGroupItem())
    return 1;
  const std::list<DataDescription *> &members = entry.getChildrenElements();
  if (llvm::all_of(members, [](const DataDescription *m) { return m->getLevelNum() == 49; }))
    return 1;
  unsigned values = 0;
  for (const DataDescription *member : members) {
    const unsigned inner = countValues(*member);
    if (inner == 0 || member->getOccurs() || member->getRedefines() || !member->getDataName())
      return 0;
    values += inner;
  }
  return values;
}

/// The name without quotes, by which it is looked up.
llvm::StringRef keyOf(const Word &name) {
  return withoutQuotes(name.getWordData());
}

/// The one table of a query or statement with \p access, without its qualifier; empty when there
/// are several or none.
llvm::StringRef onlyTable(const SqlCommand &command, TableAccess access) {
  llvm::StringRef only;
  for (const SqlTableUse *table : command.getTableElements()) {
    if (table->getAccess() != access)
      continue;
    if (!only.empty())
      return {};
    only = llvm::StringRef(table->getTable()).rsplit('.').second;
    if (only.empty())
      only = table->getTable();
  }
  return only;
}

llvm::StringRef nearestIn(const llvm::StringMap<SqlCommand *> &names, llvm::StringRef name) {
  // Of equally near ones the first in the alphabet: the map has no order.
  llvm::SmallVector<llvm::StringRef, 8> sorted(names.keys());
  llvm::sort(sorted);
  SpellingMatch match(name);
  for (llvm::StringRef candidate : sorted)
    match.consider(candidate);
  return match.getNearest();
}

} // namespace

void SqlCheck::check(SqlCommand &command) {
  statements.push_back({&command, report.getUnit()});
  checkHostVariables(command);
  const SqlKind kind = command.getKind();
  if (Word *cursor = command.getCursor();
      cursor && (kind == SqlKind::DeclareCursor || kind == SqlKind::Allocate)) {
    auto [known, isNew] = cursors.try_emplace(keyOf(*cursor), &command);
    if (!isNew && kind == SqlKind::DeclareCursor)
      if (ErrorEntry *entry = report.report(LanguageRule::SqlCursorDeclaredTwice, *cursor,
                                            cursor->getDisplayName()))
        entry->addNote("first declared here", *known->second->getCursor());
  }
  if (kind == SqlKind::Prepare && command.getStatementName())
    prepared.try_emplace(keyOf(*command.getStatementName()), &command);
  if (kind == SqlKind::Select)
    checkCount(command, command.getColumnCount(), "SELECT");
  else if (command.getName() == "VALUES")
    checkCount(command, command.getColumnCount(), "VALUES");
}

void SqlCheck::checkHostVariables(SqlCommand &command) {
  for (EmbeddedOperand *operand : command.getOperandElements()) {
    Expression *value = operand->getValue();
    const DataDescription *entry = value ? entryOfDataIdentifier(*value) : nullptr;
    if (!entry || !entry->getDataName())
      continue;
    const std::string &name = entry->getDataName()->getDisplayName();
    if (llvm::StringRef fault = faultOf(*entry); !fault.empty())
      report.report(LanguageRule::SqlHostVariableType, *value, name, fault);
    else if (operand->getName() == "INDICATOR" && !entry->isGroupItem() &&
             entry->getDataCategory() != DataCategory::Unclassified && !isHalfwordInteger(*entry))
      report.report(LanguageRule::SqlIndicatorType, *value, name);
  }
}

void SqlCheck::finish() {
  for (auto [command, unit] : statements) {
    report.setUnit(*unit);
    checkCursor(*command);
    checkPrepared(*command);
  }
}

/// A cursor that is used is declared, FETCH takes as many values as it gives, and a positioned
/// statement changes the table that it reads.
void SqlCheck::checkCursor(SqlCommand &command) {
  Word *cursor = command.getCursor();
  if (!cursor || command.getKind() == SqlKind::DeclareCursor ||
      command.getKind() == SqlKind::Allocate)
    return;
  auto declared = cursors.find(keyOf(*cursor));
  if (declared == cursors.end()) {
    if (!report.isTreeIncomplete() && reportedCursors.insert(keyOf(*cursor)).second)
      report.report(LanguageRule::SqlCursorUndeclared, *cursor, cursor->getDisplayName(),
                    suggestion(nearestIn(cursors, keyOf(*cursor))));
    return;
  }
  SqlCommand &declaration = *declared->second;
  if (command.getKind() == SqlKind::Fetch)
    return checkCount(command, declaration.getColumnCount(), "cursor");
  const bool isUpdate = command.getKind() == SqlKind::Update;
  if (!isUpdate && command.getKind() != SqlKind::Delete)
    return;
  llvm::StringRef changed =
      onlyTable(command, isUpdate ? TableAccess::Update : TableAccess::Delete);
  llvm::StringRef queried = onlyTable(declaration, TableAccess::Read);
  if (!changed.empty() && !queried.empty() && changed != queried)
    report.report(LanguageRule::SqlCursorTable, *cursor, cursor->getDisplayName(), queried,
                  changed);
}

/// The number of host variables after INTO is that of the columns.
void SqlCheck::checkCount(SqlCommand &command, unsigned columns, llvm::StringRef what) {
  if (columns == 0)
    return;
  unsigned values = 0;
  EmbeddedOperand *first = nullptr;
  for (EmbeddedOperand *operand : command.getOperandElements()) {
    if (operand->getName() != "INTO")
      continue;
    const DataDescription *entry =
        operand->getValue() ? entryOfDataIdentifier(*operand->getValue()) : nullptr;
    const unsigned count = entry ? countValues(*entry) : 0;
    if (count == 0)
      return;
    values += count;
    if (!first)
      first = operand;
  }
  if (first && values != columns)
    report.report(LanguageRule::SqlIntoCount, *first, countOf(values, "host variable"), what,
                  countOf(columns, "column"));
}

/// What is executed, described or opened has been prepared.
void SqlCheck::checkPrepared(SqlCommand &command) {
  Word *name = command.getStatementName();
  if (!name || command.getKind() == SqlKind::Prepare || report.isTreeIncomplete() ||
      prepared.contains(keyOf(*name)) || !reportedStatements.insert(keyOf(*name)).second)
    return;
  report.report(LanguageRule::SqlStatementNotPrepared, *name, name->getDisplayName(),
                suggestion(nearestIn(prepared, keyOf(*name))));
}

} // namespace tarka
