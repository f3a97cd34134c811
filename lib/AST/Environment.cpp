//===- Environment.cpp - look-ups of the environment division -------------===//

#include "AST/Environment.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {

static bool isOneOf(llvm::StringRef name, llvm::ArrayRef<llvm::StringLiteral> names) {
  return llvm::any_of(names, [&](llvm::StringRef one) { return name.equals_insensitive(one); });
}

bool isInputDevice(llvm::StringRef name) {
  return isOneOf(name, {"SYSIN", "SYSIPT", "CONSOLE"});
}

bool isOutputDevice(llvm::StringRef name) {
  return isOneOf(name, {"SYSOUT", "SYSLIST", "SYSLST", "SYSPUNCH", "SYSPCH", "CONSOLE"});
}

EnvNameType environmentNameType(llvm::StringRef name) {
  if (name.starts_with_insensitive("UPSI-"))
    return EnvNameType::Switch;
  if (isInputDevice(name) || isOutputDevice(name))
    return EnvNameType::Device;
  if (isOneOf(name, {"C01", "C02", "C03", "C04", "C05", "C06", "C07", "C08", "C09", "C10", "C11",
                     "C12", "CSP", "S01", "S02", "S03", "S04", "S05", "AFP-5A"}))
    return EnvNameType::Carriage;
  return EnvNameType::Unknown;
}

void ParaSpecialNames::addEnvName(ClauseEnvName *clause) {
  envNames.push_back(clause);
  if (const Word *mnemonic = clause->getMnemonicName())
    mnemonicIndex.try_emplace(&mnemonic->getWordData(), clause);
  for (const Word *condition : {clause->getOnCondition(), clause->getOffCondition()}) {
    if (!condition)
      continue;
    NodeList<ClauseEnvName> &clauses = conditionIndex[&condition->getWordData()];
    if (clauses.empty() || clauses.back() != clause)
      clauses.push_back(clause);
  }
}

void ParaSpecialNames::addAlphabet(ClauseAlphabet *clause) {
  alphabets.push_back(clause);
  if (const Word *name = clause->getAlphabetName())
    alphabetIndex.try_emplace(&name->getWordData(), clause);
}

void ParaSpecialNames::addSymbolic(ClauseSymbolic *clause) {
  symbolics.push_back(clause);
  for (PhrsSymbolic *phrase : clause->getSymbolicListElements())
    for (const Word *name : phrase->getSourceListElements())
      if (name)
        symbolicIndex.try_emplace(&name->getWordData(), clause);
}

void ParaSpecialNames::addClass(ClauseClass *clause) {
  classes.push_back(clause);
  if (const Word *name = clause->getClassName())
    classIndex.try_emplace(&name->getWordData(), clause);
}

ClauseAlphabet *ParaSpecialNames::findClauseAlphabetByWord(const Word *name) const {
  return name ? alphabetIndex.lookup(&name->getWordData()) : nullptr;
}

ClauseClass *ParaSpecialNames::findClauseClassByWord(const Word *name) const {
  return name ? classIndex.lookup(&name->getWordData()) : nullptr;
}

ClauseEnvName *ParaSpecialNames::findClauseEnvNameByWord(const Word *mnemonicName) const {
  return mnemonicName ? mnemonicIndex.lookup(&mnemonicName->getWordData()) : nullptr;
}

NodeList<ClauseEnvName>
ParaSpecialNames::findClauseEnvNameByCondName(const Word *conditionName) const {
  return conditionName ? conditionIndex.lookup(&conditionName->getWordData())
                       : NodeList<ClauseEnvName>();
}

ClauseSymbolic *ParaSpecialNames::findClauseSymbolicByWord(const Word *symbolicCharacter) const {
  return symbolicCharacter ? symbolicIndex.lookup(&symbolicCharacter->getWordData()) : nullptr;
}

void InputOutputSection::addFileControl(ParaFileControl *entry) {
  fileControls.push_back(entry);
  if (const Word *name = entry->getFileName())
    fileControlIndex.try_emplace(&name->getWordData(), entry);
}

ParaFileControl *InputOutputSection::findFileControlByName(const Word &name) const {
  return fileControlIndex.lookup(&name.getWordData());
}

} // namespace tarka
