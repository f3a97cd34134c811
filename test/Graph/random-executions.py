"""Compares the edges of the flow graph with the steps of executions.

    random-executions.py TARKA DIRECTORY COUNT

A program of sections and paragraphs is made at random, and beside its text the instructions of a
machine that carries it out by the rules of the language: every condition may hold or not, every
operation succeed or fail, and a stack holds the ranges that are being performed. All executions are
followed up to a depth of the stack. Every step from one statement to the next must be an edge of the
graph, and every edge of a program without ALTER and HANDLE must be a step of some execution. The
picture must show the step too, and the text must not call a statement dead that is executed.

Where a range is left by GO TO and the end of another one that is open is come to, the language leaves
open what happens: some compilers fall through, some return from the open range. The machine does one
in one run and the other in another; both must be in the graph.
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
    select f assign to f relative access dynamic relative key n file status st.
    select g assign to g.
    select w assign to w.
data division.
file section.
fd f.
1 r pic x.
fd g.
1 q pic x.
sd w.
1 k pic x.
working-storage section.
1 n pic 9(4) global.
1 st pic xx.
1 t global.
  2 e pic 9 occurs 5 indexed by i.
procedure division.""".splitlines()

DEPTH = 5
MAX_STATES = 60_000


class Label:
    at = None


class Procedure:
    def __init__(self, name):
        self.name, self.start, self.end = name, Label(), Label()


