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

# The demo: examples/plan.scr draws a ground floor, examples/demo.scr
# dimensions it with chains. Its user folder starts from examples/demo-settings.ini
# on every run, so the pictures do not depend on an earlier run.
DEMO_HOME = build/demo-home
SORVANE   = ./build/$(PRESET)/bin/sorvane
demo: build
	@rm -rf $(DEMO_HOME) && mkdir -p $(DEMO_HOME)/halvorne/sorvane
	@cp examples/demo-settings.ini $(DEMO_HOME)/halvorne/sorvane/Sorvane.ini
	@XDG_CONFIG_HOME=$(CURDIR)/$(DEMO_HOME) $(SORVANE) -s examples/plan.scr -o build/plan.dxf --quiet
	@XDG_CONFIG_HOME=$(CURDIR)/$(DEMO_HOME) $(SORVANE) build/plan.dxf -s examples/demo.scr -o build/demo.dxf \
		--export build/demo.svg --export build/demo.pdf --export build/demo.png
	@echo "demo: wrote build/plan.dxf, build/demo.dxf, build/demo.svg, build/demo.pdf and build/demo.png"

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
