#!/usr/bin/env bash
# usage: run.sh SOURCE_FOLDER TOOLS_FOLDER EXAMPLES_FOLDER
# What make run does with its three words: the exit status, a line that it must print, and how many lines it converts into.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder"/{scripts,build/release,empty}
cp "$1/scripts/run.sh" "$folder/scripts"
cp -r "$1/examples" "$1/README.md" "$folder"
ln -s "$2" "$folder/build/release/tools"
ln -s "$3" "$folder/build/release/examples"

failures=0
expect() { # STATUS LINE LINES [NAME=VALUE]...
    local status=0 lines=0
    env "${@:4}" "$folder/scripts/run.sh" >"$folder/output" 2>&1 || status=$?
    [ ! -e "$folder/build/run/training_data.txt" ] || lines=$(wc -l <"$folder/build/run/training_data.txt")
    [ "$status $lines" = "$1 $3" ] && grep -qxFe "$2" "$folder/output" ||
        { echo "${*:4}: status $status, $lines lines of training data" && cat "$folder/output" && failures=1; }
}
both='both streams: 139 token lines in build/run/both_streams.txt, which begins'
without="The analyses hold the ids of a lexicon: LEXICON=file tags the words."
expect 0 "$both" 150
expect 0 "$both" 150 INPUT=examples/corpus LEXICON=examples/lexicon.txt OUTPUT=other.txt
expect 0 "$without" 0 INPUT=examples/corpus
expect 0 '$ tei2crf --sentence=ab --columns=form,lemma,pos,feats examples/families/latin.xml -o build/run/training_data.txt' 8 \
    INPUT=examples/families/latin.xml
expect 1 'run: examples/families is mixed: convert its parts by these commands' 0 INPUT=examples/families
expect 1 'run: README.md has nothing to convert' 0 INPUT=README.md
expect 1 'run: empty has nothing to convert' 0 INPUT=empty
expect 1 'run: no such file or directory: -o' 0 INPUT=-o
expect 1 'run: no such folder: no/such' 0 OUTPUT=no/such/file
expect 1 'run: build/run holds files of this run: build/run/a may be in another folder' 0 OUTPUT=build/run/a
lexicon='would be overwritten, and is to be read: examples/lexicon.txt'
expect 1 "run: ./examples/lexicon.txt $lexicon" 0 INPUT=examples/corpus LEXICON=examples/lexicon.txt OUTPUT=./examples/lexicon.txt
ln "$folder/examples/corpus/caesar/gallia.xml" "$folder/b.xml"
expect 1 'run: b.xml would be overwritten, and is to be read: examples/corpus/caesar/gallia.xml' 0 INPUT=examples/corpus OUTPUT=b.xml
exit "$failures"
