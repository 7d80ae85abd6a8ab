#!/usr/bin/env bash
# usage: tei2crf_progress.sh PROGRAM
# A long run tells its progress, to a terminal that does not get the lines as well. Status 77: there is no terminal.
set -euo pipefail
in_terminal() { timeout 20 script -qec "$1" /dev/null </dev/null; }
in_terminal true >/dev/null 2>&1 || { echo "script makes no terminal here (is /dev/pts there?)"; exit 77; }
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkfifo p
echo '0#s#sp#3#l#src#V#17#w#9#10#11#12#13#14#15#16#Verb#18#19#20#21' >lexicon
for expected_options in '1 -o out' '0 -q -o out' '0 '; do
    timeout 20 bash -c 'exec >p; for i in 1 2 3 4; do echo "<t><s><c>.</c></s>"; sleep 0.2; done; echo "</t></t></t></t>"' &
    told=$(in_terminal "$1 -l lexicon ${expected_options#* } p" | grep -c "file 1 of 1" || true)
    wait $! # ended by itself or by the time, it never stays behind
    [ "$told" = "${expected_options%% *}" ] || { echo "'$expected_options', but $told times"; exit 1; }
done
