//===- RecoveryTest.cpp - what happens after a mistake --------------------===//

#include "ParserTest.h"
#include "Print/PrintTree.h"
#include "llvm/ADT/SmallVector.h"
#include "llvm/Support/thread.h"
#include <optional>

namespace tarka {
namespace {

/// The outline of a printed tree's procedure division: statements by their kind, with those nested
/// in them in braces, such as "P: if{continue else:exit} goback."
std::string outlineOf(llvm::StringRef tree) {
  struct Open {
    std::size_t depth;
    llvm::StringRef end;
  };
  llvm::SmallVector<Open> open;
  std::string text;
  tree = tree.substr(tree.find("ProcedureDivision")).split('\n').second;
  while (!tree.empty()) {
    auto [line, rest] = tree.split('\n');
    tree = rest;
    std::size_t depth = line.find_first_not_of(' ');
    llvm::StringRef role, kind = line.trim().split(' ').first;
    if (kind.consume_back(":"))
      role = kind, kind = line.trim().split(' ').second.split(' ').first;
    while (!open.empty() && open.back().depth >= depth)
      text += open.pop_back_val().end;
    llvm::StringRef name = line.split("name=").second;
    if (kind == "Sentence") {
      open.push_back({depth, "."});
    } else if (kind == "Paragraph" || kind == "Section") {
      text += (text.empty() ? "" : " ") + name.str() + (kind == "Section" ? " SECTION" : ":");
    } else if (kind.consume_back("Statement")) {
      // The first statement nested in another one opens the braces of that one.
      bool first = !open.empty() && open.back().end.empty();
      text += first ? "{" : text.empty() ? "" : " ";
      if (first)
        open.back().end = "}";
      text += (role == "else" ? "else:" : "") + kind.lower();
      open.push_back({depth, ""});
    }
  }
  while (!open.empty())
    text += open.pop_back_val().end;
  return text;
}

class RecoveryTest : public ParserTest {
protected:
  void checkDeepNesting();

  /// Reads \p text as a procedure division whose first line is 3, and gives its outline.
  std::string outline(const std::string &text) {
    parse("PROCEDURE DIVISION.\n" + text);
    std::string tree;
    llvm::raw_string_ostream os(tree);
    printTreeText(os, *program, "MAIN.CBL");
    return outlineOf(tree);
  }

