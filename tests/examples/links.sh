#!/usr/bin/env bash
# usage: links.sh FOLDER MAN_FOLDER INCLUDE_FOLDER
# What the documents below FOLDER and the manual pages point at is there: links with their headings, files and folders by
# their names, unless the section or one around it says that they are "in the source code", and manual pages.
set -euo pipefail
man=$(realpath "$2") include=$(realpath "$3")
cd "$1"
top='(bench|cmake|completions|docs|examples|fuzz|man|python|scripts|tests|tools|training|utils)/[^ `]*'
links=0 names=0 status=0
complain() { echo "$*" && status=1; }

anchors() { sed -n '/^```/,/^```/d; s/^##* //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'; }
names_in() { # of a document of Markdown, from one heading to the next
    awk -v name="^($top|packages[.]txt|Makefile|CMake[A-Za-z]*[.](txt|json))\$" -v all="$([ -e Makefile ] && echo 1)" '
        function end() { for (i = 0; i < 7; i++) said = said || source[i]; if (all || !said) printf "%s", found; found = said = "" }
        /^```/ { fence = !fence }
        !fence && /^#/ { end(); match($0, /^#+/); for (i = level = RLENGTH; i < 7; i++) source[i] = 0 }
        /in the source code/ { source[level] = 1 }
        !fence { for (n = split($0, part, "`"); n > 1; n--) if (n % 2 == 0) { sub(/ .*/, "", part[n]); if (part[n] ~ name) found = found part[n] "\n" } }
        END { end() }' "$1"
}

while IFS= read -r document; do
    while IFS= read -r target; do
        links=$((links + 1))
        file=$(realpath -m "$(dirname "$document")/${target%%#*}")
        [ -n "${target%%#*}" ] || file=$document
        [[ -e $file && $file == "$PWD"/* || $file == "$document" ]] &&
            { [[ $target != *#* ]] || anchors "$file" | grep -qx -e "${target#*#}"; } ||
            complain "$document: $target leads nowhere"
    done < <(grep -oE '\]\([^)]+\)|^\[[^]]+\]: .+|<(img|a) [a-z]+="[^"]+"' "$document" |
        sed -E 's/^(\]\(|\[[^]]+\]: |<[a-z]+ [a-z]+=")//; s/[)"]$//' | grep -v '^https\?://')
done < <(find . -name build -prune -o -name '*.md' -print)
while IFS=: read -r document name; do
    names=$((names + 1))
    compgen -G "$name" >/dev/null || compgen -G "$name.*" >/dev/null || compgen -G "$include/$name" >/dev/null ||
        complain "$document: $name is not there"
done < <(
    # all that a change log names is in the source code
    find . -name build -prune -o -name CHANGELOG.md -o -name '*.md' -print |
        while IFS= read -r file; do names_in "$file" | sed "s|^|$file:|"; done
    find . -name build -prune -o -name '*.dox' -exec grep -HoE "(\\b$top|\\\\include .*)" {} + |
        sed -E 's|\\include |examples/|; s/[".,:;)]+$//'
    grep -HoE "docs/[a-z0-9./]+" "$man"/*.1
    sed -nE 's|^\.BR ([A-Za-z0-9]+) \((.)\).*|\1.\2|p' "$man"/*.1 | sed "s|.*|manual page:$man/&|"
)
[ "$links" -gt 40 ] && [ "$names" -gt 10 ] && exit "$status"
