//===- Program.cpp - source units -----------------------------------------===//

#include "AST/Program.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

/// Orders what is added to lists that are read together.
static std::uint64_t nextOrder() {
  static std::uint64_t order = 0;
  return order++;
}

void SourceUnit::addCallableList(const std::string &name) {
  callables.push_back({nextOrder(), &internString(name), nullptr});
}

void SourceUnit::addCommonNested(const SourceUnit &unit) {
  commonNested.push_back({nextOrder(), &unit.getSourceUnitName(), &unit});
}

const std::list<std::string> &SourceUnit::getCallableList() const {
  std::vector<Callable> all = callables;
  for (const SourceUnit *unit = this; unit->parent; unit = unit->parent)
    for (const Callable &common : unit->parent->commonNested)
      if (common.unit != unit)
        all.push_back(common);
  // What was added stays, so that a list that is as long is the same.
  if (all.size() != listedCallables) {
    llvm::sort(
        all, [](const Callable &left, const Callable &right) { return left.order < right.order; });
    callableList.clear();
    for (const Callable &callable : all)
      callableList.push_back(*callable.name);
    listedCallables = all.size();
  }
  return callableList;
}

} // namespace tarka
