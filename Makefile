# The targets are short forms of CMake presets; `make help` lists them.

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)

.DEFAULT_GOAL := build
# Each build already uses all processors.
.NOTPARALLEL:
.PHONY: help setup build sanitize demo test fuzz-smoke fuzz bench docs install package vscode test-vscode lint format clean

# How many seconds `make fuzz` runs, and the fuzzers that it runs.
FUZZ_TIME ?= 3600
FUZZERS ?= Analyzer Parser Preprocessor Reader

help:
	@echo "make build     build the release (build/release)"
	@echo "make demo      check an example program and print its control-flow graph"
	@echo "make test      build with GCC, and with Clang under the sanitizers; run every test"
	@echo "make fuzz      run the fuzzers for FUZZ_TIME seconds (default 3600)"
	@echo "make fuzz-smoke  run them on some thousand inputs, as make test does too"
	@echo "make bench     run the measurements"
	@echo "make docs      regenerate docs/diagnostics.md and the options in docs/commands/"
	@echo "make install   install below PREFIX (default /usr/local)"
	@echo "make package   build a Debian package (build/release/tarka_*.deb)"
	@echo "make vscode    build the extension for VS Code, with the program (editors/vscode/tarka-cobol.vsix)"
	@echo "make test-vscode  run VS Code in a browser with the extension, and look at the page"
	@echo "make lint      clang-format and clang-tidy over all sources"
	@echo "make format    format all sources"
	@echo "make clean     remove the build directories"
	@echo "make setup     install the missing packages of packages.txt (all other targets do it first)"

setup:
	@scripts/setup.sh

# A preset is configured when its directory is new or the presets have changed.
build/%/build.ninja: CMakePresets.json | setup
	@cmake --preset $*
	@touch $@

build: build/release/build.ninja
	@cmake --build --preset release -j $(JOBS)

sanitize: build/sanitize/build.ninja
	@cmake --build --preset sanitize -j $(JOBS)

demo: build
	@scripts/demo.sh build/release/tools/tarka/tarka

# One ctest run over both builds; the tests of the sanitizer build have the prefix "sanitize.".
# Before it the amount of test code is checked, see scripts/proportion.sh.
test: build sanitize
	@mkdir -p build/all
	@echo 'subdirs("$(CURDIR)/build/release" "$(CURDIR)/build/sanitize")' > build/all/CTestTestfile.cmake
	@scripts/proportion.sh
	@ctest --test-dir build/all -j $(JOBS) --output-on-failure --no-tests=error

fuzz-smoke: sanitize
	@ctest --preset sanitize -L fuzz

# Each fuzzer gets an equal share of the time; one that finds something ends early.
fuzz: build/fuzz/build.ninja
	@cmake --build --preset fuzz -j $(JOBS)
	@failed=0; for fuzzer in $(FUZZERS); do \
	  fuzz/run.sh build/fuzz/fuzz/fuzz$$fuzzer $$(($(FUZZ_TIME) / $(words $(FUZZERS)))) || failed=1; \
	done; exit $$failed

bench: build
	@bench/run.sh build/release

docs: build
	@build/release/tools/tarka/tarka explain --format=markdown > docs/diagnostics.md
	@scripts/command-pages.py build/release/tools/tarka/tarka

install: build
	@cmake --install build/release --prefix $(PREFIX)

package: build
	@cd build/release && rm -f tarka_*.deb && cpack -G DEB >cpack.log || { cat cpack.log; exit 1; }
	@ls -1 build/release/tarka_*.deb

vscode: build
	@editors/vscode/bundle.sh build/release
	@cd editors/vscode && npm ci --no-audit --no-fund && npm run check && npm run build && npm run package

# Pictures of what was seen are in build/vscode.
test-vscode: vscode
	@command -v chromium >/dev/null || scripts/setup.sh chromium
	@editors/vscode/test/setup.sh
	@mkdir -p build/vscode
	@node editors/vscode/test/run.mjs editors/vscode/tarka-cobol.vsix build/vscode

lint: setup
	@scripts/format.sh
	@cmake --preset clang >/dev/null
	@ninja -C build/clang tools/tarka/Explanations.inc >/dev/null
	@run-clang-tidy-19 -quiet -j $(JOBS) -p build/clang

format: setup
	@scripts/format.sh --fix

clean:
	rm -rf build
