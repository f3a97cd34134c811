//===- ParseStatementJson.cpp - JSON GENERATE and JSON PARSE --------------===//

#include "Parse/ParseStatementJson.h"

namespace tarka {

/// NAME [OF] {identifier [IS] {literal | OMITTED}}...
bool JsonStatements::parseNames(OperandStatement &statement) {
  accept(Keyword::Name);
  accept(Keyword::Of);
  do {
    IdentifierExpression *item = parseIdentifier();
    if (!item)
      return false;
    statement.addPart(item);
    accept(Keyword::Is);
    if (!accept(Keyword::Omitted) && !parseOperand("a literal or OMITTED"))
      return false;
  } while (atIdentifier());
  return true;
}

/// SUPPRESS {identifier [WHEN ...] | [EVERY ...] WHEN ...}..., as in XML GENERATE
bool JsonStatements::parseSuppressions(OperandStatement &statement) {
  accept(Keyword::Suppress);
  do {
    XMLSuppressItem *item = parseXmlSuppressItem();
    if (!item)
      return false;
    if (item->getIdentifier())
      statement.addPart(item->getIdentifier());
  } while (atXmlSuppressItem());
  return true;
}

/// [USING] operand [AND operand]: the values that stand for true and false, or for null.
///
/// The tree has no place for them.
bool JsonStatements::parseJsonValues() {
  accept(Keyword::Using);
  return parseOperand() && (!accept(Keyword::And) || parseOperand());
}

/// identifier {TO | FROM} [JSON] {BOOLEAN | BOOL | NULL} values, of CONVERTING
bool JsonStatements::parseConversion() {
  if (!parseIdentifier())
    return false;
  acceptAny(Keyword::To, Keyword::From);
  accept(Keyword::Json);
  if (atWord("BOOL"))
    stream.skip();
  else if (!accept(Keyword::Boolean) && !accept(Keyword::Null))
    return expected("BOOLEAN or NULL");
  return parseJsonValues();
}

/// identifier [IS] [JSON] NULL values [IN identifier], of INDICATING. A condition-name takes IN and
/// the identifier as its qualifier.
bool JsonStatements::parseIndication() {
  if (!parseIdentifier())
    return false;
  accept(Keyword::Is);
  accept(Keyword::Json);
  return expect(Keyword::Null) && parseJsonValues() && (!accept(Keyword::In) || parseIdentifier());
}

/// [JSON] NULL [FOR] {ALL | identifier}, of IGNORING
bool JsonStatements::parseIgnored() {
  accept(Keyword::Json);
  if (!expect(Keyword::Null))
    return false;
  accept(Keyword::For);
  return accept(Keyword::All) || parseIdentifier();
}

/// The word of a phrase, and what the phrase lists with ALSO between them.
bool JsonStatements::parseListed(bool (JsonStatements::*parseOne)()) {
  stream.skip();
  do {
    if (!(this->*parseOne)())
      return false;
  } while (accept(Keyword::Also));
  return true;
}

/// The phrases that GENERATE and PARSE have in common, in any order.
bool JsonStatements::parsePhrases(OperandStatement &statement) {
  while (true) {
    bool isRead = true;
    if (acceptWith(Keyword::Detail))
      continue;
    if (acceptWith(Keyword::Encoding)) {
      Expression *codePage = parseOperand("a code page");
      isRead = codePage != nullptr;
      if (isRead)
        statement.addSource(codePage);
      // ENCODING operand FROM CODEPAGE
      if (isRead && accept(Keyword::From)) {
        isRead = atWord("CODEPAGE");
        if (!isRead)
          return expected("CODEPAGE");
        stream.skip();
      }
    } else if (at(Keyword::Name)) {
      isRead = parseNames(statement);
    } else if (at(Keyword::Suppress)) {
      isRead = parseSuppressions(statement);
    } else if (at(Keyword::Converting)) {
      isRead = parseListed(&JsonStatements::parseConversion);
    } else if (atWord("INDICATING")) {
      isRead = parseListed(&JsonStatements::parseIndication);
    } else if (at(Keyword::Ignoring)) {
      isRead = parseListed(&JsonStatements::parseIgnored);
    } else {
      return true;
    }
    if (!isRead)
      return false;
  }
}

/// JSON GENERATE identifier FROM identifier [COUNT [IN] identifier] phrases [END-JSON]
StatementResult JsonStatements::parseJsonGenerate(const SourceRange &begin) {
  IdentifierExpression *document = parseIdentifier();
  IdentifierExpression *source = document && expect(Keyword::From) ? parseIdentifier() : nullptr;
  if (!source)
    return nullptr;
  auto *generate = make<JsonGenerateStatement>(begin);
  generate->addReceiver(document);
  generate->addSource(source);
  if (accept(Keyword::Count)) {
    accept(Keyword::In);
    IdentifierExpression *count = parseIdentifier();
    if (!count)
      return nullptr;
    generate->addReceiver(count);
  }
  if (!parsePhrases(*generate))
    return nullptr;
  return finish(generate, &OperandStatement::addExceptHandler);
}

/// JSON PARSE identifier INTO identifier phrases [END-JSON]
StatementResult JsonStatements::parseJsonParse(const SourceRange &begin) {
  IdentifierExpression *document = parseIdentifier();
  IdentifierExpression *target = document && expect(Keyword::Into) ? parseIdentifier() : nullptr;
  if (!target)
    return nullptr;
  auto *parse = make<JsonParseStatement>(begin);
  parse->addSource(document);
  parse->addReceiver(target);
  if (!parsePhrases(*parse))
    return nullptr;
  return finish(parse, &OperandStatement::addExceptHandler);
}

/// JSON {GENERATE | PARSE} ...
StatementResult JsonStatements::parseJson() {
  SourceRange begin = here();
  accept(Keyword::Json);
  if (accept(Keyword::Generate))
    return parseJsonGenerate(begin);
  if (accept(Keyword::Parse))
    return parseJsonParse(begin);
  return expected("GENERATE or PARSE");
}

} // namespace tarka
