#!/usr/bin/env python3
"""Measures `tarka lsp` on generated programs: from a keystroke to its diagnostics, requests, memory.

usage: lsp.py TARKA [--check]

With --check the status is 1 when a program of 20,000 or 100,000 lines is over its bounds.
"""

import os
import statistics
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "test/Lsp/Inputs"))

from client import Client  # noqa: E402
from run import TYPICAL, write_program  # noqa: E402

KEYSTROKES = 21
REQUESTS = 21
# Requests about a text as a whole.
WHOLE = ("documentSymbol", "semanticTokens/full", "foldingRange", "codeLens", "inlayHint")
# By lines: keystroke to diagnostics and requests in milliseconds; the most memory of the server and
# of a snapshot, whatever was asked, in megabytes. None where nothing is promised.
BOUNDS = {
    20_000: {"keystroke": 60, "hover": 5, "definition": 5, "server": 20, "snapshot": 25}
    | dict.fromkeys(WHOLE, 50),
    100_000: {"keystroke": 300},
}


def timed(work):
    start = time.perf_counter()
    work()
    return (time.perf_counter() - start) * 1e3


def memory(pid):
    """What a process has for itself, in megabytes: its memory without that shared with others."""
    rows = Path(f"/proc/{pid}/smaps_rollup").read_text().splitlines()
    return sum(int(row.split()[1]) for row in rows if row.startswith("Private_")) / 1024


def resident(pid):
    """The most that a process has had in memory, in megabytes."""
    rows = Path(f"/proc/{pid}/status").read_text().splitlines()
    return sum(int(row.split()[1]) for row in rows if row.startswith("VmHWM")) / 1024


def measure(tarka, lines):
    with tempfile.TemporaryDirectory() as directory:
        knobs = dict(TYPICAL, lines=lines, items=lines // 20, paragraphs=lines // 50)
        write_program(os.path.join(directory, "P.cbl"), knobs)
        client = Client(tarka, directory)
        opened = timed(lambda: (client.open("P.cbl"), client.wait("P.cbl")))
        text = client.texts[client.path("P.cbl")]
        # Someone types a comment in the middle of the procedures.
        place = text.index("\n", len(text) // 2) + 1
        client.change("P.cbl", (place, place, "      * \n"))
        client.wait("P.cbl")
        strokes = []
        for number in range(KEYSTROKES):
            where = place + 8 + number

            def stroke():
                client.change("P.cbl", (where, where, "x"))
                client.wait("P.cbl")

            strokes.append(timed(stroke))
        needle = f"ITEM-{lines // 40} "
        first = timed(lambda: client.ask("hover", "P.cbl", needle, 1))
        result = {"open": opened, "keystroke": statistics.median(strokes), "first request": first}
        for method in ("hover", "definition", "references", "completion"):
            times = [timed(lambda: client.ask(method, "P.cbl", needle, 1)) for _ in range(REQUESTS)]
            result[method] = statistics.median(times)
        pid = client.process.pid
        everything = {"start": {"line": 0, "character": 0}, "end": {"line": lines, "character": 0}}
        for method in WHOLE:
            times = []
            for _ in range(3):
                times.append(timed(lambda: client.about(method, "P.cbl", range=everything)))
                children = Path(f"/proc/{pid}/task/{pid}/children").read_text().split()
                result["snapshot"] = max(result.get("snapshot", 0), *map(memory, children))
            result[method] = statistics.median(times)
        result["snapshot"] = result.pop("snapshot")
        result["server"] = resident(pid)
        client.end()
        return result


def main():
    tarka, check = sys.argv[1], "--check" in sys.argv[2:]
    over = False
    results = {lines: measure(os.path.abspath(tarka), lines) for lines in BOUNDS}
    print(f"{'':20}" + "".join(f"{lines:>10,} lines" for lines in results))
    for name in next(iter(results.values())):
        unit = "MB" if name in ("server", "snapshot") else "ms"
        row = f"{name:20}"
        for lines, result in results.items():
            bound = BOUNDS[lines].get(name)
            isOver = bound is not None and result[name] > bound
            over |= isOver
            row += f"{result[name]:12.1f} {unit}" + (" !" if isOver else "  ")
        print(row.rstrip())
    sys.exit(1 if check and over else 0)


if __name__ == "__main__":
    main()
