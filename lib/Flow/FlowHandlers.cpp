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

/// A setting that leads to a label, or lets the command go on.
struct Setting {
  std::uint32_t node;
  HandlerSetting what;
  std::uint32_t label; ///< noFlow for IGNORE
};

} // namespace

static void findIn(const FlowGraph &graph, ActiveHandlers &active, const FlowBuilder &builder) {
  const FlowModule &flow = graph.getModule();
  std::vector<Command> commands;
  std::vector<Setting> settings;
  for (const FlowNode &node : graph.nodes()) {
    const auto *exec = llvm::dyn_cast_or_null<ExecStatement>(node.getStatement());
    if (!exec || !node.isReached())
      continue;
    commands.push_back({node.getId(), exec, classifyExec(*exec)});
    for (const HandlerSetting &setting : commands.back().effect.settings) {
      const std::uint32_t label =
          setting.label ? builder.findProcedure(graph, *setting.label) : noFlow;
      if (label != noFlow || setting.isIgnored)
        settings.push_back({node.getId(), setting, setting.isIgnored ? noFlow : label});
    }
  }
  if (settings.empty())
    return;

  llvm::StringMap<llvm::SmallVector<unsigned, 4>> settingsOf; // by condition
  for (unsigned number = 0; number < settings.size(); ++number)
    settingsOf[settings[number].what.condition].push_back(number);
  auto forAll = [&](llvm::StringRef condition, HandlerKind kind, auto visit) {
    for (unsigned number : settingsOf.lookup(condition))
      if (settings[number].what.kind == kind)
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
  // CICS takes an abend exit away as it enters it, so that an abend in there does not come back.
  for (std::uint32_t node : builder.abendHandlers())
    if (flow.node(node).getParent() == &graph)
      forAll("ABEND", HandlerKind::Abend, [&](unsigned number) { holding.kill(node, number); });
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
    llvm::SmallVector<std::uint32_t, 4> &labels = active.labels[command.exec];
    for (unsigned number : before.set_bits()) {
      if (!command.effect.mayEnter(settings[number].what))
        continue;
      if (settings[number].label != noFlow)
        labels.push_back(settings[number].label);
      else
        active.ignoring.insert(command.exec);
    }
    llvm::sort(labels);
    labels.erase(std::unique(labels.begin(), labels.end()), labels.end());
  }
}

ActiveHandlers findActiveHandlers(const FlowModule &flow, const FlowBuilder &builder) {
  ActiveHandlers active;
  for (const auto &graph : flow.graphs())
    findIn(*graph, active, builder);
  return active;
}

} // namespace tarka
