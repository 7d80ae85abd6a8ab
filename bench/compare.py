#!/usr/bin/env python3
"""Runs the converter and its yardsticks in turn, several rounds, and prints medians, ratios and memory.

usage: compare.py FOLDER ROUNDS    FOLDER as bench/converter.sh prepares it; standard output goes to files in it
"""
import glob
import os
import statistics
import sys
import time

TOOL = ["build/release/tools/TaggerFormatConverter", "-i"]
LIBRARY = ["build/release/examples/convert_with_lexicon"]
SCRIPT = [sys.executable, "bench/convert.py"]


def run(command, output):
    """Seconds on the clock, in the program and in the kernel, and peak memory in bytes."""
    file = os.open(output, os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
    begin = time.perf_counter()
    child = os.posix_spawnp(command[0], command, os.environ, file_actions=[(os.POSIX_SPAWN_DUP2, file, 1)])
    _, status, usage = os.wait4(child, 0)
    seconds = time.perf_counter() - begin
    os.close(file)
    if status != 0:
        sys.exit("failed: " + " ".join(command[:6]))
    return seconds, usage.ru_utime, usage.ru_stime, usage.ru_maxrss * 1024


def measure(commands, folder, rounds):
    """Every command once a round, so that a slow moment of the machine meets all of them; then medians."""
    results = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            results[name].append(run(command, os.path.join(folder, "output")))
    return {name: tuple(map(statistics.median, zip(*runs))) for name, runs in results.items()}


def verdict(results, what, yardstick, limit, text):
    ratio = results[what][0] / results[yardstick][0]
    print(f"{text:<58} {ratio:6.2f}   wanted {limit:4.2f} or less{'' if ratio <= limit else '   MISSED'}")


def main():
    folder, rounds = sys.argv[1], int(sys.argv[2])
    corpus, lexicon = folder + "/sample/corpus", folder + "/sample/lexicon.txt"
    large, empty, separators = folder + "/large/lexicon.txt", folder + "/empty", folder + "/separators"
    documents = sorted(glob.glob(corpus + "/*/*.xml"))
    commands = {
        "parse only: xmllint --sax": ["xmllint", "--sax", "--noout", *documents],
        "tool, empty lexicon": [*TOOL, corpus, "-o", separators],
        "library, with lexicon": [*LIBRARY, corpus, lexicon, separators],
        "script, with lexicon": [*SCRIPT, lexicon, corpus],
        "library, lexicon alone": [*LIBRARY, empty, lexicon, separators],
        "library, large lexicon alone": [*LIBRARY, empty, large, separators],
        "script, large lexicon alone": [*SCRIPT, large, empty],
        "tool, nothing to do": [*TOOL, empty, "-o", separators],
        "script, nothing to do": [*SCRIPT, "/dev/null", empty],
    }
    parse, tool, library, script, small, load, script_load, tool_start, script_start = commands
    results = measure(commands, folder, rounds)

    size = sum(map(os.path.getsize, documents)) / 1e6
    tokens = sum(open(path, encoding="utf-8").read().count(f"</{name}>") for path in documents for name in "wc")
    entries = sum(not line.startswith("//") for line in open(large, encoding="utf-8"))
    print(f"{tokens} tokens in {len(documents)} files, {size:.0f} MB; large lexicon: {entries} entries; medians of {rounds}\n")
    print(f"{'':<32} {'seconds':>8} {'user':>6} {'system':>6} {'of script':>10} {'of parse':>9} {'peak MB':>8}")
    for name, (seconds, user, system, memory) in results.items():
        print(f"{name:<32} {seconds:8.3f} {user:6.2f} {system:6.2f} {seconds / results[script][0]:10.2f} "
              f"{seconds / results[parse][0]:9.2f} {memory / 1e6:8.0f}")

    print()
    verdict(results, tool, script, 0.25, "the tool, as a part of the script's time")
    verdict(results, tool, parse, 4, "the tool, as a multiple of parsing alone")
    verdict(results, library, script, 0.5, "with the lexicon, as a part of the script's time")
    verdict(results, load, script_load, 1 / 3, "loading the large lexicon, as a part of the script's time")
    print(f"\nmemory: {(results[library][3] - results[small][3]) / tokens:.0f} bytes a token with the lexicon, "
          f"{(results[tool][3] - results[tool_start][3]) / tokens:.0f} without; "
          f"{(results[load][3] - results[tool_start][3]) / entries:.0f} bytes a lexicon entry "
          f"(script: {(results[script_load][3] - results[script_start][3]) / entries:.0f})")


if __name__ == "__main__":
    main()
