#!/usr/bin/env bash
# usage: lemma_candidates.sh PROGRAM EXAMPLES
# The lemmatiser alone would take duco (0.7) for duci; the model has seen dux after marcus. The second run asks the
# lemmatiser for the word forms alone that it did not know, and comes to the same lemmas. No model's name is a command.
set -euo pipefail
program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
data=$folder/data
cp -r "$2/candidates" "$data"
cd "$folder"
touch "$data/\$(touch broken).lemmas"

for asked in "duci marcus paret duci marcus paret" "paret marcus"; do
    "$program" "$data/lemmatizer.sh" "$data/lemmas" "$data/lemmas.arpa" "$folder" Marcus duci paret >"$folder/output"
    diff - <(grep -E '^(lemma|read back)' "$folder/output" | grep -v model) <<'END'
lemma of Marcus: marcus
lemma of duci: dux
lemma of paret: pareo
read back for n: duci:duci
read back for n: marcus:marcus
read back for v: duci:duci
read back for v: paret:paret
END
    diff <(echo $asked) <(echo $(cat "$folder/Lemmatizer"))
    rm "$folder/Lemmatizer"
done
[ ! -e broken ]

for model in "$folder" "$data/n.lemmas"; do
    status=0
    "$program" "$data/lemmatizer.sh" "$data/lemmas" "$model" "$folder" Marcus >"$folder/output" 2>"$folder/errors" || status=$?
    [ "$status" -eq 1 ]
    grep -q 'ERROR LEMMA_CANDIDATES : .*expected "\\data\\"' "$folder/errors"
done
