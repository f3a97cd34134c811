//===- FlowExec.cpp - what EXEC blocks do ----------------------------------===//
//
// Reads the words of an EXEC block: what it does to the flow of control, the
// labels that it names, and the items of the program that it works on.
//
//===----------------------------------------------------------------------===//

#include "Flow/Accesses.h"
#include "Flow/FlowBuilder.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

namespace {

/// The words of a block in upper case, with parentheses as words of their own. Literals are words
/// with their quotes.
llvm::SmallVector<std::string, 16> wordsOf(llvm::StringRef text) {
  llvm::SmallVector<std::string, 16> words;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    std::size_t end = at + 1;
    if (llvm::isSpace(c) || c == ',' || c == ';') {
      at = end;
      continue;
    }
    if (c == '\'' || c == '"')
      end =
          std::min(text.size(), text.find(c, end) == llvm::StringRef::npos ? text.size()
                                                                           : text.find(c, end) + 1);
    else if (c != '(' && c != ')')
      end = std::min(text.size(), text.find_first_of(" \t\r\n,;()'\"", end));
    words.push_back(text.slice(at, end).upper());
    at = end;
  }
  return words;
}

using Words = llvm::SmallVector<std::string, 16>;

/// The operands of HANDLE and IGNORE from \p at on: CONDITION(LABEL), or CONDITION alone.
void collectSettings(const Words &words, std::size_t at, HandlerKind kind, ExecFlow &effect) {
  for (; at < words.size(); ++at) {
    HandlerSetting setting = {kind, words[at], ""};
    if (at + 3 < words.size() && words[at + 1] == "(" && words[at + 3] == ")") {
      setting.label = words[at + 2];
      at += 3;
    }
    if (setting.condition != "NOHANDLE" && setting.condition != "(" && setting.condition != ")")
      effect.settings.push_back(std::move(setting));
  }
}

/// LABEL(NAME) is one setting of the one abend; CANCEL and PROGRAM(NAME) lead to no label.
void collectAbend(const Words &words, ExecFlow &effect) {
  HandlerSetting setting = {HandlerKind::Abend, "ABEND", ""};
  for (std::size_t at = 2; at < words.size(); ++at) {
    effect.resetsAbend |= words[at] == "RESET";
    if (words[at] == "LABEL" && at + 2 < words.size() && words[at + 1] == "(")
      setting.label = words[at + 2];
  }
  if (!effect.resetsAbend)
    effect.settings.push_back(std::move(setting));
}

void classifyCics(const Words &words, ExecFlow &effect) {
  const std::string &command = words[0];
  const bool asksForResponse = llvm::any_of(words, [](llvm::StringRef word) {
    return word == "NOHANDLE" || word == "RESP" || word == "RESP2";
  });
  if (command == "HANDLE" && words.size() > 1) {
    if (words[1] == "CONDITION")
      collectSettings(words, 2, HandlerKind::Condition, effect);
    else if (words[1] == "AID")
      collectSettings(words, 2, HandlerKind::Aid, effect);
    else if (words[1] == "ABEND")
      collectAbend(words, effect);
    return;
  }
  if (command == "IGNORE") {
    collectSettings(words, 2, HandlerKind::Condition, effect);
    return;
  }
  if (command == "PUSH" || command == "POP") {
    (command == "PUSH" ? effect.pushesHandlers : effect.popsHandlers) = true;
    return;
  }
  effect.mayAbend = true;
  effect.raisesCondition = !asksForResponse;
  effect.receivesKey = command == "RECEIVE";
  effect.endsTask = command == "RETURN" || command == "XCTL" || command == "ABEND";
  if (effect.endsTask)
    effect.goesOn = asksForResponse && command != "ABEND";
}

void classifySql(const Words &words, ExecFlow &effect) {
  if (words[0] != "WHENEVER") {
    effect.isSqlStatement = !llvm::StringSwitch<bool>(words[0])
                                 .Cases("DECLARE", "INCLUDE", "BEGIN", "END", true)
                                 .Default(false);
    return;
  }
  std::size_t at = 1;
  if (words.size() > 2 && words[1] == "NOT") {
    effect.wheneverKind = 0;
    at = 3;
  } else if (words.size() > 1) {
    effect.wheneverKind = words[1] == "SQLERROR" ? 1 : words[1] == "SQLWARNING" ? 2 : -1;
    at = 2;
  }
  const bool isGoTo = at < words.size() && (words[at] == "GO" || words[at] == "GOTO");
  if (isGoTo)
    effect.wheneverLabel = llvm::StringRef(words.back()).ltrim(':').str();
}

} // namespace

