//===- SCStmtBranch.cpp - procedure names, and who refers to them ---------===//
//
// The search for sections and paragraphs, GO TO, PERFORM and ALTER, which use
// it, and ENTRY.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/Expression/CharacterOperand.h"
#include "Analyzer/Expression/OperandKinds.h"
#include "Analyzer/SemanticChecker.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/Support/ErrorHandling.h"

namespace tarka {

namespace {

ProcedureDivision &currentProcedureDivision() {
  return *currentUnit()->getProcDivision();
}

/// The name of a condition of an integer item is no integer.
bool holdsInteger(const Expression &operand) {
  return operand.isInteger() && !isConditionName(operand);
}

/// What the name of the copy of a section within the declaratives ends with.
constexpr llvm::StringLiteral CopySuffix = "_tkcopy";

} // namespace

//===----------------------------------------------------------------------===//
// Procedure names
//===----------------------------------------------------------------------===//

Section *SemanticChecker::findSectionFromQualWord(QualifiedWord *name, Statement *statement) {
  // Sections cannot be qualified.
  if (name->getNamesSize() > 1)
    return nullptr;
  ProcedureDivision &division = currentProcedureDivision();
  const std::string &text = name->getNamesElements().front()->getWordData();
  auto notUnique = [&] {
    report(ErrorCode::SectionNotUnique, name);
    return nullptr;
  };

  llvm::ArrayRef<Section *> found = division.findDeclarativeSections(text);
  if (found.size() > 1)
    return notUnique();
  if (getInDeclaratives()) {
    // Of a section outside of the declaratives these have a copy, once one was needed.
    if (found.empty())
      found = division.findRenameSections(text + CopySuffix.str());
    if (found.size() > 1)
      return notUnique();
    if (!found.empty())
      return found.front();
  }
  llvm::ArrayRef<Section *> outside = division.findSections(text);
  if (found.size() + outside.size() > 1)
    return notUnique();
  if (outside.empty())
    return found.empty() ? nullptr : found.front();
  if (getInDeclaratives())
    return copyIntoDeclaratives(*outside.front(), *name, statement);
  return outside.front();
}

/// A procedure performed from the declaratives must be one of theirs, so they get a copy of the
/// section; a PERFORM that begins with it is made to name the copy.
Section *SemanticChecker::copyIntoDeclaratives(Section &section, QualifiedWord &name,
                                               Statement *statement) {
  const std::string &text = section.getSectionName()->getWordData();
  const Node *place = statement ? static_cast<Node *>(statement) : &name;
  auto *copyName = generate<Word>(place, text + CopySuffix.str(), "");
  Section *copy = section.createCopySection(section.getSectionName(), copyName);
  ProcedureDivision &division = currentProcedureDivision();
  division.addDeclaratives(generate<Declaratives>(copy, copy, nullptr));
  division.addRenameSection(copy);

  auto *perform = llvm::dyn_cast_or_null<PerformStatement>(statement);
  PerformProcedure *range = perform ? perform->getProcedureName() : nullptr;
  if (range && range->getProcedureName1()->getNamesElements().front()->getWordData() == text) {
    auto *newName = generate<QualifiedWord>(copyName);
    newName->addNames(copyName);
    range->setProcedureName1(newName);
  }
  return copy;
}

Paragraph *SemanticChecker::findParagraphFromQualWord(QualifiedWord *name, Statement *statement) {
  const std::list<Word *> &words = name->getNamesElements();
  if (words.size() > 2)
    return reportNoProcedure(*name);
  const std::string &text = words.front()->getWordData();
  if (words.size() == 2)
    return findParagraphInSections(*name, text, words.back()->getWordData());

  // A paragraph of the section around the statement hides all others.
  Section *current = getOuterSection();
  if (statement && current) {
    llvm::ArrayRef<Paragraph *> own = current->findParagraphs(text);
    if (own.size() > 1)
      return reportNotUnique(*name);
    if (!own.empty())
      return own.front();
  }
  ProcedureDivision &division = currentProcedureDivision();
  llvm::ArrayRef<Paragraph *> outside = division.findParagraphs(text);
  if (outside.size() > 1)
    return reportNotUnique(*name);
  if (!outside.empty() && !current)
    return outside.front();

  Paragraph *found = outside.empty() ? nullptr : outside.front();
  for (const ParagraphInSection &candidate : division.findSectionParagraphs(text)) {
    if (candidate.section == current)
      continue;
    if (found)
      return reportNotUnique(*name);
    found = candidate.paragraph;
  }
  return found ? found : reportNoProcedure(*name);
}

/// paragraph OF section. Sections of the same name are searched as one.
Paragraph *SemanticChecker::findParagraphInSections(QualifiedWord &name,
                                                    const std::string &paragraphName,
                                                    const std::string &sectionName) {
  Paragraph *found = nullptr;
  for (const Section *section : currentProcedureDivision().findSections(sectionName))
    for (Paragraph *paragraph : section->findParagraphs(paragraphName)) {
      if (found)
        return reportNotUnique(name);
      found = paragraph;
    }
  return found ? found : reportNoProcedure(name);
}

Paragraph *SemanticChecker::reportNotUnique(QualifiedWord &name) {
  report(ErrorCode::ParagraphNotUnique, &name);
  return nullptr;
}

Paragraph *SemanticChecker::reportNoProcedure(QualifiedWord &name) {
  report(ErrorCode::ProcedureNameUndefined, &name);
  return nullptr;
}

//===----------------------------------------------------------------------===//
// GO TO
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(GotoStatement &statement) {
  for (QualifiedWord *name : statement.getProcedureNameListElements()) {
    // No statement is given: the name stays as it is when the section is copied.
    Section *section = findSectionFromQualWord(name, nullptr);
    Paragraph *paragraph = section ? nullptr : findParagraphFromQualWord(name, &statement);
    if (!section && !paragraph)
      return false;
    statement.addProcedure(new GotoProcedure(section, paragraph));
  }
  bool ok = true;
  if (IdentifierExpression *depending = statement.getDependingName()) {
    ok &= semanticCheck(*depending);
    if (!holdsInteger(*depending))
      ok = report(ErrorCode::GoToDependingNotInteger, depending);
  }
  return ok;
}

//===----------------------------------------------------------------------===//
// PERFORM
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(PerformStatement &statement) {
  bool ok = true;
  if (statement.getInlineStatementsSize() != 0) {
    for (Statement *inner : statement.getInlineStatementsElements())
      ok &= semanticCheck(*inner);
  } else if (statement.getProcedureName()) {
    PerformProcedure *procedures = statement.getProcedureName();
    if (!resolveRange(*procedures, procedures->getProcedureName1(), procedures->getProcedureName2(),
                      statement))
      return false;
  } else {
    // An empty inline PERFORM does nothing, which CONTINUE says.
    statement.addInlineStatement(generate<ContinueStatement>(nullptr));
  }

  switch (statement.getType()) {
  case PerformStmtType::Simple:
    return ok;
  case PerformStmtType::Times:
    return checkPerformTimes(*statement.getTimesInteger()) && ok;
  case PerformStmtType::Until:
    return semanticCheck(*statement.getUntilCondition()) && ok;
  case PerformStmtType::Varying:
    for (PerformVarying *phrase : statement.getPhraseListElements())
      ok &= checkPerformVarying(*phrase);
    return ok;
  }
  llvm_unreachable("invalid perform statement");
}

namespace {

/// Marks a procedure as the end of the range of the PERFORM at \p line.
template <typename Procedure> void markPerformEnd(Procedure *procedure, int line) {
  procedure->setIsPerformThru(true);
  procedure->setPerformLine(line);
}

} // namespace

/// Finds the procedures of the range and marks the one that ends it. The last statement whose range
/// ends at a procedure leaves its line there.
bool SemanticChecker::resolveRange(ProcedureRange &range, QualifiedWord *begin, QualifiedWord *thru,
                                   Statement &statement) {
  auto resolve = [&](QualifiedWord *name, bool isEnd) {
    Section *section = findSectionFromQualWord(name, &statement);
    Paragraph *paragraph = section ? nullptr : findParagraphFromQualWord(name, &statement);
    if (section) {
      range.addSection(section);
      if (isEnd)
        markPerformEnd(section, statement.getBeginLineNo());
    } else if (paragraph) {
      range.addParagraph(paragraph);
      if (isEnd)
        markPerformEnd(paragraph, statement.getBeginLineNo());
    }
    return section || paragraph;
  };
  if (thru)
    return resolve(begin, false) && resolve(thru, true);
  if (!resolve(begin, true))
    return false;
  range.setThruSection(range.getBeginSection());
  range.setThruParagraph(range.getBeginParagraph());
  return true;
}

bool SemanticChecker::checkPerformTimes(Expression &times) {
  if (!semanticCheck(times))
    return false;
  const auto *literal = llvm::dyn_cast<NumericLiteralExpression>(&times);
  if (!holdsInteger(times) || (literal && literal->getIntegerValue() < 1))
    return report(ErrorCode::PerformTimesNotPositive, &times);
  return true;
}

namespace {

bool isGroup(const Expression &operand) {
  const DataDescription *entry = entryOfDataIdentifier(operand);
  return entry && entry->isGroupItem();
}

/// What PERFORM VARYING can count with.
bool isCountable(const Expression &operand) {
  if (isConditionName(operand))
    return false;
  switch (operand.getDataCategory()) {
  case DataCategory::Numeric:
  case DataCategory::Index:
  case DataCategory::ExternalFloat:
  case DataCategory::InternalFloat:
    return true;
  default:
    return false;
  }
}

} // namespace

/// One VARYING or AFTER phrase.
bool SemanticChecker::checkPerformVarying(PerformVarying &phrase) {
  bool ok = true;
  Expression &varying = *phrase.getVaryingIdentifier();
  if (auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(&varying)) {
    if (!semanticCheck(*identifier))
      return false;
    if (isGroup(varying))
      ok = report(ErrorCode::PerformIdentifierNotElementary, &varying);
  } else {
    ok = report(ErrorCode::PerformIdentifierInvalid, &varying);
  }
  if (!isCountable(varying))
    ok = report(ErrorCode::IdentifierNotNumericFloatOrIndex, &varying);

  for (Expression *operand : {phrase.getFromIdentifier(), phrase.getByIdentifier()}) {
    ok &= semanticCheck(*operand);
    if (isGroup(*operand))
      ok = report(ErrorCode::PerformIdentifierNotElementary, operand);
    if (!isCountable(*operand))
      ok = report(ErrorCode::IdentifierNotNumericFloatOrIndex, operand);
  }
  return semanticCheck(*phrase.getUntilCondition()) && ok;
}

//===----------------------------------------------------------------------===//
// ALTER
//===----------------------------------------------------------------------===//

/// ALTER never passes, even when nothing is wrong with it. That is on purpose: a program whose
/// branches change at run time is not to go on to later stages.
bool SemanticChecker::semanticCheck(AlterStatement &statement) {
  for (AlterItem *item : statement.getAlterListElements())
    if (!resolveAlterItem(*item, statement))
      break;
  return false;
}

/// False when the rest of the statement is not to be looked at.
bool SemanticChecker::resolveAlterItem(AlterItem &item, AlterStatement &statement) {
  if (Paragraph *source = findParagraphFromQualWord(item.getSrcProcName(), &statement)) {
    if (source->getSentSize() != 1 || source->getSentElements().front()->getStmtSize() != 1)
      return report(ErrorCode::AlterTargetNotGoTo, item.getSrcProcName());
    // The message of another rule, on purpose.
    if (!llvm::isa<GotoStatement>(source->getSentElements().front()->getStmtElements().front()))
      return report(ErrorCode::AlphabetLiteralKind, item.getSrcProcName());
    item.setSrcParagraph(source);
  } else {
    report(ErrorCode::AlterTargetNotGoTo, item.getSrcProcName());
  }

  if (Section *section = findSectionFromQualWord(item.getDstProcName(), nullptr))
    item.setDstSection(section);
  else
    item.setDstParagraph(findParagraphFromQualWord(item.getDstProcName(), &statement));
  return item.getDstSection() || item.getDstParagraph();
}

//===----------------------------------------------------------------------===//
// STOP
//===----------------------------------------------------------------------===//

/// What STOP can show to the operator: a number without an exponent, alphanumeric characters, or a
/// figurative constant that is one. ALL before a figurative constant says nothing and is gone by
/// now.
static bool isStopLiteral(const LiteralExpression &literal) {
  if (const auto *number = llvm::dyn_cast<NumericLiteralExpression>(&literal))
    return number->getLiteralType() != NumericLiteralType::FloatingPoint;
  if (const auto *constant = llvm::dyn_cast<FigurativeLiteralExpression>(&literal))
    return constant->getFigurativeType() != FigurativeType::Null && !isAllLiteral(*constant);
  return literal.getDataCategory() == DataCategory::Alphanumeric;
}

bool SemanticChecker::semanticCheck(StopStatement &statement) {
  LiteralExpression *literal = statement.getLiteral();
  if (!literal)
    return true;
  if (!semanticCheck(*literal))
    return false;
  return isStopLiteral(*literal) || report(ErrorCode::StopLiteralKind, literal);
}

//===----------------------------------------------------------------------===//
// ENTRY
//===----------------------------------------------------------------------===//

void SemanticChecker::addEntryName(LiteralExpression *name) {
  if (!entryNames)
    entryNames = makeList<LiteralExpression *>();
  entryNames->push_back(name);
  state->entryTexts.insert(llvm::cast<NonNumericLiteralExpression>(name)->getData());
}

bool SemanticChecker::findEntryNames(LiteralExpression *name) {
  return state->entryTexts.contains(llvm::cast<NonNumericLiteralExpression>(name)->getData());
}

bool SemanticChecker::semanticCheck(EntryStatement &statement) {
  bool ok = true;
  SourceUnit *unit = currentUnit();
  if (unit->isNested())
    ok = report(ErrorCode::EntryInNestedProgram, &statement);
  if (unit->getProcDivision()->getReturning())
    ok = report(ErrorCode::EntryWithReturning, &statement);
  if (LiteralExpression *name = statement.getEntryLiteral()) {
    if (!semanticCheck(*name))
      return false;
    if (!llvm::isa<NonNumericLiteralExpression>(name))
      return report(ErrorCode::EntryLiteralNotAlphanumeric, name);
    if (findEntryNames(name))
      return report(ErrorCode::EntryNameNotUnique, name);
    addEntryName(name);
  }
  for (Parameter *parameter : statement.getParameterElements())
    ok &= semanticCheck(parameter);
  return ok;
}

/// An item in a wrong section and of a wrong level is reported for each, on purpose.
bool SemanticChecker::semanticCheck(Parameter *parameter) {
  auto *item = llvm::dyn_cast_or_null<DataIdentifierExpression>(parameter->getExpr());
  if (!item)
    return report(ErrorCode::UsingItemNotLinkageRecord, parameter);
  if (!semanticCheck(*item))
    return false;
  bool ok = true;
  const DataDescription *entry = item->getDataDescription();
  if (entry->getLevelNum() != 1 && entry->getLevelNum() != 77)
    ok = report(ErrorCode::UsingItemNotLinkageRecord, parameter);
  if (entry->getStorageType() != StorageType::Linkage)
    ok = report(ErrorCode::UsingItemNotLinkageRecord, parameter);
  return ok;
}

} // namespace tarka
