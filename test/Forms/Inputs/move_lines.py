"""Moves the lines of a program, and replaces one mistake by another. Usage: move_lines.py FILE"""

import pathlib
import sys

path = pathlib.Path(sys.argv[1])
lines = path.read_text(encoding="utf-8").splitlines(keepends=True)
lines.insert(3, "      * A comment.\n")
lines = [line.replace("perform man-line", "perform nowhere").replace("add 1 to", "add  1  to") for line in lines]
path.write_text("".join(lines), encoding="utf-8")
