      *> RUN: %tarka check %s 2>&1 | FileCheck --allow-empty --implicit-check-not={{.}} %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. TEXTDATE.
      *  TEXT AND DATE ROUTINES, A DRIVER WITH NESTED PROGRAMS.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           DECIMAL-POINT IS COMMA
           CURRENCY SIGN IS "F"
           SYMBOLIC CHARACTERS BELL-CHAR IS 8
           ALPHABET REVERSED-ORDER IS "Z" THRU "A"
           CLASS HEX-DIGIT IS "0" THRU "9" "A" THRU "F".
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  GLOBAL-AREA IS GLOBAL.
           05  GA-RETURN               PIC S9(4) BINARY VALUE 0.
           05  GA-TEXT                 PIC X(200).
           05  GA-NUMBER               PIC S9(9)V9(4) PACKED-DECIMAL.
       01  WS-DATE-AREA.
           05  WS-TODAY                PIC X(21).
           05  WS-TODAY-PARTS REDEFINES WS-TODAY.
               10  WS-YEAR             PIC 9(4).
               10  WS-MONTH            PIC 9(2).
               10  WS-DAY              PIC 9(2).
               10  WS-HOUR             PIC 9(2).
               10  WS-MINUTE           PIC 9(2).
               10  WS-SECOND           PIC 9(2).
               10  WS-HUNDREDTH        PIC 9(2).
               10  WS-OFFSET           PIC S9(4)
                                       SIGN LEADING SEPARATE.
           05  WS-INT-DATE             PIC S9(9) COMP-5.
           05  WS-DUE-DATE             PIC 9(8).
           05  WS-DAYS-LATE            PIC S9(5) COMP-3.
           05  WS-WEEKDAY              PIC 9.
               88  WEEKEND                       VALUE 0 6.
               88  WORKDAY                       VALUE 1 THROUGH 5.
           05  WS-JULIAN               PIC 9(7).
           05  WS-JULIAN-PARTS REDEFINES WS-JULIAN.
               10  WS-J-YEAR           PIC 9(4).
               10  WS-J-DAY            PIC 9(3).
           66  WS-CLOCK RENAMES WS-HOUR THRU WS-SECOND.
       01  WS-NAMES.
           05  WS-DAY-NAME             PIC X(10) OCCURS 7.
       01  WS-PARSE.
           05  WS-SOURCE               PIC X(80)
               VALUE "Smith;John;1.234,56;1987-11-03;;END".
           05  WS-SURNAME              PIC X(20).
           05  WS-FORENAME             PIC X(20).
           05  WS-AMOUNT-X             PIC X(15).
           05  WS-AMOUNT               PIC S9(7)V99.
           05  WS-AMOUNT-ED            PIC F.FFF.FF9,99-.
           05  WS-DATE-X               PIC X(10).
           05  WS-DELIM                PIC X.
           05  WS-LEN                  PIC 99.
           05  WS-POS                  PIC 9(3).
           05  WS-FIELDS               PIC 9(3).
           05  WS-SPACES               PIC 9(3).
           05  WS-COMMAS               PIC 9(3).
           05  WS-LEADERS              PIC 9(3).
       01  WS-NATIONAL                 PIC N(20) USAGE NATIONAL.
       01  WS-FLOATS.
           05  WS-F1                   COMP-1 VALUE 1,5E0.
           05  WS-F2                   COMP-2.
       01  WS-STATS.
           05  WS-SAMPLE               PIC 9(5) OCCURS 10 TIMES.
           05  WS-MEAN                 PIC 9(5)V99.
           05  WS-ROOT                 PIC 9(5)V9(4).
       77  WS-I                        PIC 9(4) COMP.
       77  WS-RATE                     PIC 9V999 VALUE 1,175.
       PROCEDURE DIVISION.
       MAIN-PARA.
           PERFORM GET-DATES.
           PERFORM PARSE-TEXT THRU PARSE-TEXT-EXIT.
           PERFORM STATISTICS.
           CALL "TRIMMER" USING WS-SOURCE, WS-LEN.
           CALL "CALENDAR" USING BY CONTENT WS-YEAR WS-MONTH
                                 BY REFERENCE WS-NAMES
               ON OVERFLOW
                   DISPLAY "NO CALENDAR"
               NOT ON EXCEPTION
                   CONTINUE
           END-CALL.
           IF GA-RETURN NOT = 0
               DISPLAY "RETURN " GA-RETURN " " GA-TEXT (1:40)
                   WITH NO ADVANCING
           END-IF.
           STOP RUN.

       GET-DATES.
           MOVE FUNCTION CURRENT-DATE TO WS-TODAY.
           COMPUTE WS-INT-DATE =
               FUNCTION INTEGER-OF-DATE (FUNCTION NUMVAL
                   (WS-TODAY (1:8))).
           COMPUTE WS-DUE-DATE =
               FUNCTION DATE-OF-INTEGER (WS-INT-DATE + 30).
           COMPUTE WS-WEEKDAY = FUNCTION MOD (WS-INT-DATE 7).
           MOVE FUNCTION DAY-OF-INTEGER (WS-INT-DATE) TO WS-JULIAN.
           EVALUATE TRUE
               WHEN WEEKEND
                   COMPUTE WS-INT-DATE = WS-INT-DATE + 8 - WS-WEEKDAY
               WHEN WORKDAY AND WS-HOUR > 17
                   ADD 1 TO WS-INT-DATE
               WHEN WORKDAY
                   CONTINUE
           END-EVALUATE.
           ACCEPT WS-JULIAN FROM DAY YYYYDDD.
           ACCEPT WS-WEEKDAY FROM DAY-OF-WEEK.
           DIVIDE WS-YEAR BY 4 GIVING WS-I REMAINDER WS-LEN.
           IF WS-LEN = 0 AND (WS-YEAR > 1900 OR = 1600)
               AND WS-MONTH NOT LESS THAN 1 AND NOT GREATER 12
               DISPLAY "LEAP YEAR " WS-YEAR
           END-IF.
           MOVE FUNCTION WHEN-COMPILED TO GA-TEXT.
           MOVE WHEN-COMPILED TO GA-TEXT.
           DISPLAY FUNCTION UPPER-CASE (GA-TEXT) WS-CLOCK.

       PARSE-TEXT.
           MOVE 1 TO WS-POS.
           MOVE 0 TO WS-FIELDS.
           UNSTRING WS-SOURCE DELIMITED BY ALL ";" OR X"05" OR BELL-CHAR
               INTO WS-SURNAME  DELIMITER IN WS-DELIM COUNT IN WS-LEN
                    WS-FORENAME
                    WS-AMOUNT-X COUNT WS-I
                    WS-DATE-X
               WITH POINTER WS-POS
               TALLYING IN WS-FIELDS
               ON OVERFLOW
                   DISPLAY "MORE FIELDS FROM " WS-POS
           END-UNSTRING.
           IF WS-FIELDS < 4
               MOVE 8 TO GA-RETURN
               GO TO PARSE-TEXT-EXIT
           END-IF.
           COMPUTE WS-AMOUNT = FUNCTION NUMVAL-C (WS-AMOUNT-X).
           MOVE WS-AMOUNT TO WS-AMOUNT-ED GA-NUMBER.
           COMPUTE WS-AMOUNT ROUNDED = (WS-AMOUNT * WS-RATE) ** 2
                                       - 1,5 / -WS-AMOUNT
               ON SIZE ERROR MOVE 12 TO GA-RETURN
               NOT ON SIZE ERROR MOVE 0 TO GA-RETURN
           END-COMPUTE.
       PARSE-TEXT-EXIT.
           EXIT.

       STATISTICS.
           INSPECT WS-SOURCE TALLYING
               WS-COMMAS  FOR ALL "," BEFORE INITIAL "END"
               WS-LEADERS FOR LEADING SPACES
               WS-SPACES  FOR CHARACTERS AFTER INITIAL "END".
           INSPECT WS-SOURCE REPLACING
               FIRST "Smith" BY "SMITH"
               ALL "," BY "." "-" BY "/"
               CHARACTERS BY SPACE AFTER INITIAL "END".
           PERFORM VARYING WS-I FROM 1 BY 1 UNTIL WS-I > 10
               COMPUTE WS-SAMPLE (WS-I) =
                   FUNCTION RANDOM * 1000 + FUNCTION MAX (1 2 WS-I)
           END-PERFORM.
           COMPUTE WS-MEAN = FUNCTION MEAN (WS-SAMPLE (ALL)).
           COMPUTE WS-ROOT ROUNDED = FUNCTION SQRT (WS-MEAN).
           MOVE FUNCTION NATIONAL-OF (WS-SURNAME) TO WS-NATIONAL.
           MOVE FUNCTION DISPLAY-OF (WS-NATIONAL) TO GA-TEXT.
           MOVE FUNCTION REVERSE (WS-SURNAME) TO GA-TEXT (21:20).
           MOVE WS-ROOT TO WS-F1 WS-F2.
           IF WS-SURNAME IS ALPHABETIC OR WS-DELIM IS HEX-DIGIT
               OR WS-NATIONAL = SPACES OR WS-F2 > 1,0E-5
               MOVE FUNCTION LENGTH (WS-SURNAME) TO WS-LEN
               MOVE LENGTH OF WS-SURNAME TO WS-I
           END-IF.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. TRIMMER.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       77  TR-COUNT                    PIC S9(4) COMP.
       LINKAGE SECTION.
       01  TR-TEXT                     PIC X(80).
       01  TR-LEN                      PIC 99.
       PROCEDURE DIVISION USING TR-TEXT TR-LEN.
           MOVE ZERO TO TR-COUNT.
           INSPECT FUNCTION REVERSE (TR-TEXT)
               TALLYING TR-COUNT FOR LEADING SPACE.
           COMPUTE TR-LEN = LENGTH OF TR-TEXT - TR-COUNT.
           MOVE TR-TEXT (1:TR-LEN) TO GA-TEXT.
           EXIT PROGRAM.
       END PROGRAM TRIMMER.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. CALENDAR IS INITIAL.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  CA-LENGTHS-X            PIC X(24)
                                   VALUE "312831303130313130313031".
       01  CA-LENGTHS REDEFINES CA-LENGTHS-X.
           05  CA-LENGTH           PIC 99 OCCURS 12 INDEXED BY CA-IX.
       LINKAGE SECTION.
       77  CA-YEAR                 PIC 9(4).
       77  CA-MONTH                PIC 9(2).
       01  CA-NAMES.
           05  CA-NAME             PIC X(10) OCCURS 7 INDEXED BY CA-NX.
       PROCEDURE DIVISION USING CA-YEAR CA-MONTH CA-NAMES.
       CA-START.
           IF CA-MONTH < 1 OR > 12
               MOVE -1 TO GA-RETURN
               GOBACK.
           SET CA-IX TO CA-MONTH.
           IF CA-MONTH = 2 AND FUNCTION REM (CA-YEAR 4) = 0
               ADD 1 TO CA-LENGTH (CA-IX)
                   ON SIZE ERROR CALL "COMPLAIN"
               END-ADD.
           PERFORM CA-BLANK VARYING CA-NX FROM 1 BY 1
               UNTIL CA-NX > 7 AFTER CA-IX FROM 1 BY 1 UNTIL CA-IX > 12.
           MOVE "MONDAY" TO CA-NAME (1).
           GO TO CA-OUT CA-BLANK CA-OUT DEPENDING ON CA-MONTH.
       CA-OUT.
           EXIT PROGRAM.
       CA-BLANK.
           MOVE SPACES TO CA-NAME (CA-NX).
       IDENTIFICATION DIVISION.
       PROGRAM-ID. COMPLAIN IS COMMON PROGRAM.
       PROCEDURE DIVISION.
           DISPLAY "COMPLAINT FROM " GA-TEXT.
       END PROGRAM COMPLAIN.
       END PROGRAM CALENDAR.
       END PROGRAM TEXTDATE.
