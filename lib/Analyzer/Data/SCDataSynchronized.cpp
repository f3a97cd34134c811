//===- SCDataSynchronized.cpp - alignment and slack bytes -----------------===//
//
// A SYNCHRONIZED item starts on the boundary of its usage. The checks insert an entry
// called SLACK-BYTES before it, and at the end of the occurrences of a table; the
// storage layout then places the item.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "Analyzer/Data/RecordAlignment.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/Support/MathExtras.h"
#include <algorithm>
#include <limits>

namespace tarka {

DataDescription *makeSlackEntry(unsigned level, std::int64_t bytes) {
  auto *slack = generate<DataDescription>(nullptr);
  slack->setLevelNum(level);
  slack->setDataName(generate<Word>(nullptr, "SLACK-BYTES", ""));
  auto *picture = generate<Word>(nullptr, "X(" + std::to_string(bytes) + ")", "");
  slack->setPicture(generate<ClausePicture>(nullptr, picture));
  slack->setUsage(generate<ClauseUsage>(nullptr, UsageType::Display));
  return slack;
}

int boundaryOf(const DataDescription &entry) {
  switch (entry.getUsageType()) {
  case UsageType::Binary:
  case UsageType::Comp:
  case UsageType::Comp4:
  case UsageType::Comp5: {
    // Items of ten digits and more are aligned on 4 as well.
    const ClausePicture *picture = entry.getPicture();
    return picture && picture->getDigitNum() >= 5 ? 4 : 2;
  }
  case UsageType::Comp1:
  case UsageType::Index:
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return 4;
  case UsageType::Comp2:
    return 8;
  default:
    return 0;
  }
}

int SemanticChecker::getSlackDivisor(DataDescription *entry) {
  const int boundary = boundaryOf(*entry);
  if (boundary == 0)
    report(ErrorCode::SynchronizedUsage, entry);
  return boundary;
}

DataDescription *SemanticChecker::createSlackBytes(DataDescription *item, std::int64_t offset) {
  const int boundary = getSlackDivisor(item);
  if (boundary == 0 || offset % boundary == 0)
    return nullptr;
  return makeSlackEntry(item->getLevelNum(), boundary - offset % boundary);
}

//===----------------------------------------------------------------------===//
// In front of an item
//===----------------------------------------------------------------------===//

/// Usages that have no boundary; SYNCHRONIZED has no effect there.
static bool needsNoAlignment(UsageType usage) {
  switch (usage) {
  case UsageType::Display:
  case UsageType::Display1:
  case UsageType::National:
  case UsageType::Comp3:
  case UsageType::PackedDecimal:
    return true;
  default:
    return false;
  }
}

bool SemanticChecker::checkClauseSynchronized(DataDescription &entry) {
  // The record is aligned as a whole, once its entries have been checked.
  if (followsEnterprise(EnterpriseRule::SlackBytes))
    return true;
  if (entry.getLevelNum() == 1 && entry.isGroupItem()) {
    // The children have been checked already: the clauses are for later stages.
    for (DataDescription *child : entry.getChildrenElements())
      child->setSynchronized(generate<ClauseSynchronized>(nullptr, nullptr));
    return true;
  }
  DataDescription *group = entry.getParent();
  if (!group || needsNoAlignment(entry.getUsageType()))
    return true;
  const std::int64_t offset = entry.getOffset();
  if (offset == 0)
    return true;
  DataDescription *slack = createSlackBytes(&entry, offset);
  if (!slack)
    return true;
  // A group starts where its first item does. Only one level is climbed; later stages rely
  // on it.
  const bool startsGroup = *group->getChildrenBegin() == &entry;
  if (startsGroup && group->getLevelNum() != 1 && group->getParent())
    group->getParent()->insertChildBefore(group, slack);
  else
    group->insertChildBefore(&entry, slack);
  return true;
}

//===----------------------------------------------------------------------===//
// At the end of an occurrence
//===----------------------------------------------------------------------===//

int SemanticChecker::getMaxOccursSyncSize(DataDescription *group) {
  int size = 0;
  for (DataDescription *child : group->getChildrenElements()) {
    // What a subgroup needs replaces what came before, even if that was more; later stages rely
    // on it.
    if (child->isGroupItem())
      size = getMaxOccursSyncSize(child);
    // Each of the two calls reports a usage without a boundary.
    if (child->getSynchronized() && getSlackDivisor(child) > size)
      size = getSlackDivisor(child);
  }
  return size;
}

bool SemanticChecker::addOccursSlackBytes(DataDescription &entry) {
  const int boundary = getMaxOccursSyncSize(&entry);
  // None of the SYNCHRONIZED items in the table may have a boundary.
  if (boundary == 0)
    return true;
  const std::int64_t rest = entry.getAllocSize() % boundary;
  if (rest == 0)
    return true;
  const DataDescription *last = entry.getChildrenElements().back();
  entry.addChildren(makeSlackEntry(last->getLevelNum(), boundary - rest));
  return true;
}

//===----------------------------------------------------------------------===//
// Sizes before an item
//===----------------------------------------------------------------------===//

bool SemanticChecker::getSyncAllocBytes(DataDescription *node, int *bytes,
                                        DataDescription *target) {
  if (node == target)
    return true;
  if (!node->isGroupItem()) {
    const std::int64_t size =
        std::min<std::int64_t>(node->getElemAllocSize(), std::numeric_limits<int>::max());
    if (llvm::AddOverflow(*bytes, static_cast<int>(size), *bytes))
      *bytes = std::numeric_limits<int>::max();
    return false;
  }
  for (DataDescription *child : node->getChildrenElements())
    if (getSyncAllocBytes(child, bytes, target))
      return true;
  return false;
}

} // namespace tarka
