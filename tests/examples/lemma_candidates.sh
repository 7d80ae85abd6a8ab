#!/usr/bin/env bash
# usage: lemma_candidates.sh PROGRAM EXAMPLES
# The second run, which docs/library.md does not show, asks the lemmatiser for the word forms alone that it did not know.
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
    [ "$(grep '^lemma of' "$folder/output" | cut -d' ' -f 3-4 | xargs)" = "Marcus: marcus duci: dux paret: pareo" ]
    [ "$(grep '^read back' "$folder/output" | grep -c :)" = 4 ]
    [ "$(grep -c 'duci:duci' "$folder/output")" = 2 ]
    [ "$(xargs <"$folder/Lemmatizer")" = "$asked" ]
    rm "$folder/Lemmatizer"
done
[ ! -e broken ]
! "$program" "$data/lemmatizer.sh" "$data/lemmas" "$data/n.lemmas" "$folder" Marcus >/dev/null 2>"$folder/errors" || exit 1
grep -q 'ERROR LEMMA_CANDIDATES : .*expected "\\data\\"' "$folder/errors"
