# Top-level entry points. Each target installs what is missing first.
BUILD ?= build
JOBS ?= 2

.PHONY: all deps build test test-unit test-octave test-browser bench demo octave-package clean

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

clean:
	rm -rf $(BUILD)
