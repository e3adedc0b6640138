# The two set-up commands: `make run` and `make test`. Both install what is missing first.
PRESET ?= default
BUILD  := build
JOBS   ?= $(shell nproc 2>/dev/null || echo 2)
# A compiler cache makes a second build of the same sources (another clone, a clean build)
# take seconds; paths below the checkout's parent folder are hashed relative to it.
CCACHE := $(shell command -v ccache 2>/dev/null)
export CCACHE_BASEDIR ?= $(abspath $(CURDIR)/..)

.PHONY: all deps configure build run test bench fuzz format clean

all: build

deps:
	@scripts/install-deps

$(BUILD)/build.ninja $(BUILD)/Makefile:
	@cmake --preset $(PRESET) $(if $(CCACHE),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache) >/dev/null

configure: deps
	@cmake --preset $(PRESET) $(if $(CCACHE),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

build: deps $(BUILD)/build.ninja
	@cmake --build $(BUILD) -j $(JOBS)

run: build
	@scripts/run-demo

test: build
	@cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	@cmake --build $(BUILD) -j $(JOBS) --target benchmarks
	@scripts/run-benchmarks $(BUILD)

# Every parser's fuzz target, built with clang and run FUZZ_SECONDS each (build-fuzz/).
FUZZ_SECONDS ?= 20
fuzz:
	@scripts/run-fuzz $(FUZZ_SECONDS)

format:
	@find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	@rm -rf $(BUILD)
