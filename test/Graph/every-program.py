"""Builds and verifies the graph of every program that passes the checks.

    every-program.py TARKA DIRECTORY...

Each program is read with the options of its own RUN lines. The program runs the verifier on the
finished graph and fails if it finds a fault.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys

# The options that say how a source is read, as they stand in RUN lines.
OPTIONS = re.compile(r"(?<!\S)(?:-I *\S+|-D *\S+|--source-format=\S+|--enable-\S+|--debug|--dateproc)")


def options_of(source):
    text = source.read_text(encoding="latin-1")
    found = ["-I" + str(source.parent)]
    for line in text.splitlines():
        if "RUN:" in line:
            for option in OPTIONS.findall(line.replace("%S", str(source.parent))):
                found += option.split()
    return found


def look_at(tarka, source):
    """None for a program that does not pass the checks, else the faults of its graph."""

    def run(*arguments):
        return subprocess.run([tarka, *arguments, *options, str(source)], capture_output=True)

    options = options_of(source)
    checked = run("check")
    # A program with ALTER is right, but has no graph.
    if checked.returncode != 0 or b" 5101 : " in checked.stderr:
        return None
    wrong = []
    for form in ("text", "json", "dot"):
        result = run("cfg", "--format=" + form)
        if result.returncode != 0 or not result.stdout:
            error = result.stderr.decode(errors="replace")
            wrong.append(f"{source}: {form} ends with {result.returncode}\n{error}")
        elif form == "json":
            json.loads(result.stdout)
    return wrong


def main():
    tarka, *directories = sys.argv[1:]
    sources = sorted(
        path
        for directory in directories
        for path in pathlib.Path(directory).rglob("*")
        if path.suffix in (".cbl", ".cob")
    )
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda source: look_at(tarka, source), sources))
    passed = [result for result in results if result is not None]
    for result in passed:
        for message in result:
            print(message)
    print(f"{len(passed)} of {len(sources)} programs pass the checks")
    # Fail if hardly any program passes, because nothing would be verified.
    return 1 if any(passed) or len(passed) < 20 else 0


sys.exit(main())
