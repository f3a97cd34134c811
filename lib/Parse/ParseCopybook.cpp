//===- ParseCopybook.cpp - a copybook that is read by itself --------------===//

#include "Parse/ParseCopybook.h"
#include "AST/DataTree.h"
#include "Parse/ParseEnvironment.h"
#include "Parse/ParseFile.h"
#include "Parse/ParseFileControl.h"
#include "Parse/ParseProcedure.h"
#include "Parse/ParseReport.h"
#include "llvm/Support/Path.h"

namespace tarka {

SourceUnit *CopybookParser::parse(llvm::StringRef name) {
  const SourceRange begin = here();
  llvm::StringRef stem = llvm::sys::path::stem(name);
  auto *programId =
      makeAt<ProgramIdParagraph>(begin, makeAt<Word>(begin, stem, stem), ProgramIdType::None);
  auto *unit = makeAt<SourceUnit>(begin, makeAt<IdentificationDivision>(begin, programId), nullptr);
  context.unit = unit;
  context.isCopybook = true;
  const bool declaresData = at(TokenKind::IntegerLiteral);
  parseEntries(*unit);
  context.isCopybook = false;
  context.unit = nullptr;
  // Condition-names without their item, and items to rename, have nothing to be checked against.
  DataDivision *division = unit->getDataDivision();
  if (!declaresData || unit->getProcDivision() || !division || !division->getWorkSection() ||
      division->getWorkSection()->empty())
    return nullptr;
  supplyOuterNames(*division);
  return complete(unit);
}

/// The copybook may begin in the middle of any division, and go on with the next one.
void CopybookParser::parseEntries(SourceUnit &unit) {
  for (Progress progress(stream); !at(TokenKind::EndOfFile) && !context.diagnostics.hasFatalError();
       progress.ensure()) {
    if (accept(TokenKind::Period))
      continue;
    if (at(TokenKind::IntegerLiteral) || at(Keyword::Fd, Keyword::Sd, Keyword::Rd)) {
      if (!unit.getDataDivision())
        unit.setDataDivision(makeAt<DataDivision>(here()));
      DataDivision &division = *unit.getDataDivision();
      if (at(Keyword::Fd, Keyword::Sd))
        FileSectionParser(context).parseFileSection(division);
      else if (at(Keyword::Rd))
        ReportParser(context).parseReportSection(division);
      else
        DataParser(context).parseDataRecords(
            StorageType::WorkingStorage,
            [&](DataDescription *record) { division.addWorkSection(record); });
    } else if (at(Keyword::Select)) {
      FileControlParser(context).parseFileEntries(*makeAt<InputOutputSection>(here()));
    } else if (atDivision(Keyword::Environment)) {
      EnvironmentParser(context).parseEnvironmentDivision();
    } else if (atDivision(Keyword::Data) || atDataSection()) {
      DataParser(context).parseDataDivision();
    } else if (atDivision(Keyword::Procedure)) {
      unit.setProcDivision(ProcedureParser(context).parseProcedureDivision());
    } else {
      unit.setProcDivision(makeAt<ProcedureDivision>(here()));
      ProcedureParser(context).parseProcedures(*unit.getProcDivision());
    }
  }
}

/// The name itself, interned, without its qualifiers.
static const std::string *nameOf(const DataIdentifierExpression &reference) {
  return &reference.getQualifiedWord()->getNamesElements().front()->getWordData();
}

/// What the entries name outside of the copybook is declared by the program: objects of OCCURS
/// DEPENDING ON are supplied, and a REDEFINES of another copybook's item has no effect here.
void CopybookParser::supplyOuterNames(DataDivision &division) {
  llvm::SmallVector<const DataIdentifierExpression *, 4> objects;
  llvm::DenseSet<const std::string *> declared;
  for (DataDescription *record : *division.getWorkSection())
    forEachEntry(record, [&](DataDescription *entry) {
      if (const ClauseRedefines *redefines = entry->getRedefines()) {
        auto *object = llvm::dyn_cast_or_null<DataIdentifierExpression>(redefines->getData());
        if (object && !declared.contains(nameOf(*object)))
          entry->setRedefines(nullptr);
      }
      if (const ClauseOccurs *occurs = entry->getOccurs())
        if (auto *object = llvm::dyn_cast_or_null<DataIdentifierExpression>(occurs->getOdoName()))
          objects.push_back(object);
      if (const Word *name = entry->getDataName())
        declared.insert(&name->getWordData());
    });
  for (const DataIdentifierExpression *object : objects) {
    const std::string *name = nameOf(*object);
    const SourceRange &place = object->getRange();
    if (!declared.insert(name).second)
      continue;
    auto *entry = makeAt<DataDescription>(place);
    entry->setLevelNum(77);
    entry->setDataName(makeAt<Word>(place, *name, *name));
    entry->setPicture(makeAt<ClausePicture>(place, makeAt<Word>(place, "9(9)", "9(9)")));
    entry->setStorageType(StorageType::WorkingStorage);
    division.addWorkSection(entry);
  }
}

} // namespace tarka
