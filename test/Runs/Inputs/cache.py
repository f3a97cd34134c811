"""Reports of unchanged programs are kept and used again; whatever changes, no report is stale.

    cache.py TARKA FOLDER

A report that is used needs no worker, so it comes even where workers have neither time nor memory. (A quick worker
may end before its time is looked at; where the memory has no limit, under the sanitizers, none is that quick.)
"""

import concurrent.futures
import os
import pathlib
import shutil
import subprocess
import sys

tarka, folder = sys.argv[1], pathlib.Path(sys.argv[2])
os.chdir(folder)
failures = []


def run(*arguments, program=tarka, cache="cache"):
    result = subprocess.run([program, "check", "--cache-dir", cache, *arguments], capture_output=True, text=True)
    return result.returncode, result.stdout, result.stderr


NO_WORKERS = ["--time-limit=0.000001", "--memory-limit=1"]


def stored():
    return {entry.name: entry.inode() for entry in os.scandir("cache") if entry.name.startswith("llvmcache-")}


def is_kept(*arguments, **keywords):
    """Whether the report is one that was kept: a new one is stored."""
    before = stored()
    run(*arguments, **keywords)
    return stored() == before


def check(condition, message):
    if not condition:
        failures.append(message)


def write(path, text):
    pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
    pathlib.Path(path).write_text(text)


write("prog.cbl", """\
       identification division.
       program-id. prog.
       data division.
       working-storage section.
           copy customer.
           copy nowhere.
       procedure division.
           display missing.
           move "x" to amount.  *> tarka: off 9 never found
           goback.
""")
write("right/customer.cpy", "       01  amount pic 9(4).\n       01  twice pic x.\n       01  twice pic x.\n")
os.mkdir("left")
base = ["-Ileft", "-Iright", "prog.cbl"]

# The same report in every form, with its places and the exit status; but for the time it took.
FORMS = ["classic", "pretty", "json", "ndjson", "sarif", "github", "junit", "gcc"]
fresh = {form: run("--no-cache", f"--format={form}", *base) for form in FORMS}
check(not os.path.exists("cache"), "--no-cache makes a directory")
first = run(*base)
check(first[0] == 1 and "3468" in first[2], f"the program draws {first}")
for form in FORMS:
    kept = run(f"--format={form}", *NO_WORKERS, *base)
    strip = lambda result: [line for text in result[1:] for line in text.splitlines()
                            if "time" not in line.lower() and not any(f'"{o}"' in line for o in ["--no-cache", *NO_WORKERS])]
    check(kept[0] == fresh[form][0] and strip(kept) == strip(fresh[form]), f"{form}: {kept} is not {fresh[form]}")

# Each thing that the report is made of, changed and changed back.
def changes(what, change, undo):
    change()
    check(not is_kept(*base), f"stale: {what}")
    new = run(*base)
    check(new == run("--no-cache", *base), f"wrong: {what}")
    check(is_kept(*base), f"not kept: {what}")
    undo()
    check(run(*base) == first, f"wrong after undoing: {what}")


source = pathlib.Path("prog.cbl").read_text()
changes("the program", lambda: write("prog.cbl", source.replace("missing", "missed")), lambda: write("prog.cbl", source))
copybook = pathlib.Path("right/customer.cpy").read_text()
changes("a copybook", lambda: write("right/customer.cpy", copybook.replace("9(4)", "x(4)")), lambda: write("right/customer.cpy", copybook))
for path in ("left/customer.cpy", "left/CUSTOMER.CPY", "right/customer"):
    changes(f"{path} goes before the copybook that was found", lambda: write(path, "       01  amount pic x.\n"), lambda: os.unlink(path))
for path in ("left/nowhere.cpy", "nowhere.cob", "right/NOWHERE"):
    changes(f"{path} was looked for in vain", lambda: write(path, "       01  missing pic x.\n"), lambda: os.unlink(path))
