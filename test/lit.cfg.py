# The suite of COBOL programs. A comment in each contains the command that runs it.
#
#     *> RUN: %tarka check --verify %s
#
# %tarka is the program, %FileCheck (or plain FileCheck) LLVM's, %examples the folder of examples,
# %python the interpreter that runs lit; %s, %S, %t and the rest are lit's own.

import os
import sys

import lit.formats

config.name = "Tarka"
config.test_format = lit.formats.ShTest(execute_external=False)
config.suffixes = [".cbl", ".cob", ".test"]
config.excludes = ["Inputs", "consumer"]
config.test_source_root = os.path.dirname(__file__)

# Sanitizer settings reach the program only if they are passed on.
for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "ASAN_SYMBOLIZER_PATH", "UBSAN_SYMBOLIZER_PATH"):
    if name in os.environ:
        config.environment[name] = os.environ[name]

# Every test analyses its programs; what the cache does, its own test says with --cache-dir.
config.environment["XDG_CACHE_HOME"] = "/dev/null"

config.substitutions.append(("%tarka", config.tarka))
config.substitutions.append(("%FileCheck", config.filecheck))
config.substitutions.append((r"(?<![\w%./-])FileCheck\b", config.filecheck))
config.substitutions.append(("%examples", config.examples))
config.substitutions.append(("%python", sys.executable))
