#!/usr/bin/env bash
# Builds the libFuzzer targets and runs them: scripts/fuzz.sh [target|all] [seconds]
#
# Each target starts from its seed corpus in fuzz/corpus/<target>/ (read
# only); inputs that reach new code are kept in build/fuzz/corpus/<target>/
# and a crash, leak, sanitizer report or hang is written to
# build/fuzz/findings/<target>/. The run fails on the first finding; replay
# one with build/fuzz/bin/fuzz_<target> <file>. Default: every target, 30 s.
set -euo pipefail
cd "$(dirname "$0")/.."
target="${1:-all}"
seconds="${2:-30}"

scripts/setup.sh fuzz fuzzers

if [ "$target" = all ]; then
    targets=()
    for source in fuzz/*.cpp; do targets+=("$(basename "$source" .cpp)"); done
else
    [ -f "fuzz/$target.cpp" ] || { echo "no fuzz target '$target' (fuzz/$target.cpp)" >&2; exit 2; }
    targets=("$target")
fi

export ASAN_OPTIONS="detect_leaks=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
status=0
for name in "${targets[@]}"; do
    work="build/fuzz/corpus/$name"
    findings="build/fuzz/findings/$name"
    mkdir -p "$work" "$findings"
    seeds=()
    [ -d "fuzz/corpus/$name" ] && seeds=("fuzz/corpus/$name")
    echo "== $name: $seconds s"
    if ! "build/fuzz/bin/fuzz_$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
            -print_final_stats=1 -artifact_prefix="$findings/" "$work" "${seeds[@]}" \
            >"build/fuzz/$name.log" 2>&1; then
        tail -n 60 "build/fuzz/$name.log"
        echo "== $name: FINDING, see $findings/ and build/fuzz/$name.log" >&2
        status=1
        continue
    fi
    grep -E '^stat::number_of_executed_units|^stat::peak_rss_mb|^#[0-9]+.*DONE' "build/fuzz/$name.log" | tr '\n' ' '
    echo
done
exit $status
