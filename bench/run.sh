#!/usr/bin/env bash
# Runs all benchmarks, and shows once more what they say of the ratios that are wanted.
set -euo pipefail
cd "$(dirname "$0")/.."

mkdir -p build
for script in programs library growth python; do
    printf '\n== %s\n' "$script"
    "bench/$script.sh"
done | tee build/bench.txt
printf '\n== ratios of processor time, and what is wanted of them\n'
grep ' wanted: ' build/bench.txt
