//===- OsvsMaker.cpp - what the statements of OS/VS COBOL become ----------===//

#include "Analyzer/Statement/OsvsMaker.h"
#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "llvm/ADT/Twine.h"

namespace tarka {

std::string quotedText(llvm::StringRef contents, llvm::StringRef prefix, std::int64_t copies) {
  std::string text = prefix.str() + '"';
  for (; copies > 0; --copies)
    for (char c : contents)
      text.append(c == '"' ? 2 : 1, c);
  return text + '"';
}

DataDescription *OsvsMaker::item(const char *picture, UsageType usage) {
  auto *entry = generate<DataDescription>(at);
  entry->setLevelNum(1);
  if (picture)
    entry->setPicture(generate<ClausePicture>(at, generate<Word>(at, picture, "")));
  entry->setUsage(generate<ClauseUsage>(at, usage));
  return entry;
}

llvm::StringRef OsvsMaker::keep(llvm::StringRef prefix, DataDescription *item, Expression *value) {
  SourceUnit &unit = *currentUnit();
  if (!unit.getDataDivision())
    unit.setDataDivision(generate<DataDivision>(at));
  DataDivision &division = *unit.getDataDivision();
  auto *name =
      generate<Word>(at, (prefix + llvm::Twine(division.getWorkSectionSize() + 1)).str(), "");
  item->setDataName(name);
  if (value) {
    auto *phrase = generate<PhraseValue>(at);
    phrase->setLiteral1(llvm::cast<LiteralExpression>(value));
    auto *clause = generate<ClauseValue>(at);
    clause->addPhraseValue(phrase);
    item->setValue(clause);
  }
  division.addWorkSection(item);
  checker.semanticCheck(*item);
  return name->getWordData();
}

} // namespace tarka
