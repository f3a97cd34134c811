//===- ParseDataClauses.cpp - clauses of data description entries ---------===//

#include "Parse/MisspeltWords.h"
#include "Parse/ParseData.h"
#include "Parse/ParseSupplied.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

static constexpr Keyword dataKeywords[] = {
    Keyword::Blank,      Keyword::Date,      Keyword::External, Keyword::Global,
    Keyword::GroupUsage, Keyword::Justified, Keyword::Occurs,   Keyword::Picture,
    Keyword::Redefines,  Keyword::Renames,   Keyword::Sign,     Keyword::Synchronized,
    Keyword::Usage,      Keyword::Value,     Keyword::Volatile};
static constexpr auto dataSynonyms =
    joined(joined(std::array{Keyword::Pic, Keyword::Values, Keyword::Just, Keyword::Sync,
                             Keyword::Leading, Keyword::Trailing},
                  valueUsages),
           std::array{Keyword::Disp, Keyword::FunctionPointer, Keyword::Index, Keyword::Object,
                      Keyword::Pointer, Keyword::ProcedurePointer, Keyword::Dynamic, Keyword::Sql,
                      Keyword::Type, Keyword::Indexed, Keyword::Depending});
constinit const ClauseSet dataClauses{"a data description entry", dataKeywords, dataSynonyms,
                                      /*innerWords=*/{},
                                      /*beginsWithName=*/false,
                                      /*endsAtLevelNumber=*/true};

static bool isUsage(Keyword keyword);

bool DataParser::parseDataClause(DataDescription &entry) {
  using Data = DataDescription;
  switch (peek().keyword) {
  case Keyword::Pic:
  case Keyword::Picture:
    return parseOnce(entry, &Data::getPicture, &Data::setPicture, &DataParser::parsePicture);
  case Keyword::Value:
  case Keyword::Values:
    return parseOnce(entry, &Data::getValue, &Data::setValue, &DataParser::parseValue);
  case Keyword::Occurs:
    return parseOnce(entry, &Data::getOccurs, &Data::setOccurs, &DataParser::parseOccurs);
  case Keyword::Redefines:
    return parseOnce(entry, &Data::getRedefines, &Data::setRedefines, &DataParser::parseRedefines);
  case Keyword::Renames:
    return parseOnce(entry, &Data::getRenames, &Data::setRenames, &DataParser::parseRenames);
  case Keyword::Sql:
    return SuppliedParser(context).parseSqlType(entry);
  case Keyword::Usage:
    if (SuppliedParser(context).atSqlType())
      return SuppliedParser(context).parseSqlType(entry);
    return parseOnce(entry, &Data::getUsage, &Data::setUsage, &DataParser::parseUsage);
  case Keyword::GroupUsage:
    return parseOnce(entry, &Data::getGroupUsage, &Data::setGroupUsage,
                     &DataParser::parseGroupUsage);
  case Keyword::Sign:
  case Keyword::Leading:
  case Keyword::Trailing:
    return parseOnce(entry, &Data::getSign, &Data::setSign, &DataParser::parseSign);
  case Keyword::Sync:
  case Keyword::Synchronized:
    return parseOnce(entry, &Data::getSynchronized, &Data::setSynchronized,
                     &DataParser::parseSynchronized);
  case Keyword::Just:
  case Keyword::Justified:
    return parseOnce(entry, &Data::getJustified, &Data::setJustified, &DataParser::parseJustified);
  case Keyword::Blank:
    return parseOnce(entry, &Data::getBlankZero, &Data::setBlankZero, &DataParser::parseBlankZero);
  case Keyword::Date:
    return parseOnce(entry, &Data::getDateFormat, &Data::setDateFormat,
                     &DataParser::parseDateFormat);
  case Keyword::External:
    return parseOnce(entry, &Data::getExternal, &Data::setExternal,
                     &DataParser::parseBareClause<ClauseExternal>);
  case Keyword::Global:
    return parseOnce(entry, &Data::getGlobal, &Data::setGlobal,
                     &DataParser::parseBareClause<ClauseGlobal>);
  case Keyword::Volatile:
    return parseOnce(entry, &Data::getVolatile, &Data::setVolatile,
                     &DataParser::parseBareClause<ClauseVolatile>);
  case Keyword::Indexed:
  case Keyword::Depending:
    // A phrase of OCCURS that another clause divides from it.
    if (!entry.getOccurs()) {
      if (!recovery.isConstructDamaged())
        return unknownClause(dataClauses);
      // The OCCURS clause was reported.
      return parseOccursPhrases(*makeAt<ClauseOccurs>(here()));
    }
    error(DiagnosticId::PhraseApart, here(), describe(peek()), textOf(Keyword::Occurs));
    return parseOccursPhrases(*entry.getOccurs());
  case Keyword::Is:
    // IS EXTERNAL, IS GLOBAL
    if (!peek(1).isOneOf(Keyword::External, Keyword::Global))
      return unknownClause(dataClauses);
    stream.skip();
    return true;
  case Keyword::Dynamic:
    return parseDynamicLength();
  case Keyword::Type:
    return unsupportedClause(textOf(peek().keyword), dataClauses);
  default:
    if (isUsage(peek().keyword))
      return parseOnce(entry, &Data::getUsage, &Data::setUsage, &DataParser::parseUsage);
    return unknownClause(dataClauses);
  }
}

