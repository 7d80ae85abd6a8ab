#!/usr/bin/env bash
# usage: convert_with_lexicon.sh PROGRAM EXAMPLES EXPECTED
# Both streams in one pipe must give each file's token lines with an empty line after each sentence; the whole folder
# gives every sentence one separator; a missing lexicon is an error.
set -euo pipefail
program=$1 examples=$2 expected=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

for path in caesar/gallia.xml phaedrus/rana.tei; do
    name=$(basename "${path%.*}").txt
    "$program" "$examples/corpus/$path" "$examples/lexicon.txt" /dev/stdout |
        grep -Ev '^(log path: |input filename( 2 | 3 )?: )' >"$folder/$name"
    diff -u "$expected/$name" "$folder/$name"
done

"$program" "$examples/corpus" "$examples/lexicon.txt" "$folder/separators" >"$folder/output"
[ "$(od -An -c "$folder/separators" | tr -d ' \n')" = '\n\n\n\n\n\n\n\n\n\n\n' ]
diff <(cat "$expected"/*.txt | sed '/^$/d' | sort) <(grep -E '^[^ ]+ [^ ]+$' "$folder/output" | sort)

status=0
"$program" "$examples/corpus" "$folder/missing" "$folder/separators" >/dev/null 2>&1 || status=$?
[ "$status" -eq 1 ]
