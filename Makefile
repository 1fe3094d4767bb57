# Top-level entry points. Each target installs what is missing first.
BUILD ?= build
JOBS ?= 2

.PHONY: all deps build test test-unit test-octave test-browser bench demo octave-package fuzz clean

all: build

deps:
	@scripts/install-deps

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: deps $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j$(JOBS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j$(JOBS)
	@if [ -x tests/octave/run ]; then tests/octave/run $(BUILD); fi
	@if [ -x tests/browser/run ]; then tests/browser/run $(BUILD); fi
	tests/install/run $(BUILD)
	tests/install/octave-package $(BUILD)

bench: build
	@for b in $(BUILD)/bench/*_bench; do \
	  echo "== $$(basename $$b)"; \
	  $$b --benchmark_repetitions=5 --benchmark_report_aggregates_only=true || exit 1; \
	done
	@if [ -f $(BUILD)/octave/GaugeKit.oct ]; then octave-cli -q bench/octave_log_cost.m $(BUILD); fi
	@if [ -d tests/browser/node_modules/playwright-core ]; then node bench/browser_memchart.js $(BUILD); fi
	@if [ -d tests/browser/node_modules/playwright-core ]; then node bench/browser_details.js $(BUILD); fi

demo: build
	$(BUILD)/tempogauge demo --out tempogauge-demo

# Octave's package of tempogauge: $(BUILD)/tempogauge-<version>.tar.gz, for pkg install.
octave-package: build
	@octave/package/make-package $(BUILD)

# The trace loader under libFuzzer with ASan and UBSan (clang), for FUZZ_TIME
# seconds from the seed corpus in fuzz/corpus; see README "Fuzzing".
FUZZ_BUILD ?= build-fuzz
FUZZ_TIME ?= 600
fuzz: deps
	cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_COMPILER=clang \
	  -DCMAKE_CXX_COMPILER=clang++ -DTG_SANITIZE=address,undefined,float-cast-overflow -DTG_FUZZ=ON
	cmake --build $(FUZZ_BUILD) --target trace_loader_fuzz -j$(JOBS)
	fuzz/run $(FUZZ_BUILD) $(FUZZ_TIME)

clean:
	rm -rf $(BUILD)
