#!/usr/bin/env bash
# usage: tei2crf_parallel.sh PROGRAM LEXICON
# The work in shares of a few files each, several at a time, must give what one process gives. Status 77: no GNU parallel.
set -euo pipefail
parallel --version 2>/dev/null | grep -q '^GNU parallel' || exit 77
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME=$folder PARALLEL_HOME=$folder/parallel TMPDIR=$folder

mkdir -p "$folder"/corpus/{a,a-b,"a b",.hidden}
cd "$folder"
for file in corpus/{.,a,a-b,"a b",.hidden}/{1..40}.xml; do
    echo "<t><s><c>$([[ $file =~ 3 ]] && echo . || echo '(')</c></s><c>,</c><s/></t>" >"$file"
done
ln -s ../7.xml corpus/a/link.tei

"$1" -qq -l "$2" corpus >one
find corpus -mindepth 1 -name '.*' -prune -o \( -name '*.tei' -o -name '*.xml' \) -xtype f -print0 | LC_ALL=C sort --zero-terminated |
    parallel --null --keep-order --max-args 7 --jobs 3 --sshlogin : "$1" -qq -l "$2" --report report.{#}.json {} >shares
cmp one shares
[ "$(grep -c '^$' shares)" -eq 322 ] # two sentences in each of 4 * 40 files and in the link
[ "$(cat report.*.json | grep -o '"read" : [0-9]*' | awk '{ sum += $3 } END { print sum }')" -eq 161 ]