class Generator:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.lines = list(HEAD)
        self.code = []  # (operation, operands...)
        self.loops = []  # (cycle, exit) of the inline PERFORMs around
        self.sentence_end = None
        self.paragraph_end = self.section_end = None
        self.alterable = []
        self.labels = []  # of HANDLE
        self.nested, self.first_inner_line = False, sys.maxsize
        # Programs that may be in trouble, and programs whose ranges are entered and left as they should.
        self.is_wild = self.likely(0.5)
        self.has_use = self.likely(0.5)
        self.can_alter = self.likely(0.3)
        self.has_commands = self.is_wild and self.likely(0.3)
        self.has_nested = self.likely(0.4)
        self.has_states = self.can_alter or self.has_commands
        self.build()

    def likely(self, probability):
        return self.random.random() < probability

    def write(self, text, mark=True):
        self.lines.append("    " + text)
        if mark:
            self.emit("at", len(self.lines))
        return len(self.lines)

    def emit(self, *operation):
        self.code.append(operation)

    def place(self, label):
        label.at = len(self.code)

    def build(self):
        has_sections = self.likely(0.6)
        sections = []
        number = 0
        for s in range(self.random.randint(1, 3) if has_sections else 1):
            section = Procedure(f"s{s}") if has_sections else None
            paragraphs = []
            for _ in range(self.random.randint(1, 4)):
                paragraphs.append(Procedure(f"p{number}"))
                number += 1
            sections.append((section, paragraphs))
        # What can be named, in the order of the text.
        self.paragraphs = [p for _, ps in sections for p in ps]
        self.sections = [s for s, _ in sections if s]
        self.procedures = self.paragraphs + self.sections
        if self.can_alter:
            self.alterable = self.random.sample(self.paragraphs, 1)
        self.declarative = Procedure("d0") if self.has_use else None
        main, self.inner = Label(), Label()
        self.emit("jump", main)
        if self.has_use:
            self.lines += ["declaratives.", "d0 section.", "    use after error procedure on input."]
            self.place(self.declarative.start)
            self.allowed = []
            self.in_paragraph(Procedure("d1"), simple=True)
            self.emit("end", self.declarative, None)
            self.emit("stop")
            self.lines.append("end declaratives.")
        self.place(main)
        for section, paragraphs in sections:
            self.section_end = Label()
            if section:
                self.lines.append(f"{section.name} section.")
                self.place(section.start)
            for paragraph in paragraphs:
                self.in_paragraph(paragraph)
            self.place(self.section_end)
            if section:
                self.emit("end", section)
        self.emit("leave")
        if self.has_nested:
            self.build_nested()

    def build_nested(self):
        """A program within the other, with two paragraphs, that neither works on files nor sorts."""
        self.first_inner_line = len(self.lines) + 1
        self.lines += ["identification division.", "program-id. inner.", "procedure division."]
        self.nested, self.is_wild, self.sections = True, False, []
        self.can_alter = self.has_use = self.has_commands = False
        self.alterable = []
        self.paragraphs = self.procedures = [Procedure("q0"), Procedure("q1")]
        self.place(self.inner)
        self.section_end = Label()
        for paragraph in self.paragraphs:
            self.in_paragraph(paragraph)
        self.place(self.section_end)
        self.emit("leave")
        self.lines += ["end program inner.", "end program p."]

    def in_paragraph(self, paragraph, simple=False):
        self.lines.append(f"{paragraph.name}.")
        self.place(paragraph.start)
        self.current = paragraph
        # Ranges that can be performed without recursion: those that begin behind.
        index = self.paragraphs.index(paragraph) if paragraph in self.paragraphs else -1
        self.behind = self.paragraphs[index + 1 :] if not simple else []
        self.paragraph_end = Label()
        if paragraph in self.alterable:
            target = self.random.choice(self.paragraphs)
            self.write(f"go to {target.name}.")
            self.emit("altered", paragraph, target)
        else:
            for _ in range(self.random.randint(1, 3)):
                self.sentence_end = Label()
                if simple:
                    self.move(0)
                else:
                    self.statements(0)
                self.lines[-1] += "."
                self.place(self.sentence_end)
        self.place(self.paragraph_end)
        self.emit("end", paragraph)

    def statements(self, depth):
        for _ in range(self.random.randint(1, 3)):
            self.statement(depth)

    def statement(self, depth):
        makers = [
            (6, self.move), (3, self.if_), (2, self.evaluate), (2, self.phrases), (2, self.inline),
            (3, self.perform), (2, self.transfer), (1, self.search),
        ]
        if not self.nested:
            makers += [(1, self.sort), (1, self.xml)]
            makers += [(2, self.call)] * self.has_nested + [(3, self.command)] * self.has_commands
        if depth >= 3:
            makers = makers[:1]
        self.random.choices([m for _, m in makers], [w for w, _ in makers])[0](depth)

    def move(self, depth):
        if self.alterable and self.likely(0.2):
            source = self.random.choice(self.alterable)
            target = self.random.choice(self.paragraphs)
            self.write(f"alter {source.name} to proceed to {target.name}")
            self.emit("alter", source, target)
        elif self.has_use and self.likely(0.2):
            self.write(self.random.choice(["open input f", "close f", "read f next end-read"]))
            self.use_or(Label())
        else:
            self.write("move 1 to n")

    def use_or(self, behind):
        """The operation succeeds, or the USE procedure runs and returns behind the statement."""
        use = Label()
        self.emit("branch", [behind, use])
        self.place(use)
        self.emit("perform", self.declarative, self.declarative)
        self.place(behind)

    def branch(self, depth):
        if self.likely(0.1):
            self.write("next sentence")
            self.emit("jump", self.sentence_end)
        else:
            self.statements(depth + 1)

    def if_(self, depth):
        self.write("if n = 1")
        then, otherwise, end = Label(), Label(), Label()
        self.emit("branch", [then, otherwise])
        self.place(then)
        self.branch(depth)
        self.emit("jump", end)
        self.place(otherwise)
        if self.likely(0.5):
            self.lines.append("    else")
            self.branch(depth)
        self.place(end)
        self.lines.append("    end-if")

    def evaluate(self, depth):
        self.write("evaluate n")
        end = Label()
        for _ in range(self.random.randint(1, 3)):
            for first in [True, False][: self.random.randint(1, 2)]:
                self.write("when 1", mark=first)
            body, following = Label(), Label()
            self.emit("branch", [body, following])
            self.place(body)
            self.statements(depth + 1)
            self.emit("jump", end)
            self.place(following)
        if self.likely(0.5):
            self.write("when other")
            self.statements(depth + 1)
        self.place(end)
        self.lines.append("    end-evaluate")

    def phrases(self, depth):
        statement, phrase, end, is_file = self.random.choice([
            ("add 1 to n", "on size error", "end-add", False),
            ("string t delimited size into t", "on overflow", "end-string", False),
            ("call 'q'", "on exception", "end-call", False),
            ("read f next", "at end", "end-read", True),
            ("rewrite r", "invalid key", "end-rewrite", True),
        ][: 3 if self.nested else None])
        both = self.random.choice([(True, False), (False, True), (True, True)])
        self.write(statement)
        on, not_on, use, behind = Label(), Label(), Label(), Label()
        ways = [on, not_on]
        if is_file:
            # Other failures take neither phrase.
            ways.append(use if self.has_use else behind)
        self.emit("branch", ways)
        self.place(use)
        if self.has_use:
            # The mode in which the file is open may be one without a procedure.
            enter = Label()
            self.emit("branch", [enter, behind])
            self.place(enter)
            self.emit("perform", self.declarative, self.declarative)
        self.emit("jump", behind)
        for label, has_phrase, text in ((on, both[0], phrase), (not_on, both[1], "not " + phrase)):
            self.place(label)
            if has_phrase:
                self.lines.append("    " + text)
                self.statements(depth + 1)
            elif label is on and is_file and self.has_use:
                enter = Label()
                self.emit("branch", [enter, behind])
                self.place(enter)
                self.emit("perform", self.declarative, self.declarative)
            self.emit("jump", behind)
        self.place(behind)
        self.lines.append("    " + end)

    def repetition(self):
        """The phrase, whether the body may run never, and whether it may run again."""
        return self.random.choice([
            ("", False, False), ("1 times", False, False), ("3 times", False, True),
            ("n times", True, True), ("until n = 5", True, True), ("test after until n = 5", False, True),
            ("varying n from 1 by 1 until n = 5", True, True),
        ])

    def loop(self, repetition, body):
        _, never, again = repetition
        run, cycle, end = Label(), Label(), Label()
        self.emit("branch", [run, end] if never else [run])
        self.place(run)
        self.loops.append((cycle, end))
        body()
        self.loops.pop()
        self.place(cycle)
        self.emit("branch", [run, end] if again else [end])
        self.place(end)

    def inline(self, depth):
        repetition = self.repetition()
        self.write("perform " + repetition[0])
        self.loop(repetition, lambda: self.statements(depth + 1))
        self.lines.append("    end-perform")

    def pick_range(self):
        if self.is_wild:
            begin = self.random.choice(self.procedures)
            end = self.random.choice(self.procedures) if self.likely(0.4) else begin
            return begin, end
        if not self.behind:
            return None
        begin = self.random.randrange(len(self.behind))
        end = self.random.randrange(begin, len(self.behind)) if self.likely(0.4) else begin
        return self.behind[begin], self.behind[end]

    def perform(self, depth):
        picked = self.pick_range()
        if not picked:
            return self.move(depth)
        begin, end = picked
        repetition = self.repetition()
        thru = f" thru {end.name}" if end is not begin else ""
        self.write(f"perform {begin.name}{thru} {repetition[0]}")
        self.loop(repetition, lambda: self.emit("perform", begin, end))

    def transfer(self, depth):
        choices = ["paragraph", "goback", "stop", "program"] + ["section"] * (not self.nested)
        if self.is_wild:
            choices += ["go to", "depending"] * 3
        if self.loops:
            choices += ["perform", "cycle"] * 4
        choice = self.random.choice(choices)
        if choice == "paragraph":
            self.write("exit paragraph")
            self.emit("jump", self.paragraph_end)
        elif choice == "section":
            self.write("exit section")
            self.emit("jump", self.section_end)
        elif choice == "goback":
            self.write("goback")
            self.emit("leave")
        elif choice == "stop":
            self.write("stop run")
            self.emit("stop")
        elif choice == "program":
            self.write("exit program")
            go_on = Label()
            leave = Label()
            # Only the program that the run began with goes on.
            self.emit("branch", [leave] if self.nested else [go_on, leave])
            self.place(leave)
            self.emit("leave")
            self.place(go_on)
        elif choice == "go to":
            target = self.random.choice(self.procedures)
            self.write(f"go to {target.name}")
            self.emit("jump", target.start)
        elif choice == "depending":
            targets = self.random.choices(self.procedures, k=2)
            self.write(f"go to {targets[0].name} {targets[1].name} depending on n")
            behind = Label()
            self.emit("branch", [targets[0].start, targets[1].start, behind])
            self.place(behind)
        else:
            cycle, end = self.loops[-1]
            self.write("exit perform" + (" cycle" if choice == "cycle" else ""))
            self.emit("jump", cycle if choice == "cycle" else end)

    def search(self, depth):
        self.write("search e")
        test, at_end, end = Label(), Label(), Label()
        first = Label()
        self.emit("jump", test)
        if self.likely(0.6):
            self.lines.append("    at end")
            self.place(at_end)
            self.statements(depth + 1)
            self.emit("jump", end)
        else:
            self.place(at_end)
            self.emit("jump", end)
        self.place(test)
        self.emit("branch", [at_end, first])
        self.place(first)
        for _ in range(self.random.randint(1, 2)):
            self.write("when e (i) = 1")
            body, following = Label(), Label()
            self.emit("branch", [body, following])
            self.place(body)
            self.branch(depth)
            self.emit("jump", end)
            self.place(following)
        self.emit("jump", test)
        self.place(end)
        self.lines.append("    end-search")

    def sort(self, depth):
        using, giving = self.likely(0.4), self.likely(0.4)
        ranges = [self.pick_range(), self.pick_range()]
        if not all(ranges):
            return self.move(depth)
        self.write("sort w ascending key k")
        output, behind = Label(), Label()
        self.phase("input", "using f" if using else None, ranges[0], [output, behind])
        self.place(output)
        self.phase("output", "giving g" if giving else None, ranges[1], [behind])
        self.place(behind)

    def phase(self, verb, file, performed, after_failure):
        """A procedure of the sort or its files. Having failed, a sort goes on or is given up."""
        begin, end = performed
        if not file:
            thru = f" thru {end.name}" if end is not begin else ""
            self.lines.append(f"      {verb} procedure {begin.name}{thru}")
            self.emit("perform", begin, end)
            return
        self.lines.append(f"      {file}")
        if self.has_use:
            failed = Label()
            self.emit("branch", [after_failure[0], failed])
            self.place(failed)
            self.emit("perform", self.declarative, self.declarative)
            self.emit("branch", after_failure)

    def xml(self, depth):
        picked = self.pick_range()
        if not picked:
            return self.move(depth)
        begin, end = picked
        thru = f" thru {end.name}" if end is not begin else ""
        self.write(f"xml parse t processing procedure {begin.name}{thru}")
        parser, event, over, failed, passed, behind = (Label() for _ in range(6))
        self.place(parser)
        self.emit("branch", [event, over])
        self.place(event)
        self.emit("perform", begin, end)
        self.emit("branch", [parser, over])
        self.place(over)
        self.emit("branch", [failed, passed])
        for label, phrase in ((failed, "on exception"), (passed, "not on exception")):
            self.place(label)
            if self.likely(0.5):
                self.lines.append("    " + phrase)
                self.statements(depth + 1)
            self.emit("jump", behind)
        self.place(behind)
        self.lines.append("    end-xml")

    def call(self, depth):
        self.write("call 'inner' end-call")
        self.emit("call", self.inner)

    def command(self, depth):
        # Conditions that every command can raise.
        condition = self.random.choice(["invreq", "lengerr"])
        label = self.random.choice(self.paragraphs)
        choice = self.random.choice(["handle", "handle", "default", "read", "read", "read", "return"])
        if choice == "handle":
            self.write(f"exec cics handle condition {condition}({label.name}) end-exec")
            self.emit("alter", Procedure(condition), label)
        elif choice == "default":
            self.write(f"exec cics handle condition {condition} end-exec")
            self.emit("alter", Procedure(condition), Procedure(""))
        else:
            verb = "return" if choice == "return" else "read file('f') into(t)"
            self.write(f"exec cics {verb} end-exec")
            behind, failing = Label(), Label()
            self.emit("branch", [behind, failing])
            self.place(failing)
            self.emit("raise", behind)
            self.place(behind)
            if choice == "return":
                self.emit("stop")


