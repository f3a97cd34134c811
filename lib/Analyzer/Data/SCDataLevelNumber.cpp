//===- SCDataLevelNumber.cpp - level numbers and condition names --------===//
//
// The valid level numbers, how they nest, and the clauses that levels 66 and 88
// exclude. Condition names move from the children of their variable to its own list.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

bool isLevelNumber(unsigned level) {
  return (level >= 1 && level <= 49) || level == 66 || level == 77 || level == 88;
}

/// The clauses that neither a level 66 nor a level 88 can have.
bool hasClauseOfData(const DataDescription &entry) {
  return entry.getRedefines() || entry.getBlankZero() || entry.getExternal() || entry.getGlobal() ||
         entry.getJustified() || entry.getOccurs() || entry.getPicture() || entry.getSign() ||
         entry.getSynchronized() || entry.getUsage();
}

} // namespace

bool SemanticChecker::checkLevelNumber(DataDescription &entry) {
  bool ok = true;
  const unsigned level = entry.getLevelNum();
  if (!isLevelNumber(level))
    ok = report(ErrorCode::LevelNumberInvalid, &entry);
  if (level == 66 && (hasClauseOfData(entry) || entry.getValue()))
    ok = report(ErrorCode::Level66InvalidClause, &entry);
  if (level == 66 && entry.isGroupItem())
    ok = report(ErrorCode::LevelHierarchyIncorrect, &entry);
  // Index names have level 01 and the group of their table as parent.
  if (entry.getParent() && (level == 1 || level == 77 || level == 88) &&
      entry.getUsageType() != UsageType::Index)
    ok = report(ErrorCode::TopLevelHasParent, &entry);

  if (!entry.isGroupItem())
    return ok;
  // A later child may have a lower level than the first.
  const auto &children = entry.getChildrenElements();
  const unsigned first = children.front()->getLevelNum();
  auto isDeeper = [&](const DataDescription *child) {
    return child->getLevelNum() != 66 && child->getLevelNum() > first;
  };
  if (llvm::any_of(llvm::drop_begin(children), isDeeper))
    ok = report(ErrorCode::LevelHierarchyIncorrect, &entry);
  return ok;
}

/// Condition names move from the children of their conditional variable to a list of their own. If
/// one of them is wrong, all of them stay among the children as well and are checked there again.
bool SemanticChecker::check88LevelDataDescription(DataDescription &entry) {
  auto isConditionName = [](const DataDescription *child) { return child->getLevelNum() == 88; };
  if (llvm::none_of(entry.getChildrenElements(), isConditionName))
    return true;

  bool ok = true;
  std::list<DataDescription *> staying;
  for (DataDescription *child : entry.getChildrenElements()) {
    if (!isConditionName(child)) {
      staying.push_back(child);
    } else if (hasClauseOfData(*child) || child->getRenames() || !child->getValue()) {
      ok = report(ErrorCode::Level88InvalidClause, child);
    } else {
      entry.addCondNameChildren(child);
      child->setCondNameParent(&entry);
      child->removeParent();
      semanticCheck(*child);
    }
  }
  if (!ok)
    return false;
  std::list<DataDescription *> *children = nullptr;
  if (!staying.empty()) {
    children = makeList<DataDescription *>();
    children->swap(staying);
  }
  entry.setChildrenList(children);
  return true;
}

} // namespace tarka
