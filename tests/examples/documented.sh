#!/usr/bin/env bash
# usage: documented.sh SOURCE_FOLDER PROGRAM_FOLDER...
# Runs the commands that the documents show, the indented lines that begin with "$ ", a document in a folder of its own;
# each must print the lines below it. Any other indented block, Python's excepted, must have "<!-- not run: REASON -->" above it.
set -euo pipefail
source=$1
shift
PATH=$(printf '%s:' "$@")$source/examples/training:$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
commands=0 failures=0

for document in "$source"/*.md "$source"/{docs,fuzz}/*.md; do
    awk -v name="${document#"$source"/}" '
        /^```/ { fence = !fence }
        !fence && /^    / && !block && !/^    (\$|>>>) / && !(last ~ /<!-- not run: ..* -->/) {
            print name ":" FNR ": neither run nor marked as not run: " $0; status = 1
        }
        { block = !fence && (/^    / || (block && !/./)); if (/./) last = $0 }
        END { exit status }' "$document" || failures=$((failures + 1))
    rm -rf "$folder/work" && mkdir "$folder/work" && cd "$folder/work" && cp -r "$source/examples" .
    while IFS=: read -r number command; do
        awk -v first="$number" 'NR > first { if ((/./ && !/^    ./) || /^    \$ /) exit; print substr($0, 5) }' \
            "$document" >../expected
        bash -o pipefail -c "${command#*$ }" >../output 2>&1 </dev/null || [ $? -eq 141 ] || echo "status $?" >>../output
        diff -u <(echo "$(<../expected)") <(echo "$(<../output)") || { echo "by $document:$number"; failures=$((failures + 1)); }
        commands=$((commands + 1))
    done < <(grep -n '^    \$ ' "$document")
done
for file in examples/families/*.xml; do # as in docs/corpora.md: the command, and the result as a comment
    command=$(sed -n 's/^<?command \(.*\)?>$/\1/p' "$file")
    grep -qF "    \$ $command" "$source/docs/corpora.md" &&
        diff -u --ignore-blank-lines <(sed '1,/^<!-- what it writes:$/d; /^-->$/,$d' "$file") <(bash -c "$command") ||
        failures=$((failures + 1))
done
[ "$commands" -ge 40 ] && [ "$failures" -eq 0 ]
