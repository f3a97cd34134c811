//===- ParseStatementString.cpp - statements that look into strings -------===//
//
// STRING, UNSTRING, INSPECT and, of OS/VS COBOL, TRANSFORM, EXAMINE and EXHIBIT.
//
//===----------------------------------------------------------------------===//

#include "Parse/ParseStatementString.h"

namespace tarka {

//===----------------------------------------------------------------------===//
// STRING and UNSTRING
//===----------------------------------------------------------------------===//

/// operand... [DELIMITED [BY] {operand | SIZE}]
StringItem *StringStatements::parseStringItem() {
  auto *item = make<StringItem>(here());
  if (!parseOperands(*item, &StringItem::addStringName))
    return nullptr;
  if (accept(Keyword::Delimited)) {
    accept(Keyword::By);
    item->setType(at(Keyword::Size) ? StringDelimiterType::Size : StringDelimiterType::Operand);
    if (!accept(Keyword::Size)) {
      item->setDelimitedName(parseOperand("an identifier, a literal or SIZE"));
      if (!item->getDelimitedName())
        return nullptr;
    }
  }
  return complete(item);
}

/// [WITH] POINTER identifier, if it is next. False after a message.
bool StringStatements::parsePointerPhrase(IdentifierExpression *&pointer) {
  if (!at(Keyword::With, Keyword::Pointer))
    return true;
  accept(Keyword::With);
  if (expect(Keyword::Pointer))
    pointer = parseIdentifier();
  return pointer;
}

/// STRING {operand... [DELIMITED [BY] {operand | SIZE}]}... INTO identifier
///   [[WITH] POINTER identifier] [[NOT] ON OVERFLOW statements]... [END-STRING]
StatementResult StringStatements::parseString() {
  SourceRange begin = here();
  accept(Keyword::String);
  auto *string = make<StringStatement>(begin);
  if (!parseSeries(*string, &StringStatement::addItem, &StringStatements::parseStringItem,
                   &StringStatements::atOperand) ||
      !expect(Keyword::Into))
    return nullptr;
  string->setIntoIdentifier(parseIdentifier());
  IdentifierExpression *pointer = nullptr;
  if (!string->getIntoIdentifier() || !parsePointerPhrase(pointer))
    return nullptr;
  string->setWithPointerIdentifier(pointer);
  return finish(string, &StringStatement::addOverflowHandler);
}

/// [ALL] operand {OR [ALL] operand}..., after DELIMITED [BY]
bool StringStatements::parseUnstringDelimiters(UnstringStatement &unstring) {
  do {
    SourceRange begin = here();
    // ALL belongs to the phrase and does not make a figurative constant of the literal.
    bool all = accept(Keyword::All);
    Expression *delimiter = parseOperand();
    if (!delimiter)
      return false;
    unstring.addDelimiter(make<UnstringDelimitedItem>(begin, delimiter, all));
  } while (accept(Keyword::Or));
  return true;
}

/// identifier [DELIMITER [IN] identifier] [COUNT [IN] identifier]
UnstringIntoItem *StringStatements::parseUnstringInto() {
  SourceRange begin = here();
  IdentifierExpression *target = parseIdentifier();
  if (!target)
    return nullptr;
  auto *item = make<UnstringIntoItem>(begin, target);
  if (accept(Keyword::Delimiter)) {
    accept(Keyword::In);
    item->setDelimiter(parseIdentifier());
    if (!item->getDelimiter())
      return nullptr;
  }
  if (accept(Keyword::Count)) {
    accept(Keyword::In);
    item->setCountIdentifier(parseIdentifier());
    if (!item->getCountIdentifier())
      return nullptr;
  }
  return complete(item);
}

/// UNSTRING identifier [DELIMITED [BY] [ALL] operand [OR [ALL] operand]...]
///   INTO {identifier [DELIMITER [IN] identifier] [COUNT [IN] identifier]}...
///   [[WITH] POINTER identifier] [TALLYING [IN] identifier]
///   [[NOT] ON OVERFLOW statements]... [END-UNSTRING]
StatementResult StringStatements::parseUnstring() {
  SourceRange begin = here();
  accept(Keyword::Unstring);
  IdentifierExpression *source = parseIdentifier();
  if (!source)
    return nullptr;
  auto *unstring = make<UnstringStatement>(begin, source);
  if (accept(Keyword::Delimited)) {
    accept(Keyword::By);
    if (!parseUnstringDelimiters(*unstring))
      return nullptr;
  }

  if (!expect(Keyword::Into) ||
      !parseSeries(*unstring, &UnstringStatement::addInto, &StringStatements::parseUnstringInto,
                   &StringStatements::atIdentifier))
    return nullptr;

  IdentifierExpression *pointer = nullptr;
  if (!parsePointerPhrase(pointer))
    return nullptr;
  unstring->setWithPointerId(pointer);
  if (accept(Keyword::Tallying)) {
    accept(Keyword::In);
    unstring->setTallyingId(parseIdentifier());
    if (!unstring->getTallyingId())
      return nullptr;
  }
  return finish(unstring, &UnstringStatement::addOverflowHandler);
}

//===----------------------------------------------------------------------===//
// INSPECT
//===----------------------------------------------------------------------===//

/// [BEFORE [INITIAL] operand] [AFTER [INITIAL] operand], in either order; what \p regions had is
/// dropped. False after a message.
bool StringStatements::parseInspectRegions(NodeList<InspectRegion> &regions) {
  regions.clear();
  while (at(Keyword::Before, Keyword::After)) {
    SourceRange begin = here();
    InspRegType side = at(Keyword::Before) ? InspRegType::Before : InspRegType::After;
    auto isSameSide = [&](InspectRegion *region) { return region->getType() == side; };
    if (llvm::any_of(regions, isSameSide))
      return error(DiagnosticId::PhraseTwice, begin, textOf(peek().keyword));
    acceptAny(Keyword::Before, Keyword::After);
    accept(Keyword::Initial);
    Expression *limit = parseOperand();
    if (!limit)
      return false;
    regions.push_back(make<InspectRegion>(begin, side, limit));
  }
  return true;
}

/// Whether a word is next that says which characters are counted or replaced.
bool StringStatements::atInspectMode() {
  return at(Keyword::Characters, Keyword::All, Keyword::Leading, Keyword::First);
}

/// Whether the counter of a further item of TALLYING is next: an identifier before FOR.
bool StringStatements::atTallyingCounter() {
  if (!atIdentifier())
    return false;
  unsigned n = 1;
  while (n < TokenStream::lookAhead && peek(n).isOneOf(Keyword::Of, Keyword::In))
    n += 2;
  // Over the subscripts and the reference modifier.
  unsigned open = 0;
  for (; n < TokenStream::lookAhead; ++n) {
    const Token &token = peek(n);
    if (token.is(TokenKind::LParen))
      ++open;
    else if (open == 0)
      return token.is(Keyword::For);
    else if (token.is(TokenKind::RParen))
      --open;
  }
  return false;
}

/// CHARACTERS [region]...
/// {ALL | LEADING} {operand [region]...}...
TallyingItemFor *StringStatements::parseTallyingFor() {
  SourceRange begin = here();
  NodeList<InspectRegion> regions;
  if (accept(Keyword::Characters)) {
    if (!parseInspectRegions(regions))
      return nullptr;
    return make<TallyingItemFor>(begin, InspTailType::Characters, &regions, nullptr);
  }

  InspTailType type = at(Keyword::All) ? InspTailType::All : InspTailType::Leading;
  if (!acceptAny(Keyword::All, Keyword::Leading))
    return expected("CHARACTERS, ALL or LEADING");
  auto *item = make<TallyingItemFor>(begin, type, nullptr, nullptr);
  do {
    SourceRange operandBegin = here();
    Expression *operand = parseOperand();
    if (!operand || !parseInspectRegions(regions))
      return nullptr;
    item->addTallyingRegion(make<TallyingRegion>(operandBegin, operand, &regions));
  } while (atOperand() && !at(Keyword::All) && !atTallyingCounter());
  return complete(item);
}

/// counter FOR {CHARACTERS ... | ALL ... | LEADING ...}...
TallyingItem *StringStatements::parseTallyingItem() {
  SourceRange begin = here();
  IdentifierExpression *counter = parseIdentifier("the identifier that counts");
  if (!counter || !expect(Keyword::For))
    return nullptr;
  auto *item = make<TallyingItem>(begin, counter, nullptr);
  return parseSeries(*item, &TallyingItem::addTallyingFor, &StringStatements::parseTallyingFor,
                     &StringStatements::atInspectMode)
             ? complete(item)
             : nullptr;
}

/// CHARACTERS BY operand [region]...
/// {ALL | LEADING | FIRST} {operand BY operand [region]...}...
ReplacingItem *StringStatements::parseReplacingItem() {
  SourceRange begin = here();
  NodeList<InspectRegion> regions;
  if (accept(Keyword::Characters)) {
    Expression *by = expect(Keyword::By) ? parseOperand() : nullptr;
    if (!by || !parseInspectRegions(regions))
      return nullptr;
    return make<ReplacingItem>(begin, InspReplType::Characters, by, &regions, nullptr);
  }

  InspReplType type = at(Keyword::All)       ? InspReplType::All
                      : at(Keyword::Leading) ? InspReplType::Leading
                                             : InspReplType::First;
  if (!acceptAny(Keyword::All, Keyword::Leading, Keyword::First))
    return expected("CHARACTERS, ALL, LEADING or FIRST");
  auto *item = make<ReplacingItem>(begin, type, nullptr, nullptr, nullptr);
  do {
    SourceRange operandBegin = here();
    Expression *operand = parseOperand();
    Expression *by = operand && expect(Keyword::By) ? parseOperand() : nullptr;
    if (!by || !parseInspectRegions(regions))
      return nullptr;
    item->addReplacingRegion(make<ReplacingRegion>(operandBegin, operand, by, &regions));
  } while (atOperand() && !at(Keyword::All));
  return complete(item);
}

/// CONVERTING operand TO operand [region]...
ConvertingItem *StringStatements::parseConvertingItem() {
  SourceRange begin = here();
  accept(Keyword::Converting);
  Expression *from = parseOperand();
  Expression *to = from && expect(Keyword::To) ? parseOperand() : nullptr;
  NodeList<InspectRegion> regions;
  if (!to || !parseInspectRegions(regions))
    return nullptr;
  return make<ConvertingItem>(begin, from, to, &regions);
}

/// INSPECT identifier [TALLYING item...] [REPLACING item...]
/// INSPECT identifier CONVERTING operand TO operand [region]...
StatementResult StringStatements::parseInspect() {
  SourceRange begin = here();
  accept(Keyword::Inspect);
  IdentifierExpression *inspected = parseIdentifier();
  if (!inspected)
    return nullptr;
  auto *inspect = make<InspectStatement>(begin, inspected, nullptr, nullptr, nullptr);

  if (at(Keyword::Converting)) {
    inspect->setConverting(parseConvertingItem());
    return inspect->getConverting() ? complete(inspect) : nullptr;
  }
  if (!at(Keyword::Tallying, Keyword::Replacing))
    return expected("TALLYING, REPLACING or CONVERTING");
  if (accept(Keyword::Tallying) &&
      !parseSeries(*inspect, &InspectStatement::addTallying, &StringStatements::parseTallyingItem,
                   &StringStatements::atIdentifier))
    return nullptr;
  if (accept(Keyword::Replacing) &&
      !parseSeries(*inspect, &InspectStatement::addReplacing, &StringStatements::parseReplacingItem,
                   &StringStatements::atInspectMode))
    return nullptr;
  return complete(inspect);
}

//===----------------------------------------------------------------------===//
// OS/VS
//===----------------------------------------------------------------------===//

/// TRANSFORM identifier [CHARACTERS] FROM operand TO operand
StatementResult StringStatements::parseTransform() {
  SourceRange begin = here();
  accept(Keyword::Transform);
  Expression *transformed = parseOperand("an identifier");
  if (!transformed)
    return nullptr;
  accept(Keyword::Characters);
  Expression *from = expect(Keyword::From) ? parseOperand() : nullptr;
  Expression *to = from && expect(Keyword::To) ? parseOperand() : nullptr;
  return to ? make<TransformStatement>(begin, transformed, from, to) : nullptr;
}

/// EXAMINE identifier TALLYING {ALL | LEADING | UNTIL FIRST} operand [REPLACING BY operand]
/// EXAMINE identifier REPLACING {ALL | LEADING | [UNTIL] FIRST} operand BY operand
StatementResult StringStatements::parseExamine() {
  SourceRange begin = here();
  accept(Keyword::Examine);
  Expression *examined = parseOperand("an identifier");
  if (!examined)
    return nullptr;
  ExamineType type = at(Keyword::Tallying) ? ExamineType::Tallying : ExamineType::Replacing;
  if (!acceptAny(Keyword::Tallying, Keyword::Replacing))
    return expected("TALLYING or REPLACING");
  auto *examine = make<ExamineStatement>(begin, type, examined);

  if (accept(Keyword::All))
    examine->setOptionType(ExamineOptionType::All);
  else if (accept(Keyword::Leading))
    examine->setOptionType(ExamineOptionType::Leading);
  else if (type == ExamineType::Replacing && accept(Keyword::First))
    examine->setOptionType(ExamineOptionType::First);
  else if (!accept(Keyword::Until))
    return expected("ALL, LEADING or UNTIL FIRST");
  else if (expect(Keyword::First))
    examine->setOptionType(ExamineOptionType::UntilFirst);
  else
    return nullptr;
  examine->setOptExpr(parseOperand());
  if (!examine->getOptExpr())
    return nullptr;

  if (type == ExamineType::Tallying) {
    if (!accept(Keyword::Replacing))
      return complete(examine);
    examine->setExamType(ExamineType::TallyingReplacing);
  }
  if (!expect(Keyword::By))
    return nullptr;
  examine->setByExpr(parseOperand());
  return examine->getByExpr() ? complete(examine) : nullptr;
}

/// EXHIBIT {NAMED | CHANGED | CHANGED NAMED} operand... [UPON name]
StatementResult StringStatements::parseExhibit() {
  SourceRange begin = here();
  accept(Keyword::Exhibit);
  bool changed = accept(Keyword::Changed);
  bool named = accept(Keyword::Named);
  if (!changed && !named)
    return expected("NAMED or CHANGED");
  auto *exhibit = make<ExhibitStatement>(begin, !changed ? ExhibitType::Named
                                                : named  ? ExhibitType::ChangedNamed
                                                         : ExhibitType::Changed);
  if (!parseOperands(*exhibit, &ExhibitStatement::addExhibitExpr))
    return nullptr;
  if (accept(Keyword::Upon)) {
    exhibit->setUponName(parseUserWord("a mnemonic-name or an environment-name"));
    if (!exhibit->getUponName())
      return nullptr;
  }
  return complete(exhibit);
}

} // namespace tarka
