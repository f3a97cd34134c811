"""Runs every command of tarka on earlier findings of the fuzzers, and on their seeds.

A file holds a whole compilation: the main file, then copybooks, each after a line "@NAME". An option
is on when its name appears anywhere in it.
"""

import os
import pathlib
import subprocess
import sys

tarka, scratch, *folders = sys.argv[1:]

OPTIONS = ["--check-file-id", "--dateproc", "--debug", "--dual", "--init", "--enable-cbltdli",
           "--enable-aertdli", "--enable-rw", "--enable-osvs", "--source-format=free",
           "--source-format=fixed"]
COMMANDS = [["check"], ["layout", "--keep-going"], ["ast", "--keep-going"], ["ast", "--keep-going", "--format=json"],
            ["cfg", "--keep-going"], ["cfg", "--keep-going", "--format=dot"]]


def unpack(text, folder):
    """Writes the files of a compilation and gives the path of the main one."""
    folder.mkdir(parents=True, exist_ok=True)
    main, *books = (b"\n" + text).split(b"\n@")
    (folder / "MAIN").write_bytes(main[1:] + b"\n")
    for book in books:
        name, _, contents = book.partition(b"\n")
        (folder / os.fsdecode(name.strip())).write_bytes(contents + b"\n")
    return folder / "MAIN"


failures = 0
files = [file for folder in folders for file in sorted(pathlib.Path(folder).iterdir())]
for file in files:
    text = file.read_bytes()
    main = unpack(text, pathlib.Path(scratch) / file.name)
    options = [option for option in OPTIONS if option.encode() in text]
    for command in COMMANDS:
        result = subprocess.run([tarka, *command, *options, main], capture_output=True, timeout=120)
        # ALTER makes the checks fail without a message.
        silent = not result.stderr and b"ALTER" not in text.upper()
        if result.returncode not in (0, 1) or (result.returncode == 1 and silent):
            failures += 1
            print(file, command, "status", result.returncode, result.stderr.decode(errors="replace")[-3000:])

sys.exit(failures != 0 or not files)
