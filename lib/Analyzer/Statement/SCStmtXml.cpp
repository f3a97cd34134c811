//===- SCStmtXml.cpp - XML GENERATE and XML PARSE -------------------------===//
//
// XML GENERATE makes a document of a record: the check finds the items whose
// contents go into it. XML PARSE performs a procedure for every event of a
// document: the check finds the procedure, and how large XML-TEXT has to be.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/DataDescription.h"
#include "AST/DataTree.h"
#include "AST/Expression.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Statement/OperandCheck.h"
#include "Analyzer/Statement/ProcedureName.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallPtrSet.h"
#include <algorithm>
#include <cstdint>

namespace tarka {

//===----------------------------------------------------------------------===//
// Phrases of both statements
//===----------------------------------------------------------------------===//

namespace {

/// ENCODING: the number of a code page, without a sign.
bool checkCodePage(SemanticChecker &checker, Expression *codePage) {
  if (!codePage)
    return true;
  if (!checker.semanticCheck(*codePage))
    return false;
  bool isNumber = false;
  if (auto *literal = llvm::dyn_cast<NumericLiteralExpression>(codePage)) {
    isNumber = literal->isInteger() && !literal->isSigned();
  } else if (counterFaultOf(*codePage) == CounterFault::None) {
    const DataDescription *item = dataItemOf(*codePage);
    isNumber = !item || !item->getPicture() || !item->getPicture()->isSigned();
  }
  return isNumber || checker.report(ErrorCode::LinageNotUnsigned, codePage);
}

/// Documents, and the names in them, are single-byte or national characters.
bool isXmlText(const Expression &operand) {
  return isText(operand) && characterKindOf(operand) != CharacterKind::Dbcs;
}

/// A literal or an item that holds text; null where it is not written. A figurative constant has no
/// length and so is not text here.
bool checkText(SemanticChecker &checker, Expression *text) {
  if (!text)
    return true;
  if (!checker.semanticCheck(*text))
    return false;
  return isXmlText(*text) || checker.report(ErrorCode::IdentifierOrLiteralRequired, text);
}

//===----------------------------------------------------------------------===//
// XML GENERATE
//===----------------------------------------------------------------------===//

/// Checks one XML GENERATE, operand by operand in the order in which they are written.
class XmlGenerateCheck {
public:
  XmlGenerateCheck(SemanticChecker &checkerOfAll, XMLGenerateStatement &generate)
      : checker(checkerOfAll), statement(generate) {}

  bool check();

private:
  bool checkDocument();
  bool checkSource();
  bool collectContents(DataDescription &source);
  bool checkNamesUnique(DataDescription &group);
  bool checkName(XMLNameItem &item);
  bool checkType(XMLTypeItem &item);
  bool checkSuppress(XMLSuppressItem &item);
  bool checkPartOfSource(IdentifierExpression &identifier);
  bool checkElementaryPart(IdentifierExpression &identifier);

