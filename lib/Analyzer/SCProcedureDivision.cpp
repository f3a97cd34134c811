//===- SCProcedureDivision.cpp - procedure divisions ----------------------===//
//
// USING and RETURNING, the kinds of declaratives, and the walk over sections,
// paragraphs and sentences.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/SentenceWalk.h"
#include "llvm/Support/SaveAndRestore.h"
#include <cstdlib>

namespace tarka {

//===----------------------------------------------------------------------===//
// The division
//===----------------------------------------------------------------------===//

namespace {

/// An item of USING or RETURNING must be in the linkage section or of level 01 or 77. The message
/// requires both; one of the two is enough.
bool isUsableAsParameter(const DataDescription &entry) {
  return entry.getStorageType() == StorageType::Linkage || entry.getLevelNum() == 1 ||
         entry.getLevelNum() == 77;
}

/// Whether an item can receive an argument that is passed by value: an elementary item in binary or
/// floating point, a pointer, or one character, alphanumeric or national.
bool isPassedByValue(const DataDescription &entry) {
  if (entry.hasSubordinateData())
    return false;
  switch (entry.getUsageType()) {
  case UsageType::Binary:
  case UsageType::Comp:
  case UsageType::Comp1:
  case UsageType::Comp2:
  case UsageType::Comp4:
  case UsageType::Comp5:
  case UsageType::Pointer:
  case UsageType::ProcedurePointer:
  case UsageType::FunctionPointer:
    return true;
  default:
    break;
  }
  switch (entry.getDataCategory()) {
  case DataCategory::Unclassified: // in error, which has been reported
    return true;
  case DataCategory::Alphabetic:
  case DataCategory::Alphanumeric:
    return entry.getAllocSize() == 1;
  case DataCategory::National:
    return entry.getAllocSize() == 2;
  default:
    return false;
  }
}

/// Adds a declarative to the list of its kind. One without a USE belongs to every kind that
/// occurred before it.
void sortDeclarative(ProcedureDivision &division, Declaratives &declarative, bool &haveBase,
                     bool &haveReport) {
  bool isBase = haveBase;
  bool isReport = haveReport;
  if (const UseStatement *use = declarative.getUseStmt()) {
    isReport = use->getTimingType() == UseTimingType::BeforeReporting;
    isBase = !isReport;
    (isReport ? haveReport : haveBase) = true;
  }
  if (isReport)
    division.addRptDeclaratives(&declarative);
  if (isBase)
    division.addBaseDeclaratives(&declarative);
}

bool checkUsingItem(SemanticChecker &checker, Expression *item) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(item);
  if (!identifier)
    return checker.report(ErrorCode::UsingItemNotLinkageRecord, item);
  if (!checker.semanticCheck(*identifier))
    return false;
  if (!isUsableAsParameter(*identifier->getDataDescription()))
    return checker.report(ErrorCode::UsingItemNotLinkageRecord, item);
  return true;
}

/// Null sentences pass.
bool checkSentences(SemanticChecker &checker, const NodeList<Sentence> &sentences,
                    Section *section) {
  bool ok = true;
  forEachSentence(sentences, [&](Sentence *sentence) {
    if (sentence)
      ok &= checker.semanticCheck(*sentence, section);
  });
  return ok;
}

} // namespace

bool SemanticChecker::semanticCheck(ProcedureDivision &division) {
  bool ok = true;
  for (Parameter *parameter : division.getParameterElements()) {
    Expression *item = parameter->getExpr();
    bool isUsable = checkUsingItem(*this, item);
    if (isUsable && parameter->getType() == ParameterType::Value &&
        !isPassedByValue(*llvm::cast<DataIdentifierExpression>(item)->getDataDescription()))
      isUsable = report(ErrorCode::UsingByValueParameter, item);
    ok &= isUsable;
  }
  if (Returning *returning = division.getReturning()) {
    if (currentUnit()->isNested())
      ok = report(ErrorCode::ReturningInNestedProgram, returning);
    ok &= semanticCheck(*returning);
  }

  // Checking a declarative may append copies of other sections, which are then checked as well.
  bool haveBase = false;
  bool haveReport = false;
  for (std::size_t i = 0; i < division.getDeclSize(); ++i) {
    Declaratives *declarative = division.getDeclElements()[i];
    sortDeclarative(division, *declarative, haveBase, haveReport);
    ok &= semanticCheck(*declarative);
  }

  ok &= checkSentences(*this, division.getSentElements(), nullptr);
  for (Paragraph *paragraph : division.getParaElements())
    ok &= semanticCheck(*paragraph, nullptr);
  for (Section *section : division.getSectElements()) {
    const llvm::SaveAndRestore outer(state->outerSection, section);
    ok &= semanticCheck(*section);
  }
  return ok;
}

bool SemanticChecker::semanticCheck(Returning &returning) {
  DataIdentifierExpression *item = returning.getReturnItem();
  if (!item)
    return true;
  if (!semanticCheck(*item))
    return false;
  bool ok = true;
  if (!isUsableAsParameter(*item->getDataDescription()))
    ok = report(ErrorCode::UsingItemNotLinkageRecord, item);
  // The second check repeats the reports about the item itself.
  ok &= semanticCheck(*item);
  return ok;
}

//===----------------------------------------------------------------------===//
// Sections, paragraphs, sentences
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(Section &section) {
  bool ok = true;
  if (NumericLiteralExpression *priority = section.getPriorityNumExpr()) {
    ok &= semanticCheck(*priority);
    long number = std::strtol(priority->getData().c_str(), nullptr, 10);
    if (number < 0 || number > 99)
      ok = report(ErrorCode::PriorityNumberRange, priority);
  }
  ok &= checkSentences(*this, section.getSentElements(), &section);
  for (Paragraph *paragraph : section.getParaElements())
    ok &= semanticCheck(*paragraph, &section);
  return ok;
}

bool SemanticChecker::semanticCheck(Paragraph &paragraph, Section *section) {
  return checkSentences(*this, paragraph.getSentElements(), section);
}

bool SemanticChecker::semanticCheck(Sentence &sentence, Section *) {
  bool ok = true;
  for (Statement *statement : sentence.getStmtElements())
    ok &= semanticCheck(*statement);
  return ok;
}

} // namespace tarka
