//===- SignatureHelp.cpp - the operands that a call expects ---------------===//

#include "AST/Scope.h"
#include "lsp/features/Describe.h"
#include "lsp/features/Handlers.h"
#include "lsp/features/LineWords.h"
#include "lsp/features/Meanings.h"

namespace tarka::lsp {

namespace {

/// Which of the operands in \p before is being written, from 0. Operands have blanks or commas
/// between them; an operand can be qualified, subscripted or an expression.
unsigned activeOperand(llvm::ArrayRef<LineWord> before, bool isWithinWord) {
  unsigned begun = 0, depth = 0;
  // Whether what comes next belongs to the operand before it.
  bool isJoined = false, isSeparated = true;
  auto take = [&] {
    begun += !isJoined;
    isJoined = false;
    isSeparated = false;
  };
  for (const LineWord &word : before) {
    if (word.is(")")) {
      depth -= depth > 0;
    } else if (word.is("(")) {
      // Parentheses behind an operand are its subscripts.
      if (depth++ == 0 && (isSeparated || isJoined))
        take();
    } else if (depth > 0) {
      continue;
    } else if (word.is(",")) {
      isSeparated = true;
    } else if (word.kind == LineWord::Separator || word.isOneOf({"OF", "IN"})) {
      isJoined = begun > 0;
    } else if (!word.isOneOf({"BY", "REFERENCE", "CONTENT", "VALUE"})) {
      take();
    }
  }
  if (isWithinWord)
    take();
  return isWithinWord || isJoined ? std::max(begun, 1u) - 1 : begun;
}

llvm::json::Object signature(const std::string &label, llvm::ArrayRef<std::string> parameters,
                             std::string documentation, unsigned active) {
  llvm::json::Array list;
  for (const std::string &parameter : parameters)
    list.push_back(llvm::json::Object{{"label", parameter}});
  llvm::json::Object one{{"label", label}, {"parameters", std::move(list)}};
  if (!documentation.empty())
    one["documentation"] = std::move(documentation);
  return llvm::json::Object{{"signatures", llvm::json::Array{std::move(one)}},
                            {"activeSignature", 0},
                            {"activeParameter", active}};
}

class SignatureHelp {
public:
  SignatureHelp(Snapshot &of, const SourcePoint &at)
      : snapshot(of), point(at), before(textBefore(of, at)) {}

  llvm::json::Value make() {
    llvm::json::Value help = functionHelp();
    return help.getAsObject() ? std::move(help) : callHelp();
  }

private:
  bool isWithinWord() const { return !before.prefix.empty(); }

  /// FUNCTION name ( ... with the place between the parentheses. Other parentheses are around
  /// subscripts or expressions within an argument.
  llvm::json::Value functionHelp() {
    const llvm::ArrayRef<LineWord> words = before.words;
    unsigned depth = 0;
    for (std::size_t end = words.size(); end > 1; --end) {
      const std::size_t at = end - 1;
      if (words[at].kind == LineWord::Period)
        break;
      if (words[at].is(")"))
        ++depth;
      if (!words[at].is("("))
        continue;
      if (depth > 0) {
        --depth;
        continue;
      }
      const FunctionMeaning *function = functionMeaningOf(words[at - 1].upper());
      if (!function || (!(at > 1 && words[at - 2].is("FUNCTION")) && isDeclared(words[at - 1])))
        continue;
      std::vector<std::string> arguments;
      for (llvm::StringRef argument : function->argumentList())
        arguments.push_back(argument.str());
      unsigned active = activeOperand(words.drop_front(at + 1), isWithinWord());
      if (!arguments.empty() && arguments.back().find("...") != std::string::npos)
        active = std::min<unsigned>(active, arguments.size() - 1);
      return signature("FUNCTION " + function->call(), arguments, function->meaning.str(), active);
    }
    return nullptr;
  }

  bool isDeclared(const LineWord &word) const {
    const std::string name = word.upper();
    return llvm::any_of(snapshot.getIndex().getSymbols(),
                        [&](const Symbol &symbol) { return *symbol.name == name; });
  }

  /// CALL 'program' USING ... with the place behind the name.
  llvm::json::Value callHelp() {
    const llvm::ArrayRef<LineWord> words = before.words;
    std::size_t call = words.size();
    while (call > 0 && !words[call - 1].is("CALL")) {
      // The operands end with these, and with the statement.
      if (words[call - 1].kind == LineWord::Period || isVerb(words[call - 1].keyword()) ||
          words[call - 1].isOneOf({"RETURNING", "ON", "EXCEPTION", "OVERFLOW", "END-CALL"}))
        return nullptr;
      --call;
    }
    if (call == 0 || call >= words.size() || words[call].kind != LineWord::Literal)
      return nullptr;
    const llvm::StringRef name = words[call].text.drop_front().drop_back();
    const std::optional<ProgramSignature> program = signatureOf(snapshot, point, name);
    if (!program)
      return nullptr;
    std::string label = "CALL '" + program->name + "'";
    for (std::size_t number = 0; number < program->items.size(); ++number)
      label += (number == 0 ? " USING " : ", ") + program->items[number];
    const bool isUsing = words.size() > call + 1 && words[call + 1].is("USING");
    const unsigned active = isUsing ? activeOperand(words.drop_front(call + 2), isWithinWord()) : 0;
    return signature(label, program->items, program->origin, active);
  }

  Snapshot &snapshot;
  SourcePoint point;
  TextBefore before;
};

} // namespace

Answer signatureHelp(Snapshot &snapshot, const Parameters &parameters) {
  const std::optional<SourcePoint> point = snapshot.presentPointOf(parameters);
  if (!point)
    return nullptr;
  return SignatureHelp(snapshot, *point).make();
}

} // namespace tarka::lsp
