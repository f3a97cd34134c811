#!/usr/bin/env python3
"""Generates many COBOL programs that share copybooks, for measurements.

Small programs are more frequent than large ones, as in a real portfolio. The same
arguments give the same files. The programs are correct: checking them reports
nothing.
"""

import argparse
import math
import os
import random

PICTURES = ("PIC X(20)", "PIC S9(7)V99 COMP-3", "PIC 9(5)", "PIC S9(8) COMP", "PIC S9(4)")


class Names:
    """The items that the statements of a program can use."""

    def __init__(self):
        self.numbers = ["COUNTER"]
        self.texts = ["TEXT-1"]
        self.tables = []
        self.flags = []

    def add(self, name, picture):
        (self.texts if "X" in picture else self.numbers).append(name)


def copybook(number, rng):
    """The lines of a record, and what its names are without the prefix."""
    fields = []
    out = [
        f"      *  RECORD {number} OF THE PORTFOLIO",
        "      *  CHANGED BY      ON",
        "       01  :TAG:-RECORD.",
    ]
    for field in range(rng.randrange(15, 120)):
        if field % 10 == 0:
            out.append(f"           05  :TAG:-GROUP-{field}.")
        picture = PICTURES[rng.randrange(5)]
        name = f":TAG:-FIELD-{field}"
        kind = rng.randrange(20)
        if kind == 0:
            out.append(f"               10  {name}-T {picture} OCCURS 12.")
            fields.append((f"{name}-T", picture, "table"))
        elif kind == 1:
            out += [f"               10  {name}-C PIC X.",
                    f"                   88  {name}-YES VALUE 'Y'.",
                    f"                   88  {name}-NO  VALUE 'N'."]
            fields.append((f"{name}-YES", picture, "flag"))
        else:
            out.append(f"               10  {name:<24} {picture}.")
            fields.append((name, picture, "item"))
    return out, fields


def statement(rng, names, paragraphs):
    """The lines of one statement."""

    def number():
        return rng.choice(names.numbers)

    def text():
        return rng.choice(names.texts)

    kind = rng.randrange(16)
    if kind <= 3:
        return [f"           MOVE {number()} TO {number()}."]
    if kind <= 5:
        return [f"           MOVE {text()}", f"             TO {text()}."]
    if kind == 6:
        return [f"           ADD 1 TO {number()}."]
    if kind == 7:
        return [f"           COMPUTE {number()} = {number()} * 2 + 1."]
    if kind == 8:
        return [f"           PERFORM PARAGRAPH-{rng.randrange(paragraphs)}."]
    if kind == 9:
        return [f"           DISPLAY 'THE VALUE OF THE ITEM IS '", f"               {number()}."]
    if kind == 10 and names.tables:
        return [f"           MOVE 1 TO {rng.choice(names.tables)} (COUNTER)."]
    if kind == 11 and names.flags:
        return [f"           IF {rng.choice(names.flags)}",
                f"              MOVE ZERO TO {number()}", "           END-IF."]
    if kind == 12:
        return [f"           EVALUATE {number()}",
                f"              WHEN 1 MOVE 2 TO {number()}",
                f"              WHEN 3 ADD 1 TO {number()}",
                "              WHEN OTHER CONTINUE", "           END-EVALUATE."]
    if kind == 13:
        return [f"           CALL 'CALLED{rng.randrange(100):02d}' USING TEXT-1 COUNTER."]
    if kind == 14:
        return ["      *    WHAT THE NEXT STATEMENTS ARE FOR"]
    return [f"           IF {number()} > {number()}", f"              AND {text()} NOT = SPACES",
            f"              MOVE {number()} TO {number()}",
            "           ELSE", f"              SUBTRACT 1 FROM {number()}", "           END-IF."]


def program(number, lines, books, rng):
    """The lines of a program of about `lines` lines, and how many lines it copies."""
    names = Names()
    out = [
        "       IDENTIFICATION DIVISION.",
        f"       PROGRAM-ID. PROG{number:04d}.",
        "       ENVIRONMENT DIVISION.",
        "       DATA DIVISION.",
        "       WORKING-STORAGE SECTION.",
        "       77  COUNTER PIC 9(5).",
        "       77  TEXT-1 PIC X(20).",
    ]
    copied = 0
    for book in rng.sample(range(len(books)), rng.randrange(1, 9)):
        text, fields = books[book]
        # Every other copybook has its names as they are, the others get a prefix.
        tag = f"B{book:02d}"
        if book % 2:
            out.append(f"           COPY BOOK{book:02d} REPLACING ==:TAG:== BY ==P{number}B{book}==.")
            tag = f"P{number}B{book}"
        else:
            out.append(f"           COPY BOOK{book:02d}.")
        copied += len(text)
        for name, picture, kind in fields:
            name = name.replace(":TAG:", tag)
            if kind == "table":
                if "X" not in picture:
                    names.tables.append(name)
            elif kind == "flag":
                names.flags.append(name)
            else:
                names.add(name, picture)
    out.append("       01  OWN-RECORD.")
    for item in range(max(3, lines // 10)):
        picture = PICTURES[rng.randrange(5)]
        out.append(f"           05  OWN-ITEM-{item:<16} {picture}.")
        names.add(f"OWN-ITEM-{item}", picture)
    out += ["       PROCEDURE DIVISION.", "       MAIN-PARAGRAPH."]
    paragraphs = max(1, lines // 40)
    out += ["           PERFORM PARAGRAPH-0.", "           STOP RUN."]
    each = max(1, (lines - len(out)) // paragraphs)
    for paragraph in range(paragraphs):
        out += ["      *---------------------------------------------------------------*",
                f"       PARAGRAPH-{paragraph}."]
        end = len(out) + each - 2
        while len(out) < end:
            out += statement(rng, names, paragraphs)
    return out, copied


def write(path, lines):
    with open(path, "w", encoding="ascii") as file:
        file.write("\n".join(lines) + "\n")


def generate(folder, programs=1000, books=40, least=100, most=3000, seed=1):
    """Writes the portfolio below `folder`; gives the lines of the programs and of what they copy."""
    rng = random.Random(seed)
    for place in ("src", "copy"):
        os.makedirs(os.path.join(folder, place), exist_ok=True)
    made = []
    for book in range(books):
        text, fields = copybook(book, rng)
        if book % 2 == 0:
            text = [line.replace(":TAG:", f"B{book:02d}") for line in text]
        made.append((text, fields))
        write(os.path.join(folder, "copy", f"BOOK{book:02d}.cpy"), text)
    own = copied = 0
    for number in range(programs):
        lines = int(math.exp(rng.uniform(math.log(least), math.log(most))))
        text, more = program(number, lines, made, rng)
        write(os.path.join(folder, "src", f"PROG{number:04d}.cbl"), text)
        own += len(text)
        copied += more
    return own, copied


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder")
    parser.add_argument("--programs", type=int, default=1000)
    parser.add_argument("--books", type=int, default=40, help="copybooks")
    parser.add_argument("--least", type=int, default=100, help="lines of the smallest program")
    parser.add_argument("--most", type=int, default=3000, help="lines of the largest program")
    parser.add_argument("--seed", type=int, default=1)
    own, copied = generate(**vars(parser.parse_args()))
    print(f"{own} lines of programs, {copied} lines copied")


if __name__ == "__main__":
    main()
