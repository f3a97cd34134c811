//===- ParseEnvironment.cpp - environment division, configuration ---------===//

#include "Parse/ParseEnvironment.h"
#include "AST/IntrinsicFunctions.h"
#include "Parse/Encoding.h"
#include "Parse/MisspeltWords.h"
#include "Parse/ParseData.h"
#include "Parse/ParseFileControl.h"
#include "llvm/ADT/StringExtras.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// The division
//===----------------------------------------------------------------------===//

static constexpr Keyword environmentHeaders[] = {
    Keyword::Configuration, Keyword::SourceComputer, Keyword::ObjectComputer, Keyword::SpecialNames,
    Keyword::Repository,    Keyword::InputOutput,    Keyword::FileControl,    Keyword::IOControl};

/// The division and its parts are attached to the tree before they are parsed, because the parser
/// looks up there what they declare.
EnvironmentDivision *EnvironmentParser::parseEnvironmentDivision() {
  SourceRange begin = here();
  if (atDivision(Keyword::Environment)) {
    takeDivisionHeader(Keyword::Environment);
    expectPeriod();
  }
  EnvironmentDivision *division = context.unit->getEnvironmentDivision();
  if (!division) {
    division = makeAt<EnvironmentDivision>(begin);
    context.unit->setEnvironmentDivision(division);
  }

  for (Progress progress(stream); !atUnitBoundary(); progress.ensure()) {
    if (accept(TokenKind::Period))
      continue;
    if (peek().isFirstOnLine())
      recovery.resumeReporting();
    Keyword header = at(Keyword::Section) ? environmentSectionAt() : peek().keyword;
    if (!llvm::is_contained(environmentHeaders, header))
      header = misspeltHeader(environmentHeaders);
    if (header != Keyword::None) {
      parseEnvironmentPart(*division, header);
      continue;
    }
    if (atDataSection()) {
      // Where the divisions are exchanged, the header stands further up.
      if (!context.unit->getDataDivision())
        missingHeader(Keyword::Data, "DATA DIVISION");
      DataParser(context).parseDataDivision();
      break;
    }
    if (at(Keyword::Select)) {
      // FILE-CONTROL may have come before INPUT-OUTPUT SECTION, or not at all.
      if (!isHeaderDisplaced(Keyword::InputOutput))
        missingHeader(Keyword::FileControl, textOf(Keyword::FileControl));
      FileControlParser(context).parseFileEntries(
          inputOutputSectionOf(*division, /*hasHeader=*/true));
      continue;
    }
    if (atSpecialNamesClause(*division)) {
      // A header that came into the paragraph from further up does not end it.
      if (!isHeaderDisplaced(Keyword::Configuration))
        missingHeader(Keyword::SpecialNames, textOf(Keyword::SpecialNames));
      context.missingHeaders.insert(Keyword::SpecialNames);
      parseSpecialNames(*division->getConfigurationSection());
      continue;
    }
    if (peek(1).is(Keyword::Section))
      error(DiagnosticId::HeaderNotHere, here(), describe(peek()), "environment division");
    else
      expected("a section or paragraph of the environment division");
    Skipping skipping(*this);
    do
      stream.skip();
    while (!atPartHeader());
  }
  return complete(division);
}

/// The section whose header begins with SECTION and goes on with its name or its content; None for
/// a section of another division.
Keyword EnvironmentParser::environmentSectionAt() {
  return sectionOfParagraph(peek(peek(1).is(TokenKind::Period) ? 2 : 1).keyword);
}

/// The section that is named \p header or has a paragraph of that name.
Keyword EnvironmentParser::sectionOfParagraph(Keyword header) {
  switch (header) {
  case Keyword::Configuration:
  case Keyword::SourceComputer:
  case Keyword::ObjectComputer:
  case Keyword::SpecialNames:
    return Keyword::Configuration;
  case Keyword::InputOutput:
  case Keyword::FileControl:
  case Keyword::IOControl:
    return Keyword::InputOutput;
  default:
    return Keyword::None;
  }
}

