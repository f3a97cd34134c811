"""Compares the values that reads find in executions with the writes that are said to reach them.

    random-items.py TARKA DIRECTORY COUNT

The programs and the machine are those of random-executions.py. Here the statements work on items
that share storage: groups, a redefinition, a RENAMES, a table, parts of items. The machine follows all
executions and remembers which statement wrote a byte. A read must name the statement that wrote any
byte that it finds, and the write must be live; and what is said must happen in some execution.
"""

import importlib.util
import json
import pathlib
import subprocess
import sys

sys.dont_write_bytecode = True
spec = importlib.util.spec_from_file_location(
    "executions", pathlib.Path(__file__).with_name("random-executions.py"))
executions = importlib.util.module_from_spec(spec)
spec.loader.exec_module(executions)

DATA = """1 rec.
  2 a pic x(4).
  2 b.
    3 b1 pic xx.
    3 b2 pic xx.
  2 tab occurs 2.
    3 t1 pic x.
    3 t2 pic x.
66 ren renames b1 thru b2.
1 red redefines rec.
  2 ra pic x(6).
  2 rb pic x(6).""".splitlines()

# The bytes of an operand, as a set for each that may be meant: one of several with a variable subscript.
OPERANDS = {
    "rec": [range(0, 12)], "a": [range(0, 4)], "b": [range(4, 8)], "b1": [range(4, 6)],
    "b2": [range(6, 8)], "ra": [range(0, 6)], "rb": [range(6, 12)], "ren": [range(4, 8)],
    "a (2:2)": [range(1, 3)], "rb (3:)": [range(8, 12)], "ra (n:1)": [range(k, k + 1) for k in range(6)],
    "t1 (1)": [range(8, 9)], "t2 (2)": [range(11, 12)], "tab (1)": [range(8, 10)],
    "t1 (n)": [range(8, 9), range(10, 11)], "t2 (n)": [range(9, 10), range(11, 12)],
    "tab (n)": [range(8, 10), range(10, 12)],
}  # fmt: skip
ITEMS = {"b2": (6, 7), "b1": (4, 5), "t1": (8, 10), "t2": (9, 11), "a": range(4)}


class Generator(executions.Generator):
    def __init__(self, seed):
        self.head = executions.HEAD[:-1] + DATA + executions.HEAD[-1:]
        super().__init__(seed)

    def build(self):
        self.lines = list(self.head)
        self.can_alter = self.has_commands = self.has_nested = False
        super().build()

    def operand(self):
        return self.random.choice(list(OPERANDS))

    def move(self, depth):
        first, second = self.operand(), self.operand()
        text, reads, writes, is_sure = self.random.choice([
            (f"move 'x' to {first}", [], [first], True),
            (f"move {first} to {second}", [first], [second], True),
            (f"display {first} {second}", [first, second], [], True),
            (f"display {first}", [first], [], True),
            ("initialize b", [], ["b1", "b2"], True),
            ("string 'x' delimited size into a end-string", [], ["a"], False),
            ("inspect rb replacing all 'x' by 'y'", ["rb"], ["rb"], False),
            ("call 'q' using b1 end-call", ["b1"], ["b1"], False),
        ])
        self.write(text, mark=False)
        self.emit("at", len(self.lines), reads, writes, is_sure)


class ByteMachine(executions.Machine):
    """Follows all executions with the line that wrote one byte last; pairs are (read, writer)."""

    def __init__(self, code, returns_from_any, byte):
        self.byte, self.pairs = byte, set()
        super().__init__(code, returns_from_any)

    def run(self):
        self.explore((0, 0, (), ()))

    def follow(self, state):
        at, writer, stack, altered = state
        operation = self.code[at]
        if operation[0] != "at":
            return super().follow(state)
        if len(operation) == 2:
            return [(at + 1, writer, stack, altered)]
        _, line, reads, writes, is_sure = operation
        # One choice of occurrences for the whole statement would say the same: operands are apart.
        if any(self.byte in meant for name in reads for meant in OPERANDS[name]):
            self.pairs.add((line, writer))
        following = []
        is_written = is_kept = False
        for name in writes:
            is_written |= any(self.byte in meant for meant in OPERANDS[name])
        is_kept = not is_sure or not any(
            all(self.byte in meant for meant in OPERANDS[name]) for name in writes)
        if is_written:
            following.append((at + 1, line, stack, altered))
        if is_kept:
            following.append((at + 1, writer, stack, altered))
        return following


def flow_of(tarka, source, item):
    command = [tarka, "flow", "--format=json", "--item", item, str(source)]
    done = subprocess.run(command, capture_output=True, text=True)
    if done.returncode:
        sys.exit(f"{source}: {done.stderr}")
    return json.loads(done.stdout)["items"][0]["uses"]


def main():
    tarka, directory, count = sys.argv[1:]
    pathlib.Path(directory).mkdir(parents=True, exist_ok=True)
    failures = complete = 0
    for seed in range(int(count)):
        program = Generator(seed)
        source = pathlib.Path(directory) / f"{seed}.cbl"
        source.write_text("\n".join(program.lines) + "\n")
        item = program.random.choice(list(ITEMS))
        machines = [ByteMachine(program.code, returns_from_any, byte)
                    for byte in ITEMS[item] for returns_from_any in (False, True)]  # fmt: skip
        real = set().union(*(machine.pairs for machine in machines))
        uses = flow_of(tarka, source, item)
        said, live = set(), set()
        for use in uses:
            if use["writes"] and use["live"]:
                live.add(use["line"])
            if use["reads"]:
                said |= {(use["line"], uses[write]["line"]) for write in use["from"]}
                said |= {(use["line"], 0)} if use["initial"] else set()
        read = {writer for _, writer in real if writer}
        # Where a range is left by GO TO, what comes to the end of another one is said of all its
        # performers.
        is_exact = all(machine.is_complete for machine in machines) and not program.is_wild
        complete += is_exact
        for what, pairs in (("not said", real - said), ("called dead", read - live),
                            ("never happens", said - real if is_exact else None),
                            ("called live", live - read if is_exact else None)):  # fmt: skip
            if pairs:
                failures += 1
                print(f"{source}: {item}: {what}: {sorted(pairs)[:5]}")
    if complete < int(count) // 4:
        print(f"only {complete} of {count} programs were followed to the end")
        failures += 1
    return failures != 0


if __name__ == "__main__":
    sys.exit(main())
