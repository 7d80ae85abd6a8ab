#!/usr/bin/env python3
"""Measures tei2crf on annotated corpora of several families beside its yardsticks, and several jobs beside one.

usage: attributes.py FOLDER [ROUNDS]    FOLDER for corpora and output; build/release must be there; default: 9 rounds
"""
import os
import statistics
import subprocess
import sys

from programs import ATTRIBUTES, ATTRIBUTES_SCRIPT, CORES, TEI2CRF, measure

SURVEY = [TEI2CRF[0], "--survey"]
CONLLU = [TEI2CRF[0], "-qq", "--format=conllu"]


def make(path, *arguments):
    with open(path, "wb") as file:
        subprocess.run([sys.executable, "-B", "bench/make_tei.py", *arguments], stdout=file, check=True)
    return path


def show(runs, what, yardstick, figure):
    """Ratios of two runs of the same round: seconds on the clock (0) or of the processor (1)."""
    ratios = sorted(a[figure] / b[figure] for a, b in zip(runs[what], runs[yardstick]))
    seconds = statistics.median(run[figure] for run in runs[what])
    print(f"{what + ' / ' + yardstick:<40} {seconds:7.3f} s {statistics.median(ratios):6.2f} ({ratios[0]:.2f} to {ratios[-1]:.2f})",
          flush=True)


def main():
    folder, rounds = sys.argv[1], int((sys.argv[2:] or ["9"])[0])
    os.makedirs(folder, exist_ok=True)
    for family in "latin", "epic", "parliament":
        path = make(f"{folder}/{family}.xml", f"--family={family}", "--no-entities", "300000")
        options = make(f"{folder}/options", f"--family={family}", "--options", "1")
        options = open(options, encoding="utf-8").read().split()
        script = [*ATTRIBUTES_SCRIPT, path, *(option.partition("=")[2] for option in options)]
        columns = [*ATTRIBUTES, "-j1", *options, path]
        if subprocess.check_output(script) != subprocess.check_output(columns):
            sys.exit(f"{family}: program and script disagree")
        print(f"{family}, {os.path.getsize(path) / 1e6:.0f} MB, seconds of the processor")
        runs = measure({"parse": ["xmllint", "--sax", "--noout", path], "script": script, "columns": columns,
                        "survey": [*SURVEY, path], "conllu": [*CONLLU, "-j1", *options, path]}, folder, rounds)
        for pair in ("columns", "parse"), ("columns", "script"), ("survey", "columns"), ("conllu", "columns"):
            show(runs, *pair, 1)
    files = [make(f"{folder}/{i}.xml", "--family=parliament", "--no-entities", f"--seed={i}", "50000") for i in range(10, 34)]
    for name, command in ("columns", ATTRIBUTES), ("conllu", CONLLU):
        print(f"24 files, {name}, seconds on the clock, {CORES} cores")
        runs = measure({f"-j{jobs}": [*command, f"-j{jobs}", *files] for jobs in (1, 2, 4)}, folder, rounds)
        show(runs, "-j2", "-j1", 0)
        show(runs, "-j4", "-j1", 0)


if __name__ == "__main__":
    main()
