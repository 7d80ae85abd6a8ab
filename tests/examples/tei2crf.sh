#!/usr/bin/env bash
# usage: tei2crf.sh TEI2CRF CONVERT_WITH_LEXICON SOURCE_FOLDER
# Both programs must write the same lines for each file of the sample corpus, and of a generated one where there is Python.
set -euo pipefail
tei2crf=$1 converter=$2 source=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$source/examples" "$folder/sample"
if command -v python3 >/dev/null; then
    python3 "$source/bench/make_corpus.py" "$folder/generated" 30000 1000
fi

compared=0
for corpus in "$folder"/*/corpus; do
    while IFS= read -r file; do
        "$tei2crf" -qq -l "$corpus/../lexicon.txt" "$file" >"$folder/ours"
        "$converter" "$file" "$corpus/../lexicon.txt" /dev/stdout |
            grep -Ev '^(log path: |input filename( 2 | 3 )?: )' >"$folder/theirs"
        cmp "$folder/ours" "$folder/theirs"
        compared=$((compared + 1))
    done < <(find "$corpus" -type f)
done
[ "$compared" -ge 2 ]
