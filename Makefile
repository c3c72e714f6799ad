# Everything a newcomer types: `make demo` and `make test`. Both install what is missing first (Debian packages).

PACKAGES := cmake ninja-build g++ libgtest-dev android-liblog-dev libmbedtls-dev libcli11-dev pkg-config \
  nlohmann-json3-dev libpng-dev libturbojpeg0-dev default-jdk-headless libjna-java
ARM64_PACKAGES := g++-aarch64-linux-gnu libc6-dev-arm64-cross qemu-user libgtest-dev:arm64 android-liblog-dev:arm64 \
  libmbedtls-dev:arm64 libpng-dev:arm64 libturbojpeg0-dev:arm64
JOBS := $(shell nproc)
LIBRARY_TESTS := inside_tests digest_tests measurement_tests record_file_tests

.PHONY: all demo test test-clang test-asan test-browser test-arm64 compare-arm64 fuzz lint valgrind coverage install aar bench digests mutants setup clean

all: build-release

setup:
	@./cmake/install-packages.sh $(PACKAGES)

build-%: setup
	@cmake --preset $* --log-level=NOTICE $(CONFIGURE)
	@cmake --build --preset $* -j $(JOBS) --target $(or $(TARGET),all)

demo: TARGET = orvex-align
demo: build-release
	@build/release/tools/orvex-align render --out demo --overwrite --master-rx 0.2 --master-ry -0.15 --master-rz 0.1 \
	  --rx 0.62 --ry -0.45 --rz 0.81 --blur 0.8 --noise 2 --seed 7
	@build/release/tools/orvex-align measure demo/master.pgm demo/slave.pgm \
	  --calibration demo/calibration.bin --truth demo/truth.json --report demo/report.html
	@echo; echo "Open this in a browser: $(CURDIR)/demo/report.html"

test: build-release
	@ctest --preset release -j $(JOBS)

# Writes the kept bits of all measurements and steps anew. Its difference to the kept ones is to be read, line by line.
digests: TARGET = digest_tests
digests: build-release
	@build/release/tests/digest_tests --write >build/release/digests.txt
	@mv build/release/digests.txt tests/data/digests.txt
	@git --no-pager diff --stat tests/data/digests.txt

# Plants COUNT faults in a copy of src/, drawn by SEED, and lists those that no test catches; fails below 95 %.
mutants:
	@./cmake/install-packages.sh $(PACKAGES) python3
	@python3 mutants/plant.py --build build/mutants --jobs $(JOBS) --seed $(or $(SEED),1) --count $(or $(COUNT),100)

test-clang:
	@./cmake/install-packages.sh clang
	@$(MAKE) --no-print-directory build-clang
	@ctest --preset clang -j $(JOBS)

test-asan: build-asan
	@ctest --preset asan -j $(JOBS)

# Loads reports into a real browser; leaves screenshots in build/browser.
test-browser: CONFIGURE = -DORVEX_BROWSER_TESTS=ON
test-browser: build-release
	@./cmake/install-packages.sh chromium
	@ctest --preset release -L browser
	@echo "Look at the screenshots: $(CURDIR)/build/browser/*.png"

# SECONDS: how long each target runs, 20 if not given. Starts from fuzz/corpus; what is new goes to build/fuzz.
fuzz:
	@./cmake/install-packages.sh clang libclang-rt-dev
	@$(MAKE) --no-print-directory build-fuzz TARGET=fuzz_targets
	@fuzz/run.sh build/fuzz $(or $(SECONDS),20)

# The phone's processor, emulated.
test-arm64:
	@./cmake/install-packages.sh $(ARM64_PACKAGES)
	@$(MAKE) --no-print-directory build-arm64
	@ctest --preset arm64 -j $(JOBS)

# Every bit of the same measurements on x86-64, with both compilers, and on arm64.
compare-arm64:
	@./cmake/install-packages.sh clang $(ARM64_PACKAGES)
	@$(MAKE) --no-print-directory build-release build-clang build-arm64 TARGET="measured_bits compare_bits"
	@./compare/compare-arm64.sh build $(JOBS)

# Format, shell scripts, cppcheck and clang-tidy.
lint:
	@./cmake/install-packages.sh $(PACKAGES) libbenchmark-dev clang libclang-rt-dev clang-format clang-tidy cppcheck git \
	  shellcheck
	@cmake --preset lint --log-level=NOTICE
	@./cmake/lint.sh $(JOBS)

# Memcheck over the tests' short form: without the long ones, and without the tool as a program.
valgrind:
	@./cmake/install-packages.sh valgrind
	@$(MAKE) --no-print-directory build-valgrind TARGET="$(LIBRARY_TESTS) chart_tests trust_tests"
	@ctest --preset valgrind -j $(JOBS)

# Lines and branches of the library that its tests run; fails below 97 and 90 %.
coverage:
	@./cmake/install-packages.sh gcovr
	@$(MAKE) --no-print-directory build-coverage TARGET="$(LIBRARY_TESTS) memory_fault_tests"
	@find build/coverage -name '*.gcda' -delete
	@ctest --preset coverage -j $(JOBS)
	@for metric in "" --branches; do gcovr --filter src/ --exclude-throw-branches --exclude-unreachable-branches \
	  --fail-under-line 97 --fail-under-branch 90 $$metric build/coverage || exit 1; done

# PREFIX: where to, /usr/local if not given.
install: build-release
	@cmake --install build/release --prefix $(or $(PREFIX),/usr/local)

# What `make build-android-arm64` and `make build-android-x86_64` have built, into build/.
aar:
	@cmake -DBUILD=$(CURDIR)/build -P cmake/aar/pack.cmake

bench:
	@./cmake/install-packages.sh libbenchmark-dev
	@$(MAKE) --no-print-directory build-bench TARGET=measure_bench
	@build/bench/bench/measure_bench

clean:
	@rm -rf build demo