/// The one of \p headers that a word followed as a header is was meant to be, with a message; None
/// when it is like none of them.
Keyword EnvironmentParser::misspeltHeader(llvm::ArrayRef<Keyword> headers) {
  if (!peek(1).is(Keyword::Section) && !peek(1).is(TokenKind::Period))
    return Keyword::None;
  Keyword meant = peek().isWord() ? nearestKeyword(peek().text, headers) : Keyword::None;
  // A damaged name of a section is recognised by its first paragraph.
  if (meant == Keyword::None && peek(1).is(Keyword::Section) && peek(2).is(TokenKind::Period))
    meant = sectionOfParagraph(peek(3).keyword);
  if (meant != Keyword::None)
    error(DiagnosticId::MisspeltHeader, here(), describe(peek()), textOf(meant));
  return meant;
}

void EnvironmentParser::parseEnvironmentPart(EnvironmentDivision &division, Keyword header) {
  switch (header) {
  case Keyword::Configuration:
    if (division.getConfigurationSection() && !isHeaderDisplaced(header))
      error(DiagnosticId::HeaderTwice, here(), "CONFIGURATION SECTION");
    configurationSectionOf(division, /*hasHeader=*/true);
    takeSectionHeader(header);
    return;
  case Keyword::InputOutput:
    if (division.getInputOutputSection() && !isHeaderDisplaced(header))
      error(DiagnosticId::HeaderTwice, here(), "INPUT-OUTPUT SECTION");
    inputOutputSectionOf(division, /*hasHeader=*/true);
    takeSectionHeader(header);
    return;
  case Keyword::SourceComputer:
    parseSourceComputer(configurationSectionOf(division, /*hasHeader=*/false));
    return;
  case Keyword::ObjectComputer:
    parseObjectComputer(configurationSectionOf(division, /*hasHeader=*/false));
    return;
  case Keyword::SpecialNames:
    parseSpecialNames(configurationSectionOf(division, /*hasHeader=*/false));
    return;
  case Keyword::Repository:
    configurationSectionOf(division, /*hasHeader=*/false);
    parseRepository();
    return;
  case Keyword::FileControl:
    FileControlParser(context).parseFileControl(
        inputOutputSectionOf(division, /*hasHeader=*/false));
    return;
  default:
    FileControlParser(context).parseIOControl(inputOutputSectionOf(division, /*hasHeader=*/false));
  }
}

/// The section, made when its header or, with a message, its first paragraph is next.
ConfigurationSection &EnvironmentParser::configurationSectionOf(EnvironmentDivision &division,
                                                                bool hasHeader) {
  if (!division.getConfigurationSection()) {
    if (!hasHeader && !isHeaderDisplaced(Keyword::Configuration))
      missingHeader(Keyword::Configuration, "CONFIGURATION SECTION");
    division.setConfigurationSection(makeAt<ConfigurationSection>(here()));
  }
  return *division.getConfigurationSection();
}

InputOutputSection &EnvironmentParser::inputOutputSectionOf(EnvironmentDivision &division,
                                                            bool hasHeader) {
  if (!division.getInputOutputSection()) {
    if (!hasHeader && !isHeaderDisplaced(Keyword::InputOutput))
      missingHeader(Keyword::InputOutput, "INPUT-OUTPUT SECTION");
    division.setInputOutputSection(makeAt<InputOutputSection>(here()));
  }
  return *division.getInputOutputSection();
}

/// REPOSITORY. [FUNCTION {ALL | name ...} INTRINSIC | CLASS name [IS name]] ... . User-defined
/// functions are not supported.
void EnvironmentParser::parseRepository() {
  takeParagraphHeader();
  for (Progress progress(stream); !atPartHeader() && !accept(TokenKind::Period);
       progress.ensure()) {
    SourceRange begin = here();
    if (at(Keyword::Function)) {
      if (parseRepositoryFunctions())
        continue;
    } else if (accept(Keyword::Class)) {
      // CLASS class-name [IS {literal | name}]: INVOKE takes any name for that of a class.
      if (!parseUserWord("a class-name"))
        return skipPastPeriod();
      accept(Keyword::Is);
      if (at(TokenKind::AlphanumericLiteral) || (peek().isUserWord() && !atPartHeader()))
        stream.skip();
      continue;
    } else {
      stream.skip();
    }
    error(DiagnosticId::NotSupported, begin, "such a REPOSITORY entry");
    while (!atPartHeader() && !at(TokenKind::Period) && !at(Keyword::Function, Keyword::Class))
      stream.skip();
  }
}

