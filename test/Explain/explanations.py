"""Checks the explanations of the diagnostics: their programs, their completeness, the document.

    explanations.py programs TARKA DIRECTORY    runs both programs of every explanation; DIRECTORY
                                                takes them
    explanations.py catalogue TARKA             finds diagnostics without an explanation
    explanations.py document TARKA DOCUMENT     compares the document with what TARKA generates
"""

import collections
import difflib
import json
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
EXPLANATIONS = HERE.parent.parent / "explanations"


def run(tarka, *arguments):
    return subprocess.run([tarka, *map(str, arguments)], capture_output=True, encoding="utf-8", errors="replace")


def read_diagnostics(tarka):
    result = run(tarka, "explain", "--format=json")
    if result.returncode != 0:
        sys.exit(result.stderr or f"tarka explain ends with {result.returncode}")
    return json.loads(result.stdout)["diagnostics"]


def write_files(directory, files):
    for file in files:
        path = directory / file["name"]
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(file["text"], encoding="utf-8")
    return str(directory / files[0]["name"])


def pattern_of(message):
    """What the text of a message must look like, whatever its arguments."""
    parts = re.split(r"%s|\{\d\}", message)
    return re.compile(".*".join(map(re.escape, parts)), re.DOTALL)


def look_at_reports(text, programs):
    """Every wrong program must be reported with the number, severity and text of its row."""
    # A diagnostic in a copybook has the name of the copybook, below the directory of the program.
    by_directory = {str(pathlib.Path(file).parent): file for file in programs}
    found = set()
    for line in text.split("\n"):
        if not line:
            continue
        reported = json.loads(line)
        parents = map(str, pathlib.Path(reported["file"]).parents)
        file = next((by_directory[up] for up in parents if up in by_directory), None)
        diagnostic = programs.get(file)
        if (
            diagnostic
            and reported["number"] == diagnostic["number"]
            and reported["severity"] == diagnostic["severity"]
            and pattern_of(diagnostic["message"]).fullmatch(reported["text"])
        ):
            found.add(file)
    return [f"{file}: its own diagnostic is not reported" for file in programs if file not in found]


def check_programs(tarka, directory):
    shutil.rmtree(directory, ignore_errors=True)
    # Programs with the same options are checked in one run.
    wrong, mended = collections.defaultdict(dict), collections.defaultdict(dict)
    for diagnostic in read_diagnostics(tarka):
        if "wrong" in diagnostic:
            options = tuple(diagnostic["options"])
            place = directory / diagnostic["name"]
            wrong[options][write_files(place / "wrong", diagnostic["wrong"])] = diagnostic
            mended[options][write_files(place / "mended", diagnostic["mended"])] = diagnostic

    faults = []
    for options, programs in wrong.items():
        verified = run(tarka, "check", "--verify", *options, *programs)
        faults += verified.stderr.splitlines()
        if verified.returncode > 1 or verified.returncode == 1 and not verified.stderr:
            faults.append(f"tarka check --verify {' '.join(options)} ends with {verified.returncode}")
        reported = run(tarka, "check", "--all", "--format=ndjson", *options, *programs)
        faults += look_at_reports(reported.stdout, programs)
    for options, programs in mended.items():
        result = run(tarka, "check", *options, *programs)
        faults += result.stderr.splitlines()
        if result.returncode != 0 and not result.stderr:
            for program in programs:
                if run(tarka, "check", *options, program).returncode != 0:
                    faults.append(f"{program}: fails the checks without a message")
    print(f"{sum(map(len, wrong.values()))} explanations have programs")
    return faults


def check_catalogue(tarka):
    diagnostics = {diagnostic["name"]: diagnostic for diagnostic in read_diagnostics(tarka)}
    faults = []
    for name, diagnostic in diagnostics.items():
        if "rule" not in diagnostic:
            faults.append(f"{name} has no explanation: write explanations/{name}.txt")
        for number in diagnostic.get("related", []):
            if not any(other["number"] == number for other in diagnostics.values()):
                faults.append(f"explanations/{name}.txt: there is no related diagnostic {number}")
    names = {path.stem for path in EXPLANATIONS.iterdir()}
    faults += [f"there is no diagnostic {name}" for name in sorted(names - diagnostics.keys())]
    return faults


def check_document(tarka, document):
    made = run(tarka, "explain", "--format=markdown").stdout
    kept = pathlib.Path(document).read_text(encoding="utf-8")
    if made == kept:
        return []
    difference = difflib.unified_diff(kept.splitlines(), made.splitlines(), document, "now", lineterm="")
    return [*list(difference)[:40], f"{document} is not up to date: run make docs"]


def main():
    what, tarka, *rest = sys.argv[1:]
    if what == "programs":
        faults = check_programs(tarka, pathlib.Path(rest[0]))
    elif what == "catalogue":
        faults = check_catalogue(tarka)
    else:
        faults = check_document(tarka, rest[0])
    # A malformed document can have thousands of differences.
    print(*faults[:200], sep="\n")
    return 1 if faults else 0


sys.exit(main())
