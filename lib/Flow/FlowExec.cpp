//===- FlowExec.cpp - what EXEC blocks do to the flow of control -----------===//
//
// Reads the first words of an EXEC block, and the labels that it names.
//
//===----------------------------------------------------------------------===//

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

/// The labels in the parentheses behind the options: CONDITION(LABEL). Those of \p only, when it is
/// not empty.
void collectLabels(const Words &words, llvm::StringRef only,
                   llvm::SmallVectorImpl<std::string> &labels) {
  for (std::size_t at = 2; at + 3 < words.size(); ++at)
    if (words[at + 1] == "(" && words[at + 3] == ")" && (only.empty() || words[at] == only))
      labels.push_back(words[at + 2]);
}

void classifyCics(const Words &words, ExecFlow &effect) {
  const std::string &command = words[0];
  const bool asksForResponse = llvm::any_of(words, [](llvm::StringRef word) {
    return word == "NOHANDLE" || word == "RESP" || word == "RESP2";
  });
  if (command == "HANDLE" && words.size() > 1) {
    if (words[1] == "CONDITION")
      collectLabels(words, "", effect.conditionLabels);
    else if (words[1] == "AID")
      collectLabels(words, "", effect.aidLabels);
    else if (words[1] == "ABEND")
      collectLabels(words, "LABEL", effect.abendLabels);
    return;
  }
  if (command == "IGNORE" || command == "PUSH" || command == "POP")
    return;
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

} // namespace tarka
