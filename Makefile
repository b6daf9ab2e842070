# Tolmen for Linux. `make demo` shows a run, `make test` builds and runs every test.
BUILD    ?= build
JOBS     ?= 2
PACKAGES := cmake make g++ pkg-config libsqlite3-dev qt6-base-dev libgl-dev libfmt-dev \
            nlohmann-json3-dev libcli11-dev libqt6svg6 libgtest-dev libgmock-dev libbenchmark-dev clang-format xvfb xauth \
            librsvg2-bin dpkg-dev file groff-base desktop-file-utils appstream
# What `make fuzz` needs on top: clang and libFuzzer's runtime.
FUZZ_PACKAGES := clang-14 libclang-rt-14-dev
FUZZ_TIME     ?= 600
# The targets write their scratch files there: a memory file system, so that the fsync of every
# saved template or committed record file costs nothing.
FUZZ_TMPDIR   ?= /dev/shm
FUZZ_TARGETS  := template autorun fieldcodecs documentstrings butil settings maxsim recordfile
PREFIX   ?= /usr/local
SUDO     := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: all deps fuzz-deps install-missing configure build test demo screenshots install package bench sanitize \
        fuzz fuzz-build fuzz-run format clean

all: build

# Installs the Debian packages that are missing; does nothing when all are there.
deps:
	@$(MAKE) --no-print-directory install-missing WANTED="$(PACKAGES)"

fuzz-deps:
	@$(MAKE) --no-print-directory install-missing WANTED="$(PACKAGES) $(FUZZ_PACKAGES)"

install-missing:
	@missing=""; for p in $(WANTED); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update -qq && \
	  DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq --no-install-recommends $$missing; \
	fi

$(BUILD)/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C ctest --output-on-failure -j $(JOBS)

demo: build
	@bash tools/demo/demo.sh $(BUILD)

# Installs under PREFIX (default /usr/local); DESTDIR, when given, is put before it.
install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix "$(PREFIX)"

# The Debian package tolmen_<version>_<arch>.deb, in the build folder.
package: build
	cd $(BUILD) && cpack -G DEB
	@ls $(BUILD)/tolmen_*.deb

# The demo played in the Qt window offscreen: a PNG of every page, every dialog and the end of the
# run under $(BUILD)/screenshots/.
screenshots: build
	rm -rf $(BUILD)/screenshots
	QT_QPA_PLATFORM=offscreen TOLMEN_SCREENSHOTS=$(abspath $(BUILD))/screenshots \
	  bash tools/demo/play.sh $(BUILD) qt $(BUILD)/screenshots-run
	@ls $(BUILD)/screenshots

bench: deps
	cmake -S . -B $(BUILD)-bench -DCMAKE_BUILD_TYPE=Release -DTOLMEN_BENCH=ON -DTOLMEN_GUI=OFF \
	  -DTOLMEN_TESTS=OFF -DTOLMEN_APP=OFF -DTOLMEN_TOOLS=maxsim
	cmake --build $(BUILD)-bench -j $(JOBS)
	@for b in $(BUILD)-bench/bin/bench_*; do [ -x "$$b" ] && "$$b"; done; true

# Every test under AddressSanitizer and UndefinedBehaviorSanitizer, in a build folder of its own;
# any report fails the test that made it.
sanitize: deps
	cmake -S . -B $(BUILD)-sanitize -DCMAKE_BUILD_TYPE=Debug -DTOLMEN_SANITIZE=ON
	cmake --build $(BUILD)-sanitize -j $(JOBS)
	cd $(BUILD)-sanitize && QT_QPA_PLATFORM=offscreen TZ=UTC LC_ALL=C \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1 \
	  ctest --output-on-failure -j $(JOBS)

# Each fuzz target in turn for FUZZ_TIME seconds at nice 19, built with clang and libFuzzer in a
# build folder of its own. The corpus grows in $(BUILD)-fuzz/corpus/<target> from the seeds of
# tests/fuzz/<target>; a crash leaves its input in $(BUILD)-fuzz/findings/<target> and fails.
fuzz: fuzz-build
	@$(MAKE) --no-print-directory fuzz-run

fuzz-build: fuzz-deps
	CXX=clang++-14 cmake -S . -B $(BUILD)-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTOLMEN_FUZZ=ON \
	  -DTOLMEN_GUI=OFF -DTOLMEN_TESTS=OFF -DTOLMEN_APP=OFF -DTOLMEN_TOOLS=
	cmake --build $(BUILD)-fuzz -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))

# Runs the built targets only (FUZZ_TARGETS may name some of them).
fuzz-run:
	@for t in $(FUZZ_TARGETS); do \
	  mkdir -p $(BUILD)-fuzz/corpus/$$t $(BUILD)-fuzz/findings/$$t $(BUILD)-fuzz/work/$$t && \
	  echo "== fuzz_$$t for $(FUZZ_TIME) s" && \
	  ( cd $(BUILD)-fuzz/work/$$t && TMPDIR=$(FUZZ_TMPDIR) TZ=UTC LC_ALL=C nice -n 19 ../../bin/fuzz_$$t \
	      -max_total_time=$(FUZZ_TIME) -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
	      -artifact_prefix=../../findings/$$t/ ../../corpus/$$t $(CURDIR)/tests/fuzz/$$t \
	      > ../../fuzz_$$t.log 2>&1 ); status=$$?; \
	  grep -E "^#[0-9]+" $(BUILD)-fuzz/fuzz_$$t.log | tail -1; \
	  grep -E "^stat::number_of_executed_units" $(BUILD)-fuzz/fuzz_$$t.log; \
	  echo "corpus: $$(ls $(BUILD)-fuzz/corpus/$$t | wc -l) files"; \
	  if [ $$status -ne 0 ]; then tail -40 $(BUILD)-fuzz/fuzz_$$t.log; exit 1; fi; \
	done

format:
	find src tests tools bench fuzz -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(BUILD)-bench $(BUILD)-sanitize $(BUILD)-fuzz
