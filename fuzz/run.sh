#!/usr/bin/env bash
# Lets each target look for inputs that break it; stops at the first one that finds any. New inputs that reach more code
# are kept in build/fuzz/found/.
# usage: fuzz/run.sh [TARGET...]    Environment: FUZZ_SECONDS for each target (default 60)
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -eq 0 ]; then
    cd fuzz/corpus
    set -- *
    cd ../..
fi
# Short stacks of allocations: the libraries have no frame pointers, so that longer ones are noise, all of it remembered.
export ASAN_OPTIONS=malloc_context_size=2
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
mkdir -p build/fuzz/crashes
for target; do
    found=build/fuzz/found/$target
    log=build/fuzz/$target.log
    dictionary=()
    [ ! -f "fuzz/$target.dict" ] || dictionary=(-dict="fuzz/$target.dict")
    mkdir -p "$found"
    echo "fuzz: $target for ${FUZZ_SECONDS:-60} seconds"
    if ! "build/fuzz/fuzz/fuzz_$target" -max_total_time="${FUZZ_SECONDS:-60}" -max_len=4096 -timeout=10 \
        -print_final_stats=1 "${dictionary[@]}" -artifact_prefix="build/fuzz/crashes/$target-" \
        "$found" "fuzz/corpus/$target" >"$log" 2>&1; then
        tail -n 50 "$log"
        echo "fuzz: $target found a fault, see $log" >&2
        exit 1
    fi
    grep -a number_of_executed_units "$log"
done
