      *> RUN: %tarka check --verify %s
       identification division.
       program-id. lengths.
       environment division.
       input-output section.
       file-control.
           select long-1 assign to long-1.
           select opposite assign to opposite.
           select short-1 assign to short-1.
           select printer assign to printer.
           select unknown-1 assign to unknown-1.
       data division.
       file section.
       fd long-1 record contains 20 characters.
       1 long-short pic x(10).
       1 long-long pic x(21). *> expect: 5037
       fd opposite record contains 20 to 10 characters. *> expect: 5036
       1 opposite-record pic x(15).
       fd short-1 record contains 20 characters. *> expect: 5038
       1 short-record pic x(18).
      *> The clause may count the character that controls the printer.
       fd printer record contains 133 characters.
       1 printer-record pic x(132).
       fd unknown-1 record contains 0 characters.
       1 unknown-record pic x(80).
       procedure division.
       main.
           stop run.
