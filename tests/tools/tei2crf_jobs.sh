#!/usr/bin/env bash
# usage: tei2crf_jobs.sh PROGRAM
# Output, messages, report and status of several jobs are those of one, whatever goes wrong in between.
set -euo pipefail
program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir corpus
for i in $(seq 100 220); do
    case $((i % 11)) in
    0) echo '<t><s><c>,</c></s><s><c>.' ;;
    1) echo '<t/>' ;;
    2) : ;;
    3) echo "<!DOCTYPE t [<!ENTITY e SYSTEM '../e'>]><t>&e;<s><w pos='n'>$i</w><w>no tag</w>$(seq $((i * 5)) | sed "s,.*,<w>n&</w><w pos='t&'>t</w>,")</s></t>" ;;
    4) echo "<t>$(yes "<s><w pos='n'>$i</w><w pos='n'>a b</w></s>" | head -n $((i * 20)))</t>" ;;
    *) echo "<t><c>,</c><s xml:id='s'><w lemma=\"x{'ls':[{'name':'l','wfs':[{'id':$((i % 2))}]}]}x\" pos='v'>$i</w><c>.</c></s></t>" ;;
    esac >corpus/$i.xml
done
ln -s nowhere corpus/150.tei
echo '0#s#sp#3#l#src#V#1#w#9#10#11#12#13#14#15#16#Verb#18#19#20#21' >lexicon
compared=0
while read -r limit format options; do
    for jobs in 1 2 3 16; do
        # shellcheck disable=SC2086 # a list of words is meant
        (ulimit -f "$limit" && "$program" $options -j $jobs --report=$jobs.$format corpus) >out.$jobs 2>err.$jobs || echo $? >>out.$jobs
        cp $jobs.$format report.$jobs
        for stream in out err report; do
            cmp $stream.1 $stream.$jobs || { echo "by: $options -j $jobs"; exit 1; }
        done
    done
    [ -s out.1 ] && compared=$((compared + 1))
done <<'EOF'
unlimited json -q
unlimited html -v --columns=form,lemma,pos
unlimited html -l lexicon -v
unlimited json --format=conllu -l lexicon -v
unlimited json --strict
unlimited json --on-bad-token=fail --header
unlimited json --whole-sentences -v
100 json -q
EOF
[ "$compared" -eq 8 ]
