//===- CicsParser.cpp - the commands of CICS ------------------------------===//
//
// verb {option [(argument)]} ... The options come in any order; the ones among
// them that say which command it is are found by the table of commands.
//
//===----------------------------------------------------------------------===//

#include "AST/CicsCommands.h"
#include "Parse/Embedded/EmbeddedParser.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// DFHRESP(condition) and DFHVALUE(state) become the numbers that they stand for.
void replaceConstants(llvm::SmallVectorImpl<Token> &tokens) {
  std::size_t kept = 0;
  for (std::size_t at = 0; at < tokens.size(); ++at, ++kept) {
    Token token = tokens[at];
    const bool isConstant = token.isOneOf(Keyword::Dfhresp, Keyword::Dfhvalue) &&
                            at + 3 < tokens.size() && tokens[at + 1].is(TokenKind::LParen) &&
                            tokens[at + 2].isWord() && tokens[at + 3].is(TokenKind::RParen);
    if (isConstant) {
      llvm::StringRef name = tokens[at + 2].text;
      const unsigned number =
          (token.is(Keyword::Dfhresp) ? cicsCondition(name) : cicsState(name)).value_or(0);
      token.text = token.spelling = internString(std::to_string(number));
      token.place = rangeFrom(token.place, tokens[at + 3].place);
      token.kind = TokenKind::IntegerLiteral;
      token.keyword = Keyword::None;
      token.interned = nullptr;
      at += 3;
    }
    tokens[kept] = token;
  }
  tokens.truncate(kept);
}

class CicsParser {
public:
  explicit CicsParser(EmbeddedScratch &shared) : scratch(shared), tokens(shared.tokens) {}

  EmbeddedCommand *parse() {
    if (tokens.empty() || !tokens.front().isWord())
      return nullptr;
    const Token *unexpected = readOptions(llvm::ArrayRef(tokens).drop_front(), options);
    llvm::SmallVector<llvm::StringRef, 16> names;
    for (const WrittenOption &option : options)
      names.push_back(option.name->text);
    const CicsCommandInfo *info = findCicsCommand(tokens.front().text, names);

    const SourceRange place = rangeFrom(tokens.front().place, tokens.back().place);
    const std::string *name = &internString(info ? info->name : tokens.front().text);
    auto *command = new CicsCommand(place, name, info);
    const bool isDirectInquiry =
        tokens.front().text == "INQUIRE" && !llvm::is_contained(names, "NEXT");
    for (const WrittenOption &option : options) {
      EmbeddedOperand *operand = makeOperand(option, info);
      // INQUIRE names its resource first; only a browse gives the name.
      if (isDirectInquiry && &option == &options.front() && operand->isWritten())
        operand->setRole(EmbeddedRole::Read);
      command->addOperand(operand);
    }
    if (unexpected)
      command->addOperand(
          new EmbeddedOperand(unexpected->place, &internString(""), EmbeddedRole::None));
    return command;
  }

private:
  EmbeddedOperand *makeOperand(const WrittenOption &option, const CicsCommandInfo *info) {
    const CicsOptionInfo *row = info ? info->findOption(option.name->text) : nullptr;
    const EmbeddedRole role = !option.hasArgument ? EmbeddedRole::None
                              : row               ? row->role
                                                  : EmbeddedRole::ReadWritten;
    auto *operand = new EmbeddedOperand(option.place, option.name->getInternedText(), role);
    operand->setIsWithArgument(option.hasArgument);
    if (role == EmbeddedRole::Label) {
      if (option.argument.size() == 1)
        operand->setWord(makeWord(option.argument.front()));
    } else if (option.hasArgument) {
      operand->setValue(scratch.parseExpression(option.argument));
    }
    return operand;
  }

  EmbeddedScratch &scratch;
  llvm::SmallVectorImpl<Token> &tokens;
  llvm::SmallVector<WrittenOption, 16> options;
};

} // namespace

EmbeddedCommand *parseCicsCommand(ParserContext &context, const EmbeddedSource &source) {
  EmbeddedScratch &scratch = scratchOf(context);
  scratch.tokens.clear();
  context.stream.scanEmbedded(source.text, source.places, scratch.tokens);
  replaceConstants(scratch.tokens);
  return CicsParser(scratch).parse();
}

} // namespace tarka
