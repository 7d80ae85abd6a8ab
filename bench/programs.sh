#!/usr/bin/env bash
# Times both programs beside their yardsticks: a SAX parser that only parses, and Python scripts that do the same job.
# Environment: TOKENS (300000), LEXICON_LINES (500000, for the loading), ROUNDS (7).
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release >/dev/null
cmake --build --preset release --target TaggerFormatConverter convert_with_lexicon tei2crf -- -j2 >/dev/null

folder=build/bench
rm -rf "$folder"
mkdir -p "$folder/empty" "$folder/tenfold"
python3 bench/make_corpus.py "$folder/sample" "${TOKENS:-300000}"
python3 bench/make_corpus.py "$folder/large" 0 "${LEXICON_LINES:-500000}"
for i in 0 1 2 3 4 5 6 7 8 9; do
    cp -al "$folder/sample/corpus" "$folder/tenfold/$i"
done
printf '<s><c>.</c></s>' >"$folder/empty.xml" # without a token tei2crf complains
# Without entities, at which a bare SAX parser stops calling back.
python3 -B bench/make_tei.py --family=parliament --no-entities "${TOKENS:-300000}" >"$folder/annotated.xml"
mkdir "$folder/files"
for i in $(seq 10 33); do
    python3 -B bench/make_tei.py --family=parliament --no-entities --seed="$i" $((${TOKENS:-300000} / 6)) >"$folder/files/$i.xml"
done

# The result first: all must agree on every token and every sentence; tei2crf reads the files in another order.
inputs=("$folder/sample/lexicon.txt" "$folder/sample/corpus")
python3 bench/convert.py "${inputs[@]}" >"$folder/expected"
build/release/examples/convert_with_lexicon "${inputs[1]}" "${inputs[0]}" /dev/stdout |
    grep -Ev '^(log path: |input filename( 2 | 3 )?: )' | cmp - "$folder/expected"
build/release/tools/tei2crf -qq -l "${inputs[@]}" | sort | cmp - <(sort "$folder/expected")
build/release/tools/tei2crf -qq --columns=form,lemma,pos,feats "$folder/annotated.xml" |
    cmp - <(/usr/bin/python3 bench/tei_columns.py "$folder/annotated.xml")
cmp <(build/release/tools/tei2crf -qq "$folder/files") <(build/release/tools/tei2crf -qq -j 1 "$folder/files")

python3 bench/programs.py "$folder" "${ROUNDS:-7}"