os.symlink("target.cpy", "left/nowhere.cpy")
run(*base)
changes("what a link leads to", lambda: write("left/target.cpy", "       01  missing pic x.\n"), lambda: os.unlink("left/target.cpy"))
os.unlink("left/nowhere.cpy")
changes("a map that may be what was looked for", lambda: write("left/any.bms", "nowhere  DFHMSD TYPE=MAP\n"), lambda: os.unlink("left/any.bms"))
write("left/unrelated.txt", "")
check(is_kept(*base), "a file that nothing looked for counts")
changes("the copybook is gone", lambda: os.rename("right/customer.cpy", "right/other.txt"), lambda: os.rename("right/other.txt", "right/customer.cpy"))

# Every option that the report depends on; those of the run as a whole do not matter.
OPTIONS = ["-Iother", "-DX", "-DX=1", "--source-format=free", "--encoding=ISO-8859-1", "--cics", "--sql", "--check-file-id",
           "--dateproc", "--debug", "--dual", "--init", "--enable-cbltdli", "--enable-aertdli", "--enable-rw", "--enable-osvs",
           "--enterprise", "--syntax-only", "--all", "--off=3310", "--warn=3310", "--error=9", "--statistics"]
for option in OPTIONS:
    check(not is_kept(option, *base), f"{option} is not part of the key")
    run(option, *base)
    check(is_kept(option, *base), f"not kept with {option}")
for option in ("-Wno-3310", "--exit-zero", "--max-errors=1", "-j1", "--color=never", "--output=report.txt"):
    check(is_kept(option, *base), f"{option} is part of the key")
help_text = subprocess.run([tarka, "check", "--help"], capture_output=True, text=True).stdout
for word in ("--" + piece.split()[0].split("=")[0] for piece in help_text.split(" --")[1:]):
    known = OPTIONS + ["--exit-zero", "--max-errors", "--color", "--output", "--copybook-path", "--define", "--jobs", "--help",
                       "--include", "--exclude", "--stdin-name", "--time-limit", "--memory-limit", "--verify", "--format",
                       "--baseline", "--write-baseline", "--fix", "--diff", "--cache", "--cache-dir", "--no-cache",
                       "--list-copybooks", "--depfile", "--depfile-output", "--depfile-target", "--config", "--no-config",
                       "--progress"]
    check(any(word.rstrip(",:") == option.split("=")[0] for option in known), f"is {word} part of the key? Say so here")

# Another build of the program: a copy with another build ID.
build = pathlib.Path(tarka).read_bytes()
before = build.find(b"\x04\0\0\0\x14\0\0\0\x03\0\0\0GNU\0") + 16
shutil.copy2(tarka, "tarka")
check(before < 16 or is_kept(*base, program="./tarka"), "a copy of this build does not use its reports")
pathlib.Path("tarka").write_bytes(build[:before] + bytes([build[before] ^ 1]) + build[before + 1 :])
check(not is_kept(*base, program="./tarka"), "another build uses the reports of this one")

# What is damaged or foreign is as good as nothing.
entries = [path for path in pathlib.Path("cache").iterdir() if path.name.startswith("llvmcache-")]
for damage in (lambda data: data[: len(data) // 2], lambda data: data[:-9] + bytes([data[-9] ^ 1]) + data[-8:],
               lambda data: b"", lambda data: b"something else", lambda data: data + b"x"):
    run(*base)
    for entry in entries:
        if entry.exists():
            entry.write_bytes(damage(entry.read_bytes()))
    check(run(*base) == first, "a damaged entry changes the report")

# Many runs at the same time, and a directory that cannot be used.
for number in range(12):
    write(f"many/p{number}.cbl", source)
shutil.rmtree("cache")
with concurrent.futures.ThreadPoolExecutor(4) as pool:
    results = set(pool.map(lambda _: run("-Ileft", "-Iright", "-j2", "many"), range(6)))
check(results == {run("--no-cache", "-Ileft", "-Iright", "many")}, "runs at the same time differ")
check(is_kept("-Ileft", "-Iright", "many"), "runs at the same time keep nothing")
check(run(*base, cache="/dev/null/cache") == first, "a cache that cannot be made changes the report")

print(*failures, sep="\n")
sys.exit(bool(failures))
