"""Checks the program of each rule of EnterpriseRules.def: what is reported with --enterprise, and that
the rule matters.

usage: rules.py TARKA EnterpriseRules.def rules.cbl
"""

import json
import re
import subprocess
import sys
from collections import Counter

tarka, table, source = sys.argv[1:]


def run(*arguments):
    command = [tarka, *arguments, "--format=json", source]
    result = subprocess.run(command, stdout=subprocess.PIPE, check=False)
    if result.returncode > 1:
        sys.exit(f"{' '.join(command)}: status {result.returncode}")
    return json.loads(result.stdout)


with open(table, encoding="utf-8") as text:
    rules = re.findall(r"^ENTERPRISE_RULE\((\w+),", text.read(), re.MULTILINE)
with open(source, encoding="utf-8") as text:
    lines = text.read().splitlines()

# The lines of the program of each rule, and of the programs up to the next one.
names = {re.sub(r"(?<!^)(?=[A-Z])", "-", rule).upper(): rule for rule in rules}
programs = {}
name = None
for number, line in enumerate(lines, 1):
    if (match := re.match(r"PROGRAM-ID\. ([\w-]+)\.", line)) and match[1] in names:
        name = match[1]
    programs.setdefault(name, set()).add(number)

expected = Counter()
for number, line in enumerate(lines, 1):
    if match := re.search(r"\*> enterprise: ([\d ]+)", line):
        expected.update((number, int(code)) for code in match[1].split())


def reported(*options):
    found = run("check", "--all", *options)["diagnostics"]
    return Counter((one["line"], one["number"]) for one in found)


def layouts(*options):
    return {one["name"]: one["sections"] for one in run("layout", *options)["programs"]}


strict, enterprise = reported(), reported("--enterprise")
faults = [f"line {line}: {code} with --enterprise" for line, code in sorted(enterprise - expected)]
faults += [f"line {line}: no {code} with --enterprise" for line, code in sorted(expected - enterprise)]

strict_layouts, enterprise_layouts = layouts(), layouts("--enterprise")
for name, rule in names.items():
    if name not in programs:
        faults.append(f"no program {name} for {rule}")
    elif not any(line in programs[name] for line, _ in strict - enterprise) and (
        strict_layouts[name] == enterprise_layouts[name]
    ):
        faults.append(f"{name} is the same with --enterprise and without")
sys.exit("\n".join(faults) if faults else 0)
