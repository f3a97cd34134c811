"""Prints the tree of every program, including programs with errors.

    every-program.py TARKA DIRECTORY...

Both forms must be complete: as many nodes in the JSON as lines in the text, and no field twice.
"""

import concurrent.futures
import json
import os
import pathlib
import subprocess
import sys


def count(node):
    """The nodes of a tree, without recursion: trees are deep."""
    nodes, total = [node], 0
    while nodes:
        one = nodes.pop()
        total += 1
        nodes += one.get("children", [])
    return total


def one_of_each(pairs):
    """An object whose fields are unique."""
    fields = dict(pairs)
    if len(fields) < len(pairs):
        raise ValueError(f"a field stands twice among {[name for name, value in pairs]}")
    return fields


def look_at(tarka, source):
    def run(form):
        command = [tarka, "ast", "--keep-going", "--format=" + form, "--enable-rw", str(source)]
        return subprocess.run(command, capture_output=True)

    text, tree = run("text"), run("json")
    if text.returncode not in (0, 1) or tree.returncode not in (0, 1):
        return f"{source}: ends with {text.returncode} and {tree.returncode}"
    try:
        root = json.loads(tree.stdout, object_pairs_hook=one_of_each)
    except ValueError as problem:
        return f"{source}: {problem}"
    lines, nodes = text.stdout.count(b"\n"), count(root)
    return None if lines == nodes else f"{source}: {lines} lines, but {nodes} nodes"


def main():
    tarka, *directories = sys.argv[1:]
    sources = sorted(path for one in directories for path in pathlib.Path(one).rglob("*.cbl"))
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        wrong = [found for found in pool.map(lambda s: look_at(tarka, s), sources) if found]
    print("\n".join(wrong + [f"{len(sources)} programs"]))
    return 1 if wrong or not sources else 0


sys.exit(main())
