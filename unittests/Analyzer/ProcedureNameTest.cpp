//===- ProcedureNameTest.cpp - procedure names and their users ------------===//

#include "CheckerFixture.h"

using namespace tarka;
using namespace tarka::test;

namespace {

class ProcedureNameTest : public CheckerTest {
protected:
  ProcedureDivision *division = currentUnit()->getProcDivision();
  ContinueStatement referring{nullptr};

  Paragraph *find(std::initializer_list<const char *> texts) {
    return checker.findParagraphFromQualWord(name(texts), &referring);
  }

  static PerformStatement *perform(const char *from, const char *thru = nullptr,
                                   unsigned line = 0) {
    auto *range = new PerformProcedure(nullptr, name({from}), thru ? name({thru}) : nullptr);
    auto *made = new PerformStatement(nullptr, PerformStmtType::Simple, range, nullptr, nullptr,
                                      nullptr, nullptr, nullptr);
    made->setRange({0, line, 1, line, 1});
    return made;
  }
};

TEST_F(ProcedureNameTest, ParagraphsOfTheCurrentSectionHideOthers) {
  Paragraph *outside = paragraph("P"), *outside2 = paragraph("Q");
  Paragraph *inA = paragraph("R"), *inB = paragraph("P"), *inB2 = paragraph("R");
  Section *a = section("A", {inA, paragraph("TWICE"), paragraph("TWICE")});
  Section *b = section("B", {inB, inB2});
  division->addPara(outside);
  division->addPara(outside2);
  division->addSect(a);
  division->addSect(b);

  // From outside of the sections.
  EXPECT_EQ(find({"P"}), outside);
  EXPECT_EQ(find({"R", "B"}), inB2);
  EXPECT_EQ(numbers(), std::vector<int>{});
  EXPECT_EQ(find({"R"}), nullptr);

  checker.setOuterSection(a);
  EXPECT_EQ(find({"R"}), inA);
  EXPECT_EQ(find({"Q"}), outside2);
  EXPECT_EQ(find({"P"}), nullptr);
  EXPECT_EQ(find({"TWICE"}), nullptr);
  checker.setOuterSection(b);
  EXPECT_EQ(find({"P"}), inB);
  EXPECT_EQ(find({"NONE"}), nullptr);
  EXPECT_EQ(find({"R", "NONE"}), nullptr);
  EXPECT_EQ(find({"R", "B", "A"}), nullptr);
  EXPECT_EQ(numbers(), (std::vector<int>{3401, 3401, 3401, 3403, 3403, 3403}));
}

TEST_F(ProcedureNameTest, SectionsInAndOutsideOfTheDeclaratives) {
  Section *declared = section("D"), *both = section("BOTH"), *main = section("BOTH");
  division->addDeclaratives(new Declaratives(nullptr, declared, nullptr));
  division->addDeclaratives(new Declaratives(nullptr, both, nullptr));
  division->addSect(main);
  EXPECT_EQ(checker.findSectionFromQualWord(name({"D"}), nullptr), declared);
  EXPECT_EQ(checker.findSectionFromQualWord(name({"D", "X"}), nullptr), nullptr);
  EXPECT_EQ(checker.findSectionFromQualWord(name({"NONE"}), nullptr), nullptr);
  EXPECT_EQ(numbers(), std::vector<int>{});
  EXPECT_EQ(checker.findSectionFromQualWord(name({"BOTH"}), nullptr), nullptr);
  EXPECT_EQ(numbers(), std::vector<int>{3402});
  // Within the declaratives their own sections hide the others.
  checker.setInDeclaratives(true);
  EXPECT_EQ(checker.findSectionFromQualWord(name({"BOTH"}), nullptr), both);
  EXPECT_EQ(numbers(), std::vector<int>{3402});
}

TEST_F(ProcedureNameTest, DeclarativesPerformCopiesOfMainSections) {
  Section *main = section("S", {paragraph("P")});
  division->addSect(main);
  division->addDeclaratives(new Declaratives(nullptr, section("D"), nullptr));
  checker.setInDeclaratives(true);

  PerformStatement *first = perform("S", nullptr, 10);
  EXPECT_TRUE(checker.semanticCheck(*first));
  ASSERT_EQ(division->getDeclSize(), 2u);
  ASSERT_EQ(division->getRenameSectionListSize(), 1u);
  Section *copy = division->getRenameSectionListElements().front();
  EXPECT_EQ(copy->getSectionName()->getWordData(), "S_tkcopy");
  EXPECT_EQ(copy->getParaSize(), 1u);
  EXPECT_EQ(first->getProcedureName()->getBeginSection(), copy);
  EXPECT_EQ(
      first->getProcedureName()->getProcedureName1()->getNamesElements().front()->getWordData(),
      "S_tkcopy");
  EXPECT_TRUE(copy->isPerformThru());
  EXPECT_FALSE(main->isPerformThru());

  PerformStatement *second = perform("S", nullptr, 11);
  EXPECT_TRUE(checker.semanticCheck(*second));
  EXPECT_EQ(division->getDeclSize(), 2u);
  EXPECT_EQ(second->getProcedureName()->getBeginSection(), copy);
  EXPECT_EQ(copy->getPerformLine(), 11);
  EXPECT_EQ(numbers(), std::vector<int>{});
}

TEST_F(ProcedureNameTest, PerformMarksTheEndOfItsRange) {
  Paragraph *a = paragraph("A"), *b = paragraph("B");
  division->addPara(a);
  division->addPara(b);
  PerformStatement *range = perform("A", "B", 7);
  EXPECT_TRUE(checker.semanticCheck(*range));
  EXPECT_FALSE(a->isPerformThru());
  EXPECT_TRUE(b->isPerformThru());
  EXPECT_EQ(b->getPerformLine(), 7);
  EXPECT_EQ(range->getProcedureName()->getBeginParagraph(), a);
  EXPECT_EQ(range->getProcedureName()->getThruParagraph(), b);

  PerformStatement *single = perform("A", nullptr, 9);
  EXPECT_TRUE(checker.semanticCheck(*single));
  EXPECT_TRUE(a->isPerformThru());
  EXPECT_EQ(single->getProcedureName()->getThruParagraph(), a);

  PerformStatement empty(nullptr, PerformStmtType::Simple);
  EXPECT_TRUE(checker.semanticCheck(empty));
  ASSERT_EQ(empty.getInlineStatementsSize(), 1u);
  EXPECT_TRUE(llvm::isa<ContinueStatement>(empty.getInlineStatementsElements().front()));

  for (const char *times : {"1", "0", "1.5", "-2"}) {
    PerformStatement *repeated = perform("A");
    repeated->setType(PerformStmtType::Times);
    repeated->setTimesInteger(number(times));
    EXPECT_EQ(checker.semanticCheck(*repeated), llvm::StringRef(times) == "1") << times;
  }
  EXPECT_EQ(numbers(), (std::vector<int>{3434, 3434, 3434}));
}

TEST_F(ProcedureNameTest, GoToAndAlter) {
  Paragraph *a = paragraph("A"), *empty = paragraph("EMPTY"), *moved = paragraph("MOVED");
  Section *s = section("S");
  auto sentence = [](Statement *statement) {
    auto *made = new Sentence(nullptr);
    made->addStmt(statement);
    return made;
  };
  a->addSent(sentence(new GotoStatement(nullptr)));
  moved->addSent(sentence(new ContinueStatement(nullptr)));
  for (Paragraph *one : {a, empty, moved})
    division->addPara(one);
  division->addSect(s);

  GotoStatement go(nullptr);
  go.addProcedureName(name({"S"}));
  go.addProcedureName(name({"A"}));
  go.setDependingName(reference({"NONE"}));
  EXPECT_FALSE(checker.semanticCheck(go));
  ASSERT_EQ(go.getProcedureListSize(), 2u);
  EXPECT_EQ(go.getProcedureListElements().front()->getSection(), s);
  EXPECT_EQ(go.getProcedureListElements().back()->getParagraph(), a);
  EXPECT_EQ(numbers(), (std::vector<int>{3310, 3433}));

  auto alter = [&](std::initializer_list<std::pair<const char *, const char *>> items) {
    auto *made = new AlterStatement(nullptr);
    for (auto [from, to] : items)
      made->addAlterItem(new AlterItem(nullptr, name({from}), name({to})));
    EXPECT_FALSE(checker.semanticCheck(*made));
    return made->getAlterListElements().back();
  };
  // Even a right one does not pass.
  AlterItem *right = alter({{"A", "S"}});
  EXPECT_EQ(right->getSrcParagraph(), a);
  EXPECT_EQ(right->getDstSection(), s);
  EXPECT_EQ(handler.getErrorList().size(), 2u);
  // An unknown source does not end the statement, an unfit one does.
  EXPECT_EQ(alter({{"NONE", "EMPTY"}, {"A", "EMPTY"}})->getDstParagraph(), empty);
  EXPECT_EQ(alter({{"EMPTY", "A"}, {"A", "S"}})->getDstSection(), nullptr);
  EXPECT_EQ(alter({{"MOVED", "A"}, {"A", "S"}})->getDstSection(), nullptr);
  EXPECT_EQ(numbers(), (std::vector<int>{3310, 3433, 3403, 3406, 3406, 3107}));
}

TEST_F(ProcedureNameTest, EntryNamesAreUnique) {
  auto entryPoint = [&](LiteralExpression *literal) {
    EntryStatement made(nullptr, literal);
    return checker.semanticCheck(made);
  };
  auto text = [](const char *contents) {
    return new NonNumericLiteralExpression(nullptr, contents);
  };
  EXPECT_TRUE(entryPoint(text("\"ONE\"")));
  EXPECT_TRUE(entryPoint(text("\"one\"")));
  EXPECT_FALSE(entryPoint(text("\"ONE\"")));
  EXPECT_FALSE(entryPoint(number("1")));
  // In a nested program with RETURNING two things are wrong, and the name counts all the same.
  SourceUnit *nested = unit("NESTED", context().getCurrentSourceUnit());
  nested->setProcDivision(new ProcedureDivision(nullptr));
  nested->getProcDivision()->setReturning(new Returning(nullptr, nullptr));
  context().setCurrentSourceUnit(nested);
  EXPECT_FALSE(entryPoint(text("\"TWO\"")));
  EXPECT_FALSE(entryPoint(text("\"TWO\"")));
  EXPECT_EQ(numbers(), (std::vector<int>{3460, 3459, 3462, 3461, 3462, 3461, 3460}));
}

} // namespace
