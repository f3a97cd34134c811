//===- Procedure.cpp - sections and their copies --------------------------===//

#include "AST/Procedure.h"
#include "AST/StatementCopy.h"
#include <algorithm>
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

namespace {

/// Gives what \p list holds beyond its first \p read elements to \p enter.
template <typename Element, typename Enter>
void readOn(std::list<Element *> &list, std::size_t &read, Enter enter) {
  auto next = std::prev(list.end(), static_cast<std::ptrdiff_t>(list.size() - read));
  std::for_each(next, list.end(), enter);
  read = list.size();
}

} // namespace

llvm::ArrayRef<Section *> ProcedureDivision::findSections(const std::string &name) {
  readOn(sections, sectionIndex.read,
         [this](Section *section) { sectionIndex.add(section->getSectionName(), section); });
  return sectionIndex.find(name);
}

llvm::ArrayRef<Section *> ProcedureDivision::findDeclarativeSections(const std::string &name) {
  readOn(declaratives, declarativeIndex.read, [this](Declaratives *declarative) {
    if (Section *section = declarative->getSection())
      declarativeIndex.add(section->getSectionName(), section);
  });
  return declarativeIndex.find(name);
}

llvm::ArrayRef<Section *> ProcedureDivision::findRenameSections(const std::string &name) {
  readOn(renameSections, renameIndex.read,
         [this](Section *section) { renameIndex.add(section->getSectionName(), section); });
  return renameIndex.find(name);
}

llvm::ArrayRef<Paragraph *> ProcedureDivision::findParagraphs(const std::string &name) {
  readOn(paragraphs, paragraphIndex.read, [this](Paragraph *paragraph) {
    paragraphIndex.add(paragraph->getParagraphName(), paragraph);
  });
  return paragraphIndex.find(name);
}

llvm::ArrayRef<ParagraphInSection>
ProcedureDivision::findSectionParagraphs(const std::string &name) {
  readOn(sections, sectionParagraphIndex.read, [this](Section *section) {
    for (Paragraph *paragraph : section->getParaElements())
      sectionParagraphIndex.add(paragraph->getParagraphName(), {section, paragraph});
  });
  return sectionParagraphIndex.find(name);
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
