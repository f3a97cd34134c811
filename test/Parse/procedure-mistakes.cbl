      *> RUN: %tarka check --syntax-only --verify %s
      *>
      *> Sections, paragraphs and declaratives that are not where they belong. In fixed form the area
      *> distinguishes the name of a procedure from a verb.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       PROCEDURE DIVISION.
       DECLARATIVES.
       P. EXIT. *> expect: 200:8
       D SECTION. USE AFTER FIRE PROCEDURE ON INPUT. EXIT. *> expect: 200:29
       E SECTION. USE BEFORE DINNER. *> expect: 200:30
       F SECTION. USE FOR DEBUGGING ON ALL OF THEM. USE. *> expect: 200:44 404:53
       G SECTION. USE FOR DEBUGGING ON ALL REFERENCES OF A, B. EXIT.
       DECLARATIVES. EXIT. *> expect: 401:8
       END DECLARATIVES.
       MAIN SECTION.
       M. USE AFTER ERROR PROCEDURE ON INPUT. *> expect: 404:11
       END DECLARATIVES. *> expect: 403:8
       DECLARATIVES. *> expect: 401:8 402:8
       P1. *> expect: 200:8
           DISPLAY 'A'
       P2.
           GOBAK.
           FLARP.
           EXIT.
       P3
           MOVE A TO
       B.
           S SECTION. *> expect: 400:12
       INPUT. *> expect: 201:8
       500. EXIT. 600. EXIT. *> expect: 400:19
           GOBACK.
       END PROGRAM P.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. OLD.
       PROCEDURE DIVISION USING. *> expect: 200:32
       Q.
           IF A = B EXIT OTHERWISE GOBACK END-IF ON 3 GOBACK. *> expect: 422:26 422:50
           NOTE anything. EXIT. *> expect: 422:12
       END PROGRAM OLD.

       IDENTIFICATION DIVISION.
       PROGRAM-ID. Q.
       PROCEDURE DIVISION USING A GOBACK. *> expect: 200:35
       END PROGRAM Q.
