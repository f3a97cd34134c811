>>SOURCE FORMAT FREE
>>DEFINE LIMIT AS 10
>>DEFINE NAME AS 'ABC'
identification division.
program-id. main.
data division.
working-storage section.
>>IF LIMIT > 5 AND (NAME = 'ABC' OR NUMBER IS NOT DEFINED)
01 a pic x.
>>ELSE
01 a pic 9.
>>END-IF
>>EVALUATE NUMBER + 2 * 3
>>WHEN 7
01 b pic x.
>>WHEN 1 THRU 3
01 b pic 9.
>>WHEN OTHER
01 b pic a.
>>END-EVALUATE
>>SOURCE FORMAT FIXED
      * A COMMENT
      / ANOTHER
      D01  C PIC X.
       EJECT
       PROCEDURE DIVISION.
           DISPLAY A *> INLINE
           DISPLAY B
               X'00FF' N"AB" NX'0041' Z'Z' G'AB' 1.5E-3 +7 -1,5.
           EXEC SQL SELECT 'A' FROM B WHERE C = :D END-EXEC.
           EXEC CICS RETURN TRANSID('X') END-EXEC.
>>DEFINE LIMIT OFF
