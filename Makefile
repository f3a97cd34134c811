# The front door. Each target is a CMake preset or two; `make help` lists them.

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)

.DEFAULT_GOAL := build
# The builds below use every processor by themselves.
.NOTPARALLEL:
.PHONY: help setup build sanitize demo test bench docs install lint format clean

help:
	@echo "make build     build the release (build/release)"
	@echo "make demo      check an example program and print its control-flow graph"
	@echo "make test      build with GCC, and with Clang under the sanitizers; run every test"
	@echo "make bench     run the measurements"
	@echo "make docs      write docs/diagnostics.md again, from explanations/"
	@echo "make install   install below PREFIX (default /usr/local)"
	@echo "make lint      clang-format and clang-tidy over all sources"
	@echo "make format    bring all sources into the project's format"
	@echo "make clean     remove the build directories"
	@echo "make setup     install the missing packages of packages.txt (the others do it first)"

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

# One ctest run over both builds; the sanitizer build's tests carry the prefix "sanitize.".
test: build sanitize
	@mkdir -p build/all
	@echo 'subdirs("$(CURDIR)/build/release" "$(CURDIR)/build/sanitize")' > build/all/CTestTestfile.cmake
	@ctest --test-dir build/all -j $(JOBS) --output-on-failure --no-tests=error

bench: build
	@bench/run.sh build/release

docs: build
	@build/release/tools/tarka/tarka explain --format=markdown > docs/diagnostics.md

install: build
	@cmake --install build/release --prefix $(PREFIX)

lint: setup
	@scripts/format.sh
	@cmake --preset clang >/dev/null
	@run-clang-tidy-19 -quiet -j $(JOBS) -p build/clang

format: setup
	@scripts/format.sh --fix

clean:
	rm -rf build
