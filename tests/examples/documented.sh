#!/usr/bin/env bash
# usage: documented.sh SOURCE_FOLDER PROGRAM_FOLDER...
# Runs the commands that the documents show, the indented lines that begin with "$ ", a document in a folder of its own;
# each must print the lines below it. Any other indented block, Python's excepted, must have "<!-- not run: REASON -->" above
# it; likewise a paragraph or table with a command between backticks or fences, if the document has no
# "<!-- not run in this document: REASON -->". What has no operand, or capitals in the place of one, is no command but names
# one, and "make WORD" names a target.
set -euo pipefail
source=$1
shift
PATH=$(printf '%s:' "$@")$source/examples/training:$PATH
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
commands=0 failures=0

programs='(cmake|ctest|git|g[+][+]|xmllint|sed|awk|grep|iconv|uconv|zcat|parallel|ulimit|npm|python3|crf_(learn|test)|wapiti|crfsuite'
programs+='|spacy|jq|apt-get|dpkg|pip install|pkg-config|cp|mv|head|tail|tei2crf|TaggerFormatConverter|[a-z_]+_lexicon|[a-z_]+[.]py|([.]|scripts|bench|fuzz|build|env)/[^ ]*)'
targets=" $(sed -n 's/^[.]PHONY: //p' "$source/Makefile") "

for document in "$source"/*.md "$source"/{docs,fuzz}/*.md; do
    awk -v name="${document#"$source"/}" -v command="^$programs .*" -v targets="$targets" '
        function complain(what) { print name ":" FNR ": neither run nor marked as not run: " what; status = 1 }
        function check(code) {
            sub(/^ *([$] )?([A-Z_]+=[^ ]* )*/, "", code)
            if (code ~ /^make [a-z]/) {
                for (n = split(code, words, / *&& */); n > 0; n--)
                    if (split(words[n], word, " ") && index(targets, " " word[2] " ") == 0) complain(words[n])
            } else if (code ~ command && code ~ / [^ -]/ && code !~ / [A-Z]+\]*( |$)/ && !marked && !all) complain(code)
        }
        /^<!-- not run in this document: ..* -->/ { all = 1 }
        /^ *(```|~~~)/ { fence = !fence }
        /./ && !paragraph { marked = last ~ /<!-- not run: ..* -->/ }
        { paragraph = /./ }
        fence { check($0) }
        !fence && !/^(    |\t)/ { for (n_parts = split($0, parts, "`"); n_parts > 1; n_parts--) if (n_parts % 2 == 0) check(parts[n_parts]) }
        !fence && /^(    |\t)/ && !block && !/^    (\$|>>>) / && !(last ~ /<!-- not run: ..* -->/) {
            complain($0)
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
for page in "$source"/man/*.1; do # their examples, on a corpus that suits each of them
    rm -rf "$folder/work" && mkdir "$folder/work" && cd "$folder/work" && cp -r "$source/examples/corpus" .
    sed -i 's#<body>#&<ab>#; s#</body>#</ab>&#' corpus/*/*
    gzip -c corpus/*/gallia.xml >text.xml.gz
    sed '/^\/\//d' "$source/examples/lexicon.txt" >lexicon.txt
    sed -n "/^[.]EX$/,/^[.]EE$/{//d; s/[\\]-/-/g; s/[\\](aq/'/g; s/[\\]e/\\\\/g; p}" "$page" >examples.sh
    [ -s examples.sh ] && bash -e -o pipefail examples.sh >output 2>&1 && [ -s train.txt ] ||
        { echo "the examples of $page" && cat examples.sh output && failures=$((failures + 1)); }
done
cd "$source"
for file in examples/families/*.xml; do # as in docs/corpora.md: the command, and the result as a comment
    command=$(sed -n 's/^<?command \(.*\)?>$/\1/p' "$file")
    grep -qF "    \$ $command" "$source/docs/corpora.md" &&
        diff -u --ignore-blank-lines <(sed '1,/^<!-- what it writes:$/d; /^-->$/,$d' "$file") <(bash -c "$command") ||
        failures=$((failures + 1))
done
[ "$commands" -ge 40 ] && [ "$failures" -eq 0 ]
