"""Compares calls of the Python module with the same calls in C++, in turn; build/release/python is on PYTHONPATH.

usage: python.py PYTHON_BENCH    (make bench builds it)
"""
import random
import statistics
import subprocess
import sys
import tempfile
import time

import zelvor

ROUNDS, QUERIES, LINES = 5, 20_000, 500_000
NOUNS = "/usr/share/wordnet/index.noun"


def read_nouns():
    with open(NOUNS, encoding="utf-8") as file:
        return [line.split(" ", 1)[0].replace("_", " ") for line in file if not line.startswith(" ")]


def misread(rng, word):
    at = rng.randrange(len(word))
    return word[:at] + rng.choice("aeioubcdlmnrst") + word[at + 1:]


def write_lexicon(path):
    rest = "#NOMINATIVE#-#-#FIRST#FEMININE#-#SINGULAR#-#Noun#-#-#-#-#bench#bench#bench#1#1#me#me#-#bench\n"
    with open(path, "w") as file:
        for i in range(LINES):
            lemma = i // 20
            file.write(f"{lemma}#lemma{lemma}#NN#{lemma}#lemma{lemma}#bench#NN#{i}#lemma{lemma}e{i % 20}{rest}")


def processor_seconds(work):
    start = time.process_time()
    result = work()
    return time.process_time() - start, result


def in_python(trie, queries, lexicon):
    fuzzy, found = processor_seconds(lambda: sum(len(trie.fuzzy(query)) for query in queries))

    def read():
        return zelvor.Lexicon().read(lexicon)  # freed inside, as in C++

    seconds, lines = processor_seconds(read)
    return fuzzy * 1e9 / len(queries), seconds * 1e9, found, lines


def verdict(what, ratios, wanted):
    ratio = statistics.median(ratios)
    missed = "" if ratio <= wanted else "   MISSED"
    print(f"{what:64} {ratio:8.2f}   wanted: at most {wanted:g}{missed}")


def main():
    rng = random.Random(1)
    words = read_nouns()
    queries = [misread(rng, rng.choice(words)) for _ in range(QUERIES)]
    fuzzy, read = [], []
    with tempfile.TemporaryDirectory() as folder:
        files = [f"{folder}/{name}" for name in ("words", "queries", "lexicon")]
        for file, lines in zip(files, (words, queries)):
            with open(file, "w") as out:
                out.write("".join(line + "\n" for line in lines))
        write_lexicon(files[2])
        trie = zelvor.Trie(words)
        for _ in range(ROUNDS):
            cpp = [float(x) for x in subprocess.check_output([sys.argv[1], *files], text=True).split()]
            python = in_python(trie, queries, files[2])
            assert cpp[2:] == list(python[2:]), (cpp, python)
            fuzzy.append(python[0] / cpp[0])
            read.append(python[1] / cpp[1])
            print(f"fuzzy: C++ {cpp[0]:.0f} ns, Python {python[0]:.0f} ns; read: {cpp[1] / 1e9:.2f} s, {python[1] / 1e9:.2f} s")
    verdict("Python: Trie.fuzzy, budget 1, WordNet's nouns, of the C++ call", fuzzy, 1.3)
    verdict("Python: Lexicon.read of 500,000 lines, of the C++ call", read, 1.1)


main()
