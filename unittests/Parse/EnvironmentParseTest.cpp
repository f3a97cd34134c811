//===- EnvironmentParseTest.cpp - environment division into the tree ------===//

#include "ParserTest.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {
namespace {

class EnvironmentParseTest : public ParserTest {
protected:
  EnvironmentDivision &parseEnvironment(llvm::StringRef text) {
    return *parse("ENVIRONMENT DIVISION.\n" + text.str())->getEnvironmentDivision();
  }
  ParaSpecialNames &parseNames(llvm::StringRef text) {
    return *parseEnvironment("CONFIGURATION SECTION. SPECIAL-NAMES.\n" + text.str())
                .getConfigurationSection()
                ->getSpecialNames();
  }
  InputOutputSection &parseFiles(llvm::StringRef text) {
    return *parseEnvironment("INPUT-OUTPUT SECTION. FILE-CONTROL.\n" + text.str())
                .getInputOutputSection();
  }

  static std::string textOf(const Word *word) { return word ? word->getWordData() : "-"; }
  static std::string textOf(const DataIdentifierExpression *name) {
    if (!name)
      return "-";
    std::string text;
    for (Word *word : name->getQualifiedWord()->getNamesElements())
      text += (text.empty() ? "" : " OF ") + word->getWordData();
    return text;
  }
};

TEST_F(EnvironmentParseTest, computers) {
  EnvironmentDivision &division = parseEnvironment(R"(CONFIGURATION SECTION.
SOURCE-COMPUTER. IBM-370 WITH DEBUGGING MODE.
OBJECT-COMPUTER. IBM-370
    SEGMENT-LIMIT IS 49
    PROGRAM COLLATING SEQUENCE IS A-ORDER
    MEMORY SIZE 64 CHARACTERS.
)");
  EXPECT_EQ(reported(), "");
  ConfigurationSection &section = *division.getConfigurationSection();
  EXPECT_TRUE(section.getSourceComputer()->isDebuggingMode());
  EXPECT_EQ(section.getSourceComputer()->getComputerName()->getWordData(), "IBM-370");
  ParaObjectComputer &object = *section.getObjectComputer();
  EXPECT_EQ(object.getSegment()->getLimit()->getData(), "49");
  EXPECT_EQ(textOf(object.getSequence()->getSequence()), "A-ORDER");
  EXPECT_EQ(object.getMemSize()->getSize()->getData(), "64");
  EXPECT_EQ(place(object), "5:1-8:29");

  // The names are not needed, nor is the second period.
  parseEnvironment("CONFIGURATION SECTION.\nSOURCE-COMPUTER.\nOBJECT-COMPUTER.\n");
  EXPECT_EQ(reported(), "");
}

TEST_F(EnvironmentParseTest, debuggingModeHoldsFromTheNextLine) {
  parse(R"(ENVIRONMENT DIVISION. CONFIGURATION SECTION.
SOURCE-COMPUTER. X WITH DEBUGGING MODE.
DATA DIVISION. WORKING-STORAGE SECTION.
>>D 01 A PIC X.
01 B PIC X.
)");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(unit->getDataDivision()->getWorkSectionSize(), 2u);
}

TEST_F(EnvironmentParseTest, specialNamesInAnyOrder) {
  ParaSpecialNames &names = parseNames(R"(
    CLASS VOWEL IS "A" "E" "I" THRU "J", SPACE
    CONSOLE IS CRT  C01 TOP-OF-FORM
    UPSI-0 IS SW0 OFF STATUS IS SW0-OFF ON SW0-ON
    UPSI-1 ON STATUS SW1-ON.
    ALPHABET A1 IS STANDARD-1 ALPHABET A2 NATIVE, ALPHABET A3 IS EBCDIC;
    ALPHABET A4 IS "A" THRU "Z", "a" ALSO "b" ALSO 12 200
    A5 IS STANDARD-2  ALPHABET A6 IS KLINGON
    SYMBOLIC CHARACTERS TAB BELL ARE 6 8 NUL IS 1 IN A1
    SYSIN IS CARDS
    SYMBOLIC ESC 28
    CURRENCY SIGN IS "EUR" WITH PICTURE SYMBOL "E" CURRENCY "$".
    DECIMAL-POINT IS COMMA.
)");
  EXPECT_EQ(reported(), "");

  ClauseClass &vowel = *names.getClassListElements().front();
  ASSERT_EQ(vowel.getLiteralListSize(), 4u);
  EXPECT_NE((*std::next(vowel.getLiteralListBegin(), 2))->getThruLiteral(), nullptr);

  std::string environment;
  for (ClauseEnvName *clause : names.getEnvNameListElements())
    environment += textOf(clause->getEnvironmentName()) + " " + textOf(clause->getMnemonicName()) +
                   " " + textOf(clause->getOnCondition()) + " " +
                   textOf(clause->getOffCondition()) + "\n";
  EXPECT_EQ(environment, "CONSOLE CRT - -\nC01 TOP-OF-FORM - -\nUPSI-0 SW0 SW0-ON SW0-OFF\n"
                         "UPSI-1 - SW1-ON -\nSYSIN CARDS - -\n");

  std::vector<AlphabetType> types;
  for (ClauseAlphabet *alphabet : names.getAlphabetListElements())
    types.push_back(alphabet->getType());
  EXPECT_EQ(types, (std::vector<AlphabetType>{AlphabetType::Standard1, AlphabetType::Native,
                                              AlphabetType::Ebcdic, AlphabetType::User,
                                              AlphabetType::Standard2, AlphabetType::Unknown}));
  ClauseAlphabet &own = **std::next(names.getAlphabetListBegin(), 3);
  ASSERT_EQ(own.getAlphaListSize(), 3u);
  EXPECT_EQ((*std::next(own.getAlphaListBegin()))->getAlsoListSize(), 2u);

  ASSERT_EQ(names.getSymbolicListSize(), 2u);
  ClauseSymbolic &symbolic = *names.getSymbolicListElements().front();
  ASSERT_EQ(symbolic.getSymbolicListSize(), 2u);
  EXPECT_EQ(symbolic.getSymbolicListElements().front()->getSourceListSize(), 2u);
  EXPECT_EQ(symbolic.getSymbolicListElements().front()->getIntegerListSize(), 2u);
  EXPECT_EQ(textOf(symbolic.getAlphabetName()), "A1");

  ASSERT_EQ(names.getCurrencyListSize(), 2u);
  EXPECT_NE(names.getCurrencyListElements().front()->getSymbolLiteral(), nullptr);
  EXPECT_EQ(names.getCurrencyListElements().back()->getSymbolLiteral(), nullptr);
  EXPECT_NE(names.getDecimalPoint(), nullptr);
}

TEST_F(EnvironmentParseTest, decimalPointIsCommaInTheDataDivision) {
  parse(R"(ENVIRONMENT DIVISION. CONFIGURATION SECTION. SPECIAL-NAMES. DECIMAL-POINT IS COMMA.
DATA DIVISION. WORKING-STORAGE SECTION.
01 A PIC 9V99 VALUE 1,25.
)");
  EXPECT_EQ(reported(), "");
  DataDescription *entry = unit->getDataDivision()->getWorkSection()->front();
  ClauseValue *value = entry->getValue();
  ASSERT_EQ(value->getPhraseValSize(), 1u);
  auto *literal =
      llvm::cast<NumericLiteralExpression>(value->getPhraseValElements().front()->getLiteral1());
  EXPECT_EQ(literal->getScale(), 2);
}

TEST_F(EnvironmentParseTest, selectEntries) {
  InputOutputSection &section = parseFiles(R"(
    SELECT INFILE ASSIGN TO UT-S-INFILE FILE STATUS IS FS VSAM-STATUS.
    SELECT OPTIONAL IX RESERVE 2 ALTERNATE AREAS ACCESS MODE IS DYNAMIC
        ALTERNATE RECORD KEY IS K2 OF R PASSWORD P2 WITH DUPLICATES
        ALTERNATE KEY K3
        RECORD KEY IS K1 PASSWORD IS P1
        INDEXED ASSIGN "DISK" AS-IX.
    SELECT REL ASSIGN S-SYS010 RELATIVE ACCESS RANDOM RELATIVE KEY IS RK.
    SELECT LINES-FILE ASSIGN TO 2 UT-2400-S-X FOR MULTIPLE REEL
        ORGANIZATION IS LINE SEQUENTIAL RESERVE NO AREAS
        PADDING CHARACTER IS "*" RECORD DELIMITER IS STANDARD-1 PASSWORD PW STATUS S1.
)");
  EXPECT_EQ(reported(), "");
  ASSERT_EQ(section.getFileControlListSize(), 4u);
  auto entry = section.getFileControlListBegin();

  ParaFileControl &first = **entry++;
  EXPECT_EQ(textOf(first.getFileName()), "INFILE");
  EXPECT_EQ(textOf(first.getStatus()->getStatus_1()), "FS");
  EXPECT_EQ(textOf(first.getStatus()->getStatus_2()), "VSAM-STATUS");
  EXPECT_EQ(first.getOrganizationType(), OrganizationType::Sequential);
  EXPECT_EQ(place(first), "5:5-5:69");

  ParaFileControl &indexed = **entry++;
  EXPECT_TRUE(indexed.isOptional());
  EXPECT_EQ(indexed.getOrganizationType(), OrganizationType::Indexed);
  EXPECT_EQ(indexed.getAccess()->getType(), AccessType::Dynamic);
  EXPECT_EQ(indexed.getAssign()->getAssignmentListSize(), 2u);
  EXPECT_EQ(textOf(indexed.getRecordKey()->getPassWord()->getDataName()), "P1");
  EXPECT_EQ(indexed.getPassWord(), nullptr);
  ASSERT_EQ(indexed.getAlternateListSize(), 2u);
  ClauseAlternate &alternate = *indexed.getAlternateListElements().front();
  EXPECT_EQ(textOf(alternate.getDataName()), "K2 OF R");
  EXPECT_EQ(textOf(alternate.getPassWord()->getDataName()), "P2");
  EXPECT_TRUE(alternate.isDuplicates());
  EXPECT_FALSE(indexed.getAlternateListElements().back()->isDuplicates());

  ParaFileControl &relative = **entry++;
  EXPECT_EQ(relative.getOrganizationType(), OrganizationType::Relative);
  EXPECT_EQ(textOf(relative.getRelativeKey()->getDataName()), "RK");

  ParaFileControl &lines = **entry++;
  EXPECT_EQ(lines.getOrganizationType(), OrganizationType::LineSequential);
  EXPECT_EQ(lines.getReserve()->getReserveCount(), nullptr);
  EXPECT_EQ(lines.getAssign()->getAssignmentListSize(), 2u);
  EXPECT_EQ(textOf(lines.getRecordDelimiter()->getName()), "STANDARD-1");
  EXPECT_NE(lines.getPadding(), nullptr);
  EXPECT_NE(lines.getPassWord(), nullptr);
}

TEST_F(EnvironmentParseTest, everyClauseOfIOControlIsAnEntry) {
  InputOutputSection &section = parseFiles(R"(
    SELECT A ASSIGN X.
I-O-CONTROL.
    RERUN ON CKPT EVERY 500 RECORDS OF A
    RERUN ON CKPT EVERY END OF REEL OF A.
    SAME RECORD AREA FOR A B, SAME SORT-MERGE AREA A SAME A B.
    MULTIPLE FILE TAPE CONTAINS A POSITION 1 B
    APPLY WRITE-ONLY ON A
    APPLY CORE-INDEX ON B.
)");
  EXPECT_EQ(reported(), "222@12:5");
  ASSERT_EQ(section.getIOControlListSize(), 7u);
  auto entry = section.getIOControlListBegin();
  EXPECT_EQ((*entry)->getRerun()->getRecordCount()->getData(), "500");
  EXPECT_EQ(textOf((*entry)->getRerun()->getFileName()->getFileName()), "CKPT");
  EXPECT_TRUE((*++entry)->getRerun()->isEndOfReel());
  EXPECT_EQ((*++entry)->getSame()->getType(), SameType::Record);
  EXPECT_EQ((*entry)->getSame()->getFileNameListSize(), 2u);
  EXPECT_EQ((*++entry)->getSame()->getType(), SameType::SortMerge);
  EXPECT_EQ((*++entry)->getSame()->getType(), SameType::None);
  ASSERT_NE((*++entry)->getMultipleFile(), nullptr);
  EXPECT_EQ((*entry)->getMultipleFile()->getMultipleFileListElements().back()->getPosition(),
            nullptr);
  EXPECT_EQ((*++entry)->getApplyWriteOnly()->getFileNameListSize(), 1u);
}

TEST_F(EnvironmentParseTest, oneMessageForEachMistake) {
  parseNames(R"(
    ALFABET A IS NATIVE
    CLASS C IS FOO
    CURRENCY SIGN IS "E" PICTURE SYMBOL
    UPSI-0 IS SW ON STATUS IS IF
    DECIMAL-POINT IS PERIOD
    CONSOLE IS CRT.
    XML-SCHEMA S IS 5
    SYSIN IS CARDS.
)");
  EXPECT_EQ(reported(), "224@5:5 200@6:16 200@8:5 201@8:31 200@9:22 200@11:21");
  EXPECT_EQ(message(0), "'ALFABET' does not begin a clause of SPECIAL-NAMES; was ALPHABET meant?");

  InputOutputSection &section = parseFiles(R"(
    SELECT A ASSIGN TO X ORGANISATION IS INDEXED.
    SELECT B ORGANIZATION IS INDEXED.
    SELECT C ASSIGN TO Y ACCESS MODE IS SOMETIMES RECORD KEY K
    SELECT D ASSIGN TO Z ASSIGN TO Q.
    SELEKT E ASSIGN TO Z.
    SELECT F ASSIGN TO Z GIBBERISH IS 5 6 RELATIVE KEY K.
    SELECT G ASSIGN X ACCESS RANDOM ALTERNAT RECORD KEY K DUPLICATES
      RECORD KEY K
)");
  EXPECT_EQ(reported(),
            "224@5:26 226@6:12 200@7:41 220@8:5 225@8:26 200@9:5 223@10:26 224@11:37 220@12:18");
  EXPECT_EQ(section.getFileControlListSize(), 7u);
  EXPECT_NE(section.getFileControlListElements().back()->getRecordKey(), nullptr);
}

TEST_F(EnvironmentParseTest, headersThatAreMissingOrElsewhere) {
  parseEnvironment("SPECIAL-NAMES. CONSOLE IS CRT.\nFILE-CONTROL. SELECT A ASSIGN X.\n"
                   "CONFIGURATION SECTION\nSPECIAL-NAMES. SYSIN IS CARDS\n"
                   "SCREEN SECTION.\n WHAT. EVER.\n");
  EXPECT_EQ(reported(), "231@3:1 231@4:1 220@6:1 230@6:1 220@7:1 232@7:1");
  EXPECT_EQ(unit->getEnvironmentDivision()
                ->getConfigurationSection()
                ->getSpecialNames()
                ->getEnvNameListSize(),
            2u);

  parse("ENVIRONMENT DIVISION.\nWORKING-STORAGE SECTION.\n01 A PIC X.\n");
  EXPECT_EQ(reported(), "231@3:1");
  EXPECT_EQ(unit->getDataDivision()->getWorkSectionSize(), 1u);

  // A header with a slip in it is still the header.
  parse("ENVIRONMENT DIVISION.\nCONFIGURATION SETCION.\nSPECIAL-NAME.\n CONSOLE IS CRT.\n"
        "INPUT-OUPUT SECTION.\nFILE-CONTROL.\n SELECT A ASSIGN X.\nDAAT DIVISION.\n"
        "FILE.\nFD A.\n01 A1 PIC X.\nWORKNG-STORAGE SECTION.\n01 B PIC X.\n"
        "LINKAGE SECTION.\n");
  EXPECT_EQ(reported(), "200@3:15 233@4:1 233@6:1 233@9:1 200@10:5 233@13:1");
  EXPECT_EQ(unit->getDataDivision()->getWorkSectionSize(), 1u);
  EXPECT_EQ(unit->getDataDivision()->getFileSectionElements().front()->getRecordDescSize(), 1u);
  EXPECT_EQ(unit->getEnvironmentDivision()->getInputOutputSection()->getFileControlListSize(), 1u);
}

} // namespace
} // namespace tarka
