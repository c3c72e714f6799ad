#!/bin/sh
# compare-arm64.sh BUILD JOBS: measures the same pairs with the builds BUILD/release (g++), BUILD/clang (clang++)
# and BUILD/arm64 (emulated) and compares every bit of the results.
set -eu
build=$1 jobs=$2
results=$build/compare
mkdir -p "$results"

# measure NAME [EMULATOR]
measure() {
    name=$1 emulator=${2-} running=''
    for part in $(seq 0 $((jobs - 1))); do
        # shellcheck disable=SC2086 # no word if there is no emulator
        $emulator "$build/$name/tests/measured_bits" "$part" "$jobs" >"$results/$name.$part" &
        running="$running $!"
    done
    for process in $running; do
        wait "$process"
    done
    for part in $(seq 0 $((jobs - 1))); do
        cat "$results/$name.$part"
        rm "$results/$name.$part"
    done >"$results/$name.bits"
}

echo "Measuring on x86-64 with g++ and clang++, then emulated on arm64 (minutes)"
measure release
measure clang
measure arm64 qemu-aarch64

failed=0
for other in clang arm64; do
    "$build/release/tests/compare_bits" "$results/release.bits" "$results/$other.bits" || failed=1
done
exit $failed
