//===- EmbeddedParser.cpp - what all embedded languages share -------------===//

#include "Parse/Embedded/EmbeddedParser.h"
#include "Parse/ParseExpression.h"

namespace tarka {

EmbeddedScratch::EmbeddedScratch(ParserContext &enclosing)
    : outer(enclosing), stream(enclosing.stream), context(stream, discarded, enclosing.options) {}

Expression *EmbeddedScratch::parseExpression(llvm::ArrayRef<Token> expression) {
  if (expression.empty())
    return nullptr;
  context.unit = outer.unit;
  context.decimalPointIsComma = outer.decimalPointIsComma;
  context.hasSymbolicCharacters = outer.hasSymbolicCharacters;
  if (context.repositoryFunctions.size() != outer.repositoryFunctions.size())
    context.repositoryFunctions = outer.repositoryFunctions;
  context.recovery.resumeReporting();
  stream.setTokens(expression);
  Expression *parsed = ExpressionParser(context).parseArithmeticExpression();
  if (discarded.hasErrors()) {
    // The sink keeps what it is given, and after a thousand errors takes no more.
    discarded = FrontEndDiagnostics();
    return nullptr;
  }
  return stream.atEnd() ? parsed : nullptr;
}

EmbeddedScratch &scratchOf(ParserContext &context) {
  if (!context.embeddedScratch)
    context.embeddedScratch = std::make_shared<EmbeddedScratch>(context);
  return *context.embeddedScratch;
}

const Token *readOptions(llvm::ArrayRef<Token> tokens,
                         llvm::SmallVectorImpl<WrittenOption> &options) {
  for (std::size_t at = 0; at < tokens.size();) {
    if (!tokens[at].isWord())
      return &tokens[at];
    WrittenOption option;
    option.name = &tokens[at];
    option.place = tokens[at].place;
    ++at;
    if (at < tokens.size() && tokens[at].is(TokenKind::LParen)) {
      const std::size_t begin = ++at;
      for (unsigned depth = 1; at < tokens.size(); ++at) {
        if (tokens[at].is(TokenKind::LParen))
          ++depth;
        else if (tokens[at].is(TokenKind::RParen))
          --depth;
        if (depth == 0)
          break;
      }
      if (at == tokens.size())
        return &tokens[begin - 1];
      option.hasArgument = true;
      option.argument = tokens.slice(begin, at - begin);
      option.place = rangeFrom(option.place, tokens[at].place);
      ++at;
    }
    options.push_back(option);
  }
  return nullptr;
}

Word *makeWord(const Token &token) {
  return new Word(token.place, &internString(token.text.upper()), &internString(token.spelling));
}

} // namespace tarka