class Machine:
    """Follows all executions; gives the steps, and whether it came to an end with them."""

    def __init__(self, code, returns_from_any):
        self.code = code
        self.returns_from_any = returns_from_any
        self.steps = set()
        self.is_complete = True
        self.run()

    def run(self):
        # Where it is, the statement it was at last, the ranges being performed, the altered targets.
        self.explore((0, "start", (), ()))

    def explore(self, start):
        seen, open_states = {start}, [start]
        while open_states:
            state = open_states.pop()
            for following in self.follow(state):
                if following not in seen:
                    if len(seen) > MAX_STATES:
                        self.is_complete = False
                        return
                    seen.add(following)
                    open_states.append(following)

    def follow(self, state):
        at, last, stack, altered = state
        operation, *operands = self.code[at]
        if operation == "at":
            self.steps.add((last, operands[0]))
            return [(at + 1, operands[0], stack, altered)]
        if operation == "jump":
            return [(operands[0].at, last, stack, altered)]
        if operation == "branch":
            return [(label.at, last, stack, altered) for label in operands[0]]
        if operation == "alter":
            changed = tuple(a for a in altered if a[0] != operands[0].name)
            return [(at + 1, last, stack, changed + ((operands[0].name, operands[1].start.at),))]
        if operation == "altered":
            target = dict(altered).get(operands[0].name, operands[1].start.at)
            return [(target, last, stack, altered)]
        if operation == "perform":
            if len(stack) == DEPTH:
                self.is_complete = False
                return []
            return [(operands[0].start.at, last, stack + ((operands[1].name, at + 1),), altered)]
        if operation == "end":
            name = operands[0].name
            for depth in range(len(stack), 0, -1):
                end, behind = stack[depth - 1]
                if end == name:
                    return [(behind, last, stack[: depth - 1], altered)]
                # The ranges of a calling program are not looked at.
                if not self.returns_from_any or end.isdigit():
                    break
            return [(at + 1, last, stack, altered)]
        if operation == "raise":
            # Each of the conditions that lead somewhere may be the one that is raised.
            targets = [start for name, start in altered if name in ("notfnd", "duprec")]
            return [(target, last, stack, altered) for target in targets if target is not None]
        calls = [depth for depth, (end, _) in enumerate(stack) if end.isdigit()]
        if operation == "call":
            if len(stack) == DEPTH or calls:
                self.is_complete &= bool(calls)
                return []
            # The marker in the stack is the line of the CALL.
            return [(operands[0].at, "start of inner", stack + ((str(last), at + 1),), altered)]
        self.steps.add((last, "exit of inner" if calls else "exit"))
        if operation == "leave" and calls:
            line, behind = stack[calls[-1]]
            return [(behind, int(line), stack[: calls[-1]], altered)]
        return []