  SemanticChecker &checker;
  XMLGenerateStatement &statement;
};

bool XmlGenerateCheck::check() {
  bool ok = checkDocument();
  ok &= checkSource();
  ok &= checkCounter(checker, statement.getCountIdent(), integerCounter);
  ok &= checkCodePage(checker, statement.getCodePage());
  ok &= checkText(checker, statement.getNameSpaceExpr());
  ok &= checkText(checker, statement.getPrefixExpr());
  for (XMLNameItem *item : statement.getNameItemListElements())
    ok &= checkName(*item);
  for (XMLTypeItem *item : statement.getTypeItemListElements())
    ok &= checkType(*item);
  for (XMLSuppressItem *item : statement.getSuppressItemListElements())
    ok &= checkSuppress(*item);
  return ok;
}

/// The document goes into characters as they are: neither edited nor aligned.
bool XmlGenerateCheck::checkDocument() {
  IdentifierExpression &document = *statement.getGenIdent();
  if (!checker.semanticCheck(document))
    return false;
  if (llvm::isa<FunctionIdentifierExpression>(document))
    return checker.report(ErrorCode::FunctionInReceivingArea, &document);
  switch (document.getDataCategory()) {
  case DataCategory::Unclassified:
  case DataCategory::Alphanumeric:
  case DataCategory::National:
    break;
  default:
    return checker.report(ErrorCode::StringReceiverType, &document);
  }
  const DataDescription *item = dataItemOf(document);
  if (!item)
    return checker.report(ErrorCode::StringReceiverType, &document);
  if (item->getJustified())
    return checker.report(ErrorCode::StringReceiverJustified, &document);
  return true;
}

//===----------------------------------------------------------------------===//
// The source and its contents
//===----------------------------------------------------------------------===//

/// The only entries below a record of the source that the checks make.
bool isSlack(const DataDescription &entry) {
  return !entry.isWritten();
}

/// The entries below the source that are not in the document: another view of the same storage,
/// items without a name to call an element by, and slack bytes.
bool isLeftOut(const DataDescription &entry) {
  return entry.getLevelNum() == 66 || entry.getLevelNum() == 88 || entry.isRedefineSubject() ||
         isSlack(entry) || (entry.isFiller() && !entry.hasSubordinateData());
}

/// Siblings must have distinct names in the document; items without a name may repeat.
bool XmlGenerateCheck::checkNamesUnique(DataDescription &group) {
  bool ok = true;
  llvm::SmallPtrSet<const std::string *, 16> names;
  for (const DataDescription *child : group.getChildrenElements())
    if (!child->isFiller() && !isLeftOut(*child) &&
        !names.insert(&child->getDataName()->getWordData()).second)
      ok = checker.report(ErrorCode::IdentifierNotUnique, statement.getFromIdent(),
                          child->getDataName()->getWordData().c_str());
  return ok;
}

/// Notes the elementary items below \p source whose contents the document takes.
bool XmlGenerateCheck::collectContents(DataDescription &source) {
  bool ok = true;
  bool hasPointer = false;
  forEachEntryIf(&source, [&](DataDescription *entry) {
    if (entry != &source && isLeftOut(*entry))
      return false;
    if (entry->hasSubordinateData()) {
      ok &= checkNamesUnique(*entry);
      return true;
    }
    hasPointer |= entry->getDataCategory() == DataCategory::Pointer;
    statement.addConvDesc(entry);
    return false;
  });
  // An address means nothing in a document.
  if (hasPointer)
    return checker.report(ErrorCode::UsageTypeInvalid, statement.getFromIdent());
  if (statement.getConvDescListSize() == 0)
    return checker.report(ErrorCode::IdentifierRequired, statement.getFromIdent());
  return ok;
}

/// A whole item, which may be one of a table.
bool XmlGenerateCheck::checkSource() {
  IdentifierExpression &source = *statement.getFromIdent();
  if (!checker.semanticCheck(source))
    return false;
  DataDescription *item = dataItemOf(source);
  if (!item || item->getLevelNum() == 66)
    return checker.report(ErrorCode::IdentifierRequired, &source);
  if (source.getReferenceMod())
    return checker.report(ErrorCode::ReferenceModifierNotAllowed, &source);
  statement.setFromDataOdo(item->checkContainsOdo());
  return collectContents(*item);
}

//===----------------------------------------------------------------------===//
// NAME, TYPE, SUPPRESS
//===----------------------------------------------------------------------===//

/// The source itself or an item below it.
bool XmlGenerateCheck::checkPartOfSource(IdentifierExpression &identifier) {
  if (!checker.semanticCheck(identifier))
    return false;
  const DataDescription *part = dataItemOf(identifier);
  if (!part)
    return checker.report(ErrorCode::IdentifierRequired, &identifier);
  const DataDescription *source = statement.getFromIdent()->getDataDescription();
  for (const DataDescription *group = part; group; group = group->getParent())
    if (group == source || !source)
      return true;
  return checker.report(ErrorCode::IdentifierNotInScope, &identifier,
                        part->getDataName()->getWordData().c_str());
}

bool XmlGenerateCheck::checkElementaryPart(IdentifierExpression &identifier) {
  if (!checkPartOfSource(identifier))
    return false;
  if (dataItemOf(identifier)->hasSubordinateData())
    return checker.report(ErrorCode::PerformIdentifierNotElementary, &identifier);
  return true;
}

bool XmlGenerateCheck::checkName(XMLNameItem &item) {
  bool ok = checkPartOfSource(*item.getIdentifier());
  return checkText(checker, item.getLiteral()) && ok;
}

/// A group is always an element.
bool XmlGenerateCheck::checkType(XMLTypeItem &item) {
  return checkElementaryPart(*item.getIdentifier());
}

/// Only an item with contents has a value that it can be suppressed for.
bool XmlGenerateCheck::checkSuppress(XMLSuppressItem &item) {
  bool ok = true;
  if (IdentifierExpression *part = item.getIdentifier())
    ok = item.getValueListSize() == 0 ? checkPartOfSource(*part) : checkElementaryPart(*part);
  return OperandCheck(checker).all(item.getValueListElements()) && ok;
}

} // namespace

bool SemanticChecker::semanticCheck(XMLGenerateStatement &statement) {
  bool ok = XmlGenerateCheck(*this, statement).check();
  return OperandCheck(*this).all(statement.getOnExcpHandlerElements()) && ok;
}

//===----------------------------------------------------------------------===//
// XML PARSE
//===----------------------------------------------------------------------===//

/// The document, or the schema that it is checked against: an item that holds text.
static bool checkTextItem(SemanticChecker &checker, IdentifierExpression &item) {
  if (!checker.semanticCheck(item))
    return false;
  const bool isItem = !llvm::isa<FunctionIdentifierExpression>(item);
  return (isItem && isXmlText(item)) || checker.report(ErrorCode::IdentifierRequired, &item);
}

/// The processing procedure is run like a performed range. The register XML-TEXT will have to hold
/// the largest document that the source unit parses.
bool SemanticChecker::semanticCheck(XMLParseStatement &statement) {
  bool ok = checkTextItem(*this, *statement.getParseIdent());
  if (const DataDescription *document = statement.getParseIdent()->getDataDescription())
    state->xmlText.size = std::max<std::uint64_t>(state->xmlText.size, document->getAllocSize());
  ok &= checkCodePage(*this, statement.getCodePage());
  if (IdentifierExpression *schema = statement.getValidatingIdent())
    ok &= checkTextItem(*this, *schema);
  ok &= resolveRange(*this, statement, statement.getParseProcedure(), statement.getThruProcedure(),
                     statement);
  return OperandCheck(*this).all(statement.getOnExcpHandlerElements()) && ok;
}

} // namespace tarka
