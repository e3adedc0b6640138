# The two set-up commands: `make run` and `make test`. Both install what is missing first.
PRESET ?= default
BUILD  := build
JOBS   ?= $(shell nproc 2>/dev/null || echo 2)

.PHONY: all deps configure build run test bench format clean

all: build

deps:
	@scripts/install-deps

$(BUILD)/build.ninja $(BUILD)/Makefile:
	@cmake --preset $(PRESET) >/dev/null

configure: deps
	@cmake --preset $(PRESET)

build: deps $(BUILD)/build.ninja
	@cmake --build $(BUILD) -j $(JOBS)

run: build
	@scripts/run-demo

test: build
	@cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	@cmake --build $(BUILD) -j $(JOBS) --target benchmarks
	@scripts/run-benchmarks $(BUILD)

format:
	@find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	@rm -rf $(BUILD)
