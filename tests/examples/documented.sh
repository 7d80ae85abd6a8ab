#!/usr/bin/env bash
# usage: documented.sh PROGRAM SOURCE_FOLDER
# Runs the commands in docs/ that begin with the program's name; each must print the lines that stand below it.
set -euo pipefail
program=$1 source=$2 name=${1##*/}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$source/examples" "$folder"
cd "$folder"
PATH=$(dirname "$program"):$PATH

commands=$(grep -Hn "^    \$ $name\b" "$source"/docs/*.md)
while IFS=: read -r document number command; do
    awk -v first="$number" 'NR > first { if ((/./ && !/^    ./) || /^    \$ /) exit; print substr($0, 5) }' "$document" >expected
    bash -c "${command#*$ }" >output 2>&1
    diff -u <(echo "$(<expected)") <(echo "$(<output)") # but for empty lines at the end
done <<<"$commands"
