//===- CheckerFixture.h - trees for the tests of the checks -----*- C++ -*-===//
//
// Builds small trees, for what COBOL source cannot express or what is tested
// below the level of whole programs.
//
//===----------------------------------------------------------------------===//

#ifndef TARKA_UNITTESTS_ANALYZER_CHECKERFIXTURE_H
#define TARKA_UNITTESTS_ANALYZER_CHECKERFIXTURE_H

#include "AST/Program.h"
#include "AST/Statement.h"
#include "Analyzer/CompileOption.h"
#include "Analyzer/SemanticChecker.h"
#include "Analyzer/TopLevel.h"
#include "gtest/gtest.h"
#include <initializer_list>
#include <vector>

namespace tarka::test {

class CheckerTest : public testing::Test {
protected:
  ErrorHandler handler;
  SemanticChecker checker{&handler};
  const Node nowhere;
  CompileOption &options = *CompileOption::getCompileOptionInstance();

  CheckerTest() { TopLevel::beginCompilation("src/PROG.1.cbl", {}); }

  static TopLevel &context() { return *TopLevel::getTopLevelInstance(""); }

  /// The numbers of the diagnostics so far.
  std::vector<int> numbers() const {
    std::vector<int> found;
    for (const ErrorEntry *entry : handler.getErrorList())
      found.push_back(entry->getNumber());
    return found;
  }

  static Word *word(llvm::StringRef text) { return new Word(nullptr, text, text); }

  static QualifiedWord *name(std::initializer_list<const char *> texts) {
    auto *qualified = new QualifiedWord(nullptr);
    for (const char *text : texts)
      qualified->addNames(word(text));
    return qualified;
  }

  static NumericLiteralExpression *number(llvm::StringRef text) {
    return new NumericLiteralExpression(nullptr, text);
  }

  static SourceUnit *unit(llvm::StringRef programName, SourceUnit *parent = nullptr,
                          ProgramIdType type = ProgramIdType::None) {
    auto *id = new ProgramIdParagraph(nullptr, word(programName), type);
    auto *made = new SourceUnit(nullptr, new IdentificationDivision(nullptr, id), parent);
    if (parent)
      parent->addNested(made);
    return made;
  }

  /// A unit with empty divisions that the checks then take for the current one.
  SourceUnit *currentUnit() {
    SourceUnit *made = unit("PROG");
    made->setDataDivision(new DataDivision(nullptr));
    made->setProcDivision(new ProcedureDivision(nullptr));
    context().setCurrentSourceUnit(made);
    return made;
  }

  template <typename Entry = DataDescription>
  static Entry *entry(unsigned level, llvm::StringRef dataName, DataDescription *parent = nullptr,
                      const char *picture = nullptr) {
    auto *made = new Entry(static_cast<const Node *>(nullptr));
    made->setLevelNum(level);
    made->setDataName(word(dataName));
    if (picture)
      made->setPicture(new ClausePicture(nullptr, word(picture)));
    if (parent)
      parent->addChildren(made);
    return made;
  }

  static DataIdentifierExpression *reference(std::initializer_list<const char *> texts,
                                             SubscriptModifier *subscripts = nullptr,
                                             ReferenceModifier *modifier = nullptr) {
    return new DataIdentifierExpression(nullptr, name(texts), subscripts, modifier);
  }

  static Paragraph *paragraph(llvm::StringRef paragraphName) {
    return new Paragraph(nullptr, word(paragraphName));
  }

  static Section *section(llvm::StringRef sectionName,
                          std::initializer_list<Paragraph *> paragraphs = {}) {
    auto *made = new Section(nullptr, word(sectionName));
    for (Paragraph *one : paragraphs)
      made->addPara(one);
    return made;
  }
};

} // namespace tarka::test

#endif // TARKA_UNITTESTS_ANALYZER_CHECKERFIXTURE_H
