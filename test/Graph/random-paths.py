"""Compares the ways through the graph with the ways through the program.

    random-paths.py TARKA DIRECTORY COUNT

A paragraph of nested statements is made at random, together with every way that control can take
through it by the rules of the language: the lines of the MOVE statements passed, and how the
paragraph is left. The graph of the paragraph must have the same ways, no more and no fewer. A loop
counts as one that runs once, and every condition as one that may be true or false.
"""

import json
import pathlib
import random
import re
import subprocess
import sys

HEAD = """identification division.
program-id. p.
environment division.
input-output section.
file-control.
    select f assign to f relative access random relative key n.
data division.
file section.
fd f.
1 r pic x.
working-storage section.
1 n pic 9(4).
1 t pic x(9).
procedure division.
s section.
p.""".splitlines()
TAIL = ["p2.", "    continue.", "s2 section.", "p3.", "    goback."]

# A statement with two phrases, and the ends of its branches.
PHRASES = [
    ("add 1 to n", "on size error", "not on size error", "end-add"),
    ("string t delimited size into t", "on overflow", "not on overflow", "end-string"),
    ("read f", "invalid key", "not invalid key", "end-read"),
    ("rewrite r", "invalid key", "not invalid key", "end-rewrite"),
    ("delete f", "invalid key", "not invalid key", "end-delete"),
    ("call t", "on exception", "not on exception", "end-call"),
    ("call 'q'", "on exception", "not on exception", "end-call"),
]
TRANSFERS = ["exit paragraph", "exit section", "go to p3", "goback"]
# Above this number of paths no statement is added, because the number multiplies.
MANY_WAYS = 10

# A way: the lines passed, and the statement that leaves the paragraph, None where it goes on.
GOES_ON = {((), None)}


def then(first, second):
    """The ways through one thing and another one after it."""
    return {
        (lines + more, left) if end is None else (lines, end)
        for lines, end in first
        for more, left in (second if end is None else GOES_ON)
    }


class Paragraph:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.lines = list(HEAD)
        self.with_other = set()  # the lines of the EVALUATE statements that have WHEN OTHER
        self.ways = GOES_ON
        for _ in range(self.random.randint(2, 4)):
            if len(self.ways) <= MANY_WAYS:
                self.add_sentence()

    def add_sentence(self):
        ways = self.statements(0, False)
        self.lines[-1] += "."
        ways = {(lines, None if end == "next sentence" else end) for lines, end in ways}
        self.ways = then(self.ways, ways)

    def write(self, text):
        self.lines.append("    " + text)
        return len(self.lines)

    def likely(self, probability):
        return self.random.random() < probability

    def statements(self, depth, in_loop):
        ways = GOES_ON
        for _ in range(self.random.randint(1, 3)):
            if len(ways) <= MANY_WAYS:
                ways = then(ways, self.statement(depth, in_loop))
        return ways

    def statement(self, depth, in_loop):
        makers = [self.move, self.if_, self.evaluate, self.phrases, self.perform, self.transfer]
        weights = [7, 3, 2, 4, 1, 1] if depth < 4 else [1, 0, 0, 0, 0, 0]
        return self.random.choices(makers, weights)[0](depth, in_loop)

    def move(self, depth, in_loop):
        return {((self.write("move 1 to n"),), None)}

    def branch(self, depth, in_loop):
        if self.likely(0.12):
            self.write("next sentence")
            return {((), "next sentence")}
        return self.statements(depth + 1, in_loop)

    def if_(self, depth, in_loop):
        self.write("if n = 1")
        ways = self.branch(depth, in_loop)
        if self.likely(0.5):
            self.write("else")
            ways |= self.branch(depth, in_loop)
        else:
            ways |= GOES_ON
        self.write("end-if")
        return ways

    def evaluate(self, depth, in_loop):
        line = self.write("evaluate n")
        ways = set()
        for _ in range(self.random.randint(1, 3)):
            for _ in range(self.random.randint(1, 2)):
                self.write("when 1")
            ways |= self.statements(depth + 1, in_loop)
        if self.likely(0.5):
            self.with_other.add(line)
            self.write("when other")
            ways |= self.statements(depth + 1, in_loop)
        else:
            ways |= GOES_ON
        self.write("end-evaluate")
        return ways

    def phrases(self, depth, in_loop):
        statement, phrase, not_phrase, end = self.random.choice(PHRASES)
        chosen = self.random.choice([(phrase,), (not_phrase,), (phrase, not_phrase)])
        self.write(statement)
        ways = set() if len(chosen) == 2 else GOES_ON
        for text in chosen:
            self.write(text)
            ways = ways | self.statements(depth + 1, in_loop)
        self.write(end)
        return ways

    def perform(self, depth, in_loop):
        self.write(self.random.choice(["perform", "perform 3 times", "perform until n = 5"]))
        ways = self.statements(depth + 1, True)
        self.write("end-perform")
        return {(lines, None if end == "exit perform" else end) for lines, end in ways}

    def transfer(self, depth, in_loop):
        if in_loop and self.likely(0.5):
            self.write(self.random.choice(["exit perform", "exit perform cycle"]))
            return {((), "exit perform")}
        text = self.random.choice(TRANSFERS)
        self.write(text)
        return {((), text)}


