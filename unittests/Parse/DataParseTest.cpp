//===- DataParseTest.cpp - data division into the tree --------------------===//

#include "ParserTest.h"
#include "llvm/ADT/STLExtras.h"

namespace tarka {
namespace {

class DataParseTest : public ParserTest {
protected:
  /// Levels and names of an entry and, in parentheses, of what is below it.
  static std::string outline(const DataDescription &entry) {
    std::string text = llvm::formatv("{0}", entry.getLevelNum());
    if (entry.getDataName())
      text += " " + entry.getDataName()->getWordData();
    std::string below;
    for (DataDescription *child : entry.getChildrenElements())
      below += (below.empty() ? "" : ", ") + outline(*child);
    return below.empty() ? text : text + " (" + below + ")";
  }
  static std::string outline(const std::list<DataDescription *> &records) {
    std::string text;
    for (DataDescription *record : records)
      text += (text.empty() ? "" : "; ") + outline(*record);
    return text;
  }
  /// The outline of working-storage.
  std::string outline() const { return outline(*unit->getDataDivision()->getWorkSection()); }

  DataDescription &find(llvm::StringRef name) {
    return *unit->getDataDivision()->findItemByName(name.str())->front();
  }
  static std::string nameOf(const Expression *expression) {
    std::string text;
    auto *identifier = llvm::cast<DataIdentifierExpression>(expression);
    for (Word *word : identifier->getQualifiedWord()->getNamesElements())
      text += (text.empty() ? "" : " OF ") + word->getWordData();
    return text;
  }
  static std::string numberOf(const Expression *expression) {
    return expression ? llvm::cast<NumericLiteralExpression>(expression)->getData() : "-";
  }
};

//===----------------------------------------------------------------------===//
// Records
//===----------------------------------------------------------------------===//

TEST_F(DataParseTest, levelNumbersMakeTheTree) {
  parseEntries(R"(01 A.
  10 B.
    49 C PIC X.
      88 C1 VALUE "1". 88 C2 VALUE "2".
  5 D PIC X.
  05 FILLER.
    06 PIC X.
  66 R1 RENAMES B THRU D OF A. 66 R2 RENAMES B.
77 E PIC X.
  88 E1 VALUE "1".
01 F PIC X.
)");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(outline(), "1 A (10 B (49 C (88 C1, 88 C2)), 5 D, 5 FILLER (6), 66 R1, 66 R2); "
                       "77 E (88 E1); 1 F");
  EXPECT_EQ(find("C").getRootDesc()->getStorageType(), StorageType::WorkingStorage);
  EXPECT_EQ(nameOf(find("R1").getRenames()->getToData()), "D OF A");
  EXPECT_EQ(find("R2").getRenames()->getToData(), nullptr);
}

TEST_F(DataParseTest, levelsOutOfPlace) {
  // Levels that do not exist are left to the checker.
  parseEntries("00 A.\n 05 B PIC X.\n01 C.\n 50 D PIC X.\n 12345 E PIC X.\n");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(outline(), "0 A (5 B); 1 C (50 D (100 E))");

  parseEntries("05 A PIC X.\n05 B PIC X.\n01 C.\n 05 D PIC X.\n77 E PIC X.\n 05 F PIC X.\n"
               "66 G RENAMES D.\n01 H.\n 05 I PIC X.\n 66 J RENAMES I.\n 05 K PIC X.\n"
               " 05 L PIC X.\n78 M VALUE 1.\n 05 N PIC X.\n");
  EXPECT_EQ(reported(), "250@3:1 250@8:2 253@13:2 221@15:1");
  EXPECT_EQ(outline(), "5 A; 5 B; 1 C (5 D); 77 E; 5 F (66 G); "
                       "1 H (5 I, 66 J, 5 K, 5 L, 5 N)");

  parse("DATA DIVISION.\nWORKING-STORAGE SECTION.\n88 A VALUE 1.\n66 B RENAMES A.\n77 C PIC X.\n"
        "66 D RENAMES C.\n");
  EXPECT_EQ(reported(), "251@4:1 252@5:1 252@7:1");
}

TEST_F(DataParseTest, sectionsInAnyOrder) {
  DataDivision &data = parseData(R"(LINKAGE SECTION.
01 L PIC X.
FILE SECTION.
FD F. 01 FR PIC X. 01 FS PIC X.
SD G. 01 GR PIC X.
LOCAL-STORAGE SECTION.
01 O PIC X.
EXEC SQL DECLARE C CURSOR FOR S END-EXEC.
01 O2 PIC X.
WORKING-STORAGE SECTION.
)");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(outline(data.getLinkSectionElements()), "1 L");
  EXPECT_EQ(outline(data.getLocalSectionElements()), "1 O; 1 O2");
  ASSERT_EQ(data.getFileSectionSize(), 2u);
  FileDescription &file = *data.getFileSectionElements().front();
  EXPECT_EQ(outline(file.getRecordDescElements()), "1 FR; 1 FS");
  EXPECT_EQ(file.getRecordDescElements().back()->getFileDescription(), &file);
  EXPECT_EQ(data.getFileSectionElements().back()->getType(), FileDescType::SortMerge);
  EXPECT_EQ(find("GR").getStorageType(), StorageType::File);
  EXPECT_EQ(find("L").getStorageType(), StorageType::Linkage);
}

TEST_F(DataParseTest, headersThatAreMissingOrElsewhere) {
  DataDivision &data = parseData(R"(FD F.
01 FR PIC X.
WORKING-STORAGE SECTION
01 A PIC X.
RD R.
COMMUNICATION SECTION.
CD C FOR INPUT. 01 C-REC PIC X. FD
INPUT-OUTPUT SECTION.
FILE-CONTROL.
LINKAGE SECTION.
01 B PIC X.
LINKAGE SECTION.
01 C PIC X.
FD.
01 D PIC X.
FILE SECTION.
01 E PIC X.
01 F PIC X.
)");
  EXPECT_EQ(
      reported(),
      "231@3:1 220@6:1 231@7:1 221@8:1 232@10:1 230@14:1 231@16:1 200@16:3 230@18:1 254@19:1");
  EXPECT_EQ(outline(data.getLinkSectionElements()), "1 B; 1 C");
  EXPECT_EQ(data.getFileSectionSize(), 1u);
  EXPECT_EQ(data.getReportSectionSize(), 1u);
}

//===----------------------------------------------------------------------===//
// Clauses
//===----------------------------------------------------------------------===//

TEST_F(DataParseTest, clausesInAnyOrder) {
  DataDescription &entry = parseEntries(R"(01 A VALUE IS -1.5 SIGN IS LEADING SEPARATE CHARACTER
   IS GLOBAL EXTERNAL BLANK WHEN ZEROS JUST RIGHT, SYNC LEFT USAGE IS DISPLAY
   REDEFINES B OF C; DATE FORMAT IS YYxx GROUP-USAGE NATIONAL VOLATILE pic is s9(3)v9.
)");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(entry.getPicture()->getCharStringWord()->getWordData(), "s9(3)v9");
  EXPECT_EQ(entry.getPicture()->getScale(), 1);
  EXPECT_EQ(place(*entry.getPicture()), "5:72-5:85");
  EXPECT_TRUE(entry.getSign()->isLeading());
  EXPECT_TRUE(entry.getSign()->isSeperate());
  EXPECT_EQ(entry.getSynchronized()->getType(), SynchronizedType::Left);
  EXPECT_EQ(entry.getUsage()->getType(), UsageType::Display);
  EXPECT_EQ(nameOf(entry.getRedefines()->getData()), "B OF C");
  EXPECT_EQ(entry.getDateFormat()->getPatten()->getWordData(), "YYxx");
  EXPECT_EQ(numberOf(entry.getValue()->getPhraseValElements().front()->getLiteral1()), "-1.5");
  EXPECT_TRUE(entry.getGlobal() && entry.getExternal() && entry.getBlankZero() &&
              entry.getJustified() && entry.getGroupUsage() && entry.getVolatile());
  EXPECT_EQ(place(entry), "3:1-5:85");
}

TEST_F(DataParseTest, usagesWithAndWithoutTheWord) {
  const std::pair<const char *, UsageType> usages[] = {
      {"BINARY", UsageType::Binary},
      {"COMP", UsageType::Comp},
      {"COMPUTATIONAL", UsageType::Comp},
      {"COMP-1", UsageType::Comp1},
      {"COMPUTATIONAL-2", UsageType::Comp2},
      {"COMP-3", UsageType::Comp3},
      {"COMPUTATIONAL-4", UsageType::Comp4},
      {"COMP-5", UsageType::Comp5},
      {"DISPLAY NATIVE", UsageType::Display},
      {"DISPLAY-1", UsageType::Display1},
      {"INDEX", UsageType::Index},
      {"NATIONAL", UsageType::National},
      {"PACKED-DECIMAL", UsageType::PackedDecimal},
      {"POINTER", UsageType::Pointer},
      {"PROCEDURE-POINTER", UsageType::ProcedurePointer},
      {"FUNCTION-POINTER", UsageType::FunctionPointer},
  };
  for (auto [text, type] : usages)
    for (const char *before : {"USAGE IS ", "USAGE ", ""}) {
      DataDescription &entry = parseEntries("01 A " + std::string(before) + text + ".\n");
      EXPECT_EQ(reported(), "") << text;
      ASSERT_NE(entry.getUsage(), nullptr) << text;
      EXPECT_EQ(entry.getUsage()->getType(), type) << text;
    }
  // What is not supported is told, and the item kept with a usage near to it.
  DataDescription &entry = parseEntries("01 A USAGE OBJECT REFERENCE K.\n01 B POINTER-32.\n"
                                        "01 C PIC X UTF-8 VALUE 'A'.\n");
  EXPECT_EQ(reported(), "221@3:12 221@4:6 221@5:12");
  EXPECT_EQ(entry.getUsage()->getType(), UsageType::Pointer);
  EXPECT_NE(find("C").getValue(), nullptr);
}

TEST_F(DataParseTest, occurs) {
  DataDescription &entry = parseEntries(R"(01 A. 05 B OCCURS 2 TO 50 TIMES DEPENDING ON N OF M
      ASCENDING KEY IS K1 K2 OF A, DESCENDING K3
      INDEXED BY I1, I2.
    05 C OCCURS 10 DEPENDING N PIC X.
    05 D PIC X OCCURS 7.
    05 E PIC X OCCURS TIMES.
    05 F PIC X OCCURS INDEXED I3 DESCENDING K4.
)");
  EXPECT_EQ(reported(), "");
  ClauseOccurs &occurs = *entry.getChildrenElements().front()->getOccurs();
  EXPECT_EQ(numberOf(occurs.getMinExpr()), "2");
  EXPECT_EQ(numberOf(occurs.getMaxExpr()), "50");
  EXPECT_EQ(nameOf(occurs.getOdoName()), "N OF M");
  ASSERT_EQ(occurs.getKeysSize(), 2u);
  EXPECT_EQ(occurs.getKeysElements().front()->getOrder(), SortOrder::Ascending);
  EXPECT_EQ(occurs.getKeysElements().front()->getDataListSize(), 2u);
  EXPECT_EQ(nameOf(occurs.getKeysElements().back()->getDataListElements().front()), "K3");
  ASSERT_EQ(occurs.getIndexListSize(), 2u);
  EXPECT_EQ(nameOf(occurs.getIndexListElements().back()), "I2");

  EXPECT_EQ(numberOf(find("C").getOccurs()->getMaxExpr()), "10");
  EXPECT_EQ(numberOf(find("C").getOccurs()->getMinExpr()), "-");
  EXPECT_EQ(nameOf(find("C").getOccurs()->getOdoName()), "N");
  EXPECT_EQ(numberOf(find("D").getOccurs()->getMaxExpr()), "7");
  // A number that is missing is the checker's to report.
  EXPECT_EQ(find("E").getOccurs()->getMaxExpr(), nullptr);
  EXPECT_EQ(find("F").getOccurs()->getIndexListSize(), 1u);

  parseEntries("01 A.\n 05 B PIC X OCCURS 1 TO UNBOUNDED DEPENDING ON N.\n");
  EXPECT_EQ(reported(), "221@4:25");
}

TEST_F(DataParseTest, values) {
  parse(R"(ENVIRONMENT DIVISION. CONFIGURATION SECTION. SPECIAL-NAMES. SYMBOLIC TAB 6 BELL 8.
DATA DIVISION. WORKING-STORAGE SECTION.
01 A PIC X VALUE TAB.
   88 A1 VALUES ARE "A" THRU "F", "H",
       BELL THROUGH TAB WHEN SET TO FALSE IS SPACE.
   88 A2 VALUE 1
       2 THRU
       3
       4, -5.
01 B PIC X(4) VALUE ALL "ab".
01 C POINTER VALUE IS NULL.
01 D PIC X(2) VALUE X'C1C2'.
)");
  EXPECT_EQ(reported(), "");
  PhraseValue &symbol = *find("A").getValue()->getPhraseValElements().front();
  EXPECT_EQ(symbol.getWord1()->getWordData(), "TAB");
  EXPECT_EQ(symbol.getLiteral1(), nullptr);

  ClauseValue &values = *find("A1").getValue();
  ASSERT_EQ(values.getPhraseValSize(), 3u);
  EXPECT_NE(values.getPhraseValElements().front()->getLiteral2(), nullptr);
  EXPECT_EQ((*std::next(values.getPhraseValBegin()))->getLiteral2(), nullptr);
  EXPECT_EQ(values.getPhraseValElements().back()->getWord2()->getWordData(), "TAB");
  EXPECT_NE(values.getFalseValue(), nullptr);
  EXPECT_EQ(place(*values.getPhraseValElements().back()), "6:8-6:23");

  ASSERT_EQ(find("A2").getValue()->getPhraseValSize(), 4u);
  EXPECT_EQ(numberOf(find("A2").getValue()->getPhraseValElements().back()->getLiteral1()), "-5");
  auto *all = llvm::cast<FigurativeLiteralExpression>(
      find("B").getValue()->getPhraseValElements().front()->getLiteral1());
  EXPECT_EQ(all->getFigurativeType(), FigurativeType::AllLiteral);
  EXPECT_EQ(find("D").getLevelNum(), 1u);
}

TEST_F(DataParseTest, namesAndEntriesWithoutNames) {
  parseEntries("01 A.\n 05 PIC X.\n 05 VALUE 'A' PIC X.\n 05 COMP PIC 9.\n 05 INDEX.\n"
               " 05 REDEFINES B PIC X.\n 05 format PIC X.\n");
  EXPECT_EQ(reported(), "");
  EXPECT_EQ(outline(), "1 A (5, 5, 5, 5, 5, 5 FORMAT)");
  EXPECT_EQ(find("FORMAT").getDataName()->getSpelling(), "format");

  // Reserved words, also such as could begin a clause if more of it followed.
  parseEntries("01 A.\n 05 COUNT PIC X.\n 05 DATE PIC X.\n 05 SIGN.\n  06 VALUE PIC X.\n"
               " 05 B PIC X.\n 88 ON VALUE 1.\n 05 SELECT D PIC X.\n 88 C VALUE 2.\n");
  EXPECT_EQ(reported(), "201@4:5 201@5:5 201@6:5 201@7:6 201@9:5 201@10:5");
  EXPECT_EQ(outline(), "1 A (5, 5, 5 (6), 5 B, 5 D (88 C))");
}

//===----------------------------------------------------------------------===//
// Mistakes
//===----------------------------------------------------------------------===//

TEST_F(DataParseTest, oneMessageForEachMistake) {
  parseEntries(R"(01 A.
 05 B PICTUER X(5) VALUE "A".
 05 C USAGE PIC X.
 05 D PIC X PIC 9 COMP-3 BINARY.
 05 E BLANK WHEN NULL PIC 9.
 05 F PIC X OCCURS N TIMES INDEXED BY IX VALUE "A".
 05 G PIC X VALUE COMP.
 05 H REDEFINES.
 05 I PIC X GARBAGE 17 (5).
 05 J SIGN PIC S9.
 O5 K PIC X.
 05 L PIC X VALUE ZERO THRU.
 05 M EXTERNAL DYNAMIC LENGTH.
 05 N PIC.
 05 O PIC X.
)");
  EXPECT_EQ(reported(), "224@4:7 200@5:13 225@6:13 225@6:26 200@7:18 200@8:20 200@9:19 200@10:16 "
                        "223@11:13 200@12:12 200@13:2 200@14:28 221@15:16 26@16:10");
  EXPECT_EQ(outline(), "1 A (5 B, 5 C, 5 D, 5 E, 5 F, 5 G, 5 H, 5 I, 5 J, 5 L, 5 M, 5 N, 5 O)");
  // What comes behind the mistake is read.
  EXPECT_NE(find("B").getValue(), nullptr);
  EXPECT_NE(find("C").getPicture(), nullptr);
  EXPECT_EQ(find("D").getPicture()->getCharStringWord()->getWordData(), "X");
  EXPECT_EQ(find("D").getUsage()->getType(), UsageType::Comp3);
  EXPECT_NE(find("F").getValue(), nullptr);
  EXPECT_NE(find("J").getPicture(), nullptr);
  EXPECT_EQ(message(0),
            "'PICTUER' begins no clause of a data description entry; is PICTURE meant?");
  EXPECT_EQ(message(1), "a usage is expected here, but 'PIC' was found");
}

TEST_F(DataParseTest, forgottenPeriods) {
  DataDivision &data = parseData(R"(FILE SECTION.
FD F BLOCK CONTAINS 0 RECORDS
01 FR PIC X
FD G
   RECORD CONTAINS
   80 CHARACTERS
01 GR PIC X.
WORKING-STORAGE SECTION.
01 A
   05 B PIC X
   05 C PIC X VALUE "A"
     88 C1 VALUES 1
       2
     88 C2 VALUE ZERO
   05 PIC X OCCURS 5 INDEXED BY I1
   05 FILLER PIC X
LINKAGE SECTION.
01 L PIC X
)");
  EXPECT_EQ(reported(), "220@5:1 220@6:1 220@9:1 220@12:4 220@13:4 220@14:6 220@16:6 220@17:4 "
                        "220@18:4 220@19:1 220@20:10");
  EXPECT_EQ(outline(), "1 A (5 B, 5 C (88 C1, 88 C2), 5, 5 FILLER)");
  EXPECT_EQ(find("C1").getValue()->getPhraseValSize(), 2u);
  EXPECT_EQ(data.getFileSectionElements().front()->getRecordDescSize(), 1u);
  EXPECT_EQ(data.getLinkSectionSize(), 1u);
  EXPECT_EQ(place(find("B")), "12:4-12:13");
  EXPECT_EQ(message(3), "a period is missing before '05'");
}

TEST_F(DataParseTest, periodsTooMany) {
  parseEntries("01 A..\n05 B. PIC X.\n05 C PIC X.\n");
  EXPECT_EQ(reported(), "200@4:7");
  EXPECT_EQ(outline(), "1 A (5 B, 5 C)");
}

//===----------------------------------------------------------------------===//
// Files
//===----------------------------------------------------------------------===//

TEST_F(DataParseTest, fileClauses) {
  DataDivision &data = parseData(R"(FILE SECTION.
FD F IS EXTERNAL IS GLOBAL BLOCK CONTAINS 10 TO 20 RECORDS
   LABEL RECORDS ARE STANDARD DATA RECORDS ARE R1, R2
   VALUE OF ID IS "X" LABEL-FIELD FLD OF L
   LINAGE IS 60 LINES WITH FOOTING AT 55 LINES AT TOP 2 AT BOTTOM B-LINES
   RECORDING MODE IS F CODE-SET IS A1 REPORTS ARE RP1 RP2
   RECORD CONTAINS 40 TO 80 CHARACTERS.
FD G BLOCK 100 RECORD CONTAINS 80 RECORDING V LABEL RECORD OMITTED REPORT RP3.
FD H RECORD IS VARYING IN SIZE FROM 1 TO 99 CHARACTERS DEPENDING ON LEN OF X
     LABEL RECORDS L1 L2.
FD I RECORD VARYING.
)");
  EXPECT_EQ(reported(), "");
  auto next = data.getFileSectionBegin();
  FileDescription &f = **next++;
  EXPECT_TRUE(f.getExternal() && f.getGlobal());
  EXPECT_EQ(numberOf(f.getBlock()->getMinLength()), "10");
  EXPECT_EQ(numberOf(f.getBlock()->getMaxLength()), "20");
  EXPECT_EQ(f.getBlock()->getUnit(), BlockUnit::Records);
  EXPECT_EQ(f.getLabel()->getType(), LabelType::Standard);
  EXPECT_EQ(f.getDataRecord()->getNameListSize(), 2u);
  ASSERT_EQ(f.getValueOf()->getFileValueOfElemListSize(), 2u);
  EXPECT_EQ(nameOf(f.getValueOf()->getFileValueOfElemListElements().back()->getFieldIdLiteral()),
            "FLD OF L");
  EXPECT_EQ(numberOf(f.getLinage()->getNumOfLines()), "60");
  EXPECT_EQ(numberOf(f.getLinage()->getWithFootingAt()), "55");
  EXPECT_EQ(numberOf(f.getLinage()->getLineAtTop()), "2");
  EXPECT_EQ(nameOf(f.getLinage()->getLineAtBottom()), "B-LINES");
  EXPECT_EQ(f.getRecordingMode()->getRecordingType(), RecordingModeType::Fixed);
  EXPECT_EQ(f.getCodeSet()->getAlphabetName()->getWordData(), "A1");
  EXPECT_EQ(f.getReport()->getReportNameListSize(), 2u);
  EXPECT_EQ(numberOf(f.getRecord()->getMinLength()), "40");
  EXPECT_EQ(numberOf(f.getRecord()->getMaxLength()), "80");
  EXPECT_EQ(place(f), "4:1-9:38");

  // One number is the maximum of a block and the minimum of a record.
  FileDescription &g = **next++;
  EXPECT_EQ(numberOf(g.getBlock()->getMinLength()), "-");
  EXPECT_EQ(numberOf(g.getBlock()->getMaxLength()), "100");
  EXPECT_EQ(g.getBlock()->getUnit(), BlockUnit::Characters);
  EXPECT_EQ(numberOf(g.getRecord()->getMinLength()), "80");
  EXPECT_EQ(numberOf(g.getRecord()->getMaxLength()), "-");
  EXPECT_EQ(g.getRecordingMode()->getRecordingType(), RecordingModeType::Variable);
  EXPECT_EQ(g.getLabel()->getType(), LabelType::Omitted);

  FileDescription &h = **next++;
  EXPECT_TRUE(h.getRecord()->getIsVarying());
  EXPECT_EQ(numberOf(h.getRecord()->getMaxLength()), "99");
  EXPECT_EQ(nameOf(h.getRecord()->getDependingOn()), "LEN OF X");
  EXPECT_EQ(h.getLabel()->getDataNameListSize(), 2u);
  EXPECT_TRUE((*next)->getRecord()->getIsVarying());
}

TEST_F(DataParseTest, mistakesInFileClauses) {
  DataDivision &data = parseData(R"(FILE SECTION.
FD F BLOCK CONTAINS MANY RECORDS RECORDING MODE IS X RECORD CONTAINS 80.
01 FR PIC X.
FD G LABLE RECORD IS STANDARD LINAGE 60 TOP 1 LINES AT TOP 2.
01 GR PIC X.
)");
  EXPECT_EQ(reported(), "200@4:21 200@4:52 224@6:6 225@6:56");
  EXPECT_NE(data.getFileSectionElements().front()->getRecord(), nullptr);
  EXPECT_EQ(data.getFileSectionElements().back()->getRecordDescSize(), 1u);
}

} // namespace
} // namespace tarka
