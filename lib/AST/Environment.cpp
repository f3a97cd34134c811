//===- Environment.cpp - look-ups of the environment division -------------===//

#include "AST/Environment.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

namespace {

/// Texts of words are interned, so equal texts have equal addresses.
bool sameText(const Word *a, const Word *b) {
  return a && b && &a->getWordData() == &b->getWordData();
}

} // namespace

EnvNameType ClauseEnvName::getEnvNameType() const {
  llvm::StringRef name = environmentName->getWordData();
  if (name.starts_with_insensitive("UPSI-"))
    return EnvNameType::Switch;
  auto isOneOf = [&](llvm::ArrayRef<llvm::StringLiteral> names) {
    return llvm::any_of(names, [&](llvm::StringRef one) { return name.equals_insensitive(one); });
  };
  if (isOneOf({"SYSIN", "SYSIPT", "SYSOUT", "SYSLIST", "SYSLST", "SYSPUNCH", "SYSPCH", "CONSOLE"}))
    return EnvNameType::Device;
  if (isOneOf({"C01", "C02", "C03", "C04", "C05", "C06", "C07", "C08", "C09", "C10", "C11", "C12",
               "CSP", "S01", "S02", "S03", "S04", "S05", "AFP-5A"}))
    return EnvNameType::Carriage;
  return EnvNameType::Unknown;
}

ClauseAlphabet *ParaSpecialNames::findClauseAlphabetByWord(const Word *name) const {
  for (ClauseAlphabet *clause : alphabets)
    if (sameText(clause->getAlphabetName(), name))
      return clause;
  return nullptr;
}

ClauseClass *ParaSpecialNames::findClauseClassByWord(const Word *name) const {
  for (ClauseClass *clause : classes)
    if (sameText(clause->getClassName(), name))
      return clause;
  return nullptr;
}

ClauseEnvName *ParaSpecialNames::findClauseEnvNameByWord(const Word *mnemonicName) const {
  for (ClauseEnvName *clause : envNames)
    if (sameText(clause->getMnemonicName(), mnemonicName))
      return clause;
  return nullptr;
}

std::list<ClauseEnvName *>
ParaSpecialNames::findClauseEnvNameByCondName(const Word *conditionName) const {
  std::list<ClauseEnvName *> found;
  for (ClauseEnvName *clause : envNames)
    if (sameText(clause->getOnCondition(), conditionName) ||
        sameText(clause->getOffCondition(), conditionName))
      found.push_back(clause);
  return found;
}

ClauseSymbolic *ParaSpecialNames::findClauseSymbolicByWord(const Word *symbolicCharacter) const {
  for (ClauseSymbolic *clause : symbolics)
    for (PhrsSymbolic *phrase : clause->getSymbolicListElements())
      for (Word *name : phrase->getSourceListElements())
        if (sameText(name, symbolicCharacter))
          return clause;
  return nullptr;
}

void InputOutputSection::addFileControl(ParaFileControl *entry) {
  fileControls.push_back(entry);
  fileControlIndex.try_emplace(&entry->getFileName()->getWordData(), entry);
}

ParaFileControl *InputOutputSection::findFileControlByName(const Word &name) const {
  return fileControlIndex.lookup(&name.getWordData());
}

} // namespace tarka
