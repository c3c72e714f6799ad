#!/bin/sh
# Format and static checks of the whole project; clang-tidy's share is everything but the tests, whose macros take
# it as long as all the rest. Takes the number of jobs.
set -eu
cd "$(dirname "$0")/.."
jobs=${1:-1}

git rev-parse --git-dir >/dev/null # the files are those git knows

echo "clang-format"
git ls-files -z '*.cpp' '*.h' '*.c' | xargs -0 clang-format --dry-run -Werror
echo "shellcheck"
git ls-files -z .ci/run "*.sh" | xargs -0 shellcheck
echo "cppcheck"
cppcheck -j "$jobs" --quiet --error-exitcode=1 --std=c++20 --language=c++ --library=googletest --inconclusive \
    --enable=warning,performance,portability --suppressions-list=.cppcheck-suppressions --template=gcc \
    -I include -I src -I tools -I tests -I fuzz -I . src tools bench examples compare fuzz tests
echo "clang-tidy, some minutes"
findings=build/lint/clang-tidy.txt
root=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' build/lint/CMakeCache.txt | sed 's/[][\\.*^$+?(){}|]/\\&/g')
run-clang-tidy -quiet -p build/lint -j "$jobs" "^$root/(src|tools|examples|compare|bench|fuzz)/" >"$findings" 2>&1 || {
    grep -A 4 -E ': .*(error|warning): ' "$findings" | head -200
    echo "clang-tidy found faults: mend them, or see all in $findings" >&2
    exit 1
}
grep -q '^clang-tidy.*/src/' "$findings" || {
    echo "clang-tidy looked at nothing: see $findings" >&2
    exit 1
}