//===----------------------------------------------------------------------===//
// PICTURE and USAGE
//===----------------------------------------------------------------------===//

/// After a misspelt PICTURE the stream does not know that a picture follows, and makes several
/// tokens of it.
Word *DataParser::parsePictureString() {
  if (at(TokenKind::PictureString)) {
    bool isKeyword =
        peek().text.equals_insensitive("PIC") || peek().text.equals_insensitive("PICTURE");
    if (!isKeyword)
      return takeWord();
    expected("a picture character-string");
    stream.skip();
  }
  SourceRange begin = here();
  if (at(TokenKind::Period, TokenKind::EndOfFile) || peek().isFirstOnLine())
    return error(DiagnosticId::MissingPicture, begin, textOf(Keyword::Picture));
  const std::string &text = internString(takeRun());
  return new Word(from(begin).getRange(), &text, &text);
}

/// Whether the picture string has a parenthesis that a space keeps from being closed, as in X(1 0).
bool DataParser::isPictureDivided(const Word &string) {
  llvm::StringRef text = string.getWordData();
  return text.count('(') > text.count(')') && !at(TokenKind::Period) && !peek().isFirstOnLine() &&
         !dataClauses.contains(peek().keyword);
}

/// Reports a divided picture string and skips the rest of it. Its parenthesis is closed, so that
/// the item can be checked all the same.
Word *DataParser::mendPicture(const Word &string) {
  llvm::StringRef text = string.getWordData();
  error(DiagnosticId::PictureDivided, string.getRange(), text);
  while (!at(TokenKind::Period) && !peek().isFirstOnLine() && !dataClauses.contains(peek().keyword))
    takeRun();
  auto [front, count] = text.rsplit('(');
  count = count.take_while(llvm::isDigit);
  std::string closed = count.empty() ? front.str() : (front + "(" + count + ")").str();
  const std::string &mended = internString(closed);
  return new Word(from(string.getRange()).getRange(), &mended, &mended);
}

/// {PICTURE | PIC} [IS] character-string
ClausePicture *DataParser::parsePicture() {
  SourceRange begin = here();
  stream.skip();
  accept(Keyword::Is);
  Word *string = parsePictureString();
  if (!string)
    return nullptr;
  if (isPictureDivided(*string))
    string = mendPicture(*string);
  auto *picture = make<ClausePicture>(begin, string);
  if (context.decimalPointIsComma)
    picture->decodePicture(/*decimalPointIsComma=*/true);
  return picture;
}

/// The usage that the keyword names; None for other keywords.
static UsageType usageOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::Binary:
    return UsageType::Binary;
  case Keyword::Comp:
  case Keyword::Computational:
    return UsageType::Comp;
  case Keyword::Comp1:
  case Keyword::Computational1:
    return UsageType::Comp1;
  case Keyword::Comp2:
  case Keyword::Computational2:
    return UsageType::Comp2;
  case Keyword::Comp3:
  case Keyword::Computational3:
    return UsageType::Comp3;
  case Keyword::Comp4:
  case Keyword::Computational4:
    return UsageType::Comp4;
  case Keyword::Comp5:
  case Keyword::Computational5:
    return UsageType::Comp5;
  case Keyword::Disp:
  case Keyword::Display:
    return UsageType::Display;
  case Keyword::Display1:
    return UsageType::Display1;
  case Keyword::Index:
    return UsageType::Index;
  case Keyword::National:
    return UsageType::National;
  case Keyword::PackedDecimal:
    return UsageType::PackedDecimal;
  case Keyword::Pointer:
    return UsageType::Pointer;
  case Keyword::ProcedurePointer:
    return UsageType::ProcedurePointer;
  case Keyword::FunctionPointer:
    return UsageType::FunctionPointer;
  default:
    return UsageType::None;
  }
}

