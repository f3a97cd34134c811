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

  TARKA_FIELD(IdentifierExpression *, identifier, Identifier)
  TARKA_FIELD(LiteralExpression *, literal, Literal)

private:
  IdentifierExpression *identifier = nullptr;
  LiteralExpression *literal = nullptr;
};

/// TYPE OF identifier IS {ATTRIBUTE | ELEMENT | CONTENT}
class XMLTypeItem : public Node {
public:
  XMLTypeItem(const Node *at, IdentifierExpression *item, XmlNodeType what)
      : Node(at), type(what), identifier(item) {}

  TARKA_FIELD(XmlNodeType, type, Type)
  TARKA_FIELD(IdentifierExpression *, identifier, Identifier)

private:
  XmlNodeType type = XmlNodeType::None;
  IdentifierExpression *identifier = nullptr;
};

/// SUPPRESS {identifier | EVERY [NUMERIC | NONNUMERIC] [ATTRIBUTE | CONTENT | ELEMENT]}
///   WHEN figurative-constant [OR figurative-constant]...
class XMLSuppressItem : public Node {
public:
  /// \p item is null for EVERY.
  XMLSuppressItem(const Node *at, IdentifierExpression *item) : Node(at), identifier(item) {}

  /// Which items EVERY names; None and All where it is not written.
  TARKA_FIELD(XmlSuppressClass, suppressClass, SuppressClass)
  TARKA_FIELD(XmlNodeType, type, Type)
  TARKA_FIELD(IdentifierExpression *, identifier, Identifier)
  /// Empty where WHEN is not written.
  TARKA_LIST_ADD(Expression, values, ValueList, Value)

private:
  XmlSuppressClass suppressClass = XmlSuppressClass::All;
  XmlNodeType type = XmlNodeType::None;
  IdentifierExpression *identifier = nullptr;
  NodeList<Expression> values;
};

/// XML GENERATE identifier FROM identifier [COUNT IN identifier]
///   [WITH ENCODING codepage] [WITH XML-DECLARATION] [WITH ATTRIBUTES]
///   [NAMESPACE IS operand [NAMESPACE-PREFIX IS operand]]
///   [NAME OF ...] [TYPE OF ...] [SUPPRESS ...] [[NOT] ON EXCEPTION statements]...
class XMLGenerateStatement : public StatementOf<StatementType::XmlGenerate> {
public:
  XMLGenerateStatement(const Node *at, IdentifierExpression *document, IdentifierExpression *source)
      : StatementOf(at), genIdent(document), fromIdent(source) {}

  TARKA_FLAG(xmlDeclaration, XmlDeclaration)
  TARKA_FLAG(attributes, Attributes)
  /// True when the source holds an OCCURS DEPENDING ON item; set by the check.
  TARKA_FIELD(bool, fromDataOdo, FromDataOdo)
  /// The item that receives the document, and the item that it is made from.
  TARKA_FIELD(IdentifierExpression *, genIdent, GenIdent)
  TARKA_FIELD(IdentifierExpression *, fromIdent, FromIdent)
  /// Null without COUNT.
  TARKA_FIELD(IdentifierExpression *, countIdent, CountIdent)
  /// Null without ENCODING.
  TARKA_FIELD(Expression *, codePage, CodePage)
  /// Null without NAMESPACE, NAMESPACE-PREFIX.
  TARKA_FIELD(Expression *, nameSpaceExpr, NameSpaceExpr)
  TARKA_FIELD(Expression *, prefixExpr, PrefixExpr)
  TARKA_LIST_ADD(XMLNameItem, nameItems, NameItemList, NameItem)
  TARKA_LIST_ADD(XMLTypeItem, typeItems, TypeItemList, TypeItem)
  TARKA_LIST_ADD(XMLSuppressItem, suppressItems, SuppressItemList, SuppressItem)
  TARKA_LIST_ADD(ExceptionHandler, handlers, OnExcpHandler, OnExcpHandler)
  /// The entries whose contents the document takes, in order; set by the check.
  TARKA_LIST_ADD(DataDescription, convDescs, ConvDescList, ConvDesc)

private:
  bool xmlDeclaration = false;
  bool attributes = false;
  bool fromDataOdo = false;
  IdentifierExpression *genIdent = nullptr;
  IdentifierExpression *fromIdent = nullptr;
  IdentifierExpression *countIdent = nullptr;
  Expression *codePage = nullptr;
  Expression *nameSpaceExpr = nullptr;
  Expression *prefixExpr = nullptr;
  NodeList<XMLNameItem> nameItems;
  NodeList<XMLTypeItem> typeItems;
  NodeList<XMLSuppressItem> suppressItems;
  NodeList<ExceptionHandler> handlers;
  NodeList<DataDescription> convDescs;
};

/// XML PARSE identifier [WITH ENCODING codepage] [RETURNING NATIONAL]
///   [VALIDATING WITH {identifier | FILE name}]
///   PROCESSING PROCEDURE IS procedure-name [THROUGH procedure-name]
///   [[NOT] ON EXCEPTION statements]...
class XMLParseStatement : public StatementOf<StatementType::XmlParse>, public ProcedureRange {
public:
  XMLParseStatement(const Node *at, IdentifierExpression *document)
      : StatementOf(at), parseIdent(document) {}

  TARKA_FLAG(returningNational, ReturningNational)
  TARKA_FIELD(IdentifierExpression *, parseIdent, ParseIdent)
  /// Null without ENCODING.
  TARKA_FIELD(Expression *, codePage, CodePage)
  /// The item that holds the schema, or the name of the schema's file; null where not written.
  TARKA_FIELD(IdentifierExpression *, validatingIdent, ValidatingIdent)
  TARKA_FIELD(Word *, fileName, FileName)
  TARKA_FIELD(QualifiedWord *, parseProcedure, ParseProcedure)
  /// Null without THROUGH.
  TARKA_FIELD(QualifiedWord *, thruProcedure, ThruProcedure)
  TARKA_LIST_ADD(ExceptionHandler, handlers, OnExcpHandler, OnExcpHandler)

private:
  bool returningNational = false;
  IdentifierExpression *parseIdent = nullptr;
  Expression *codePage = nullptr;
  IdentifierExpression *validatingIdent = nullptr;
  Word *fileName = nullptr;
  QualifiedWord *parseProcedure = nullptr;
  QualifiedWord *thruProcedure = nullptr;
  NodeList<ExceptionHandler> handlers;
};

} // namespace tarka

#endif // TARKA_AST_STATEMENTXML_H
