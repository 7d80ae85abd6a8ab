#!/usr/bin/env python3
"""Runs the programs and their yardsticks in turn, several rounds, and prints medians, ratios and memory.

usage: programs.py FOLDER ROUNDS    FOLDER as bench/programs.sh prepares it; standard output goes to files in it
"""
import glob
import os
import statistics
import sys
import time

TOOL = ["build/release/tools/TaggerFormatConverter", "-i"]
LIBRARY = ["build/release/examples/convert_with_lexicon"]
TEI2CRF = ["build/release/tools/tei2crf", "-qq", "-j1", "-l"]
SCRIPT = [sys.executable, "bench/convert.py"]
ATTRIBUTES = ["build/release/tools/tei2crf", "-qq", "--columns=form,lemma,pos,feats"]
CORES = len(os.sched_getaffinity(0))
ATTRIBUTES_SCRIPT = ["/usr/bin/python3", "bench/tei_columns.py"]  # the interpreter that has Debian's lxml


def run(command, output):
    """Seconds on the clock and of the processor, the kernel's among them, and peak memory in bytes."""
    peak = output + ".peak"  # by GNU time: wait4 would count this script's own memory, too
    command = ["/usr/bin/time", "-f", "%M", "-o", peak, *command]
    file = os.open(output, os.O_WRONLY | os.O_CREAT | os.O_TRUNC)
    begin = time.perf_counter()
    child = os.posix_spawn(command[0], command, os.environ, file_actions=[(os.POSIX_SPAWN_DUP2, file, 1)])
    _, status, usage = os.wait4(child, 0)
    seconds = time.perf_counter() - begin
    os.close(file)
    if status != 0:
        sys.exit("failed: " + " ".join(command[5:10]))
    with open(peak, encoding="utf-8") as kilobytes:
        return seconds, usage.ru_utime + usage.ru_stime, usage.ru_stime, int(kilobytes.read()) * 1024


def measure(commands, folder, rounds):
    """Every command once a round, so that a slow moment of the machine meets all of them."""
    results = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            results[name].append(run(command, os.path.join(folder, "output")))
    return results


def verdict(text, ratio, limit):
    """A ratio beside its limit, in the form that bench/run.sh gathers."""
    print(f"{text:<64} {ratio:8.2f}   wanted: at most {limit:g}{'' if ratio <= limit else '   MISSED'}")


