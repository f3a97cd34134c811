"""What is told of the language and offered to write, while a program is typed.

usage: authoring.py TARKA DIRECTORY
"""

import sys
from pathlib import Path

from client import Client

tarka, directory = sys.argv[1:3]
client = Client(tarka, directory)
program = "WRITING.cbl"
client.open(program)
diagnostics = client.wait(program)


def check(what, found, expected):
    assert found == expected, f"{what}: {found}, expected {expected}"


def typed(text, at="           GOBACK."):
    """Types text before a place, and gives the parameters of a request about its end."""
    begin = client.texts[client.path(program)].index(at)
    client.change(program, (begin, begin, text))
    return client.at(program, text, len(text))


def erase(text):
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
assert client.end() == 0
