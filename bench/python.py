"""Compares calls of the Python module with the same calls in C++, and with lxml, in turn; build/release/python is on
PYTHONPATH.

usage: python.py PYTHON_BENCH    (make bench builds it)
"""
import random
import statistics
import subprocess
import sys
import tempfile
import time

import tei_tokens
import zelvor

ROUNDS, QUERIES, LINES, TOKENS = 5, 20_000, 500_000, 300_000
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


def same(ours, others):
    """But for the names of namespaces and the line, which is that of the beginning there."""
    prefixes = {"xml:": "{http://www.w3.org/XML/1998/namespace}"}
    for mine, other in zip(ours, others):
        names = {prefixes.get(name[:4], "") + (name[4:] if name[:4] in prefixes else name): value for name, value in mine.attributes.items()}
        if (*mine[:5], names, mine.file) != other[:7]:
            raise SystemExit(f"not the same: {mine}, {other}")
    return len(ours) == len(others)


def read_corpora(folder):
    """Of lxml's time, that of read_tei; first, what both read must be the same."""
    ratios = []
    corpus = f"{folder}/corpus.xml"
    with open(corpus, "w") as out:
        make = [sys.executable, "-B", "bench/make_tei.py", "--family=parliament", "--no-entities", str(TOKENS)]
        subprocess.run(make, stdout=out, check=True)
    assert all(same(*both) for both in zip(zelvor.read_tei(corpus), tei_tokens.read(corpus), strict=True))
    for _ in range(ROUNDS):
        (ours, tokens), (others, expected) = (processor_seconds(lambda: sum(map(len, read(corpus))))
                                              for read in (zelvor.read_tei, tei_tokens.read))
        assert tokens == expected
        print(f"read_tei: {ours * 1e6 / tokens:.2f} µs a token, lxml's iterparse {others * 1e6 / tokens:.2f} µs")
        ratios.append(ours / others)
    verdict("Python: read_tei, of lxml's iterparse with the same tokens", ratios, 0.33)


def main():
    rng = random.Random(1)
    words = read_nouns()
    queries = [misread(rng, rng.choice(words)) for _ in range(QUERIES)]
    fuzzy, read = [], []
    with tempfile.TemporaryDirectory() as folder:
        read_corpora(folder)
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
