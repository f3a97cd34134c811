"""What is told of the language and offered to write, while a program is typed.

usage: authoring.py TARKA DIRECTORY
"""

import sys
from pathlib import Path

from client import Client, check

tarka, directory = sys.argv[1:3]
client = Client(tarka, directory)
program = "WRITING.cbl"
client.open(program)
diagnostics = client.wait(program)


def typed(text, at="           GOBACK."):
    """Types text before a place, and gives the parameters of a request about its end."""
    begin = client.texts[client.path(program)].index(at)
    client.change(program, (begin, begin, text))
    return client.at(program, text, len(text))


def erase(text):
    assert client.texts[client.path(program)].count(text) == 1
    begin = client.texts[client.path(program)].index(text)
    client.change(program, (begin, begin + len(text), ""))


# A comment that turns nothing off is faded, and its explanation can be opened.
check("numbers", [d["code"] for d in diagnostics], [8])
check("tags", diagnostics[0]["tags"], [1])
page = Path(diagnostics[0]["codeDescription"]["href"].removeprefix("file://"))
assert page.read_text().startswith("### 8\n"), page

# Hover of what has no declaration.
for needle, after, words in [
    ("X'C1F1'", None, ["2 bytes", "49649, signed -15887", "EBCDIC: `A1`"]),
    ("'IT''S", None, ["alphanumeric literal, 22 characters"]),
    ("3.25", None, ["3 digits, 2 of them after"]),
    ("05", None, ["item of a group"]),
    ("SPACES", None, ["**SPACES**: Blanks"]),
    ("MOD (", None, ["FUNCTION MOD (integer divisor)", "sign of the divisor"]),
    ("DIVISION", "PROCEDURE ", []),
]:
    answer = client.ask("hover", program, needle, 1, after)
    value = answer["contents"]["value"] if answer else ""
    assert bool(value) == bool(words), f"hover of {needle}: {value}"
    for word in words:
        assert word in value, f"hover of {needle}: {word} is not in {value}"


# Signature help: what is passed to a program and to functions, and which of it is being written.
def signature(text):
    help = client.request("textDocument/signatureHelp", typed(text))
    erase(text)
    if not help:
        return None
    parameters = [p["label"] for p in help["signatures"][0]["parameters"]]
    active = help["activeParameter"]
    return parameters[active] if active < len(parameters) else active


key, result = "LK-KEY, 8 bytes", "LK-RESULT PIC S9(5)V99 COMP-3"
call = "           CALL 'lookup' USING "
for text, expected in [
    (call, key),
    (call + "WS-HEX OF ", key),
    (call + "WS-TEXT (1:2) ", result),
    (call + "BY REFERENCE WS-TEXT, LENGTH OF W", result),
    (call + "A B C ", 3),
    (call + "A ON ", None),
    ("           CALL 'NOWHERE' USING ", None),
    ("           COMPUTE X = FUNCTION PRESENT-VALUE (", "rate"),
    ("           COMPUTE X = FUNCTION PRESENT-VALUE (A * (B + 1) ", "amount..."),
    ("           COMPUTE X = FUNCTION PRESENT-VALUE (1 2 3 FUNCTION REM (5 ", "divisor"),
    ("           COMPUTE X = FUNCTION PRESENT-VALUE (1, T (2, 3", "amount..."),
    ("           COMPUTE X = FUNCTION PI + (", None),
]:
    check(f"signature help after {text.strip()}", signature(text), expected)


# Completion: what can stand at a place, the likely first.
def complete(text, at="           GOBACK."):
    items = client.request("textDocument/completion", typed(text, at))["items"]
    erase(text)
    return [i["label"] for i in sorted(items, key=lambda i: i["sortText"])]


data = "       01  WS-NUMBER"
check("qualifiers", complete("           MOVE LK-NUMBER OF "), ["LK-KEY"])
check("groups of several items", complete("           MOVE AMOUNT IN "), ["GRAND-TOTALS", "SUB-TOTALS"])
check("condition-names first", complete("           IF WS-")[0], "WS-EMPTY")
check("what a copybook has to replace", complete("       COPY CUSTOMER REPLACING ==", data), [":P:"])
check("programs", complete("           CANCEL 'LOO"), ["LOOKUP"])
check("functions", complete("           MOVE FUNCTION DAY-T"), ["DAY-TO-YYYYDDD"])
for text, at, wanted, unwanted in [
    ("           SUBTRACT 1 ", None, ["FROM", "ON SIZE ERROR", "WS-NUMBER"], ["PIC", "UNTIL"]),
    ("           SUBTRACT 1 FROM X\n           PER", None, ["PERFORM"], []),
    ("       01  NEW-ITEM ", data, ["PIC", "COMP-3"], ["WS-TEXT", "PERFORM", "TO"]),
    ("       01  NEW-ITEM REDEFINES ", data, ["WS-TEXT"], []),
    ("           read ws-file at", None, ["at end"], []),
]:
    found = complete(text, at or "           GOBACK.")
    assert set(wanted) <= set(found) and not set(unwanted) & set(found), f"after {text}: {found}"
