# Everything a newcomer types: `make demo` and `make test`. Both install what is missing first (Debian packages).

TOOL_PACKAGES := cmake ninja-build g++ android-liblog-dev libmbedtls-dev libcli11-dev libfmt-dev nlohmann-json3-dev \
  libpng-dev libturbojpeg0-dev libcairo2-dev
PACKAGES := $(TOOL_PACKAGES) libgtest-dev pkg-config default-jdk-headless libjna-java bubblewrap mupdf-tools
ARM64_PACKAGES := g++-aarch64-linux-gnu libc6-dev-arm64-cross qemu-user libgtest-dev:arm64 android-liblog-dev:arm64 \
  libmbedtls-dev:arm64 libfmt-dev:arm64 libpng-dev:arm64 libturbojpeg0-dev:arm64 libcairo2-dev:arm64
NEED := ./cmake/install-packages.sh
JOBS := $(shell nproc)
# Said each time: a folder keeps what it was once configured with.
CONFIGURE := cmake --log-level=NOTICE -DORVEX_WERROR=$(if $(CI),ON,OFF)

MAKEFLAGS += --no-print-directory
.NOTPARALLEL: # two targets may build in one folder; each uses all cores
.PHONY: all build help setup demo test test-clang test-asan test-browser fuzz test-arm64 compare-arm64 lint valgrind \
  coverage install aar bench bench-compare compare-base digests study mutants limits clean

all: build
build: build-release ## all that there is, optimised, into build/release

help: ## tells the targets
	@awk -F ':.*## ' '/^[a-z].*:.*## / { printf "make %-20s %s\n", $$1, $$2 }' Makefile

setup: ## installs the packages for it, nothing else
	@$(NEED) $(PACKAGES)

build-%: setup ## any preset of CMakePresets.json, into build/%; TARGET: what of it, all if not given
	@$(CONFIGURE) --preset $*
	@cmake --build --preset $* -j $(JOBS) --target $(or $(TARGET),all)

demo: ## renders a pair with a known pose and measures it; leaves demo/report.html
	@$(MAKE) build-release TARGET=orvex-align PACKAGES="$(TOOL_PACKAGES)"
	@build/release/bin/orvex-align render --out demo --overwrite --master-rx 0.2 --master-ry -0.15 --master-rz 0.1 \
	  --rx 0.62 --ry -0.45 --rz 0.81 --blur 0.8 --noise 2 --seed 7
	@build/release/bin/orvex-align measure demo/master.pgm demo/slave.pgm \
	  --calibration demo/calibration.bin --truth demo/truth.json --report demo/report.html
	@echo; echo "Open this in a browser: $(CURDIR)/demo/report.html"

test: build-release ## all tests
	@ctest --preset release -j $(JOBS)

digests: ## writes the kept bits of all measurements and steps anew; their difference is to be read, line by line
	@$(MAKE) build-release TARGET=digest_tests
	@build/release/tests/digest_tests --write >build/release/digests.txt
	@mv build/release/digests.txt tests/data/digests.txt
	@git --no-pager diff --stat tests/data/digests.txt

study: ## the second reading of 2,000 clean and 1,000 dirty pairs against the truth, from pair FIRST (0) on
	@$(MAKE) build-release TARGET=reading_tests
	@build/release/tests/reading_tests --clean $(or $(FIRST),0) 2000
	@build/release/tests/reading_tests --dirt $(or $(FIRST),0) 1000

limits: ## how much noise, blur, roll, faintness and what sizes are borne; writes docs/limits.svg anew and prints its table
	@$(MAKE) build-release TARGET=orvex-align PACKAGES="$(TOOL_PACKAGES) python3"
	@python3 docs/limits.py build/release/bin/orvex-align docs/limits.svg

mutants: ## plants COUNT (100) faults in a copy of src/, drawn by SEED (1); lists what no test catches; fails below 95 %
	@$(NEED) $(PACKAGES) python3
	@python3 mutants/plant.py --build build/mutants --jobs $(JOBS) --seed $(or $(SEED),1) --count $(or $(COUNT),100)