/// FUNCTION {ALL | name ...} INTRINSIC. False, without a message, where the functions are not
/// intrinsic ones.
bool EnvironmentParser::parseRepositoryFunctions() {
  accept(Keyword::Function);
  llvm::SmallVector<const Word *, 16> names;
  while (peek().isWord() && !at(Keyword::Intrinsic, Keyword::Function) && !atPartHeader())
    names.push_back(takeWord());
  if (!accept(Keyword::Intrinsic))
    return false;
  for (const Word *name : names) {
    if (name->getWordData() == textOf(Keyword::All))
      for (const IntrinsicFunction &function : intrinsicFunctions())
        context.repositoryFunctions.insert(&internString(function.name));
    else if (findIntrinsicFunction(name->getWordData()))
      context.repositoryFunctions.insert(&name->getWordData());
    else
      reportUnknownFunction(*name);
  }
  return true;
}

//===----------------------------------------------------------------------===//
// SOURCE-COMPUTER and OBJECT-COMPUTER
//===----------------------------------------------------------------------===//

static constexpr Keyword sourceComputerKeywords[] = {Keyword::With};
static constexpr Keyword sourceComputerSynonyms[] = {Keyword::Debugging};

/// SOURCE-COMPUTER. [computer-name [WITH DEBUGGING MODE].]
void EnvironmentParser::parseSourceComputer(ConfigurationSection &section) {
  SourceRange begin = here();
  if (section.getSourceComputer())
    error(DiagnosticId::HeaderTwice, here(), "SOURCE-COMPUTER");
  auto *computer = makeAt<ParaSourceComputer>(begin);
  section.setSourceComputer(computer);
  takeParagraphHeader();
  if (atPartHeader())
    return;

  if (peek().isUserWord())
    computer->setComputerName(takeWord());
  const ClauseSet clauses{"SOURCE-COMPUTER", sourceComputerKeywords, sourceComputerSynonyms};
  computer->setRange(parseClauses(begin, clauses, [&] {
    if (!at(Keyword::With, Keyword::Debugging))
      return unknownClause(clauses);
    accept(Keyword::With);
    if (!expect(Keyword::Debugging) || !expect(Keyword::Mode))
      return false;
    // Debugging lines are read from the next line on.
    stream.setDebuggingMode(true);
    computer->setIsDebuggingMode(true);
    return true;
  }));
}

static constexpr Keyword objectComputerKeywords[] = {Keyword::Memory, Keyword::Program,
                                                     Keyword::SegmentLimit};
static constexpr Keyword objectComputerSynonyms[] = {Keyword::Collating, Keyword::Sequence};

/// OBJECT-COMPUTER. [computer-name clauses.]
void EnvironmentParser::parseObjectComputer(ConfigurationSection &section) {
  SourceRange begin = here();
  if (section.getObjectComputer())
    error(DiagnosticId::HeaderTwice, here(), "OBJECT-COMPUTER");
  auto *computer = makeAt<ParaObjectComputer>(begin);
  section.setObjectComputer(computer);
  takeParagraphHeader();
  if (atPartHeader())
    return;

  if (peek().isUserWord())
    computer->setComputerName(takeWord());
  const ClauseSet clauses{"OBJECT-COMPUTER", objectComputerKeywords, objectComputerSynonyms};
  computer->setRange(parseClauses(begin, clauses, [&] {
    switch (peek().keyword) {
    case Keyword::Memory:
      return parseOnce(*computer, &ParaObjectComputer::getMemSize, &ParaObjectComputer::setMemSize,
                       &EnvironmentParser::parseMemorySize);
    case Keyword::Program:
    case Keyword::Collating:
    case Keyword::Sequence:
      return parseOnce(*computer, &ParaObjectComputer::getSequence,
                       &ParaObjectComputer::setSequence,
                       &EnvironmentParser::parseCollatingSequence);
    case Keyword::SegmentLimit:
      return parseOnce(*computer, &ParaObjectComputer::getSegment, &ParaObjectComputer::setSegment,
                       &EnvironmentParser::parseSegmentLimit);
    default:
      return unknownClause(clauses);
    }
  }));
}