  /// \p text has exactly the messages \p messages and leaves the statements \p rest.
  void expectRest(const std::string &text, const std::string &messages, const std::string &rest) {
    EXPECT_EQ(outline(text), rest) << text;
    EXPECT_EQ(reported(), messages) << text << "\n  " << message();
  }
};

TEST_F(RecoveryTest, SeparateMistakesHaveAMessageEach) {
  expectRest("\n"
             "P.\n"
             "    MOVE A B.\n"
             "    IF A = THEN CONTINUE ELSE MVOE A TO B END-IF\n"
             "    GOBACK.\n"
             "Q.\n"
             "    COMPUTE A = B +.\n"
             "    EXIT.",
             "200@5:12 201@6:12 421@6:31 200@9:20", "P: goback. Q: exit.");
}

TEST_F(RecoveryTest, AStatementIsLeftOutWithItsPhrasesAndItsEnd) {
  expectRest("READ 5 AT END CONTINUE NOT AT END EXIT END-READ GOBACK.", "200@3:6", "goback.");
  expectRest("ADD A TO B (ON SIZE ERROR CONTINUE NOT SIZE ERROR EXIT END-ADD GOBACK.", "201@3:13",
             "goback.");
  expectRest("ADD A TO B ) ON SIZE ERROR CONTINUE NOT SIZE ERROR EXIT END-ADD GOBACK.", "200@3:12",
             "goback.");
  // The END- word follows what the statement would have contained.
  expectRest("COMPUTE A = ( DISPLAY B END-COMPUTE GOBACK.", "201@3:15", "display goback.");
  expectRest("IF A = B READ 5 CONTINUE END-READ EXIT END-IF GOBACK.", "200@3:15",
             "if{continue exit} goback.");
  expectRest("IF A = ( THEN CONTINUE ELSE IF B = CONTINUE ELSE EXIT END-IF EXIT END-IF GOBACK.",
             "201@3:10 201@3:36", "goback.");
  expectRest("EVALUATE A + WHEN 1 CONTINUE WHEN OTHER EXIT END-EVALUATE GOBACK.", "201@3:14",
             "goback.");
  expectRest("EVALUATE A WHEN ( CONTINUE WHEN 2 ALSO ALSO EXIT END-EVALUATE GOBACK.",
             "200@3:19 200@3:40", "goback.");
  expectRest("EVALUATE A CONTINUE WHEN OTHER EXIT WHEN 3 EXIT END-EVALUATE GOBACK.",
             "200@3:12 428@3:37", "goback.");
  expectRest("PERFORM UNTIL A B CONTINUE END-PERFORM GOBACK.", "420@3:17",
             "perform{continue} goback.");
  expectRest("SEARCH 5 AT END EXIT WHEN A = B CONTINUE END-SEARCH GOBACK.", "200@3:8", "goback.");
  expectRest("CALL USING A ON EXCEPTION EXIT NOT ON EXCEPTION EXIT END-CALL GOBACK.", "201@3:6",
             "goback.");
}

TEST_F(RecoveryTest, WordsWithoutTheirStatement) {
  expectRest("CONTINUE END-IF GOBACK.", "424@3:10", "continue goback.");
  EXPECT_EQ(message(), "END-IF without IF");
  expectRest("ELSE CONTINUE. EXIT ELSE GOBACK.", "425@3:1 425@3:21", "continue. exit goback.");
  expectRest("IF A = B EXIT ELSE EXIT ELSE GOBACK.", "425@3:25", "if{exit else:exit else:goback}.");
  expectRest("CONTINUE WHEN A = B GOBACK.", "426@3:10", "continue goback.");
  expectRest("MOVE A TO B AT END GOBACK. NOT ON SIZE ERROR EXIT.", "427@3:13 427@3:28",
             "move goback. exit.");
  // Further parts probably belong to the same statement, and so does its END- word.
  expectRest("CONTINUE WHEN 1 EXIT WHEN 2 EXIT END-EVALUATE END-IF GOBACK.", "426@3:10 424@3:47",
             "continue exit exit goback.");
  expectRest("ELSE EXIT END-IF END-IF GOBACK.", "425@3:1 424@3:18", "exit goback.");
  expectRest("NOT AT END EXIT AT END EXIT END-READ GOBACK. END-READ.", "427@3:1 424@3:46",
             "exit exit goback.");
  expectRest("PERFORM UNTIL A = B END-IF CONTINUE END-PERFORM.", "424@3:21", "perform{continue}.");
  expectRest("IF A = B END-IF GOBACK.", "200@3:10", "goback.");
}

TEST_F(RecoveryTest, WordsThatBeginNothing) {
  expectRest("DISPLA A UPON B GOBACK.", "421@3:1", "goback.");
  EXPECT_EQ(message(), "a statement cannot begin with 'DISPLA'; was DISPLAY meant?");
  expectRest("FROBNICATE A B. GOBACK.", "420@3:1", "goback.");
  expectRest("TO A. 5 GOBACK. ( EXIT.", "420@3:1 200@3:7 200@3:17", "goback. exit.");
  // A name at the beginning of a line is a misspelt verb, not a remainder of the statement before.
  expectRest("CONTINUE\nFROBNICATE A. EXIT PROCEED A. GOBACK.", "420@4:1 420@4:20",
             "continue. goback.");
}

TEST_F(RecoveryTest, AMisspeltVerbTakesWhatBelongsToItsStatement) {
  expectRest("IFF A = B CONTINUE ELSE EXIT END-IF GOBACK.", "421@3:1", "goback.");
  expectRest("EVALUTE A WHEN 1 MVOE A WHEN 2 EXIT END-EVALUATE GOBACK.", "421@3:1 421@3:18",
             "goback.");
  expectRest("PREFORM UNTIL A = B CONTINUE END-PERFORM GOBACK.", "421@3:1", "goback.");
  expectRest("RAED F AT END CONTINUE NOT AT END EXIT END-READ GOBACK.", "421@3:1", "goback.");
  expectRest("IF A = B IF C = D EXIT END-FI ELSE CONTINUE ENDIF GOBACK.", "421@3:24 421@3:45",
             "if{if{exit} else:continue} goback.");
  EXPECT_EQ(message(), "a statement cannot begin with 'END-FI'; was END-IF meant?");
  expectRest("READ F AT END PERFORM IF A = B EXIT END-PREFORM END-RAED NOT AT END EXIT. GOBACK.",
             "421@3:37 421@3:49 427@3:58", "read{perform{if{exit}}} exit. goback.");
  // A word with no meaning takes the phrases that no other open statement can have.
  expectRest("FROBNICATE F AT END EXIT NOT ON OVERFLOW EXIT END-READ GOBACK.", "420@3:1",
             "goback.");
  expectRest("READ F AT END FROBNICATE F NOT AT END EXIT END-READ GOBACK.", "420@3:15",
             "read{continue exit} goback.");
}

TEST_F(RecoveryTest, StatementsThatAreNotSupported) {
  expectRest("SEND A FROM B. RECEIVE C MESSAGE INTO D. PURGE E. ENABLE INPUT F. DISABLE G. GOBACK.",
             "423@3:1 423@3:16 423@3:42 423@3:51 423@3:67", "goback.");
  expectRest("ENTER COBOL. SERVICE LABEL. SERVICE RELOAD A. GOBACK.", "",
             "continue. continue. continue. goback.");
}

TEST_F(RecoveryTest, TheSentenceEndsWithItsPeriodOrTheDivision) {
  expectRest("IF A = B PERFORM CONTINUE. GOBACK.", "200@3:26", "if{continue}. goback.");
  expectRest("MOVE A TO. MOVE TO B. GOBACK", "200@3:10 201@3:17 200@3:23", "goback.");
  EXPECT_EQ(message(2), "a period is expected here, but the end of the file was found");
  expectRest("GOBACK\nEND PROGRAM P.", "200@4:1", "goback.");
  expectRest("IF A = B GOBACK\nS SECTION. EXIT.", "200@4:1", "if{goback}. S SECTION exit.");
}

TEST_F(RecoveryTest, NestingTooDeepIsOneMessage) {
  // As the program does, on a stack that is large enough for the deepest nesting.
  constexpr unsigned stackSize = 1u << 29;
  llvm::thread onLargeStack(std::optional<unsigned>(stackSize), [this] { checkDeepNesting(); });
  onLargeStack.join();
}

void RecoveryTest::checkDeepNesting() {
  const std::pair<const char *, const char *> nests[] = {
      {"IF A = B ", " END-IF"},
      {"PERFORM UNTIL A = B ", " END-PERFORM"},
      {"EVALUATE A WHEN 1 ", " END-EVALUATE"},
      {"READ F AT END ", " END-READ"},
      {"SEARCH T WHEN A = B ", " END-SEARCH"},
  };
  for (const auto &[open, close] : nests) {
    std::string text;
    for (int i = 0; i < 10000; ++i)
      text += open;
    text += "CONTINUE";
    for (int i = 0; i < 10000; ++i)
      text += close;
    EXPECT_EQ(outline(text + ".\nGOBACK. MVOE A TO B."), "goback.") << open;
    ASSERT_EQ(diagnostics.getEntries().size(), 2u) << open;
    EXPECT_EQ(diagnostics.getEntries()[0].id, DiagnosticId::NestedTooDeep) << open;
    // The place is that of the statement that is one too many; the program is the first level.
    EXPECT_EQ(diagnostics.getEntries()[0].place.beginColumn, 999 * llvm::StringRef(open).size() + 1)
        << open;
  }
}

} // namespace
} // namespace tarka
