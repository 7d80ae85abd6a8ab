#!/usr/bin/env python3
"""Runs tei2crf and its yardsticks in turn, several rounds, and prints medians, ratios and memory.

usage: compare_tei2crf.py FOLDER ROUNDS    FOLDER as bench/tei2crf.sh prepares it; standard output goes to a file in it
"""
import glob
import os
import sys

from compare import SCRIPT, measure, verdict

TOOL = ["build/release/tools/tei2crf", "-qq", "-l"]


def main():
    folder, rounds = sys.argv[1], int(sys.argv[2])
    corpus, lexicon, large = folder + "/sample/corpus", folder + "/sample/lexicon.txt", folder + "/large/lexicon.txt"
    tenfold, empty = folder + "/tenfold", folder + "/empty.xml"
    documents, all_documents = (sorted(glob.glob(path, recursive=True)) for path in (corpus + "/*/*.xml", tenfold + "/**/*.xml"))
    commands = {
        "parse only: xmllint --sax": ["xmllint", "--sax", "--noout", *documents],
        "tei2crf": [*TOOL, lexicon, corpus],
        "script": [*SCRIPT, lexicon, corpus],
        "parse only, tenfold corpus": ["xmllint", "--sax", "--noout", *all_documents],
        "tei2crf, tenfold corpus": [*TOOL, lexicon, tenfold],
        "tei2crf, large lexicon alone": [*TOOL, large, empty],
    }
    parse, tool, script, parse_ten, tool_ten, load = commands
    results = measure(commands, folder, rounds)

    size = sum(map(os.path.getsize, documents)) / 1e6
    lines = sum(1 for _ in open(large, encoding="utf-8"))
    print(f"{len(documents)} files, {size:.0f} MB; large lexicon: {lines} lines; medians of {rounds}\n")
    print(f"{'':<32} {'seconds':>8} {'of parse':>9} {'peak MB':>8}")
    for name, (seconds, _, _, memory) in results.items():
        yardstick = parse_ten if "tenfold" in name else parse
        print(f"{name:<32} {seconds:8.3f} {seconds / results[yardstick][0]:9.2f} {memory / 1e6:8.1f}")

    print()
    verdict(results, tool, parse, 3, "tei2crf, as a multiple of parsing alone")
    verdict(results, tool_ten, parse_ten, 3, "the same on the tenfold corpus")
    verdict(results, tool, script, 0.2, "tei2crf, as a part of the script's time")
    print(f"\nmemory: less than {results[load][3] / lines:.0f} bytes a line of the large lexicon; "
          f"{(results[tool_ten][3] - results[tool][3]) / 1e6:.1f} MB more for the tenfold corpus")


main()
