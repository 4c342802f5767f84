# Two entry points: `make demo` and `make test`. Both install what is missing
# from Debian's packages first, then configure and build with CMake/Ninja.
PRESET ?= default
JOBS   ?= $(shell nproc)

.PHONY: all setup configure build demo test asan bench clean

all: build

setup:
	@sh scripts/setup

configure: setup
	@cmake --preset $(PRESET) >/dev/null

build: configure
	@cmake --build --preset $(PRESET) -j $(JOBS)

demo: build
	@./build/$(PRESET)/bin/sorvane-demo

test: build
	@ctest --preset $(PRESET) -j $(JOBS)

asan:
	@$(MAKE) --no-print-directory test PRESET=asan

bench: setup
	@cmake --preset release >/dev/null
	@cmake --build --preset release -j $(JOBS)
	@for b in build/release/bin/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	rm -rf build
