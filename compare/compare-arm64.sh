#!/bin/sh
# compare-arm64.sh BUILD JOBS: measures the same pairs with the builds BUILD/release (g++), BUILD/clang (clang++)
# and BUILD/arm64 (emulated) and compares every bit of the results.
set -eu
build=$1 jobs=$2
results=$build/compare
apart=$(dirname "$0")/../tests/support/apart.sh # no record file of the machine's is replaced
mkdir -p "$results"
parts=$(mktemp -d "$results/parts.XXXXXX")
running=''

# shellcheck disable=SC2086,SC2317 # one word for each process; called by the trap
clean() {
    [ -z "$running" ] || kill $running 2>/dev/null || true
    wait
    rm -rf "$parts"
}
trap clean EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# run NAME PART COMMAND...: leaves PART.bits, and PART.ended with the exit code
run() {
    name=$1 part=$2
    shift 2
    "$@" "$part" "$jobs" >"$parts/$name.$part.bits" &
    process=$!
    trap 'kill "$process"; exit 143' TERM
    code=0
    wait "$process" || code=$?
    echo "$code" >"$parts/$name.$part.ended"
}

# progress NAME END
progress() {
    printf '%s%s: %s pairs%s' "$start" "$1" "$(cat "$parts/$1".*.bits | grep -c ' count [rd]')" "$2" >&2
}

# measure NAME [EMULATOR]
measure() {
    name=$1 emulator=${2-}
    for part in $(seq 0 $((jobs - 1))); do
        : >"$parts/$name.$part.bits"
        (
            trap - EXIT INT
            # shellcheck disable=SC2086 # no word if there is no emulator
            run "$name" "$part" "$apart" "$build" $emulator "$build/$name/compare/measured_bits"
        ) &
        running="$running $!"
    done
    start=''
    [ ! -t 2 ] || start=$(printf '\r')
    while :; do
        ended=0
        for file in "$parts/$name".*.ended; do
            [ -s "$file" ] || continue
            code=$(cat "$file") ended=$((ended + 1))
            if [ "$code" != 0 ]; then
                part=${file%.ended}
                echo "$build/$name/compare/measured_bits: part ${part##*.} of $jobs ended with $code;" \
                    "run it with \"${part##*.} $jobs\" to see why. Nothing was compared." >&2
                exit 1
            fi
        done
        [ "$ended" -lt "$jobs" ] || break
        [ ! -t 2 ] || progress "$name" ''
        sleep 1
    done
    wait
    running=''
    progress "$name" '
'
    cat "$parts/$name".*.bits >"$parts/$name.all"
    mv "$parts/$name.all" "$results/$name.bits"
}

echo "Measuring on x86-64 with g++ and clang++, then emulated on arm64 (minutes)"
measure release
measure clang
measure arm64 qemu-aarch64

failed=0
for other in clang arm64; do
    "$build/release/compare/compare_bits" "$results/release.bits" "$results/$other.bits" || failed=1
done
exit $failed
