#!/usr/bin/env bash
# usage: transcript.sh TRANSCRIPT PROGRAM VERSION
# Runs the commands of a transcript, the lines that begin with "$ ", in one folder, each in a shell of its own that finds
# the program, functions.sh and $VERSION. Below a command stands what it prints on both streams, and "[STATUS]" where that is
# not 0. Lines that begin with "# " are remarks.
set -euo pipefail
transcript=$(realpath "$1") PATH=$(realpath "${2%/*}"):$PATH
export VERSION=$3 BASH_ENV=${transcript%/*}/functions.sh
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

commands=0 failures=0
check() {
    local output status=0
    output=$(bash -c "$command" 2>&1 </dev/null 3<&- || echo "[$?]"; echo .) # a dot, so that the last empty lines stay
    commands=$((commands + 1))
    diff -u --label expected --label printed <(printf %s "$expected") <(printf %s "${output%.}") || status=1
    [ "$status" -eq 0 ] || echo "by: $command"
    failures=$((failures + status))
}

command=
while IFS= read -r -u 3 line || [ -n "$line" ]; do
    case $line in
    '$ '*)
        [ -z "$command" ] || check
        command=${line#'$ '} expected=
        ;;
    '# '*) ;;
    *) expected+=$line$'\n' ;;
    esac
done 3<"$transcript"
[ -z "$command" ] || check
echo "$commands commands, $failures failed"
[ "$commands" -gt 0 ] && [ "$failures" -eq 0 ]
