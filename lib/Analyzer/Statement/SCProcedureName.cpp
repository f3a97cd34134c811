//===- SCProcedureName.cpp - what procedure names mean --------------------===//
//
// The search for sections and paragraphs, and the copies of sections that the
// declaratives perform.
//
//===----------------------------------------------------------------------===//

#include "AST/Program.h"
#include "Analyzer/CurrentUnit.h"
#include "Analyzer/EnterpriseRules.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/Statement/ProcedureName.h"
#include "llvm/ADT/ArrayRef.h"
#include "llvm/ADT/STLExtras.h"
#include "llvm/ADT/SmallVector.h"

namespace tarka {

namespace {

ProcedureDivision &currentProcedureDivision() {
  return *currentUnit()->getProcDivision();
}

/// What the name of the copy of a section in the declaratives ends with.
constexpr llvm::StringLiteral CopySuffix = "_tkcopy";

/// A procedure performed from the declaratives must be one of theirs, so they get a copy of the
/// section; a PERFORM that begins with it is made to name the copy.
Section *copyIntoDeclaratives(Section &section, QualifiedWord &name, Statement *statement) {
  const std::string &text = section.getSectionName()->getWordData();
  const Node *place = statement ? static_cast<Node *>(statement) : &name;
  auto *copyName = generate<Word>(place, text + CopySuffix.str(), "");
  Section *copy = section.createCopySection(section.getSectionName(), copyName);
  ProcedureDivision &division = currentProcedureDivision();
  division.addDeclaratives(generate<Declaratives>(copy, copy, nullptr));
  division.addRenameSection(copy);

  auto *perform = llvm::dyn_cast_or_null<PerformStatement>(statement);
  PerformProcedure *range = perform ? perform->getProcedureName() : nullptr;
  if (range && range->getProcedureName1()->getNamesElements().front()->getWordData() == text) {
    auto *newName = generate<QualifiedWord>(copyName);
    newName->addNames(copyName);
    range->setProcedureName1(newName);
  }
  return copy;
}

Paragraph *reportNotUnique(SemanticChecker &checker, QualifiedWord &name) {
  checker.report(ErrorCode::ParagraphNotUnique, &name);
  return nullptr;
}

Paragraph *reportNoProcedure(SemanticChecker &checker, QualifiedWord &name) {
  checker.report(ErrorCode::ProcedureNameUndefined, &name);
  return nullptr;
}

/// The paragraphs called \p paragraphName in the declarative sections; in those of the name
/// \p sectionName unless it is null.
llvm::SmallVector<Paragraph *, 2> findInDeclaratives(const std::string &paragraphName,
                                                     const std::string *sectionName) {
  llvm::SmallVector<Paragraph *, 2> found;
  for (const Declaratives *declarative : currentProcedureDivision().getDeclElements()) {
    const Section *section = declarative->getSection();
    if (section && (!sectionName || section->getSectionName()->getWordData() == *sectionName))
      llvm::append_range(found, section->findParagraphs(paragraphName));
  }
  return found;
}

/// The paragraph of a declarative section that \p name, which is found nowhere else, means: in
/// another declarative section, and for PERFORM outside of them. Null, with a diagnostic, when
/// there is none or more than one.
Paragraph *findInOtherDeclaratives(SemanticChecker &checker, QualifiedWord &name,
                                   const Statement *statement, const std::string &paragraphName,
                                   const std::string *sectionName) {
  llvm::SmallVector<Paragraph *, 2> found;
  if ((checker.getInDeclaratives() || llvm::isa_and_present<PerformStatement>(statement)) &&
      followsEnterprise(EnterpriseRule::ParagraphOfDeclaratives))
    found = findInDeclaratives(paragraphName, sectionName);
  if (found.size() > 1)
    return reportNotUnique(checker, name);
  return found.empty() ? reportNoProcedure(checker, name) : found.front();
}

/// paragraph OF section. Sections of the same name are searched as one.
Paragraph *findParagraphInSections(SemanticChecker &checker, QualifiedWord &name,
                                   const Statement *statement, const std::string &paragraphName,
                                   const std::string &sectionName) {
  Paragraph *found = nullptr;
  for (const Section *section : currentProcedureDivision().findSections(sectionName))
    for (Paragraph *paragraph : section->findParagraphs(paragraphName)) {
      if (found)
        return reportNotUnique(checker, name);
      found = paragraph;
    }
  return found ? found
               : findInOtherDeclaratives(checker, name, statement, paragraphName, &sectionName);
}

} // namespace

//===----------------------------------------------------------------------===//
// Sections and paragraphs
//===----------------------------------------------------------------------===//

Section *SemanticChecker::findSectionFromQualWord(QualifiedWord *name, Statement *statement) {
  // Sections cannot be qualified.
  if (name->getNamesSize() > 1)
    return nullptr;
  ProcedureDivision &division = currentProcedureDivision();
  const std::string &text = name->getNamesElements().front()->getWordData();
  auto notUnique = [&] {
    report(ErrorCode::SectionNotUnique, name);
    return nullptr;
  };

  llvm::ArrayRef<Section *> found = division.findDeclarativeSections(text);
  if (found.size() > 1)
    return notUnique();
  if (getInDeclaratives()) {
    // The declaratives may have a copy of a section outside of them.
    if (found.empty())
      found = division.findRenameSections(text + CopySuffix.str());
    if (found.size() > 1)
      return notUnique();
    if (!found.empty())
      return found.front();
  }
  llvm::ArrayRef<Section *> outside = division.findSections(text);
  if (found.size() + outside.size() > 1)
    return notUnique();
  if (outside.empty())
    return found.empty() ? nullptr : found.front();
  if (getInDeclaratives())
    return copyIntoDeclaratives(*outside.front(), *name, statement);
  return outside.front();
}

Paragraph *SemanticChecker::findParagraphFromQualWord(QualifiedWord *name, Statement *statement) {
  const NodeList<Word> &words = name->getNamesElements();
  if (words.size() > 2)
    return reportNoProcedure(*this, *name);
  const std::string &text = words.front()->getWordData();
  if (words.size() == 2)
    return findParagraphInSections(*this, *name, statement, text, words.back()->getWordData());

  // A paragraph of the section around the statement hides all others.
  Section *current = getOuterSection();
  if (statement && current) {
    llvm::ArrayRef<Paragraph *> own = current->findParagraphs(text);
    if (own.size() > 1)
      return reportNotUnique(*this, *name);
    if (!own.empty())
      return own.front();
  }
  ProcedureDivision &division = currentProcedureDivision();
  llvm::ArrayRef<Paragraph *> outside = division.findParagraphs(text);
  if (outside.size() > 1)
    return reportNotUnique(*this, *name);
  if (!outside.empty() && !current)
    return outside.front();

  Paragraph *found = outside.empty() ? nullptr : outside.front();
  for (const ParagraphInSection &candidate : division.findSectionParagraphs(text)) {
    if (candidate.section == current)
      continue;
    if (found)
      return reportNotUnique(*this, *name);
    found = candidate.paragraph;
  }
  return found ? found : findInOtherDeclaratives(*this, *name, statement, text, nullptr);
}

//===----------------------------------------------------------------------===//
// Ranges
//===----------------------------------------------------------------------===//

namespace {

/// Marks a procedure as the end of the range of the PERFORM at \p line.
template <typename Procedure> void markPerformEnd(Procedure *procedure, int line) {
  procedure->setIsPerformThru(true);
  procedure->setPerformLine(line);
}

} // namespace

bool resolveRange(SemanticChecker &checker, ProcedureRange &range, QualifiedWord *begin,
                  QualifiedWord *thru, Statement &statement) {
  auto resolve = [&](QualifiedWord *name, bool isEnd) {
    Section *section = checker.findSectionFromQualWord(name, &statement);
    Paragraph *paragraph = section ? nullptr : checker.findParagraphFromQualWord(name, &statement);
    if (section) {
      range.addSection(section);
      if (isEnd)
        markPerformEnd(section, statement.getBeginLineNo());
    } else if (paragraph) {
      range.addParagraph(paragraph);
      if (isEnd)
        markPerformEnd(paragraph, statement.getBeginLineNo());
    }
    return section || paragraph;
  };
  if (thru)
    return resolve(begin, false) && resolve(thru, true);
  if (!resolve(begin, true))
    return false;
  range.setThruSection(range.getBeginSection());
  range.setThruParagraph(range.getBeginParagraph());
  return true;
}

} // namespace tarka