/// MEMORY SIZE integer {WORDS | CHARACTERS | MODULES}
ClauseMemorySize *EnvironmentParser::parseMemorySize() {
  SourceRange begin = here();
  accept(Keyword::Memory);
  accept(Keyword::Size);
  NumericLiteralExpression *size = parseNumericLiteral();
  if (!size)
    return nullptr;
  acceptAny(Keyword::Words, Keyword::Characters, Keyword::Modules);
  return make<ClauseMemorySize>(begin, size);
}

/// PROGRAM COLLATING SEQUENCE IS alphabet-name
ClauseSequence *EnvironmentParser::parseCollatingSequence() {
  SourceRange begin = here();
  accept(Keyword::Program);
  accept(Keyword::Collating);
  if (!expect(Keyword::Sequence))
    return nullptr;
  accept(Keyword::Is);
  Word *alphabet = parseUserWord("an alphabet-name");
  if (!alphabet)
    return nullptr;
  return make<ClauseSequence>(begin, alphabet);
}

/// SEGMENT-LIMIT IS priority-number
ClauseSegmentLimit *EnvironmentParser::parseSegmentLimit() {
  SourceRange begin = here();
  accept(Keyword::SegmentLimit);
  accept(Keyword::Is);
  NumericLiteralExpression *limit = parseNumericLiteral();
  if (!limit)
    return nullptr;
  return make<ClauseSegmentLimit>(begin, limit);
}

//===----------------------------------------------------------------------===//
// SPECIAL-NAMES
//===----------------------------------------------------------------------===//

static constexpr Keyword specialNamesKeywords[] = {
    Keyword::Alphabet, Keyword::Class, Keyword::Currency, Keyword::DecimalPoint, Keyword::Symbolic};
static constexpr Keyword specialNamesSynonyms[] = {Keyword::XmlSchema, Keyword::Order};

void EnvironmentParser::parseSpecialNames(ConfigurationSection &section) {
  SourceRange begin = here();
  const bool isDisplaced = isHeaderDisplaced(Keyword::SpecialNames);
  if (section.getSpecialNames()) {
    if (!isDisplaced)
      error(DiagnosticId::HeaderTwice, here(), "SPECIAL-NAMES");
  } else {
    section.setSpecialNames(makeAt<ParaSpecialNames>(begin));
  }
  ParaSpecialNames &names = *section.getSpecialNames();
  if (at(Keyword::SpecialNames) || !isDisplaced)
    takeParagraphHeader();
  const ClauseSet clauses{"SPECIAL-NAMES", specialNamesKeywords, specialNamesSynonyms,
                          /*innerWords=*/{}, /*beginsWithName=*/true};
  parseParagraphClauses(clauses, [&] {
    const SourceRange clause = here();
    const bool isRead = parseSpecialNamesClause(names, clauses);
    // The names that the clause declares are not known.
    if (!isRead)
      context.diagnostics.getDamage().add(from(clause).getRange());
    return isRead;
  });
  names.setRange(from(begin).getRange());
}

/// Whether a clause of SPECIAL-NAMES is next, of which the header is missing.
bool EnvironmentParser::atSpecialNamesClause(const EnvironmentDivision &division) {
  if (!peek().isFirstOnLine() || !division.getConfigurationSection() ||
      (division.getConfigurationSection()->getSpecialNames() &&
       !isHeaderDisplaced(Keyword::Configuration)))
    return false;
  if (at(Keyword::Alphabet, Keyword::Class, Keyword::Currency, Keyword::DecimalPoint,
         Keyword::Symbolic))
    return true;
  return peek().isUserWord() && environmentNameType(peek().text) != EnvNameType::Unknown;
}

