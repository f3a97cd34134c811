      *> RUN: %tarka check --verify %s
      *> RUN: %tarka ast %s | FileCheck %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. DLI.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  AREA-OF-PART            PIC X(80).
       01  PART-KEY                PIC X(8).
       01  SEGMENT-NAME            PIC X(8).
       01  FEEDBACK                PIC X(50).
       01  FUNCTION-CODE           PIC X(4).
       LINKAGE SECTION.
       01  MASK                    PIC X(36).
       PROCEDURE DIVISION USING MASK.
           EXEC DLI SCHD PSB(PARTS) NODHABEND END-EXEC
      *> CHECK: name=SCHD
      *> CHECK: option=PSB effect=name name=PARTS
           EXEC DLI GET NEXT IN PARENT USING PCB(1)
               SEGMENT((SEGMENT-NAME)) WHERE(PARTNO >= PART-KEY AND
               COLOR = 'RED') INTO(AREA-OF-PART) KEYFEEDBACK(FEEDBACK)
               END-EXEC
      *> CHECK: name=GET NEXT IN PARENT
      *> CHECK: option=SEGMENT effect=read
      *> CHECK-NEXT: boundTo=SEGMENT-NAME
      *> CHECK: option=WHERE effect=read
      *> CHECK-NEXT: boundTo=PART-KEY
      *> CHECK: option=WHERE effect=read
      *> CHECK: option=INTO effect=written
      *> CHECK: option=KEYFEEDBACK effect=written
           EXEC DLI REPL SEGMENT(PART) FROM(AREA-OF-PART) END-EXEC
           CALL 'CBLTDLI' USING FUNCTION-CODE MASK AREA-OF-PART
           CALL 'CBLTDLI' USING 'GHU ' MASK AREA-OF-PART
           EXEC DLI GX SEGMENT(PART) END-EXEC        *> expect: 5261
           EXEC DLI GU SEGMENT(PART)
               INTO(AERA-OF-PART) END-EXEC           *> expect: 5201
           CALL 'CBLTDLI' USING
               'GHX ' MASK AREA-OF-PART              *> expect: 5262
           GOBACK.