test-clang: ## all tests, built with clang++
	@$(NEED) clang
	@$(MAKE) build-clang
	@ctest --preset clang -j $(JOBS)

test-asan: build-asan ## the tests under the address and undefined-behaviour sanitizers
	@ctest --preset asan -j $(JOBS)

test-browser: ## reports in a real browser; leaves screenshots in build/release/browser
	@$(NEED) chromium
	@$(MAKE) build-release TARGET=browser_tests
	@ctest --preset browser
	@echo "Look at the screenshots: $(CURDIR)/build/release/browser/*.png"

fuzz: ## looks for inputs that bring it down, SECONDS (20) for each target, from fuzz/corpus on; into build/fuzz
	@$(NEED) clang libclang-rt-dev
	@$(MAKE) build-fuzz TARGET=fuzz_targets
	@fuzz/run.sh build/fuzz $(or $(SECONDS),20)

test-arm64: ## the tests on the phone's processor, emulated
	@$(NEED) $(ARM64_PACKAGES)
	@$(MAKE) build-arm64
	@ctest --preset arm64 -j $(JOBS)

compare-arm64: ## every bit of the same measurements on x86-64, with both compilers, and on arm64
	@$(NEED) clang $(ARM64_PACKAGES)
	@$(MAKE) build-release build-clang build-arm64 TARGET="measured_bits compare_bits"
	@./compare/compare-arm64.sh build $(JOBS)

lint: ## format, shell scripts, cppcheck and clang-tidy
	@$(NEED) $(PACKAGES) libbenchmark-dev clang libclang-rt-dev clang-format clang-tidy cppcheck git shellcheck
	@$(CONFIGURE) --preset lint
	@./cmake/lint.sh $(JOBS)

valgrind: ## memcheck over the tests' short form: without the long ones, and without the tool as a program
	@$(NEED) valgrind
	@$(MAKE) build-valgrind TARGET=memcheck_tests
	@ctest --preset valgrind -j $(JOBS)

coverage: ## lines and branches of the library that its tests run; fails below 97 and 90 %
	@$(NEED) gcovr
	@$(MAKE) build-coverage TARGET=coverage_tests
	@find build/coverage -name '*.gcda' -delete
	@ctest --preset coverage -j $(JOBS)
	@for metric in "" --branches; do gcovr --filter src/ --exclude-throw-branches --exclude-unreachable-branches \
	  --fail-under-line 97 --fail-under-branch 90 $$metric build/coverage || exit 1; done

install: build-release ## library, headers and tool, under PREFIX, /usr/local if not given
	@cmake --install build/release --prefix $(or $(PREFIX),/usr/local)

aar: ## packs what `make build-android-arm64` and `make build-android-x86_64` have built, into build/
	@cmake -DBUILD=$(CURDIR)/build -P cmake/aar/pack.cmake

bench: ## times the measurement in copies of its planes; leaves build/bench/bench.json
	@$(NEED) libbenchmark-dev
	@$(MAKE) build-bench TARGET=measure_bench
	@build/bench/bench/measure_bench --benchmark_out=build/bench/bench.json --benchmark_out_format=json

bench-compare: ## the same for the library of commit BASE and this one, in ROUNDS (5) turns; the ratio of each row
	@$(NEED) libbenchmark-dev git python3
	@cmake/build-base.sh build "$(BASE)" $(JOBS)
	@$(MAKE) build-bench TARGET=measure_bench
	@bench/compare.sh build $(or $(ROUNDS),5)

compare-base: ## every bit of the same PAIRS (2,000) rendered and all drawn pairs by the library of commit BASE and this one
	@$(NEED) $(PACKAGES) git
	@cmake/build-base.sh build "$(BASE)" $(JOBS)
	@$(MAKE) build-release TARGET="measured_bits compare_bits"
	@compare/compare-base.sh build $(or $(PAIRS),2000) $(JOBS)

clean: ## removes build/ and demo/
	@rm -rf build demo
