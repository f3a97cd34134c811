#!/usr/bin/env python3
"""Generates a COBOL program of any size, for measurements.

The options are independent of each other, so that growth can be measured in one
direction at a time. The program is correct: checking it reports nothing.
"""

import argparse
import random
import sys


def plain(item, _made):
    return item + "."


def redefined(item, made):
    if made % 5 == 2:
        item = item.replace(" PIC", f" REDEFINES ITEM-{made - 1} PIC", 1)
    return item + "."


def indexed(item, made):
    return f"{item}\n               OCCURS 10 INDEXED BY IX-{made}."


def variable(item, made):
    return item + ("\n               OCCURS 1 TO 10 DEPENDING ON COUNTER." if made % 5 == 0 else ".")


# How an item is written, by the kind of program.
KINDS = {"plain": plain, "redefined": redefined, "indexed": indexed, "variable": variable}


def data_items(out, items, depth, group, kind):
    """Records of `group` items each, the items `depth` groups below the record."""
    pictures = ("PIC X(20)", "PIC S9(7)V99 COMP-3", "PIC 9(5)", "PIC S9(8) COMP", "PIC ZZ,ZZ9.99-")
    write = KINDS[kind]
    made = 0
    record = 0
    while made < items:
        record += 1
        out.append(f"       01  RECORD-{record}.")
        level = 5
        for nested in range(depth):
            out.append(f"           {min(level, 48):02d}  GROUP-{record}-{nested}.")
            level += 1
        for _ in range(min(group, items - made)):
            made += 1
            item = f"           {min(level, 49):02d}  ITEM-{made:<12} {pictures[made % 5]}"
            out += write(item, made).split("\n")