def main():
    folder, rounds = sys.argv[1], int(sys.argv[2])
    corpus, lexicon = folder + "/sample/corpus", folder + "/sample/lexicon.txt"
    large, empty, separators = folder + "/large/lexicon.txt", folder + "/empty", folder + "/separators"
    tenfold, annotated = folder + "/tenfold", folder + "/annotated.xml"
    files = sorted(glob.glob(folder + "/files/*.xml"))
    documents, all_documents = (sorted(glob.glob(path, recursive=True)) for path in (corpus + "/*/*.xml", tenfold + "/**/*.xml"))
    commands = {
        "parse only: xmllint --sax": ["xmllint", "--sax", "--noout", *documents],
        "script, with lexicon": [*SCRIPT, lexicon, corpus],
        "tool, empty lexicon": [*TOOL, corpus, "-o", separators],
        "library, with lexicon": [*LIBRARY, corpus, lexicon, separators],
        "tei2crf": [*TEI2CRF, lexicon, corpus],
        "parse only, tenfold corpus": ["xmllint", "--sax", "--noout", *all_documents],
        "tei2crf, tenfold corpus": [*TEI2CRF, lexicon, tenfold],
        "script, large lexicon alone": [*SCRIPT, large, empty],
        "library, large lexicon alone": [*LIBRARY, empty, large, separators],
        "tei2crf, large lexicon alone": [*TEI2CRF, large, folder + "/empty.xml"],
        "library, lexicon alone": [*LIBRARY, empty, lexicon, separators],
        "tool, nothing to do": [*TOOL, empty, "-o", separators],
        "script, nothing to do": [*SCRIPT, "/dev/null", empty],
        "parse only, annotated corpus": ["xmllint", "--sax", "--noout", annotated],
        "lxml script, annotated corpus": [*ATTRIBUTES_SCRIPT, annotated],
        "tei2crf, annotated corpus": [*ATTRIBUTES, annotated],
        "parse only, 24 files": ["xmllint", "--sax", "--noout", *files],
        "tei2crf, 24 files, one job": [*ATTRIBUTES, "-j1", *files],
        f"tei2crf, 24 files, {CORES} jobs": [*ATTRIBUTES, f"-j{CORES}", *files],
    }
    (parse, script, tool, library, tei2crf, parse_ten, tei2crf_ten, script_load, load, tei2crf_load, small, tool_start,
     script_start, parse_annotated, script_annotated, tei2crf_annotated, parse_files, one_job, all_jobs) = commands
    runs = measure(commands, folder, rounds)
    medians = {name: tuple(map(statistics.median, zip(*its_runs))) for name, its_runs in runs.items()}

    def ratio(what, yardstick):
        """Of processor time, round by round: the two runs were close together."""
        return statistics.median(a[1] / b[1] for a, b in zip(runs[what], runs[yardstick]))

    def clock_ratio(what, yardstick):
        return statistics.median(a[0] / b[0] for a, b in zip(runs[what], runs[yardstick]))

    size = sum(map(os.path.getsize, documents)) / 1e6
    tokens = sum(open(path, encoding="utf-8").read().count(f"</{name}>") for path in documents for name in "wc")
    entries = sum(not line.startswith("//") for line in open(large, encoding="utf-8"))
    print(f"{tokens} tokens in {len(documents)} files, {size:.0f} MB; large lexicon: {entries} entries; medians of {rounds}\n")
    print(f"{'':<32} {'seconds':>8} {'of processor':>13} {'of kernel':>10} {'peak MB':>8}")
    for name, (seconds, processor, kernel, memory) in medians.items():
        print(f"{name:<32} {seconds:8.3f} {processor:13.3f} {kernel:10.3f} {memory / 1e6:8.1f}")

    def bytes_each(what, start, count):
        return f"{(medians[what][3] - medians[start][3]) / count:.0f}"

    print(f"\nmemory: {bytes_each(library, small, tokens)} bytes a token with the lexicon, "
          f"{bytes_each(tool, tool_start, tokens)} without; {bytes_each(load, tool_start, entries)} bytes a lexicon entry "
          f"(script: {bytes_each(script_load, script_start, entries)}, tei2crf: {bytes_each(tei2crf_load, tool_start, entries)}); "
          f"tei2crf: {(medians[tei2crf_ten][3] - medians[tei2crf][3]) / 1e6:.1f} MB more for the tenfold corpus\n")
    verdict("TaggerFormatConverter / script", ratio(tool, script), 0.25)
    verdict("TaggerFormatConverter / xmllint --sax", ratio(tool, parse), 4)
    verdict("library with lexicon / script", ratio(library, script), 0.5)
    verdict("library, loading the large lexicon / script", ratio(load, script_load), 0.33)
    verdict("tei2crf / script", ratio(tei2crf, script), 0.2)
    verdict("tei2crf / xmllint --sax", ratio(tei2crf, parse), 3)
    verdict("tei2crf / xmllint --sax, tenfold corpus", ratio(tei2crf_ten, parse_ten), 3)
    verdict("tei2crf without a lexicon / xmllint --sax", ratio(tei2crf_annotated, parse_annotated), 2.5)
    verdict("tei2crf without a lexicon / lxml script", ratio(tei2crf_annotated, script_annotated), 0.2)
    if CORES > 1:
        verdict(f"on the clock: {CORES} jobs / one", clock_ratio(all_jobs, one_job), 0.34 if CORES >= 4 else 0.59)
    if CORES >= 4:
        verdict(f"on the clock: {CORES} jobs / xmllint --sax", clock_ratio(all_jobs, parse_files), 1)


if __name__ == "__main__":
    main()
