"""What a run of the program costs, measured in ways that a busy machine disturbs more or less."""

import os
import re
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass

# What is measured is the analysis: no report may come from the cache.
ENVIRONMENT = dict(os.environ, LC_ALL="C", XDG_CACHE_HOME="/dev/null")


@dataclass
class Cost:
    """Wall and processor time in seconds, peak memory in bytes, page faults."""

    wall: float = float("inf")
    cpu: float = float("inf")
    memory: int = 0
    faults: int = sys.maxsize

    def add(self, other):
        """Keeps the least of two runs, which is the one that was disturbed less."""
        self.wall = min(self.wall, other.wall)
        self.cpu = min(self.cpu, other.cpu)
        self.memory = max(self.memory, other.memory)
        self.faults = min(self.faults, other.faults)


def run(command, ok=(0,), environment=None):
    """The cost of one run of a command and all its processes."""
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               env=environment or ENVIRONMENT)
    _, status, usage = os.wait4(process.pid, 0)
    wall = time.perf_counter() - start
    if os.waitstatus_to_exitcode(status) not in ok:
        sys.exit(f"bench: {' '.join(command)} ended with {os.waitstatus_to_exitcode(status)}")
    return Cost(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024, usage.ru_minflt)


def best(command, runs, **options):
    """The least cost of several runs."""
    cost = Cost()
    for _ in range(runs):
        cost.add(run(command, **options))
    return cost


def instructions(command, environment=None):
    """How many instructions a command and all its processes carry out, as callgrind counts them.

    A new process goes on counting from what its parent has counted. The parent writes down its count and begins
    anew before each fork, so that nothing is counted twice.
    """
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["valgrind", "--tool=callgrind", "--trace-children=yes", "--dump-before=fork",
                        f"--callgrind-out-file={folder}/out.%p", *command],
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       env=environment or ENVIRONMENT, check=False)
        total = 0
        for name in os.listdir(folder):
            with open(os.path.join(folder, name), encoding="latin-1") as file:
                total += int(re.findall(r"^(?:totals|summary): (\d+)", file.read(), re.M)[-1])
    if not total:
        sys.exit("bench: callgrind has counted nothing; is valgrind installed?")
    return total
