#!/usr/bin/env bash
# usage: trie_lookup.sh PROGRAM EXAMPLES
# A misread letter, one whose confusion is in the table, a compound, and a word that is nowhere.
set -euo pipefail
diff -u - <("$1" "$2/latin_words.txt" rempubiicam agricela agricultura xyxyxy) <<'END'
rempubiicam: 1 within the budget, the nearest 1 steps away
    rempublicam (1 left)
    cannot be split
agricela: 1 within the budget, the nearest 1 steps away
    agricola (1.7 left)
    cannot be split
agricultura: 1 within the budget, the nearest 0 steps away
    agricultura (2 left)
    = agricultura
    = agri cultura
xyxyxy: nothing like it
    cannot be split
END
status=0
"$1" "$2/missing" word 2>/dev/null || status=$?
[ "$status" -eq 2 ]