/// Adds a parsed clause to the paragraph; false when it could not be parsed.
template <typename Clause>
static bool addTo(ParaSpecialNames &names, void (ParaSpecialNames::*add)(Clause *),
                  Clause *clause) {
  if (clause)
    (names.*add)(clause);
  return clause != nullptr;
}

/// XML-SCHEMA schema-name [IS] {literal | external-name}: where the running program finds the
/// schema that XML PARSE names. Nothing is checked and nothing kept.
bool EnvironmentParser::parseXmlSchema() {
  accept(Keyword::XmlSchema);
  if (!parseUserWord("the name of an XML schema"))
    return false;
  accept(Keyword::Is);
  if (at(TokenKind::AlphanumericLiteral))
    return parseNonNumericLiteral();
  return parseUserWord("the external name of an XML schema");
}

bool EnvironmentParser::parseSpecialNamesClause(ParaSpecialNames &names, const ClauseSet &clauses) {
  switch (peek().keyword) {
  case Keyword::Alphabet:
    return addTo(names, &ParaSpecialNames::addAlphabet, parseAlphabet());
  case Keyword::Symbolic:
    return addTo(names, &ParaSpecialNames::addSymbolic, parseSymbolicCharacters());
  case Keyword::Class:
    return addTo(names, &ParaSpecialNames::addClass, parseClass());
  case Keyword::Currency:
    return addTo(names, &ParaSpecialNames::addCurrency, parseCurrency());
  case Keyword::DecimalPoint:
    return parseOnce(names, &ParaSpecialNames::getDecimalPoint, &ParaSpecialNames::setDecimalPoint,
                     &EnvironmentParser::parseDecimalPoint);
  case Keyword::XmlSchema:
    return parseXmlSchema();
  case Keyword::Order:
    return unsupportedClause(textOf(peek().keyword), clauses);
  default:
    break;
  }
  if (atWord("LOCALE"))
    return unsupportedClause("LOCALE", clauses);
  if (atAlphabetWithoutKeyword())
    return addTo(names, &ParaSpecialNames::addAlphabet, parseAlphabet());
  if (atEnvironmentName(clauses))
    return addTo(names, &ParaSpecialNames::addEnvName, parseEnvironmentName());
  return unknownClause(clauses);
}

/// environment-name [IS] [mnemonic-name] {ON | OFF} [STATUS] [IS] condition-name
ClauseEnvName *EnvironmentParser::parseEnvironmentName() {
  SourceRange begin = here();
  auto *clause = makeAt<ClauseEnvName>(begin, takeWord());
  bool hasIs = accept(Keyword::Is);
  if (hasIs || !at(Keyword::On, Keyword::Off)) {
    Word *mnemonic = parseUserWord("a mnemonic-name");
    if (!mnemonic)
      return nullptr;
    clause->setMnemonicName(mnemonic);
  }
  while (at(Keyword::On, Keyword::Off)) {
    bool isOn = at(Keyword::On);
    bool isSecond = isOn ? clause->getOnCondition() : clause->getOffCondition();
    if (isSecond)
      error(DiagnosticId::ClauseTwice, here(), describe(peek()));
    stream.skip();
    accept(Keyword::Status);
    accept(Keyword::Is);
    Word *condition = parseUserWord("a condition-name");
    if (!condition)
      return nullptr;
    if (isSecond)
      continue;
    if (isOn)
      clause->setOnCondition(condition);
    else
      clause->setOffCondition(condition);
  }
  return complete(clause);
}

/// Whether an alphabet-name is next that older programs define without the word ALPHABET.
bool EnvironmentParser::atAlphabetWithoutKeyword() {
  if (!peek().isUserWord())
    return false;
  unsigned next = peek(1).is(Keyword::Is) ? 2 : 1;
  return peek(next).isOneOf(Keyword::Standard1, Keyword::Standard2, Keyword::Native) ||
         (next == 2 && peek(next).is(TokenKind::AlphanumericLiteral));
}

