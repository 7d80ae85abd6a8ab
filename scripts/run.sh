#!/usr/bin/env bash
# Converts a corpus with the release build and shows what came out.
# Environment: INPUT (default examples/corpus), OUTPUT (default build/run/separators.txt) and LEXICON (default for our
# own corpus: examples/lexicon.txt), with which the example program tags the words as well.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ -z "${INPUT:-}" ]; then
    LEXICON=${LEXICON:-examples/lexicon.txt}
fi
input=${INPUT:-examples/corpus}
output=${OUTPUT:-build/run/separators.txt}
[ -e "$input" ] || { echo "run: no such file or directory: $input" >&2; exit 1; }
mkdir -p build/run

progress='^(log path: |input filename( 2 | 3 )?: |Error\()'

tokens() { # its input without the progress lines
    grep -Ev "$progress" || true
}

show() { # TITLE FILE LINES
    printf '%s: %s token lines in %s, which begin\n' "$1" "$(tokens <"$2" | grep -c .)" "$2"
    tokens <"$2" | awk -v last="$3" 'NR <= last { print "    " $0 }' # reads to the end: no broken pipe
}

printf '%s\n' "TaggerFormatConverter -i $input -o $output"
build/release/tools/TaggerFormatConverter -i "$input" -o "$output" >build/run/output.txt
[ ! -f "$output" ] || printf 'sentence separators: %s empty lines in %s, one a sentence\n' "$(wc -l <"$output")" "$output"
show "standard output" build/run/output.txt 6

if [ -z "${LEXICON:-}" ]; then
    echo "Only punctuation is tagged, since no option names a lexicon; LEXICON=file tags the words as well."
    exit
fi
cat <<END

That is punctuation only: no option names a lexicon, and a word takes its tag from there. A program that calls the
library names one, see examples/convert_with_lexicon.cpp. The same corpus with $LEXICON, and both streams in one:
END
build/release/examples/convert_with_lexicon "$input" "$LEXICON" /dev/stdout | tokens >build/run/training_data.txt
show "training data" build/run/training_data.txt 28
