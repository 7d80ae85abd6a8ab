#!/usr/bin/env python3
"""usage: add_suffix.py <lines >lines

Puts a column before the last one: the last three characters of the first one, in lower case.
"""
import sys


def main():
    for stream in (sys.stdin, sys.stdout):  # lines end at LF only, whatever the locale
        stream.reconfigure(encoding="utf-8", errors="surrogateescape", newline="\n")
    for line in sys.stdin:
        columns = line.removesuffix("\n").split(" ")
        if columns != [""]:
            columns.insert(-1, columns[0].lower()[-3:])
        print(" ".join(columns))


main()
