#!/usr/bin/env bash
# Converts a corpus with both programs of the release build and shows what came out.
# Environment: INPUT (default: the examples), OUTPUT (default build/run/separators.txt) for the separators of
# TaggerFormatConverter, and LEXICON for a corpus whose analyses hold the ids of one. All else is written to build/run.
set -euo pipefail
cd "$(dirname "$0")/.."
PATH=$PWD/build/release/tools:$PWD/build/release/examples:$PATH

input=${INPUT:-examples/corpus}
output=${OUTPUT:-build/run/separators.txt}
training_data=build/run/training_data.txt
progress='^(log path: |input filename( 2 | 3 )?: |Error\()'

stop() {
    echo "run: $*" >&2
    exit 1
}

step() { printf '\n%s\n' "$*"; }

begin_of() { # TITLE FILE LINES
    [ -s "$2" ] || { echo "$1: no token line" && return; }
    printf '%s: %s token lines in %s, which begins\n' "$1" "$(grep -c . "$2")" "$2"
    head -n "$3" "$2" | sed 's/^./    &/'
}

# tei2crf with an output; what it read is converted even where it complains.
convert() { # COMMAND
    step "$ $1 -o $training_data"
    bash -c "$1 -o $training_data" || [ -e "$training_data" ] || stop "nothing was converted"
    begin_of "training data" "$training_data" 8
}

# Annotation in attributes is converted by the command that the survey ends with; for analyses by a lexicon's ids, that
# command names a lexicon, which is not here. Of several commands, none reads all of the corpus.
survey_and_convert() {
    step "$ tei2crf --survey $1"
    tei2crf --survey "$1" >build/run/survey.txt || true
    cat build/run/survey.txt
    local command
    command=$(sed -n '/^Try,\|^The tokens are encoded/,$s/^  tei2crf /tei2crf /p' build/run/survey.txt)
    case $command in
    "") stop "$1 has nothing to convert" ;;
    *$'\n'*) stop "$1 is mixed: convert its parts by these commands" ;;
    *" -l LEXICON "*) echo "The analyses hold the ids of a lexicon: LEXICON=file tags the words." ;;
    *) convert "$command" ;;
    esac
}

run_tagger_format_converter() {
    [[ $output == /dev/* ]] || rm -f "$output"
    step "$ TaggerFormatConverter -i $input -o $output"
    TaggerFormatConverter -i "$input" -o "$output" >build/run/output.txt 2>build/run/complaints.txt ||
        stop "TaggerFormatConverter failed, see build/run/complaints.txt"
    grep -aEv "$progress" build/run/output.txt >build/run/token_lines.txt || true
    [ -e "$output" ] || stop "$output could not be written"
    [[ $output == /dev/* ]] || echo "its file: $(wc -l <"$output") empty lines in $output, one a sentence"
    begin_of "its standard output, without the lines that tell where it is" build/run/token_lines.txt 4
    [ ! -s build/run/complaints.txt ] || echo "complaints: $(wc -l <build/run/complaints.txt) in build/run/complaints.txt"
    if [ -s build/run/token_lines.txt ]; then
        echo "Only punctuation has a line here: a word has its tag from a lexicon, and no option of this program names one."
    else
        echo "It reads nothing but s, w and c with the JSON of a lexicon's ids, and this corpus has no line for it."
    fi
}

[ -e "$input" ] || stop "no such file or directory: $input"
[ -z "${LEXICON:-}" ] || [ -f "$LEXICON" ] || stop "no such file: $LEXICON"
case $input in -*) input=./$input ;; esac
case ${LEXICON:-} in -*) LEXICON=./$LEXICON ;; esac
mkdir -p build/run
[ -d "$(dirname "$output")" ] || stop "no such folder: $(dirname "$output")"
[ ! -d "$output" ] || stop "$output is a folder"
[[ ! $(dirname "$output") -ef build/run || $output == */separators.txt ]] ||
    stop "build/run holds files of this run: $output may be in another folder"
read=$([ ! -f "$output" ] || find -L "$input" ${LEXICON:+"$LEXICON"} -samefile "$output" -print -quit)
[ -z "$read" ] || stop "$output would be overwritten, and is to be read: $read"
rm -f "$training_data"

if [ -z "${INPUT:-}" ]; then
    LEXICON=${LEXICON:-examples/lexicon.txt}
    echo "tei2crf reads annotation from the attributes of tokens ..."
    convert "tei2crf --sentence=ab --columns=form,lemma,pos,feats examples/families/latin.xml"
    step "... or takes the tags from a lexicon, by the ids in the analyses of tokens."
fi
if [ -n "${LEXICON:-}" ]; then
    convert "tei2crf -l $(printf %q "$LEXICON") $(printf %q "$input")"
else
    survey_and_convert "$input"
fi

run_tagger_format_converter
if [ -n "${LEXICON:-}" ]; then
    step "$ convert_with_lexicon $input $LEXICON /dev/stdout   # both streams, with a lexicon, in one pipe"
    convert_with_lexicon "$input" "$LEXICON" /dev/stdout | grep -aEv "$progress" >build/run/both_streams.txt || true
    begin_of "both streams" build/run/both_streams.txt 8
fi
