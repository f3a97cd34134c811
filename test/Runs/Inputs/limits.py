"""Runs in which something goes wrong with a worker, or with the program itself.

usage: limits.py TARKA FOLDER

Opening a named pipe that nobody writes to never returns: a program of that kind hangs its worker.
"""

import json
import os
import signal
import subprocess
import sys
import time
from pathlib import Path

tarka, folder = sys.argv[1], Path(sys.argv[2])
os.chdir(folder)

FAULTY = """       ID DIVISION.
       PROGRAM-ID. P.
       PROCEDURE DIVISION.
           DISPLAY X.
"""
names = [f"p{number:03}.cbl" for number in range(60)]
for name in names:
    Path(name).write_text(FAULTY)
os.mkfifo("hangs.cbl")
programs = names[:20] + ["hangs.cbl"] + names[20:]


def start(*options, files=programs):
    command = [tarka, "check", "-j4", *options, *files]
    return subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)


def children(process):
    """The processes that a process has started."""
    found = []
    for path in Path("/proc").glob("[0-9]*/stat"):
        try:
            if int(path.read_text().rpartition(")")[2].split()[1]) == process:
                found.append(int(path.parent.name))
        except OSError:
            pass  # it has ended meanwhile
    return found


def wait_for(condition):
    deadline = time.monotonic() + 60
    while not (result := condition()):
        assert time.monotonic() < deadline, "nothing happens"
        time.sleep(0.01)
    return result


def only_hanging(process):
    """The worker that hangs, when it is the only one left."""
    before = children(process.pid)
    time.sleep(0.5)
    return before[0] if len(before) == 1 and children(process.pid) == before else None


def reported(errors):
    """The files of the report in their order."""
    return [line.split(":")[0] for line in errors.splitlines() if not line.startswith("tarka:")]


def check(name, condition, seen):
    if not condition:
        sys.exit(f"{name}: {seen}")


# The time is over: one message for the file, the others are all reported, in order.
run = start("--time-limit=0.5")
_, errors = run.communicate(timeout=60)
check("time limit", run.returncode == 3 and reported(errors) == names, (run.returncode, errors))
messages = [line for line in errors.splitlines() if line.startswith("tarka:")]
wanted = "tarka: hangs.cbl: not analysed: it takes longer than 0.5 s (--time-limit)"
check("time limit", messages == [wanted] and errors.splitlines()[20] == wanted, errors)

# A worker crashes, and again the one that tries the program alone. Every form for programs has the
# failure.
for form in ("json", "ndjson", "sarif", "github", "junit", "gcc"):
    run = start(f"--format={form}")
    first = wait_for(lambda: only_hanging(run))
    os.kill(first, signal.SIGABRT)  # the sanitizers leave it alone
    os.kill(wait_for(lambda: (found := only_hanging(run)) != first and found), signal.SIGABRT)
    output, errors = run.communicate(timeout=60)
    check(form, run.returncode == 3, run.returncode)
    check(form, "hangs.cbl: not analysed: internal failure (Aborted)" in errors, errors)
    check(form, output.count("internal failure (Aborted)") == 1, output)
    if form in ("json", "sarif"):
        json.loads(output)

# Memory.
if "ASAN_OPTIONS" not in os.environ:
    Path("large.cbl").write_text(FAULTY + "           DISPLAY 'X'.\n" * 20_000)
    run = start("--memory-limit=1", files=["large.cbl"])
    _, errors = run.communicate(timeout=60)
    wanted = "tarka: large.cbl: not analysed: it needs more than 1 MiB of memory (--memory-limit)\n"
    os.remove("large.cbl")
    check("memory limit", run.returncode == 3 and errors == wanted, (run.returncode, errors))

# A signal: what is known is reported in order, the report is complete, and no process is left.
for number in (signal.SIGINT, signal.SIGTERM):
    run = start("--format=json", "--output=report.json")
    hanging = wait_for(lambda: only_hanging(run))
    run.send_signal(number)
    _, errors = run.communicate(timeout=60)
    check("signal", run.returncode == -number, run.returncode)
    check("signal", errors == "tarka: stopped; only 60 programs are reported\n", errors)
    report = json.loads(Path("report.json").read_text())
    check("signal", [each["file"] for each in report["diagnostics"]] == names, report)
    check("signal", report["summary"]["exitStatus"] == 128 + number, report["summary"])
    check("signal", not os.path.exists(f"/proc/{hanging}"), "a worker is left")
    check("signal", sorted(os.listdir()) == sorted([*programs, "report.json"]), os.listdir())

# Killed outright, with workers that hang: none of them is left.
for number in range(3):
    os.mkfifo(f"hangs{number}.cbl")
run = start(files=["hangs.cbl", *(f"hangs{number}.cbl" for number in range(3))])
workers = wait_for(lambda: len(found := children(run.pid)) == 4 and found)
run.kill()
run.communicate(timeout=60)
wait_for(lambda: not any(os.path.exists(f"/proc/{worker}") for worker in workers))
