#!/usr/bin/env bash
# usage: tei2crf_parallel.sh PROGRAM LEXICON
# The work in shares of a few files each, several at a time, must give what one process gives. Status 77: no GNU parallel.
set -euo pipefail
program=$1 lexicon=$2
command -v parallel >/dev/null && parallel --version 2>/dev/null | grep -q '^GNU parallel' || exit 77
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME=$folder PARALLEL_HOME=$folder/parallel TMPDIR=$folder

mkdir -p "$folder/corpus/a" "$folder/corpus/a-b" "$folder/corpus/a b" "$folder/corpus/.hidden"
for i in $(seq 1 40); do
    for sub in . a a-b "a b" .hidden; do
        printf '<t><s><c>%s</c></s><c>,</c><s/></t>' "$([ $((i % 3)) -eq 0 ] && echo . || echo '(')" \
            >"$folder/corpus/$sub/$i.xml"
    done
done
cd "$folder"
ln -s ../7.xml corpus/a/link.tei

"$program" -qq -l "$lexicon" corpus >one
find corpus -mindepth 1 -name '.*' -prune -o \( -name '*.tei' -o -name '*.xml' \) -xtype f -print0 | LC_ALL=C sort --zero-terminated |
    parallel --null --keep-order --max-args 7 --jobs 3 --sshlogin : \
        "$program" -qq -l "$lexicon" --report report.{#}.json {} >shares
cmp one shares
[ "$(grep -c '^$' shares)" -eq 322 ] # two sentences in each of 4 * 40 files and in the link
[ "$(cat report.*.json | grep -o '"read" : [0-9]*' | awk '{ sum += $3 } END { print sum }')" -eq 161 ]
