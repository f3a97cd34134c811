//===- SCDataRedefines.cpp - REDEFINES ----------------------------------===//
//
// Which entry a REDEFINES refers to, and what the two must not have.
//
//===----------------------------------------------------------------------===//

#include "AST/Expression.h"
#include "AST/Program.h"
#include "Analyzer/CheckerState.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include <iterator>
#include <optional>

namespace tarka {

//===----------------------------------------------------------------------===//
// The object
//===----------------------------------------------------------------------===//

std::optional<RedefinableEntries::Preceding>
RedefinableEntries::find(const Word &name, const DataDescription &subject,
                         const std::list<DataDescription *> &list) {
  std::unique_ptr<Position> &position = positions[&list];
  for (bool isFromStart : {false, true}) {
    if (!position || isFromStart)
      position = std::make_unique<Position>(list);
    for (auto &next = position->next; next != list.end(); ++next) {
      if (*next == &subject) {
        if (next == list.begin())
          return std::nullopt;
        return Preceding{*std::prev(next), position->byName.lookup(&name.getWordData())};
      }
      // An entry without a name ends every search.
      if (const Word *entryName = (*next)->getDataName())
        position->byName[&entryName->getWordData()] = *next;
      else
        position->byName.clear();
    }
  }
  return std::nullopt;
}

namespace {

/// The list in which \p entry and what it can redefine stand; null when there is none.
const std::list<DataDescription *> *listOf(const DataDescription &entry) {
  if (const DataDescription *group = entry.getParent())
    return &group->getChildrenElements();
  DataDivision *division = currentDivision();
  switch (entry.getStorageType()) {
  case StorageType::File:
    return entry.getFileDescription() ? &entry.getFileDescription()->getRecordDescElements()
                                      : nullptr;
  case StorageType::WorkingStorage:
    return division ? division->getWorkSection() : nullptr;
  case StorageType::LocalStorage:
    return division ? &division->getLocalSectionElements() : nullptr;
  case StorageType::Linkage:
    return division ? &division->getLinkSectionElements() : nullptr;
  default:
    return nullptr;
  }
}

/// True when nothing stands between \p object and \p last, the entry directly before the subject,
/// but what redefines the same storage.
bool isReachable(const DataDescription &object, const DataDescription &last) {
  if (&object == &last)
    return true;
  if (!last.getRedefines())
    return false;
  if (last.getRedefineObject() == &object)
    return true;
  return object.getRedefines() && last.getRedefineObject() == object.getRedefineObject();
}

/// The entry called \p name that \p subject redefines: the nearest one before it, with nothing in
/// between but what redefines the same storage. Null, with a diagnostic, when there is none.
DataDescription *findRedefinedEntry(SemanticChecker &checker, DataDescription &subject,
                                    const Word &name) {
  const std::list<DataDescription *> *list = listOf(subject);
  std::optional<RedefinableEntries::Preceding> preceding;
  if (list)
    preceding = checker.getState().redefinable.find(name, subject, *list);
  if (!preceding) {
    checker.report(ErrorCode::RedefinesTargetMissing, &subject, name);
    return nullptr;
  }
  DataDescription *object = preceding->namesake;
  if (!object || !isReachable(*object, *preceding->last)) {
    checker.report(ErrorCode::RedefinesWrongFieldOrHierarchy, &subject, name);
    return nullptr;
  }
  // The subject is linked to the entry that owns the storage. If that could not be found, it has
  // been reported at the object.
  return object->getRedefines() ? object->getRedefineObject() : object;
}

//===----------------------------------------------------------------------===//
// The rules
//===----------------------------------------------------------------------===//

/// A subject may be larger than its object, unless the object is EXTERNAL.
bool checkRedefinition(SemanticChecker &checker, DataDescription &subject,
                       const DataDescription &object) {
  bool ok = true;
  if (object.getLevelNum() == 66 || object.getLevelNum() == 88)
    ok = checker.report(ErrorCode::RedefinesLevel66Or88, &subject);
  if ((subject.getOccurs() && subject.getOccurs()->isVariableTable()) || object.getOccurs())
    ok = checker.report(ErrorCode::RedefinesObjectOccurs, &subject);
  if (subject.getExternal())
    ok = checker.report(ErrorCode::RedefinesSubjectExternal, &subject);
  if (object.getGlobal() && !followsEnterprise(EnterpriseRule::RedefinesGlobal))
    ok = checker.report(ErrorCode::RedefinesObjectGlobal, &subject);
  if (object.getExternal() && subject.getAllocSize() > object.getAllocSize())
    ok = checker.report(ErrorCode::RedefinesExternalObjectSmaller, &subject);
  return ok;
}

} // namespace

/// The spelling of the name is part of the interface.
bool SemanticChecker::checkClauseRedifines(DataDescription &entry) {
  if (entry.getLevelNum() == 66 || entry.getLevelNum() == 88)
    return report(ErrorCode::RedefinesWrongFieldOrHierarchy, &entry);

  bool ok = true;
  auto *named =
      llvm::dyn_cast_if_present<DataIdentifierExpression>(entry.getRedefines()->getData());
  if (named && named->getQualifiedWord() && named->getQualifiedWord()->getNamesSize() != 0) {
    // Qualifiers have no effect here: the object stands beside the subject.
    const Word *word = *named->getQualifiedWord()->getNamesBegin();
    DataDescription *object = findRedefinedEntry(*this, entry, *word);
    if (!object)
      return false;
    entry.setRedefineObject(object);
    object->addRedefineSubject(&entry);
    ok = checkRedefinition(*this, entry, *object);
  } else {
    ok = report(ErrorCode::RedefinesTargetMissing, &entry);
  }

  // With INIT the whole storage is initialised, and the subject is the longer part of it.
  if (CompileOption::getCompileOptionInstance()->isOptionInit())
    if (DataDescription *object = entry.getRedefineObject())
      if (entry.getAllocSize() > object->getAllocSize())
        object->getRootDesc()->setHaveValue(true);
  return ok;
}

} // namespace tarka
