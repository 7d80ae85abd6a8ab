#!/usr/bin/env bash
# usage: make_lexicon.sh MAKE_LEXICON CONVERT_WITH_LEXICON DATA
# The lexicon and the overview are the expected ones, and a text comes out of the converter with the tags of that
# lexicon; a lexicon that cannot be written is an error.
set -euo pipefail
make_lexicon=$1 convert=$2 data=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

"$make_lexicon" "$folder/lexicon.txt" >"$folder/overview.txt"
diff -u "$data/lexicon.txt" "$folder/lexicon.txt"
diff -u "$data/overview.txt" "$folder/overview.txt"

"$convert" "$data/text.xml" "$folder/lexicon.txt" /dev/stdout |
    grep -Ev '^(log path: |input filename( 2 | 3 )?: )' >"$folder/tokens.txt"
diff -u "$data/tokens.txt" "$folder/tokens.txt"

status=0
"$make_lexicon" "$folder/missing/lexicon.txt" >/dev/null 2>&1 || status=$?
[ "$status" -eq 1 ]
