#!/usr/bin/env python3
"""Makes a corpus and its lexicon for measuring: DIR/corpus/*/*.xml and DIR/lexicon.txt. Same arguments, same files.

usage: make_corpus.py DIR TOKENS [LEXICON_LINES]

The words are inflected inventions. Their frequencies follow Zipf's law, as in running text, so that analyses repeat as
they do there. An eighth of the tokens is punctuation, a part of it without a tag; some words have several readings.
"""
import itertools
import os
import random
import sys

ONSETS = ["b", "c", "d", "f", "g", "l", "m", "n", "p", "r", "s", "t", "v", "pr", "tr", "st", "fl", "qu", "gr", "cl"]
VOWELS = ["a", "e", "i", "o", "u", "ae"]
CASES = ["NOMINATIVE", "GENITIVE", "DATIVE", "ACCUSATIVE", "ABLATIVE"]
NUMBERS = ["SINGULAR", "PLURAL"]
PERSONS = ["FIRST_PERSON", "SECOND_PERSON", "THIRD_PERSON"]
# kind: part of speech, lemma's part of speech, lemma ending, form endings
NOUN = ("Noun", "NN", "us", ["us", "i", "o", "um", "o", "i", "orum", "is", "os", "is"])
ADJECTIVE = ("Adjective", "ADJ", "is", ["is", "is", "i", "em", "i", "es", "ium", "ibus", "es", "ibus"])
VERB = ("Verb", "V", "o", ["o", "as", "at", "amus", "atis", "ant", "abam", "abas", "abat", "abamus", "abatis", "abant"])
ADVERB = ("Adverb", "ADV", "iter", ["iter"])
KINDS = [NOUN, NOUN, NOUN, ADJECTIVE, VERB, VERB, ADVERB]
PUNCTUATION = [",", ",", ",", ",", ";", ":", "(", ")"]
TOKENS_PER_FILE = 20000


def categories(kind, number):
    """Case, comparison degree, conjugation, declension, gender, mood, number, person, ..., tense, verb type, voice."""
    if kind is VERB:
        tense = "IMPERFECT" if number >= 6 else "PRESENT"
        return ["-", "-", "FIRST", "-", "-", "INDICATIVE", NUMBERS[number // 3 % 2], PERSONS[number % 3],
                kind[0], "-", tense, "REGULAR", "ACTIVE"]
    if kind is ADVERB:
        return ["-", "POSITIVE", "-", "-", "-", "-", "-", "-", kind[0], "-", "-", "-", "-"]
    degree, declension = ("-", "SECOND") if kind is NOUN else ("POSITIVE", "THIRD")
    return [CASES[number % 5], degree, "-", declension, "MASCULINE", "-", NUMBERS[number // 5], "-",
            kind[0], "-", "-", "-", "-"]


def forms(rng):
    """Endless (lemma id, lemma, form, kind, number of the form)."""
    seen = set()
    for lemma_id in itertools.count(1):
        stem = ""
        while not stem or stem in seen:
            stem = "".join(rng.choice(ONSETS) + rng.choice(VOWELS) for _ in range(rng.randint(1, 4))) + rng.choice(ONSETS)
        seen.add(stem)
        kind = rng.choice(KINDS)
        for number, ending in enumerate(kind[3]):
            yield lemma_id, stem + kind[2], stem + ending, kind, number


def write_lexicon(path, words):
    with open(path, "w", encoding="utf-8") as file:
        file.write("// superlemma, lemma, word form, categories, sources, bookkeeping\n")
        for word_id, (lemma_id, lemma, form, kind, number) in enumerate(words, 1):
            head = [lemma_id, lemma, kind[1], lemma_id, lemma, "bench", kind[1], word_id, form]
            tail = ["corpus,dictionary", "dictionary", "dictionary", word_id % 97, word_id % 13, "bench", "bench", "-", "bench"]
            file.write("#".join(map(str, head + categories(kind, number) + tail)) + "\n")


def token(words, index):
    """The w element of a word, with the other readings of its form that the lexicon puts beside it."""
    lemma_id, lemma, form, kind, _ = words[index]
    readings = [i + 1 for i in range(max(0, index - 11), min(len(words), index + 12))
                if words[i][0] == lemma_id and words[i][2] == form and i != index]
    ids = ",".join("{'id':%d,'frequency':%d}" % (i, i % 97) for i in [index + 1] + readings)
    analysis = "{'ls':[{'id':%d,'name':'%s','pos':'%s','wfs':[%s]}]}" % (lemma_id, lemma, kind[1], ids)
    return '<w lemma="(%s)" type="%s">%s</w>\n' % (analysis, kind[1], form)


def sentences(rng, words, tokens):
    """Sentences as lists of elements until there are enough tokens."""
    order = list(range(len(words)))
    rng.shuffle(order)
    weights = list(itertools.accumulate(1 / (rank + 2.7) for rank in range(1, len(words) + 1)))
    elements = {}
    while tokens > 0:
        length = min(60, 4 + int(rng.expovariate(1 / 12)))
        sentence = []
        for index in rng.choices(order, cum_weights=weights, k=length):
            if index not in elements:
                elements[index] = token(words, index)
            sentence.append(elements[index])
            if rng.random() < 0.07:
                sentence.append("<c>%s</c>\n" % rng.choice(PUNCTUATION))
        sentence.append("<c>.</c>\n")
        tokens -= len(sentence)
        yield sentence


def write_corpus(folder, stream):
    for part in itertools.count():
        sentence = next(stream, None)
        if sentence is None:
            return
        os.makedirs(os.path.join(folder, "%02d" % (part // 5)), exist_ok=True)
        with open(os.path.join(folder, "%02d" % (part // 5), "%03d.xml" % part), "w", encoding="utf-8") as file:
            file.write('<?xml version="1.0" encoding="UTF-8"?>\n<TEI xmlns="http://www.tei-c.org/ns/1.0"><text><body>\n')
            written = 0
            while sentence is not None:
                file.write("<s>\n" + "".join(sentence) + "</s>\n")
                written += len(sentence)
                sentence = next(stream, None) if written < TOKENS_PER_FILE else None
            file.write("</body></text></TEI>\n")


def main():
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    folder, tokens = sys.argv[1], int(sys.argv[2])
    lexicon_lines = int(sys.argv[3]) if len(sys.argv) == 4 else 20000
    rng = random.Random(2718)
    words = list(itertools.islice(forms(rng), lexicon_lines))
    os.makedirs(os.path.join(folder, "corpus"), exist_ok=True)
    write_lexicon(os.path.join(folder, "lexicon.txt"), words)
    write_corpus(os.path.join(folder, "corpus"), sentences(rng, words, tokens))


if __name__ == "__main__":
    main()
