"""Makes single mistakes in valid programs and counts those that draw more than one message.

    mutations.py TARKA DIRECTORY COUNT EXAMPLES PROGRAMS

A mistake deletes, doubles, exchanges, misspells or replaces a word, or deletes, doubles or exchanges
lines. Which mistakes are made depends on nothing but COUNT, which is for each program. The run fails
when more than one in a hundred draws two messages, or when a mistake ends the program other than with
a report; then the mistakes are printed.
"""

import pathlib
import re
import subprocess
import sys

WORD = re.compile(r"\"[^\"]*\"|'[^']*'|[A-Za-z0-9][A-Za-z0-9-]*|[^\sA-Za-z0-9]")
MESSAGE = re.compile(r"^(.*?)m(\d+)\.cbl:.* (?:error|warning) \d+ ?:")
INSERTED = ["FOO", "MOVE", "1", ".", "TO", "END-IF", "(", "OF"]


class Numbers:
    """The same numbers on every machine and with every version of Python."""

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % limit


def is_code(line):
    return len(line) > 7 and line[6] not in "*/" and line[7:72].strip() and "*>" not in line


def mutate_words(line, numbers):
    """The line with one word wrong; None where the mistake cannot be made in it."""
    words = list(WORD.finditer(line[7:72]))
    index = numbers.below(len(words))
    begin, end = words[index].start() + 7, words[index].end() + 7
    word = line[begin:end]
    kind = numbers.below(5)
    if kind == 0:
        new = ""
    elif kind == 1:
        new = word + " " + word
    elif kind == 2:
        new = INSERTED[numbers.below(len(INSERTED))]
    elif kind == 3 and len(word) > 4 and word[0].isalpha():
        at = 1 + numbers.below(len(word) - 2)
        new = word[:at] + word[at + 1] + word[at] + word[at + 2 :]
    elif kind == 4 and index + 1 < len(words):
        other = words[index + 1]
        new = other.group() + line[end : other.start() + 7] + word
        end = other.end() + 7
    else:
        return None
    mutated = line[:begin] + new + line[end:]
    # A word too much must not push others over the margin, which is a second mistake.
    return mutated if mutated != line and len(mutated) <= 72 else None


def mutate(lines, numbers):
    code = [number for number, line in enumerate(lines) if is_code(line)]
    index = numbers.below(len(code) - 1)
    at, behind = code[index], code[index + 1]
    mutated = list(lines)
    kind = numbers.below(12)
    if kind == 0:
        del mutated[at]
    elif kind == 1:
        mutated.insert(at, lines[at])
    elif kind == 2:
        mutated[at], mutated[behind] = lines[behind], lines[at]
    else:
        mutated[at] = mutate_words(lines[at], numbers)
        if mutated[at] is None:
            return mutate(lines, numbers)
    return at + 1, lines[at], mutated


def main():
    tarka, directory, count = sys.argv[1], pathlib.Path(sys.argv[2]), int(sys.argv[3])
    examples, programs = pathlib.Path(sys.argv[4]), pathlib.Path(sys.argv[5])
    sources = [
        (examples / "update/CUSTUPD.cbl", []),
        (examples / "inquiry/PARTINQ.cbl", []),
        (examples / "premium/PREMIUM.cbl", []),
        (programs / "account-panel.cbl", ["--cics"]),
        (programs / "raise-salaries.cbl", ["--sql"]),
    ]
    directory.mkdir(parents=True, exist_ok=True)
    total, wrong = 0, []
    for source, options in sources:
        numbers = Numbers(total + count)
        lines = source.read_text().split("\n")
        mistakes = {}
        for _ in range(count):
            total += 1
            mistakes[total] = mutate(lines, numbers)
            (directory / f"m{total}.cbl").write_text("\n".join(mistakes[total][2]))
        command = [tarka, "check", "--no-cache", "--format=classic", *options]
        command += ["-I", source.parent, "-I", source.parent / "Inputs"]
        run = subprocess.run(
            command + [directory / f"m{number}.cbl" for number in mistakes],
            capture_output=True,
            text=True,
        )
        messages = {number: [] for number in mistakes}
        for line in run.stdout.splitlines() + run.stderr.splitlines():
            if found := MESSAGE.match(line):
                messages[int(found.group(2))].append(line[len(found.group(1)) :])
        if run.returncode not in (0, 1):
            print(f"{source.name}: status {run.returncode}", run.stderr)
            sys.exit(1)
        for number, (line, before, mutated) in mistakes.items():
            if len(messages[number]) > 1:
                wrong.append((source.name, line, before, mutated[line - 1], messages[number]))
    if len(wrong) * 100 <= total:
        return
    for name, line, before, after, messages in wrong:
        print(f"{name}:{line}\n  {before.strip()}\n  {after.strip()}", *messages, sep="\n    ")
    print(f"{len(wrong)} of {total} mistakes draw more than one message")
    sys.exit(1)


main()