class Graph:
    """The ways through the graph, as the code generator takes them."""

    def __init__(self, tarka, source, with_other):
        def cfg(form):
            command = [tarka, "cfg", "--format=" + form, str(source)]
            return subprocess.run(command, capture_output=True, text=True, check=True).stdout

        blocks = json.loads(cfg("json"))["functions"][0]["blocks"]
        self.blocks = {block["id"]: block for block in blocks}
        self.with_other = with_other
        # Only the text shows where EXIT PERFORM goes; the loop's control stands for the block after it here.
        behind = {b["return"]: b["after"] for b in blocks if "inline" in b}
        self.exits = {}
        for line in cfg("text").splitlines():
            if match := re.match(r" +(\d+): ", line):
                block = int(match[1])
            elif match := re.search(r"EXIT PERFORM to (\d+)", line):
                self.exits[block] = behind.get(int(match[1]), int(match[1]))
        self.known = {}
        self.ways = self.ways_from(next(b["id"] for b in blocks if b["name"] == "P"), None)

    def ways_from(self, number, next_sentence):
        if (number, next_sentence) not in self.known:
            self.known[number, next_sentence] = self.find_ways(number, next_sentence)
        return self.known[number, next_sentence]

    def find_ways(self, number, next_sentence):
        block = self.blocks[number]
        if block["name"] == "P2":
            return GOES_ON
        next_sentence = block.get("next", next_sentence)
        lines = tuple(e["line"] for e in block["elements"] if e["class"] == "MoveStatement")
        last = block["elements"][-1] if block["elements"] and block["terminator"] else None
        kind = last["class"] if last else None
        ends = {
            "ExitParagraphStatement": "exit paragraph",
            "ExitSectionStatement": "exit section",
            "GotoStatement": "go to p3",
            "GobackStatement": "goback",
        }
        if kind in ends:
            return {(lines, ends[kind])}
        if kind == "NextSentenceStatement":
            targets = {next_sentence}
        elif kind == "ExitPerformStatement":
            targets = {self.exits[number]}
        elif kind == "PerformStatement":
            targets = {block["inline"]}
        elif kind == "AddStatement":
            targets = {block.get("onSize", block["end"]), block.get("notOnSize", block["end"])}
        elif kind == "InnerExitStatement" or not block["terminator"]:
            targets = {block.get("successor", number + 1)}
        else:
            targets = {block.get("then", block.get("end")), block.get("else", block.get("end"))}
            is_last_test = kind == "InnerWhenStatement" and block["else"] == block["end"]
            if is_last_test and last["line"] in self.with_other:
                targets = {block["then"]}
        found = [self.ways_from(target, next_sentence) for target in targets]
        return then({(lines, None)}, set().union(*found))


def main():
    tarka, directory, count = sys.argv[1:]
    pathlib.Path(directory).mkdir(parents=True, exist_ok=True)
    failures = 0
    for seed in range(int(count)):
        paragraph = Paragraph(seed)
        source = pathlib.Path(directory) / f"{seed}.cbl"
        source.write_text("\n".join(paragraph.lines + TAIL) + "\n")
        ways = Graph(tarka, source, paragraph.with_other).ways
        if ways != paragraph.ways:
            failures += 1
            print(f"{source}: not in the graph: {sorted(paragraph.ways - ways, key=str)[:3]}")
            print(f"{source}: only in the graph: {sorted(ways - paragraph.ways, key=str)[:3]}")
    return failures != 0


sys.exit(main())
