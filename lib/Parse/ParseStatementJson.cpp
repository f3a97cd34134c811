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

/// CONVERTING {identifier {TO | FROM} [JSON] {BOOLEAN | BOOL} [USING] operand [AND operand]}...
///
/// The tree has no place for the values that stand for true and false.
bool JsonStatements::parseConversions() {
  stream.skip();
  do {
    if (!parseIdentifier())
      return false;
    acceptAny(Keyword::To, Keyword::From);
    accept(Keyword::Json);
    if (!accept(Keyword::Boolean) && !atWord("BOOL"))
      return expected(textOf(Keyword::Boolean));
    if (atWord("BOOL"))
      stream.skip();
    accept(Keyword::Using);
    if (!parseOperand() || (accept(Keyword::And) && !parseOperand()))
      return false;
    accept(Keyword::Also);
  } while (atIdentifier());
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
    } else if (at(Keyword::Name)) {
      isRead = parseNames(statement);
    } else if (at(Keyword::Suppress)) {
      isRead = parseSuppressions(statement);
    } else if (at(Keyword::Converting)) {
      isRead = parseConversions();
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
