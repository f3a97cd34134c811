//===- StatementParseTest.cpp - statements and their phrases --------------===//
//
// Every statement outside the branch family, with the phrases that are easily
// got wrong, and the messages for statements that cannot be read.
//
//===----------------------------------------------------------------------===//

#include "AST/Condition.h"
#include "AST/Program.h"
#include "AST/Statement.h"
#include "Parse/Parse.h"
#include "llvm/ADT/StringExtras.h"
#include "gtest/gtest.h"

using namespace tarka;
using llvm::cast;
using llvm::dyn_cast;
using llvm::isa;

namespace {

/// A program in free form whose procedure division holds the given text, from line 4 on.
class Parsed {
public:
  explicit Parsed(llvm::StringRef text, bool osvs = false, llvm::StringRef before = "") {
    auto files = llvm::makeIntrusiveRefCnt<llvm::vfs::InMemoryFileSystem>();
    std::string source = "ID DIVISION. PROGRAM-ID. T.\n" + before.str() +
                         "\nPROCEDURE DIVISION.\n" + text.str() + "\n";
    files->addFile("t.cbl", 0, llvm::MemoryBuffer::getMemBufferCopy(source));
    ParseOptions options;
    options.fileSystem = files;
    options.format = SourceFormat::Free;
    options.osvs = osvs;
    Program *program = *parseProgram("t.cbl", "t", options, diagnostics);
    if (program->getSourceUnitListSize() == 0)
      return;
    ProcedureDivision *division = program->getSourceUnitListElements().front()->getProcDivision();
    for (Sentence *sentence : division->getSentElements())
      for (Statement *statement : sentence->getStmtElements())
        statements.push_back(statement);
  }

  /// "line:column text" of every message, one a line.
  std::string messages() const {
    std::string all;
    for (const DiagnosticEntry &entry : diagnostics.getEntries())
      all += std::to_string(entry.place.beginLine) + ":" + std::to_string(entry.place.beginColumn) +
             " " + entry.message + "\n";
    return all;
  }