class Graph:
    """The steps that the three forms of the graph have."""

    def __init__(self, tarka, source):
        self.tarka, self.source = tarka, source
        self.steps, self.drawn, self.reached, self.blocks = set(), set(), set(), {}
        for function in json.loads(self.print("json"))["functions"]:
            self.add(function, " of inner" if function["name"].lower() == "inner" else "")
        self.pictured = self.read_picture()
        self.dead = self.read_text()

    def print(self, form):
        command = [self.tarka, "cfg", f"--format={form}", "--full", "--keep-going", str(self.source)]
        done = subprocess.run(command, capture_output=True, text=True)
        if done.returncode > 1:
            sys.exit(f"{self.source}: {done.stderr}")
        return done.stdout

    def add(self, function, suffix):
        nodes = {node["id"]: node for node in function["nodes"]}
        written = {"statement", "condition", "evaluate"}
        names = {
            i: node["line"] if node["kind"] in written else node["kind"] + suffix
            for i, node in nodes.items()
            if node["kind"] in written or node["kind"] in ("start", "exit")
        }
        for number, name in names.items():
            self.blocks.setdefault(name, set()).add((bool(suffix), nodes[number].get("block")))
        leads_to, drawn = {}, {}
        for edge in function["edges"]:
            if edge["kind"] == "call":
                continue  # Into another program, whose steps begin anew.
            leads_to.setdefault(edge["from"], []).append(edge["to"])
            # The picture leads on from the performer in place of coming back from the range.
            if edge["kind"] not in ("return", "declarative end"):
                drawn.setdefault(edge["from"], []).append(edge["to"])
        for start, name in names.items():
            if nodes[start]["reached"]:
                for edges, steps in ((leads_to, self.steps), (drawn, self.drawn)):
                    targets = walk(edges, start, lambda node: node in names)
                    steps |= {(name, names[node]) for node in targets}
                self.reached.add(name)

    def read_picture(self):
        """Steps as pairs of blocks, through boxes that hold no statement."""
        edges = {}
        for first, second in re.findall(r"^ *(\w+)\S* -> (\w+)", self.print("dot"), re.M):
            edges.setdefault(first, []).append(second)
        held = {name_of_box(*block) for blocks in self.blocks.values() for block in blocks}
        return {box: set(walk(edges, box, lambda other: other in held)) for box in held}

    def is_pictured(self, step):
        if step not in self.drawn or not all(isinstance(name, int) for name in step):
            return True  # A return, or the end of a program, which has no box.
        first, second = ({name_of_box(*block) for block in self.blocks[name]} for name in step)
        return first & second or any(second & self.pictured[box] for box in first)

    def read_text(self):
        """The lines of the statements in blocks that are said not to be reached."""
        dead, alive, is_dead = set(), set(), False
        for line in self.print("text").splitlines():
            if re.match(r" *\d+: ", line):
                is_dead = "[not reached]" in line
            elif match := re.match(r" {6,}(\d+) [A-Z]", line):
                (dead if is_dead or "[not reached]" in line else alive).add(int(match[1]))
        return dead - alive  # A statement may have several elements.


