//===- ParseReportGroup.cpp - clauses of report group entries -------------===//

#include "Parse/ParseReport.h"

namespace tarka {

static constexpr Keyword groupKeywords[] = {
    Keyword::Blank,     Keyword::Column,  Keyword::Count,    Keyword::Function, Keyword::Group,
    Keyword::Justified, Keyword::Line,    Keyword::Multiple, Keyword::Next,     Keyword::Occurs,
    Keyword::Picture,   Keyword::Present, Keyword::Repeated, Keyword::Sign,     Keyword::Source,
    Keyword::Style,     Keyword::Sum,     Keyword::Type,     Keyword::Usage,    Keyword::Value,
    Keyword::Wrap};
static constexpr auto groupSynonyms =
    joined(std::array{Keyword::Absent, Keyword::Col, Keyword::Cols, Keyword::Columns, Keyword::Just,
                      Keyword::Lines, Keyword::Pic, Keyword::Leading, Keyword::Trailing,
                      Keyword::Values, Keyword::When},
           valueUsages);
constinit const ClauseSet groupClauses{"a report group entry",    groupKeywords, groupSynonyms,
                                       /*innerWords=*/{},
                                       /*beginsWithName=*/false,
                                       /*endsAtLevelNumber=*/true};

/// Whether a name is next that begins no clause of \p clauses. Many of the report section's
/// keywords are names everywhere else.
bool ReportParser::atNameIn(const ClauseSet &clauses) {
  return peek().isUserWord() && !clauses.contains(peek().keyword);
}

bool ReportParser::parseReportGroupClause(ReportDataDescription &entry, PresentContents *&choice) {
  using Group = ReportDataDescription;
  using Data = DataDescription;
  switch (peek().keyword) {
  case Keyword::Type:
    return parseOnce(entry, &Group::getTypeClause, &Group::setTypeClause, &ReportParser::parseType);
  case Keyword::Line:
  case Keyword::Lines:
    return parseOnce(entry, &Group::getLineClause, &Group::setLineClause, &ReportParser::parseLine);
  case Keyword::Next:
    return parseOnce(entry, &Group::getNextGroupClause, &Group::setNextGroupClause,
                     &ReportParser::parseNextGroup);
  case Keyword::Column:
  case Keyword::Columns:
  case Keyword::Col:
  case Keyword::Cols:
    return parseOnce(entry, &Group::getColumnClause, &Group::setColumnClause,
                     &ReportParser::parseColumn);
  case Keyword::Source:
  case Keyword::Value:
  case Keyword::Values:
  case Keyword::Function:
    return parseReportContents(entry, choice);
  case Keyword::Present:
  case Keyword::Absent:
  case Keyword::When:
    return parsePresent(entry, choice);
  case Keyword::Sum:
    return parseOnce(entry, &Group::getSumClause, &Group::setSumClause,
                     &ReportParser::parseSumClause);
  case Keyword::Count:
    return parseOnce(entry, &Group::getCountClause, &Group::setCountClause,
                     &ReportParser::parseCount);
  case Keyword::Group:
    if (peek(1).is(Keyword::Limit))
      return parseOnce(entry, &Group::getGroupLimitClause, &Group::setGroupLimitClause,
                       &ReportParser::parseGroupLimit);
    if (entry.isGroupIndicate())
      error(DiagnosticId::ClauseTwice, here(), describe(peek()));
    stream.skip();
    entry.setIsGroupIndicate(true);
    return expect(Keyword::Indicate);
  case Keyword::Occurs:
    return parseOnce(entry, &Group::getReportOccursClause, &Group::setReportOccursClause,
                     &ReportParser::parseReportOccurs);
  case Keyword::Repeated:
    return parseOnce(entry, &Group::getRepeatedClause, &Group::setRepeatedClause,
                     &ReportParser::parseRepeated);
  case Keyword::Multiple:
    return parseOnce(entry, &Group::getMultipleClause, &Group::setMultipleClause,
                     &ReportParser::parseMultiple);
  case Keyword::Wrap:
    return parseOnce(entry, &Group::getWrapClause, &Group::setWrapClause, &ReportParser::parseWrap);
  case Keyword::Style:
    return parseOnce(entry, &Group::getStyleClause, &Group::setStyleClause,
                     &ReportParser::parseStyle);
  case Keyword::Sign:
  case Keyword::Leading:
  case Keyword::Trailing:
    return parseOnce(entry, &Group::getReportSignClause, &Group::setReportSignClause,
                     &ReportParser::parseReportSign);
  case Keyword::Pic:
  case Keyword::Picture:
    return parseOnce(entry, &Data::getPicture, &Data::setPicture, &ReportParser::parsePicture);
  case Keyword::Usage:
    return parseOnce(entry, &Data::getUsage, &Data::setUsage, &ReportParser::parseUsage);
  case Keyword::Just:
  case Keyword::Justified:
    return parseOnce(entry, &Data::getJustified, &Data::setJustified,
                     &ReportParser::parseJustified);
  case Keyword::Blank:
    return parseOnce(entry, &Data::getBlankZero, &Data::setBlankZero,
                     &ReportParser::parseBlankZero);
  default:
    // What can be printed and what cannot is a rule of the checker.
    if (llvm::is_contained(valueUsages, peek().keyword))
      return parseOnce(entry, &Data::getUsage, &Data::setUsage, &ReportParser::parseUsage);
    return atWord("SOURCES") ? parseReportContents(entry, choice) : unknownClause(groupClauses);
  }
}

//===----------------------------------------------------------------------===//
// TYPE
//===----------------------------------------------------------------------===//

/// TYPE [IS] group-type
ClauseType *ReportParser::parseType() {
  SourceRange begin = here();
  accept(Keyword::Type);
  accept(Keyword::Is);
  ReportGroupType type = parseGroupType();
  if (type == ReportGroupType::None)
    return nullptr;
  auto *clause = makeAt<ClauseType>(begin, type);
  bool isControl =
      type == ReportGroupType::ControlHeading || type == ReportGroupType::ControlFooting;
  if (isControl && !parseTypeControls(*clause))
    return nullptr;
  return complete(clause);
}

/// The words of a group type or their abbreviation; None after a message.
ReportGroupType ReportParser::parseGroupType() {
  struct TypeWords {
    Keyword abbreviation, first, second;
    ReportGroupType type;
  };
  static constexpr TypeWords types[] = {
      {Keyword::Rh, Keyword::Report, Keyword::Heading, ReportGroupType::ReportHeading},
      {Keyword::Ph, Keyword::Page, Keyword::Heading, ReportGroupType::PageHeading},
      {Keyword::Ch, Keyword::Control, Keyword::Heading, ReportGroupType::ControlHeading},
      {Keyword::Cf, Keyword::Control, Keyword::Footing, ReportGroupType::ControlFooting},
      {Keyword::Pf, Keyword::Page, Keyword::Footing, ReportGroupType::PageFooting},
      {Keyword::Rf, Keyword::Report, Keyword::Footing, ReportGroupType::ReportFooting},
  };
  if (acceptAny(Keyword::De, Keyword::Detail))
    return ReportGroupType::Detail;
  for (const TypeWords &words : types) {
    if (accept(words.abbreviation))
      return words.type;
    if (atSequence(words.first, words.second)) {
      stream.skip();
      stream.skip();
      return words.type;
    }
  }
  if (acceptAny(Keyword::Report, Keyword::Page, Keyword::Control))
    expected("HEADING or FOOTING");
  else
    expected("the type of a report group");
  return ReportGroupType::None;
}

/// [ON | FOR] {ALL | FINAL | data-name ...} [OR PAGE]
bool ReportParser::parseTypeControls(ClauseType &type) {
  acceptAny(Keyword::On, Keyword::For);
  // Only a footing can be that of all controls.
  if (type.getTypeOption() == ReportGroupType::ControlFooting && accept(Keyword::All)) {
    type.setIsAll(true);
    return true;
  }
  if (accept(Keyword::Final))
    type.setReportFinal(true);
  while (atNameIn(groupClauses)) {
    DataIdentifierExpression *control = parseDataName();
    if (!control)
      return false;
    type.addControlId(control);
  }
  if (accept(Keyword::Or)) {
    if (!expect(Keyword::Page))
      return false;
    type.setIsOrPage(true);
  }
  return true;
}

//===----------------------------------------------------------------------===//
// LINE, COLUMN, NEXT GROUP
//===----------------------------------------------------------------------===//

/// [PLUS | +], which makes the number after it relative.
bool ReportParser::acceptPlus() {
  return acceptAny(Keyword::Plus, TokenKind::Plus);
}

/// LINE [NUMBER | NUMBERS] [IS | ARE] {[PLUS] n | [ON] NEXT PAGE} ... [VARYING phrases]
ClauseLine *ReportParser::parseLine() {
  SourceRange begin = here();
  stream.skip();
  acceptNumber();
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClauseLine>(begin);
  while (true) {
    bool isOn = accept(Keyword::On);
    if (atSequence(Keyword::Next, Keyword::Page)) {
      stream.skip();
      stream.skip();
      clause->setNextPage(true);
    } else if (isOn) {
      return expected("NEXT PAGE");
    } else if (atLineOrColumn(clause->getNumbersListSize())) {
      if (acceptPlus())
        clause->setIsRelative(true);
      Expression *number = parseNumberOrDataName("the number of a line");
      if (!number)
        return nullptr;
      clause->addNumbers(number);
    } else {
      break;
    }
  }
  if (at(Keyword::Varying)) {
    std::list<VaryingPhrase *> *varying = parseVarying();
    if (!varying)
      return nullptr;
    clause->setVaryingList(varying);
  }
  return complete(clause);
}

/// The word NUMBER or NUMBERS; only the first of them is reserved.
void ReportParser::acceptNumber() {
  if (at(Keyword::Number) || atWord("NUMBERS"))
    stream.skip();
}

/// Whether a number of a LINE or COLUMN clause is next, of which \p count were read. The first one
/// is not a level number wherever it stands, and only it can be a data-name: further words are more
/// likely a mistake.
bool ReportParser::atLineOrColumn(std::size_t count) {
  if (count > 0 && atLevelNumber())
    return false;
  return at(Keyword::Plus) || at(TokenKind::Plus) || atNumericLiteral() ||
         (count == 0 && atNameIn(groupClauses));
}

/// {COLUMN | COL} [NUMBER | NUMBERS] [LEFT | CENTER | RIGHT] [IS | ARE] {[PLUS] n} ...
ClauseColumn *ReportParser::parseColumn() {
  SourceRange begin = here();
  stream.skip();
  acceptNumber();
  auto *clause = makeAt<ClauseColumn>(begin);
  if (accept(Keyword::Center))
    clause->setAlignment(ColumnAlignment::Center);
  else if (accept(Keyword::Right))
    clause->setAlignment(ColumnAlignment::Right);
  else
    accept(Keyword::Left);
  acceptAny(Keyword::Is, Keyword::Are);
  while (atLineOrColumn(clause->getNumbersListSize())) {
    if (acceptPlus())
      clause->setIsRelative(true);
    Expression *number = parseNumberOrDataName("the number of a column");
    if (!number)
      return nullptr;
    clause->addNumbers(number);
  }
  return complete(clause);
}

/// NEXT GROUP [IS] {[PLUS] n | [ON] NEXT PAGE}
ClauseNextGroup *ReportParser::parseNextGroup() {
  SourceRange begin = here();
  accept(Keyword::Next);
  if (!expect(Keyword::Group))
    return nullptr;
  accept(Keyword::Is);
  accept(Keyword::On);
  NextGroupType type = NextGroupType::Line;
  Expression *number = nullptr;
  if (accept(Keyword::Next)) {
    if (!expect(Keyword::Page))
      return nullptr;
    type = NextGroupType::NextPage;
  } else {
    if (acceptPlus())
      type = NextGroupType::Plus;
    number = parseNumberOrDataName("the number of a line or NEXT PAGE");
    if (!number)
      return nullptr;
  }
  return make<ClauseNextGroup>(begin, type, number);
}

/// GROUP LIMIT [IS] n
ClauseGroupLimit *ReportParser::parseGroupLimit() {
  SourceRange begin = here();
  accept(Keyword::Group);
  accept(Keyword::Limit);
  accept(Keyword::Is);
  Expression *limit = parseNumberOrDataName("the number of a line");
  if (!limit)
    return nullptr;
  return make<ClauseGroupLimit>(begin, limit);
}

//===----------------------------------------------------------------------===//
// Repetition
//===----------------------------------------------------------------------===//

/// OCCURS bounds [DEPENDING ON data-name] [{STEP | WIDTH} n [LINES | COLUMNS]] [VARYING phrases]
ClauseReportOccurs *ReportParser::parseReportOccurs() {
  SourceRange begin = here();
  ClauseOccurs *occurs = parseOccurs();
  if (!occurs)
    return nullptr;
  auto *clause = makeAt<ClauseReportOccurs>(begin);
  clause->setOccurs(occurs);
  if (acceptAny(Keyword::Step, Keyword::Width)) {
    Expression *step = parseNumberOrDataName("a number of lines or columns");
    if (!step)
      return nullptr;
    clause->setStepExpr(step);
    acceptAny(Keyword::Lines, Keyword::Columns, Keyword::Cols);
  }
  if (at(Keyword::Varying)) {
    std::list<VaryingPhrase *> *varying = parseVarying();
    if (!varying)
      return nullptr;
    clause->setVaryingList(varying);
  }
  return complete(clause);
}

/// VARYING {name [FROM expression] [BY expression]} ...
std::list<VaryingPhrase *> *ReportParser::parseVarying() {
  accept(Keyword::Varying);
  auto *phrases = makeList<VaryingPhrase *>();
  do {
    SourceRange begin = here();
    Word *name = parseUserWord("the name of a counter");
    if (!name)
      return nullptr;
    Expression *start = nullptr;
    if (accept(Keyword::From) && !(start = parseArithmeticExpression()))
      return nullptr;
    Expression *step = nullptr;
    if (accept(Keyword::By) && !(step = parseArithmeticExpression()))
      return nullptr;
    phrases->push_back(make<VaryingPhrase>(begin, name, start, step));
  } while (atNameIn(groupClauses));
  return phrases;
}

/// REPEATED [n [TIMES]] [EVERY n [COLUMNS]]
ClauseRepeated *ReportParser::parseRepeated() {
  SourceRange begin = here();
  accept(Keyword::Repeated);
  Expression *times = nullptr;
  if (!at(Keyword::Every)) {
    times = parseNumberOrDataName("a number or EVERY");
    if (!times)
      return nullptr;
    accept(Keyword::Times);
  }
  Expression *every = nullptr;
  if (accept(Keyword::Every)) {
    every = parseNumberOrDataName("a number of columns");
    if (!every)
      return nullptr;
    acceptAny(Keyword::Columns, Keyword::Cols);
  }
  return make<ClauseRepeated>(begin, times, every);
}

/// MULTIPLE {PAGE | PAGES}
ClauseMultiple *ReportParser::parseMultiple() {
  SourceRange begin = here();
  accept(Keyword::Multiple);
  if (!at(Keyword::Page) && !atWord("PAGES"))
    return expected("PAGES");
  stream.skip();
  return make<ClauseMultiple>(begin);
}

/// WRAP [AFTER [COLUMN] n] [TO [COLUMN] n]
ClauseWrap *ReportParser::parseWrap() {
  SourceRange begin = here();
  accept(Keyword::Wrap);
  auto *clause = makeAt<ClauseWrap>(begin);
  if (accept(Keyword::After)) {
    acceptAny(Keyword::Column, Keyword::Col);
    Expression *column = parseNumberOrDataName("the number of a column");
    if (!column)
      return nullptr;
    clause->setAfterColumn(column);
  }
  if (accept(Keyword::To)) {
    acceptAny(Keyword::Column, Keyword::Col);
    Expression *column = parseNumberOrDataName("the number of a column");
    if (!column)
      return nullptr;
    clause->setToColumn(column);
  }
  return complete(clause);
}

//===----------------------------------------------------------------------===//
// What an item shows
//===----------------------------------------------------------------------===//

/// Whether the entry, or the choice, shows something already.
template <typename Owner> static bool hasContents(const Owner &owner) {
  if constexpr (std::is_base_of_v<PresentContents, Owner>)
    return owner.getSource() || owner.getValue() || owner.getFunction();
  else
    return owner.getSourceClause() || owner.getReportValueClause() || owner.getFunctionClause();
}

/// Moves what the entry shows to the choice that the condition after it makes.
static void moveContents(ReportDataDescription &entry, PresentContents &choice) {
  choice.setSource(entry.getSourceClause());
  choice.setValue(entry.getReportValueClause());
  choice.setFunction(entry.getFunctionClause());
  entry.setSourceClause(nullptr);
  entry.setReportValueClause(nullptr);
  entry.setFunctionClause(nullptr);
}

/// SOURCE, VALUE or FUNCTION. An item may show one of several contents, each with its condition
/// after it; the contents then belong to the conditions. With one only, the condition tells
/// whether the item is there at all.
bool ReportParser::parseReportContents(ReportDataDescription &entry, PresentContents *&choice) {
  if (hasContents(entry) && choice && !hasContents(*choice))
    moveContents(entry, *choice);
  else if (hasContents(entry))
    error(DiagnosticId::ClauseTwice, here(), describe(peek()));

  if (at(Keyword::Source) || atWord("SOURCES")) {
    ClauseSource *source = parseSource();
    if (source && !hasContents(entry))
      entry.setSourceClause(source);
    return source;
  }
  if (at(Keyword::Function)) {
    ClauseFunction *function = parseFunctionClause();
    if (function && !hasContents(entry))
      entry.setFunctionClause(function);
    return function;
  }
  ClauseValue *value = parseValue();
  if (value && !hasContents(entry))
    entry.setReportValueClause(new ClauseReportValue(value));
  return value;
}

/// {SOURCE | SOURCES} [IS | ARE] operand ... [ROUNDED]
ClauseSource *ReportParser::parseSource() {
  SourceRange begin = here();
  stream.skip();
  acceptAny(Keyword::Is, Keyword::Are);
  auto *clause = makeAt<ClauseSource>(begin);
  do {
    SourceClauseExpr *operand = parseSourceOperand();
    if (!operand)
      return nullptr;
    clause->addSourceExpr(operand);
    // An entry with SOURCE has no SUM clause, so SUM after it is another operand.
  } while (at(Keyword::Sum) || (atLiteral() ? !atLevelNumber() : atNameIn(groupClauses)));
  clause->setRounded(accept(Keyword::Rounded));
  return complete(clause);
}

/// SUM operands, a literal, an identifier or an arithmetic expression.
SourceClauseExpr *ReportParser::parseSourceOperand() {
  SourceRange begin = here();
  if (at(Keyword::Sum)) {
    SumClauseExpr *sum = parseSum();
    if (!sum)
      return nullptr;
    return makeAt<SourceClauseExpr>(sum->getRange(), SourceExprType::Sum, nullptr, sum);
  }
  Expression *operand = parseArithmeticExpression();
  if (!operand)
    return nullptr;
  SourceExprType type = llvm::isa<ArithmeticExpression>(operand) ? SourceExprType::Arithmetic
                        : llvm::isa<LiteralExpression>(operand)  ? SourceExprType::Literal
                                                                 : SourceExprType::Identifier;
  return make<SourceClauseExpr>(begin, type, operand);
}

/// SUM [OF] operand ... [UPON data-name ...]
SumClauseExpr *ReportParser::parseSum() {
  SourceRange begin = here();
  accept(Keyword::Sum);
  accept(Keyword::Of);
  auto *sum = makeAt<SumClauseExpr>(begin);
  do {
    Expression *operand = parseArithmeticExpression();
    if (!operand)
      return nullptr;
    sum->addName(operand);
  } while (atNameIn(groupClauses));
  if (accept(Keyword::Upon)) {
    do {
      DataIdentifierExpression *detail = parseDataName();
      if (!detail)
        return nullptr;
      sum->addUpon(detail);
    } while (atNameIn(groupClauses));
  }
  return complete(sum);
}

/// {SUM operands} ... [RESET [ON] {FINAL | data-name}] [ROUNDED]
ClauseSum *ReportParser::parseSumClause() {
  SourceRange begin = here();
  auto *clause = makeAt<ClauseSum>(begin);
  while (at(Keyword::Sum)) {
    SumClauseExpr *sum = parseSum();
    if (!sum)
      return nullptr;
    clause->addSumExpr(sum);
  }
  clause->setRounded(accept(Keyword::Rounded));
  if (accept(Keyword::Reset)) {
    accept(Keyword::On);
    if (accept(Keyword::Final)) {
      clause->setResetType(ResetType::Final);
    } else {
      DataIdentifierExpression *control = parseDataName("FINAL or a data-name");
      if (!control)
        return nullptr;
      clause->setResetType(ResetType::Identifier);
      clause->setResetControl(control);
    }
  }
  if (accept(Keyword::Rounded))
    clause->setRounded(true);
  return complete(clause);
}

/// COUNT [OF] data-name ...
ClauseCount *ReportParser::parseCount() {
  SourceRange begin = here();
  auto *clause = makeAt<ClauseCount>(begin);
  accept(Keyword::Count);
  accept(Keyword::Of);
  auto *operand = makeAt<CountClauseExpr>(begin);
  do {
    DataIdentifierExpression *name = parseDataName();
    if (!name)
      return nullptr;
    operand->addName(name);
  } while (atNameIn(groupClauses));
  complete(operand);
  clause->addCountExpr(operand);
  clause->setRange(operand->getRange());
  return clause;
}

/// FUNCTION [IS] name [(argument ...)]
ClauseFunction *ReportParser::parseFunctionClause() {
  SourceRange begin = here();
  accept(Keyword::Function);
  accept(Keyword::Is);
  Word *name = parseUserWord("the name of a function");
  if (!name)
    return nullptr;
  auto *clause = makeAt<ClauseFunction>(begin, name);
  if (accept(TokenKind::LParen)) {
    while (!accept(TokenKind::RParen)) {
      Expression *argument = parseArithmeticExpression();
      if (!argument)
        return nullptr;
      clause->addArgument(argument);
    }
  }
  return complete(clause);
}

ClauseReportSign *ReportParser::parseReportSign() {
  ClauseSign *sign = parseSign();
  return sign ? makeAt<ClauseReportSign>(sign->getRange(), sign) : nullptr;
}

//===----------------------------------------------------------------------===//
// PRESENT
//===----------------------------------------------------------------------===//

/// [PRESENT | ABSENT] WHEN condition, or {PRESENT | ABSENT} [JUST] AFTER event
bool ReportParser::parsePresent(ReportDataDescription &entry, PresentContents *&choice) {
  SourceRange begin = here();
  bool isAbsent = accept(Keyword::Absent);
  accept(Keyword::Present);
  // Once one condition has contents of its own, those before this one are for it.
  bool isChoice = choice && hasContents(*choice);
  if (accept(Keyword::When)) {
    ClausePresentWhen *when = parsePresentWhen(begin, isAbsent);
    if (!when)
      return false;
    entry.addClausePresentWhen(when);
    choice = when;
  } else {
    ClausePresentAfter *after = parsePresentAfter(begin);
    if (!after)
      return false;
    after->setIsAbsent(isAbsent);
    entry.addClausePresentAfter(after);
    choice = after;
  }
  if (isChoice)
    moveContents(entry, *choice);
  return true;
}

/// condition, or OTHER for what holds when none of the conditions before does.
ClausePresentWhen *ReportParser::parsePresentWhen(const SourceRange &begin, bool isAbsent) {
  if (accept(Keyword::Other))
    return make<ClausePresentWhen>(begin, PresentType::None, nullptr);
  Condition *condition = parseCondition();
  if (!condition)
    return nullptr;
  if (isAbsent)
    condition = makeAt<NegatedCondition>(condition->getRange(), condition);
  return make<ClausePresentWhen>(begin, PresentType::Condition, condition);
}

/// [JUST] AFTER [NEW] {PAGE [OR data-name] | data-name [OR PAGE]}
ClausePresentAfter *ReportParser::parsePresentAfter(const SourceRange &begin) {
  accept(Keyword::Just);
  if (!accept(Keyword::After))
    return expected("WHEN or AFTER");
  if (atWord("NEW"))
    stream.skip();
  PresentType type = PresentType::NewPage;
  DataIdentifierExpression *control = nullptr;
  if (accept(Keyword::Page)) {
    if (accept(Keyword::Or)) {
      type = PresentType::PageOrControl;
      control = parseDataName();
      if (!control)
        return nullptr;
    }
  } else {
    type = PresentType::Control;
    control = parseDataName("PAGE or a data-name");
    if (!control)
      return nullptr;
    if (accept(Keyword::Or)) {
      if (!expect(Keyword::Page))
        return nullptr;
      type = PresentType::ControlOrPage;
    }
  }
  auto *clause = make<ClausePresentAfter>(begin, type);
  clause->setControlId(control);
  return clause;
}

} // namespace tarka
