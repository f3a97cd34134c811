"""Where the lines of a program end means nothing in free form: valid programs stay silent in other layouts.

usage: layouts.py TARKA DIRECTORY SOURCES...
"""

import pathlib
import random
import re
import shutil
import subprocess
import sys

tarka, directory, *folders = sys.argv[1:]
directory = pathlib.Path(directory)
shutil.rmtree(directory, ignore_errors=True)
directory.mkdir(parents=True)
choice = random.Random(1)

TOKEN = re.compile(r"""[NXZG]{0,2}(?:'(?:[^']|'')*'|"(?:[^"]|"")*")|==.*?==|\S+""", re.IGNORECASE)
# What is bound to its line, or needs an option or another file.
BOUND = re.compile(r"\b(?:EXEC|AUTHOR|SECURITY|INSTALLATION|DATE-WRITTEN|DATE-COMPILED|REMARKS|CBL|PROCESS"
                   r"|COPY|REPLACE|NOTE|EJECT|TITLE|SKIP[123])\b|>>|\*CBL|\*CONTROL", re.IGNORECASE)


def check(*paths, source_format):
    run = subprocess.run([tarka, "check", "--no-cache", "--no-config", f"--source-format={source_format}",
                          *paths], capture_output=True, text=True, errors="replace", check=False)
    return (run.stdout + run.stderr).splitlines()


def lines_of(source):
    """The tokens of each line; nothing where the text of a line matters."""
    lines = []
    for line in source.read_text(errors="replace").splitlines():
        line = line.expandtabs(8)[:72]
        if len(line) < 7 or line[6] in "*/":
            continue
        code = line[7:] if "'" in line or '"' in line else line[7:].partition("*>")[0]
        if line[6] != " " or "*>" in code or BOUND.search(code):
            return None
        lines.append(TOKEN.findall(code))
    return lines


def filled(lines):
    """As much in a line as there is room for."""
    text = ""
    for token in (token for line in lines for token in line):
        text += "\n" if len(text) - text.rfind("\n") + len(token) > 150 else " "
        text += token
    return text


def broken(lines):
    """Lines that end anywhere. A number that begins a line may look like a level number."""
    text = ""
    for token in (token for line in lines for token in line):
        ends = choice.random() < 0.3 and not token[0].isdigit()
        text += "\n" + " " * choice.randrange(12) if ends else " "
        text += token
    return text


def small(lines):
    """Small letters. The sign of a currency stands for one letter only."""
    if any("CURRENCY" in (token.upper() for token in line) for line in lines):
        return ""
    return "\n".join("  " + " ".join(token if token[-1] in "'\"" else token.lower() for token in line)
                     for line in lines)


sources = [source for folder in folders for source in sorted(pathlib.Path(folder).rglob("*.cbl"))]
reported = check(*folders, source_format="fixed")
silent = [source for source in sources if not any(str(source) in line for line in reported)]
written = 0
for number, source in enumerate(silent):
    lines = lines_of(source)
    for layout in (filled, broken, small) if lines else ():
        if text := layout(lines):
            (directory / f"{source.stem}-{number}-{layout.__name__}.cbl").write_text(text + "\n")
            written += 1

wrong = check(directory, source_format="free")
print(f"{written} programs", *wrong, sep="\n")
sys.exit(bool(wrong) or written < 30)