def first_line(step):
    """The line of the statement that the step begins or ends with."""
    return next((name for name in step if isinstance(name, int)), 0)


def name_of_box(is_inner, block):
    return f"f{int(is_inner)}b{block}"


def walk(leads_to, start, is_end):
    """The nodes at which the ways from start end first."""
    ends, seen, open_nodes = [], set(), list(leads_to.get(start, []))
    while open_nodes:
        node = open_nodes.pop()
        if node in seen:
            continue
        seen.add(node)
        if is_end(node):
            ends.append(node)
        else:
            open_nodes += leads_to.get(node, [])
    return ends


def main():
    tarka, directory, count = sys.argv[1:]
    pathlib.Path(directory).mkdir(parents=True, exist_ok=True)
    failures = complete = 0
    for seed in range(int(count)):
        program = Generator(seed)
        source = pathlib.Path(directory) / f"{seed}.cbl"
        source.write_text("\n".join(program.lines) + "\n")
        graph = Graph(tarka, source)
        machines = [Machine(program.code, False), Machine(program.code, True)]
        steps = machines[0].steps | machines[1].steps
        missing = steps - graph.steps
        undrawn = {step for step in steps if not graph.is_pictured(step)}
        dead = graph.dead & {line for step in steps for line in step}
        # Whether control comes to a GO TO after the ALTER of it, and what HANDLE holds behind a range,
        # is more than the graph tells.
        is_exact = all(m.is_complete for m in machines) and not program.has_states
        # A program that nothing calls has its ways too, as if it were called.
        is_called = any(first == "start of inner" for first, _ in steps)
        called = {step for step in graph.steps
                  if is_called or first_line(step) < program.first_inner_line}  # fmt: skip
        excess = called - steps if is_exact else set()
        complete += is_exact
        found = {"no edges": missing, "not in the picture": undrawn, "called dead": dead,
                 "edges that nothing takes": excess}  # fmt: skip
        failures += any(found.values())
        for what, which in found.items():
            if which:
                print(f"{source}: {what}: {sorted(which, key=str)[:4]}")
    if complete < int(count) // 4:
        print(f"only {complete} of {count} programs were followed to the end")
        failures += 1
    return failures != 0


if __name__ == "__main__":
    sys.exit(main())
