"""A client of tarka lsp that a script drives: it sends what an editor would and waits for answers."""

import contextlib
import json
import os
import queue
import signal
import subprocess
import threading
from pathlib import Path


class Failure(Exception):
    """The server answered a request with an error."""


class Client:
    """One session. Texts are opened by their paths; positions are (line, character) from 0."""

    def __init__(self, tarka, root, *options, encodings=("utf-16",), has_folder=True):
        self.root = Path(root).resolve()
        self.process = subprocess.Popen(
            [tarka, "lsp", *options], stdin=subprocess.PIPE, stdout=subprocess.PIPE, cwd=self.root
        )
        self.messages = queue.Queue()
        threading.Thread(target=self._receive, daemon=True).start()
        self.lastId = 0
        self.diagnostics = {}  # by path, as published last
        self.versions = {}  # of the texts that were published
        self.texts = {}  # as the editor has them, by path
        self.numbers = {}
        self.log = []
        self.answers = {}  # by number, of requests that nobody waits for yet
        answer = self.request(
            "initialize",
            {
                "processId": os.getpid(),
                "rootUri": self.root.as_uri() if has_folder else None,
                "capabilities": {"general": {"positionEncodings": list(encodings)}},
            },
        )
        self.capabilities = answer["capabilities"]
        self.notify("initialized", {})

    def _receive(self):
        stream = self.process.stdout
        while True:
            length = None
            while (line := stream.readline()) not in (b"\r\n", b""):
                name, _, value = line.decode().partition(":")
                if name.lower() == "content-length":
                    length = int(value)
            if length is None:
                self.messages.put(None)
                return
            self.messages.put(json.loads(stream.read(length)))

    def send(self, message):
        content = json.dumps({"jsonrpc": "2.0", **message}).encode()
        self.process.stdin.write(b"Content-Length: %d\r\n\r\n" % len(content) + content)
        self.process.stdin.flush()

    def notify(self, method, params):
        self.send({"method": method, "params": params})

    def start(self, method, params):
        """Sends a request and gives its number, for finish()."""
        self.lastId += 1
        self.send({"id": self.lastId, "method": method, "params": params})
        return self.lastId

    def finish(self, number, timeout=60):
        self.until(lambda: number in self.answers, timeout)
        message = self.answers.pop(number)
        if "error" in message:
            raise Failure(message["error"]["message"])
        return message["result"]

    def request(self, method, params, timeout=60):
        return self.finish(self.start(method, params), timeout)

    def take(self, timeout=60):
        """The next message; notifications and answers are noted."""
        message = self.messages.get(timeout=timeout)
        if message is None:
            raise EOFError("the server has ended")
        if "method" not in message:
            assert message["id"] not in self.answers, f"answered twice: {message}"
            self.answers[message["id"]] = message
        if message.get("method") == "textDocument/publishDiagnostics":
            params = message["params"]
            path = params["uri"].removeprefix("file://")
            self.diagnostics[path] = params["diagnostics"]
            self.versions[path] = params.get("version")
        elif message.get("method") == "window/logMessage":
            self.log.append(message["params"]["message"])
        return message

    def path(self, name):
        return str(self.root / name)

    def uri(self, name):
        return Path(self.path(name)).as_uri()

    def open(self, name, text=None):
        path = self.path(name)
        self.texts[path] = Path(path).read_text() if text is None else text
        self.numbers[path] = 1
        self.notify(
            "textDocument/didOpen",
            {
                "textDocument": {
                    "uri": self.uri(name),
                    "languageId": "cobol",
                    "version": 1,
                    "text": self.texts[path],
                }
            },
        )

    def change(self, name, *edits):
        """Each edit replaces the text between two offsets: (begin, end, new)."""
        path = self.path(name)
        changes = []
        for begin, end, new in edits:
            text = self.texts[path]
            changes.append(
                {"range": {"start": position(text, begin), "end": position(text, end)}, "text": new}
            )
            self.texts[path] = text[:begin] + new + text[end:]
        self.numbers[path] += 1
        self.notify(
            "textDocument/didChange",
            {
                "textDocument": {"uri": self.uri(name), "version": self.numbers[path]},
                "contentChanges": changes,
            },
        )

    def close(self, name):
        self.notify("textDocument/didClose", {"textDocument": {"uri": self.uri(name)}})

    def wait(self, name, timeout=60):
        """Waits for the diagnostics of the present text of the program and gives them."""
        path = self.path(name)
        self.until(lambda: self.versions.get(path) == self.numbers[path], timeout)
        return self.diagnostics[path]

    def until(self, holds, timeout=60):
        """Takes messages until something holds."""
        while not holds():
            self.take(timeout)

    def at(self, name, needle, offset=0, after=None):
        """The parameters of a request about the place of needle in the text."""
        text = self.texts[self.path(name)]
        start = text.index(after) + len(after) if after else 0
        where = text.index(needle, start) + offset
        return {"textDocument": {"uri": self.uri(name)}, "position": position(text, where)}

    def ask(self, method, name, needle, offset=0, after=None, **more):
        return self.request("textDocument/" + method, self.at(name, needle, offset, after) | more)

    def about(self, method, name, **more):
        """A request about the whole text."""
        return self.request(
            "textDocument/" + method, {"textDocument": {"uri": self.uri(name)}} | more
        )

    def end(self):
        self.request("shutdown", None)
        self.notify("exit", None)
        self.process.stdin.close()
        return self.process.wait(timeout=60)


def position(text, offset):
    """The line and the UTF-16 unit of an offset."""
    start = text.rfind("\n", 0, offset) + 1
    return {
        "line": text.count("\n", 0, offset),
        "character": len(text[start:offset].encode("utf-16-le")) // 2,
    }


def slices(text, place):
    """The text of a range."""
    lines = text.split("\n")
    first, last = place["start"]["line"], place["end"]["line"]
    rows = lines[first : last + 1]
    rows[-1] = cut(rows[-1], place["end"]["character"])
    rows[0] = rows[0][len(cut(rows[0], place["start"]["character"])) :]
    return "\n".join(rows)


def cut(line, units):
    return line.encode("utf-16-le")[: 2 * units].decode("utf-16-le")


def check(what, found, expected):
    assert found == expected, f"{what}: {found}, expected {expected}"


def place(location):
    """File:line, with the text that the location covers."""
    path = Path(location["uri"].removeprefix("file://"))
    line = location["range"]["start"]["line"] + 1
    return f"{path.name}:{line} {slices(path.read_text(), location['range'])}".strip()


def kill(child):
    # It may have ended since it was seen.
    with contextlib.suppress(ProcessLookupError):
        os.kill(int(child), signal.SIGKILL)


def children(client):
    pid = client.process.pid
    return Path(f"/proc/{pid}/task/{pid}/children").read_text().split()
