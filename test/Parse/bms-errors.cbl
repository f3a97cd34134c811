      *> Macros that are wrong: one message each, and what the rest of the map says stands.
      *> RUN: %tarka check --verify --cics -I %S/Inputs %s
       IDENTIFICATION DIVISION.
       PROGRAM-ID. ERRORS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       COPY BADMAPS.
       COPY NOMAPSET. *> expect: 120
       COPY NOWHERE. *> expect: 43
       PROCEDURE DIVISION.
           MOVE FIELDI TO CARRIEDI MOVE NOSIZEO TO NOTHINGI
           MOVE PICTUREDI TO TABLEDI MOVE NAMEDO TO TORNI
           GOBACK.
