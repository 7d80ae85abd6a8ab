#!/usr/bin/env python3
"""usage: to_crfsuite.py <lines >crfsuite-data

Makes a line for CRFsuite of each token: the tag, which is the last column, and attributes of the form, which is the
first, separated by tabs. In these ":" begins a weight and "\\" escapes, so that both are escaped.
"""
import sys


def escaped(text):
    return text.replace("\\", "\\\\").replace(":", "\\:")


def attributes(forms, i):
    yield "w=" + forms[i]
    yield "suffix=" + forms[i].lower()[-3:]
    yield "before=" + forms[i - 1] if i > 0 else "first"
    yield "after=" + forms[i + 1] if i + 1 < len(forms) else "last"


def write(sentence):
    forms = [columns[0] for columns in sentence]
    for i, columns in enumerate(sentence):
        print("\t".join(map(escaped, [columns[-1], *attributes(forms, i)])))
    print()


def main():
    for stream in (sys.stdin, sys.stdout):  # lines end at LF only, whatever the locale
        stream.reconfigure(encoding="utf-8", errors="surrogateescape", newline="\n")
    sentence = []
    for line in sys.stdin:
        if line != "\n":
            sentence.append(line.removesuffix("\n").split(" "))
        elif sentence:
            write(sentence)
            sentence = []
    if sentence:
        write(sentence)


main()
