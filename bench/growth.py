#!/usr/bin/env python3
"""Checks that the work grows with the source and not with its square.

Each construct of the language is written some times and then ten times as often, and
the instructions of `tarka check` are counted. More than 11 times as many, beyond what
a program without the construct takes, is reported, and makes the exit status 1.
"""

import argparse
import os
import sys
import tempfile

from measure import instructions

HEAD = ["IDENTIFICATION DIVISION.", "PROGRAM-ID. BENCH."]


def program(data=(), procedure=(), environment=(), tail=(), using=""):
    lines = list(HEAD)
    if environment:
        lines += ["ENVIRONMENT DIVISION.", *environment]
    lines += ["DATA DIVISION.", *data]
    lines += [f"PROCEDURE DIVISION{using}.", "MAIN-PARAGRAPH.", *procedure, "    STOP RUN.", *tail]
    return lines


def storage(*entries):
    return ["WORKING-STORAGE SECTION.", "77 A PIC 9(4).", "77 T PIC X(9).", *entries]


def each(count, *lines):
    """The lines, count times, with the number in place of #."""
    return [line.replace("#", str(n)) for n in range(1, count + 1) for line in lines]


def siblings(count, common=""):
    nested = each(count, "IDENTIFICATION DIVISION.", f"PROGRAM-ID. N#{common}.",
                  "PROCEDURE DIVISION.", "    EXIT PROGRAM.", "END PROGRAM N#.")
    return program(tail=[*nested, "END PROGRAM BENCH."])


def reports(count):
    select = ["INPUT-OUTPUT SECTION.", "FILE-CONTROL.", "    SELECT F ASSIGN TO F."]
    names = " ".join(f"R{n}" for n in range(1, count + 1))
    return program(
        environment=select,
        data=["FILE SECTION.", f"FD F REPORTS ARE {names}.", *storage(), "REPORT SECTION.",
              *each(count, "RD R#.", "01 GROUP-OF-ALL TYPE DETAIL LINE PLUS 1.",
                    "   05 COLUMN 1 PIC 9(4) SOURCE A.")],
        procedure=["    CONTINUE."])


CONSTRUCTS = {
    "nested programs": siblings,
    "COMMON programs": lambda n: siblings(n, " COMMON"),
    "reports with one group name": reports,
    "conditions of one item": lambda n: program(
        storage("01 ITEM PIC 9(5).", *each(n, "   88 COND-# VALUE #.")),
        each(n, "    IF COND-# MOVE 1 TO A.")),
    "redefinitions of one item": lambda n: program(
        storage("01 ITEM PIC X(9).", *each(n, "01 ITEM-# REDEFINES ITEM PIC X(9)."))),
    "renamed items": lambda n: program(
        storage("01 REC.", *each(n, "   05 ITEM-# PIC X."), *each(n, "   66 ALIAS-# RENAMES ITEM-#."))),
    "items of one name": lambda n: program(
        storage(*each(n, "01 REC-#.", "   05 ITEM PIC 9.")), each(n, "    MOVE 1 TO ITEM OF REC-#.")),
    "tables": lambda n: program(
        storage("01 REC.", *each(n, "   05 TAB-# PIC 9 OCCURS 5 INDEXED BY IX-#.")),
        each(n, "    MOVE 1 TO TAB-# (IX-#).")),
    "variable tables": lambda n: program(
        storage(*each(n, "01 REC-#.", "   05 TAB-# PIC 9 OCCURS 1 TO 5 DEPENDING ON A."))),
    "files": lambda n: program(
        environment=["INPUT-OUTPUT SECTION.", "FILE-CONTROL.",
                     *each(n, "    SELECT F# ASSIGN TO F#.")],
        data=["FILE SECTION.", *each(n, "FD F#.", "01 R# PIC X(80)."), *storage()],
        procedure=each(n, "    OPEN INPUT F#.", "    READ F#.", "    CLOSE F#.")),
    "paragraphs": lambda n: program(
        storage(), each(n, "    PERFORM P-#."), tail=each(n, "P-#.", "    ADD 1 TO A.")),
    "sections": lambda n: program(
        storage(), each(n, "    PERFORM S-#."), tail=each(n, "S-# SECTION.", "    ADD 1 TO A.")),
    "paragraphs of one name": lambda n: program(
        storage(), each(n, "    PERFORM P OF S-#."),
        tail=each(n, "S-# SECTION.", "P.", "    ADD 1 TO A.")),
    "GO TO DEPENDING": lambda n: program(
        storage(), ["    GO TO", *each(n, "      P-#"), "      DEPENDING ON A."],
        tail=each(n, "P-#.", "    ADD 1 TO A.")),
    "objects of EVALUATE": lambda n: program(
        storage(), ["    EVALUATE A", *each(n, "      WHEN # ADD 1 TO A"), "    END-EVALUATE."]),
    "operands of ADD": lambda n: program(
        storage(), ["    ADD", *each(n, "      A"), "      TO A."]),
    "terms of an expression": lambda n: program(
        storage(), ["    COMPUTE A = 1", *each(n, "      + A * 2"), "      ."]),
    "terms of a condition": lambda n: program(
        storage(), ["    IF A = 1", *each(n, "      OR A > #"), "      ADD 1 TO A."]),
    "parts of STRING": lambda n: program(
        storage(), ["    STRING", *each(n, "      T DELIMITED BY SIZE"), "      INTO T."]),
    "CALL": lambda n: program(storage(), each(n, "    CALL 'PROG#' USING A T.")),
    "parameters": lambda n: program(
        ["LINKAGE SECTION.", *each(n, "01 L-# PIC X.")], using=" USING\n    " + "\n    ".join(
            f"L-{k}" for k in range(1, n + 1)), procedure=["    CONTINUE."]),
    "statements of one sentence": lambda n: program(
        storage(), [*each(n, "    ADD 1 TO A"), "    ."]),
    "REPLACE": lambda n: program(
        storage(), each(n, "    REPLACE ==XX-#== BY ==A==.", "    ADD 1 TO XX-#.")),
    "undefined names": lambda n: program(storage(), each(n, "    MOVE 1 TO NAME-#.")),
    "words that do not belong": lambda n: program(storage(), each(n, "    ADD 1 TO TO A.")),
}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("tarka", help="the program to measure")
    parser.add_argument("--count", type=int, default=300, help="how often the small program has it")
    parser.add_argument("--limit", type=float, default=11, help="what is too much for ten times")
    parser.add_argument("--only", action="append", choices=CONSTRUCTS, metavar="CONSTRUCT")
    arguments = parser.parse_args()
    failed = False
    print(f"{'construct':<30} {'each':>9} {'growth':>7}")
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "bench.cbl")

        def count(lines):
            with open(path, "w", encoding="ascii") as file:
                file.write("\n".join(lines) + "\n")
            return instructions([arguments.tarka, "check", "--source-format=free", path])

        empty = count(program(storage(), ["    ADD 1 TO A."]))
        for name in arguments.only or CONSTRUCTS:
            small, large = (count(CONSTRUCTS[name](arguments.count * factor)) - empty
                            for factor in (1, 10))
            growth = large / small
            failed |= growth > arguments.limit
            print(f"{name:<30} {large / arguments.count / 10:>9,.0f} {growth:>7.2f}"
                  f"{'  *' if growth > arguments.limit else ''}", flush=True)
    sys.exit(failed)


if __name__ == "__main__":
    main()
