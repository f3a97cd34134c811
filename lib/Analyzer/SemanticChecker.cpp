//===- SemanticChecker.cpp - the walk over a program ----------------------===//
//
// Programs, source units and data divisions, in the order in which the checks see
// them. Procedure divisions continue in SCProcedureDivision.cpp.
//
//===----------------------------------------------------------------------===//

#include "Analyzer/SemanticChecker.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/PartCheck.h"
#include <cassert>

namespace tarka {

//===----------------------------------------------------------------------===//
// State of the walk
//===----------------------------------------------------------------------===//

SemanticChecker::SemanticChecker(ErrorHandler *handler)
    : errorHandler(handler), state(std::make_unique<State>()) {}

SemanticChecker::~SemanticChecker() = default;

Section *SemanticChecker::getOuterSection() const {
  return state->outerSection;
}
void SemanticChecker::setOuterSection(Section *section) {
  state->outerSection = section;
}

bool SemanticChecker::getIsDeclaratives() const {
  return state->isDeclaratives;
}
void SemanticChecker::setIsDeclaratives(bool on) {
  state->isDeclaratives = on;
}

bool SemanticChecker::getInDeclaratives() const {
  return state->inDeclaratives;
}
void SemanticChecker::setInDeclaratives(bool on) {
  state->inDeclaratives = on;
}

ReportDescription *SemanticChecker::getCurrentRD() const {
  return state->currentReport;
}
void SemanticChecker::setCurrentRD(ReportDescription *report) {
  state->currentReport = report;
}
bool SemanticChecker::checkCurrentRD(const ReportDescription *report) const {
  return !state->currentReport || state->currentReport == report;
}

void SemanticChecker::addUsedSrc(ReportDataDescription *item) {
  state->usedSources.push_back(item);
}

NodeList<ReportDataDescription>::iterator SemanticChecker::getUsedSrcListBegin() {
  if (state->usedSources.empty())
    assert(0 && "NULL Reference");
  return state->usedSources.begin();
}

NodeList<ReportDataDescription>::iterator SemanticChecker::getUsedSrcListEnd() {
  if (state->usedSources.empty())
    assert(0 && "NULL Reference");
  return state->usedSources.end();
}

std::size_t SemanticChecker::getUsedSrcListSize() const {
  return state->usedSources.size();
}

void SemanticChecker::addIndexFreeList(DataDescription *entry) {
  state->boundIndexes.push_back(entry);
}

void SemanticChecker::freeIndex() {
  for (DataDescription *entry : state->boundIndexes)
    entry->setParent(nullptr);
}

//===----------------------------------------------------------------------===//
// Programs
//===----------------------------------------------------------------------===//

namespace {

/// With --check-file-id, PROGRAM-ID must be the name of the input up to its last point, in the same
/// case.
bool isFileNameOfProgram(SemanticChecker &checker, SourceUnit &unit) {
  if (!CompileOption::getCompileOptionInstance()->isCheckFileID())
    return true;
  llvm::StringRef fileName = context().getID();
  if (unit.getSourceUnitName() == fileName.substr(0, fileName.rfind('.')))
    return true;
  return checker.report(ErrorCode::ProgramIdNotFileName, unit.getIDDivision()->getProgramIDPara());
}

/// A COMMON program is callable from its siblings and from all that is nested in them.
void makeCallable(SourceUnit &unit) {
  if (unit.getParent() &&
      unit.getIDDivision()->getProgramIDPara()->getType() == ProgramIdType::Common)
    unit.getParent()->addCommonNested(unit);
}

/// XML-TEXT grows to the largest item that an XML PARSE of the source unit reads.
void sizeXmlText(XmlTextRegister &xmlText) {
  if (xmlText.entry && xmlText.size != 1)
    xmlText.entry->setPicture(generate<ClausePicture>(
        nullptr, generate<Word>(nullptr, "X(" + std::to_string(xmlText.size) + ")", "")));
  xmlText = {};
}

} // namespace

bool SemanticChecker::semanticCheck(Program &program) {
  context().setCurrentProgram(&program);
  if (program.getSourceUnitListSize() == 0)
    return true;
  bool ok = true;
  context().setIsDecimalPointComma(false);
  for (SourceUnit *unit : program.getSourceUnitListElements()) {
    context().setCurrentSourceUnit(unit);
    setIsDeclaratives(false);
    if (followsEnterprise(EnterpriseRule::EntryNameOfProgram))
      state->entryTexts.clear();
    ok &= PartCheck(*this, CheckedPart::Program, *unit).done(semanticCheck(*unit));
  }
  context().setCurrentProgram(nullptr);
  freeIndex();
  return ok;
}

bool SemanticChecker::semanticCheck(SourceUnit &unit) {
  // DECIMAL-POINT IS COMMA holds in the program that contains it and in those nested in it.
  const DecimalPointScope decimalPoint;
  setOuterSection(nullptr);
  // A program may always call the programs that are directly nested in it.
  if (unit.isNested())
    unit.getParent()->addCallableList(unit.getSourceUnitName());
  // A program that is not named after its file is not checked.
  if (!isFileNameOfProgram(*this, unit))
    return false;
  makeCallable(unit);

  bool ok = true;
  if (EnvironmentDivision *environment = unit.getEnvironmentDivision())
    ok &= semanticCheck(*environment);
  if (DataDivision *data = unit.getDataDivision()) {
    ok &= semanticCheck(*data);
  } else if (!unit.isNested()) {
    // The registers exist even in a program without data of its own.
    DataDivision *registers = generate<DataDivision>(nullptr);
    registers->setWorkSection(makeList<DataDescription *>());
    createSpecialRegister(registers->getWorkSection());
    unit.setDataDivision(registers);
  }
  for (ExecStatement *block : unit.getDataBlockElements())
    semanticCheck(*block);
  if (ProcedureDivision *procedure = unit.getProcDivision())
    ok &= semanticCheck(*procedure);
  sizeXmlText(state->xmlText);

  for (SourceUnit *nested : unit.getNestedListElements()) {
    setIsDeclaratives(false);
    const UnitScope current(nested);
    ok &= PartCheck(*this, CheckedPart::Program, *nested).done(semanticCheck(*nested));
  }
  return ok;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is part of the interface.
bool SemanticChecker::setCallableSource(SourceUnit &unit, std::string name) {
  unit.addCallableList(name);
  for (SourceUnit *nested : unit.getNestedListElements())
    setCallableSource(*nested, name);
  return true;
}

//===----------------------------------------------------------------------===//
// Data division
//===----------------------------------------------------------------------===//

namespace {

/// Makes the entries of working-storage the current section as long as they are checked.
class WorkingStorageScope {
public:
  explicit WorkingStorageScope(DataDivision &division) {
    context().setCurrentDescSection(division.getWorkSection());
    context().setCurrentFlatSection(division.getWorkFlatList());
  }
  ~WorkingStorageScope() {
    context().setCurrentDescSection(nullptr);
    context().setCurrentFlatSection(nullptr);
  }
  WorkingStorageScope(const WorkingStorageScope &) = delete;
  WorkingStorageScope &operator=(const WorkingStorageScope &) = delete;
};

} // namespace

bool SemanticChecker::semanticCheck(DataDivision &division) {
  bool ok = true;
  // Nested programs reach the registers of the outermost one, which are GLOBAL.
  if (division.getWorkSectionSize() != 0) {
    if (!currentUnit()->isNested())
      createSpecialRegister(division.getWorkSection());
    const WorkingStorageScope section(division);
    // The checks append index names to the list, which are then checked as well.
    for (DataDescription *entry : *division.getWorkSection())
      ok &= semanticCheck(*entry);
  } else if (!currentUnit()->isNested()) {
    std::list<DataDescription *> *registers = makeList<DataDescription *>();
    createSpecialRegister(registers);
    division.setWorkSection(registers);
  }
  for (DataDescription *entry : division.getLocalSectionElements())
    ok &= semanticCheck(*entry);
  for (DataDescription *entry : division.getLinkSectionElements())
    ok &= semanticCheck(*entry);
  for (FileDescription *file : division.getFileSectionElements())
    ok &= PartCheck(*this, CheckedPart::Entry, *file).done(semanticCheck(*file));
  for (ReportDescription *description : division.getReportSectionElements())
    ok &= PartCheck(*this, CheckedPart::Entry, *description).done(semanticCheck(*description));
  return ok;
}

} // namespace tarka
