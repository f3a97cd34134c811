//===- ParserBase.cpp - tokens, names and literals ------------------------===//

#include "Parse/ParserBase.h"
#include "AST/Spelling.h"
#include "Parse/MisspeltWords.h"
#include "Parse/SourceDiagnostics.h"
#include "llvm/ADT/SmallString.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// Tokens
//===----------------------------------------------------------------------===//

/// Whether the mistake is new. The text around it is damaged in any case: where it is found out by
/// what follows, the mistake itself is before that.
bool ParserBase::isToBeReported(DiagnosticId id, const SourceRange &place) {
  constexpr unsigned maxLine = 24;
  // The program goes on where the copybook ends.
  if (context.isCopybook && at(TokenKind::EndOfFile))
    return false;
  if (at(TokenKind::Period))
    recovery.noteMisplacedPeriod();
  // What is wrong with the text of the line comes first.
  for (unsigned n = 1; n < maxLine && !peek(n).isFirstOnLine() && !peek(n).is(TokenKind::EndOfFile);
       ++n)
    ;
  SourceDamage &damage = context.diagnostics.getDamage();
  damage.add(place);
  if (beginsSuppression(id))
    damage.add(stream.getLastPlace());
  // What is left of a clause that was not understood is not a mistake of its own.
  const bool isLeftOver = recovery.isConstructDamaged() &&
                          (id == DiagnosticId::UnknownClause || id == DiagnosticId::PhraseApart);
  if (isLeftOver || !recovery.shouldReport(id, place) || atUnreplacedTag())
    return false;
  const CutLine *cut = stream.getSourceDiagnostics().findCutLine(stream.getLastPlace(), place);
  const bool isWrong = isError(infoOf(id).severity);
  if (!cut) {
    if (isWrong)
      context.lastWrongLine = {place.file, place.beginLine};
    return true;
  }
  cut->isReported = true;
  // A word too much makes a line too long as well.
  const std::pair cutLine(cut->place.file, cut->place.beginLine);
  if (context.lastWrongLine != cutLine)
    context.diagnostics.report(cut->id, cut->place, cut->text);
  damage.add(cut->place);
  context.lastWrongLine = cutLine;
  return false;
}

void ParserBase::noteMistake() {
  stream.getOpenConstructs().noteMistake();
  context.diagnostics.getDamage().add(here());
}

/// Whether a mistake is found at a tag such as :TAG:, which is part of a name until COPY REPLACING
/// or REPLACE replaces it. That is reported once for each file and tag; a copybook that is read by
/// itself has its tags without any replacement.
bool ParserBase::atUnreplacedTag() {
  auto isJoined = [this](unsigned n) {
    const Token &next = peek(n);
    return !next.isPrecededBySpace() && !next.isFirstOnLine();
  };
  unsigned n = 0;
  if (!at(TokenKind::Colon))
    n = peek(1).is(TokenKind::Colon) && isJoined(1) ? 1 : 0;
  if (!peek(n).is(TokenKind::Colon) || !peek(n + 1).isWord() || !isJoined(n + 1) ||
      !peek(n + 2).is(TokenKind::Colon) || !isJoined(n + 2))
    return false;
  const std::string tag = (":" + peek(n + 1).spelling + ":").str();
  const SourceRange place = peek(n).place;
  context.diagnostics.getDamage().addLostCopy(place);
  const std::pair known(place.file, tag);
  if (context.isCopybook || llvm::is_contained(context.unreplacedTags, known))
    return true;
  context.unreplacedTags.push_back(known);
  context.diagnostics.report(DiagnosticId::TagNotReplaced, place, tag);
  return true;
}

Failure ParserBase::expected(llvm::StringRef what) {
  // The end of the file has no text to point at; the last thing read has.
  const SourceRange &place =
      at(TokenKind::EndOfFile) && stream.getLastPlace().beginLine ? stream.getLastPlace() : here();
  return error(DiagnosticId::Expected, place, what, describe(peek()));
}

