"""Compares what one worker reports of many programs with what a process for each of them reports.

    one-worker.py TARKA DIRECTORY SOURCE...

Every program below the directories SOURCE is checked by a process of its own, then all of them by one
worker, in several orders. A report that differs, by a single byte, shows that something of one
program is left for the next. The reports are compared as the cache has them: as they come from the
workers, each by itself.
"""

import os
import pathlib
import random
import shutil
import subprocess
import sys

OPTIONS = ["--all", "--enable-rw", "--enable-cbltdli"]
ENDINGS = {".cbl", ".cob", ".cpy", ".CBL"}


def check(tarka, cache, programs):
    subprocess.run([tarka, "check", "-j", "1", *OPTIONS, *map(str, programs)],
                   env=dict(os.environ, XDG_CACHE_HOME=str(cache)), stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=False)


def reports(cache):
    return {entry.name: entry.read_bytes() for entry in cache.rglob("llvmcache-*")}


def main():
    tarka, directory, *sources = sys.argv[1:]
    directory = pathlib.Path(directory)
    shutil.rmtree(directory, ignore_errors=True)
    programs = sorted(path for source in sources for path in pathlib.Path(source).rglob("*")
                      if path.suffix in ENDINGS)
    assert len(programs) > 100, "the programs are not there"

    alone = directory / "alone"
    for program in programs:
        check(tarka, alone, [program])
    expected = reports(alone)
    assert len(expected) > len(programs) // 2, "the cache does not keep the reports"

    orders = {"as they come": programs, "from the last": programs[::-1]}
    for seed in range(2):
        orders[f"shuffled by {seed}"] = random.Random(seed).sample(programs, len(programs))
    for number, (name, order) in enumerate(orders.items()):
        together = directory / str(number)
        check(tarka, together, order)
        found = reports(together)
        if found == expected:
            continue
        for key in sorted(found.keys() | expected.keys()):
            if found.get(key) != expected.get(key):
                print(f"{name}: {key} is not the same:\n{expected.get(key)}\n{found.get(key)}")
        sys.exit(1)


if __name__ == "__main__":
    main()
