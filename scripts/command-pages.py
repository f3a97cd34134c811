#!/usr/bin/env python3
"""Writes what `tarka COMMAND --help` prints into docs/commands/COMMAND.md, for every command.

    command-pages.py TARKA [--check]

With --check nothing is written; the status is 1 when a page differs or is missing.
"""

import pathlib
import re
import subprocess
import sys

tarka, check = sys.argv[1], "--check" in sys.argv[2:]
root = pathlib.Path(__file__).resolve().parent.parent
MARK = "<!-- help -->\n"


def help_of(*words):
    return subprocess.run([tarka, *words, "--help"], capture_output=True, text=True, check=True).stdout


commands = re.findall(r"(?m)^  (\w+) ", help_of().split("Subcommands:")[1])
status = 0 if commands else 1
for command in commands:
    page = root / "docs" / "commands" / (command + ".md")
    text = page.read_text() if page.exists() else f"# tarka {command}\n\n{MARK}"
    block = "".join(("    " + line).rstrip() + "\n" for line in help_of(command).strip().splitlines())
    wanted = text.split(MARK)[0] + MARK + "\n" + re.sub(r"\n{3,}", "\n\n", block)
    if text == wanted:
        continue
    if check:
        print(f"{page} differs from tarka {command} --help; 'make docs' writes it")
        status = 1
    else:
        page.write_text(wanted)
sys.exit(status)
