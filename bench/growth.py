#!/usr/bin/env python3
"""Shows how the cost of one unit grows with the amount of work: a table, and a picture if a file is named for it.

usage: growth.py FOLDER [PICTURE.svg]    FOLDER as bench/growth.sh prepares it: corpora "1", "2" and "4", lexicon.txt
"""
import collections
import os
import subprocess
import sys

from programs import run, verdict

ROUNDS = 5
COLORS = ["#1b6ca8", "#d1495b", "#2e8b57", "#edae49", "#6a4c93", "#8d6e63", "#00838f", "#c2185b", "#558b2f", "#5d4037", "#455a64"]


def conversions(folder):
    """The programs, on corpora of n, 2 n and 4 n tokens; memory beside it, in bytes."""
    programs = {
        "tei2crf": ["build/release/tools/tei2crf", "-qq", "-l", folder + "/lexicon.txt"],
        "TaggerFormatConverter": ["build/release/tools/TaggerFormatConverter", "-o", folder + "/separators", "-i"],
    }
    for name, command in programs.items():
        for size in "124":
            corpus = os.path.join(folder, size)
            tokens = int(open(corpus + ".tokens", encoding="utf-8").read())
            runs = [run([*command, corpus], folder + "/output") for _ in range(ROUNDS)]
            yield name, "token", tokens, min(processor for _, processor, _, _ in runs) * 1e9 / tokens, runs[0][3]


def operations(folder):
    report = subprocess.run(["build/release/bench/growth_bench"], check=True, text=True, stdout=subprocess.PIPE)
    for line in report.stdout.splitlines():
        name, unit, units, nanoseconds = line.split("\t")
        yield name, unit, int(units), float(nanoseconds), None


def picture(results):
    """Cost relative to that at n, over the amount; a flat line is work that takes as long as there is of it."""
    top = max(3, max(points[-1][1] / points[0][1] for points in results.values()))
    left, right, bottom, height, step = 50, 330, 290, 250, 140

    def place(i, cost):
        return f"{left + i * step},{bottom - cost / top * height:.1f}"

    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 620 330" font-family="sans-serif" font-size="12">',
             '<rect width="620" height="330" fill="white"/>',
             f'<text x="{left - 40}" y="20">cost of one unit, as a multiple of that at n</text>']
    for cost in range(int(top) + 1):
        y = bottom - cost / top * height
        parts.append(f'<path d="M{left} {y:.1f}H{right}" stroke="#ddd"/><text x="{left - 15}" y="{y + 4:.1f}" text-anchor="end">{cost}</text>')
    for i, label in enumerate(["n", "2 n", "4 n"]):
        parts.append(f'<text x="{left + i * step}" y="{bottom + 18}" text-anchor="middle">{label}</text>')
    by_end = sorted(results.items(), key=lambda item: item[1][-1][1] / item[1][0][1], reverse=True)
    for row, ((name, points), color) in enumerate(zip(by_end, COLORS)):
        line = " ".join(place(i, cost / points[0][1]) for i, (_, cost) in enumerate(points))
        y = 50 + row * 22
        parts.append(f'<polyline points="{line}" fill="none" stroke="{color}" stroke-width="2"/>'
                     f'<path d="M{right + 20} {y - 4}h20" stroke="{color}" stroke-width="2"/>'
                     f'<text x="{right + 46}" y="{y}">{name}: {points[-1][1] / points[0][1]:.2f}</text>')
    return "\n".join(parts + ["</svg>"]) + "\n"


def main():
    folder = sys.argv[1]
    results = collections.defaultdict(list)
    print(f"{'':<26} {'unit':<20} {'units':>9} {'ns a unit':>10} {'of n':>6} {'peak MB':>8}")
    for measured in (conversions(folder), operations(folder)):
        for name, unit, units, cost, memory in measured:
            points = results[name]
            points.append((units, cost))
            peak = f"{memory / 1e6:8.1f}" if memory else ""
            print(f"{name:<26} {unit:<20} {units:>9} {cost:>10.1f} {cost / points[0][1]:>6.2f} {peak}", flush=True)
    print()
    for name, points in results.items():
        verdict(f"{name}: a unit at 4 n / at n", points[-1][1] / points[0][1], 2)
    if len(sys.argv) > 2:
        with open(sys.argv[2], "w", encoding="utf-8") as file:
            file.write(picture(results))


main()
