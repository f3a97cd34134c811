"""While something is half typed, what is known of the rest of the program stays.

usage: halftyped.py TARKA DIRECTORY
"""

import sys

from client import Client, slices

tarka, directory = sys.argv[1:3]
client = Client(tarka, directory, "--cics", "--sql")
program = "ORDERS.cbl"
client.open(program)
assert client.wait(program) == [], client.diagnostics
path = client.path(program)


def names(elements):
    for element in elements:
        yield element["name"]
        yield from names(element.get("children", []))


def check_places(elements):
    for element in elements:
        found = slices(client.texts[path], element["selectionRange"])
        assert found.upper() == element["name"].upper(), f"{found}: {element}"
        check_places(element.get("children", []))


def colors():
    """The number of words that have a color."""
    return len(client.about("semanticTokens/full", program)["data"]) // 5


before, colored = sorted(names(client.about("documentSymbol", program))), colors()


def check(what):
    """Names, outline and hover are as before; the places are those of the text as it is."""
    outline = client.about("documentSymbol", program)
    found = sorted(names(outline))
    missing = [name for name in before if name not in found]
    assert not missing, f"{what}: the outline has lost {missing}"
    check_places(outline)
    assert colors() > colored * 0.9, f"{what}: only {colors()} of {colored} words have a color"
    hover = client.ask("hover", program, "WS-AMOUNT", 1, "ADD ")
    assert hover and "PIC S9(7)V99" in hover["contents"]["value"], f"{what}: {hover}"
    line = client.texts[path].split("\n").index("       01  WS-COUNT                PIC S9(4) COMP.")
    for needle, after in [("WS-COUNT", "INTO :"), ("WS-COUNT", "HELPER' USING ")]:
        found = client.ask("definition", program, needle, 1, after)
        assert found and found[0]["range"]["start"]["line"] == line, f"{what}: {needle}: {found}"
    assert client.ask("references", program, "SHOW-EXIT", 1, "THRU ")


def edit(old, new, steps=1):
    """Replaces old by new, which is typed in several steps, and gives what undoes it. What old
    ends with is not typed again."""
    text = client.texts[path]
    begin = text.index(old)
    while old and new.endswith(old[-1]):
        old, new = old[:-1], new[:-1]
    client.change(program, (begin, begin + len(old), ""))
    size = max(1, -(-len(new) // steps))
    for at in range(0, len(new), size):
        client.change(program, (begin + at, begin + at, new[at : at + size]))
    return lambda: client.change(program, (begin, begin + len(new), old))


for what, old, new in [
    ("a statement without its operands", "           SET ROW-X", "           MOVE WS-\n           SET ROW-X"),
    ("an IF that is being written", "           MOVE WS-NAME", "           IF WS-COUNT >\n           MOVE WS-NAME"),
    ("a literal that is not closed", "MAP('ORD')", "MAP('ORD)"),
    ("a literal in VALUE", "VALUE '00'.", "VALUE '00."),
    ("a block that is being written", "           SET ROW-X", "           EXEC SQL SELECT \n           SET ROW-X"),
    ("a block without its end", "           EXEC CICS RECEIVE MAP('ORD') INTO(WS-CUSTOMER) END-EXEC", "           EXEC CICS RECEIVE MAP('ORD') INTO(WS-CUSTOMER)"),
    ("no DATA DIVISION", "       DATA DIVISION.\n", ""),
    ("half a header", "       DATA DIVISION.\n", "       DATA DIV\n"),
    ("no PROCEDURE DIVISION", "       PROCEDURE DIVISION USING DFHCOMMAREA.\n", ""),
    ("no IDENTIFICATION DIVISION", "       IDENTIFICATION DIVISION.\n", ""),
    ("an entry without a period", "01  WS-STATUS               PIC XX.", "01  WS-STATUS               PIC X("),
    ("a pseudo-text that is not closed", "==:P:== BY ==LK==.", "==:P:== BY ==LK."),
]:
    undo = edit(old, new, steps=3)
    check(what)
    # What else is typed meanwhile moves the places.
    second = edit("       SHOW-IT.\n", "      * a comment\n       SHOW-IT.\n")
    check(what + ", and a comment")
    second()
    undo()
    client.wait(program)
assert client.diagnostics[path] == []

# Names that the broken text has lost are offered, where they are being typed.
edit("       DATA DIVISION.\n", "")
edit("           SET ROW-X", "           MOVE WS-AM\n           SET ROW-X")
labels = [i["label"] for i in client.ask("completion", program, "WS-AM\n", 5)["items"]]
assert "WS-AMOUNT" in labels, labels
assert client.end() == 0