/// [ALPHABET] alphabet-name [FOR ALPHANUMERIC] IS {STANDARD-1 | STANDARD-2 | NATIVE | EBCDIC |
/// literals}
ClauseAlphabet *EnvironmentParser::parseAlphabet() {
  SourceRange begin = here();
  accept(Keyword::Alphabet);
  Word *name = parseUserWord("an alphabet-name");
  if (!name || !parseForAlphanumeric())
    return nullptr;
  accept(Keyword::Is);

  AlphabetType type = AlphabetType::User;
  if (accept(Keyword::Standard1))
    type = AlphabetType::Standard1;
  else if (accept(Keyword::Standard2))
    type = AlphabetType::Standard2;
  else if (accept(Keyword::Native))
    type = AlphabetType::Native;
  else if (!atLiteral() && !at(TokenKind::Period)) {
    // The checker reports unknown names of code pages and empty alphabets.
    Word *codeName =
        parseUserWord("STANDARD-1, STANDARD-2, NATIVE, EBCDIC or a literal of the alphabet");
    if (!codeName)
      return nullptr;
    type = codeName->getWordData() == "EBCDIC" ? AlphabetType::Ebcdic : AlphabetType::Unknown;
  }
  auto *clause = makeAt<ClauseAlphabet>(begin, name, type);
  while (type == AlphabetType::User && atLiteral()) {
    PhrsAlphabet *phrase = parseAlphabetPhrase();
    if (!phrase)
      return nullptr;
    clause->addAlpha(phrase);
  }
  return complete(clause);
}

/// [FOR ALPHANUMERIC], which is the default. National alphabets and classes are not supported.
bool EnvironmentParser::parseForAlphanumeric() {
  if (!accept(Keyword::For))
    return true;
  if (at(Keyword::National))
    return error(DiagnosticId::NotSupported, here(), "FOR NATIONAL");
  return expect(Keyword::Alphanumeric);
}

/// literal [{THROUGH | THRU} literal | {ALSO literal} ...]
PhrsAlphabet *EnvironmentParser::parseAlphabetPhrase() {
  SourceRange begin = here();
  LiteralExpression *first = parseLiteral();
  if (!first)
    return nullptr;
  auto *phrase = makeAt<PhrsAlphabet>(begin, first);
  if (acceptAny(Keyword::Thru, Keyword::Through)) {
    LiteralExpression *last = parseLiteral();
    if (!last)
      return nullptr;
    phrase->setThruLiteral(last);
  }
  while (accept(Keyword::Also)) {
    LiteralExpression *also = parseLiteral();
    if (!also)
      return nullptr;
    phrase->addAlso(also);
  }
  return complete(phrase);
}

/// SYMBOLIC CHARACTERS {names [IS | ARE] integers} ... [IN alphabet-name]
ClauseSymbolic *EnvironmentParser::parseSymbolicCharacters() {
  SourceRange begin = here();
  accept(Keyword::Symbolic);
  acceptAny(Keyword::Characters, Keyword::Character);
  if (!parseForAlphanumeric())
    return nullptr;
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClauseSymbolic>(begin);
  context.hasSymbolicCharacters = true;
  do {
    PhrsSymbolic *phrase = parseSymbolicPhrase();
    if (!phrase)
      return nullptr;
    clause->addSymbolic(phrase);
  } while (atSymbolicPhrase());
  if (accept(Keyword::In)) {
    Word *alphabet = parseUserWord("an alphabet-name");
    if (!alphabet)
      return nullptr;
    clause->setAlphabetName(alphabet);
  }
  return complete(clause);
}

/// Whether names are next that integers follow. An environment-name clause begins with a name too,
/// but has none.
bool EnvironmentParser::atSymbolicPhrase() {
  unsigned names = 0;
  while (names + 1 < TokenStream::lookAhead && peek(names).isUserWord())
    ++names;
  if (names == 0)
    return false;
  if (names + 1 == TokenStream::lookAhead || peek(names).is(TokenKind::IntegerLiteral))
    return true;
  return peek(names).isOneOf(Keyword::Is, Keyword::Are) &&
         peek(names + 1).is(TokenKind::IntegerLiteral);
}

