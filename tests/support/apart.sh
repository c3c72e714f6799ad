#!/usr/bin/env bash
# apart.sh BUILD [--record-place] PROGRAM [ARGUMENT...]: runs a program of the tests apart from the rest of the
# machine, in a mount namespace in which all but the folder BUILD and the devices is read-only and /tmp its own. There
# is no /sdcard in it, or, for those that look at the record file, an empty one beside a small and a read-only disk.
# Where namespaces are forbidden it uses the machine's /sdcard in turns: those that look at the record file run alone.
set -euo pipefail

source=$(realpath "$(dirname "$0")/../..")
build=$(realpath "$1")
shift
places=()
turn=--shared
if [ "$1" = --record-place ]; then
    places=(--tmpfs /sdcard --size 4096 --tmpfs /sdcard-small --tmpfs /sdcard-read-only --remount-ro /sdcard-read-only)
    turn=--exclusive
    shift
fi

# The root folder is made anew from the machine's entries: nobody but root could add a folder to the real one.
mounts=(--die-with-parent --dev-bind /dev /dev)
for entry in /*; do
    if [ -L "$entry" ]; then
        mounts+=(--symlink "$(readlink "$entry")" "$entry")
    elif [ "$entry" != /dev ] && [ "$entry" != /sdcard ]; then
        mounts+=(--ro-bind "$entry" "$entry")
    fi
done
# The sources and BUILD may lie in the machine's /tmp.
mounts+=(--tmpfs /tmp --setenv TMPDIR /tmp --ro-bind "$source" "$source" --bind "$build" "$build" "${places[@]}"
    --remount-ro /)

# Root may do without a user namespace, and keeps its rights over other users' files that way.
for user in "" --unshare-user; do
    if bwrap ${user:+"$user"} "${mounts[@]}" true 2>/dev/null; then
        exec bwrap ${user:+"$user"} "${mounts[@]}" "$@"
    fi
done

# To list the tests touches nothing.
if [[ " $* " != *" --gtest_list_tests "* ]]; then
    echo "Mount namespaces are forbidden here, or bubblewrap is missing: the tests use the machine's /sdcard, in turns." >&2
    # The root folder is the gate, so that those who only write the record on the side do not starve the others.
    exec 8</ 9</dev
    flock 8
    flock "$turn" 9
    exec 8<&-
    export TMPDIR=$build/tmp
    mkdir -p "$TMPDIR"
fi
exec "$@"
