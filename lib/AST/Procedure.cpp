//===- Procedure.cpp - sections and their copies --------------------------===//

#include "AST/Procedure.h"
#include "AST/StatementCopy.h"
#include <cassert>

namespace tarka {

llvm::ArrayRef<Paragraph *> Section::findParagraphs(const std::string &name) const {
  auto found = paragraphIndex.find(&internString(name));
  if (found == paragraphIndex.end())
    return {};
  return found->second;
}

//===----------------------------------------------------------------------===//
// Procedures by name
//===----------------------------------------------------------------------===//

llvm::ArrayRef<Section *> ProcedureDivision::findSections(const std::string &name) {
  return sectionIndex
      .readOn(sections,
              [this](Section *section) {
                sectionIndex.add(section->getSectionName()->getWordData(), section);
              })
      .find(name);
}

llvm::ArrayRef<Section *> ProcedureDivision::findDeclarativeSections(const std::string &name) {
  return declarativeIndex
      .readOn(declaratives,
              [this](Declaratives *declarative) {
                if (Section *section = declarative->getSection())
                  declarativeIndex.add(section->getSectionName()->getWordData(), section);
              })
      .find(name);
}

llvm::ArrayRef<Section *> ProcedureDivision::findRenameSections(const std::string &name) {
  return renameIndex
      .readOn(renameSections,
              [this](Section *section) {
                renameIndex.add(section->getSectionName()->getWordData(), section);
              })
      .find(name);
}

llvm::ArrayRef<Paragraph *> ProcedureDivision::findParagraphs(const std::string &name) {
  return paragraphIndex
      .readOn(paragraphs,
              [this](Paragraph *paragraph) {
                paragraphIndex.add(paragraph->getParagraphName()->getWordData(), paragraph);
              })
      .find(name);
}

llvm::ArrayRef<ParagraphInSection>
ProcedureDivision::findSectionParagraphs(const std::string &name) {
  return sectionParagraphIndex
      .readOn(sections,
              [this](Section *section) {
                for (Paragraph *paragraph : section->getParaElements())
                  sectionParagraphIndex.add(paragraph->getParagraphName()->getWordData(),
                                            {section, paragraph});
              })
      .find(name);
}

//===----------------------------------------------------------------------===//
// Copies
//===----------------------------------------------------------------------===//

namespace {

Sentence *copyOf(Sentence *original) {
  Sentence *copy = new Sentence(original);
  for (Statement *statement : original->getStmtElements())
    copy->addStmt(copyStatement(statement));
  return copy;
}

} // namespace

Section *Section::createCopySection(Word *name, Word *copyName) {
  assert(name->getWordData() == sectionName->getWordData() &&
         "a copy is made of the section named");
  Section *copy = new Section(this, copyName);
  copy->setPriorityNumExpr(priorityNumber);
  for (Sentence *sentence : getSentElements())
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
