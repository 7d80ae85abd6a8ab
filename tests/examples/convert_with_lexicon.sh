#!/usr/bin/env bash
# usage: convert_with_lexicon.sh PROGRAM EXAMPLES EXPECTED
# Both streams in one pipe give each file's token lines with an empty line after each sentence; the whole folder gives
# every sentence one separator; a missing lexicon is an error.
set -euo pipefail
convert() { "$program" "$examples/corpus/$1" "$examples/lexicon.txt" "$2" | grep -Ev '^(log path: |input filename( 2 | 3 )?: )'; }
program=$1 examples=$2 expected=$3

diff -u "$expected/gallia.txt" <(convert caesar/gallia.xml /dev/stdout)
diff -u "$expected/rana.txt" <(convert phaedrus/rana.tei /dev/stdout)
diff <(cat "$expected"/*.txt | sed '/^$/d' | sort) <(convert . /dev/stderr 2>/dev/null | sort)
[ "$(convert . /dev/stderr 2>&1 >/dev/null | wc -l)" = 11 ]
[ "$("$program" "$examples/corpus" missing /dev/null >/dev/null 2>&1 || echo $?)" = 1 ]
