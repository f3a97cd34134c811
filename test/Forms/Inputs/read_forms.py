"""Reads the forms for programs and compares them with one another. Usage: read_forms.py TARKA FILE"""

import json
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

tarka, file = sys.argv[1:]


def report(form, *files):
    result = subprocess.run([tarka, "check", f"--format={form}", *files], capture_output=True, encoding="utf-8")
    return result.returncode, result.stdout, result.stderr


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: {found!r} in place of {wanted!r}")


lines = [json.loads(line) for line in report("ndjson", file)[1].splitlines()]
expect("numbers", [one["number"] for one in lines], [201, 3310, 3403, 3311, 421, 3310, 3310, 3310, 3468, 3468])
expect("fix", [(edit["old"], edit["new"]) for edit in lines[4]["fix"]], [("ADDD", "ADD")])
expect("suggestion", lines[1]["suggestion"], "customer-name")
expect("notes", [note["line"] for note in lines[3]["notes"]], [7, 9])
expect("fingerprints", len({one["fingerprint"] for one in lines}), len(lines))

# What comes from a worker is what is found in the process itself.
status, text, errors = report("json", file, "no-such-file.cbl", file)
document = json.loads(text)
expect("status", (status, document["summary"]["exitStatus"]), (2, 2))
expect("message", errors, "tarka: cannot read no-such-file.cbl: No such file or directory\n")
expect("diagnostics", document["diagnostics"], lines + lines)
expect("failures", [one["file"] for one in document["failures"]], ["no-such-file.cbl"])
expect("summary", document["summary"]["errors"], 2 * len(lines))

root = xml.etree.ElementTree.fromstring(report("junit", file, "no-such-file.cbl")[1])
suite = root.find("testsuite").attrib
expect("junit", [suite[name] for name in ("tests", "failures", "errors")], ["2", "1", "1"])
expect("failure", root.find(".//failure").text.count("\n"), len(lines))

log = json.loads(report("sarif", file)[1])["runs"][0]
expect("results", [one["ruleId"] for one in log["results"]], [f"TARKA{one['number']}" for one in lines])
for one in log["results"]:
    expect("ruleIndex", log["tool"]["driver"]["rules"][one["ruleIndex"]]["id"], one["ruleId"])

# --output appears whole, and is what standard output would have had.
with tempfile.TemporaryDirectory() as directory:
    path = f"{directory}/report.json"
    subprocess.run([tarka, "check", "--format=json", "--output", path, file], check=False)
    with open(path, encoding="utf-8") as written:
        expect("--output", json.load(written)["diagnostics"], lines)
    failed = subprocess.run([tarka, "check", "--output", f"{directory}/no/report", file], capture_output=True)
    expect("--output in no directory", failed.returncode, 3)
