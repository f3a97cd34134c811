//===- Lexer.cpp - the tokens of one file ---------------------------------===//

#include "Parse/Lexer.h"
#include "AST/CicsCommands.h"
#include "Parse/CharacterTable.h"
#include "Parse/EmbeddedLines.h"
#include "Parse/SourceFile.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"
#include "llvm/Support/Compiler.h"
#include <cstring>
#include <utility>

namespace tarka {

/// The most characters that a word of the programmer may have.
static constexpr size_t maxWordLength = 30;

Lexer::Lexer(const SourceFile &file, SourceFormat format, LexerContext &context, bool isMain)
    : context(context), lines(file, format, context.diagnostics, isMain,
                              context.options.format == SourceFormat::Auto),
      scanner(context.words, /*keepsCommas=*/false) {
  isAtEnd = reportFault(file, context);
  applySettings();
  scanner.setReadsTags(isMain && hasCopybookExtension(file.getName()));
}

/// One message stands for all mistakes in a file that is not text, or is in another encoding.
bool reportFault(const SourceFile &file, LexerContext &context) {
  if (file.getFault() == SourceFile::Fault::None || !file.isFaultNew())
    return false;
  size_t offset = std::min(file.getFaultOffset(), file.getText().size());
  llvm::StringRef before = file.getText().take_front(offset);
  unsigned line = static_cast<unsigned>(before.count('\n')) + 1;
  unsigned column =
      static_cast<unsigned>(before.size() - (before.rfind('\n') + 1)) + 1; // npos + 1 is 0
  SourceRange place{file.getNumber(), line, column, line, column};
  switch (file.getFault()) {
  case SourceFile::Fault::Binary:
    context.diagnostics.report(DiagnosticId::BinaryFile, place,
                               showText(llvm::StringRef(before.end(), 1)));
    return true;
  case SourceFile::Fault::Ebcdic:
    context.diagnostics.report(DiagnosticId::EbcdicFile, SourceRange{file.getNumber(), 1, 1, 1, 1});
    return true;
  case SourceFile::Fault::Undecodable: {
    std::string byte = llvm::toHex(llvm::ArrayRef<uint8_t>(file.getUndecodableByte()));
    llvm::StringRef encoding = context.options.encoding;
    context.diagnostics.report(DiagnosticId::UndecodableByte, place, byte,
                               encoding.empty() ? "UTF-16" : encoding);
    return false;
  }
  case SourceFile::Fault::None:
    break;
  }
  return false;
}

LLVM_ATTRIBUTE_ALWAYS_INLINE void Lexer::setPlace(Token &token) {
  token.place = lines.rangeOf(token.spelling.begin(), token.spelling.end() - 1);
  token.flags |= lineFlags;
  if (lines.isContinued() && token.place.beginLine != token.place.endLine)
    token.flags |= Token::Continued;
  if (atLineStart) {
    atLineStart = false;
    token.flags |= Token::FirstOnLine | Token::PrecededBySpace;
    if (lines.isInAreaA(token.spelling.begin()))
      token.flags |= Token::AreaA;
  }
}

/// Moves on to the next line of text and gives it to the scanner.
bool Lexer::readLine() {
  if (isAtEnd || !lines.next()) {
    isAtEnd = true;
    return false;
  }
  if (lines.hasOptionsText())
    obeyOptions(lines.takeOptionsText());
  atLineStart = true;
  lineFlags = lines.getFormat() == SourceFormat::Free ? 0 : Token::FixedForm;
  scanner.setText(lines.begin(), lines.end(), lines.getReadableEnd());
  return true;
}

/// The text in the parentheses that \p text begins with, which is taken off it; quotes hide
/// parentheses. Empty where there are none.
static llvm::StringRef takeSuboptions(llvm::StringRef &text) {
  text = text.ltrim();
  if (!text.starts_with("("))
    return {};
  char quote = 0;
  size_t end = 1;
  for (unsigned depth = 1; end < text.size(); ++end) {
    char c = text[end];
    if (quote || c == '\'' || c == '"')
      quote = quote == c ? 0 : quote ? quote : c;
    else if (c == '(')
      ++depth;
    else if (c == ')' && --depth == 0)
      break;
  }
  llvm::StringRef inner = text.slice(1, end);
  text = text.drop_front(std::min(end + 1, text.size()));
  return inner;
}

/// CBL and PROCESS lines: of the options of the compiler, those count here that say that CICS or
/// DB2 adds to the source, DEFINE, and those that compilation variables tell.
void Lexer::obeyOptions(llvm::StringRef text) {
  while (!text.empty()) {
    llvm::StringRef word = text.take_while(isWordCharacter);
    text = text.drop_front(word.size());
    if (word.empty() && !text.starts_with("(")) {
      const char mark = text.front();
      text = text.drop_front();
      if (mark == '\'' || mark == '"')
        text = text.split(mark).second;
      continue;
    }
    const llvm::StringRef suboptions = takeSuboptions(text);
    if (word.equals_insensitive("DEFINE") || word.equals_insensitive("DEF"))
      context.variables.defineAll(suboptions);
    context.variables.defineOption(word, suboptions);
    context.options.cics |= word.equals_insensitive("CICS") || word.equals_insensitive("XOPTS");
    context.options.sql |= word.equals_insensitive("SQL");
  }
  context.variables.defineLanguages(context.options);
}

/// Moves on to the next line that is not a directive.
bool Lexer::nextLine() {
  while (readLine()) {
    if (!isDirective() || !obeyDirective())
      return true;
  }
  for (const Conditional &conditional : conditionals)
    context.diagnostics.report(DiagnosticId::DirectiveWithoutEnd, conditional.place,
                               conditional.isEvaluate ? "EVALUATE" : "IF",
                               conditional.isEvaluate ? "END-EVALUATE" : "END-IF");
  conditionals.clear();
  return false;
}

/// Whether \p token means nothing to the lexer, as most tokens.
LLVM_ATTRIBUTE_ALWAYS_INLINE bool Lexer::isOrdinary(const Token &token) const {
  if (context.inIdentificationDivision || state != State::Plain)
    return false;
  if (token.isWord())
    return token.is(Keyword::None) ? token.spelling.size() <= maxWordLength
                                   : !(flagsOf(token.keyword) & KF_TokenStream);
  return !token.isOneOf(TokenKind::AlphanumericLiteral, TokenKind::Star, TokenKind::Other);
}

bool Lexer::next(Token &token) {
  if (state != State::Plain && takeSpecial(token))
    return false;
  do {
    if (!scanner.scan(token) && !scanNextLine(token))
      return false;
    setPlace(token);
    if (isOrdinary(token)) {
      previousKeyword = token.keyword;
      return true;
    }
  } while (!checkToken(token));
  return false;
}

/// Makes the first token behind the line that is read; false at the end of the file, which is a
/// complete token.
bool Lexer::scanNextLine(Token &token) {
  // A comma at the end of a line stands before the first token of the next one.
  uint8_t comma = token.flags & Token::AfterComma;
  while (nextLine()) {
    if (scanner.getCursor() == lines.begin())
      scanner.setCursor(lines.first());
    const bool isFound = scanner.scan(token);
    token.flags |= comma;
    if (isFound)
      return true;
    comma = token.flags & Token::AfterComma;
  }
  token = Token();
  token.flags = Token::PrecededBySpace | Token::FirstOnLine;
  token.place = lines.endOfFile();
  return false;
}

/// Makes the next token where the tokens before it make it a special one; false where it is like
/// others.
bool Lexer::takeSpecial(Token &token) {
  switch (state) {
  case State::Picture:
    return readPicture(token);
  case State::EmbeddedText:
    readEmbeddedText(token);
    return true;
  case State::EmbeddedBlock:
    token = block.pop_back_val();
    if (block.empty())
      state = State::Plain;
    return true;
  case State::Plain:
  case State::EmbeddedWord:
    break;
  }
  return false;
}

/// Handles what \p token means to the lexer; false when the parser does not get it.
bool Lexer::checkToken(Token &token) {
  // The period after AUTHOR and the like can be left out.
  if (context.inIdentificationDivision && (flagsOf(previousKeyword) & KF_CommentParagraph) &&
      !token.is(TokenKind::Period) && !token.isInAreaA()) {
    previousKeyword = Keyword::None;
    scanner.setCursor(scanner.getEnd());
    skipCommentEntry();
    return false;
  }
  if (token.keyword != Keyword::None) {
    bool isKept = inPseudoText || actOnKeyword(token);
    previousKeyword = token.keyword;
    return isKept;
  }
  // EXEC and any word, then text of another language.
  if (state == State::EmbeddedWord) {
    state = token.isWord() ? State::EmbeddedText : State::Plain;
    embedding = token;
  }

  Keyword before = std::exchange(previousKeyword, Keyword::None);
  switch (token.kind) {
  case TokenKind::Period:
    if (context.inIdentificationDivision && (flagsOf(before) & KF_CommentParagraph)) {
      scanner.setCursor(scanner.getEnd());
      skipCommentEntry();
    }
    return true;
  case TokenKind::AlphanumericLiteral:
    if (scanner.isLiteralOpen())
      reportOpenLiteral(token);
    if (lines.hasControlBytes())
      for (const char &byte : token.text)
        // Shift codes stand around double-byte characters.
        if (classOf(byte) == CharacterClass::NotText && static_cast<unsigned char>(byte) < 0x20 &&
            byte != 0x0E && byte != 0x0F)
          reportNotText(&byte, &byte);
    return true;
  case TokenKind::Star:
    // *CBL and *CONTROL are lines for the listing, also where column 7 is blank.
    if (token.isFirstOnLine()) {
      llvm::StringRef rest(scanner.getCursor(), scanner.getEnd() - scanner.getCursor());
      llvm::StringRef word = rest.take_while(isWordCharacter);
      if (word.equals_insensitive("CBL") || word.equals_insensitive("CONTROL"))
        return skipToLineEnd();
    }
    return true;
  case TokenKind::Other:
    if (classOf(token.text.front()) == CharacterClass::NotText) {
      const char *last = scanner.getCursor();
      while (last < scanner.getEnd() && classOf(*last) == CharacterClass::NotText)
        ++last;
      scanner.setCursor(last);
      reportNotText(token.text.begin(), last - 1);
      return false;
    }
    return true;
  case TokenKind::Word:
    if (token.spelling.size() > maxWordLength && !inPseudoText && !token.spelling.contains(':'))
      reportLongWord(token);
    return true;
  default:
    return true;
  }
}

/// A word that is too long is reported once, at its first use.
void Lexer::reportLongWord(const Token &token) {
  if (context.longWords.insert(token.text).second)
    context.diagnostics.report(DiagnosticId::WordTooLong, token.place,
                               (token.spelling.take_front(maxWordLength) + "...").str(),
                               token.spelling.size(), maxWordLength);
}

/// Handles a keyword that means something to the lexer; false when the parser does not get it.
bool Lexer::actOnKeyword(Token &token) {
  if (state == State::EmbeddedWord) {
    state = State::EmbeddedText;
    embedding = token;
    return true;
  }
  switch (token.keyword) {
  case Keyword::Pic:
  case Keyword::Picture:
    state = State::Picture;
    return true;
  case Keyword::Exec:
  case Keyword::Execute:
    readEmbeddedBlock(token);
    return true;
  case Keyword::Dfhresp:
  case Keyword::Dfhvalue:
    readCicsConstant(token);
    return true;
  case Keyword::Division:
    context.inIdentificationDivision =
        previousKeyword == Keyword::Id || previousKeyword == Keyword::Identification;
    return true;
  case Keyword::Program:
    if (previousKeyword == Keyword::End)
      lines.expectOptions();
    return true;
  case Keyword::Eject:
  case Keyword::Skip1:
  case Keyword::Skip2:
  case Keyword::Skip3:
    skipListingStatement(/*hasLiteral=*/false);
    return false;
  case Keyword::Title:
    if (!token.isFirstOnLine())
      return true;
    skipListingStatement(/*hasLiteral=*/true);
    return false;
  case Keyword::Basis:
    isBasis = true;
    skipSourceUpdate(token);
    return false;
  case Keyword::Insert:
    skipSourceUpdate(token);
    return false;
  case Keyword::Delete:
    if (!isBasis || !token.isFirstOnLine())
      return true;
    skipSourceUpdate(token);
    return false;
  default:
    return true;
  }
}

bool Lexer::skipToLineEnd() {
  scanner.setCursor(scanner.getEnd());
  return false;
}

/// EJECT, SKIP1 to SKIP3 and TITLE arrange a listing. They stand on a line of their own, with or
/// without a period.
void Lexer::skipListingStatement(bool hasLiteral) {
  Token token;
  const char *before = scanner.getCursor();
  if (hasLiteral) {
    if (scanner.scan(token) && token.is(TokenKind::AlphanumericLiteral)) {
      before = scanner.getCursor();
    } else {
      context.diagnostics.report(DiagnosticId::TitleLiteralExpected, placeOfLine());
      scanner.setCursor(before);
    }
  }
  if (!scanner.scan(token) || !token.is(TokenKind::Period))
    scanner.setCursor(before);
}

/// BASIS, INSERT and DELETE change a program that is stored elsewhere.
void Lexer::skipSourceUpdate(const Token &token) {
  context.diagnostics.report(DiagnosticId::SourceUpdateStatement, token.place, token.text);
  skipToLineEnd();
}

/// A literal without its closing quote, which may stand past the margin.
void Lexer::reportOpenLiteral(const Token &token) {
  const bool isQuotation = token.text.ltrim("XNGZUBxngzub").starts_with("\"");
  if (lines.getTextPastMargin().contains(isQuotation ? '"' : '\'')) {
    context.diagnostics.report(DiagnosticId::TextPastMargin, token.place, "the literal");
    if (const CutLine *cut = context.diagnostics.findCutLine(token.place, token.place))
      cut->isReported = true;
    return;
  }
  // A continuation line of it has had a message.
  if (!context.diagnostics.isMisread(token.place))
    context.diagnostics.report(DiagnosticId::UnclosedLiteral, token.place,
                               isQuotation ? "quotation mark" : "apostrophe");
}

void Lexer::reportNotText(const char *first, const char *last) {
  SourceRange place = lines.rangeOf(first, last);
  // Characters outside ASCII are faults of their own; of stray control bytes there may be many.
  if (static_cast<unsigned char>(*first) >= 0x80) {
    context.diagnostics.report(DiagnosticId::CharacterNotAllowed, place,
                               showText(llvm::StringRef(first, last - first + 1)));
    return;
  }
  if (!controlByteSeen)
    context.diagnostics.report(DiagnosticId::ControlByte, place,
                               showText(llvm::StringRef(first, 1)));
  controlByteSeen = true;
}

/// Reads what stands after PICTURE: IS, SYMBOL (of a currency sign), or the character-string.
/// False when the text does not begin with any of them.
bool Lexer::readPicture(Token &token) {
  const char *at = scanner.getCursor();
  for (;;) {
    while (at < scanner.getEnd() && isBlank(*at))
      ++at;
    if (at < scanner.getEnd() && !llvm::StringRef(at, scanner.getEnd() - at).starts_with("*>"))
      break;
    if (!nextLine()) {
      state = State::Plain;
      return false;
    }
    at = scanner.getCursor();
  }
  scanner.setCursor(at);
  llvm::StringRef text(at, scanner.getEnd() - at);
  text = text.take_until(isBlank);
  if (text.equals_insensitive("IS") || text.equals_insensitive("SYMBOL")) {
    if (!text.equals_insensitive("IS"))
      state = State::Plain;
    scanner.scan(token);
    token.flags |= Token::PrecededBySpace;
    setPlace(token);
    return true;
  }
  state = State::Plain;
  text = pictureIn(text);
  if (text.empty())
    return false;
  scanner.setCursor(text.end());
  token.kind = TokenKind::PictureString;
  token.keyword = previousKeyword = Keyword::None;
  token.interned = nullptr;
  token.text = token.spelling = text;
  token.flags = Token::PrecededBySpace;
  setPlace(token);
  return true;
}

/// Reads a whole block, of which \p exec is the first word. EXEC SQL INCLUDE is a COPY: its one
/// token is the keyword COPY with the name of the member as its text.
void Lexer::readEmbeddedBlock(Token &exec) {
  Token language, text, end;
  state = State::EmbeddedWord;
  next(language);
  block.assign(1, language);
  if (state == State::EmbeddedText) {
    next(text);
    llvm::StringRef rest(scanner.getCursor(), scanner.getEnd() - scanner.getCursor());
    if (!rest.ltrim().starts_with_insensitive("END-EXEC")) {
      block.assign({text, language});
      state = State::EmbeddedBlock;
      return;
    }
    next(end);
    llvm::StringRef member = text.text.take_while(isWordCharacter);
    if (language.is(Keyword::Sql) && end.is(Keyword::EndExec) &&
        member.equals_insensitive("INCLUDE")) {
      includePlace = exec.place;
      includePlace.endLine = end.place.endLine;
      includePlace.endColumn = end.place.endColumn;
      exec = text;
      exec.keyword = Keyword::Copy;
      exec.text = text.text.drop_front(member.size()).trim(" \t\f\v\n");
      return;
    }
    block.assign({end, text, language});
  }
  state = State::EmbeddedBlock;
}

/// Whether \p mark is the next character of the text, on this line or after blanks.
bool Lexer::isAhead(char mark) {
  for (;;) {
    llvm::StringRef rest(scanner.getCursor(), scanner.getEnd() - scanner.getCursor());
    rest = rest.ltrim();
    if (!rest.empty() && !rest.starts_with("*>"))
      return rest.front() == mark;
    if (!nextLine())
      return false;
  }
}

/// DFHRESP(condition) and DFHVALUE(state) are numbers. Without the parentheses the words are names
/// like others.
void Lexer::readCicsConstant(Token &token) {
  if (!isAhead('('))
    return;
  Token open, word, close;
  next(open);
  next(word);
  if (!word.isWord() || !isAhead(')')) {
    block.assign({word, open});
    state = State::EmbeddedBlock;
    return;
  }
  next(close);
  llvm::StringRef name = word.spelling;
  SourceRange place = token.place;
  place.endLine = close.place.endLine;
  place.endColumn = close.place.endColumn;

  const std::optional<unsigned> number =
      token.is(Keyword::Dfhresp) ? cicsCondition(name) : cicsState(name);
  if (!context.options.cics) {
    context.diagnostics.report(DiagnosticId::CicsConstantWithoutOption, place,
                               (token.text + "(" + name + ")").str());
  } else if (!number && token.is(Keyword::Dfhvalue)) {
    context.diagnostics.report(DiagnosticId::UnknownCicsValue, place, name);
  } else if (!number) {
    llvm::StringRef meant = nearestCicsCondition(name);
    context.diagnostics.report(DiagnosticId::UnknownCicsCondition, place, name,
                               meant.empty() ? "" : ("; was " + meant + " meant?").str());
  }
  token.place = place;
  token.kind = TokenKind::IntegerLiteral;
  token.keyword = Keyword::None;
  token.interned = nullptr;
  token.text = token.spelling = internString(std::to_string(number.value_or(0)));
}

/// Where on its last line an embedded block ends that has no END-EXEC: after a misspelt END-EXEC,
/// or before a period at the end of the line. 0 where the line ends no block, or an END-EXEC
/// follows before another block begins. \p line is not empty.
size_t Lexer::findMisspeltEnd(llvm::StringRef line) const {
  llvm::StringRef text = line.rtrim(" \t\f\v");
  bool hasPeriod = text.consume_back(".");
  llvm::StringRef last = text.substr(text.find_last_of(" \t") + 1);
  bool isMisspelt = last.size() >= 6 &&
                    (last.starts_with_insensitive("END-") || last.ends_with_insensitive("EXEC"));
  if (!hasPeriod && !isMisspelt)
    return 0;
  llvm::StringRef rest = lines.getRest();
  size_t end = rest.find_insensitive("END-EXEC");
  if (end != llvm::StringRef::npos && !rest.take_front(end).contains_insensitive("EXEC "))
    return 0;
  return text.end() - line.begin();
}

/// Where END-EXEC begins in \p line: a word of its own, and not inside of a literal that ends on
/// the line. npos without one.
static size_t findEndExec(llvm::StringRef line) {
  constexpr llvm::StringLiteral terminator = "END-EXEC";
  size_t checked = 0; // no literal is open here
  for (size_t at = 0; (at = line.find_insensitive(terminator, at)) != llvm::StringRef::npos; ++at) {
    llvm::StringRef after = line.substr(at + terminator.size());
    if ((at > 0 && isWordCharacter(line[at - 1])) ||
        (!after.empty() && isWordCharacter(after.front())))
      continue;
    while (checked <= at) {
      const size_t quote = line.find_first_of("'\"", checked);
      if (quote == llvm::StringRef::npos || quote > at)
        return at;
      const size_t close = line.find(line[quote], quote + 1);
      if (close == llvm::StringRef::npos)
        return at;
      checked = close + 1;
    }
  }
  return llvm::StringRef::npos;
}

/// Reads what stands before END-EXEC as one token, which may be empty.
void Lexer::readEmbeddedText(Token &token) {
  state = State::Plain;
  llvm::SmallString<256> joined;
  SourceRange place;
  const char *firstByte = nullptr;
  const char *lastByte = nullptr;
  unsigned pieces = 0;
  bool isTerminated = false;
  bool isAtProgram = false;
  llvm::SmallVector<EmbeddedRun, 16> runs;

  auto noteRuns = [&](llvm::StringRef piece, size_t offset) {
    const SourceRange whole = lines.rangeOf(piece.begin(), piece.end() - 1);
    runs.push_back({static_cast<std::uint32_t>(offset), whole.beginLine, whole.beginColumn});
    const std::size_t columns = whole.endColumn - whole.beginColumn + 1;
    const bool isSimple = whole.beginLine == whole.endLine && columns == piece.size();
    if (isSimple || lines.hasControlBytes())
      return;
    // Tabs, characters of several bytes, continued lines.
    for (const char &c : piece.drop_front()) {
      const SourceRange at = lines.rangeOf(&c, &c);
      const auto here = static_cast<std::uint32_t>(offset + (&c - piece.begin()));
      const EmbeddedRun &run = runs.back();
      if (at.beginLine != run.line || at.beginColumn != run.column + (here - run.offset))
        runs.push_back({here, at.beginLine, at.beginColumn});
    }
  };

  auto append = [&](llvm::StringRef piece) {
    llvm::StringRef trimmed = piece.trim(" \t\f\v");
    if (trimmed.empty())
      return;
    SourceRange range = lines.rangeOf(trimmed.begin(), trimmed.end() - 1);
    if (pieces++ == 0) {
      place = range;
      firstByte = trimmed.begin();
    } else {
      joined += '\n';
    }
    // Indentation inside the text stays, for languages in which lines matter.
    noteRuns(trimmed, joined.size() + (pieces == 1 ? 0 : trimmed.begin() - piece.begin()));
    joined += pieces == 1 ? trimmed : piece.rtrim(" \t\f\v");
    place.endLine = range.endLine;
    place.endColumn = range.endColumn;
    lastByte = trimmed.end();
  };

  for (;;) {
    llvm::StringRef rest(scanner.getCursor(), scanner.getEnd() - scanner.getCursor());
    const size_t end = findEndExec(rest);
    append(rest.take_front(end));
    isTerminated = end != llvm::StringRef::npos;
    if (isTerminated) {
      // Its token is marked as preceded by a space.
      bool isAfterSpace = end > 0 && isBlank(rest[end - 1]);
      scanner.setCursor(rest.begin() + end - isAfterSpace);
      if (pieces == 0)
        place = lines.rangeOf(rest.begin() + end, rest.begin() + end);
      break;
    }
    scanner.setCursor(scanner.getEnd());
    if (size_t length = findMisspeltEnd(rest)) {
      scanner.setCursor(rest.begin() + length);
      break;
    }
    if (!nextLine())
      break;
    // What cannot be in any block shows that END-EXEC is missing.
    isAtProgram =
        isProgramLine() || (pieces > 0 && embedding.is(Keyword::Cics) && isStatementLine());
    if (isAtProgram)
      break;
  }
  if (!isTerminated) {
    context.diagnostics.report(DiagnosticId::UnclosedEmbeddedText, embedding.place, embedding.text);
    SourceRange skipped = embedding.place;
    skipped.endLine = std::max(skipped.endLine, place.endLine);
    context.diagnostics.noteDamage(skipped);
    if (pieces == 0)
      place = lines.endOfFile();
  }

  token = Token();
  token.kind = TokenKind::EmbeddedText;
  token.flags = Token::PrecededBySpace;
  token.place = place;
  atLineStart = isAtProgram || (atLineStart && isTerminated && pieces == 0);
  if (pieces == 1) {
    token.text = llvm::StringRef(firstByte, lastByte - firstByte);
  } else if (pieces > 1) {
    char *text = static_cast<char *>(allocateForever(joined.size(), 1));
    std::memcpy(text, joined.data(), joined.size());
    token.text = llvm::StringRef(text, joined.size());
    token.flags |= Token::Continued;
  }
  token.spelling = token.text;
  auto *kept = static_cast<EmbeddedRun *>(
      allocateForever(runs.size() * sizeof(EmbeddedRun), alignof(EmbeddedRun)));
  std::uninitialized_copy(runs.begin(), runs.end(), kept);
  token.embedded = new (allocateForever(sizeof(EmbeddedLines), alignof(EmbeddedLines)))
      EmbeddedLines(token.text, token.place.file, {kept, runs.size()});
}

/// Whether the line that was just read begins with a header: in fixed form anything in area A, in
/// free form the name of a paragraph that may follow, or the header of a division.
bool Lexer::isHeaderLine() const {
  llvm::StringRef text(lines.begin(), lines.end() - lines.begin());
  llvm::StringRef first = text.ltrim(" \t\f\v");
  if (lines.getFormat() != SourceFormat::Free)
    return lines.isInAreaA(first.begin());
  llvm::StringRef word = first.take_while(isWordCharacter);
  Keyword keyword = context.words.lookup(word).keyword;
  if (!(flagsOf(keyword) & KF_Header))
    return false;
  switch (keyword) {
  case Keyword::Identification:
  case Keyword::Id:
  case Keyword::Environment:
  case Keyword::Data:
  case Keyword::Procedure: {
    llvm::StringRef second = first.drop_front(word.size()).ltrim(" \t");
    return second.take_while(isWordCharacter).equals_insensitive("DIVISION");
  }
  default:
    // The name of a paragraph, which its period makes one.
    return first.drop_front(word.size()).ltrim(" \t").starts_with(".");
  }
}

/// Whether the line that was just read begins with the verb of a statement that is no command and
/// no option of CICS either, so that END-EXEC is missing before it.
bool Lexer::isStatementLine() const {
  const llvm::StringRef text = llvm::StringRef(lines.begin(), lines.end() - lines.begin()).ltrim();
  const llvm::StringRef word = text.take_while(isWordCharacter);
  static constexpr Keyword verbs[] = {Keyword::Compute, Keyword::Display, Keyword::Evaluate,
                                      Keyword::Goback,  Keyword::If,      Keyword::Move,
                                      Keyword::Perform};
  return llvm::is_contained(verbs, context.words.lookup(word).keyword) &&
         !text.drop_front(word.size()).ltrim().starts_with("(");
}

/// Whether the line that was just read can only be of the program, and not of a block that is
/// embedded in it: another block begins, or a division or section does.
bool Lexer::isProgramLine() const {
  llvm::StringRef text(lines.begin(), lines.end() - lines.begin());
  auto takeKeyword = [&] {
    text = text.ltrim(" \t");
    llvm::StringRef word = text.take_while(isWordCharacter);
    text = text.drop_front(word.size());
    return context.words.lookup(word).keyword;
  };
  Keyword first = takeKeyword();
  if (first == Keyword::Exec || first == Keyword::Execute) {
    Keyword second = takeKeyword();
    return second == Keyword::Sql || second == Keyword::Cics || second == Keyword::Dli;
  }
  return (flagsOf(first) & KF_Header) &&
         llvm::is_contained({Keyword::Division, Keyword::Section}, takeKeyword());
}

void Lexer::skipRemark() {
  if (state == State::EmbeddedBlock)
    state = State::Plain;
  for (;;) {
    const char *end = scanner.getEnd();
    for (const char *at = scanner.getCursor(); at < end; ++at)
      if (*at == '.' && (at + 1 == end || isBlank(at[1]))) {
        scanner.setCursor(at);
        return;
      }
    if (!nextLine() || isHeaderLine())
      return;
  }
}

void Lexer::skipCommentEntry() {
  if (state == State::EmbeddedBlock)
    state = State::Plain;
  if (atLineStart && isHeaderLine())
    return;
  do {
    if (!nextLine())
      return;
  } while (!isHeaderLine());
}

} // namespace tarka
