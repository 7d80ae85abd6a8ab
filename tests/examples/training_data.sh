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
printf 'b Y' >tab
printf '#\nV\nU:%%x[0,1]\n' >template
while IFS='|' read -r options complaints; do # without the file's name, each cut short, joined by ";"
    # shellcheck disable=SC2086 # a list of options is meant
    diff <(! check $options 2>&1 >/dev/null | sed -E 's/^[a-z]*: ?//; s/(: .{11}).*/\1/' | paste -sd\;) <(echo "$complaints")
done <<'END'
columns|12: the last li;2: begins with;3: begins with;4: carriage re;5: control cha;6: not UTF-8;7: empty colum;8: empty colum;9: the other s;10: 1 columns i;11: 3 columns i;12: 8191 bytes,;1 labels, a tagger needs at least two
attributes --crfsuite|3: colon that ;4: colon that ;5: backslash t;6: colon that ;7: no attribut;8: empty field
tab --columns 3 --separator tab|1: no line fee;1: the other s;0 labels, a tagger needs at least two
two odd|1: a tag that ;2: a tag that 
two --template template|template:2: begins neit;template:3: no feature 
END
