"""Starting the program must stay cheap: `tarka --version` takes at most 4 ms and 20 MB.

Usage: startup.py TARKA. Processor time is measured, and the fastest of many starts counts, because
other work on the machine can only slow a start down.
"""

import os
import subprocess
import sys

MAX_MILLISECONDS = 4
MAX_MEGABYTES = 20
STARTS = 50


def start(program):
    """Runs the program once; returns its processor time in seconds and its peak memory in bytes."""
    child = subprocess.Popen([program, "--version"], stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(child.pid, 0)
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        sys.exit(f"{program} --version: exit status {child.returncode}")
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


def main():
    program = sys.argv[1]
    starts = [start(program) for _ in range(STARTS)]
    milliseconds = min(seconds for seconds, _ in starts) * 1e3
    megabytes = max(peak for _, peak in starts) / 1e6
    print(f"{milliseconds:.1f} ms (at most {MAX_MILLISECONDS}), "
          f"{megabytes:.1f} MB (at most {MAX_MEGABYTES})")
    libraries = subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout
    if "libLLVM" in libraries:
        sys.exit("the program loads libLLVM:\n" + libraries)
    if milliseconds > MAX_MILLISECONDS or megabytes > MAX_MEGABYTES:
        sys.exit("starting the program costs too much")


main()
