"""Checks that the code asks for every rule of EnterpriseRules.def; the compiler checks the reverse.

usage: rules.py ROOT
"""

import re
import sys
from pathlib import Path

root = Path(sys.argv[1])
table = (root / "include/Analyzer/EnterpriseRules.def").read_text()
rules = set(re.findall(r"^ENTERPRISE_RULE\((\w+),", table, re.MULTILINE))
code = "".join(path.read_text() for path in (root / "lib").rglob("*.[ch]*") if path.is_file())
used = set(re.findall(r"followsEnterprise\(\s*EnterpriseRule::(\w+)\)", code))
if not rules:
    sys.exit("the table of rules is empty")
if unused := sorted(rules - used):
    sys.exit("no code asks for " + ", ".join(unused))