ExecFlow classifyExec(const ExecStatement &exec) {
  ExecFlow effect;
  const Words words = wordsOf(exec.getText());
  if (words.empty())
    return effect;
  if (exec.getType() == ExecType::Cics)
    classifyCics(words, effect);
  else if (exec.getType() == ExecType::Sql)
    classifySql(words, effect);
  return effect;
}

//===----------------------------------------------------------------------===//
// Items
//===----------------------------------------------------------------------===//

namespace {

using HostName = llvm::function_ref<void(llvm::StringRef, OperandRole)>;

/// Every option may be given a value and give one, but for those of which one is known.
OperandRole roleOfOption(llvm::StringRef option) {
  return llvm::StringSwitch<OperandRole>(option)
      .Cases("ABCODE", "CHANNEL", "FILE", "FROM", "FROMLENGTH", "INTERVAL", "MAP", "MAPSET",
             OperandRole::Read)
      .Cases("NUMREC", "PROGRAM", "QUEUE", "SYSID", "TERMID", "TIME", "TRANSID", OperandRole::Read)
      .Cases("INTO", "RESP", "RESP2", OperandRole::MayWrite)
      .Default(OperandRole::MayUpdate);
}

void namesOfCics(const Words &words, HostName visit) {
  if (!words.empty() && words[0] == "HANDLE")
    return; // Names labels.
  llvm::StringRef option;
  for (std::size_t at = 0; at < words.size(); ++at) {
    llvm::StringRef word = words[at];
    if (word == "(") {
      option = at > 0 ? llvm::StringRef(words[at - 1]) : "";
    } else if (word == ")") {
      option = "";
    } else if (!option.empty()) {
      visit(word, roleOfOption(option));
      // The map that is named is copied from and into the areas that bear its name.
      llvm::StringRef map = word.trim("'\"");
      if (option == "MAP" && map.size() < word.size()) {
        visit((map + "I").str(), OperandRole::MayWrite);
        visit((map + "O").str(), OperandRole::Read);
      }
    }
  }
  visit("DFHEIBLK", OperandRole::MayWrite);
}

void namesOfSql(llvm::StringRef text, const Words &words, HostName visit) {
  const bool mayChangeAll =
      !words.empty() && (words[0] == "SET" || words[0] == "CALL" || words[0] == "GET" ||
                         words[0] == "EXECUTE" || words[0] == "VALUES");
  // INTO names what is received up to the next clause.
  bool isInto = false;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    const bool isHost = c == ':';
    std::size_t end = at + 1;
    if (c == '\'' || c == '"') {
      end = std::min(text.find(c, end), text.size() - 1) + 1;
    } else if (isHost || llvm::isAlpha(c)) {
      end = std::min(text.find_if(
                         [](char one) {
                           return !llvm::isAlnum(one) && one != '-' && one != '_' && one != '.';
                         },
                         end),
                     text.size());
      llvm::StringRef word = text.slice(isHost ? at + 1 : at, end);
      if (!isHost)
        isInto = word.equals_insensitive("INTO") && words[0] != "INSERT";
      else
        visit(llvm::StringRef(word).rsplit('.').second.empty() ? word.upper()
                                                               : word.rsplit('.').second.upper(),
              mayChangeAll ? OperandRole::MayUpdate
              : isInto     ? OperandRole::MayWrite
                           : OperandRole::Read);
    }
    at = end;
  }
  visit("SQLCA", OperandRole::MayWrite);
}

} // namespace

void forEachHostName(const ExecStatement &exec, HostName visit) {
  const Words words = wordsOf(exec.getText());
  if (exec.getType() == ExecType::Sql)
    return namesOfSql(exec.getText(), words, visit);
  if (exec.getType() == ExecType::Cics)
    return namesOfCics(words, visit);
  for (const std::string &word : words)
    visit(word, OperandRole::MayUpdate);
}

} // namespace tarka
