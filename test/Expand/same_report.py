"""The text after COPY and REPLACE is a source of the same program.

    same_report.py TARKA DIRECTORY TEMPORARY...

Expands every program of the directories, and compares the report on the result with that on the
program: the words and the diagnostics are the same, in the same order. Expanding the result again
changes nothing.
"""

import collections
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

# The options that say how a source is read, as they stand in RUN lines.
OPTIONS = re.compile(r"(?<!\S)(?:-I *\S+|-D *\S+|--source-format=\S+|--enable-\S+|--debug|--dateproc|--cics|--sql)")
COPIES = re.compile(rb"\b(COPY|REPLACE|INCLUDE)\b", re.IGNORECASE)

# The faults that only the program has, by their numbers: of COPY inside itself, which the expansion
# leaves out, and of the macros of maps, in whose place there is COBOL.
FAULTS_OF_THE_STATEMENTS = {45, *range(100, 120)}


def options_of(source):
    found = ["-I" + str(source.parent), "-I" + str(source.parent / "copy")]
    for line in source.read_text(encoding="latin-1").splitlines():
        if "RUN:" in line:
            for option in OPTIONS.findall(line.replace("%S", str(source.parent))):
                found += option.split()
    return found


def look_at(tarka, source, target):
    def run(*arguments):
        return subprocess.run([tarka, *arguments, *options_of(source)], capture_output=True)

    def report(path):
        result = run("check", "--all", "--format=json", path)
        # The directory of the file itself is searched.
        return [(found["severity"], found["number"], found["message"].split("; searched: ")[0], found.get("fix") is not None)
                for found in json.loads(result.stdout)["diagnostics"]
                if found["number"] not in FAULTS_OF_THE_STATEMENTS], result.returncode

    def words(path):
        return [word["text"] for word in json.loads(run("expand", "--format=json", path).stdout)["words"]]

    expanded = run("expand", source, "--output", target)
    if expanded.returncode > 1:
        return f"{source}: expand ends with {expanded.returncode}: {expanded.stderr.decode()}"
    before, after = report(source), report(target)
    if before != after:
        lost = collections.Counter(before[0]) - collections.Counter(after[0])
        new = collections.Counter(after[0]) - collections.Counter(before[0])
        return f"{source}: lost {dict(lost)}, new {dict(new)}, status {before[1]} and {after[1]}"
    if words(source) != words(target):
        return f"{source}: the words differ"
    again = run("expand", target).stdout
    if again != target.read_bytes():
        return f"{source}: expanding twice changes the text"
    return ""


def main():
    tarka, temporary, *directories = sys.argv[1:]
    sources = sorted(
        path
        for directory in directories
        for path in pathlib.Path(directory).rglob("*")
        if path.suffix in (".cbl", ".cob") and COPIES.search(path.read_bytes())
    )
    targets = [pathlib.Path(temporary, str(number), source.name) for number, source in enumerate(sources)]
    for target in targets:
        target.parent.mkdir(parents=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        faults = [fault for fault in pool.map(lambda pair: look_at(tarka, *pair), zip(sources, targets)) if fault]
    print(*faults, f"{len(sources)} programs, {len(faults)} differ", sep="\n")
    return 1 if faults or len(sources) < 15 else 0


sys.exit(main())
