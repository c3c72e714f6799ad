#!/bin/sh
# compare.sh BUILD ROUNDS: times this commit's library and that in BUILD/base/lib in turns and shows, for each row of
# the benchmark, the median of both and their ratio.
set -eu
build=$1 rounds=$2
results=$build/bench/compare
rm -rf "$results"
mkdir -p "$results"

# run NAME ROUND: with the library that LD_LIBRARY_PATH names
run() {
    "$build/bench/bench/measure_bench" --benchmark_out="$results/$1.$2.json" --benchmark_out_format=json \
        2>"$results/log" || {
        cat "$results/log" >&2
        exit 1
    }
}

for round in $(seq "$rounds"); do
    echo "round $round of $rounds" >&2
    LD_LIBRARY_PATH=$build/base/lib run base "$round"
    run own "$round"
done
python3 "$(dirname "$0")/ratios.py" "$results" >"$results/ratios.txt"
cat "$results/ratios.txt"
