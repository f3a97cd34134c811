//===- SemanticChecker.cpp - the walk over a program ----------------------===//
//
// Programs, source units, divisions, declaratives, sections, paragraphs and
// sentences, in the order in which the checks see them.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/SemanticChecker.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include <cassert>
#include <cstdlib>

namespace tarka {

namespace {

bool isCurrentUnitNested() {
  return currentUnit()->isNested();
}

} // namespace

//===----------------------------------------------------------------------===//
// State of the walk
//===----------------------------------------------------------------------===//

SemanticChecker::SemanticChecker(ErrorHandler *handler)
    : errorHandler(handler), state(std::make_unique<State>()) {}

SemanticChecker::~SemanticChecker() = default;

void SemanticChecker::addUsedSrc(ReportDataDescription *item) {
  if (!usedSrcList)
    usedSrcList = makeList<ReportDataDescription *>();
  usedSrcList->push_back(item);
}

std::list<ReportDataDescription *>::iterator SemanticChecker::getUsedSrcListBegin() {
  if (!usedSrcList)
    assert(0 && "NULL Reference");
  return usedSrcList->begin();
}

std::list<ReportDataDescription *>::iterator SemanticChecker::getUsedSrcListEnd() {
  if (!usedSrcList)
    assert(0 && "NULL Reference");
  return usedSrcList->end();
}

void SemanticChecker::addIndexFreeList(DataDescription *entry) {
  if (!indexFreeList)
    indexFreeList = makeList<DataDescription *>();
  indexFreeList->push_back(entry);
}

void SemanticChecker::freeIndex() {
  for (DataDescription *entry : listOrEmpty(indexFreeList))
    entry->setParent(nullptr);
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(Program &program) {
  context().setCurrentProgram(&program);
  if (program.getSourceUnitListSize() == 0)
    return true;
  bool ok = true;
  for (SourceUnit *unit : program.getSourceUnitListElements()) {
    context().setCurrentSourceUnit(unit);
    setIsDeclaratives(false);
    // DECIMAL-POINT IS COMMA holds for the program that says so and for those nested in it.
    context().setIsDecimalPointComma(false);
    ok &= semanticCheck(*unit);
  }
  context().setCurrentProgram(nullptr);
  freeIndex();
  return ok;
}

bool SemanticChecker::semanticCheck(SourceUnit &unit) {
  SourceUnit *current = currentUnit();
  setOuterSection(nullptr);
  // A program may always call the programs that are directly nested in it.
  if (unit.isNested())
    unit.getParent()->addCallableList(unit.getSourceUnitName());
  // Under another name than its file's nothing of the program is looked at.
  if (!isFileNameOfProgram(unit))
    return false;
  makeCallable(unit);

  bool ok = true;
  if (EnvironmentDivision *environment = unit.getEnvironmentDivision())
    ok &= semanticCheck(*environment);
  if (DataDivision *data = unit.getDataDivision()) {
    ok &= semanticCheck(*data);
  } else if (!unit.isNested()) {
    // The registers are there even in a program without data of its own.
    DataDivision *registers = new DataDivision(nullptr);
    registers->setWorkSection(makeList<DataDescription *>());
    createSpecialRegister(registers->getWorkSection());
    unit.setDataDivision(registers);
  }
  if (ProcedureDivision *procedure = unit.getProcDivision())
    ok &= semanticCheck(*procedure);
  sizeXmlText();

  for (SourceUnit *nested : unit.getNestedListElements()) {
    setIsDeclaratives(false);
    context().setCurrentSourceUnit(nested);
    ok &= semanticCheck(*nested);
  }
  context().setCurrentSourceUnit(current);
  return ok;
}

/// With the option that asks for it, PROGRAM-ID must be the name of the input without what follows
/// its last point, in the same case.
bool SemanticChecker::isFileNameOfProgram(SourceUnit &unit) {
  if (!CompileOption::getCompileOptionInstance()->isCheckFileID())
    return true;
  llvm::StringRef fileName = context().getID();
  if (unit.getSourceUnitName() == fileName.substr(0, fileName.rfind('.')))
    return true;
  return report(ErrorCode::ProgramIdNotFileName, unit.getIDDivision()->getProgramIDPara());
}

/// A COMMON program is callable from its siblings and from all that is nested in them.
void SemanticChecker::makeCallable(SourceUnit &unit) {
  if (unit.getIDDivision()->getProgramIDPara()->getType() != ProgramIdType::Common ||
      !unit.getParent())
    return;
  for (SourceUnit *sibling : unit.getParent()->getNestedListElements())
    if (sibling != &unit)
      setCallableSource(*sibling, unit.getSourceUnitName());
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is part of the interface.
bool SemanticChecker::setCallableSource(SourceUnit &unit, std::string name) {
  unit.addCallableList(name);
  for (SourceUnit *nested : unit.getNestedListElements())
    setCallableSource(*nested, name);
  return true;
}

/// XML-TEXT grows to the largest item that an XML PARSE of the source unit reads.
void SemanticChecker::sizeXmlText() {
  if (xmlTextSize != 1 && xmlTextRegister) {
    Word *picture = new Word(nullptr, "X(" + std::to_string(xmlTextSize) + ")", "");
    xmlTextRegister->setPicture(new ClausePicture(nullptr, picture));
  }
  xmlTextSize = 1;
  xmlTextRegister = nullptr;
}

//===----------------------------------------------------------------------===//
// Data division
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(DataDivision &division) {
  bool ok = true;
  // Nested programs reach the registers of the outermost one, which are GLOBAL.
  if (division.getWorkSectionSize() != 0) {
    if (!isCurrentUnitNested())
      createSpecialRegister(division.getWorkSection());
    context().setCurrentDescSection(division.getWorkSection());
    context().setCurrentFlatSection(division.getWorkFlatList());
    // The checks append index names to the list, which are then checked as well.
    for (DataDescription *entry : *division.getWorkSection())
      ok &= semanticCheck(*entry);
    context().setCurrentDescSection(nullptr);
    context().setCurrentFlatSection(nullptr);
  } else if (!isCurrentUnitNested()) {
    std::list<DataDescription *> *registers = makeList<DataDescription *>();
    createSpecialRegister(registers);
    division.setWorkSection(registers);
  }
  for (DataDescription *entry : division.getLocalSectionElements())
    ok &= semanticCheck(*entry);
  for (DataDescription *entry : division.getLinkSectionElements())
    ok &= semanticCheck(*entry);
  for (FileDescription *file : division.getFileSectionElements())
    ok &= semanticCheck(*file);
  for (ReportDescription *description : division.getReportSectionElements())
    ok &= semanticCheck(*description);
  return ok;
}

//===----------------------------------------------------------------------===//
// Procedure division
//===----------------------------------------------------------------------===//

namespace {

/// An item of USING or RETURNING must stand in the linkage section or be of level 01 or 77. The
/// message asks for both; that one of the two will do is on purpose.
bool isUsableAsParameter(const DataDescription &entry) {
  return entry.getStorageType() == StorageType::Linkage || entry.getLevelNum() == 1 ||
         entry.getLevelNum() == 77;
}

/// What fits into the place of an argument that is passed by value: an elementary item in binary or
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

/// Enters a declarative into the lists of the division by its kind. Without a USE it belongs to
/// those before it, of whichever kind there were any.
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

} // namespace

bool SemanticChecker::semanticCheck(ProcedureDivision &division) {
  bool ok = true;
  for (Parameter *parameter : division.getParameterElements()) {
    Expression *item = parameter->getExpr();
    bool isUsable = checkUsingItem(item);
    if (isUsable && parameter->getType() == ParameterType::Value &&
        !isPassedByValue(*llvm::cast<DataIdentifierExpression>(item)->getDataDescription()))
      isUsable = report(ErrorCode::UsingByValueParameter, item);
    ok &= isUsable;
  }
  if (Returning *returning = division.getReturning()) {
    if (isCurrentUnitNested())
      ok = report(ErrorCode::ReturningInNestedProgram, returning);
    ok &= semanticCheck(*returning);
  }

  // Checking a declarative may append copies of other sections, which are then checked as well.
  bool haveBase = false;
  bool haveReport = false;
  for (Declaratives *declarative : division.getDeclElements()) {
    sortDeclarative(division, *declarative, haveBase, haveReport);
    ok &= semanticCheck(*declarative);
  }

  ok &= checkSentences(division.getSentElements(), nullptr);
  for (Paragraph *paragraph : division.getParaElements())
    ok &= semanticCheck(*paragraph, nullptr);
  for (Section *section : division.getSectElements()) {
    setOuterSection(section);
    ok &= semanticCheck(*section);
  }
  return ok;
}

bool SemanticChecker::checkUsingItem(Expression *item) {
  auto *identifier = llvm::dyn_cast<DataIdentifierExpression>(item);
  if (!identifier)
    return report(ErrorCode::UsingItemNotLinkageRecord, item);
  if (!semanticCheck(*identifier))
    return false;
  if (!isUsableAsParameter(*identifier->getDataDescription()))
    return report(ErrorCode::UsingItemNotLinkageRecord, item);
  return true;
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
  // The second check is on purpose: what is wrong with the item itself is reported twice.
  ok &= semanticCheck(*item);
  return ok;
}

//===----------------------------------------------------------------------===//
// Declaratives
//===----------------------------------------------------------------------===//

bool SemanticChecker::semanticCheck(Declaratives &declarative) {
  bool ok = true;
  if (UseStatement *use = declarative.getUseStmt()) {
    setIsDeclaratives(true);
    ok &= semanticCheck(*use);
  }
  if (Section *section = declarative.getSection()) {
    setOuterSection(section);
    setInDeclaratives(true);
    ok &= semanticCheck(*section);
    // Control returns from a declarative as from a performed section.
    section->setIsPerformThru(true);
    setInDeclaratives(false);
  }
  setOuterSection(nullptr);
  setCurrentRD(nullptr);
  return ok;
}

bool SemanticChecker::semanticCheck(UseStatement &use) {
  bool ok = true;
  if (use.getTimingType() == UseTimingType::BeforeReporting) {
    setIsDeclaratives(false);
    if (!checkUseReporting(use))
      return false;
  } else if (use.getFileListSize() != 0) {
    if (use.getTimingType() == UseTimingType::ForDebugging)
      ok = report(ErrorCode::UseDebuggingWithFileName, &use);
    for (IdentifierExpression *name : use.getFileListElements())
      ok &= checkUseFile(*name);
  }
  if (use.getProcedureListSize() != 0)
    ok &= checkUseProcedures(use);
  return ok;
}

bool SemanticChecker::checkUseFile(IdentifierExpression &name) {
  if (!semanticCheck(name))
    return false;
  const auto *fileName = llvm::dyn_cast<FileIdentifierExpression>(&name);
  if (!fileName)
    return true;
  bool ok = true;
  const FileDescription *file = fileName->getFileDescription();
  if (file->getType() == FileDescType::SortMerge)
    ok = report(ErrorCode::UseSortMergeFile, &name);
  if (const ClauseLabel *label = file->getLabel(); label && label->getType() == LabelType::Omitted)
    ok = report(ErrorCode::UseLabelOmittedFile, &name);
  return ok;
}

/// The groups of USE BEFORE REPORTING. The declaratives of a report are numbered from 1 in the
/// order of the source.
bool SemanticChecker::checkUseReporting(UseStatement &use) {
  if (use.getReportListSize() == 0)
    return false;
  for (IdentifierExpression *name : use.getReportListElements()) {
    if (!semanticCheck(*name))
      return false;
    auto *group = llvm::dyn_cast_or_null<ReportDataDescription>(name->getDataDescription());
    if (!group)
      return report(ErrorCode::StatementInvalid, name);
    ReportDescription *description = group->getReportDescription();
    setCurrentRD(description);
    int index = description->getDeclIndexCnt() + 1;
    group->setDeclIndex(index);
    description->setDeclIndexCnt(index);
  }
  return true;
}

/// The procedures of USE FOR DEBUGGING: sections first, then paragraphs.
bool SemanticChecker::checkUseProcedures(UseStatement &use) {
  bool ok = true;
  auto *procedures = makeList<UseProcedure *>();
  for (Word *word : use.getProcedureListElements()) {
    auto *name = new QualifiedWord(word);
    name->addNames(word);
    Section *section = findSectionFromQualWord(name, nullptr);
    Paragraph *paragraph = section ? nullptr : findParagraphFromQualWord(name, nullptr);
    if (!section && !paragraph) {
      ok = false;
      continue;
    }
    auto *procedure = new UseProcedure(word);
    procedure->setSection(section);
    procedure->setParagraph(paragraph);
    procedures->push_back(procedure);
  }
  use.setUseProcedureList(procedures);
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
  ok &= checkSentences(section.getSentElements(), &section);
  for (Paragraph *paragraph : section.getParaElements())
    ok &= semanticCheck(*paragraph, &section);
  return ok;
}

bool SemanticChecker::semanticCheck(Paragraph &paragraph, Section *section) {
  return checkSentences(paragraph.getSentElements(), section);
}

/// A sentence that is missing passes.
bool SemanticChecker::checkSentences(const std::list<Sentence *> &sentences, Section *section) {
  bool ok = true;
  for (Sentence *sentence : sentences)
    if (sentence)
      ok &= semanticCheck(*sentence, section);
  return ok;
}

bool SemanticChecker::semanticCheck(Sentence &sentence, Section *) {
  bool ok = true;
  for (Statement *statement : sentence.getStmtElements())
    ok &= semanticCheck(*statement);
  return ok;
}

} // namespace tarka