/// The usage that is nearest to one that is not supported, so that an item of it can be judged all
/// the same; None for other keywords.
static UsageType usageInsteadOf(Keyword keyword) {
  switch (keyword) {
  case Keyword::Bit:
  case Keyword::Utf8:
    return UsageType::Display;
  case Keyword::Object:
  case Keyword::Pointer24:
  case Keyword::Pointer31:
  case Keyword::Pointer32:
  case Keyword::Pointer64:
    return UsageType::Pointer;
  default:
    return UsageType::None;
  }
}

/// Whether an item of the usage has the size of the one that stands for it: it is an address of
/// four bytes.
static bool hasItsSize(Keyword keyword) {
  return keyword == Keyword::Object || keyword == Keyword::Pointer24 ||
         keyword == Keyword::Pointer31 || keyword == Keyword::Pointer32;
}

/// Whether the keyword is a usage, supported or not.
static bool isUsage(Keyword keyword) {
  return usageOf(keyword) != UsageType::None || usageInsteadOf(keyword) != UsageType::None;
}

/// [USAGE [IS]] usage [NATIVE]
ClauseUsage *DataParser::parseUsage() {
  SourceRange begin = here();
  if (accept(Keyword::Usage))
    accept(Keyword::Is);
  UsageType type = usageOf(peek().keyword);
  if (type == UsageType::None && peek().isWord()) {
    Keyword meant = nearestKeyword(peek().text, dataSynonyms);
    type = at(meant) ? UsageType::None : usageOf(meant);
    if (type != UsageType::None) {
      error(DiagnosticId::MisspeltClause, here(), describe(peek()), dataClauses.owner,
            textOf(meant));
      stream.correct(meant);
    }
  }
  if (type == UsageType::None) {
    type = usageInsteadOf(peek().keyword);
    if (type == UsageType::None)
      return expected("a usage");
    if (!hasItsSize(peek().keyword))
      error(DiagnosticId::NotSupported, here(), "USAGE " + textOf(peek().keyword).str());
  }
  // OBJECT REFERENCE names a class.
  if (accept(Keyword::Object)) {
    accept(Keyword::Reference);
    if (peek().isUserWord())
      stream.skip();
  } else {
    stream.skip();
  }
  accept(Keyword::Native);
  return make<ClauseUsage>(begin, type);
}

/// DYNAMIC [LENGTH] [LIMIT [IS] integer]: the item has one character at first. How long it can
/// become has no place in the tree.
bool DataParser::parseDynamicLength() {
  accept(Keyword::Dynamic);
  accept(Keyword::Length);
  if (!accept(Keyword::Limit))
    return true;
  accept(Keyword::Is);
  return parseNumericLiteral();
}

/// GROUP-USAGE [IS] NATIONAL
ClauseGroupUsage *DataParser::parseGroupUsage() {
  SourceRange begin = here();
  accept(Keyword::GroupUsage);
  accept(Keyword::Is);
  if (!expect(Keyword::National))
    return nullptr;
  return make<ClauseGroupUsage>(begin);
}

/// [SIGN [IS]] {LEADING | TRAILING} [SEPARATE [CHARACTER]]
ClauseSign *DataParser::parseSign() {
  SourceRange begin = here();
  if (accept(Keyword::Sign))
    accept(Keyword::Is);
  bool isLeading = accept(Keyword::Leading);
  if (!isLeading && !accept(Keyword::Trailing))
    return expected("LEADING or TRAILING");
  bool isSeparate = accept(Keyword::Separate);
  if (isSeparate)
    accept(Keyword::Character);
  return make<ClauseSign>(begin, isLeading, isSeparate);
}

/// {SYNCHRONIZED | SYNC} [LEFT | RIGHT]
ClauseSynchronized *DataParser::parseSynchronized() {
  SourceRange begin = here();
  stream.skip();
  Word *side = at(Keyword::Left, Keyword::Right) ? takeWord() : nullptr;
  return make<ClauseSynchronized>(begin, side);
}

