#!/bin/sh
# Stands in for a lemmatiser: INPUT MODEL SEG_MODEL 2 5 OUTPUT. MODEL is a table of the lines to print for the word
# forms that stand in INPUT, one a line; what was asked is noted in OUTPUT.
cat "$1" >>"$6"
while read -r word_form; do
    grep "^$word_form " "$2"
done <"$1"
