#!/usr/bin/env bash
# Measures how cost grows with size, for both programs and for the library's operations.
# usage: bench/growth.sh [PICTURE.svg]
# Environment: TOKENS (250000): n, the tokens of the smallest corpus.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release -DZELVOR_BENCH=ON >/dev/null
cmake --build --preset release --target TaggerFormatConverter tei2crf growth_bench -- -j2 >/dev/null

folder=build/bench-growth
rm -rf "$folder"
mkdir -p "$folder"
# One corpus of 4 n tokens; the smaller ones are the first files of it, so that all share words and lexicon.
python3 bench/make_corpus.py "$folder/whole" $((4 * ${TOKENS:-250000}))
ln "$folder/whole/lexicon.txt" "$folder/lexicon.txt"
mapfile -t files < <(find "$folder/whole/corpus" -name '*.xml' | sort)
for size in 1 2 4; do
    mkdir "$folder/$size"
    for ((i = 0; i < ${#files[@]} * size / 4; ++i)); do
        ln "${files[i]}" "$folder/$size/$i.xml"
    done
    cat "$folder/$size"/*.xml | grep -Eo '</[wc]>' | wc -l >"$folder/$size.tokens"
done
python3 -B bench/growth.py "$folder" "$@"
