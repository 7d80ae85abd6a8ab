#!/usr/bin/env bash
# usage: text_utilities.sh PROGRAM
set -euo pipefail
diff -u - <("$1" "$(printf '\306neas  & Dido')" aeneas) <<'END'
æneas 5 Æneas 2
& 1 &amp; 6
dido 4 Dido 6
END
