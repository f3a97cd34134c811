#!/usr/bin/env python3
"""Measures `tarka check` and `tarka cfg` on generated programs of growing size.

Prints what many small programs take, the instructions that an ordinary program takes,
and a table for each direction of growth: time as a ratio to what `LC_ALL=C wc` takes on
the same file, peak memory in bytes a line, and how much the time grew against the size.
Each time is the best of several runs.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile

from generate import CONTROL, KINDS
from measure import best, instructions

TYPICAL = dict(lines=100_000, items=5_000, paragraphs=2_000, depth=2, group=50, nesting=1, kind="plain")


def measure(command, runs):
    """The least wall time in seconds and the peak memory in bytes of a command."""
    cost = best(command, runs)
    return cost.wall, cost.memory


def write_program(path, knobs):
    """Writes the program of these knobs and gives its lines.

    A process of its own makes the text: what this one holds would count as the peak memory of the
    programs that it starts.
    """
    generator = os.path.join(os.path.dirname(os.path.abspath(__file__)), "generate.py")
    options = [f"--{name}={value}" for name, value in knobs.items()]
    with open(path, "wb") as source:
        subprocess.run([sys.executable, generator, *options], stdout=source, check=True)
    with open(path, "rb") as source:
        return sum(1 for _ in source)


def table(title, tarka, command, sizes, runs, folder):
    print(f"\n{title}")
    print(f"{'lines':>9} {'MB':>6} {'wc ms':>7} {'ms':>8} {'x wc':>6} {'bytes/line':>10} {'growth':>7}")
    before = None
    for knobs in sizes:
        path = os.path.join(folder, "bench.cbl")
        lines = write_program(path, knobs)
        size = os.path.getsize(path)
        wc, _ = measure(["wc", path], runs)
        seconds, peak = measure([tarka, *command, path], runs)
        growth = ""
        if before:
            growth = f"{(seconds / before[1]) / (size / before[0]):.2f}"
        print(
            f"{lines:>9} {size / 1e6:>6.1f} {wc * 1e3:>7.1f} {seconds * 1e3:>8.1f} "
            f"{seconds / wc:>6.1f} {peak / lines:>10.0f} {growth:>7}",
            flush=True,
        )
        before = size, seconds


def stage_table(title, stages, sizes, runs, folder):
    """What the stages take, each by itself: the least processor time of several runs."""
    print(f"\n{title}")
    print(f"{'lines':>9} {'read':>8} {'check':>8} {'cfg':>8} {'flow':>8} {'flow/check':>10} {'growth':>7}")
    before = None
    for knobs in sizes:
        path = os.path.join(folder, "bench.cbl")
        lines = write_program(path, knobs)
        least = {}
        for _ in range(runs):
            words = subprocess.run([stages, path], capture_output=True, text=True, check=True).stdout.split()
            for stage, milliseconds in zip(words[::2], words[1::2]):
                least[stage] = min(least.get(stage, float("inf")), float(milliseconds))
        growth = ""
        if before:
            growth = f"{(least['flow'] / before[1]) / (lines / before[0]):.2f}"
        print(
            f"{lines:>9} {least['read']:>8.1f} {least['check']:>8.1f} {least['cfg']:>8.1f} {least['flow']:>8.1f} "
            f"{least['flow'] / least['check']:>10.2f} {growth:>7}",
            flush=True,
        )
        before = lines, least['flow']


def portfolio_table(tarka, programs, runs, folder):
    """Many small programs that share copybooks, of which the lines count as often as they are read."""
    generator = os.path.join(os.path.dirname(os.path.abspath(__file__)), "portfolio.py")
    said = subprocess.run([sys.executable, generator, folder, f"--programs={programs}"],
                          capture_output=True, text=True, check=True).stdout
    own, copied = (int(word) for word in said.split() if word.isdigit())
    lines = own + copied
    print(f"\ncheck: {programs} programs, {own} lines, and {copied} lines copied")
    print(f"{'jobs':>5} {'ms':>8} {'user+sys':>9} {'lines/s':>10} {'faults':>8}")
    for jobs in (1, 2):
        cost = best([tarka, "check", "-j", str(jobs), "-I", f"{folder}/copy", f"{folder}/src"], runs)
        print(f"{jobs:>5} {cost.wall * 1e3:>8.0f} {cost.cpu * 1e3:>9.0f} {lines / cost.wall:>10,.0f} "
              f"{cost.faults:>8}", flush=True)


def instruction_table(tarka, folder):
    """Instructions of an ordinary program of 120,000 lines, which are the same on a busy machine."""
    if not shutil.which("valgrind"):
        print("\ninstructions are not counted: there is no valgrind")
        return
    path = os.path.join(folder, "bench.cbl")
    lines = write_program(path, TYPICAL)
    print(f"\ninstructions a line, {lines} lines")
    for title, command in (("read", ["check", "--syntax-only"]), ("check", ["check"])):
        print(f"{title:>6} {instructions([tarka, *command, path]) / lines:>7,.0f}", flush=True)
    print(f"{'wc':>6} {instructions(['wc', path]) / lines:>7,.0f}")


def grow(**changes):
    """The typical program with some knobs turned, one program for each value."""
    count = len(next(iter(changes.values())))
    return [dict(TYPICAL, **{name: values[i] for name, values in changes.items()}) for i in range(count)]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("tarka", help="the program to measure")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--quick", action="store_true", help="small sizes only")
    arguments = parser.parse_args()
    scale = 10 if arguments.quick else 1
    def to(*values):
        return [max(1, value // scale) for value in values]

    print("growth is the time's growth over the size's: 1.00 is linear")
    with tempfile.TemporaryDirectory() as folder:
        def show(title, command, sizes):
            table(title, arguments.tarka, command, sizes, arguments.runs, folder)

        portfolio_table(arguments.tarka, 1000 // scale, arguments.runs, os.path.join(folder, "many"))
        instruction_table(arguments.tarka, folder)
        everything = grow(lines=to(125_000, 500_000, 1_000_000), items=to(6_000, 25_000, 50_000),
                          paragraphs=to(1_250, 5_000, 10_000))
        show("check: everything grows", ["check"], everything)
        show("check --syntax-only: reading alone, everything grows", ["check", "--syntax-only"],
             everything)
        for kind in KINDS:
            show(f"check: items, {kind}", ["check"], grow(
                lines=to(1_000, 1_000), items=to(100_000, 400_000), kind=[kind] * 2))
        show("check: items in one group", ["check"], grow(
            lines=to(1_000, 1_000), items=to(50_000, 200_000), group=to(50_000, 200_000)))
        show("check: depth of groups", ["check"], grow(
            lines=to(1_000, 1_000), items=to(50_000, 50_000), group=[1, 1], depth=[10, 40]))
        show("check: paragraphs", ["check"], grow(
            lines=to(200_000, 200_000), paragraphs=to(10_000, 100_000)))
        show("check: nesting of IF", ["check"], grow(
            lines=to(100_000, 100_000), nesting=[10, 500]))
        show("cfg: everything grows", ["cfg"], everything[:2])

        stages = os.path.join(os.path.dirname(arguments.tarka), "..", "..", "bench", "tarka-stages")

        def show_stages(title, sizes):
            stage_table(title, stages, sizes, arguments.runs, folder)

        show_stages("milliseconds of each stage: everything grows", everything)
        for control in CONTROL:
            show_stages(f"milliseconds of each stage: nothing but control, {control}",
                        [dict(paragraphs=count, control=control) for count in to(10_000, 40_000)])


if __name__ == "__main__":
    main()
