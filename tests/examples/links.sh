#!/usr/bin/env bash
# usage: links.sh FOLDER
# Every link of the documents below FOLDER leads to a file in it and, behind a "#", to a heading.
set -euo pipefail
cd "$1"
anchors() { sed -n '/^```/,/^```/d; s/^##* //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'; }

links=0 status=0
while IFS= read -r document; do
    while IFS= read -r target; do
        links=$((links + 1))
        file=$(realpath -m "$(dirname "$document")/${target%%#*}")
        [ -n "${target%%#*}" ] || file=$document
        [[ -e $file && $file == "$PWD"/* || $file == "$document" ]] &&
            { [[ $target != *#* ]] || anchors "$file" | grep -qx -e "${target#*#}"; } ||
            { echo "$document: $target leads nowhere" && status=1; }
    done < <(grep -oE '\]\([^)]+\)' "$document" | sed 's/^](//; s/)$//' | grep -v '^https\?://')
done < <(find . -name build -prune -o -name '*.md' -print)
[ "$links" -gt 40 ] && exit "$status"