/// {JUSTIFIED | JUST} [RIGHT]
ClauseJustified *DataParser::parseJustified() {
  SourceRange begin = here();
  stream.skip();
  accept(Keyword::Right);
  return make<ClauseJustified>(begin);
}

/// BLANK [WHEN] {ZERO | ZEROS | ZEROES}
ClauseBlankZero *DataParser::parseBlankZero() {
  SourceRange begin = here();
  accept(Keyword::Blank);
  accept(Keyword::When);
  if (!acceptAny(Keyword::Zero, Keyword::Zeros, Keyword::Zeroes))
    return expected("ZERO");
  return make<ClauseBlankZero>(begin);
}

/// DATE FORMAT [IS] pattern
ClauseDateFormat *DataParser::parseDateFormat() {
  SourceRange begin = here();
  accept(Keyword::Date);
  if (!expect(Keyword::Format))
    return nullptr;
  accept(Keyword::Is);
  if (!peek().isWord())
    return expected("a date pattern");
  // In a pattern letters of both cases differ.
  auto *pattern = new Word(here(), peek().getInternedSpelling(), peek().getInternedSpelling());
  stream.skip();
  return make<ClauseDateFormat>(begin, pattern);
}

//===----------------------------------------------------------------------===//
// REDEFINES and RENAMES
//===----------------------------------------------------------------------===//

/// REDEFINES data-name
ClauseRedefines *DataParser::parseRedefines() {
  SourceRange begin = here();
  accept(Keyword::Redefines);
  DataIdentifierExpression *object = parseDataName();
  if (!object)
    return nullptr;
  return make<ClauseRedefines>(begin, object);
}

/// RENAMES data-name [{THROUGH | THRU} data-name]
ClauseRenames *DataParser::parseRenames() {
  SourceRange begin = here();
  accept(Keyword::Renames);
  DataIdentifierExpression *first = parseDataName();
  if (!first)
    return nullptr;
  DataIdentifierExpression *last = nullptr;
  if (acceptAny(Keyword::Thru, Keyword::Through)) {
    last = parseDataName();
    if (!last)
      return nullptr;
  }
  return make<ClauseRenames>(begin, first, last);
}

//===----------------------------------------------------------------------===//
// OCCURS
//===----------------------------------------------------------------------===//

/// OCCURS bounds [DEPENDING ON data-name] [KEY phrases] [INDEXED BY names]
ClauseOccurs *DataParser::parseOccurs() {
  SourceRange begin = here();
  accept(Keyword::Occurs);
  auto *occurs = makeAt<ClauseOccurs>(begin);
  if (!parseOccursBounds(*occurs) || !parseOccursPhrases(*occurs))
    return nullptr;
  return complete(occurs);
}

/// [DEPENDING ON data-name] [KEY phrases] [INDEXED BY names], in any order.
bool DataParser::parseOccursPhrases(ClauseOccurs &occurs) {
  while (true) {
    if (accept(Keyword::Depending)) {
      accept(Keyword::On);
      DataIdentifierExpression *object = parseDataName();
      if (!object)
        return false;
      occurs.setOdoName(object);
    } else if (at(Keyword::Ascending, Keyword::Descending)) {
      Key *key = parseOccursKey();
      if (!key)
        return false;
      occurs.addKey(key);
    } else if (accept(Keyword::Indexed)) {
      if (!parseIndexNames(occurs))
        return false;
    } else {
      return true;
    }
  }
}

/// In the place of UNBOUNDED: no table has more elements, because no item has more characters.
static constexpr llvm::StringLiteral mostOccurrences = "999999999";

/// [n TO] m [TIMES]. That there must be a number is a rule of the checker.
bool DataParser::parseOccursBounds(ClauseOccurs &occurs) {
  bool isMissing = at(Keyword::Times, Keyword::Depending, Keyword::Ascending, Keyword::Descending,
                      Keyword::Indexed) ||
                   at(TokenKind::Period);
  if (!isMissing && !at(Keyword::Unbounded)) {
    NumericLiteralExpression *bound = parseNumericLiteral();
    if (!bound)
      return false;
    occurs.setMaxExpr(bound);
  }
  if (accept(Keyword::To) && !at(Keyword::Unbounded)) {
    NumericLiteralExpression *bound = parseNumericLiteral();
    if (!bound)
      return false;
    occurs.setMinExpr(occurs.getMaxExpr());
    occurs.setMaxExpr(bound);
  }
  if (at(Keyword::Unbounded)) {
    occurs.setMinExpr(occurs.getMaxExpr());
    occurs.setMaxExpr(makeAt<NumericLiteralExpression>(here(), mostOccurrences));
    stream.skip();
  }
  if (!accept(Keyword::Times) && peek().isWord() && !dataClauses.contains(peek().keyword) &&
      nearestKeyword(peek().text, Keyword::Times) != Keyword::None) {
    expected(textOf(Keyword::Times));
    stream.skip();
  }
  return true;
}