bool ParserBase::expect(Keyword keyword, llvm::StringRef shown) {
  if (accept(keyword))
    return true;
  recovery.noteMissing(keyword);
  if (recovery.wasStray(keyword))
    noteMistake();
  else
    expected(shown.empty() ? textOf(keyword) : shown);
  // The keyword misspelt is taken for it.
  bool isMisspelt = peek().isUserWord() && nearestKeyword(peek().text, keyword) != Keyword::None &&
                    !isNamed(peek());
  if (isMisspelt)
    stream.skip();
  return isMisspelt;
}

bool ParserBase::expect(TokenKind kind) {
  if (accept(kind))
    return true;
  expected(describe(kind));
  return false;
}

bool ParserBase::atPeriodInWord() {
  if (!at(TokenKind::Period))
    return false;
  const SourceRange place = here();
  const SourceRange &before = stream.getLastPlace();
  const Token &next = peek(1);
  return before.file == place.file && before.endLine == place.beginLine &&
         before.endColumn + 1U == place.beginColumn && next.isWord() && !next.isVerb() &&
         !next.isPrecededBySpace() && next.place.file == place.file &&
         next.place.beginLine == place.endLine;
}

void ParserBase::skipPastPeriod() {
  Skipping skipping(*this);
  while (!at(TokenKind::EndOfFile))
    if (accept(TokenKind::Period))
      return;
    else
      stream.skip();
}

/// Takes the tokens up to the next space or separator period, and returns their text.
std::string ParserBase::takeRun() {
  std::string run = peek().spelling.str();
  SourceRange last = here();
  stream.skip();
  auto clings = [](const Token &token, const SourceRange &before) {
    const SourceRange &place = token.place;
    return place.file == before.file && place.beginLine == before.endLine &&
           place.beginColumn <= before.endColumn + 1u + token.isAfterComma() &&
           !token.isFromReplacement() && !token.is(TokenKind::EndOfFile);
  };
  for (; clings(peek(), last); stream.skip()) {
    if (at(TokenKind::Period) && !clings(peek(1), here()))
      break;
    // A separator comma is not a token.
    if (peek().isAfterComma())
      run += ',';
    run += peek().spelling;
    last = here();
  }
  return run;
}

//===----------------------------------------------------------------------===//
// Names
//===----------------------------------------------------------------------===//

Word *ParserBase::takeWord() {
  const Token &token = peek();
  Word *word = new Word(token.place, token.getInternedText(), token.getInternedSpelling());
  stream.skip();
  return word;
}

Word *ParserBase::parseUserWord(llvm::StringRef what) {
  if (peek().isUserWord())
    return takeWord();
  if (peek().isWord())
    return error(DiagnosticId::ReservedWord, here(), what, peek().spelling);
  return expected(what);
}

Word *ParserBase::parseDeclaredWord(llvm::StringRef what) {
  if (!peek().isWord() || peek().isUserWord())
    return parseUserWord(what);
  const bool isReported = recovery.isReservedNameReported(peek());
  rejectDeclaredWord(what);
  return isReported ? takeWord() : nullptr;
}

void ParserBase::rejectDeclaredWord(llvm::StringRef what) {
  if (recovery.isReservedNameReported(peek()))
    recovery.noteReservedName(peek());
  error(DiagnosticId::ReservedWord, here(), what, peek().spelling);
  recovery.noteReservedName(peek());
}

Word *ParserBase::parseProcedureWord() {
  if (at(TokenKind::IntegerLiteral))
    return takeWord();
  return parseUserWord("a procedure-name");
}

QualifiedWord *ParserBase::parseQualifiedWord(llvm::StringRef what) {
  return parseQualifiers(parseUserWord(what));
}

