#!/usr/bin/env bash
# usage: training_data.sh TEI2CRF EXAMPLES
# What tei2crf writes, and what the scripts make of it, passes the format check; each kind of bad file does not.
# Status 77: no Python.
set -euo pipefail
tei2crf=$1 examples=$2 scripts=$2/training
command -v python3 >/dev/null || exit 77
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
check() { python3 "$scripts/check_data.py" "$@"; }

convert() { "$tei2crf" -qq -l "$examples/lexicon.txt" "$@" "$examples/corpus"; }
convert >two
convert --columns form,lemma,pos --separator tab >three
python3 "$scripts/add_suffix.py" <two >suffixes
python3 "$scripts/to_crfsuite.py" <two >attributes
for good in "two --columns 2" "three --columns 3 --separator tab" "suffixes --template $scripts/template" "attributes --crfsuite"; do
    # shellcheck disable=SC2086 # a list of arguments is meant
    [ "$(check $good)" = "11 sentences, 139 tokens, 12 labels" ]
done

# The scripts: characters, not bytes; line ends at LF only; what CRFsuite takes for a weight or an escape is escaped.
form=$'\xe2\x80\xa8s' # U+2028, which some take for a line end
printf '%s X:\n%s Y\n\n' 'RÉ:\' "$form" >odd
diff <(python3 "$scripts/add_suffix.py" <odd) <(printf '%s X:\n%s Y\n\n' 'RÉ:\ é:\' "$form $form")
diff <(python3 "$scripts/to_crfsuite.py" <odd) <(
    printf '%s\tw=%s\tsuffix=%s\tfirst\tafter=%s\n' 'X\:' 'RÉ\:\\' 'é\:\\' "$form"
    printf 'Y\tw=%s\tsuffix=%s\tbefore=%s\tlast\n\n' "$form" "$form" 'RÉ\:\\'
)

# The longest line, weights, escapes, and a blank in an attribute are well.
printf 'a X\n%08189d Y\n\n' 0 >longest
printf 'X\tb:-1.5e3\tc d\nY\tb\\\\\\:c\n\n' >weights
check longest && check weights --crfsuite

printf '#\nV\nU:%%x[0,1]\n' >template
while IFS='|' read -r data complaint options; do
    # shellcheck disable=SC2059 # the escapes are meant
    printf "$data" >bad
    status=0
    # shellcheck disable=SC2086 # a list of options is meant
    check bad $options >/dev/null 2>complaints || status=$?
    [ "$status" -eq 1 ] && grep -qF "$complaint" complaints || { cat complaints; echo "row: $data $complaint"; exit 1; }
done <<'END'
|bad: 0 labels
a X\n\n|bad: 1 labels
a X\nb Y\n|bad:2: the last line
a X\n\nb Y|bad:3: the last line
a X\n b Y\n\n|bad:2: begins with a blank
a X\n\tb Y\n\n|bad:2: begins with a blank
a X\nb Y\r\n\n|bad:2: carriage return
a X\nb\0 Y\n\n|bad:2: control character
a X\nb\xff Y\n\n|bad:2: not UTF-8
a X\nb  Y\n\n|bad:2: empty column
a X\nb Y \n\n|bad:2: empty column
a X\nb\tY\n\n|bad:2: the other separator
a\tX\nb b\tY\n\n|bad:2: the other separator|--separator tab
a X\nb\n\n|bad:2: 1 columns instead of 2
a X\nb b Y\n\n|bad:2: 3 columns instead of 2
a\nb\n\n|bad:1: 1 columns instead of 2
a X\nb Y\n\n|bad:1: 2 columns instead of 3|--columns 3
a X\n%08190d Y\n\n|bad:2: 8192 bytes
X\tb:c\nY\td\n\n|bad:1: colon|--crfsuite
X\tb\nY:\td\n\n|bad:2: colon|--crfsuite
X\tb\\c\nY\td\n\n|bad:1: backslash|--crfsuite
X\tb\\\\:c\nY\td\n\n|bad:1: colon|--crfsuite
X\tb\nY\n\n|bad:2: no attribute|--crfsuite
X\tb\nY\t\n\n|bad:2: empty field|--crfsuite
a X\nb Y\n\n|template:3: no feature in column 1|--template template
a a X\na a Y\n\n|template:2: begins neither|--template template
END
