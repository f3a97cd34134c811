*> RUN: %tarka check --verify %s
*>
*> Currency symbols, and pictures with a decimal comma.
IDENTIFICATION DIVISION.
PROGRAM-ID. CURRENCIES.
ENVIRONMENT DIVISION.
CONFIGURATION SECTION.
SPECIAL-NAMES.
    CURRENCY SIGN IS "#"
    CURRENCY SIGN IS "L" WITH PICTURE SYMBOL "@"
*> Every picture with a symbol of its own tries this one as well.
    CURRENCY SIGN IS "F" WITH PICTURE SYMBOL "E" *> expect: 3117 3248 3248 3248 3248 3248
    DECIMAL-POINT IS COMMA.
DATA DIVISION.
WORKING-STORAGE SECTION.
01  PRICES.
    05  OWN-SYMBOL              PIC #.##9,99.
    05  OTHER-SYMBOL            PIC @@@.@@9,99.
    05  PLAIN                   PIC Z.ZZZ.ZZ9,99- BLANK WHEN ZERO.
    05  BOTH-SYMBOLS            PIC #@9. *> expect: 3242 3247
    05  NO-SUCH-SYMBOL          PIC %%9. *> expect: 3247
    05  NEVER-A-SYMBOL          PIC EE9. *> expect: 3247
01  AMOUNT                      PIC 9(3)V99 VALUE 12,34.
01  AMOUNT-TOO-FINE             PIC 9(3)V99 VALUE 12,345. *> expect: 3292
PROCEDURE DIVISION.
    GOBACK.