def statements(out, rng, paragraph, count, items, nesting, kind):
    """`count` lines of the statements that programs are made of.

    A paragraph works on the items of a few records, as paragraphs do, and now and then on any.
    """

    if kind != "plain":
        items = 0  # the items stand for themselves: references would need subscripts

    fives = max(1, items // 5)
    window = min(fives, 40)
    base = rng.randrange(fives - window + 1)

    # Of every five items the first three are numeric, the fourth is edited, the fifth text.
    def pick(choices, otherwise):
        if items < 5:
            return otherwise
        five = rng.randrange(fives) if rng.randrange(10) == 0 else base + rng.randrange(window)
        return f"ITEM-{five * 5 + rng.choice(choices)}"

    def numeric():
        return pick((1, 2, 3), "COUNTER")

    def text():
        return pick((5,), "TEXT-1")

    lines = 0
    while lines < count:
        if rng.randrange(10) == 0:
            out.append("      *    WHAT THE NEXT STATEMENTS ARE FOR")
            lines += 1
        kind = rng.randrange(10)
        if kind <= 1:
            out.append(f"           MOVE {numeric()} TO {numeric()}.")
            lines += 1
        elif kind == 2:
            out.append(f"           MOVE {numeric()}")
            out.append(f"             TO {numeric()}.")
            lines += 2
        elif kind == 8:
            out.append(f"           DISPLAY 'THE VALUE OF THE ITEM IS ' {numeric()}.")
            lines += 1
        elif kind == 9:
            out.append(f"           SUBTRACT {numeric()} FROM {numeric()}")
            out.append(f"               GIVING {numeric()}.")
            lines += 2
        elif kind == 3:
            out.append(f"           ADD 1 TO {numeric()}.")
            lines += 1
        elif kind == 4:
            out.append(f"           MOVE {text()} TO {text()}.")
            lines += 1
        elif kind == 5:
            out.append(f"           COMPUTE {numeric()} = {numeric()} * 2 + 1.")
            lines += 1
        elif kind == 6:
            out.append(f"           PERFORM PARAGRAPH-{paragraph}.")
            lines += 1
        else:
            for level in range(nesting):
                indent = " " * (11 + min(level, 12))
                out.append(f"{indent}IF {numeric()} > 10")
            out.append(f"           MOVE ZERO TO {numeric()}")
            for level in range(nesting):
                out.append("           END-IF")
            out[-1] += "."
            lines += 2 * nesting + 1


def performs(paragraph, count):
    """Each procedure performs the two that come after twice its number, and loops."""
    yield f"           PERFORM P-{paragraph}-BODY UNTIL COUNTER > 9."
    yield f"       P-{paragraph}-BODY."
    for performed in (2 * paragraph, 2 * paragraph + 1):
        if performed <= count:
            yield f"           PERFORM P-{performed} THRU P-{performed}-EXIT."


def nested(paragraph, count):
    """Each procedure of the first half performs all between the next one and its counterpart."""
    if 2 * paragraph < count:
        yield f"           PERFORM P-{paragraph + 1} THRU P-{count - paragraph}-EXIT."


def gotos(paragraph, count):
    """GO TO the exit, and out of the range to what ends the run."""
    yield f"           IF COUNTER = 1 GO TO P-{paragraph}-EXIT."
    yield "           IF COUNTER = 2 GO TO LAST-PARAGRAPH."
    yield f"           IF COUNTER = 3 GO TO P-{min(paragraph + 1, count)}."
    if paragraph < count:
        yield f"           PERFORM P-{paragraph + 1} THRU P-{paragraph + 1}-EXIT."


# How procedures lead to each other, by the kind of control.
CONTROL = {"performs": performs, "nested": nested, "gotos": gotos}


def generate_control(paragraphs, control):
    """A program that is all control: what the flow graph has to follow."""
    out = [
        "       IDENTIFICATION DIVISION.",
        "       PROGRAM-ID. BENCH.",
        "       DATA DIVISION.",
        "       WORKING-STORAGE SECTION.",
        "       77  COUNTER PIC 9(5).",
        "       PROCEDURE DIVISION.",
        "       MAIN-PARAGRAPH.",
        "           PERFORM P-1 THRU P-1-EXIT.",
        "           STOP RUN.",
    ]
    for paragraph in range(1, paragraphs + 1):
        out.append(f"       P-{paragraph}.")
        out.append("           ADD 1 TO COUNTER.")
        out += CONTROL[control](paragraph, paragraphs)
        out += [f"       P-{paragraph}-EXIT.", "           EXIT."]
    return out + ["       LAST-PARAGRAPH.", "           STOP RUN."]


def generate(lines, items, paragraphs, depth, group, nesting, kind="plain", seed=1):
    """The lines of a program; `lines` is the size of the procedure division."""
    rng = random.Random(seed)
    out = [
        "       IDENTIFICATION DIVISION.",
        "       PROGRAM-ID. BENCH.",
        "       DATA DIVISION.",
        "       WORKING-STORAGE SECTION.",
        "       77  COUNTER PIC 9(5).",
        "       77  TEXT-1 PIC X(20).",
    ]
    data_items(out, items, depth, group, kind)
    out += ["       PROCEDURE DIVISION.", "       MAIN-PARAGRAPH.", "           STOP RUN."]
    for paragraph in range(1, paragraphs + 1):
        out += [
            "      *---------------------------------------------------------------*",
            f"      * PARAGRAPH-{paragraph}",
            "      *---------------------------------------------------------------*",
            f"       PARAGRAPH-{paragraph}.",
        ]
        statements(out, rng, rng.randrange(1, paragraphs + 1), max(1, lines // paragraphs), items,
                   nesting, kind)
    return out


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--lines", type=int, default=10000, help="lines of statements")
    parser.add_argument("--items", type=int, default=1000, help="elementary items")
    parser.add_argument("--paragraphs", type=int, default=100)
    parser.add_argument("--depth", type=int, default=2, help="groups above an item")
    parser.add_argument("--group", type=int, default=50, help="items in a group")
    parser.add_argument("--nesting", type=int, default=1, help="IFs inside one another")
    parser.add_argument("--kind", choices=KINDS, default="plain", help="what the items are")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--control", choices=CONTROL, help="procedures that perform each other, only")
    arguments = vars(parser.parse_args())
    control = arguments.pop("control")
    lines = generate_control(arguments["paragraphs"], control) if control else generate(**arguments)
    sys.stdout.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
