#!/usr/bin/env bash
# usage: documented.sh PROGRAM SOURCE_FOLDER
# Runs the commands of docs/library.md that begin with the program's name; each must print the lines that stand below it.
set -euo pipefail
program=$1 source=$2 name=${1##*/}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$source/examples" "$folder"
cd "$folder"
PATH=$(dirname "$program"):$PATH

commands=$(grep -n "^    \$ $name\b" "$source/docs/library.md")
while IFS=: read -r number command; do
    awk -v first="$number" 'NR > first { if (!/^    ./ || /^    \$ /) exit; print substr($0, 5) }' "$source/docs/library.md" >expected
    bash -c "${command#*$ }" >output
    diff -u expected output
done <<<"$commands"
