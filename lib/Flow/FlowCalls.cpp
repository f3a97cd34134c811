//===- FlowCalls.cpp - the programs that identifiers name ------------------===//
//
// CALL WS-PROGRAM and LINK PROGRAM(WS-PROGRAM) name the VALUE of the item when no
// statement of the compilation changes it, which is how most programs name their
// constants.
//
//===----------------------------------------------------------------------===//

#include "AST/DataDescription.h"
#include "AST/Expression.h"
#include "Flow/Accesses.h"
#include "Flow/FlowBuilder.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// The text of the VALUE that \p item has when the program begins; empty where it is none or comes
/// from elsewhere.
llvm::StringRef initialText(const DataDescription &item) {
  const ClauseValue *value = item.getValue();
  if (!value || item.getStorageType() == StorageType::Linkage || item.getExternal() ||
      item.getRootDesc()->getExternal() || item.getOccurs() || item.getLevelNum() == 88)
    return {};
  if (value->getPhraseValElements().empty())
    return {};
  const auto *literal = llvm::dyn_cast_or_null<NonNumericLiteralExpression>(
      value->getPhraseValElements().front()->getLiteral1());
  return literal ? llvm::StringRef(literal->getData()).trim() : llvm::StringRef();
}

} // namespace

void findHeldPrograms(FlowModule &flow, llvm::MutableArrayRef<FlowCall> calls) {
  struct Candidate {
    const DataDescription *area;
    ByteSet bytes;
  };
  llvm::DenseMap<const DataDescription *, Candidate> candidates;
  const StorageAreas areas(flow);
  for (const FlowCall &call : calls)
    if (call.item && !initialText(*call.item).empty())
      candidates[call.item] = {areas.areaOf(*call.item), bytesOf(*call.item)};
  if (candidates.empty())
    return;
  // Few programs name many; those of one area are looked at together.
  llvm::DenseMap<const DataDescription *, llvm::SmallVector<const DataDescription *, 2>> ofArea;
  for (const auto &[item, candidate] : candidates)
    ofArea[candidate.area].push_back(item);
  for (const FlowNode &node : flow.nodes())
    forEachAccess(node, [&](const Access &access) {
      if (!isWritten(access.role))
        return;
      auto sharing = ofArea.find(areas.areaOf(*access.item));
      if (sharing == ofArea.end())
        return;
      const ByteSet written = access.bytes();
      llvm::erase_if(sharing->second, [&](const DataDescription *item) {
        return candidates.find(item)->second.bytes.overlaps(written);
      });
    });
  for (FlowCall &call : calls) {
    auto candidate = candidates.find(call.item);
    if (candidate == candidates.end())
      continue;
    auto left = ofArea.find(candidate->second.area);
    if (llvm::is_contained(left->second, call.item))
      call.value = initialText(*call.item);
  }
}

} // namespace tarka