QualifiedWord *ParserBase::parseQualifiers(Word *name) {
  if (!name)
    return nullptr;
  auto *names = new QualifiedWord(name);
  names->addNames(name);
  if (!at(Keyword::Of, Keyword::In))
    return names;
  while (acceptAny(Keyword::Of, Keyword::In)) {
    Word *qualifier = parseUserWord("the name that qualifies");
    if (!qualifier)
      return nullptr;
    names->addNames(qualifier);
  }
  return complete(names);
}

QualifiedWord *ParserBase::parseProcedureName() {
  Word *name = parseProcedureWord();
  if (!name)
    return nullptr;
  auto *names = new QualifiedWord(name);
  names->addNames(name);
  // The language allows one qualifier; the checker reports more.
  while (acceptAny(Keyword::Of, Keyword::In)) {
    Word *section = parseProcedureWord();
    if (!section)
      return nullptr;
    names->addNames(section);
  }
  return complete(names);
}

//===----------------------------------------------------------------------===//
// Literals
//===----------------------------------------------------------------------===//

NumericLiteralExpression *ParserBase::parseNumericLiteral() {
  if (!atNumericLiteral())
    return expected("a number");
  SourceRange begin = here();
  llvm::SmallString<40> signedText;
  if (!peek().isNumber()) {
    signedText = peek().spelling;
    stream.skip();
    signedText += peek().spelling;
  }
  const llvm::StringRef text = signedText.empty() ? peek().spelling : llvm::StringRef(signedText);
  stream.skip();
  auto *literal = make<NumericLiteralExpression>(begin, text);
  if (context.decimalPointIsComma)
    literal->convertDecimalPoint(literal->getData());
  return literal;
}

NonNumericLiteralExpression *ParserBase::parseNonNumericLiteral() {
  if (!at(TokenKind::AlphanumericLiteral))
    return expected("a literal in quotes");
  auto *literal = makeAt<NonNumericLiteralExpression>(here(), peek().text);
  checkHexLiteral(peek());
  stream.skip();
  return literal;
}

/// Reports a hexadecimal literal whose digits do not make characters: two each, in NX'...' four.
/// The checks after the parser look at all characters of X'...' but the last one.
void ParserBase::checkHexLiteral(const Token &token) {
  const llvm::StringRef prefix =
      token.text.take_until([](char c) { return c == '"' || c == '\''; });
  const bool isNational = prefix.equals_insensitive("NX");
  if (!isNational && !prefix.equals_insensitive("X"))
    return;
  const llvm::StringRef digits = token.text.drop_front(prefix.size()).trim("\"'");
  const llvm::StringRef wrong = digits.drop_while(llvm::isHexDigit);
  const std::size_t digitsEach = isNational ? 4 : 2;
  if (!wrong.empty() && (isNational || wrong.size() == 1))
    error(DiagnosticId::HexDigitExpected, token.place, describe(token), wrong.take_front());
  else if (wrong.empty() && digits.size() % digitsEach != 0)
    error(DiagnosticId::HexDigitsIncomplete, token.place, describe(token), digits.size(),
          digitsEach);
}

static FigurativeType figurativeTypeOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::Zero:
  case Keyword::Zeros:
  case Keyword::Zeroes:
    return FigurativeType::Zero;
  case Keyword::Space:
  case Keyword::Spaces:
    return FigurativeType::Space;
  case Keyword::HighValue:
  case Keyword::HighValues:
    return FigurativeType::HighValue;
  case Keyword::LowValue:
  case Keyword::LowValues:
    return FigurativeType::LowValue;
  case Keyword::Quote:
  case Keyword::Quotes:
    return FigurativeType::Quote;
  case Keyword::Null:
  case Keyword::Nulls:
    return FigurativeType::Null;
  case Keyword::All:
    return FigurativeType::AllLiteral;
  default:
    return FigurativeType::None;
  }
}

