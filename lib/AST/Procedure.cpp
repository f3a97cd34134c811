//===- Procedure.cpp - sections and their copies --------------------------===//

#include "AST/Procedure.h"
#include <cassert>

namespace tarka {

llvm::ArrayRef<Paragraph *> Section::findParagraphs(const std::string &name) const {
  auto found = paragraphIndex.find(&internString(name));
  if (found == paragraphIndex.end())
    return {};
  return found->second;
}

namespace {

Sentence *copyOf(Sentence *original) {
  Sentence *copy = new Sentence(original);
  for (Statement *statement : original->getStmtElements())
    copy->addStmt(statement);
  return copy;
}

} // namespace

Section *Section::createCopySection(Word *name, Word *copyName) {
  assert(name->getWordData() == sectionName->getWordData() &&
         "a copy is made of the section named");
  Section *copy = new Section(this, copyName);
  copy->setPriorityNumExpr(priorityNumber);
  for (Sentence *sentence : sentences)
    copy->addSent(copyOf(sentence));
  for (Paragraph *paragraph : paragraphs) {
    Paragraph *paragraphCopy = new Paragraph(paragraph, paragraph->getParagraphName());
    for (Sentence *sentence : paragraph->getSentElements())
      paragraphCopy->addSent(copyOf(sentence));
    copy->addPara(paragraphCopy);
  }
  return copy;
}

} // namespace tarka
