# What the commands of the transcripts share.

# The program with a lexicon and without a report.
t() { tei2crf -qq -l lexicon "$@"; }

# The other program on one input, without its first line and what it complains of.
c() { TaggerFormatConverter -i "$1" -o out 2>/dev/null | tail -n +2; }

# lexicon_line ID LEMMA_POS POS
lexicon_line() { echo "0#s#sp#3#l#src#$2#$1#w#9#10#11#12#13#14#15#16#$3#18#19#20#21"; }

# word TEXT [ID [LEMMA]]
word() { printf "<w lemma=\"x{'ls':[{'name':'%s','wfs':[{'id':%s}]}]}x\">%s</w>" "${3-l}" "${2-17}" "$1"; }

# a OPTION... DOCUMENT: what comes out without a lexicon, in one line.
a() { echo "<t>${*: -1}</t>" | tei2crf -qq --columns=form,pos "${@:1:$#-1}" - 2>&1 | paste -sd'|'; }

# The command that a survey of standard input has to try.
s() { tei2crf --survey "$@" - | tail -1; }
