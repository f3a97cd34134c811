//===- EmbeddedParser.h - the commands of embedded languages ----*- C++ -*-===//
//
// Reads the text of an EXEC block into a command. Nothing is reported here: what
// is not understood is left out of the command, and the checks say what is wrong
// with what is in it.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_LIB_PARSE_EMBEDDEDPARSER_H
#define TARKA_LIB_PARSE_EMBEDDEDPARSER_H

#include "AST/Embedded.h"
#include "Parse/EmbeddedLines.h"
#include "Parse/ParserBase.h"

namespace tarka {

/// The text of a block, which is not empty, and where it stands.
struct EmbeddedSource {
  llvm::StringRef text;
  const EmbeddedLines &places;
};

/// What the blocks of one compilation share: the parser of their operands, which reports nothing.
class EmbeddedScratch {
public:
  explicit EmbeddedScratch(ParserContext &enclosing);

  /// Reads \p tokens as one arithmetic expression or literal of COBOL. Null when they are none.
  Expression *parseExpression(llvm::ArrayRef<Token> tokens);
  /// The tokens of the block that is being read; kept, so that its memory is used again.
  llvm::SmallVector<Token, 64> tokens;
  /// The WHENEVER statements that hold from here on in the text.
  std::array<SqlCommand *, 4> whenever{};

private:
  ParserContext &outer;
  TokenStream stream;
  /// What the parser of the operands reports. Empty between two expressions.
  FrontEndDiagnostics discarded;
  ParserContext context;
};

/// An option of a command as it is written: its name, and the tokens in its parentheses.
struct WrittenOption {
  const Token *name;
  llvm::ArrayRef<Token> argument;
  bool hasArgument = false;
  SourceRange place;
};

/// Reads \p tokens, option [(argument)] ..., up to the first one that is no option, which it gives;
/// null when all are read.
const Token *readOptions(llvm::ArrayRef<Token> tokens,
                         llvm::SmallVectorImpl<WrittenOption> &options);

/// The place from the beginning of \p first to the end of \p last.
inline SourceRange rangeFrom(SourceRange first, const SourceRange &last) {
  first.endLine = last.endLine;
  first.endColumn = last.endColumn;
  return first;
}

/// The scratch of \p context, made when it is asked for first.
EmbeddedScratch &scratchOf(ParserContext &context);

/// The command in \p source. Null when there is none.
EmbeddedCommand *parseCicsCommand(ParserContext &context, const EmbeddedSource &source);
EmbeddedCommand *parseSqlCommand(ParserContext &context, const EmbeddedSource &source);
EmbeddedCommand *parseDliCommand(ParserContext &context, const EmbeddedSource &source);

/// A word of the block as a name: in upper case, with its spelling and place.
Word *makeWord(const Token &token);

} // namespace tarka

#endif // TARKA_LIB_PARSE_EMBEDDEDPARSER_H
