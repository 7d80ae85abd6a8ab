#!/usr/bin/env bash
# usage: make_lexicon.sh MAKE_LEXICON CONVERT_WITH_LEXICON DATA
# The lexicon and the overview are the expected ones, and a text comes out of the converter with the tags of that
# lexicon; a lexicon that cannot be written is an error.
set -euo pipefail
make_lexicon=$1 convert=$2 data=$3
lexicon=$(mktemp)
trap 'rm -f "$lexicon"' EXIT

diff -u "$data/overview.txt" <("$make_lexicon" "$lexicon")
diff -u "$data/lexicon.txt" "$lexicon"
diff -u "$data/tokens.txt" <("$convert" "$data/text.xml" "$lexicon" /dev/stdout | grep -Ev '^(log path: |input filename( 2 | 3 )?: )')
[ "$("$make_lexicon" /no/such/lexicon.txt >/dev/null 2>&1 || echo $?)" = 1 ]
