//===- FlowHandlers.cpp - which labels of HANDLE are active ----------------===//
//
// A HANDLE command holds from where it runs until another one names the same
// condition. A data-flow problem: the facts are the settings of HANDLE commands,
// a command that sets a condition kills the other settings of it.
//
//===----------------------------------------------------------------------===//

#include "Flow/DataFlow.h"
#include "Flow/FlowBuilder.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringMap.h"

namespace tarka {

namespace {

/// An EXEC block that control comes to.
struct Command {
  std::uint32_t node;
  const ExecStatement *exec;
  ExecFlow effect;
};

/// A setting that leads to a label.
struct Setting {
  std::uint32_t node;
  HandlerKind kind;
  std::string condition;
  std::uint32_t label;
};

} // namespace

static void
findIn(const FlowGraph &graph, ActiveHandlers &active,
       llvm::function_ref<std::uint32_t(const FlowGraph &, llvm::StringRef)> findLabel) {
  std::vector<Command> commands;
  std::vector<Setting> settings;
  for (const FlowNode &node : graph.nodes()) {
    const auto *exec = llvm::dyn_cast_or_null<ExecStatement>(node.getStatement());
    if (!exec || !node.isReached())
      continue;
    commands.push_back({node.getId(), exec, classifyExec(*exec)});
    for (const HandlerSetting &setting : commands.back().effect.settings)
      if (const std::uint32_t label = findLabel(graph, setting.label); label != noFlow)
        settings.push_back({node.getId(), setting.kind, setting.condition, label});
  }
  if (settings.empty())
    return;

  llvm::StringMap<llvm::SmallVector<unsigned, 4>> settingsOf; // by condition
  for (unsigned number = 0; number < settings.size(); ++number)
    settingsOf[settings[number].condition].push_back(number);
  auto forAll = [&](const std::string &condition, HandlerKind kind, auto visit) {
    for (unsigned number : settingsOf.lookup(condition))
      if (settings[number].kind == kind)
        visit(number);
  };

  DataFlow holding(graph, FlowDirection::Forward, static_cast<unsigned>(settings.size()));
  for (const Command &command : commands) {
    for (const HandlerSetting &setting : command.effect.settings)
      forAll(setting.condition, setting.kind, [&](unsigned number) {
        holding.kill(command.node, number);
        if (settings[number].node == command.node)
          holding.generate(command.node, number);
      });
    if (command.effect.resetsAbend)
      forAll("ABEND", HandlerKind::Abend,
             [&](unsigned number) { holding.generate(command.node, number); });
    for (unsigned number = 0; command.effect.pushesHandlers && number < settings.size(); ++number)
      holding.kill(command.node, number);
  }
  // POP brings back what some PUSH has set aside, which may be what another POP has brought back.
  llvm::BitVector pushed(static_cast<unsigned>(settings.size()));
  for (bool isMore = true; isMore;) {
    isMore = false;
    for (const Command &command : commands)
      for (unsigned number : pushed.set_bits())
        if (command.effect.popsHandlers)
          holding.generate(command.node, number);
    holding.solve();
    for (const Command &command : commands)
      if (command.effect.pushesHandlers && holding.before(command.node).test(pushed)) {
        pushed |= holding.before(command.node);
        isMore = true;
      }
  }

  for (const Command &command : commands) {
    const llvm::BitVector before = holding.before(command.node);
    if (before.none())
      continue;
    // A section that is copied into the declaratives shares its statements with the copy.
    llvm::SmallVector<std::uint32_t, 4> &labels = active[command.exec];
    for (unsigned number : before.set_bits())
      if (command.effect.mayEnter(settings[number].kind))
        labels.push_back(settings[number].label);
    llvm::sort(labels);
    labels.erase(std::unique(labels.begin(), labels.end()), labels.end());
  }
}

ActiveHandlers findActiveHandlers(
    const FlowModule &flow,
    llvm::function_ref<std::uint32_t(const FlowGraph &, llvm::StringRef)> findLabel) {
  ActiveHandlers active;
  for (const auto &graph : flow.graphs())
    findIn(*graph, active, findLabel);
  return active;
}

} // namespace tarka
