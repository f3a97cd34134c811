"""Runs tarka on invalid files, and compares exit status and messages."""

import os
import re
import subprocess
import sys

tarka, folder = sys.argv[1:]

HEAD = """\
       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A PIC 9(3).
       PROCEDURE DIVISION.
       M.
"""
END = "           STOP RUN.\n"


def program(body):
    return HEAD + body + END


# Name, contents (None: no file), arguments before the name, exit status, and the lines of standard
# error, each a pattern that a whole line must match.
CASES = [
    ("missing.cbl", None, [], 2, [r"tarka: cannot read .*missing.cbl: No such file or directory"]),
    ("empty.cbl", "", [], 1, [r".*empty.cbl:1:1 - 1:1 error 2 : .*nothing to compile"]),
    ("blank.cbl", "\n\n      * NOTHING\n", [], 1, [r".*blank.cbl:.* error 2 : .*"]),
    ("binary.cbl", b"\x7fELF\x02\x01\x00\x00\x00" * 100, [], 1, [r".*binary.cbl:1:.* fatal 3 : .*"]),
    ("no-newline.cbl", program("").rstrip("\n"), [], 0, []),
    ("crlf.cbl", program("           MOVE 1 TO Q.\n").replace("\n", "\r\n"), [], 1,
     [r".*crlf.cbl:8:22 - 8:22 error 3310 : .*"]),
    ("tabs.cbl", program("\t\tMOVE\t1 TO A.\n"), [], 0, []),
    ("long-line.cbl", program("           DISPLAY 'X'. *> " + "Y" * 1_000_000 + "\n"), [], 0, []),
    ("long-name.cbl", "program-id. p.\nprocedure division.\nmove 1 to " + "q" * 1_000_000 + ".\n", [], 1,
     [r".*long-name.cbl:3:11 - 3:1000010 error 28 : the word q{30}\.\.\. has 1000000 characters; .*"]),
    ("unclosed.cbl", program("           DISPLAY 'ABC.\n           MOVE 1 TO A.\n"), [], 1,
     [r".*unclosed.cbl:8:20 - 8:24 error 24 : the literal has no closing apostrophe"]),
    ("copy.cbl", program("           COPY NOWHERE.\n"), ["-I", "books"], 1,
     [r".*copy.cbl:8:17 - 8:23 error 43 : the copybook NOWHERE was not found; searched: books, .*"]),
    ("SELF.cpy", "           COPY SELF.\n", None, 0, []),
    ("device.cbl", program("           COPY '/dev/zero'.\n"), [], 1, [r".* error 44 : the copybook /dev/zero cannot be .*"]),
    ("cycle.cbl", program("           COPY SELF.\n"), [], 1,
     [r".*SELF.cpy:1:17 - 1:20 error 45 : the copybook copies itself: .*SELF.cpy -> .*SELF.cpy; "
      r"copied from .*cycle.cbl:8"]),
    ("nested.cbl", program("           IF A = 1\n" * 10_000 + "           DISPLAY A\n" +
                           "           END-IF\n" * 10_000 + "           .\n"), [], 1,
     [r".*nested.cbl:\d+:12 - .* error 202 : the nesting is more than \d+ levels deep"]),
    ("parentheses.cbl", program("           COMPUTE A =\n" + "           (\n" * 10_000 + "           A\n" +
                                "           )\n" * 10_000 + "           .\n"), [], 1,
     [r".*parentheses.cbl:\d+:12 - .* error 202 : the nesting is more than \d+ levels deep"]),
    *[(f"deep-{number}.cbl",
       program(f"           IF {first}\n" + f"           {opening}\n" * 10_000 + f"           {last}\n" +
               "           )\n" * 10_000 + "           CONTINUE.\n"), [], 1,
       [r".*deep-\d.cbl:\d+:\d+ - .* error 202 : the nesting is more than \d+ levels deep"])
      for number, (first, opening, last) in enumerate([("A =", "A (", "A"), ("A =", "FUNCTION MAX (", "A"),
                                                       ("A =", "- (", "A"), ("", "NOT (", "A = 1")])],
    ("chain.cbl", program("           COMPUTE A = A\n" + "             + A\n" * 20_000 + "           .\n" +
                          "           IF A = 1\n" + "             OR A = 2\n" * 20_000 +
                          "             DISPLAY A.\n"), [], 0, []),
    ("periods.cbl", "." * 100_000 + "\n", [], 1, [r".*periods.cbl:.*"]),
    ("alter.cbl", program("           ALTER P1 TO PROCEED TO P2.\n       P1. GO TO P2.\n       P2.\n"),
     [], 0, [r".*alter.cbl:.* info 5101 : 'ALTER' .*"]),
    ("alter.cbl", ..., ["cfg"], 1, [r"tarka: no graph of .*alter.cbl is printed: the checks did not "
                                    r"succeed, though no message says why .*--keep-going.*"]),
    ("alter.cbl", ..., ["cfg", "--keep-going"], 1, []),
    ("", None, ["ast"], 2, [r"tarka: cannot read .*: Is a directory"]),
    ("alter.cbl", ..., ["check", "--bogus"], 2,
     [r"tarka: check has no option '--bogus'; tarka check --help lists the options"]),
]

failures = 0
for name, contents, arguments, status, patterns in CASES:
    path = os.path.join(folder, name)
    if contents not in (None, ...):
        with open(path, "wb") as source:
            source.write(contents if isinstance(contents, bytes) else contents.encode())
    if arguments is None:
        continue
    command = [tarka, *arguments, path]
    result = subprocess.run(command, capture_output=True, text=True, timeout=300)
    lines = result.stderr.splitlines()
    if result.returncode != status:
        failures += 1
        print(f"{command}: status {result.returncode}, not {status}\n{result.stderr}")
    if len(lines) != len(patterns) or not all(map(re.fullmatch, patterns, lines)):
        failures += 1
        print(f"{command}: wanted {patterns}, got {[line[:300] for line in lines]}")

# Output that cannot be written is reported, and is never a success.
for arguments in (["ast", "no-newline.cbl"], ["--version"], ["check", "unclosed.cbl"]):
    with open("/dev/full", "wb") as full:
        to_full = {"stderr" if arguments[0] == "check" else "stdout": full}
        streams = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | to_full
        result = subprocess.run([tarka, *arguments], cwd=folder, text=True, **streams)
    if result.returncode != 3 or result.stderr == "":
        failures += 1
        print(f"{arguments} to a full disk: status {result.returncode}, {result.stderr}")

# Several files: every report, in the order of the files, and the highest status.
names = ["crlf.cbl", "no-newline.cbl", "missing.cbl", "unclosed.cbl"]
paths = [os.path.join(folder, name) for name in names]
result = subprocess.run([tarka, "check", "-j", "3", *paths], capture_output=True, text=True)
order = [re.search(r"([\w-]+\.cbl)", line).group(1) for line in result.stderr.splitlines()]
if result.returncode != 2 or order != ["crlf.cbl", "missing.cbl", "unclosed.cbl"]:
    failures += 1
    print(f"several files: status {result.returncode}, {order}")

sys.exit(failures != 0)
