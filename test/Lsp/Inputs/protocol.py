"""What an editor must not send, and texts that few editors have: the server answers and goes on.

usage: protocol.py TARKA DIRECTORY
"""

import json
import subprocess
import sys
from pathlib import Path

from client import Client, Failure

tarka, directory = sys.argv[1:3]
PROGRAM = """       IDENTIFICATION DIVISION.
       PROGRAM-ID. TEXTS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  WS-FIRST                PIC X(10).
       01  WS-SECOND               PIC X(10).
       PROCEDURE DIVISION.
       MAIN-PART.
           MOVE '{}' TO WS-FIRST MOVE WS-FIRST TO WS-SECOND
           GOBACK.
"""


def framed(content):
    return b"Content-Length: %d\r\n\r\n" % len(content) + content


def message(**members):
    return framed(json.dumps({"jsonrpc": "2.0", **members}).encode())


def session(*pieces):
    """The exit status of a session of these bytes, and its answers by id."""
    run = subprocess.run(
        [tarka, "lsp"], input=b"".join(pieces), capture_output=True, timeout=60, check=False
    )
    assert run.stderr == b"", run.stderr
    answers, rest = {}, run.stdout
    while rest:
        head, _, rest = rest.partition(b"\r\n\r\n")
        size = int(head.split(b":")[1])
        one, rest = json.loads(rest[:size]), rest[size:]
        if "method" not in one:
            answers.setdefault(one["id"], []).append(one.get("error", {}).get("code"))
    return run.returncode, answers


hello = message(id=1, method="initialize", params={"capabilities": {}})
goodbye = message(id=9, method="shutdown") + message(method="exit")
status, answers = session(
    message(id="early", method="textDocument/hover", params={}),
    message(method="textDocument/didOpen", params={"textDocument": {"uri": "file:///x.cbl"}}),
    hello,
    message(id=2, method="initialize", params={}),
    # What is no message is refused or passed over, and the next one is understood.
    framed(b"{not json"),
    framed(b"[1, 2]"),
    framed(b'{"id": 3, "method": "\xff"}'),
    framed(b'{"deep": ' + b"[" * 100000 + b"]" * 100000 + b"}"),
    b'Content-Type: text/plain\r\n\r\n{"no": "length"}',
    message(id=4, method="textDocument/unknown", params={}),
    b"Content-Length: banana\r\n\r\n",
    b"Content-Length: 99999999999999999999\r\n\r\n",
    b"X-Long: " + b"x" * 300000,
    b"\r\nContent-Type: a\r\ncontent-length:%d\r\n\r\n" % len(b'{"id":5,"method":"a"}'),
    b'{"id":5,"method":"a"}',
    message(id=6, method="workspace/executeCommand", params={"command": "rm", "arguments": []}),
    message(id=7, method="textDocument/hover", params={"textDocument": {"uri": 7}}),
    message(id=8, method="textDocument/hover", params=[]),
    message(method="$/cancelRequest", params={"id": 77}),
    message(method="textDocument/didClose", params={"textDocument": {"uri": "file:///no.cbl"}}),
    message(id=99, result=None),
    goodbye,
    message(id=10, method="textDocument/hover", params={}),
)
assert status == 0, status
assert answers == {
    "early": [-32002],
    1: [None],
    2: [-32600],
    None: [-32700, -32600, -32700, -32700],
    4: [-32601],
    5: [-32601],
    6: [-32602],
    7: [None],
    8: [None],
    9: [None],
}, answers
# The input ends without a farewell, in the middle of a message, or after a shutdown.
assert session(hello)[0] == 1
assert session(hello, b"Content-Length: 100\r\n\r\n{")[0] == 1
assert session(hello, message(id=9, method="shutdown"))[0] == 1
assert session(message(method="exit"))[0] == 1

# Positions that do not exist, documents that are opened twice or closed with open requests.
client = Client(tarka, directory)
client.open("A.cbl", PROGRAM.format("x"))
client.wait("A.cbl")
for line, character in [(0, 10**9), (10**9, 0), (-1, -5), (2**40, 2**40), (10, 0)]:
    where = {"position": {"line": line, "character": character}}
    for method in ("hover", "definition", "completion", "references", "selectionRange"):
        client.about(method, "A.cbl", **where, positions=[where["position"]])
client.open("A.cbl", PROGRAM.format("y"))
client.wait("A.cbl")
number = client.start("textDocument/hover", client.at("A.cbl", "WS-FIRST", 1))
client.close("A.cbl")
try:
    client.finish(number)
except Failure:
    pass
client.open("A.cbl", PROGRAM.format("z"))
assert client.ask("hover", "A.cbl", "WS-SECOND", 1)


def check_text(name, text, uri=None):
    """Definition in a text whose characters or lines are not those of ASCII with LF."""
    if uri:
        client.uri = lambda _: uri
    client.open(name, text)
    found = client.ask("definition", name, "WS-FIRST", 1, "' TO")
    line, character = (5 - 1), 11
    assert len(found) == 1, (name, found)
    assert found[0]["range"]["start"] == {"line": line, "character": character}, (name, found)
    if uri:
        assert found[0]["uri"] == uri, found
    # After an edit in the line places are still right.
    before = text.index("MOVE '")
    client.change(name, (before, before, "\u00e9\U0001f600 "))
    asked = client.at(name, "WS-SECOND", 1, "TO ")
    assert client.request("textDocument/definition", asked)[0]["range"]["start"]["line"] == 5


check_text("U.cbl", PROGRAM.format("\u00e9\U0001f600\u6f22"))
check_text("W.cbl", PROGRAM.format("x").replace("\n", "\r\n"))
check_text("T.cbl", PROGRAM.format("x").replace("           MOVE", "\tMOVE"))
check_text("N.cbl", PROGRAM.format("x"), uri="untitled:Untitled-1")
assert client.process.poll() is None
assert client.end() == 0
