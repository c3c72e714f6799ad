#!/usr/bin/env bash
# run.sh BUILD SECONDS [TARGET...]: runs the fuzz targets of that build folder, all or those named, for that long
# each and as many at once as there are cores; ends with one table and fails if anything was found. New inputs go
# into BUILD, never into the kept corpus.
set -euo pipefail

build=$(realpath "$1")
seconds=$2
here=$(dirname "$(realpath "$0")")
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "SECONDS=$seconds: give a whole number of seconds from 1" >&2
    exit 64
fi
mkdir -p "$build"/{corpus,findings,log}

# The targets with a dictionary read files; the others draw numbers and use up few bytes. Long inputs are tried
# from the beginning, because a measurement is too slow to grow them byte by byte. -close_fd_mask=1 silences the
# library's lines on standard output.
run_target() {
    local target=$1 options=(-max_len=512)
    [ ! -f "$here/$target.dict" ] || options=("-dict=$here/$target.dict" -max_len=6000)
    mkdir -p "$build/corpus/$target"
    "$build/fuzz/$target" "${options[@]}" -len_control=0 -max_total_time="$seconds" -timeout=20 \
        -rss_limit_mb=2048 -close_fd_mask=1 -print_final_stats=1 \
        -artifact_prefix="$build/findings/$target-" "$build/corpus/$target" "$here/corpus/$target" \
        >"$build/log/$target" 2>&1 || echo "ended with exit code $?" >>"$build/log/$target"
}

# The last number behind a word in the target's log, - for none.
last() {
    sed -n "s/.*$2 *\([0-9][0-9]*\).*/\1/p" "$build/log/$1" | tail -n 1 | grep . || echo -
}

# All edges of the program and the libraries that are built with it.
edges() {
    sed -n 's/.*(\([0-9]*\) inline 8-bit counters).*/\1/p' "$build/log/$1" | awk '{ n += $1 } END { print n }'
}

targets=${*:3}
[ -n "$targets" ] || targets=$(basename -s .cpp "$here"/*.cpp | grep -v '^painting$')
for target in $targets; do
    while [ "$(jobs -pr | wc -l)" -ge "$(nproc)" ]; do
        wait -n
    done
    run_target "$target" &
done
wait

failed=0
printf '\n%-12s %12s %12s %16s %8s\n' target executions per\ second edges\ covered result
for target in $targets; do
    result=ok
    if ! grep -q '^Done [0-9]* runs' "$build/log/$target"; then
        result=FINDING
        failed=1
    fi
    printf '%-12s %12s %12s %16s %8s\n' "$target" "$(last "$target" number_of_executed_units:)" \
        "$(last "$target" average_exec_per_sec:)" \
        "$(last "$target" cov:) of $(edges "$target")" "$result"
done
for target in $targets; do
    grep -q '^Done [0-9]* runs' "$build/log/$target" && continue
    printf '\n%s, from %s:\n' "$target" "$build/log/$target"
    grep -m 3 -E 'ERROR|runtime error|Broken promise|SUMMARY' "$build/log/$target" || tail -n 5 "$build/log/$target"
    sed -n "s|.*Test unit written to \(.*\)|  Repeat it: $build/fuzz/$target \1|p" "$build/log/$target"
done
exit "$failed"
