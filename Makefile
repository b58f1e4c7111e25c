# The ways into this project. Every target sets up what it needs first.
.PHONY: setup build demo test lint sanitize bench faults fuzz clean

CATALOGUES := build/catalogues
SECTIONDB := build/bin/sectiondb
# The demonstration's catalogues are protected, as those of an installation are.
demo bench: export SECTIONDB_PASSWORD := demonstration
demo: export SECTIONDB_FOLDER := $(CATALOGUES)

setup:
	@scripts/setup

build: setup
	@scripts/build release

demo: build
	@$(SECTIONDB) build data --output $(CATALOGUES)
	@echo && $(SECTIONDB) list
	@echo && $(SECTIONDB) list American
	@echo && $(SECTIONDB) show American W12X26
	@echo && $(SECTIONDB) show American W12X26 --length mm --force kN
	@echo && $(SECTIONDB) show German "HE 200 A"
	@echo && $(SECTIONDB) show Japanese H-300x150x6.5x9
	@echo && $(SECTIONDB) show Indian "MB 300" --length in

test: build
	@ctest --preset release

lint: setup
	@scripts/lint

sanitize: setup
	@scripts/build sanitize
	@ctest --preset sanitize
	@scripts/build threads
	@ctest --preset threads

bench: build
	@build/bin/sectiondb_bench

# Failures injected one by one, kills, damage, processes in each other's way: twenty minutes at most.
faults: build
	@build/bin/sectiondb_faults

FUZZ_SECONDS ?= 600
fuzz:
	@scripts/setup fuzz
	@scripts/build fuzz
	@scripts/fuzz $(FUZZ_SECONDS)

clean:
	@rm -rf build build-sanitize build-threads build-fuzz
