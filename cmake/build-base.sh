#!/bin/sh
# build-base.sh BUILD COMMIT JOBS: builds the library of another commit into BUILD/base/lib. Programs of this commit
# load it where LD_LIBRARY_PATH names that folder: the interface is the same.
set -eu
build=$1 commit=$2 jobs=$3
[ -n "$commit" ] || {
    echo "Name the commit to compare with, as in: make bench-compare BASE=HEAD~1" >&2
    exit 64
}
rm -rf "$build/base/source"
mkdir -p "$build/base/source"
git archive "$commit" >"$build/base/source.tar"
tar -x -m -f "$build/base/source.tar" -C "$build/base/source"
cmake --log-level=NOTICE -S "$build/base/source" -B "$build/base" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_LIBDIR=lib -DORVEX_BUILD_TOOLS=OFF -DORVEX_BUILD_EXAMPLES=OFF -DORVEX_BUILD_TESTS=OFF
rm -f "$build/base/lib"/*
cmake --build "$build/base" -j "$jobs" --target Orvex_Alignment
[ -e "$build/base/lib/libOrvex_Alignment.so" ] || {
    echo "$commit leaves no $build/base/lib/libOrvex_Alignment.so" >&2
    exit 1
}