  std::vector<Statement *> statements;

private:
  FrontEndDiagnostics diagnostics;
};

/// The only statement of \p text, which draws no message.
template <typename T> T *parseOne(llvm::StringRef text, bool osvs = false) {
  Parsed parsed(text.str() + ".", osvs);
  EXPECT_EQ(parsed.messages(), "") << text.str();
  if (parsed.statements.size() != 1 || !isa<T>(parsed.statements.front())) {
    ADD_FAILURE() << "not one statement of the class: " << text.str();
    std::abort();
  }
  return cast<T>(parsed.statements.front());
}

/// The one message that \p text draws; the statement itself is not in the tree.
std::string messageOf(llvm::StringRef text, bool osvs = false) {
  Parsed parsed(text.str() + ".", osvs);
  EXPECT_TRUE(parsed.statements.empty()) << text.str();
  std::string message = parsed.messages();
  EXPECT_EQ(std::count(message.begin(), message.end(), '\n'), 1) << text.str();
  return llvm::StringRef(message).rtrim().str();
}

//===----------------------------------------------------------------------===//
// Trees as text
//===----------------------------------------------------------------------===//

std::string show(const Word *word) {
  return word ? word->getWordData() : "-";
}

std::string show(QualifiedWord *name) {
  std::string text;
  if (!name)
    return "-";
  for (Word *word : name->getNamesElements())
    text += (text.empty() ? "" : " OF ") + word->getWordData();
  return text;
}

std::string show(Expression *expression) {
  if (!expression)
    return "-";
  if (auto *number = dyn_cast<NumericLiteralExpression>(expression))
    return number->getData();
  if (auto *literal = dyn_cast<NonNumericLiteralExpression>(expression))
    return "'" + literal->getData() + "'";
  if (auto *figurative = dyn_cast<FigurativeLiteralExpression>(expression))
    return "figurative" + std::to_string(int(figurative->getFigurativeType()));
  if (auto *special = dyn_cast<SpecialRegisterIdentifierExpression>(expression))
    return "special" + std::to_string(int(special->getType())) + " " + show(special->getIdent());
  if (auto *file = dyn_cast<FileIdentifierExpression>(expression))
    return show(file->getFileName());
  if (auto *report = dyn_cast<ReportIdentifierExpression>(expression))
    return show(report->getReportName());
  if (auto *data = dyn_cast<DataIdentifierExpression>(expression))
    return show(data->getQualifiedWord()) + (data->getSubscriptMod() ? "()" : "");
  return "expression" + std::to_string(int(expression->getExprType()));
}

std::string show(RoundedOperand *operand) {
  return operand ? show(operand->first) + (operand->second ? "~" : "") : "-";
}

std::string show(InspectRegion *region) {
  return (region->getType() == InspRegType::Before ? "<" : ">") + show(region->getExpr());
}

/// "begin-end" of a node on line 4.
std::string columns(const Node &node) {
  EXPECT_EQ(node.getBeginLineNo(), 4);
  return std::to_string(node.getBeginCharPos()) + "-" + std::to_string(node.getEndCharPos());
}

/// The phrases as letters for their kind, in lower case with NOT, and the number of statements.
std::string show(ExceptionHandler *handler) {
  char kind = " XESIOP"[int(handler->getType())];
  return std::string(1, handler->isNotOn() ? llvm::toLower(kind) : kind) +
         std::to_string(handler->getImperStmtListSize());
}

template <typename Element> std::string show(const std::list<Element *> &elements) {
  std::string text;
  for (Element *element : elements)
    text += (text.empty() ? "" : " ") + show(element);
  return text;
}

//===----------------------------------------------------------------------===//
// Arithmetic
//===----------------------------------------------------------------------===//

TEST(StatementParseTest, FormatsOfAdd) {
  auto *add = parseOne<AddStatement>("ADD A -1, B OF G TO C ROUNDED D T (1) 5");
  EXPECT_EQ(add->getType(), AddStmtType::To);
  EXPECT_EQ(show(add->getOperandListElements()), "A -1 B OF G");
  EXPECT_EQ(show(add->getToListElements()), "C~ D T() 5");

  add = parseOne<AddStatement>("ADD A TO B GIVING C ROUNDED D");
  EXPECT_EQ(add->getType(), AddStmtType::Giving);
  EXPECT_EQ(show(add->getToOperand()), "B");
  EXPECT_EQ(show(add->getGivingListElements()), "C~ D");
  EXPECT_EQ(add->getToListSize(), 0u);

  add = parseOne<AddStatement>("ADD A B GIVING C");
  EXPECT_EQ(show(add->getOperandListElements()), "A B");
  EXPECT_EQ(add->getToOperand(), nullptr);

  add = parseOne<AddStatement>("ADD CORR G TO H ROUNDED");
  EXPECT_EQ(add->getType(), AddStmtType::Corresponding);
  EXPECT_EQ(show(add->getCorrespondingExpr()) + " " + show(add->getToRoundExpr()), "G H~");
}

TEST(StatementParseTest, FormatsOfSubtractAndMultiply) {
  auto *subtract = parseOne<SubtractStatement>("SUBTRACT A 2 FROM B GIVING C");
  EXPECT_EQ(subtract->getType(), SubtractStmtType::Giving);
  EXPECT_EQ(show(subtract->getFromExpr()), "B");
  subtract = parseOne<SubtractStatement>("SUBTRACT CORRESPONDING G FROM H");
  EXPECT_EQ(subtract->getType(), SubtractStmtType::Corresponding);
  EXPECT_EQ(show(subtract->getCorrExpr()) + " " + show(subtract->getFromRoundExpr()), "G H");
  subtract = parseOne<SubtractStatement>("SUBTRACT A FROM B C ROUNDED");
  EXPECT_EQ(show(subtract->getFromListElements()), "B C~");

  auto *multiply = parseOne<MultiplyStatement>("MULTIPLY A BY B C ROUNDED");
  EXPECT_EQ(multiply->getType(), MultiplyStmtType::By);
  EXPECT_EQ(show(multiply->getByListElements()), "B C~");
  multiply = parseOne<MultiplyStatement>("MULTIPLY 2 BY 3 GIVING C");
  EXPECT_EQ(multiply->getType(), MultiplyStmtType::Giving);
  EXPECT_EQ(show(multiply->getOperand()) + show(multiply->getByOperand()), "23");
}

TEST(StatementParseTest, FormatsOfDivide) {
  auto show5 = [](llvm::StringRef text) {
    auto *divide = parseOne<DivideStatement>(text);
    return std::to_string(int(divide->getType())) + " " + show(divide->getOperand()) + " " +
           show(divide->getIntoExpr()) + " " + show(divide->getByExpr()) + " [" +
           show(divide->getToListElements()) + "] [" + show(divide->getGivingListElements()) +
           "] " + show(divide->getRemainderExpr());
  };
  EXPECT_EQ(show5("DIVIDE A INTO B ROUNDED C"), "1 A - - [B~ C] [] -");
  EXPECT_EQ(show5("DIVIDE A INTO 9 GIVING B C ROUNDED"), "2 A 9 - [] [B C~] -");
  EXPECT_EQ(show5("DIVIDE A BY B GIVING C D"), "3 A - B [] [C D] -");
  EXPECT_EQ(show5("DIVIDE A INTO B GIVING C ROUNDED REMAINDER D"), "4 A B - [] [C~] D");
  EXPECT_EQ(show5("DIVIDE A BY B GIVING C REMAINDER D (1) END-DIVIDE"), "5 A - B [] [C] D()");
}

TEST(StatementParseTest, PhrasesAndPlacesOfArithmetic) {
  auto *compute = parseOne<ComputeStatement>(
      "COMPUTE A ROUNDED B = C + 1 NOT SIZE ERROR CONTINUE ON SIZE ERROR MOVE 1 TO D CONTINUE "
      "END-COMPUTE");
  EXPECT_EQ(show(compute->getOperandListElements()), "A~ B");
  EXPECT_TRUE(isa<ArithmeticExpression>(compute->getArithmeticExpression()));
  EXPECT_EQ(show(compute->getSizeErrorHandlerElements()), "s1 S2");
  EXPECT_EQ(columns(*compute), "1-98");
  EXPECT_EQ(columns(*parseOne<ComputeStatement>("COMPUTE A EQUAL B")), "1-17");
  EXPECT_EQ(columns(*parseOne<AddStatement>("ADD 1 TO A (2)")), "1-14");

  // Without END-ADD the statement goes on to the period, and the inner one keeps its phrase.
  auto *add = parseOne<AddStatement>("ADD 1 TO A SIZE ERROR ADD 1 TO B NOT SIZE ERROR CONTINUE");
  EXPECT_EQ(show(add->getSizeErrorHandlerElements()), "S1");
}

TEST(StatementParseTest, WrongArithmetic) {
  EXPECT_EQ(messageOf("ADD 1"), "4:6 TO or GIVING is expected here, but a period was found");
  EXPECT_EQ(messageOf("ADD A TO B C GIVING D"), "4:12 with GIVING only one operand may stand here");
  EXPECT_EQ(messageOf("SUBTRACT A FROM B ROUNDED GIVING D"),
            "4:19 ROUNDED belongs to the results after GIVING");
  EXPECT_EQ(messageOf("DIVIDE A BY B"), "4:14 GIVING is expected here, but a period was found");
  EXPECT_EQ(messageOf("DIVIDE A INTO B GIVING C D REMAINDER E"),
            "4:28 REMAINDER goes with exactly one quotient after GIVING");
  EXPECT_EQ(messageOf("DIVIDE A INTO B REMAINDER E"),
            "4:17 REMAINDER goes with exactly one quotient after GIVING");
  EXPECT_EQ(messageOf("COMPUTE A B"), "4:12 '=' is expected here, but a period was found");
  // What is left over hides no phrase of the statement from it.
  EXPECT_EQ(messageOf("READ F INTO A B AT END CONTINUE NOT AT END CONTINUE END-READ"),
            "4:15 a statement cannot begin with 'B'");
  EXPECT_EQ(messageOf("ADD 1 TO A = B ON SIZE ERROR CONTINUE END-ADD"),
            "4:12 a statement is expected here, but '=' was found");
  // The statement is left out with its phrase; the one behind it is there.
  Parsed parsed("ADD 1 ON SIZE ERROR CONTINUE END-ADD MOVE A TO B.");
  ASSERT_EQ(parsed.statements.size(), 1u);
  EXPECT_TRUE(isa<MoveStatement>(parsed.statements.front()));
}

//===----------------------------------------------------------------------===//
// Data
//===----------------------------------------------------------------------===//

TEST(StatementParseTest, AcceptFrom) {
  auto from = [](llvm::StringRef text) {
    auto *accept = parseOne<AcceptStatement>(text);
    AcceptFrom *phrase = accept->getFromType();
    return phrase ? std::to_string(int(phrase->getType())) + show(phrase->getFromName()) : "-";
  };
  EXPECT_EQ(from("ACCEPT A"), "-");
  EXPECT_EQ(from("ACCEPT A FROM SYSIN"), "1SYSIN");
  EXPECT_EQ(from("ACCEPT A FROM DATE"), "2-");
  EXPECT_EQ(from("ACCEPT A FROM DATE YYYYMMDD"), "3-");
  EXPECT_EQ(from("ACCEPT A FROM DAY"), "4-");
  EXPECT_EQ(from("ACCEPT A FROM DAY YYYYDDD END-ACCEPT"), "5-");
  EXPECT_EQ(from("ACCEPT A FROM DAY-OF-WEEK"), "6-");
  EXPECT_EQ(from("ACCEPT A FROM TIME"), "7-");
  EXPECT_EQ(messageOf("ACCEPT A FROM 5"),
            "4:15 a mnemonic-name, DATE, DAY, DAY-OF-WEEK or TIME is expected here, but '5' was "
            "found");
}

TEST(StatementParseTest, DisplayAndMove) {
  auto *display = parseOne<DisplayStatement>(
      "DISPLAY 'x' A (1), ALL '*' -5 UPON CONSOLE WITH NO ADVANCING END-DISPLAY");
  EXPECT_EQ(show(display->getIdenLiterListElements()), "'x' A() figurative6 -5");
  EXPECT_EQ(show(display->getUponName()), "CONSOLE");
  EXPECT_TRUE(display->isNoAdvancing());
  display = parseOne<DisplayStatement>("DISPLAY A END-DISPLAY");
  EXPECT_EQ(show(display->getIdenLiterListElements()), "A");

  auto *move = parseOne<MoveStatement>("MOVE CORR A OF B TO C D (1) E OF F");
  EXPECT_TRUE(move->isCorresponding());
  EXPECT_EQ(show(move->getSource()), "A OF B");
  EXPECT_EQ(show(move->getTargetListElements()), "C D() E OF F");
  EXPECT_EQ(messageOf("MOVE A TO"), "4:10 an identifier is expected here, but a period was found");
  EXPECT_EQ(messageOf("MOVE A TO 5"), "4:11 an identifier is expected here, but '5' was found");
  EXPECT_EQ(messageOf("DISPLAY UPON A"),
            "4:9 an identifier or a literal is expected here, but UPON is a reserved word");
}

TEST(StatementParseTest, FormatsOfSet) {
  auto *set = parseOne<SetStatement>(
      "SET I J UP BY 1 K DOWN BY N SW-1 TO ON C-1 C-2 (3) TO TRUE C-3 TO FALSE "
      "ADDRESS OF L P TO NULL Q TO ENTRY 'P' SW-2 TO OFF I TO J");
  std::string all;
  for (SetItem *item : set->getItemListElements()) {
    all += std::to_string(int(item->getType())) + ":" + show(item->getSetListElements());
    for (Condition *condition : item->getCondListElements())
      all += "?" + show(cast<ConditionNameCondition>(condition)->getConditionName());
    all += "=" + std::to_string(int(item->getToValue()->getType())) +
           show(item->getToValue()->getToExpr()) + "\n";
  }
  EXPECT_EQ(all, "2:I J=11\n3:K=1N\n4:SW-1=2-\n5:?C-1?C-2()=4-\n5:?C-3=7-\n"
                 "1:special1 L P=5-\n1:Q=6'P'\n4:SW-2=3-\n1:I=1J\n");
  EXPECT_EQ(columns(*set->getItemListElements().front()), "5-15");
  EXPECT_EQ(messageOf("SET A B"),
            "4:8 TO, UP BY or DOWN BY is expected here, but a period was found");
  EXPECT_EQ(messageOf("SET C ADDRESS OF B TO TRUE"),
            "4:7 only a condition-name can be set to TRUE or FALSE");
}

TEST(StatementParseTest, PhrasesOfInitialize) {
  auto *initialize = parseOne<InitializeStatement>(
      "INITIALIZE A B (1) WITH FILLER NUMERIC ALPHABETIC TO VALUE THEN REPLACING "
      "NUMERIC DATA BY 1 ALPHANUMERIC-EDITED BY A EGCS DATA BY B THEN TO DEFAULT");
  EXPECT_EQ(show(initialize->getIdentifierListElements()), "A B()");
  EXPECT_TRUE(initialize->isFiller());
  EXPECT_TRUE(initialize->hasValueCategory(InitializeReplacingType::Numeric));
  EXPECT_TRUE(initialize->hasValueCategory(InitializeReplacingType::Alphabetic));
  EXPECT_FALSE(initialize->hasValueCategory(InitializeReplacingType::National));
  EXPECT_TRUE(initialize->isToDefault());
  std::string replacing;
  for (InitializeReplacingItem *item : initialize->getReplacingListElements())
    replacing += std::to_string(int(item->getType())) + show(item->getByExpr()) + " ";
  EXPECT_EQ(replacing, "31 4A 8B ");

  initialize = parseOne<InitializeStatement>("INITIALIZE A ALL VALUE REPLACING NATIONAL BY 'x'");
  EXPECT_TRUE(initialize->isAllToValue());
  EXPECT_EQ(initialize->getReplacingListSize(), 1u);
  EXPECT_TRUE(parseOne<InitializeStatement>("INITIALIZE A TO DEFAULT")->isToDefault());
  EXPECT_EQ(messageOf("INITIALIZE A THEN REPLACING INDEX BY 1"),
            "4:29 a category of data is expected here, but 'INDEX' was found");
  EXPECT_EQ(messageOf("INITIALIZE A NUMERIC BY 1"),
            "4:22 VALUE is expected here, but 'BY' was found");
}

//===----------------------------------------------------------------------===//
// Strings
//===----------------------------------------------------------------------===//

TEST(StatementParseTest, StringAndUnstring) {
  auto *string = parseOne<StringStatement>(
      "STRING A 'x' DELIMITED SIZE SPACE B (1) DELIMITED BY '/' C INTO D WITH POINTER P "
      "NOT OVERFLOW CONTINUE OVERFLOW CONTINUE END-STRING");
  std::string items;
  for (StringItem *item : string->getItemListElements())
    items += show(item->getStringNameListElements()) + ":" + std::to_string(int(item->getType())) +
             show(item->getDelimitedName()) + " ";
  EXPECT_EQ(items, "A 'x':1- figurative2 B():2'/' C:0- ");
  EXPECT_EQ(show(string->getIntoIdentifier()) + show(string->getWithPointerIdentifier()), "DP");
  EXPECT_EQ(show(string->getOverflowHandlerElements()), "o1 O1");

  auto *unstring = parseOne<UnstringStatement>(
      "UNSTRING A DELIMITED BY ALL SPACE OR '/' OR ALL B INTO C DELIMITER IN D COUNT E F COUNT IN "
      "G H POINTER P TALLYING IN T ON OVERFLOW CONTINUE");
  std::string delimiters, targets;
  for (UnstringDelimitedItem *item : unstring->getDelimiterListElements())
    delimiters += (item->isAll() ? "*" : "") + show(item->getDelimiter()) + " ";
  for (UnstringIntoItem *item : unstring->getIntoListElements())
    targets += show(item->getTargetIdentifier()) + "," + show(item->getDelimiter()) + "," +
               show(item->getCountIdentifier()) + " ";
  EXPECT_EQ(delimiters, "*figurative2 '/' *B ");
  EXPECT_EQ(targets, "C,D,E F,-,G H,-,- ");
  EXPECT_EQ(show(unstring->getWithPointerId()) + show(unstring->getTallyingId()), "PT");
  EXPECT_EQ(columns(*unstring->getIntoListElements().front()), "56-79");

  EXPECT_EQ(messageOf("STRING A DELIMITED INTO B"),
            "4:20 an identifier, a literal or SIZE is expected here, but INTO is a reserved word");
  EXPECT_EQ(messageOf("UNSTRING A DELIMITED '/' B"),
            "4:26 INTO is expected here, but 'B' was found");
}

/// An INSPECT in short: what each phrase looks for, and its regions.
std::string showInspect(llvm::StringRef text) {
  auto *inspect = parseOne<InspectStatement>(text);
  std::string all = show(inspect->getIdentifier());
  for (TallyingItem *item : inspect->getTallyingListElements()) {
    all += "\n" + show(item->getIdentifier());
    for (TallyingItemFor *tallied : item->getTallyingForListElements()) {
      all += " " + std::to_string(int(tallied->getType())) +
             show(tallied->getInspectRegionListElements());
      for (TallyingRegion *region : tallied->getTallyingRegionListElements())
        all += "{" + show(region->getExpr()) + show(region->getRegionPhraseListElements()) + "}";
    }
  }
  for (ReplacingItem *item : inspect->getReplacingListElements()) {
    all += "\n" + std::to_string(int(item->getType())) + show(item->getExpr()) +
           show(item->getInspectRegionListElements());
    for (ReplacingRegion *region : item->getReplacingRegionListElements())
      all += "{" + show(region->getExpr()) + "=" + show(region->getByExpr()) +
             show(region->getRegionListElements()) + "}";
  }
  if (ConvertingItem *item = inspect->getConverting())
    all += "\n" + show(item->getExpr()) + "=" + show(item->getToExpr()) +
           show(item->getRegionListElements());
  return all;
}

TEST(StatementParseTest, FormatsOfInspect) {
  // An operand with FOR behind it is the counter of the next item, not one more to be counted.
  EXPECT_EQ(showInspect("INSPECT A TALLYING N FOR CHARACTERS BEFORE 'x' ALL 'a' AFTER INITIAL 'b' "
                        "BEFORE 'c' B LEADING SPACE M OF G (I (1) 2) FOR ALL 'd' 'e' TALLY FOR "
                        "CHARACTERS REPLACING CHARACTERS BY 'x' AFTER 'y' FIRST 'f' BY 'g' B BY "
                        "ALL 'h' ALL 'i' BY SPACE"),
            "A\nN 1<'x' 2{'a'>'b' <'c'}{B} 3{figurative2}\nM OF G() 2{'d'}{'e'}\nTALLY 1"
            "\n1'x'>'y'\n4-{'f'='g'}{B=figurative6}\n2-{'i'=figurative2}");
  EXPECT_EQ(showInspect("INSPECT A CONVERTING 'ab' TO B BEFORE C"), "A\n'ab'=B<C");
  EXPECT_EQ(showInspect("INSPECT A (1) REPLACING LEADING 'a' BY 'b' 'c' BY 'd'"),
            "A()\n3-{'a'='b'}{'c'='d'}");

  auto *inspect = parseOne<InspectStatement>("INSPECT A TALLYING N FOR ALL 'a' M FOR ALL 'b'");
  EXPECT_EQ(columns(*inspect->getTallyingListElements().front()), "20-32");
}

TEST(StatementParseTest, WrongInspect) {
  EXPECT_EQ(messageOf("INSPECT A"),
            "4:10 TALLYING, REPLACING or CONVERTING is expected here, but a period was found");
  EXPECT_EQ(messageOf("INSPECT A TALLYING N FOR FIRST 'a'"),
            "4:26 CHARACTERS, ALL or LEADING is expected here, but 'FIRST' was found");
  EXPECT_EQ(messageOf("INSPECT A CONVERTING 'a' TO 'b' AFTER 'c' AFTER 'd'"),
            "4:43 the phrase AFTER is written twice");
  EXPECT_EQ(messageOf("INSPECT A CONVERTING 'a' TO 'b' AFTER 'c' BEFORE 'd' AFTER 'e'"),
            "4:54 the phrase AFTER is written twice");
  EXPECT_EQ(messageOf("INSPECT A REPLACING ALL 'a' 'b'"),
            "4:29 BY is expected here, but ''b'' was found");
}

TEST(StatementParseTest, StatementsOfOsvs) {
  auto *transform =
      parseOne<TransformStatement>("TRANSFORM A CHARACTERS FROM 'ab' TO SPACES", true);
  EXPECT_EQ(show(transform->getTransformExpr()) + show(transform->getFromExpr()) +
                show(transform->getToExpr()),
            "A'ab'figurative2");

  auto examine = [](llvm::StringRef text) {
    auto *statement = parseOne<ExamineStatement>(text, true);
    return std::to_string(int(statement->getExamType())) +
           std::to_string(int(statement->getOptionType())) + show(statement->getOptExpr()) +
           show(statement->getByExpr());
  };
  EXPECT_EQ(examine("EXAMINE A TALLYING UNTIL FIRST 'a'"), "14'a'-");
  EXPECT_EQ(examine("EXAMINE A TALLYING ALL 'a' REPLACING BY 'b'"), "31'a''b'");
  EXPECT_EQ(examine("EXAMINE A REPLACING FIRST 'a' BY ZERO"), "23'a'figurative1");
  EXPECT_EQ(examine("EXAMINE A REPLACING UNTIL FIRST 'a' BY 'b'"), "24'a''b'");
  EXPECT_EQ(messageOf("EXAMINE A TALLYING FIRST 'a'", true),
            "4:20 ALL, LEADING or UNTIL FIRST is expected here, but 'FIRST' was found");

  auto *exhibit = parseOne<ExhibitStatement>("EXHIBIT CHANGED NAMED A 'x' B UPON SYSOUT", true);
  EXPECT_EQ(exhibit->getExhibitType(), ExhibitType::ChangedNamed);
  EXPECT_EQ(show(exhibit->getExhibitExprListElements()), "A 'x' B");
  EXPECT_EQ(show(exhibit->getUponName()), "SYSOUT");
  EXPECT_EQ(parseOne<ExhibitStatement>("EXHIBIT CHANGED A", true)->getExhibitType(),
            ExhibitType::Changed);

  auto *write = parseOne<WriteStatement>("WRITE R AFTER POSITIONING N LINES", true);
  EXPECT_EQ(show(write->getPositioning()->getLineExpr()), "N");
  // Without the option these are no verbs.
  EXPECT_NE(Parsed("EXAMINE A TALLYING ALL 'a'.").messages(), "");
}

//===----------------------------------------------------------------------===//
// Input-output
//===----------------------------------------------------------------------===//

TEST(StatementParseTest, OpenAndClose) {
  auto *open = parseOne<OpenStatement>(
      "OPEN INPUT A REVERSED B WITH NO REWIND OUTPUT C NO REWIND D I-O E EXTEND F INPUT G");
  std::string opened;
  for (OpenItem *item : open->getItemListElements()) {
    opened += std::to_string(int(item->getType()));
    for (OpenFile *file : item->getFileListElements())
      opened += " " + show(file->getFileName()) + std::to_string(int(file->getOption()));
    opened += ", ";
  }
  EXPECT_EQ(opened, "1 A1 B2, 2 C2 D0, 3 E0, 4 F0, 1 G0, ");
  EXPECT_EQ(columns(*open->getItemListElements().front()), "6-38");

  auto *close = parseOne<CloseStatement>(
      "CLOSE A B NO REWIND C WITH LOCK D REEL E UNIT FOR REMOVAL F REEL REMOVAL "
      "G UNIT WITH NO REWIND H LOCK");
  std::string closed;
  for (CloseFile *file : close->getCloseFileListElements())
    closed += show(file->getFileName()) + std::to_string(int(file->getOption())) + " ";
  EXPECT_EQ(closed, "A0 B1 C2 D3 E4 F4 G5 H2 ");

  parseOne<OpenStatement>("OPEN INPUT A LEAVE B WITH NO REWIND REREAD OUTPUT C DISP", true);
  parseOne<CloseStatement>("CLOSE A WITH POSITIONING B UNIT DISP", true);
  EXPECT_EQ(messageOf("OPEN A"),
            "4:6 INPUT, OUTPUT, I-O or EXTEND is expected here, but 'A' was found");
  EXPECT_EQ(messageOf("OPEN INPUT A WITH LOCK"), "4:19 NO is expected here, but 'LOCK' was found");
  EXPECT_EQ(messageOf("CLOSE A WITH REEL"),
            "4:14 NO REWIND or LOCK is expected here, but 'REEL' was found");
}

TEST(StatementParseTest, ReadAndStart) {
  auto *read = parseOne<ReadStatement>(
      "READ F NEXT RECORD INTO A (1) KEY IS K OF R NOT AT END CONTINUE AT END CONTINUE CONTINUE "
      "INVALID KEY CONTINUE NOT INVALID CONTINUE END-READ");
  EXPECT_TRUE(read->isNextRecord());
  EXPECT_EQ(show(read->getIntoIdentifier()) + show(read->getKeyName()), "A()K OF R");
  EXPECT_EQ(show(read->getErrorListElements()), "e1 E2 I1 i1");
  EXPECT_EQ(show(parseOne<ReadStatement>("READ F END CONTINUE")->getErrorListElements()), "E1");

  auto relation = [](llvm::StringRef words) {
    auto *start = parseOne<StartStatement>(("START F KEY " + words + " K OF R").str());
    EXPECT_EQ(show(start->getKey()->getDataName()), "K OF R");
    return start->getKey()->getRelation();
  };
  EXPECT_EQ(relation("="), RelationalConditionType::Equal);
  EXPECT_EQ(relation("IS EQUAL TO"), RelationalConditionType::Equal);
  EXPECT_EQ(relation("GREATER THAN"), RelationalConditionType::Greater);
  EXPECT_EQ(relation("IS >"), RelationalConditionType::Greater);
  EXPECT_EQ(relation("IS NOT LESS THAN"), RelationalConditionType::NotLess);
  EXPECT_EQ(relation("NOT <"), RelationalConditionType::NotLess);
  EXPECT_EQ(relation("GREATER THAN OR EQUAL TO"), RelationalConditionType::GreaterOrEqual);
  EXPECT_EQ(relation(">="), RelationalConditionType::GreaterOrEqual);
  auto *start = parseOne<StartStatement>("START F NOT INVALID KEY CONTINUE END-START");
  EXPECT_EQ(start->getKey(), nullptr);
  EXPECT_EQ(show(start->getInvalidKeyHandlerElements()), "i1");
  EXPECT_EQ(messageOf("START F KEY IS LESS THAN K"),
            "4:16 EQUAL, GREATER, NOT LESS or GREATER OR EQUAL is expected here, but 'LESS' was "
            "found");
  EXPECT_EQ(messageOf("READ F INTO 'x'"),
            "4:13 an identifier is expected here, but ''x'' was found");
}

TEST(StatementParseTest, WriteAndItsKin) {
  auto *write = parseOne<WriteStatement>(
      "WRITE R OF F FROM A BEFORE ADVANCING 2 LINES AT EOP CONTINUE NOT END-OF-PAGE CONTINUE "
      "INVALID CONTINUE END-WRITE");
  EXPECT_EQ(show(write->getRecordName()) + show(write->getFromIdentifier()), "R OF FA");
  EXPECT_EQ(write->getAdvancing()->getType(), WriteAdvType::Lines);
  EXPECT_TRUE(write->getAdvancing()->isBefore());
  EXPECT_EQ(columns(*write->getAdvancing()), "21-44");
  EXPECT_EQ(show(write->getExceptionHandlerListElements()), "P1 p1 I1");
  auto advancing = [](llvm::StringRef text) {
    WriteAdvancing *phrase = parseOne<WriteStatement>(text)->getAdvancing();
    return std::to_string(int(phrase->getType())) + show(phrase->getValue());
  };
  EXPECT_EQ(advancing("WRITE R AFTER PAGE"), "2-");
  EXPECT_EQ(advancing("WRITE R AFTER ADVANCING C01"), "1C01");
  EXPECT_EQ(advancing("WRITE R AFTER N (1) LINE"), "1N()");
  EXPECT_EQ(advancing("WRITE R AFTER ADVANCING ZERO LINES"), "1figurative1");
  EXPECT_EQ(messageOf("WRITE R AFTER ADVANCING"),
            "4:24 a number of lines, a mnemonic-name or PAGE is expected here, but a period was "
            "found");

  auto *rewrite = parseOne<RewriteStatement>("REWRITE R FROM A INVALID KEY CONTINUE END-REWRITE");
  EXPECT_EQ(show(rewrite->getFromIdentifier()), "A");
  EXPECT_EQ(show(rewrite->getInvalidKeyHandlerElements()), "I1");
  auto *erase = parseOne<DeleteStatement>("DELETE F RECORD INVALID CONTINUE END-DELETE");
  EXPECT_EQ(show(erase->getFileName()) + show(erase->getInvalidKeyHandlerElements()), "FI1");
  auto *back =
      parseOne<ReturnStatement>("RETURN F INTO A AT END CONTINUE NOT AT END CONTINUE END-RETURN");
  EXPECT_EQ(show(back->getIntoIdentifier()) + show(back->getEndHandlerElements()), "AE1 e1");
  EXPECT_EQ(messageOf("RETURN F RECORD"), "4:16 AT END is expected here, but a period was found");
  EXPECT_EQ(show(parseOne<ReleaseStatement>("RELEASE R FROM A")->getFromIdentifier()), "A");
}

TEST(StatementParseTest, SortAndMerge) {
  auto show2 = [](SortIO *io) {
    return std::to_string(int(io->getType())) + show(io->getFileNameListElements()) + " " +
           show(io->getFromProcedureName()) + " " + show(io->getToProcedureName());
  };
  auto *sort = parseOne<SortStatement>(
      "SORT F ON ASCENDING KEY A OF R B DESCENDING C ON ASCENDING D WITH DUPLICATES IN ORDER "
      "COLLATING SEQUENCE IS X INPUT PROCEDURE IS P-1 OF S THRU P-2 OUTPUT PROCEDURE 100");
  std::string keys;
  for (SortKey *key : sort->getKeyListElements())
    keys += std::to_string(int(key->getOrder())) + show(key->getKeyNameListElements()) + ", ";
  EXPECT_EQ(keys, "1A OF R B, 2C, 1D, ");
  EXPECT_TRUE(sort->isDuplicates());
  EXPECT_EQ(show(sort->getSeqAlphaName()), "X");
  EXPECT_EQ(show2(sort->getInput()), "2 P-1 OF S P-2");
  EXPECT_EQ(show2(sort->getOutput()), "2 100 -");
  sort = parseOne<SortStatement>("SORT F DESCENDING A SEQUENCE X USING G H GIVING I J");
  EXPECT_EQ(show2(sort->getInput()) + show2(sort->getOutput()), "1G H - -1I J - -");

  auto *merge =
      parseOne<MergeStatement>("MERGE F ASCENDING KEY A USING G H OUTPUT PROCEDURE IS P THROUGH Q");
  EXPECT_EQ(show2(merge->getInput()) + show2(merge->getOutput()), "1G H - -2 P Q");

  EXPECT_EQ(messageOf("SORT F USING G GIVING H"),
            "4:8 ASCENDING or DESCENDING is expected here, but 'USING' was found");
  EXPECT_EQ(messageOf("SORT F ASCENDING A USING G"),
            "4:27 GIVING or OUTPUT PROCEDURE is expected here, but a period was found");
  EXPECT_EQ(messageOf("MERGE F ASCENDING A USING G GIVING H"),
            "4:29 the second file of the merge is expected here, but 'GIVING' was found");
  // A table has neither input nor output; only a file lacks them by mistake.
  const std::string table = "4:6 the SORT of a table is not supported, only that of a file";
  EXPECT_EQ(messageOf("SORT T OF G ASCENDING A"), table);
  EXPECT_EQ(messageOf("SORT T DESCENDING A"), table);
  EXPECT_EQ(Parsed("SORT F ASCENDING A.", false,
                   "ENVIRONMENT DIVISION. INPUT-OUTPUT SECTION. FILE-CONTROL. SELECT F ASSIGN F.")
                .messages(),
            "4:19 USING or INPUT PROCEDURE is expected here, but a period was found\n");
}

//===----------------------------------------------------------------------===//
// XML and reports
//===----------------------------------------------------------------------===//

TEST(StatementParseTest, XmlGenerate) {
  auto *generate = parseOne<XMLGenerateStatement>(
      "XML GENERATE D FROM S COUNT IN C WITH ENCODING 1208 WITH XML-DECLARATION ATTRIBUTES "
      "NAMESPACE IS 'u' NAMESPACE-PREFIX 'p' NAME OF A IS 'a' B OF S 'b' TYPE A IS ATTRIBUTE "
      "B ELEMENT C IS CONTENT SUPPRESS A WHEN ZERO OR SPACE LOW-VALUES B EVERY NONNUMERIC CONTENT "
      "WHEN SPACES EVERY NUMERIC WHEN ZERO NOT ON EXCEPTION CONTINUE EXCEPTION CONTINUE END-XML");
  EXPECT_EQ(show(generate->getGenIdent()) + show(generate->getFromIdent()) +
                show(generate->getCountIdent()) + show(generate->getCodePage()),
            "DSC1208");
  EXPECT_TRUE(generate->isXmlDeclaration());
  EXPECT_TRUE(generate->isAttributes());
  EXPECT_EQ(show(generate->getNameSpaceExpr()) + show(generate->getPrefixExpr()), "'u''p'");
  std::string names, types, suppressed;
  for (XMLNameItem *item : generate->getNameItemListElements())
    names += show(item->getIdentifier()) + show(item->getLiteral()) + " ";
  for (XMLTypeItem *item : generate->getTypeItemListElements())
    types += show(item->getIdentifier()) + std::to_string(int(item->getType())) + " ";
  for (XMLSuppressItem *item : generate->getSuppressItemListElements())
    suppressed += show(item->getIdentifier()) + std::to_string(int(item->getSuppressClass())) +
                  std::to_string(int(item->getType())) + ":" +
                  std::to_string(item->getValueListSize()) + " ";
  EXPECT_EQ(names, "A'a' B OF S'b' ");
  EXPECT_EQ(types, "A1 B2 C3 ");
  EXPECT_EQ(suppressed, "A00:3 B00:0 -23:1 -10:1 ");
  EXPECT_EQ(show(generate->getOnExcpHandlerElements()), "x1 X1");

  // SUPPRESS without names or EVERY speaks of all items.
  generate = parseOne<XMLGenerateStatement>("XML GENERATE D FROM S SUPPRESS WHEN SPACE");
  EXPECT_EQ(generate->getSuppressItemListElements().front()->getIdentifier(), nullptr);
  EXPECT_EQ(messageOf("XML GENERATE D FROM S SUPPRESS EVERY ELEMENT"),
            "4:45 WHEN is expected here, but a period was found");
  EXPECT_EQ(messageOf("XML GENERATE D FROM S TYPE OF A IS NUMERIC"),
            "4:36 ATTRIBUTE, ELEMENT or CONTENT is expected here, but 'NUMERIC' was found");
}

TEST(StatementParseTest, XmlParse) {
  auto *parse = parseOne<XMLParseStatement>(
      "XML PARSE D ENCODING N RETURNING NATIONAL VALIDATING WITH FILE S PROCESSING PROCEDURE IS P "
      "OF Q THRU R ON EXCEPTION CONTINUE END-XML");
  EXPECT_EQ(show(parse->getParseIdent()) + show(parse->getCodePage()), "DN");
  EXPECT_TRUE(parse->isReturningNational());
  EXPECT_EQ(show(parse->getFileName()), "S");
  EXPECT_EQ(show(parse->getParseProcedure()) + show(parse->getThruProcedure()), "P OF QR");
  EXPECT_EQ(show(parse->getOnExcpHandlerElements()), "X1");
  parse = parseOne<XMLParseStatement>("XML PARSE D VALIDATING S PROCESSING PROCEDURE P");
  EXPECT_EQ(show(parse->getValidatingIdent()), "S");
  EXPECT_EQ(messageOf("XML PARSE D"), "4:12 PROCESSING is expected here, but a period was found");
  EXPECT_EQ(messageOf("XML CHECK D"),
            "4:5 GENERATE or PARSE is expected here, but 'CHECK' was found");
}

TEST(StatementParseTest, ReportWriter) {
  auto *initiate = parseOne<RwInitiateStatement>("INITIATE R-1, R-2");
  EXPECT_EQ(show(initiate->getInitiateNameListElements()), "R-1 R-2");
  auto *terminate = parseOne<RwTerminateStatement>("TERMINATE R-1 R-2");
  EXPECT_EQ(terminate->getTerminateNameListSize(), 2u);
  // A name alone is looked up later; with a qualifier it can only be a group.
  EXPECT_TRUE(isa<ReportIdentifierExpression>(
      parseOne<RwGenerateStatement>("GENERATE R-1")->getFileName()));
  EXPECT_EQ(show(parseOne<RwGenerateStatement>("GENERATE D OF R-1")->getFileName()), "D OF R-1");
  EXPECT_EQ(columns(*parseOne<RwSuppressStatement>("SUPPRESS PRINTING")), "1-17");
}

} // namespace
