#!/usr/bin/env bash
# Times tei2crf beside its yardsticks: a SAX parser that only parses, and a Python script that does the same job.
# Environment: TOKENS (300000), LEXICON_LINES (1000000, for the loading), ROUNDS (7).
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release >/dev/null
cmake --build --preset release --target tei2crf -- -j2 >/dev/null

folder=build/bench-tei2crf
rm -rf "$folder"
mkdir -p "$folder/tenfold"
python3 bench/make_corpus.py "$folder/sample" "${TOKENS:-300000}"
python3 bench/make_corpus.py "$folder/large" 0 "${LEXICON_LINES:-1000000}"
for i in 0 1 2 3 4 5 6 7 8 9; do
    cp -al "$folder/sample/corpus" "$folder/tenfold/$i"
done
printf '<s/>' >"$folder/empty.xml"

# The result first: both must agree on every token and every sentence; the script reads the files in another order.
cmp <(build/release/tools/tei2crf -qq -l "$folder/sample/lexicon.txt" "$folder/sample/corpus" | sort) \
    <(python3 bench/convert.py "$folder/sample/lexicon.txt" "$folder/sample/corpus" | sort)

python3 bench/compare_tei2crf.py "$folder" "${ROUNDS:-7}"
