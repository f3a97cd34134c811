"""Names and calls across the programs of a directory.

usage: workspace.py TARKA DIRECTORY
"""

import sys
from pathlib import Path

from client import Client, Failure, check, place

tarka, directory = sys.argv[1:3]
client = Client(tarka, directory)
client.open("PAY.cbl")
assert client.wait("PAY.cbl") == [], client.diagnostics


def symbols(query):
    return [(s["name"], place(s["location"])) for s in client.request("workspace/symbol", {"query": query})]


# Symbols of all programs and of copybooks, those with the name first.
check("programs", symbols("bill")[0], ("BILL", "BILL.cbl:2 BILL"))
assert ("PRINT-BILL", "PRINT-BILL") in [(n, p.split()[1]) for n, p in symbols("bill")]
check("a copied name is there once for each program", len(symbols("CURRENCY-CODE")), 1)
check("letters in their order", symbols("pymny"), [("PAY-MONEY", "MONEY.cpy:1 :P:-MONEY")])
check("copybooks", symbols("money")[0], ("MONEY.cpy", "MONEY.cpy:1"))
check("nothing", symbols("nowhere"), [])

# From a call to the program, and back from all who call it: CALL, LINK and XCTL.
check("definition", [place(l) for l in client.ask("definition", "PAY.cbl", "BILL", 1)], ["BILL.cbl:2 BILL"])
everywhere = {"context": {"includeDeclaration": True}}
check(
    "references of a program",
    sorted(place(l) for l in client.ask("references", "PAY.cbl", "BILL", 1, **everywhere)),
    ["BILL.cbl:2 BILL", "MENU.cbl:8 NEXT-PROGRAM", "PAY.cbl:11 'BILL'"],
)
help = client.ask("signatureHelp", "PAY.cbl", "PAY-MONEY", 1, "USING")["signatures"][0]
check("signature", help["label"], "CALL 'BILL' USING BILL-MONEY, 8 bytes")


def calls(direction, item):
    found = client.request(f"callHierarchy/{direction}", {"item": item})
    return [c["from" if direction == "incomingCalls" else "to"] for c in found]


item = client.ask("prepareCallHierarchy", "PAY.cbl", "PAY.", 1)[0]
check("who calls PAY", [c["name"] for c in calls("incomingCalls", item)], ["CHOOSE"])
item = client.ask("prepareCallHierarchy", "PAY.cbl", "PAY-ONE", 1)[0]
bill = calls("outgoingCalls", item)
check("whom PAY-ONE calls", [c["name"] for c in bill], ["BILL"])
callers = calls("incomingCalls", bill[0])
check("who calls BILL", sorted(c["name"] for c in callers), ["CHOOSE", "PAY-ONE"])
menu = [c for c in callers if c["name"] == "CHOOSE"][0]
check("whom CHOOSE calls", sorted(c["name"] for c in calls("outgoingCalls", menu)), ["BILL", "PAY"])

# Names of copybooks are used in other programs too.
check(
    "references of a copied name",
    sorted(place(l) for l in client.ask("references", "PAY.cbl", "CURRENCY-CODE", 1, **everywhere)),
    ["BILL.cbl:8 CURRENCY-CODE", "MONEY.cpy:3 CURRENCY-CODE", "PAY.cbl:10 CURRENCY-CODE"],
)



# A name of a copybook is renamed in all programs that copy it, and REPLACING is taken into account;
# refused is what would mean something else.
def rename(needle, new, after=None):
    try:
        answer = client.ask("rename", "PAY.cbl", needle, 1, after, newName=new)
    except Failure as refused:
        return str(refused)
    changed = {}
    for uri, edits in answer["changes"].items():
        path = Path(uri.removeprefix("file://"))
        lines = path.read_text().split("\n")
        for edit in edits:
            lines[edit["range"]["start"]["line"]] = edit["newText"]
        changed[path.name] = [new for old, new in zip(path.read_text().split("\n"), lines) if old != new]
    return changed


pay = '           DISPLAY BILL-AMOUNT \' \' CURRENCY-CODE OF BILL-MONEY'
check(
    "rename",
    rename("CURRENCY-CODE", "CURR"),
    {
        "BILL.cbl": [pay.replace("CURRENCY-CODE", "CURR")],
        "MONEY.cpy": ["           05  CURR       PIC X(3)."],
        "PAY.cbl": ["           MOVE 'EUR' TO CURR"],
    },
)
check(
    "rename with REPLACING",
    rename("PAY-AMOUNT", "PAY-SUM"),
    {
        "BILL.cbl": [pay.replace("BILL-AMOUNT", "BILL-SUM")],
        "MONEY.cpy": ["           05  :P:-SUM          PIC S9(7)V99 COMP-3."],
        "PAY.cbl": ["           MOVE 1 TO PAY-SUM"],
    },
)
for needle, new, reason in [
    ("PAY-AMOUNT", "SUM-TOTAL", "makes the part PAY"),
    ("PAY-AMOUNT", "PAY-MONEY", "declared already"),
    ("CURRENCY-CODE", "BILL-AMOUNT", "BILL.cbl would mean something else"),
]:
    refused = rename(needle, new)
    assert isinstance(refused, str) and reason in refused, f"rename to {new}: {refused}"

# What is saved is read again, and what is deleted is forgotten.
other = Path(directory, "MENU.cbl")
other.write_text(other.read_text().replace("CHOOSE", "SELECT-IT"))
Path(directory, "BILL.cbl").unlink()
client.notify(
    "workspace/didChangeWatchedFiles",
    {"changes": [{"uri": client.uri(n), "type": 2} for n in ("MENU.cbl", "BILL.cbl")]},
)
check("saved", [n for n, _ in symbols("select-it")], ["SELECT-IT"])
check("deleted", [n for n, _ in symbols("print-bill")], [])
assert client.end() == 0
