//===- FlowExec.cpp - what EXEC blocks do to the flow of control -----------===//
//
// Which commands end the task, raise conditions and enter handlers, and the labels
// that HANDLE and WHENEVER name.
//
//===----------------------------------------------------------------------===//

#include "AST/Embedded.h"
#include "Flow/FlowBuilder.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// The labels among the operands of HANDLE.
void collectLabels(const EmbeddedCommand &command, llvm::SmallVectorImpl<std::string> &labels) {
  for (const EmbeddedOperand *operand : command.getOperandElements())
    if (operand->getRole() == EmbeddedRole::Label && operand->getWord())
      labels.push_back(operand->getWord()->getWordData());
}

void classifyCics(const EmbeddedCommand &command, ExecFlow &effect) {
  llvm::StringRef name = command.getName();
  const auto [verb, rest] = name.split(' ');
  if (verb == "HANDLE") {
    if (rest == "CONDITION")
      collectLabels(command, effect.conditionLabels);
    else if (rest == "AID")
      collectLabels(command, effect.aidLabels);
    else if (rest == "ABEND")
      collectLabels(command, effect.abendLabels);
    return;
  }
  if (verb == "IGNORE" || verb == "PUSH" || verb == "POP")
    return;
  const bool asksForResponse =
      command.has("NOHANDLE") || command.has("RESP") || command.has("RESP2");
  effect.mayAbend = true;
  effect.raisesCondition = !asksForResponse;
  // RESP and NOHANDLE suspend HANDLE AID as well.
  effect.receivesKey = verb == "RECEIVE" && !asksForResponse;
  effect.endsTask = verb == "RETURN" || verb == "XCTL" || verb == "ABEND";
  if (effect.endsTask)
    effect.goesOn = asksForResponse && verb != "ABEND";
}

void classifySql(const SqlCommand &command, ExecFlow &effect) {
  effect.isSqlStatement = command.isExecutable();
  switch (command.getWhenever()) {
  case WheneverCondition::None:
    return;
  case WheneverCondition::NotFound:
    effect.wheneverKind = 0;
    break;
  case WheneverCondition::SqlError:
    effect.wheneverKind = 1;
    break;
  case WheneverCondition::SqlWarning:
    effect.wheneverKind = 2;
    break;
  }
  if (const Word *label = command.getLabel())
    effect.wheneverLabel = label->getWordData();
}

} // namespace

ExecFlow classifyExec(const ExecStatement &exec) {
  ExecFlow effect;
  const EmbeddedCommand *command = exec.getCommand();
  if (!command)
    return effect;
  if (command->getLanguage() == ExecType::Cics)
    classifyCics(*command, effect);
  else if (const auto *sql = llvm::dyn_cast<SqlCommand>(command))
    classifySql(*sql, effect);
  return effect;
}

} // namespace tarka
