//===- StatementXml.h - XML GENERATE and XML PARSE --------------*- C++ -*-===//

#ifndef TARKA_AST_STATEMENTXML_H
#define TARKA_AST_STATEMENTXML_H

#include "AST/StatementBase.h"

namespace tarka {

/// NAME OF identifier IS literal
class XMLNameItem : public Node {
public:
  XMLNameItem(const Node *at, IdentifierExpression *item, LiteralExpression *text)
      : Node(at), identifier(item), literal(text) {}

  TARKA_FIELD(IdentifierExpression *, identifier, Identifier, nullptr);
  TARKA_FIELD(LiteralExpression *, literal, Literal, nullptr);
};

/// TYPE OF identifier IS {ATTRIBUTE | ELEMENT | CONTENT}
class XMLTypeItem : public Node {
public:
  XMLTypeItem(const Node *at, IdentifierExpression *item, XmlNodeType what)
      : Node(at), type(what), identifier(item) {}

  TARKA_FIELD(XmlNodeType, type, Type, XmlNodeType::None);
  TARKA_FIELD(IdentifierExpression *, identifier, Identifier, nullptr);
};

/// SUPPRESS {identifier | EVERY [NUMERIC | NONNUMERIC] [ATTRIBUTE | CONTENT | ELEMENT]}
///   WHEN figurative-constant [OR figurative-constant]...
class XMLSuppressItem : public Node {
public:
  /// \p item is null for EVERY.
  XMLSuppressItem(const Node *at, IdentifierExpression *item) : Node(at), identifier(item) {}

  /// Which items EVERY speaks of; None and All where it does not say.
  TARKA_FIELD(XmlSuppressClass, suppressClass, SuppressClass, XmlSuppressClass::All);
  TARKA_FIELD(XmlNodeType, type, Type, XmlNodeType::None);
  TARKA_FIELD(IdentifierExpression *, identifier, Identifier, nullptr);
  /// Empty where WHEN is not written.
  TARKA_LAZY_LIST(Expression, values, ValueList, Value);
};

/// XML GENERATE identifier FROM identifier [COUNT IN identifier]
///   [WITH ENCODING codepage] [WITH XML-DECLARATION] [WITH ATTRIBUTES]
///   [NAMESPACE IS operand [NAMESPACE-PREFIX IS operand]]
///   [NAME OF ...] [TYPE OF ...] [SUPPRESS ...] [[NOT] ON EXCEPTION statements]...
class XMLGenerateStatement : public StatementOf<StatementType::XmlGenerate> {
public:
  XMLGenerateStatement(const Node *at, IdentifierExpression *document, IdentifierExpression *source)
      : StatementOf(at), genIdent(document), fromIdent(source) {}

  TARKA_FLAG(xmlDeclaration, XmlDeclaration, false);
  TARKA_FLAG(attributes, Attributes, false);
  /// True when the source holds an OCCURS DEPENDING ON item; set by the check.
  TARKA_FIELD(bool, fromDataOdo, FromDataOdo, false);
  /// The item that receives the document, and the item that it is made from.
  TARKA_FIELD(IdentifierExpression *, genIdent, GenIdent, nullptr);
  TARKA_FIELD(IdentifierExpression *, fromIdent, FromIdent, nullptr);
  /// Null without COUNT.
  TARKA_FIELD(IdentifierExpression *, countIdent, CountIdent, nullptr);
  /// Null without ENCODING.
  TARKA_FIELD(Expression *, codePage, CodePage, nullptr);
  /// Null without NAMESPACE, NAMESPACE-PREFIX.
  TARKA_FIELD(Expression *, nameSpaceExpr, NameSpaceExpr, nullptr);
  TARKA_FIELD(Expression *, prefixExpr, PrefixExpr, nullptr);
  TARKA_LAZY_LIST(XMLNameItem, nameItems, NameItemList, NameItem);
  TARKA_LAZY_LIST(XMLTypeItem, typeItems, TypeItemList, TypeItem);
  TARKA_LAZY_LIST(XMLSuppressItem, suppressItems, SuppressItemList, SuppressItem);
  TARKA_LAZY_LIST(ExceptionHandler, handlers, OnExcpHandler, OnExcpHandler);
  /// The entries whose contents the document takes, in order; set by the check.
  TARKA_LAZY_LIST(DataDescription, convDescs, ConvDescList, ConvDesc);
};

/// XML PARSE identifier [WITH ENCODING codepage] [RETURNING NATIONAL]
///   [VALIDATING WITH {identifier | FILE name}]
///   PROCESSING PROCEDURE IS procedure-name [THROUGH procedure-name]
///   [[NOT] ON EXCEPTION statements]...
class XMLParseStatement : public StatementOf<StatementType::XmlParse>, public ProcedureRange {
public:
  XMLParseStatement(const Node *at, IdentifierExpression *document)
      : StatementOf(at), parseIdent(document) {}

  TARKA_FLAG(returningNational, ReturningNational, false);
  TARKA_FIELD(IdentifierExpression *, parseIdent, ParseIdent, nullptr);
  /// Null without ENCODING.
  TARKA_FIELD(Expression *, codePage, CodePage, nullptr);
  /// The item that holds the schema, or the name of the schema's file; null where not written.
  TARKA_FIELD(IdentifierExpression *, validatingIdent, ValidatingIdent, nullptr);
  TARKA_FIELD(Word *, fileName, FileName, nullptr);
  TARKA_FIELD(QualifiedWord *, parseProcedure, ParseProcedure, nullptr);
  /// Null without THROUGH.
  TARKA_FIELD(QualifiedWord *, thruProcedure, ThruProcedure, nullptr);
  TARKA_LAZY_LIST(ExceptionHandler, handlers, OnExcpHandler, OnExcpHandler);
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTXML_H
