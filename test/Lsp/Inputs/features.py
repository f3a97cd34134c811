"""Names of a program with copybooks, CICS and SQL, as an editor asks for them.

usage: features.py TARKA DIRECTORY
"""

import sys
from pathlib import Path

from client import Client, Failure, check, place, slices

tarka, directory = sys.argv[1:3]
client = Client(tarka, directory, "--cics", "--sql")
program = "ORDERS.cbl"
client.open(program)
assert client.wait(program) == [], client.diagnostics
text = client.texts[client.path(program)]


def places(locations):
    return [place(location) for location in locations or []]


def here(line, name):
    return f"{program}:{line} {name}"


# Definitions: in statements, clauses, embedded blocks and copybooks; the nearest procedure; the
# program of a CALL, not the other items of its names.
for needle, after, expected in [
    ("WS-STATUS", None, here(14, "WS-STATUS")),
    ("REPORT-FILE.", "FILE SECTION", here(10, "REPORT-FILE")),
    ("WS-COUNT", "INTO :", here(16, "WS-COUNT")),
    ("FAILED", "HANDLE", here(48, "FAILED")),
    ("WS-CUSTOMER", "INTO(", "CUSTOMER.cpy:1 :P:-CUSTOMER"),
    ("ROW-X", "SET", here(21, "ROW-X")),
    ("AMOUNT OF", None, "TOTALS.cpy:4 AMOUNT"),
    ("GRAND-TOTALS", "AMOUNT OF", "TOTALS.cpy:3 GRAND-TOTALS"),
    ("SHOW-EXIT", "THRU", here(46, "SHOW-EXIT")),
    ("STATUS-OK", "IF", here(15, "STATUS-OK")),
    ("'HELPER'", None, here(51, "HELPER")),
    ("TOTALS", "COPY", "TOTALS.cpy:1"),
]:
    found = places(client.ask("definition", program, needle, 1, after))
    check(f"definition of {needle}", found, [expected])
check(
    "the inner item hides the outer one",
    places(client.ask("definition", program, "WS-COUNT", 1, "MOVE LK-COUNT TO")),
    [here(54, "WS-COUNT")],
)
for needle, expected in [("STATUS-OK", here(14, "WS-STATUS")), ("ROW-X", here(21, "WS-ROW"))]:
    check("type", places(client.ask("typeDefinition", program, needle, 1)), [expected])
check(
    "declarations of a file",
    places(client.ask("declaration", program, "REPORT-FILE", 1)),
    [here(6, "REPORT-FILE"), here(10, "REPORT-FILE")],
)

# References; what the file is assigned to is another name. Reading and writing are told apart.
everywhere = {"context": {"includeDeclaration": True}}
check(
    "references of WS-COUNT",
    places(client.ask("references", program, "WS-COUNT", 1, **everywhere)),
    [here(16, "WS-COUNT"), here(31, "WS-COUNT"), here(39, "WS-COUNT")],
)
check(
    "references of the file",
    places(client.ask("references", program, "REPORT-FILE", 1, **everywhere)),
    [here(6, "REPORT-FILE"), here(10, "REPORT-FILE")],
)
client.open("TOTALS.cpy")
check(
    "references from the copybook",
    places(client.ask("references", "TOTALS.cpy", "AMOUNT", 1, "GRAND-TOTALS", **everywhere)),
    [here(36, "AMOUNT"), "TOTALS.cpy:4 AMOUNT"],
)
kinds = [h["kind"] for h in client.ask("documentHighlight", program, "WS-COUNT", 1)]
check("highlights: declared, written by SQL, passed by reference", kinds, [1, 3, 3])

# Hover.
for needle, after, words in [
    ("WS-AMOUNT", "10 ", ["PIC S9(7)V99 COMP-3", "5 bytes at offset 0 of WS-TABLE"]),
    ("WS-STATUS", "01 ", ["PIC XX", "88 STATUS-OK VALUE"]),
    ("SHOW-IT", "PERFORM", ["paragraph of SHOW-PART", "BEGIN-ORDERS"]),
    ("CUSTOMER", "COPY", ["CUSTOMER.cpy"]),
    ("INITIALIZE", None, ["**INITIALIZE**"]),
    ("RETURN-CODE", None, ["RETURN-CODE", "2 bytes"]),
    ("ROW-X", None, ["index of the table WS-ROW"]),
]:
    value = client.ask("hover", program, needle, 1, after)["contents"]["value"]
    for word in words:
        assert word in value, f"hover of {needle}: {word} is not in {value}"


# Rename, where it is certain.
def rename(needle, new, after=None):
    try:
        answer = client.ask("rename", program, needle, 1, after, newName=new)
    except Failure as refused:
        return str(refused)
    lines = text.split("\n")
    for edit in answer["changes"][client.uri(program)]:
        row = edit["range"]["start"]["line"]
        assert slices(text, edit["range"]) == lines[row]
        lines[row] = edit["newText"]
    return "\n".join(lines)


check(
    "rename",
    rename("WS-COUNT", "WS-ORDER-COUNT"),
    text.replace("WS-COUNT", "WS-ORDER-COUNT", 3)
)
for needle, new, after, reason in [
    ("WS-NAME", "X", "MOVE", "makes the part WS"),
    ("STATUS-OK", "MOVE", None, "reserved"),
    ("STATUS-OK", "WS-ROW", None, "declared already"),
    ("STATUS-OK", "9-", None, "not a name"),
    ("WS-AMOUNT", "WS-" + "A" * 27, "ADD", "too long"),
    ("RETURN-CODE", "X", None, "supplied"),
    ("IF", "X", None, "no name"),
]:
    refused = rename(needle, new, after)
    assert reason in refused and "\n" not in refused, f"rename of {needle}: {refused}"

