#!/usr/bin/env bash
# Builds and runs the benchmark programs of the library, one after another.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release -DZELVOR_BENCH=ON >/dev/null
cmake --build --preset release -- -j2 >/dev/null
for program in build/release/bench/*_bench; do
    case ${program##*/} in
    growth_bench | python_bench) continue ;; # bench/growth.sh and bench/python.sh run them
    esac
    printf '\n== %s\n' "${program##*/}"
    "$program"
done
