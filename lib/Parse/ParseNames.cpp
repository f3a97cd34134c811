//===- ParseNames.cpp - what the program declares -----------------------===//

#include "Parse/ParserBase.h"

namespace tarka {

/// Whether \p declares holds for the unit or one of the units around it.
template <typename Predicate> static bool inScope(const SourceUnit *unit, Predicate declares) {
  for (; unit; unit = unit->getParent())
    if (declares(*unit))
      return true;
  return false;
}

/// Whether \p declares holds for SPECIAL-NAMES of the unit or of one of the units around it, and
/// the word \p name. This is asked for about every operand, mostly of programs without the
/// paragraph.
template <typename Predicate>
static bool inSpecialNames(const SourceUnit *unit, const std::string &name, Predicate declares) {
  return inScope(unit, [&](const SourceUnit &one) -> bool {
    ParaSpecialNames *names = one.getSpecialNames();
    if (!names)
      return false;
    Word word(SourceRange(), &name, &name);
    return declares(*names, word);
  });
}

bool ParserBase::isConditionName(const std::string &name) const {
  return inScope(context.unit, [&](const SourceUnit &one) {
    DataDivision *data = one.getDataDivision();
    std::list<DataDescription *> *entries = data ? data->findItemByInternedName(&name) : nullptr;
    if (!entries)
      return false;
    for (DataDescription *entry : *entries)
      if (entry->getLevelNum() == 88)
        return true;
    return false;
  });
}

bool ParserBase::isSwitchName(const std::string &name) const {
  return inSpecialNames(context.unit, name, [](const ParaSpecialNames &names, Word &word) {
    return !names.findClauseEnvNameByCondName(&word).empty();
  });
}

bool ParserBase::isClassName(const std::string &name) const {
  return inSpecialNames(context.unit, name, [](const ParaSpecialNames &names, Word &word) {
    return names.findClauseClassByWord(&word);
  });
}

bool ParserBase::isSymbolicCharacter(const std::string &name) const {
  return inSpecialNames(context.unit, name, [](const ParaSpecialNames &names, Word &word) {
    return names.findClauseSymbolicByWord(&word);
  });
}

bool ParserBase::isMnemonicName(const std::string &name) const {
  return inSpecialNames(context.unit, name, [](const ParaSpecialNames &names, Word &word) {
    return names.findClauseEnvNameByWord(&word);
  });
}

bool ParserBase::isFileName(const std::string &name) const {
  Word word(SourceRange(), &name, &name);
  return inScope(context.unit, [&](const SourceUnit &one) {
    InputOutputSection *io = one.getInputOutputSection();
    if (io && io->findFileControlByName(word))
      return true;
    DataDivision *data = one.getDataDivision();
    return data && !data->findFiles(name).empty();
  });
}

bool ParserBase::isNamed(const Token &word) {
  const std::string &name = *word.getInternedText();
  return isItemName(name) || context.indexNames.contains(&name) || isFileName(name) ||
         isMnemonicName(name) || isSwitchName(name) || isSymbolicCharacter(name) ||
         isReportName(name);
}

bool ParserBase::isReportName(const std::string &name) const {
  return inScope(context.unit, [&](const SourceUnit &one) {
    DataDivision *data = one.getDataDivision();
    return data && llvm::any_of(data->getReportSectionElements(), [&](ReportDescription *report) {
             return report->getReportName()->getWordData() == name;
           });
  });
}

/// Whether the unit can see an item \p name: it declares it, or a program around it shares it.
bool ParserBase::isItemName(const std::string &word) const {
  for (SourceUnit *one = context.unit; one; one = one->getParent()) {
    DataDivision *data = one->getDataDivision();
    std::list<DataDescription *> *entries = data ? data->findItemByInternedName(&word) : nullptr;
    if (!entries)
      continue;
    if (one == context.unit)
      return true;
    for (DataDescription *entry : *entries) {
      while (entry->getParent())
        entry = entry->getParent();
      if (entry->getGlobal())
        return true;
    }
  }
  return false;
}

} // namespace tarka
