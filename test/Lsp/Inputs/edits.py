"""A long session of random edits, most of which leave broken code, with requests, cancellations and
killed workers in between: every request is answered once, the diagnostics are those of tarka check,
names are where the outline says, and the server does not grow.

usage: edits.py TARKA EXAMPLES DIRECTORY [EDITS [SEED]]
"""

import json
import os
import random
import shutil
import subprocess
import sys
from pathlib import Path

from client import Client, children, kill, position, slices

tarka, examples, directory = sys.argv[1:4]
edits = int(sys.argv[4]) if len(sys.argv) > 4 else 300
choice = random.Random(int(sys.argv[5]) if len(sys.argv) > 5 else 1)
directory = Path(directory)
for example in Path(examples).iterdir():
    for source in example.iterdir():
        shutil.copy(source, directory)
programs = ["CUSTUPD.cbl", "CUSTUPDX.cbl", "PARTINQ.cbl"]
POINTS = ["hover", "definition", "references", "documentHighlight", "completion", "signatureHelp",
          "typeDefinition", "prepareRename", "prepareCallHierarchy"]
TEXTS = ["documentSymbol", "foldingRange", "semanticTokens/full", "codeLens", "documentLink"]
TYPED = ["MOVE CUST-", "\n           IF ", "'", ".", "EXEC SQL SELECT ", "END-EXEC", "\n       01  A-", "PERFORM "]
# In megabytes, from the first hundred edits on.
MOST_GROWTH = 15
# A sanitizer keeps what is freed; that is not growth of the server.
os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"
original = {name: (directory / name).read_text() for name in programs}


def resident(client):
    rows = Path(f"/proc/{client.process.pid}/status").read_text().splitlines()
    return sum(int(row.split()[1]) for row in rows if row.startswith("RssAnon")) / 1024


def published(diagnostics):
    return sorted(
        (d["code"], d["range"]["start"]["line"] + 1, d["range"]["end"]["line"] + 1)
        for d in diagnostics
        if "copybook" not in d.get("data", {})
    )


def check_diagnostics(client, name):
    # A version whose worker was killed is not analysed; the next one is.
    client.change(name, (0, 0, ""))
    (directory / name).write_text(client.texts[client.path(name)])
    run = subprocess.run(
        [tarka, "check", "--format=json", name], cwd=directory, capture_output=True, check=False
    )
    found = json.loads(run.stdout)["diagnostics"]
    expected = sorted((d["number"], d["line"], d["endLine"]) for d in found if d["file"] == name)
    assert published(client.wait(name)) == expected, f"{name}: not what tarka check reports"


def check_outline(client, name):
    """Each name is where the outline says, whichever snapshot has answered."""
    text = client.texts[client.path(name)]

    def check(elements):
        for element in elements:
            inner, outer = element["selectionRange"], element["range"]
            for end in ("start", "end"):
                assert outer["start"]["line"] <= inner[end]["line"] <= outer["end"]["line"], inner
            found, named = slices(text, inner), element["name"]
            assert found.strip("'\"").upper() == named.upper(), f"{named} at {inner}: {found}"
            check(element.get("children", []))

    check(client.about("documentSymbol", name) or [])


def own(answer):
    """Without places in other texts, which the two servers may have seen at different times."""
    if not isinstance(answer, list):
        return answer
    return [one for one in answer if one.get("uri", client.uri(name)) == client.uri(name)]


def check_fresh(client, name):
    """A server that has seen nothing but this text gives the same answers."""
    other = Client(tarka, directory, has_folder=False)
    other.open(name, client.texts[client.path(name)])
    for method in TEXTS:
        assert client.about(method, name) == other.about(method, name), f"{name}: {method}"
    for _ in range(5):
        asked = place(name, choice.randrange(len(client.texts[client.path(name)])))
        for method in POINTS[:5]:
            answers = [own(one.request("textDocument/" + method, asked)) for one in (client, other)]
            assert answers[0] == answers[1], (method, asked, answers)
    other.end()


def place(name, where):
    """The parameters of a request about an offset."""
    return {
        "textDocument": {"uri": client.uri(name)},
        "position": position(client.texts[client.path(name)], where),
    }


# What the index of a folder knows depends on when it was made.
client = Client(tarka, directory, has_folder=False)
for name in programs:
    client.open(name)
    client.wait(name)
undo = {name: [] for name in programs}
open_requests = set()
for number in range(1, edits + 1):
    name = choice.choice(programs)
    path = client.path(name)
    text = client.texts[path]
    begin = choice.randrange(len(text) + 1)
    kind = choice.random()
    if kind < 0.35 and undo[name]:
        edit = undo[name].pop()
    else:
        if kind < 0.6:
            edit = (begin, begin, choice.choice(TYPED + [text[begin : begin + 1], "\u00e9\U0001f600"]))
        elif kind < 0.8:
            end = min(len(text), begin + choice.choice([1, 2, 7, 80, 500]))
            edit = (begin, end, "")
        else:
            end = min(len(text), begin + choice.choice([0, 0, 10, 300]))
            source = choice.randrange(len(text))
            edit = (begin, end, text[source : source + choice.choice([5, 80, 400])])
        undo[name].append((edit[0], edit[0] + len(edit[2]), text[edit[0] : edit[1]]))
    client.change(name, edit)
    if choice.random() < 0.4:
        text = client.texts[path]
        method = choice.choice(POINTS + TEXTS)
        near = min(len(text), max(0, edit[0] + choice.choice([-40, 0, len(edit[2]), 40])))
        asked = client.start("textDocument/" + method, place(name, near))
        open_requests.add(asked)
        if choice.random() < 0.1:
            client.notify("$/cancelRequest", {"id": asked})
    if choice.random() < 0.01:
        for child in choice.sample(children(client), min(2, len(children(client)))):
            kill(child)
    if number % 20 == 0:
        check_outline(client, name)
    if number % 100 == 0:
        check_diagnostics(client, name)
        # Everything is undone: it is as if nothing had happened.
        while undo[name]:
            client.change(name, undo[name].pop())
        assert client.texts[path] == original[name]
        check_fresh(client, name)
    if number % 100 == 0:
        client.until(lambda: open_requests <= client.answers.keys())
        open_requests.clear()
        client.answers.clear()
        # A program has at most three snapshots; others may be ending.
        processes = len(children(client))
        descriptors = len(os.listdir(f"/proc/{client.process.pid}/fd"))
        assert processes <= 4 * len(programs), f"{processes} processes"
        assert descriptors <= 5 * len(programs) + 6, f"{descriptors} descriptors"
        first = resident(client) if number == 100 else first
        assert resident(client) < first + MOST_GROWTH, f"{resident(client)} MB, {first} MB at first"
    if number % 1000 == 0:
        print(f"{number} edits: the server has {resident(client):.1f} MB of its own", flush=True)
for name in programs:
    check_diagnostics(client, name)
assert client.process.poll() is None
print(f"{edits} edits: the server has {resident(client):.1f} MB of its own")
assert client.end() == 0
