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
	@mkdir -p build/demo-home
	@XDG_CONFIG_HOME=$(CURDIR)/build/demo-home ./build/$(PRESET)/bin/sorvane -s examples/demo.scr -o build/demo.dxf \
		--export build/demo.svg --export build/demo.pdf --export build/demo.png
	@echo "demo: wrote build/demo.dxf, build/demo.svg, build/demo.pdf and build/demo.png"

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
