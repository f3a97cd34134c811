//===- Directives.cpp - conditional compilation ---------------------------===//

#include "Parse/Directives.h"
#include "Parse/CharacterTable.h"
#include "Parse/ParseOptions.h"
#include "llvm/ADT/StringExtras.h"
#include <limits>

namespace tarka {

/// How deep conditions and expressions may nest inside one directive.
static constexpr unsigned maxDepth = 100;

CompilationVariables::CompilationVariables(
    llvm::ArrayRef<std::pair<std::string, std::string>> defines) {
  for (const auto &[name, value] : defines) {
    int64_t number;
    if (value.empty())
      define(name, DirectiveOperand::ofTruth(true));
    else if (!llvm::StringRef(value).getAsInteger(10, number))
      define(name, DirectiveOperand::ofNumber(number));
    else
      define(name, DirectiveOperand::ofText(value));
  }
}

const DirectiveOperand *CompilationVariables::find(llvm::StringRef name) const {
  auto value = values.find(name.upper());
  return value == values.end() ? nullptr : &value->second;
}

void CompilationVariables::define(llvm::StringRef name, DirectiveOperand value) {
  values[name.upper()] = std::move(value);
}

void CompilationVariables::undefine(llvm::StringRef name) {
  values.erase(name.upper());
}

void CompilationVariables::defineAll(llvm::StringRef list) {
  while (!list.empty()) {
    list = list.ltrim(" ,");
    llvm::StringRef name = list.take_while(isWordCharacter);
    if (name.empty())
      return;
    list = list.drop_front(name.size()).ltrim();
    if (!list.consume_front("=")) {
      define(name, DirectiveOperand::ofTruth(true));
      continue;
    }
    list = list.ltrim();
    bool isBoolean = list.consume_front_insensitive("B'");
    int64_t number = 0;
    if (isBoolean || list.starts_with("'") || list.starts_with("\"")) {
      char quote = isBoolean ? '\'' : list.front();
      auto [text, behind] = list.drop_front(!isBoolean).split(quote);
      define(name,
             isBoolean ? DirectiveOperand::ofTruth(text == "1") : DirectiveOperand::ofText(text));
      list = behind;
    } else if (!list.consumeInteger(10, number)) {
      define(name, DirectiveOperand::ofNumber(number));
    } else {
      list = list.drop_until([](char c) { return c == ','; });
    }
  }
}

void CompilationVariables::defineDefaults() {
  // Those of a compiler of today with its options as they are delivered.
  constexpr std::pair<llvm::StringLiteral, int64_t> numbers[] = {
      {"IGY-COMPILER-VRM", 60400}, {"IGY-ARCH", 10}, {"IGY-LP", 32}, {"IGY-OPTIMIZE", 0}};
  for (const auto &[name, value] : numbers)
    if (!find(name))
      define(name, DirectiveOperand::ofNumber(value));
  for (llvm::StringRef name : {"IGY-SQLIMS", "IGY-DLL", "IGY-DYNAM", "IGY-THREAD"})
    if (!find(name))
      define(name, DirectiveOperand::ofTruth(false));
}

void CompilationVariables::defineLanguages(const ParseOptions &options) {
  define("IGY-CICS", DirectiveOperand::ofTruth(options.cics));
  define("IGY-SQL", DirectiveOperand::ofTruth(options.sql));
}

void CompilationVariables::defineOption(llvm::StringRef option, llvm::StringRef suboptions) {
  constexpr std::pair<llvm::StringLiteral, llvm::StringLiteral> numbers[] = {
      {"ARCH", "IGY-ARCH"},
      {"LP", "IGY-LP"},
      {"OPTIMIZE", "IGY-OPTIMIZE"},
      {"OPT", "IGY-OPTIMIZE"}};
  constexpr std::pair<llvm::StringLiteral, llvm::StringLiteral> switches[] = {
      {"DLL", "IGY-DLL"},
      {"DYNAM", "IGY-DYNAM"},
      {"DYN", "IGY-DYNAM"},
      {"SQLIMS", "IGY-SQLIMS"},
      {"THREAD", "IGY-THREAD"}};
  for (const auto &[name, variable] : numbers) {
    int64_t value = 0;
    if (option.equals_insensitive(name) && !suboptions.trim().getAsInteger(10, value))
      define(variable, DirectiveOperand::ofNumber(value));
  }
  llvm::StringRef positive = option;
  const bool isOn = !positive.consume_front_insensitive("NO");
  for (const auto &[name, variable] : switches)
    if (positive.equals_insensitive(name))
      define(variable, DirectiveOperand::ofTruth(isOn));
}

void DirectiveText::fail(llvm::StringRef reason) {
  if (!failed)
    diagnostics.report(DiagnosticId::DirectiveSyntax, place, directive, reason);
  failed = true;
  rest = {};
}

bool DirectiveText::isAtEnd() {
  skipBlanks();
  return rest.empty() || rest.starts_with("*>") || rest == ".";
}

bool DirectiveText::consume(llvm::StringRef word) {
  skipBlanks();
  if (!rest.take_while(isWordCharacter).equals_insensitive(word))
    return false;
  rest = rest.drop_front(word.size());
  return true;
}

llvm::StringRef DirectiveText::takeWord() {
  skipBlanks();
  llvm::StringRef word = rest.take_while(isWordCharacter);
  rest = rest.drop_front(word.size());
  return word;
}

bool DirectiveText::consumeMark(llvm::StringRef mark) {
  skipBlanks();
  return rest.consume_front(mark);
}

bool DirectiveText::readDisjunction(unsigned depth) {
  bool value = readConjunction(depth);
  while (consume("OR")) {
    bool other = readConjunction(depth);
    value = value || other;
  }
  return value && !failed;
}

bool DirectiveText::readConjunction(unsigned depth) {
  bool value = readSimpleCondition(depth);
  while (consume("AND")) {
    bool other = readSimpleCondition(depth);
    value = value && other;
  }
  return value;
}

bool DirectiveText::readSimpleCondition(unsigned depth) {
  if (depth > maxDepth) {
    fail("it is nested too deep");
    return false;
  }
  if (consume("NOT"))
    return !readSimpleCondition(depth + 1);
  // A parenthesis holds a condition, unless something is done with what it holds.
  llvm::StringRef start = rest;
  if (consumeMark("(")) {
    bool value = readDisjunction(depth + 1);
    if (failed)
      return false;
    bool isClosed = consumeMark(")");
    skipBlanks();
    if (isClosed && (rest.empty() || !llvm::StringRef("=<>+-*/").contains(rest.front())))
      return value;
    rest = start;
  }
  // NAME [IS] [NOT] DEFINED asks about the variable, not about its value.
  start = rest;
  llvm::StringRef name = takeWord();
  if (!name.empty()) {
    consume("IS");
    bool isNegated = consume("NOT");
    if (consume("DEFINED"))
      return (variables.find(name) != nullptr) != isNegated;
    rest = start;
  }
  return compare(readOperand());
}

/// Takes a relation off the text: which of Less, Equal and Greater make it true; 0 if none stands
/// there.
unsigned DirectiveText::readRelation() {
  constexpr std::pair<llvm::StringLiteral, unsigned> signs[] = {
      {"<>", Less | Greater}, {"<=", Less | Equal}, {">=", Greater | Equal}, {"<", Less},
      {">", Greater},         {"=", Equal}};
  for (const auto &[sign, relation] : signs)
    if (consumeMark(sign))
      return relation;
  if (consume("EQUAL")) {
    consume("TO");
    return Equal;
  }
  unsigned relation = consume("LESS") ? Less : consume("GREATER") ? Greater : 0;
  if (!relation)
    return 0;
  consume("THAN");
  if (consume("OR")) {
    relation |= Equal;
    if (!consume("EQUAL"))
      fail("EQUAL is missing after OR");
    consume("TO");
  }
  return relation;
}

/// Reads a relation and its right side. A lone operand is true when its value is.
bool DirectiveText::compare(const DirectiveOperand &left) {
  consume("IS");
  bool isNegated = consume("NOT");
  unsigned wanted = readRelation();
  if (!wanted)
    return left.isTrue() != isNegated;
  DirectiveOperand right = readOperand();
  if (failed)
    return false;
  if (left.kind != right.kind) {
    fail("values of different kinds are compared");
    return false;
  }
  int order = left.kind == DirectiveOperand::Kind::Text
                  ? llvm::StringRef(left.text).compare(right.text)
                  : (left.number > right.number) - (left.number < right.number);
  unsigned outcome = order < 0 ? Less : order > 0 ? Greater : Equal;
  return ((outcome & wanted) != 0) != isNegated;
}

DirectiveOperand DirectiveText::readSum(unsigned depth) {
  DirectiveOperand value = readProduct(depth);
  for (;;) {
    bool isAddition = consumeMark("+");
    if (!isAddition && !consumeMark("-"))
      return value;
    DirectiveOperand other = readProduct(depth);
    int64_t result = 0;
    if (failed)
      return {};
    if (value.kind != DirectiveOperand::Kind::Number || other.kind != value.kind ||
        (isAddition ? __builtin_add_overflow(value.number, other.number, &result)
                    : __builtin_sub_overflow(value.number, other.number, &result))) {
      fail("the arithmetic expression has no value");
      return {};
    }
    value = DirectiveOperand::ofNumber(result);
  }
}

DirectiveOperand DirectiveText::readProduct(unsigned depth) {
  DirectiveOperand value = readPrimary(depth);
  for (;;) {
    skipBlanks();
    // "*>" begins a comment.
    bool isProduct = !rest.starts_with("*>") && consumeMark("*");
    if (!isProduct && !consumeMark("/"))
      return value;
    DirectiveOperand other = readPrimary(depth);
    int64_t result = 0;
    if (failed)
      return {};
    bool isNumeric = value.kind == DirectiveOperand::Kind::Number &&
                     other.kind == DirectiveOperand::Kind::Number;
    bool divides = isNumeric && !isProduct && other.number != 0 &&
                   !(value.number == std::numeric_limits<int64_t>::min() && other.number == -1);
    if (isNumeric && isProduct && !__builtin_mul_overflow(value.number, other.number, &result)) {
      value = DirectiveOperand::ofNumber(result);
    } else if (divides) {
      value = DirectiveOperand::ofNumber(value.number / other.number);
    } else {
      fail("the arithmetic expression has no value");
      return {};
    }
  }
}

DirectiveOperand DirectiveText::readPrimary(unsigned depth) {
  if (failed || depth > maxDepth) {
    fail("it is nested too deep");
    return {};
  }
  if (consumeMark("(")) {
    DirectiveOperand value = readSum(depth + 1);
    if (!consumeMark(")"))
      fail("a closing parenthesis is missing");
    return value;
  }
  bool isNegative = consumeMark("-");
  if (!isNegative)
    consumeMark("+");
  skipBlanks();
  if (isAtEnd()) {
    fail("a value is missing");
    return {};
  }
  if (classOf(rest.front()) == CharacterClass::Quote)
    return readLiteral(rest.front());
  llvm::StringRef word = takeWord();
  if (word.empty()) {
    fail("a value is missing");
    return {};
  }
  // B'1' and B'0' are truth values.
  if (word.equals_insensitive("B") && !rest.empty() &&
      classOf(rest.front()) == CharacterClass::Quote)
    return DirectiveOperand::ofTruth(readLiteral(rest.front()).text == "1");
  DirectiveOperand value;
  if (llvm::all_of(word, llvm::isDigit)) {
    value.kind = DirectiveOperand::Kind::Number;
    if (word.getAsInteger(10, value.number))
      fail("the number is too large");
  } else if (const DirectiveOperand *variable = variables.find(word)) {
    value = *variable;
  } else {
    // One message for each variable, whether its definition is wrong or it has none.
    if (!failed && variables.lose(word))
      diagnostics.report(DiagnosticId::UndefinedVariable, place, word);
    failed = true;
  }
  if (isNegative && value.kind == DirectiveOperand::Kind::Number)
    value.number = -value.number;
  return value;
}

DirectiveOperand DirectiveText::readLiteral(char quote) {
  std::string text;
  rest = rest.drop_front();
  for (;;) {
    size_t end = rest.find(quote);
    if (end == llvm::StringRef::npos) {
      fail("a literal has no closing quote");
      return {};
    }
    text += rest.take_front(end);
    rest = rest.drop_front(end + 1);
    // A quote inside the literal is written twice.
    if (!rest.starts_with(llvm::StringRef(&quote, 1)))
      return DirectiveOperand::ofText(text);
    text += quote;
    rest = rest.drop_front();
  }
}

void DirectiveText::readDefinition() {
  llvm::StringRef name = takeWord();
  if (name.empty()) {
    fail("the name of a variable is missing");
    return;
  }
  consume("AS");
  if (consume("OFF")) {
    variables.undefine(name);
    return;
  }
  // PARAMETER takes the value that the command line gave, if it gave one.
  if (consume("PARAMETER"))
    return;
  DirectiveOperand value = isAtEnd() ? DirectiveOperand::ofTruth(true) : readOperand();
  if (failed) {
    variables.lose(name);
    return;
  }
  const DirectiveOperand *old = variables.find(name);
  if (!consume("OVERRIDE") && old && !(*old == value)) {
    diagnostics.report(DiagnosticId::RedefinedVariable, place, name);
    return;
  }
  if (!isAtEnd()) {
    // Another definition may have come into this line.
    llvm::SmallVector<llvm::StringRef, 4> words;
    llvm::SplitString(rest, words, " >");
    for (llvm::StringRef word : words)
      variables.lose(word);
    fail("more follows than belongs to it");
  }
  variables.define(name, std::move(value));
}

} // namespace tarka
