//===- FlowExec.cpp - what EXEC blocks do to the flow of control -----------===//
//
// Reads the command of an EXEC block as the parser has understood it: whether it
// ends the task, which labels it sets, which events it may raise, and which
// programs it names.
//
//===----------------------------------------------------------------------===//

#include "AST/CicsCommands.h"
#include "AST/Embedded.h"
#include "AST/Expression.h"
#include "Flow/FlowBuilder.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

namespace {

/// The first word of the command.
llvm::StringRef verbOf(const EmbeddedCommand &command) {
  return llvm::StringRef(command.getName()).split(' ').first;
}

/// The options that every command can have; RESP2 alone asks for nothing.
bool asksForResponse(const EmbeddedCommand &command) {
  return command.has("RESP") || command.has("NOHANDLE");
}

/// The operands of HANDLE CONDITION, HANDLE AID and IGNORE CONDITION: each sets one condition or
/// key.
void collectSettings(const CicsCommand &command, HandlerKind kind, ExecFlow &effect) {
  const bool ignores = verbOf(command) == "IGNORE";
  for (EmbeddedOperand *operand : command.getOperandElements()) {
    llvm::StringRef name = operand->getName();
    const bool isOption = llvm::StringSwitch<bool>(name)
                              .Cases("", "CONDITION", "AID", "NOHANDLE", "RESP", "RESP2", true)
                              .Default(false);
    if (!isOption)
      effect.settings.push_back({kind, name, operand, ignores});
  }
}

/// HANDLE ABEND sets the one abend exit. CANCEL and PROGRAM lead to no label of the program, RESET
/// brings back the exit of before.
void collectAbend(const CicsCommand &command, ExecFlow &effect) {
  effect.resetsAbend = command.has("RESET");
  if (!effect.resetsAbend)
    effect.settings.push_back(
        {HandlerKind::Abend, "ABEND", command.find("LABEL"), /*isIgnored=*/false});
}

/// The program or transaction that the option names.
void addCall(const CicsCommand &command, llvm::StringRef option, FlowCallKind kind,
             ExecFlow &effect) {
  const EmbeddedOperand *operand = command.find(option);
  if (!operand || !operand->getValue())
    return;
  effect.callKind = kind;
  effect.callee = operand->getValue();
}

void classifyCics(const CicsCommand &command, ExecFlow &effect) {
  llvm::StringRef verb = verbOf(command);
  if (verb == "HANDLE" && command.has("CONDITION"))
    return collectSettings(command, HandlerKind::Condition, effect);
  if (verb == "HANDLE" && command.has("AID"))
    return collectSettings(command, HandlerKind::Aid, effect);
  if (verb == "HANDLE" && command.has("ABEND"))
    return collectAbend(command, effect);
  if (verb == "IGNORE")
    return collectSettings(command, HandlerKind::Condition, effect);
  effect.pushesHandlers = verb == "PUSH";
  effect.popsHandlers = verb == "POP";
  if (effect.pushesHandlers || effect.popsHandlers)
    return;

  if (verb == "LINK" || verb == "XCTL")
    addCall(command, "PROGRAM", verb == "LINK" ? FlowCallKind::Link : FlowCallKind::Transfer,
            effect);
  else if (verb == "START" || verb == "RETURN")
    addCall(command, "TRANSID", verb == "START" ? FlowCallKind::Start : FlowCallKind::Return,
            effect);
  effect.endsTask = verb == "RETURN" || verb == "XCTL" || verb == "ABEND";
  effect.goesOn = !effect.endsTask || (asksForResponse(command) && verb != "ABEND");
  // ABEND CANCEL does without the abend exits; ABEND raises no condition.
  effect.mayAbend = verb != "ABEND" || !command.has("CANCEL");
  effect.raisesCondition = verb != "ABEND" && !asksForResponse(command);
  // Keys are of no effect where the program deals with the response itself.
  effect.receivesKey = (verb == "RECEIVE" || verb == "CONVERSE") && !asksForResponse(command);
  effect.cics = command.getInfo();
}

/// Whether SQLCODE may be 100 after the statement: it looks for rows, or may be any statement.
bool mayFindNothing(const SqlCommand &command) {
  switch (command.getKind()) {
  case SqlKind::Open:
  case SqlKind::Close:
  case SqlKind::Prepare:
  case SqlKind::Describe:
  case SqlKind::Allocate:
    return false;
  default:
    return !llvm::StringSwitch<bool>(command.getName())
                .Cases("COMMIT", "ROLLBACK", "SAVEPOINT", "RELEASE", "CONNECT", "LOCK", true)
                .Cases("ASSOCIATE", "HOLD", "FREE", "SET", "GRANT", "REVOKE", "CREATE", true)
                .Cases("ALTER", "DROP", "COMMENT", "LABEL", "RENAME", "EXPLAIN", "SIGNAL", true)
                .Default(false);
  }
}

void classifySql(const SqlCommand &command, ExecFlow &effect) {
  if (!command.isExecutable())
    return;
  for (WheneverCondition condition :
       {WheneverCondition::NotFound, WheneverCondition::SqlError, WheneverCondition::SqlWarning}) {
    if (condition == WheneverCondition::NotFound && !mayFindNothing(command))
      continue;
    const SqlCommand *whenever = command.getWheneverFor(condition);
    if (const EmbeddedOperand *label = whenever ? whenever->getLabel() : nullptr)
      effect.wheneverLabels.push_back(label);
  }
}

} // namespace

ExecFlow classifyExec(const ExecStatement &exec) {
  ExecFlow effect;
  const EmbeddedCommand *command = exec.getCommand();
  if (!command)
    return effect;
  if (const auto *cics = llvm::dyn_cast<CicsCommand>(command))
    classifyCics(*cics, effect);
  else if (const auto *sql = llvm::dyn_cast<SqlCommand>(command))
    classifySql(*sql, effect);
  return effect;
}

bool ExecFlow::mayEnter(const HandlerSetting &setting) const {
  switch (setting.kind) {
  case HandlerKind::Condition:
    return raisesCondition && (!cics || mayRaise(*cics, setting.condition));
  case HandlerKind::Aid:
    return receivesKey;
  case HandlerKind::Abend:
    return mayAbend;
  }
  return false;
}

} // namespace tarka