# Outline, folding and calls.
outline = client.about("documentSymbol", program)
check("programs", [p["name"] for p in outline], ["ORDERS"])
check(
    "outline",
    [s["name"] for s in outline[0]["children"]],
    ["REPORT-FILE", "WS-STATUS", "WS-COUNT", "WS-TABLE", "DFHCOMMAREA"]
    + ["MAIN-PART", "SHOW-PART", "HELPER"],
)
check("records", outline[0]["children"][0]["children"][0]["name"], "REPORT-LINE")
folds = [(f["startLine"], f["endLine"]) for f in client.about("foldingRange", program)]
assert (37, 38) in folds and (41, 49) in folds, folds
item = client.ask("prepareCallHierarchy", program, "SHOW-IT", 1)[0]
calls = client.request("callHierarchy/incomingCalls", {"item": item})
check("incoming", [c["from"]["name"] for c in calls], ["BEGIN-ORDERS"])
item = client.ask("prepareCallHierarchy", program, "BEGIN-ORDERS", 1)[0]
calls = client.request("callHierarchy/outgoingCalls", {"item": item})
check("outgoing", [c["to"]["name"] for c in calls], ["FAILED", "SHOW-IT", "SHOW-EXIT", "HELPER"])

# Selections grow: a name, its statement, the statements around it, the paragraph, the section ...
where = client.at(program, "WS-COUNT", 1, "CALL 'HELPER'")["position"]
selection = client.about("selectionRange", program, positions=[where])[0]
grown = []
while selection:
    grown.append(slices(text, selection["range"]).strip())
    selection = selection.get("parent")
check("selections", [g.split()[0] for g in grown], ["WS-COUNT", "CALL", "IF", "BEGIN-ORDERS.", "MAIN-PART", "PROGRAM-ID."])
assert all(inner in outer for inner, outer in zip(grown, grown[1:])), grown

# Tokens come in order and cover the words.
data = client.about("semanticTokens/full", program)["data"]
line = column = 0
lines = text.split("\n")
words = []
for step, begin, length, kind, _ in zip(*[iter(data)] * 5):
    column = begin + (column if step == 0 else 0)
    line += step
    words.append((lines[line][column : column + length], kind))
assert ("PROCEDURE", 0) in words and ("WS-COUNT", 1) in words and ("SHOW-IT", 3) in words, words


# Completion while something is typed: the program is broken then.
def complete(typed, at="           GOBACK."):
    begin = text.index(at)
    client.change(program, (begin, begin, typed))
    labels = [i["label"] for i in client.ask("completion", program, typed, len(typed))["items"]]
    client.change(program, (begin, begin + len(typed), ""))
    return labels


check("procedures", complete("           PERFORM SHOW-"), ["SHOW-PART", "SHOW-IT", "SHOW-EXIT"])
check("copybooks", complete("           COPY CUST"), ["CUSTOMER"])
check("ambiguous", complete("           MOVE AMO"), ["AMOUNT OF SUB-TOTALS", "AMOUNT OF GRAND-TOTALS"])
assert "EVALUATE" in complete("           EVAL")
assert "WS-COUNT" in complete("           IF WS-")
check("files", complete("           OPEN INPUT REP"), ["REPORT-FILE"])

# What is wrong can be mended.
begin = text.index("STATUS-OK AND")
client.change(program, (begin, begin + 9, "STATUS-OKAY"))
wrong = client.wait(program)[0]
actions = client.about("codeAction", program, range=wrong["range"], context={"diagnostics": [wrong]})
titles = ["Change to STATUS-OK", "Create the item STATUS-OKAY", "Turn 3310 off for this line", "Explain 3310"]
check("titles", [a["title"] for a in actions], titles)
edit = actions[2]["edit"]["changes"][client.uri(program)][0]
row = client.texts[client.path(program)].split("\n")[: edit["range"]["start"]["line"]]
client.change(program, (len("\n".join(row)) + 1, len("\n".join(row)) + 1, edit["newText"]))
check("turned off", client.wait(program), [])
assert client.end() == 0

# A copybook that is opened by itself is read in a program that copies it.
client = Client(tarka, directory, "--cics", "--sql")
client.open("TOTALS.cpy")
client.change("TOTALS.cpy", (0, 0, "       01  ORDER-NUMBER PIC X(4) COMP-3.\n"))
copybook = client.path("TOTALS.cpy")
client.until(lambda: any("ORDERS.cbl" in d["message"] for d in client.diagnostics.get(copybook, [])))
related = client.diagnostics[copybook][0]["relatedInformation"]
check("copied from", [(r["message"], place(r["location"])) for r in related], [("copied here", here(19, "TOTALS"))])
found = places(client.ask("references", "TOTALS.cpy", "GRAND-TOTALS", 1, **everywhere))
check("references from a copybook alone", found[0], here(36, "GRAND-TOTALS"))
assert client.end() == 0

# A program in good form stays as it is; in bad form, only blanks change.
client = Client(tarka, directory)
example = str(Path(__file__).resolve().parents[3] / "examples/update/CUSTUPD.cbl")
client.open(example)
options = {"tabSize": 4, "insertSpaces": True}
check("a program in form", client.about("formatting", example, options=options), [])
text = client.texts[client.path(example)]
begin = text.index("MOVE OLD-REGION TO WS-LAST-REGION")
client.change(example, (begin - 6, begin, ""))
edits = client.about("formatting", example, options=options)
check("one line", [(e["range"]["start"]["character"], e["newText"]) for e in edits], [(7, " " * 8)])
assert client.end() == 0
