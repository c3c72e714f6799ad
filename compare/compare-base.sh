#!/bin/sh
# compare-base.sh BUILD PAIRS JOBS: measures the same pairs, PAIRS of them rendered, with the library of BUILD/release
# and with that in BUILD/base/lib and compares every bit of what both leave behind, planes included.
set -eu
build=$1 pairs=$2 jobs=$3
results=$build/compare
program=$build/release/compare/measured_bits
apart=$(dirname "$0")/../tests/support/apart.sh # no record file of the machine's is replaced
mkdir -p "$results"

# measure NAME [VARIABLE=VALUE]: leaves NAME.bits
measure() {
    name=$1 variable=${2-}
    echo "Measuring with the library of $name" >&2
    rm -f "$results/$name".part*
    # shellcheck disable=SC2016 # the inner shell's own
    seq 0 $((jobs - 1)) | xargs -P "$jobs" -I '{}' sh -c '"$@" >"$0"' "$results/$name.part{}" \
        "$apart" "$build" env ${variable:+"$variable"} "$program" '{}' "$jobs" "$pairs"
    cat "$results/$name".part* >"$results/$name.bits"
    rm "$results/$name".part*
}

measure release
measure base "LD_LIBRARY_PATH=$build/base/lib"
"$build/release/compare/compare_bits" "$results/base.bits" "$results/release.bits"
