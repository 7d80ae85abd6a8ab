#!/usr/bin/env bash
# usage: training_data.sh TEI2CRF EXAMPLES
# What tei2crf writes, and what the scripts make of it, passes the format check; each kind of bad line does not.
# Status 77: no Python.
set -euo pipefail
tei2crf=$1 examples=$2 scripts=$2/training
command -v python3 >/dev/null || exit 77
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
check() { python3 "$scripts/check_data.py" "$@"; }

"$tei2crf" -qq -l "$examples/lexicon.txt" "$examples/corpus" >two
"$tei2crf" -qq -l "$examples/lexicon.txt" --columns form,lemma,pos --separator tab "$examples/corpus" >three
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

# The first lines are well: the longest one; weights, escapes, and a blank in an attribute.
printf '%08188d X\n b\n\tb\nb Y\r\nb\0 Y\nb\xff Y\nb  Y\nb Y \nb\tY\nb\nb b Y\n%08189d Y\n' 0 0 >columns
printf 'X\tb:-1.5e3\tc d\nY\tb\\\\\\:c\nX\tb:c\nY:\td\nX\tb\\c\nX\tb\\\\:c\nY\nY\t\n\n' >attributes
printf 'b Y\n\n' >tab
printf '#\nV\nU:%%x[0,1]\n' >template
for options in "columns" "attributes --crfsuite" "tab --columns 3 --separator tab" "two --template template"; do
    # shellcheck disable=SC2086 # a list of options is meant
    ! check $options >/dev/null 2>complaints || echo passed
    cut -c 1-26 complaints
done | diff - <(cat <<'END'
columns:12: the last line 
columns:2: begins with a b
columns:3: begins with a b
columns:4: carriage return
columns:5: control charact
columns:6: not UTF-8
columns:7: empty column
columns:8: empty column
columns:9: the other separ
columns:10: 1 columns inst
columns:11: 3 columns inst
columns:12: 8191 bytes, at
columns: 1 labels, a tagge
attributes:3: colon that i
attributes:4: colon that i
attributes:5: backslash th
attributes:6: colon that i
attributes:7: no attribute
attributes:8: empty field
tab:1: the other separator
tab: 0 labels, a tagger ne
two: template:2: begins ne
two: template:3: no featur
END
)
