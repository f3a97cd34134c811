//===- ParseStatementXml.cpp - XML GENERATE and XML PARSE -----------------===//

#include "Parse/ParseStatementXml.h"

namespace tarka {

/// Whether \p keyword is next, with or without WITH before it.
bool XmlStatements::atWith(Keyword keyword) {
  return peek(at(Keyword::With) ? 1 : 0).is(keyword);
}

/// [WITH] keyword, if it is next.
bool XmlStatements::acceptWith(Keyword keyword) {
  if (!atWith(keyword))
    return false;
  accept(Keyword::With);
  return accept(keyword);
}

//===----------------------------------------------------------------------===//
// XML GENERATE
//===----------------------------------------------------------------------===//

/// NAMESPACE [IS] operand [NAMESPACE-PREFIX [IS] operand]
bool XmlStatements::parseXmlNamespace(XMLGenerateStatement &generate) {
  accept(Keyword::Namespace);
  accept(Keyword::Is);
  generate.setNameSpaceExpr(parseOperand());
  if (!generate.getNameSpaceExpr() || !accept(Keyword::NamespacePrefix))
    return generate.getNameSpaceExpr();
  accept(Keyword::Is);
  generate.setPrefixExpr(parseOperand());
  return generate.getPrefixExpr();
}

/// identifier [IS] literal, of NAME
XMLNameItem *XmlStatements::parseXmlNameItem() {
  SourceRange begin = here();
  IdentifierExpression *item = parseIdentifier();
  if (!item)
    return nullptr;
  accept(Keyword::Is);
  LiteralExpression *name = parseLiteral();
  return name ? make<XMLNameItem>(begin, item, name) : nullptr;
}

/// ATTRIBUTE, ELEMENT or CONTENT; None where none of them is next.
XmlNodeType XmlStatements::acceptXmlNodeType() {
  if (accept(Keyword::Attribute))
    return XmlNodeType::Attribute;
  if (accept(Keyword::Element))
    return XmlNodeType::Element;
  if (accept(Keyword::Content))
    return XmlNodeType::Content;
  return XmlNodeType::None;
}

/// identifier [IS] {ATTRIBUTE | ELEMENT | CONTENT}, of TYPE
XMLTypeItem *XmlStatements::parseXmlTypeItem() {
  SourceRange begin = here();
  IdentifierExpression *item = parseIdentifier();
  if (!item)
    return nullptr;
  accept(Keyword::Is);
  XmlNodeType type = acceptXmlNodeType();
  if (type == XmlNodeType::None)
    return expected("ATTRIBUTE, ELEMENT or CONTENT");
  return make<XMLTypeItem>(begin, item, type);
}

/// Whether a further item of SUPPRESS is next. WHEN alone does not prove it: it can belong to a
/// statement around.
bool XmlStatements::atXmlSuppressItem() {
  return at(Keyword::Every) || atIdentifier();
}

/// identifier [WHEN figurative-constant [[OR] figurative-constant]...]
/// [EVERY [NUMERIC | NONNUMERIC] [ATTRIBUTE | ELEMENT | CONTENT]] WHEN figurative-constant ...
XMLSuppressItem *XmlStatements::parseXmlSuppressItem() {
  auto *item = make<XMLSuppressItem>(here(), nullptr);
  if (accept(Keyword::Every)) {
    if (accept(Keyword::Numeric))
      item->setSuppressClass(XmlSuppressClass::Numeric);
    else if (accept(Keyword::Nonnumeric))
      item->setSuppressClass(XmlSuppressClass::NonNumeric);
    item->setType(acceptXmlNodeType());
  } else if (!at(Keyword::When)) {
    item->setIdentifier(parseIdentifier("an identifier, EVERY or WHEN"));
    if (!item->getIdentifier())
      return nullptr;
    if (!at(Keyword::When))
      return complete(item);
  }
  if (!expect(Keyword::When))
    return nullptr;
  do {
    Expression *value = parseFigurativeConstant();
    if (!value)
      return nullptr;
    item->addValue(value);
  } while (accept(Keyword::Or) || peek().isFigurativeConstant());
  return complete(item);
}

/// XML GENERATE identifier FROM identifier [COUNT [IN] identifier]
///   [[WITH] ENCODING codepage] [[WITH] XML-DECLARATION] [[WITH] ATTRIBUTES]
///   [NAMESPACE [IS] operand [NAMESPACE-PREFIX [IS] operand]]
///   [NAME [OF] {identifier [IS] literal}...]
///   [TYPE [OF] {identifier [IS] {ATTRIBUTE | ELEMENT | CONTENT}}...]
///   [SUPPRESS {identifier [WHEN ...] | [EVERY ...] WHEN ...}...]
///   [[NOT] ON EXCEPTION statements]... [END-XML]
StatementResult XmlStatements::parseXmlGenerate(const SourceRange &begin) {
  IdentifierExpression *document = parseIdentifier();
  IdentifierExpression *source = document && expect(Keyword::From) ? parseIdentifier() : nullptr;
  if (!source)
    return nullptr;
  auto *generate = make<XMLGenerateStatement>(begin, document, source);
  if (accept(Keyword::Count)) {
    accept(Keyword::In);
    generate->setCountIdent(parseIdentifier());
    if (!generate->getCountIdent())
      return nullptr;
  }
  if (acceptWith(Keyword::Encoding)) {
    generate->setCodePage(parseOperand("a code page"));
    if (!generate->getCodePage())
      return nullptr;
  }
  generate->setIsXmlDeclaration(acceptWith(Keyword::XmlDeclaration));
  generate->setIsAttributes(acceptWith(Keyword::Attributes));
  if (at(Keyword::Namespace) && !parseXmlNamespace(*generate))
    return nullptr;
  if (accept(Keyword::Name)) {
    accept(Keyword::Of);
    if (!parseSeries(*generate, &XMLGenerateStatement::addNameItem,
                     &XmlStatements::parseXmlNameItem, &XmlStatements::atIdentifier))
      return nullptr;
  }
  if (accept(Keyword::Type)) {
    accept(Keyword::Of);
    if (!parseSeries(*generate, &XMLGenerateStatement::addTypeItem,
                     &XmlStatements::parseXmlTypeItem, &XmlStatements::atIdentifier))
      return nullptr;
  }
  if (accept(Keyword::Suppress) &&
      !parseSeries(*generate, &XMLGenerateStatement::addSuppressItem,
                   &XmlStatements::parseXmlSuppressItem, &XmlStatements::atXmlSuppressItem))
    return nullptr;
  return finish(generate, &XMLGenerateStatement::addOnExcpHandler);
}

//===----------------------------------------------------------------------===//
// XML PARSE
//===----------------------------------------------------------------------===//

/// XML PARSE identifier [[WITH] ENCODING codepage] [RETURNING NATIONAL]
///   [VALIDATING [WITH] {identifier | FILE schema-name}]
///   PROCESSING PROCEDURE [IS] procedure-name [{THROUGH | THRU} procedure-name]
///   [[NOT] ON EXCEPTION statements]... [END-XML]
StatementResult XmlStatements::parseXmlParse(const SourceRange &begin) {
  IdentifierExpression *document = parseIdentifier();
  if (!document)
    return nullptr;
  auto *parse = make<XMLParseStatement>(begin, document);
  if (acceptWith(Keyword::Encoding)) {
    parse->setCodePage(parseOperand("a code page"));
    if (!parse->getCodePage())
      return nullptr;
  }
  if (accept(Keyword::Returning)) {
    if (!expect(Keyword::National))
      return nullptr;
    parse->setIsReturningNational(true);
  }
  if (accept(Keyword::Validating)) {
    accept(Keyword::With);
    if (accept(Keyword::File))
      parse->setFileName(parseUserWord("the name of an XML schema"));
    else
      parse->setValidatingIdent(parseIdentifier("an identifier or FILE"));
    if (!parse->getFileName() && !parse->getValidatingIdent())
      return nullptr;
  }

  if (!expect(Keyword::Processing) || !expect(Keyword::Procedure))
    return nullptr;
  accept(Keyword::Is);
  parse->setParseProcedure(parseProcedureName());
  if (!parse->getParseProcedure())
    return nullptr;
  if (acceptAny(Keyword::Through, Keyword::Thru)) {
    parse->setThruProcedure(parseProcedureName());
    if (!parse->getThruProcedure())
      return nullptr;
  }
  return finish(parse, &XMLParseStatement::addOnExcpHandler);
}

/// XML {GENERATE | PARSE} ...
StatementResult XmlStatements::parseXml() {
  SourceRange begin = here();
  accept(Keyword::Xml);
  if (accept(Keyword::Generate))
    return parseXmlGenerate(begin);
  if (accept(Keyword::Parse))
    return parseXmlParse(begin);
  return expected("GENERATE or PARSE");
}

} // namespace tarka
