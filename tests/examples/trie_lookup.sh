#!/usr/bin/env bash
# usage: trie_lookup.sh PROGRAM EXAMPLES
# A word that is nowhere, and a list that is nowhere; the documentation shows the rest.
set -euo pipefail
diff -u - <("$1" "$2/latin_words.txt" xyxyxy) <<'END'
xyxyxy: nothing like it
    cannot be split
END
status=0
"$1" "$2/missing" word 2>/dev/null || status=$?
[ "$status" -eq 2 ]