FigurativeLiteralExpression *ParserBase::parseFigurativeConstant() {
  SourceRange begin = here();
  if (accept(Keyword::All)) {
    Depth level(*this);
    if (level.isTooDeep())
      return error(DiagnosticId::NestedTooDeep, begin, maxDepth);
    LiteralExpression *inner = atLiteral() ? parseLiteral() : expected("the literal of ALL");
    if (!inner)
      return nullptr;
    return make<FigurativeLiteralExpression>(begin, FigurativeType::AllLiteral, inner);
  }
  if (FigurativeType type = figurativeTypeOf(peek().keyword); type != FigurativeType::None) {
    stream.skip();
    return makeAt<FigurativeLiteralExpression>(begin, type, nullptr);
  }
  if (peek().isUserWord() && isSymbolicCharacter(peek())) {
    auto *symbol =
        makeAt<FigurativeLiteralExpression>(begin, FigurativeType::SymbolicCharacter, nullptr);
    symbol->setSymbolName(peek().text);
    stream.skip();
    return symbol;
  }
  return expected("a figurative constant");
}

LiteralExpression *ParserBase::parseLiteral() {
  if (atNumericLiteral())
    return parseNumericLiteral();
  if (at(TokenKind::AlphanumericLiteral))
    return parseNonNumericLiteral();
  if (atLiteral())
    return parseFigurativeConstant();
  return expected("a literal");
}

//===----------------------------------------------------------------------===//
// Misspelt keywords
//===----------------------------------------------------------------------===//

// The words between the operands of a statement.
static constexpr Keyword joints[] = {Keyword::By,       Keyword::Delimited, Keyword::From,
                                     Keyword::Giving,   Keyword::Into,      Keyword::Replacing,
                                     Keyword::Tallying, Keyword::To,        Keyword::Until,
                                     Keyword::Upon,     Keyword::Using};

/// Whether the token can only follow an operand, never one of the words that are looked for here.
static bool followsOperand(const Token &token) {
  return token.isOneOf(Keyword::Of, Keyword::In, Keyword::Is, Keyword::And, Keyword::Or,
                       Keyword::Rounded, TokenKind::Equal, TokenKind::Less, TokenKind::Greater) ||
         llvm::is_contained(joints, token.keyword);
}

Keyword ParserBase::misspeltKeyword() {
  if (!at(TokenKind::Word) || !at(Keyword::None))
    return Keyword::None;
  const Token following = peek(1);
  const bool isVerbNext = following.isVerb();
  const bool isAtEnd =
      following.is(TokenKind::Period) || isVerbNext || isScopeTerminator(following.keyword);
  // Most words need no look at what is declared.
  llvm::ArrayRef<EnclosingStatement> enclosing = recovery.getEnclosing();
  const bool isEndPossible = enclosing.size() > 1 || (!enclosing.empty() && enclosing.back().scope);
  if (isAtEnd ? !isEndPossible : followsOperand(following))
    return Keyword::None;
  if (isNamed(peek()))
    return Keyword::None;

  const Token word = peek();
  SpellingMatch match(word.text);
  Keyword meant = Keyword::None;
  auto consider = [&](Keyword candidate) {
    if (match.consider(textOf(candidate)))
      meant = candidate;
  };
  for (const EnclosingStatement &one : llvm::reverse(enclosing))
    if (one.scope)
      consider(one.scope->endWord);
  if (isVerbNext && recovery.canTakeElse())
    consider(Keyword::Else);
  if (isAtEnd)
    return meant;
  if (recovery.canTakeWhen())
    consider(Keyword::When);
  for (Keyword joint : joints)
    consider(joint);
  if (!word.isFirstOnLine() || following.is(TokenKind::LParen))
    return meant;
#define KEYWORD(Enumerator, Text, Flags)                                                           \
  if ((Flags) & KF_Verb)                                                                           \
    consider(Keyword::Enumerator);
#include "Parse/Keywords.def"
  return meant;
}

} // namespace tarka
