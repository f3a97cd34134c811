#!/usr/bin/env python3
"""Compares two builds of the program on the same files.

    compare.py [--runs N] [--callgrind] OLD NEW FILE...

The builds take turns, so that what disturbs the machine disturbs both; of each the least of
all runs counts. With --callgrind instructions are counted too, which nothing disturbs.
OLD and NEW are programs, or folders with `tarka` and its libraries.
"""

import argparse
import os

from measure import ENVIRONMENT, Cost, instructions, run


def program(build):
    """The command of a build, and the environment in which it finds its libraries."""
    if not os.path.isdir(build):
        return build, ENVIRONMENT
    for path in ("tarka", "bin/tarka", "tools/tarka/tarka"):
        if os.access(os.path.join(build, path), os.X_OK):
            libraries = os.pathsep.join((build, os.path.join(build, "lib")))
            return os.path.join(build, path), dict(ENVIRONMENT, LD_LIBRARY_PATH=libraries)
    raise SystemExit(f"compare: there is no tarka in {build}")


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("old")
    parser.add_argument("new")
    parser.add_argument("files", nargs="+", help="files and options of `tarka check`")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--callgrind", action="store_true")
    arguments, options = parser.parse_known_args()

    builds = [program(build) for build in (arguments.old, arguments.new)]
    costs = [Cost(), Cost()]
    for _ in range(arguments.runs):
        for (tarka, environment), cost in zip(builds, costs):
            cost.add(run([tarka, "check", *options, *arguments.files], (0, 1), environment))

    def show(name, unit, old, new):
        print(f"{name:<14} {old:>14,.3f} {new:>14,.3f} {unit:<8} {new / old:6.3f}")

    print(f"{'':<14} {'old':>14} {'new':>14} {'':<8} {'new/old':>7}")
    old, new = costs
    show("wall", "s", old.wall, new.wall)
    show("user+sys", "s", old.cpu, new.cpu)
    show("peak memory", "MB", old.memory / 1e6, new.memory / 1e6)
    show("page faults", "", old.faults, new.faults)
    if arguments.callgrind:
        counted = [instructions([tarka, "check", *options, *arguments.files], environment)
                   for tarka, environment in builds]
        show("instructions", "million", counted[0] / 1e6, counted[1] / 1e6)


if __name__ == "__main__":
    main()
