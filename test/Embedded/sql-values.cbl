      *> RUN: %tarka check --verify --sql %s
      *>
      *> Host variables of every type that DB2 has: large objects, locators and files, XML, row
      *> identifiers, binary and national strings, host structures and their indicators.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. SQLVALUES.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  HV-CLOB             SQL TYPE IS CLOB(2M).
       01  HV-CLOB-LARGE       USAGE IS SQL TYPE IS CLOB(1G).
       01  HV-DBCLOB           SQL TYPE IS DBCLOB(40000).
       01  HV-BLOB             USAGE SQL TYPE IS BLOB(32K).
       01  HV-CLOB-LOC         SQL TYPE IS CLOB-LOCATOR.
       01  HV-DBCLOB-LOC       SQL TYPE IS DBCLOB-LOCATOR.
       01  HV-BLOB-LOC         USAGE IS SQL TYPE IS BLOB-LOCATOR.
       01  HV-CLOB-FILE        SQL TYPE IS CLOB-FILE.
       01  HV-BLOB-FILE        SQL TYPE IS BLOB-FILE.
       01  HV-DBCLOB-FILE      SQL TYPE IS DBCLOB-FILE.
       01  HV-ROWID            SQL TYPE IS ROWID.
       01  HV-BINARY           SQL TYPE IS BINARY(100).
       01  HV-VARBINARY        SQL TYPE IS VARBINARY(200).
       01  HV-XML-CLOB         SQL TYPE IS XML AS CLOB(1M).
       01  HV-XML-BLOB         SQL TYPE IS XML AS BLOB(1M).
       01  HV-XML-FILE         SQL TYPE IS XML AS CLOB-FILE.
       01  HV-RESULT-SET       SQL TYPE IS RESULT-SET-LOCATOR VARYING.
       01  HV-TABLE-LOC
           SQL TYPE IS TABLE LIKE TRIGGERED AS LOCATOR.
       01  A-NAME-OF-THIRTY-CHARACTERS-IS SQL TYPE IS DBCLOB-FILE.
       01  HV-BINARY-VARYING   SQL TYPE IS BINARY VARYING(20).
       01  HV-NATIONAL         PIC N(20) USAGE NATIONAL.
       01  HV-VARGRAPHIC.
           49  HV-VG-LEN       PIC S9(4) COMP.
           49  HV-VG-TEXT      PIC N(20) USAGE NATIONAL.
       01  HV-GRAPHIC          PIC G(10) USAGE DISPLAY-1.
       01  HV-ZONED            PIC S9(5)V99 SIGN LEADING SEPARATE.
       01  HV-DECIMAL          PIC S9(13)V9(2) USAGE PACKED-DECIMAL.
       01  HV-REAL             COMP-1.
       01  HV-SMALL            PIC S9(4) BINARY.
       01  HV-DATE             PIC X(10).
       01  HV-STAMP            PIC X(32).
       01  HV-COUNT            PIC S9(9) COMP-5.
       01  HV-TEXT             PIC X(100).
       01  HV-GROUP.
           05  HV-NUMBER       PIC X(6).
           05  HV-PLACE.
               10  HV-TOWN     PIC X(20).
               10  HV-ZIP      PIC X(10).
       01  HV-INDICATORS.
           05  HV-IND          PIC S9(4) COMP OCCURS 3.
       01  HV-NULL             PIC S9(4) COMP-5.
       01  HV-EDITED           PIC Z(4)9.
       77  HV-POINTER          POINTER.
       01  HV-TRUE             PIC X.
           88  IS-TRUE         VALUE 'T'.
       01  HV-LONG-IND         PIC S9(9) COMP.
       PROCEDURE DIVISION.
       MAIN SECTION.
       MAIN-1.
           EXEC SQL SELECT RESUME, PHOTO, ID
               INTO :HV-CLOB:HV-NULL, :HV-BLOB-LOC :HV-NULL, :HV-ROWID
               FROM EMP WHERE NO = :HV-NUMBER END-EXEC
           EXEC SQL SET :HV-CLOB-LOC = SUBSTR(:HV-CLOB-LOC, 1, 100)
               END-EXEC
           EXEC SQL SET (:HV-COUNT, :HV-TEXT) =
               (SELECT COUNT(*), MAX(NAME) FROM EMP) END-EXEC
           EXEC SQL VALUES (POSSTR(:HV-CLOB-LOC, 'Dept'), CURRENT DATE)
               INTO :HV-COUNT, :HV-DATE END-EXEC
           EXEC SQL FREE LOCATOR :HV-CLOB-LOC, :HV-BLOB-LOC END-EXEC
           EXEC SQL HOLD LOCATOR :HV-DBCLOB-LOC END-EXEC
           EXEC SQL INSERT INTO PAPERS
               VALUES (:HV-NUMBER, :HV-CLOB-FILE, :HV-BLOB-FILE,
                       :HV-DBCLOB, :HV-BINARY, :HV-VARBINARY,
                       :HV-XML-CLOB, :HV-GRAPHIC, :HV-NATIONAL)
               END-EXEC
           MOVE 0 TO HV-CLOB-LENGTH HV-BINARY-VARYING-LEN
           MOVE SPACES TO HV-CLOB-DATA
           MOVE 'FILE' TO HV-CLOB-FILE-NAME
           EXEC SQL UPDATE PAPERS SET TEXT = :HV-CLOB,
               X = XMLPARSE(DOCUMENT :HV-XML-CLOB STRIP WHITESPACE),
               V = :HV-VARGRAPHIC WHERE ID = :HV-ROWID END-EXEC
           EXEC SQL SELECT XMLSERIALIZE(XMLELEMENT(NAME "e",
               XMLATTRIBUTES(E.NO AS "no"), E.NAME) AS CLOB(1K))
               INTO :HV-XML-CLOB FROM EMP E
               WHERE XMLEXISTS('$d/a[@b="it''s"]' PASSING E.DOC AS "d")
               END-EXEC
           EXEC SQL SELECT NO, TOWN, ZIP INTO :HV-GROUP:HV-IND
               FROM EMP END-EXEC
           EXEC SQL SELECT NO INTO :HV-GROUP.HV-NUMBER FROM EMP
               END-EXEC
           EXEC SQL SELECT TOWN INTO :HV-TOWN OF HV-PLACE OF HV-GROUP
               FROM EMP END-EXEC
           EXEC SQL SELECT A, B, C, D INTO :HV-ZONED, :HV-DECIMAL,
               :HV-REAL, :HV-SMALL FROM NUMBERS
               WHERE T BETWEEN '12:30:00' AND :HV-STAMP END-EXEC
           GOBACK.
      *> One mistake, one message.
       MISTAKES.
           EXEC SQL SELECT A INTO :HV-EDITED           *> expect: 5241
               FROM T END-EXEC
           EXEC SQL SELECT A INTO :IS-TRUE             *> expect: 5241
               FROM T END-EXEC
           EXEC SQL SELECT A INTO :HV-POINTER          *> expect: 5241
               FROM T END-EXEC
           EXEC SQL SELECT A INTO
               :HV-DATE:HV-LONG-IND                    *> expect: 5242
               FROM T END-EXEC
           EXEC SQL SELECT A INTO :HV-PLACE.HV-STREET  *> expect: 5201
               FROM T END-EXEC
           EXEC SQL SELECT A, B INTO :HV-GROUP         *> expect: 5245
               FROM T END-EXEC
           EXEC SQL FREE LOCATOR :HV-BLOB-LOK          *> expect: 5201
               END-EXEC.