/// {ASCENDING | DESCENDING} [KEY] [IS] data-name ...
///
/// The checker reports a key that is a literal. A number is more likely a level number.
Key *DataParser::parseOccursKey() {
  SourceRange begin = here();
  SortOrder order = at(Keyword::Ascending) ? SortOrder::Ascending : SortOrder::Descending;
  stream.skip();
  accept(Keyword::Key);
  accept(Keyword::Is);
  Key *key = makeAt<Key>(begin, order);
  do {
    Expression *name = nullptr;
    if (at(TokenKind::AlphanumericLiteral))
      name = parseLiteral();
    else
      name = parseDataName();
    if (!name)
      return nullptr;
    key->addData(name);
  } while (peek().isUserWord() || at(TokenKind::AlphanumericLiteral));
  return complete(key);
}

/// INDEXED [BY] index-name ...
bool DataParser::parseIndexNames(ClauseOccurs &occurs) {
  accept(Keyword::By);
  // A word before a literal or IS is not an index-name; it was meant to begin the next clause.
  auto atAnother = [this] {
    const Token &next = peek(1);
    bool isLiteral =
        next.is(TokenKind::AlphanumericLiteral) || (next.isNumber() && !next.isFirstOnLine());
    return peek().isUserWord() && !isLiteral && !next.is(Keyword::Is);
  };
  do {
    Word *name = parseUserWord("an index-name");
    if (!name)
      return false;
    auto *qualified = makeAt<QualifiedWord>(name->getRange());
    qualified->addNames(name);
    context.indexNames.insert(&name->getWordData());
    occurs.addIndex(
        makeAt<DataIdentifierExpression>(name->getRange(), qualified, nullptr, nullptr));
  } while (atAnother());
  return true;
}

//===----------------------------------------------------------------------===//
// VALUE
//===----------------------------------------------------------------------===//

/// {VALUE | VALUES} [IS | ARE] {value [{THROUGH | THRU} value]} ...
/// [WHEN SET TO FALSE [IS] literal]
ClauseValue *DataParser::parseValue() {
  SourceRange begin = here();
  stream.skip();
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClauseValue>(begin);
  auto atFalse = [&] {
    return at(Keyword::False) ||
           (at(Keyword::When) && peek(1).isOneOf(Keyword::Set, Keyword::False));
  };
  do {
    // That there is a value besides that of FALSE is a rule of the checker.
    PhraseValue *phrase = atFalse() ? makeAt<PhraseValue>(begin) : parseValuePhrase();
    if (!phrase)
      return nullptr;
    clause->addPhraseValue(phrase);
  } while (atLiteral() && !atLevelNumber());

  if (atFalse()) {
    accept(Keyword::When);
    accept(Keyword::Set);
    accept(Keyword::To);
    if (!expect(Keyword::False))
      return nullptr;
    accept(Keyword::Is);
    LiteralExpression *literal = parseLiteral();
    if (!literal)
      return nullptr;
    clause->setFalseValue(literal);
  }
  return complete(clause);
}

PhraseValue *DataParser::parseValuePhrase() {
  SourceRange begin = here();
  LiteralExpression *literal = nullptr;
  Word *word = nullptr;
  if (!parseValueOperand(literal, word))
    return nullptr;
  auto *phrase = makeAt<PhraseValue>(begin);
  phrase->setLiteral1(literal);
  phrase->setWord1(word);
  if (acceptAny(Keyword::Thru, Keyword::Through)) {
    if (!parseValueOperand(literal, word))
      return nullptr;
    phrase->setLiteral2(literal);
    phrase->setWord2(word);
  }
  return complete(phrase);
}

/// A literal, or the name of a symbolic character, which the checker replaces by the literal, or
/// reports as unknown.
bool DataParser::parseValueOperand(LiteralExpression *&literal, Word *&word) {
  literal = nullptr;
  word = nullptr;
  if (peek().isUserWord())
    word = takeWord();
  else
    literal = parseLiteral();
  return literal || word;
}

} // namespace tarka
