//===- DliParser.cpp - the commands of DL/I -------------------------------===//
//
// function {option [(argument)]} ... The names of segments, fields and blocks are
// those of the data base; a data item that holds one stands in parentheses of its
// own: SEGMENT((WS-SEGMENT)).
//
//===----------------------------------------------------------------------===//

#include "Parse/Embedded/EmbeddedParser.h"
#include "llvm/ADT/StringSwitch.h"

namespace tarka {

namespace {

/// What stands in the parentheses of an option.
enum class DliArgument : std::uint8_t { None, Read, Written, DatabaseName, Condition };

DliArgument argumentOf(llvm::StringRef option) {
  return llvm::StringSwitch<DliArgument>(option)
      .Cases("INTO", "KEYFEEDBACK", "SETCOND", "STATAREA", DliArgument::Written)
      .Cases("SEGMENT", "PSB", "DBDNAME", "PCBNAME", "KEYS", DliArgument::DatabaseName)
      .Case("WHERE", DliArgument::Condition)
      .Default(DliArgument::Read);
}

/// The words of the functions that are written in full: GET NEXT IN PARENT.
unsigned countFunctionWords(llvm::ArrayRef<Token> tokens) {
  constexpr llvm::StringLiteral phrases[] = {"GET NEXT IN PARENT", "GET NEXT", "GET UNIQUE"};
  for (llvm::StringRef phrase : phrases) {
    llvm::SmallVector<llvm::StringRef, 4> words;
    phrase.split(words, ' ');
    if (tokens.size() >= words.size() &&
        llvm::all_of(llvm::zip(words, tokens),
                     [](const auto &pair) { return std::get<1>(pair).text == std::get<0>(pair); }))
      return static_cast<unsigned>(words.size());
  }
  return 1;
}

bool isComparison(const Token &token) {
  return token.isOneOf(TokenKind::Equal, TokenKind::Less, TokenKind::Greater, TokenKind::LessEqual,
                       TokenKind::GreaterEqual, TokenKind::NotEqual) ||
         (token.isWord() && llvm::StringSwitch<bool>(token.text)
                                .Cases("EQ", "NE", "GT", "LT", "GE", "LE", true)
                                .Default(false));
}

class DliParser {
public:
  explicit DliParser(EmbeddedScratch &shared) : scratch(shared), tokens(shared.tokens) {}

  EmbeddedCommand *parse() {
    if (tokens.empty() || !tokens.front().isWord())
      return nullptr;
    const unsigned words = countFunctionWords(tokens);
    std::string name = tokens.front().text.str();
    for (const Token &word : tokens.slice(1, words - 1))
      name += (" " + word.text).str();
    command = new EmbeddedCommand(rangeFrom(tokens.front().place, tokens.back().place),
                                  ExecType::Dli, &internString(name));
    llvm::SmallVector<WrittenOption, 16> options;
    const Token *unexpected = readOptions(tokens.drop_front(words), options);
    for (const WrittenOption &option : options)
      addOperand(option);
    if (unexpected)
      command->addOperand(
          new EmbeddedOperand(unexpected->place, &internString(""), EmbeddedRole::None));
    return command;
  }

private:
  void addOperand(const WrittenOption &option) {
    DliArgument kind = option.hasArgument ? argumentOf(option.name->text) : DliArgument::None;
    if (kind == DliArgument::Condition)
      return addCondition(option);
    EmbeddedRole role = kind == DliArgument::None      ? EmbeddedRole::None
                        : kind == DliArgument::Written ? EmbeddedRole::Written
                                                       : EmbeddedRole::Read;
    llvm::ArrayRef<Token> argument = option.argument;
    if (kind == DliArgument::DatabaseName) {
      const bool isItem = argument.size() > 2 && argument.front().is(TokenKind::LParen);
      argument = isItem ? argument.drop_front().drop_back() : llvm::ArrayRef<Token>();
      if (!isItem)
        role = EmbeddedRole::Name;
    }
    auto *operand = new EmbeddedOperand(option.place, option.name->getInternedText(), role);
    operand->setIsWithArgument(option.hasArgument);
    if (role == EmbeddedRole::Name && option.argument.size() == 1)
      operand->setWord(makeWord(option.argument.front()));
    operand->setValue(scratch.parseExpression(argument));
    command->addOperand(operand);
  }

  /// WHERE (field = value {AND | OR} ...): one operand for each value.
  void addCondition(const WrittenOption &option) {
    llvm::ArrayRef<Token> rest = option.argument;
    while (!rest.empty()) {
      rest = rest.drop_until(isComparison).drop_while(isComparison);
      auto isJoin = [](const Token &token) { return token.isOneOf(Keyword::And, Keyword::Or); };
      llvm::ArrayRef<Token> value = rest.take_until(isJoin);
      rest = rest.drop_front(value.size());
      if (value.empty())
        continue;
      auto *operand = new EmbeddedOperand(rangeFrom(value.front().place, value.back().place),
                                          option.name->getInternedText(), EmbeddedRole::Read);
      operand->setIsWithArgument(true);
      operand->setValue(scratch.parseExpression(value));
      command->addOperand(operand);
    }
  }

  EmbeddedScratch &scratch;
  llvm::ArrayRef<Token> tokens;
  EmbeddedCommand *command = nullptr;
};

} // namespace

EmbeddedCommand *parseDliCommand(ParserContext &context, const EmbeddedSource &source) {
  EmbeddedScratch &scratch = scratchOf(context);
  scratch.tokens.clear();
  context.stream.scanEmbedded(source.text, source.places, scratch.tokens);
  return DliParser(scratch).parse();
}

} // namespace tarka
