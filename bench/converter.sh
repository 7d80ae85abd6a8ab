#!/usr/bin/env bash
# Times the converter beside its yardsticks: a SAX parser that only parses, and a Python script that does the same job.
# Environment: TOKENS (300000), LEXICON_LINES (500000, for the loading), ROUNDS (7).
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release >/dev/null
cmake --build --preset release --target TaggerFormatConverter convert_with_lexicon -- -j2 >/dev/null

folder=build/bench
rm -rf "$folder"
mkdir -p "$folder/empty"
python3 bench/make_corpus.py "$folder/sample" "${TOKENS:-300000}"
python3 bench/make_corpus.py "$folder/large" 0 "${LEXICON_LINES:-500000}"

# The result first: the library and the script must agree on every token and every sentence.
cmp <(build/release/examples/convert_with_lexicon "$folder/sample/corpus" "$folder/sample/lexicon.txt" /dev/stdout |
    grep -Ev '^(log path: |input filename( 2 | 3 )?: )') \
    <(python3 bench/convert.py "$folder/sample/lexicon.txt" "$folder/sample/corpus")

python3 bench/compare.py "$folder" "${ROUNDS:-7}"
