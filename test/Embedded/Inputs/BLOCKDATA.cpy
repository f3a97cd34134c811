       01  WS-COPIED           PIC X(8).
           EXEC SQL DECLARE T TABLE (A CHAR(8), B CHAR(8), C CHAR(8))
           END-EXEC.
