#!/usr/bin/env bash
# Builds and runs the benchmark programs of the library, one after another.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release -DZELVOR_BENCH=ON >/dev/null
cmake --build --preset release -- -j2 >/dev/null
for program in build/release/bench/*_bench; do
    [ "${program##*/}" != growth_bench ] || continue # bench/growth.sh runs it
    printf '\n== %s\n' "${program##*/}"
    "$program"
done
