# The ways into this project. Every target sets up what it needs first.
.PHONY: setup build demo install uninstall package test validate lint lint-all sanitize matrix docs \
  bench performance faults fuzz clean

SECTIONDB := build-demo/bin/sectiondb
demo: export SECTIONDB_FOLDER := build-demo/catalogues
bench: export SECTIONDB_PASSWORD := demonstration

setup:
	@scripts/setup test

build: setup
	@scripts/build release

# The program and its catalogues alone.
demo:
	@scripts/setup build
	@scripts/build demo sectiondb catalogues
	@echo && $(SECTIONDB) list
	@echo && $(SECTIONDB) list American
	@echo && $(SECTIONDB) show American W12X26
	@echo && $(SECTIONDB) show American W12X26 --length mm --force kN
	@echo && $(SECTIONDB) show German "HE 200 A"
	@echo && $(SECTIONDB) show Japanese H-300x150x6.5x9
	@echo && $(SECTIONDB) show Indian "MB 300"

PREFIX ?= /usr/local
install:
	@scripts/setup build
	@scripts/build install
	@cmake --install build-install --prefix $(PREFIX) --strip

uninstall:
	@cmake --build build-install --target uninstall

package:
	@scripts/setup build package
	@scripts/package

test: build
	@ctest --preset release

# Exported profiles and spreadsheets, read by programs of another house, and figures beside finite
# elements, whose table goes into docs/validation.md.
validate: build
	@scripts/setup validate
	@tests/oracle/oracle.py build/bin/sectiondb data tests/oracle/shapes \
	  --write data/_finite_elements.csv
	@build/bin/sectiondb sources validation >docs/validation.md
	@npm install --silent --no-save --prefix build/validate web-ifc@0.0.78
	@NODE_PATH=$(CURDIR)/build/validate/node_modules ctest --preset release -R 'Ifc|Spreadsheet'

lint:
	@scripts/setup test lint
	@scripts/lint

lint-all:
	@scripts/setup test lint
	@scripts/lint all

sanitize: setup
	@scripts/build threads
	@ctest --preset threads
	@scripts/build sanitize
	@ctest --preset sanitize

# Compilers, build types, shared and static; with SQLCIPHER_SOURCE=FOLDER the engine within, too.
matrix: export SQLCIPHER_SOURCE := $(SQLCIPHER_SOURCE)
matrix:
	@scripts/setup test fuzz
	@scripts/matrix

docs:
	@scripts/setup docs
	@doxygen docs/Doxyfile

# Ends with a table for documents; the plot of growing costs stands beside it.
bench: build
	@build/bin/sectiondb_bench --report build/bench; status=$$?; \
	  echo && cat build/bench/measures.md; exit $$status

# The same, written to docs/performance.md.
performance:
	-@$(MAKE) bench
	@scripts/performance build/bench

# Failures injected one by one, kills, damage, processes in each other's way: twenty minutes at most.
faults: build
	@build/bin/sectiondb_faults

FUZZ_SECONDS ?= 600
fuzz:
	@scripts/setup fuzz
	@scripts/build fuzz
	@scripts/fuzz $(FUZZ_SECONDS)

clean:
	@rm -rf build build-*
