*> RUN: %tarka ast --enable-rw %s | FileCheck --match-full-lines %s
*> RUN: %tarka ast --enable-rw --format=json %s | %python -m json.tool | FileCheck --check-prefix=JSON %s
*>
*> The environment division and the clauses of entries.
IDENTIFICATION DIVISION.
PROGRAM-ID. ENTRIES.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SOURCE-COMPUTER. IBM-390 WITH DEBUGGING MODE.
SPECIAL-NAMES.
    UPSI-0 IS SWITCH-0 OFF STATUS IS IS-OFF
    ALPHABET LETTERS IS "A" THRU "Z" "a" ALSO "b"
    SYMBOLIC CHARACTERS BELL IS 8
    CLASS VOWEL IS "A" "E" THRU "F".
INPUT-OUTPUT SECTION.
FILE-CONTROL.
    SELECT OPTIONAL STOCK ASSIGN TO STOCKFIL ORGANIZATION INDEXED
        ACCESS DYNAMIC RECORD KEY ARTICLE
        ALTERNATE RECORD KEY PLACE WITH DUPLICATES FILE STATUS FS.
    SELECT PAPER ASSIGN TO PRINTER.
I-O-CONTROL.
    SAME RECORD AREA FOR STOCK PAPER.
*> CHECK:      EnvironmentDivision <7:1-{{.*}}>
*> CHECK:      ParaSourceComputer <9:1-{{.*}}> name=IBM-390 debuggingMode
*> CHECK:      ClauseEnvName <11:5-{{.*}}> name=UPSI-0 type=switch mnemonicName=SWITCH-0 offCondition=IS-OFF
*> CHECK:      ClauseAlphabet <12:{{.*}}> name=LETTERS lowValue=65 highValue=255
*> CHECK:        through: NonNumericLiteralExpression <12:34-12:36> value="Z" category=alphanumeric
*> CHECK:        also: NonNumericLiteralExpression {{.*}}
*> CHECK:      PhrsSymbolic <13:{{.*}}> names=[BELL]
*> CHECK:      ParaFileControl <17:{{.*}}> name=STOCK optional organization=INDEXED access=DYNAMIC
*> CHECK:      recordKey: DataIdentifierExpression <18:35-18:41> name=ARTICLE {{.*}}
*> CHECK:      alternateKey duplicates: DataIdentifierExpression {{.*}} name=PLACE {{.*}}
*> CHECK:      ClauseSame <22:5-22:36> area=RECORD
*> JSON: "kind": "ParaFileControl"
*> JSON: "organization": "INDEXED"
DATA DIVISION.
FILE SECTION.
FD  STOCK BLOCK CONTAINS 10 RECORDS RECORD CONTAINS 14 CHARACTERS.
*> CHECK:      ClauseBlock <38:{{.*}}> unit=RECORDS
*> CHECK:      ClauseRecord <38:{{.*}}>
01  STOCK-RECORD.
    05  ARTICLE PIC X(10).
    05  PLACE   PIC X(4).
FD  PAPER REPORT IS LIST-OF-STOCK.
*> CHECK:      report: ReportIdentifierExpression <44:21-44:33> name=LIST-OF-STOCK {{.*}}
WORKING-STORAGE SECTION.
01  FS PIC XX.
01  N PIC 99.
01  T.
    05  ROW OCCURS 1 TO 9 DEPENDING ON N ASCENDING KEY IS K INDEXED BY RX.
        10  K PIC S9(4) SIGN LEADING SEPARATE VALUE 7.
            88  ODD VALUE 1 THRU 3, 5 FALSE 0.
*> CHECK:      ClauseOccurs <50:{{.*}}> min=1 max=9
*> CHECK:        dependingOn: DataIdentifierExpression <50:{{.*}}> name=N {{.*}}
*> CHECK:        Key <50:{{.*}}> order=ASCENDING
*> CHECK:        index: DataIdentifierExpression <50:{{.*}}> name=RX{{.*}}
*> CHECK:      DataDescription <51:{{.*}}> level=10 name=K {{.*}} sign=LEADING separateSign offset=0 hasValue
*> CHECK:      conditionName: DataDescription <52:{{.*}}> level=88 name=ODD {{.*}}
*> CHECK:        PhraseValue <52:{{.*}}>
*> CHECK:        through: NumericLiteralExpression <52:34-52:34> value=3 {{.*}}
*> CHECK:        false: NumericLiteralExpression {{.*}} value=0 {{.*}}
REPORT SECTION.
RD  LIST-OF-STOCK CONTROLS ARE FINAL PLACE PAGE LIMIT 60 LINES.
01  LINE-OF-STOCK TYPE DETAIL LINE PLUS 1.
    05  COLUMN 1 PIC X(10) SOURCE ARTICLE.
01  TYPE CONTROL FOOTING PLACE LINE 50.
    05  COLUMN 5 PIC 9(5) SUM N.
*> CHECK:      ClauseControl <63:{{.*}}> final
*> CHECK:      ClausePageLimit <63:{{.*}}>
*> CHECK:      ClauseType <64:{{.*}}> type=DETAIL
*> CHECK:      ClauseLine <64:{{.*}}> relative
*> CHECK:      ClauseSource <65:{{.*}}>
*> CHECK:      ClauseType <66:{{.*}}> type=CONTROL FOOTING
*> CHECK:      ClauseSum <67:{{.*}}>
PROCEDURE DIVISION.
DECLARATIVES.
D SECTION. USE FOR DEBUGGING ON MAIN-PART.
*> CHECK:      use: UseStatement <77:{{.*}}> timing=FOR DEBUGGING names=[MAIN-PART] procedures=[MAIN-PART@82:1]
    DISPLAY "X".
END DECLARATIVES.
REST SECTION.
MAIN-PART.
    STOP RUN.