PhrsSymbolic *EnvironmentParser::parseSymbolicPhrase() {
  SourceRange begin = here();
  auto *phrase = makeAt<PhrsSymbolic>(begin);
  do {
    Word *name = parseUserWord("the name of a symbolic character");
    if (!name)
      return nullptr;
    phrase->addSource(name);
  } while (peek().isUserWord());
  acceptAny(Keyword::Is, Keyword::Are);
  do {
    NumericLiteralExpression *ordinal = parseNumericLiteral();
    if (!ordinal)
      return nullptr;
    phrase->addInteger(ordinal);
  } while (atNumericLiteral());
  return complete(phrase);
}

/// CLASS class-name [FOR ALPHANUMERIC] IS {literal [{THROUGH | THRU} literal]} ...
ClauseClass *EnvironmentParser::parseClass() {
  SourceRange begin = here();
  accept(Keyword::Class);
  Word *name = parseUserWord("a class-name");
  if (!name || !parseForAlphanumeric())
    return nullptr;
  accept(Keyword::Is);
  auto *clause = makeAt<ClauseClass>(begin, name);
  do {
    PhrsClass *phrase = parseClassPhrase();
    if (!phrase)
      return nullptr;
    clause->addLiteral(phrase);
  } while (atLiteral());
  return complete(clause);
}

PhrsClass *EnvironmentParser::parseClassPhrase() {
  SourceRange begin = here();
  LiteralExpression *first = parseLiteral();
  if (!first)
    return nullptr;
  LiteralExpression *last = nullptr;
  if (acceptAny(Keyword::Thru, Keyword::Through)) {
    last = parseLiteral();
    if (!last)
      return nullptr;
  }
  auto *phrase = make<PhrsClass>(begin, first);
  phrase->setThruLiteral(last);
  return phrase;
}

/// The symbol that \p sign, a hexadecimal literal of one byte, stands for in pictures: the
/// character of that byte in the code page of the source, or in the usual one of EBCDIC systems
/// where the source is in ASCII. Null for other literals.
static LiteralExpression *currencySymbolOf(const LiteralExpression &sign,
                                           const std::string &encoding) {
  const auto *literal = llvm::dyn_cast<NonNumericLiteralExpression>(&sign);
  std::string byte;
  if (!literal || literal->getNonNumericLiteralType() != NonNumericLiteralType::Hexadecimal ||
      !llvm::tryGetFromHex(literal->getData(), byte) || byte.size() != 1)
    return nullptr;
  const bool isEbcdic = decodeText("\xC1", encoding).text == "A\n";
  const std::string character = decodeText(byte, isEbcdic ? encoding : "IBM-1140").text;
  Node place(sign.getRange());
  return new NonNumericLiteralExpression(
      &place, ("'" + llvm::StringRef(character).rtrim('\n') + "'").str());
}

/// CURRENCY [SIGN] [IS] literal [[WITH] PICTURE SYMBOL literal]
ClauseCurrency *EnvironmentParser::parseCurrency() {
  SourceRange begin = here();
  accept(Keyword::Currency);
  accept(Keyword::Sign);
  accept(Keyword::Is);
  LiteralExpression *sign = parseLiteral();
  if (!sign)
    return nullptr;
  LiteralExpression *symbol = nullptr;
  accept(Keyword::With);
  if (acceptAny(Keyword::Picture, Keyword::Pic)) {
    if (!expect(Keyword::Symbol))
      return nullptr;
    symbol = parseLiteral();
    if (!symbol)
      return nullptr;
  } else {
    symbol = currencySymbolOf(*sign, context.options.encoding);
  }
  return make<ClauseCurrency>(begin, sign, symbol);
}

/// DECIMAL-POINT IS COMMA, which applies to all numbers after it.
ClauseDecimalPoint *EnvironmentParser::parseDecimalPoint() {
  SourceRange begin = here();
  accept(Keyword::DecimalPoint);
  accept(Keyword::Is);
  // Nothing else can be meant where COMMA is missing.
  context.decimalPointIsComma = true;
  stream.setDecimalPointIsComma(true);
  if (!expect(Keyword::Comma))
    return nullptr;
  return make<ClauseDecimalPoint>(begin);
}

} // namespace tarka
