# Everything starts here on a fresh Debian 12 machine:
#   make demo   install what is missing, build, repair a damaged clip, print the result
#   make test   install what is missing, build with sanitizers, run every test
#   make run    start the window
#   make bench  throughput of every path against cat and cat into a new file
JOBS ?= $(shell nproc)
RELEASE := build
TESTBUILD := build-test

.PHONY: deps build demo test run bench clean

deps:
	@bash scripts/install-deps.sh

build: deps
	cmake -S . -B $(RELEASE) -DCMAKE_BUILD_TYPE=Release -DVM_BUILD_TESTS=OFF >/dev/null
	cmake --build $(RELEASE) -j $(JOBS)

# The demo shows the repair alone: what apt, cmake and the compiler say goes to a log.
DEMOLOG := $(CURDIR)/$(RELEASE)/demo.log
demo:
	@mkdir -p $(RELEASE)
	@echo "Installing what is missing and building; the output goes to $(DEMOLOG)"
	@{ $(MAKE) --no-print-directory deps && \
	  cmake -S . -B $(RELEASE) -DCMAKE_BUILD_TYPE=Release -DVM_BUILD_TESTS=OFF && \
	  cmake --build $(RELEASE) -j $(JOBS) --target videomend-cli; } >$(DEMOLOG) 2>&1 \
	  || { tail -n 20 $(DEMOLOG); echo "The build failed; all of its output is in $(DEMOLOG)"; exit 1; }
	@bash scripts/demo.sh "$(CURDIR)/$(RELEASE)/cli/videomend-cli" "$(CURDIR)/$(RELEASE)/demo" "$(DEMOLOG)"

test: deps
	cmake -S . -B $(TESTBUILD) -DCMAKE_BUILD_TYPE=Debug -DVM_SANITIZE=ON -DVM_BUILD_TESTS=ON >/dev/null
	cmake --build $(TESTBUILD) -j $(JOBS)
	cd $(TESTBUILD) && ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
		QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

run: build
	@if [ -x $(RELEASE)/shell/videomend ]; then $(RELEASE)/shell/videomend; \
	else echo "The window is not built yet; use $(RELEASE)/cli/videomend-cli (see README)."; fi

bench: build
	@bash scripts/bench.sh "$(CURDIR)/$(RELEASE)" "$(CURDIR)/$(RELEASE)/bench-data"

clean:
	rm -rf $(RELEASE) $(TESTBUILD)
