#!/usr/bin/env python3
"""Checks who includes whom: the headers have no cycle, and no part includes one above it.

usage: layers.py [root of the source tree]
"""

import re
import sys
from pathlib import Path

# The parts of the system, each with those that it may include besides itself. A part is a folder of
# include/ and lib/, or a program under tools/. What is not listed here is an error, so that a new
# part finds its place.
LAYERS = {
    "AST": set(),
    "Report": {"AST"},
    "Parse": {"AST", "Report"},
    "Analyzer": {"AST", "Report"},
    "Flow": {"AST", "Report", "Analyzer"},
    "Print": {"AST", "Report", "Parse", "Analyzer", "Flow"},
    "Index": {"AST", "Report", "Parse"},
    "Workers": set(),
    "tools": {"AST", "Report", "Parse", "Analyzer", "Flow", "Print", "Index", "Workers"},
}

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def part_of(path):
    """The part that a file belongs to, from its path in the source tree."""
    return "tools" if path.parts[0] == "tools" else path.parts[1]


def find(root, source, name):
    """The file of the tree that source means by an include of name; None for a library's."""
    for folder in (source.parent, Path("include"), Path("lib"), Path("tools")):
        if (root / folder / name).is_file():
            return folder / name
    return None


def read(root):
    """Every file of the system with the files that it includes."""
    files = [
        path.relative_to(root)
        for top in ("include", "lib", "tools")
        for path in sorted((root / top).rglob("*"))
        if path.suffix in (".h", ".cpp", ".def")
    ]
    includes = {}
    for file in files:
        names = INCLUDE.findall((root / file).read_text(encoding="utf-8"))
        found = (find(root, file, name) for name in names)
        includes[file] = [name for name in found if name is not None]
    return includes


def wrong_layers(includes):
    """A message for every include of a part that may not be included."""
    for file, names in includes.items():
        part = part_of(file)
        if part not in LAYERS:
            yield f"{file}: {part} has no place in the layers of scripts/layers.py"
            continue
        for name in names:
            other = part_of(name)
            if other != part and other not in LAYERS[part]:
                yield f"{file}: {part} must not include {other}: {name}"


def cycles(includes):
    """A message for every cycle that a walk along the includes meets."""
    done = set()
    for start in includes:
        path, pending = [], [(start, None)]
        while pending:
            file, parent = pending.pop()
            while path and path[-1] != parent:
                done.add(path.pop())
            if file in done:
                continue
            path.append(file)
            for name in includes.get(file, ()):
                if name in path:
                    circle = path[path.index(name):] + [name]
                    yield "cycle: " + " -> ".join(map(str, circle))
                elif name not in done:
                    pending.append((name, file))
        done.update(path)


def main():
    root = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).parent.parent
    includes = read(root)
    if not includes:
        sys.exit(f"layers: no sources under {root}")
    messages = [*wrong_layers(includes), *cycles(includes)]
    for message in messages:
        print(message, file=sys.stderr)
    return 1 if messages else 0


if __name__ == "__main__":
    sys.exit(main())
