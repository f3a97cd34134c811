//===- PrintGraphTest.cpp - the graph as text, JSON and DOT ---------------===//

#include "Print/PrintGraph.h"
#include "CFGTree.h"
#include "llvm/Support/JSON.h"
#include <gtest/gtest.h>

using namespace tarka;
using namespace tarka::test;

namespace {

/// Section S with the paragraphs P and Q; P is performed, Q leads back to P; S has an exit.
class PrintGraph : public testing::Test {
protected:
  PrintGraph() {
    Paragraph *p = paragraph("P", {plain(3)});
    Paragraph *q = paragraph("Q", {ifThen({goTo(p)})});
    Section *s = tree.add("S", {p, q});
    s->setIsPerformThru(true);
    fill(s, {make<EntryStatement>(1, make<NonNumericLiteralExpression>(1, "'E'")),
             perform(2, PerformStmtType::Times, p, p)});
    tree.build();
  }

  template <typename Printer> std::string print(Printer printer, const GraphView &view = {}) {
    std::string text;
    llvm::raw_string_ostream os(text);
    printer(os, *tree.module, view);
    return text;
  }

  /// The tree has no source, so the format does not matter.
  static void dotOf(llvm::raw_ostream &os, const CFGModule &module, const GraphView &view) {
    ParseOptions options;
    options.format = SourceFormat::Fixed;
    printGraphDot(os, module, view, options);
  }

  Tree tree;
};

} // namespace

TEST_F(PrintGraph, Text) {
  EXPECT_EQ(print(printGraphText), R"(function PROG
  entry 1 E at 2
    0: entry
       -> falls into 1 S
  section S
    1: S [procedure]
       -> successor 2 E_entry
    2: E_entry [terminator]
         2 PERFORM P
       -> successor 4 tkdummy_perform_2_line_after, after 4 tkdummy_perform_2_line_after, return 3 tkdummy_perform_2_line_return
    3: tkdummy_perform_2_line_return [terminator]
    4: tkdummy_perform_2_line_after
       -> falls into 5 P
  paragraph P
    5: P [procedure]
         3 CONTINUE
       -> successor 6 P_exit
    6: P_exit [terminator]
         1 return to performer of P
       -> successor 7 P_exit_after
    7: P_exit_after
       -> falls into 8 Q
  paragraph Q
    8: Q [procedure] [terminator]
         1 IF
       -> then 9 tkdummy_then, end 11 tkdummy_endif
    9: tkdummy_then [terminator]
         1 GO TO P
       -> successor 10 tkdummy_after_goto
   10: tkdummy_after_goto
       -> successor 11 tkdummy_endif
   11: tkdummy_endif
       -> successor 12 S_exit
  section S
   12: S_exit [terminator]
         1 return to performer of S
       -> successor 13 S_exit_after
   13: S_exit_after
)");
}

TEST_F(PrintGraph, PartOfTheText) {
  GraphView view;
  view.function = "prog";
  view.paragraph = "q";
  view.collapse = true;
  EXPECT_EQ(print(printGraphText, view), R"(function PROG
  entry 1 E at 2
  paragraph Q: 2 statements, blocks 8 to 11
       go to 5 P
       successor 12 S_exit
)");
  view.function = "OTHER";
  EXPECT_EQ(print(printGraphText, view), "");
}

TEST_F(PrintGraph, JsonRefersToBlocksByPlace) {
  llvm::Expected<llvm::json::Value> parsed = llvm::json::parse(print(printGraphJson));
  ASSERT_TRUE(bool(parsed)) << llvm::toString(parsed.takeError());
  const llvm::json::Object &function =
      *parsed->getAsObject()->getArray("functions")->front().getAsObject();
  EXPECT_EQ(function.getString("name"), "PROG");
  const llvm::json::Object &entry = *function.getArray("entries")->front().getAsObject();
  EXPECT_EQ(entry.getInteger("block"), 2);

  const llvm::json::Array &blocks = *function.getArray("blocks");
  ASSERT_EQ(blocks.size(), 14u);
  const llvm::json::Object &block = *blocks[2].getAsObject();
  EXPECT_EQ(block.getInteger("id"), 2);
  EXPECT_EQ(block.getString("name"), "E_entry");
  EXPECT_EQ(block.getInteger("type"), 0);
  EXPECT_EQ(block.getBoolean("terminator"), true);
  EXPECT_EQ(block.getInteger("after"), 4);
  EXPECT_EQ(block.getInteger("return"), 3);
  EXPECT_EQ(block.get("then"), nullptr);
  const llvm::json::Object &element = *block.getArray("elements")->front().getAsObject();
  EXPECT_EQ(element.getInteger("kind"), 0);
  EXPECT_EQ(element.getString("class"), "PerformStatement");
  EXPECT_EQ(element.getInteger("line"), 2);
}

TEST_F(PrintGraph, DotGroupsAndLabels) {
  std::string dot = print(dotOf);
  EXPECT_EQ(std::count(dot.begin(), dot.end(), '{'), std::count(dot.begin(), dot.end(), '}'));
  for (const char *line :
       {"label=<<b>PROG</b>>", "label=<<b>S SECTION</b>>", "label=<<b>Q</b>>", "1 GO TO P<br",
        "f0b9 -> f0b5 [label=\"go to\"", "f0b2 -> f0b4 [label=\"after\"",
        "f0b2 -> f0b5 [label=\"perform\"", "f0b7 -> f0b8 [label=\"fall through\""})
    EXPECT_NE(dot.find(line), std::string::npos) << line << '\n' << dot;

  GraphView view;
  view.collapse = true;
  dot = print(dotOf, view);
  // A procedure is one node, and blocks are none.
  EXPECT_NE(dot.find("f0g3 -> f0g2 [label=\"go to\""), std::string::npos) << dot;
  EXPECT_EQ(dot.find("f0b9"), std::string::npos) << dot;
}
