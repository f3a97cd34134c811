#!/usr/bin/env python3
"""Checks that the work grows with the source and not with its square.

Each construct of the language, and each command, gets a program that has something some
times and then ten times as often, and the instructions of `tarka` are counted. More than
11 times as many, beyond what a program without it takes, is reported, and makes the exit
status 1.
"""

import argparse
import os
import sys
import tempfile

from constructs import COMMANDS, CONSTRUCTS, Case, fixed, program, storage
from measure import instructions


def main():
    everything = CONSTRUCTS | COMMANDS
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tarka", help="the program to measure")
    parser.add_argument("--count", type=int, default=100, help="how often the small program has it")
    parser.add_argument("--limit", type=float, default=11, help="what is too much for ten times")
    parser.add_argument("--only", action="append", choices=everything, metavar="CONSTRUCT")
    arguments = parser.parse_args()
    print(f"{'construct':<34} {'each':>9} {'growth':>7}")
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "bench.cbl")

        def write(name, lines):
            with open(os.path.join(folder, name), "w", encoding="ascii") as file:
                file.write("\n".join(lines) + "\n")

        def count(made):
            case = made if isinstance(made, Case) else Case(made)
            write("bench.cbl", case.lines)
            for name, lines in case.copybooks.items():
                write(f"{name}.cpy", lines)
            return instructions([arguments.tarka, *(word.replace("FILE", path) for word in case.command)])

        def empty(case):
            lines = program(storage(), ["    ADD 1 TO A."])
            if not isinstance(case, Case):
                return count(lines)
            if "--source-format=fixed" in case.command:
                lines = fixed(lines).lines
            return count(Case(lines, case.command))

        failed = False
        without = {}
        for name in arguments.only or everything:
            make = everything[name]
            command = str(getattr(make(1), "command", ""))
            if command not in without:
                without[command] = empty(make(1))
            small, large = (count(make(arguments.count * factor)) - without[command]
                            for factor in (1, 10))
            growth = large / small
            failed |= growth > arguments.limit
            print(f"{name:<34} {large / arguments.count / 10:>9,.0f} {growth:>7.2f}"
                  f"{'  *' if growth > arguments.limit else ''}", flush=True)
    sys.exit(failed)


if __name__ == "__main__":
    main()
