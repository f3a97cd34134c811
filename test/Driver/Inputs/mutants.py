"""Programs that mistakes have been made in are checked in one run: none may crash, hang or be left out.

usage: mutants.py TARKA DIRECTORY COUNT SEED SOURCES...
"""

import pathlib
import random
import re
import shutil
import subprocess
import sys

tarka, directory, count, seed, *folders = sys.argv[1:]
choice = random.Random(int(seed))
directory = pathlib.Path(directory)
shutil.rmtree(directory, ignore_errors=True)
directory.mkdir(parents=True)

files = sorted(file for folder in folders for file in pathlib.Path(folder).rglob("*.cbl"))
programs = [file.read_text(errors="replace").splitlines() for file in files]
programs = [lines for lines in programs if 3 < len(lines) < 800]
some_lines = choice.sample([line for lines in programs for line in lines], 2000)
some_words = [word for line in some_lines for word in re.findall(r"[A-Za-z0-9-]+|[.()=,']", line)]


def change_word(line):
    words = list(re.finditer(r"\S+", line))
    if not words:
        return line
    begin, end = choice.choice(words).span()
    at = choice.randrange(begin, end)
    return choice.choice([
        line[:begin] + line[end:],
        line[:begin] + choice.choice(some_words) + line[end:],
        line[:end] + " " + choice.choice(some_words) + line[end:],
        line[:at] + choice.choice(["", "-", " ", ".", "'", '"', "9", "A", "(", ")"]) + line[at + 1:],
    ])


def change_lines(lines):
    at = choice.randrange(len(lines))
    other = choice.choice(programs)
    begin = choice.randrange(len(other))
    match choice.randrange(7):
        case 0:
            del lines[at]
        case 1:
            lines.insert(at, lines[at])
        case 2:
            to = choice.randrange(len(lines))
            lines[at], lines[to] = lines[to], lines[at]
        case 3:
            lines.insert(at, choice.choice(some_lines))
        case 4:
            del lines[at:at + choice.randrange(1, 30)]
        case 5:
            lines[at:at] = other[begin:begin + choice.randrange(1, 20)]
        case 6:
            del lines[at:]


for number in range(int(count)):
    lines = list(choice.choice(programs))
    for _ in range(choice.choice((1, 1, 2, 3, 6))):
        if lines and choice.random() < 0.4:
            at = choice.randrange(len(lines))
            lines[at] = change_word(lines[at])
        elif lines:
            change_lines(lines)
    (directory / f"{number:05}.cbl").write_text("\n".join(lines) + "\n")

run = subprocess.run([tarka, "check", "--no-cache", "--time-limit=60", directory], capture_output=True,
                     text=True, errors="replace", check=False)
wrong = [line for line in (run.stdout + run.stderr).splitlines()
         if "not analysed" in line or "runtime error" in line or "(null)" in line or ":0:0" in line]
print(*wrong, sep="\n")
sys.exit(run.returncode != 1 or bool(wrong))