functions = client.request("textDocument/completion", typed("           MOVE FUNCTION "))["items"]
erase("           MOVE FUNCTION ")
assert len(functions) > 80 and all(": " in f["detail"] for f in functions), functions


# Code actions.
def offset(text, place):
    lines = text.split("\n")
    return sum(len(l) + 1 for l in lines[: place["line"]]) + place["character"]


def actions(text):
    """What is offered for a line that is typed."""
    line = typed(text + "\n")["position"]["line"] - 1
    client.wait(program)
    place = {"start": {"line": line, "character": 0}, "end": {"line": line, "character": len(text)}}
    return client.about("codeAction", program, range=place, context={"diagnostics": []})


def carry_out(action):
    for edit in action["edit"]["changes"][client.uri(program)]:
        text = client.texts[client.path(program)]
        begin, end = (offset(text, edit["range"][e]) for e in ("start", "end"))
        client.change(program, (begin, end, edit["newText"]))
    return [d["code"] for d in client.wait(program)]


for text, titles, made in [
    ("           MOVE 'ABC' TO NEW-NAME", ["Create the item NEW-NAME"], "01  NEW-NAME                PIC X(3)."),
    ("           MOVE NEW-SUM TO WS-NUMBER", ["Create the item NEW-SUM"], "PIC S9(5)V99 COMP-3."),
    ("           PERFORM NEW-PART", ["Create the paragraph NEW-PART"], "       NEW-PART.\n           CONTINUE."),
    ("           MOVE 1 TO AMOUNT", ["Change to AMOUNT OF SUB-TOTALS", "Change to AMOUNT OF GRAND-TOTALS"], "AMOUNT OF SUB-TOTALS"),
    ("           IF WS-EMPTY CONTINUE", ["Add END-IF"], "GOBACK\n           END-IF."),
]:
    before = client.texts[client.path(program)]
    offered = actions(text)
    check(f"actions at {text.strip()}", [a["title"] for a in offered if a["title"] in titles], titles)
    check(f"after {titles[0]}", carry_out([a for a in offered if a["title"] == titles[0]][0]), [8])
    assert made in client.texts[client.path(program)], client.texts[client.path(program)]
    client.change(program, (0, len(client.texts[client.path(program)]), before))

explained = client.request(
    "workspace/executeCommand",
    {"command": "tarka.explain", "arguments": [client.uri(program), {"number": 3310}]},
)
assert "### 3310" in explained["content"], explained

# Hints: sizes, what is copied, and what begins out of sight.
whole = {"start": {"line": 0, "character": 0}, "end": {"line": 999, "character": 0}}
hints = [h["label"] for h in client.about("inlayHint", program, range=whole)]
assert {"TOTALS.cpy", "@2 +6", "PERFORM UNTIL WS-EMPTY AND WS-NUMBER IS..."} <= set(hints), hints

# Monikers, and pictures that move no further than they must.
for needle, identifier in [("WS-HEX", "WRITING/WS-HEX"), ("'LOOKUP'", "program/LOOKUP")]:
    found = client.ask("moniker", program, needle, 1)
    check("moniker", found[0]["identifier"] if len(found) == 1 else [f["identifier"] for f in found][-1], identifier)
client.change(program, (0, len(client.texts[client.path(program)]), """\
       IDENTIFICATION DIVISION.
       PROGRAM-ID. WRITING.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A PIC X.
           05  LONGER-NAME PIC X.
           05  B    PIC X.
"""))
edits = client.about("formatting", program, options={"tabSize": 4, "insertSpaces": True})
check("columns", [(e["range"]["start"], len(e["newText"])) for e in edits],
      [({"line": 5, "character": 16}, 11), ({"line": 7, "character": 16}, 11)])
assert client.end() == 0
