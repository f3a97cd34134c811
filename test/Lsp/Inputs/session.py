"""Texts, versions and workers: whatever is typed, what is published is what tarka check reports.

usage: session.py TARKA EXAMPLES DIRECTORY [EDITS]
"""

import json
import random
import shutil
import subprocess
import sys
from pathlib import Path

from client import Client, Failure, children, kill

tarka, examples, directory = sys.argv[1:4]
edits = int(sys.argv[4]) if len(sys.argv) > 4 else 40
directory = Path(directory)
for example in Path(examples).iterdir():
    for source in example.iterdir():
        shutil.copy(source, directory)


def reported(name):
    """What tarka check finds in the program itself: numbers and places."""
    run = subprocess.run(
        [tarka, "check", "--format=json", name], cwd=directory, capture_output=True, check=False
    )
    return sorted(
        (d["number"], d["line"], d["column"], d["endLine"], d["endColumn"])
        for d in json.loads(run.stdout)["diagnostics"]
        if d["file"] == name
    )


def published(diagnostics):
    """The same of published diagnostics; those at a COPY are of copybooks."""
    return sorted(
        (
            d["code"],
            d["range"]["start"]["line"] + 1,
            d["range"]["start"]["character"] + 1,
            d["range"]["end"]["line"] + 1,
            d["range"]["end"]["character"],
        )
        for d in diagnostics
        if "copybook" not in d.get("data", {})
    )


def compare(client, name):
    Path(client.path(name)).write_text(client.texts[client.path(name)])
    expected, found = reported(name), published(client.wait(name))
    assert found == expected, f"{name}: published {found}, reported {expected}"


client = Client(tarka, directory)
for name in ("PARTINQX.cbl", "CUSTUPDX.cbl", "PREMIUMX.cbl"):
    client.open(name)
    compare(client, name)

# Edits at random, several at a time and faster than they can be analysed. What is typed is text of
# the program, so that some of it is right and some is not.
choice = random.Random(1)
for _ in range(edits):
    name = choice.choice(["CUSTUPDX.cbl", "PREMIUMX.cbl"])
    path = client.path(name)
    for _ in range(choice.randint(1, 4)):
        text = client.texts[path]
        begin = choice.randrange(len(text))
        end = min(len(text), begin + choice.choice([0, 0, 1, 7, 80]))
        source = choice.randrange(len(text))
        new = choice.choice(["", text[source : source + 1], text[source : source + 60], "\u00e9\n"])
        client.change(name, (begin, end, new))
    if choice.random() < 0.5:
        compare(client, name)

# A worker that dies costs an answer at most; the version after it is analysed.
for name in ("CUSTUPDX.cbl", "PREMIUMX.cbl"):
    for child in children(client):
        kill(child)
    client.change(name, (0, 0, "      *\n"))
    compare(client, name)
assert client.process.poll() is None

# A copybook: its mistakes are published for it, named after the program, and at the COPY. It is
# checked as it is in the editor.
copybook, program = client.path("PARTREC.cpy"), client.path("PARTINQX.cbl")
client.open("PARTREC.cpy")
client.change("PARTREC.cpy", (0, 0, "       01  WRONG-ITEM PIC X(4) COMP-3.\n"))
client.change("PARTINQX.cbl", (0, 0, "      *\n"))
client.wait("PARTINQX.cbl")
client.until(lambda: client.diagnostics.get(copybook))
assert "PARTINQX.cbl" in client.diagnostics[copybook][0]["message"], client.diagnostics[copybook]
atCopy = [d for d in client.diagnostics[program] if "data" in d]
assert len(atCopy) == 1 and atCopy[0]["relatedInformation"], atCopy
assert "COPY PARTREC" in client.texts[program].split("\n")[atCopy[0]["range"]["start"]["line"]]
client.change("PARTREC.cpy", (0, client.texts[copybook].index("\n") + 1, ""))
client.until(lambda: not client.diagnostics[copybook])
# Without the program it is read by itself.
client.close("PARTINQX.cbl")
client.change("PARTREC.cpy", (0, 0, "       01  WRONG-ITEM PIC Q.\n"))
client.until(lambda: client.diagnostics[copybook])

# What the editor sends wrong is answered, not obeyed.
try:
    client.request("textDocument/unknown", {})
    sys.exit("an unknown request has an answer")
except Failure:
    pass
client.change("CUSTUPDX.cbl", (10**6, 10**6, "x"))
client.notify("textDocument/didChange", {"textDocument": {"uri": 1}, "contentChanges": [{}]})
client.wait("CUSTUPDX.cbl")
assert client.end() == 0

# Byte offsets, for an editor that offers them; a mistake in tarka.toml is shown.
client = Client(tarka, directory, "--stdio", encodings=("utf-8", "utf-16"))
assert client.capabilities["positionEncoding"] == "utf-8"
(directory / "tarka.toml").write_text("cics = 1\n")
client.open("PREMIUM.cbl")
assert "tarka.toml:1" in client.wait("PREMIUM.cbl")[0]["message"]
(directory / "tarka.toml").unlink()
changed = {"uri": (directory / "tarka.toml").resolve().as_uri(), "type": 3}
client.notify("workspace/didChangeWatchedFiles", {"changes": [changed]})
client.until(lambda: not client.diagnostics[client.path("PREMIUM.cbl")])
assert client.end() == 0
