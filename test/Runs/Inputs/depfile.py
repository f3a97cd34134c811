"""Ninja and Make run tarka again when something has changed that its report depends on, and only then.

    depfile.py TARKA FOLDER NINJA
"""

import os
import pathlib
import shutil
import subprocess
import sys
import time

tarka, folder, ninja = sys.argv[1:]
os.chdir(folder)
failures = []


def write(path, text):
    pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
    pathlib.Path(path).write_text(text)


for name, copies in (("one", "shared"), ("two", "own")):
    write(f"src/{name}.cbl", f"""\
       identification division.
       program-id. {name}.
       data division.
       working-storage section.
           copy {copies}.
       procedure division.
           goback.
""")
write("copy/shared.cpy", "       01  a pic x.\n")
write("copy/own.cpy", "       01  b pic x.\n")
os.mkdir("first")

# The recipes of docs/build-systems.md.
write("build.ninja", f"""\
rule check
  command = {tarka} check --no-cache -Ifirst -Icopy $in --format=json --output $out -MD -MF $out.d
  depfile = $out.d
  deps = gcc
build reports/one.json: check src/one.cbl
build reports/two.json: check src/two.cbl
""")
write("Makefile", f"""\
all: made/one.json made/two.json
made/%.json: src/%.cbl
	@mkdir -p made
	{tarka} check --no-cache -Ifirst -Icopy $< --format=json --output $@ -MD
-include $(wildcard made/*.d)
""")

BUILDS = {"ninja": ([ninja, "-v"], "reports"), "make": (["make"], "made")}


def built():
    """Which reports each of the build systems makes."""
    made = {}
    for name, (command, place) in BUILDS.items():
        result = subprocess.run(command, capture_output=True, text=True)
        if result.returncode:
            failures.append(f"{name}: {result.stdout}{result.stderr}")
        made[name] = {which for which in ("one", "two") if f"{place}/{which}.json" in result.stdout}
    return made


def expect(what, *wanted):
    time.sleep(0.02)
    for name, made in built().items():
        if made != set(wanted):
            failures.append(f"{name}: after {what} it makes {sorted(made)}, not {sorted(wanted)}")


if not shutil.which("make"):
    del BUILDS["make"]
expect("nothing", "one", "two")
expect("a build")
time.sleep(0.02)
write("src/one.cbl", pathlib.Path("src/one.cbl").read_text() + "\n")
expect("a change of a program", "one")
time.sleep(0.02)
write("copy/own.cpy", "       01  c pic x.\n")
expect("a change of a copybook", "two")
time.sleep(0.02)
write("first/shared.cpy", "       01  d pic x.\n")
# Both looked into the directory.
expect("a copybook before the one that was found", "one", "two")
expect("that build")
os.unlink("copy/shared.cpy")
# The search for shared ends before it.
expect("the end of a copybook that is not used", "two")
expect("that build, too")
os.unlink("first/shared.cpy")
write("copy/shared.cpy", "       01  e pic x.\n")
expect("the end of a copybook that was", "one", "two")
expect("the last build")

shutil.copy("src/one.cbl", "src/one prog.cbl")
rule = subprocess.run([tarka, "check", "--no-cache", "-Ifirst", "-Icopy", "src/one prog.cbl", "-MD", "-MF", "rule.d", "-MT", "all of it"],
                      capture_output=True, text=True)
text = pathlib.Path("rule.d").read_text()
wanted = "all\\ of\\ it: \\\n  copy \\\n  copy/shared.cpy \\\n  first \\\n  src/one\\ prog.cbl\n\ncopy:\n\ncopy/shared.cpy:\n\nfirst:\n\nsrc/one\\ prog.cbl:\n"
if text != wanted:
    failures.append(f"the rule is {text}")
print(*failures, sep="\n")
sys.exit(bool(failures))
