"""Each mistake in a tarka.toml is one message with its place, and status 2.

usage: configuration.py TARKA FOLDER
"""

import os
import subprocess
import sys

CASES = [
    ("cisc = true\n", "1:1: unknown key 'cisc'; was cics meant?"),
    ("\n  zzzzzz = 1\n", "2:3: unknown key 'zzzzzz'"),
    ("jobs = 'many'\n", "1:8: 'jobs' must be a whole number"),
    ("jobs = 0\n", "1:8: 'jobs': '0' is not a whole number from 1 to 1024"),
    ("cics = [true]\n", "1:8: 'cics' must be true or false"),
    ("off = [3310, 'flwo']\n", "1:14: 'off': 'flwo' is neither a number"),
    ("exclude = '[a'\n", "1:11: 'exclude': '[a' is not a valid pattern"),
    ("fix = true\n", "1:1: --fix belongs on the command line only"),
    ("a = = 1\n", "1:"),
    ("[for]\npath = 'x'\n", "1:2: the tables for some of the programs are written [[for]]"),
    ("[[for]]\ncics = true\n", "1:1: [[for]] needs path = \"PATTERN\""),
    ("[[for]]\npath = '*'\nformat = 'json'\n", "3:1: 'format' is for the whole run"),
    ("[cfg]\nformat = 'sarif'\n", "2:10: 'format': 'sarif' is none of text, json, dot"),
]

tarka, folder = sys.argv[1:]
os.makedirs(folder)
os.chdir(folder)
open("p.cbl", "w").close()
for text, message in CASES:
    with open("tarka.toml", "w") as file:
        file.write(text)
    for command in ("check", "config"):
        result = subprocess.run([tarka, command, "p.cbl"], capture_output=True, text=True)
        right = result.stderr.startswith("tarka: tarka.toml:" + message)
        if result.returncode != 2 or not right or result.stderr.count("\n") != 1:
            sys.exit(f"{text!r}, {command}: {result.returncode}, {result.stderr}")
