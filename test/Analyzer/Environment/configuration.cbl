      *> RUN: %tarka check --verify %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. CONFIG.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SOURCE-COMPUTER. IBM-370.
      * An undefined alphabet ends the check of the paragraph: the limit
      * of 50 after it is not checked.
       OBJECT-COMPUTER. IBM-370
      *> expect@+1: 3101:24-26
           MEMORY SIZE 1.5 WORDS
      *> expect@+1: 3102:12-52
           PROGRAM COLLATING SEQUENCE IS NO-ALPHABET
           SEGMENT-LIMIT IS 50.
       SPECIAL-NAMES.
      * Mnemonic names: A, B, A - the first A is reported once.
      *> expect@+1: 3118:21-21
           SYSIN IS A
           SYSOUT IS B
           CONSOLE IS A
      * Carriage control and switches; UPSI-8 is none.
           C01 IS TOP-OF-FORM
      *> expect@+1: 3104:12-14
           C13 IS TOP-OF-NOTHING
      *> expect@+1: 3105:12-17
           UPSI-8 ON STATUS IS ON-8
           UPSI-7 IS SWITCH-7
               ON STATUS IS ON-7 OFF STATUS IS OFF-7
      *> expect@+1: 3106
           UPSI-6 ON STATUS IS SAME-6 OFF STATUS IS SAME-6
      *> expect@+1: 3105:12-17
           SYSPCH ON STATUS IS ON-PCH
      * Alphabets.
           ALPHABET PLAIN IS STANDARD-1
      *> expect@+1: 3119:21-25
           ALPHABET TWICE IS NATIVE
           ALPHABET TWICE IS 'A' ALSO 'B'
           ALPHABET RANGE IS 'Z' THRU 'A' 'XY' '0' ALSO '1' *> expect: 5072
      *> expect@+1: 3110:36-36 3110:43-43 3109:43-43
           ALPHABET MIX-UP IS 'A', 1 THRU 3
      *> expect@+1: 3111:30-33
           ALPHABET PAIRS IS 'AB' THRU 'C'
      * Symbolic characters.
           SYMBOLIC CHARACTERS BELL IS 8
      *> expect@+1: 3112
           SYMBOLIC CHARACTERS ONE-CHAR TWO-CHARS ARE 1
      *> expect@+1: 3113:54-54
           SYMBOLIC CHARACTERS ZERO-CHAR IS          0
      * Classes.
           CLASS VOWEL IS 'A' 'E' 'I' 'O' 'U'
      *> expect@+1: 3119:18-22
           CLASS DIGIT IS '0' THRU '9'
           CLASS DIGIT IS 1 THRU 10
      *> expect@+1: 3115
           CLASS MIXED IS 'A' THRU 5
      * Currency signs.
           CURRENCY SIGN IS '$'
      *> expect@+1: 3117:29-31
           CURRENCY SIGN IS 'C'
           CURRENCY SIGN IS 'C' WITH PICTURE SYMBOL 'F'
      *> expect@+1: 3116:29-33
           CURRENCY SIGN IS 'EUR' WITH PICTURE SYMBOL 'U'
      *> expect@+1: 3117:53-55
           CURRENCY SIGN IS 'Y' WITH PICTURE SYMBOL 'X'.
       PROCEDURE DIVISION.
       MAIN.
           STOP RUN.
