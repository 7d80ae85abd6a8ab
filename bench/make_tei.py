#!/usr/bin/env python3
"""Makes a TEI document with annotated tokens, encoded as one family of public corpora does it. Same arguments, same bytes.

usage: make_tei.py --family=NAME [--seed=N] [--odd=PERCENT] [--no-entities] [--prefix=NAME] TOKENS >corpus.xml
       make_tei.py --family=NAME --options      what tei2crf needs to read such a corpus, a line an option

--odd          tokens with entities, CDATA, comments, missing or empty attributes, or without text, in per cent; default 1
--no-entities  without a document type and the entities that it declares
--prefix       elements as tei:w instead of w

The words are inflected inventions, as frequent as in running text; an eighth of the tokens is punctuation.
"""
import argparse
import itertools
import random
import re
import sys
from typing import NamedTuple

from make_corpus import ADJECTIVE, ADVERB, NOUN, VERB, forms

LEXICON = 20000
# kind: universal tag, beginning of the positional tag, tag of Latin and French corpora, Brown tag, BNC tag
TAGS = {NOUN[1]: ("NOUN", "Nc", "NOMcom", "NN", "NN1"), ADJECTIVE[1]: ("ADJ", "Af", "ADJqua", "JJ", "AJ0"),
        VERB[1]: ("VERB", "Vm", "VERcjg", "VB", "VVB"), ADVERB[1]: ("ADV", "Rg", "ADVgen", "RB", "AV0")}
CASES, NUMBERS = ["Nom", "Gen", "Dat", "Acc", "Abl"], ["Sing", "Plur"]
DECORATIONS = [lambda t: f"{t[0]}<ex>{t[1:]}</ex>", lambda t: f'{t[:2]}<lb break="no"/>{t[2:]}', lambda t: f"<hi>{t[0]}</hi>{t[1:]}",
               lambda t: f"<choice><orig>{t.replace('v', 'u')}</orig><reg>{t}</reg></choice>", lambda t: f"{t}<note>sic <w>p</w></note>",
               lambda t: f"{t[0]}<choice><abbr>~</abbr><expan>{t[1:]}</expan></choice>", lambda t: f"<del>{t[0]}</del>{t}<gap/>"]
ODDITIES = [lambda a, t: (a, f"{t[:1]}<![CDATA[{t[1:]}]]>"), lambda a, t: (a, f"{t[:1]}<!-- unclear -->{t[1:]}<?check?>"),
            lambda a, t: ({}, t), lambda a, t: ({name: a[name] if name.endswith("id") else "" for name in a}, t),
            lambda a, t: (a, f"{t}\n  {t}"), lambda a, t: (a, "")]
WITH_ENTITIES = [*ODDITIES, lambda a, t: (a, t.replace("ae", "&ae;") + "&dash;")]
DOCTYPE = '<!DOCTYPE %sTEI [<!ENTITY ae "æ"><!ENTITY dash "-">]>\n'


class Word(NamedTuple):
    """A word or a punctuation mark."""
    form: str
    lemma: str
    upos: str
    position: str  # positional tag
    french: str
    brown: str
    bnc: str
    feats: str


def word(lemma_id, lemma, form, kind, number):
    upos, position, *others = TAGS[kind[1]]
    if kind is VERB:
        feats = f"Mood=Ind|Number={NUMBERS[number // 3 % 2]}|Person={number % 3 + 1}|Tense={'Imp' if number >= 6 else 'Pres'}"
    elif kind is ADVERB:
        feats = "Degree=Pos"
    else:
        feats = f"Case={CASES[number % 5]}|Gender=Masc|Number={NUMBERS[number // 5]}"
        position += f"m{NUMBERS[number // 5][0].lower()}{CASES[number % 5][0].lower()}"
    return Word(form, lemma + ("" if lemma_id % 9 else "2"), upos, position, *others, feats)


def mark(form):
    return Word(form, form, "PUNCT", "Z", "PONfrt" if form == "." else "PONfbl", "pct", "PUN", "")


class Maker:
    """Elements, some of them odd, with numbers that go on through the document."""

    def __init__(self, rng, odd, oddities):
        self.rng, self.odd, self.oddities, self.count = rng, odd / 100, oddities, itertools.count(1)

    def __call__(self, name, attributes, content):
        if "<" not in content and self.rng.random() < self.odd:
            attributes, content = self.rng.choice(self.oddities)(attributes, content)
        head = " ".join([name, *(f'{key}="{value}"' for key, value in attributes.items())])
        return f"<{head}>{content}</{name}>" if content else f"<{head}/>"


def latin(make, words):
    number = next(make.count)
    tokens = [make("w", {"rend": "verse", "n": f"1.{number}", "pos": w.french if w.feats else "PUNC", "msd": w.feats, "lemma": w.lemma}, w.form)
              for w in words]
    around = "<ab/>\n<ab>%s</ab>" if make.rng.random() < 0.05 else "%s"
    return around % ('<ab type="verse">' + " ".join(tokens) + "</ab>") + "\n"


def epic(make, words):
    tokens = []
    for w in words:
        text = make.rng.choice(DECORATIONS)(w.form) if w.feats and make.rng.random() < 0.15 else w.form
        if w.feats:
            msd = w.feats.replace("Number", "NOMB.").replace("Sing", "s").replace("Plur", "p")
            token = make("w", {"lemma": w.lemma, "pos": w.french, "msd": msd, "ana": "#X_r", "xml:id": f"w{next(make.count)}"}, text)
        else:
            token = make("pc", {"type": "supplied", "lemma": w.lemma, "pos": w.french}, text)
        tokens.append(f"<persName>{token}</persName>" if make.rng.random() < 0.03 else token)
    return f"<l>{' '.join(tokens)}</l>\n"


def parliament(make, words):
    sentence, tokens, links = f"s{next(make.count)}", [], []
    for number, w in enumerate(words, 1):
        here = f"{sentence}.w{number}"
        attributes = {"xml:id": here, "msd": f"UPosTag={w.upos}|{w.feats}".rstrip("|"), "ana": "mte:" + w.position}
        if w.feats:
            attributes["lemma"] = w.lemma
        if number < len(words) and not words[number].feats:
            attributes["join"] = "right"
        token = make("w" if w.feats else "pc", attributes, w.form)
        if w.feats and make.rng.random() < 0.01:
            token = "".join((f'<w xml:id="{here}x">mecum', f'<w xml:id="{here}a" norm="me" lemma="ego" msd="UPosTag=PRON|Case=Abl"/>',
                             f'<w xml:id="{here}b" norm="cum" lemma="cum" msd="UPosTag=ADP"/></w>'))
        tokens.append(f'<name type="PER">{token}</name>' if make.rng.random() < 0.03 else token)
        links.append(f'<link ana="ud-syn:nsubj" target="#{sentence} #{here}"/>')
    note = '<note type="time">hora <w lemma="x">x</w></note>' if make.rng.random() < 0.02 else ""
    return (f'<u who="#A"><seg><s xml:id="{sentence}">\n' + "\n".join(tokens) + f'\n{note}<linkGrp type="UD-SYN" targFunc="head argument">\n'
            + "\n".join(links) + "\n</linkGrp></s></seg></u>\n")


def brown(make, words):
    tokens = [make("w", {"type": w.brown, "subtype": "TL"} if w.form.istitle() else {"type": w.brown}, w.form) if w.feats else
              make("c", {"type": w.brown}, w.form) for w in words]
    return f'<s n="{next(make.count)}">{" ".join(tokens)} </s>\n'


def bnc(make, words):
    tokens = [make("w", {"c5": w.bnc, "hw": w.lemma, "pos": w.upos}, w.form + " ") if w.feats else make("c", {"c5": w.bnc}, w.form + " ")
              for w in words]
    return f'<s n="{next(make.count)}">{"".join(tokens)}</s>\n'


def prints(make, words):
    tokens = []
    for w in words:
        here = f"A1-001-a-{next(make.count):04d}0"
        if w.feats:
            tokens.append(make("w", {"lemma": w.lemma, "pos": w.position, "reg": w.form, "xml:id": here}, w.form.replace("v", "u")))
        else:
            tokens.append(make("pc", {"unit": "sentence", "xml:id": here} if w.form == "." else {"xml:id": here}, w.form))
    return f"<p>{'<c> </c>'.join(tokens)}</p>\n"


def editor(make, words):
    tokens = []
    for w in words:
        here, text = f"w-{next(make.count)}", w.form
        attributes = {"id": here, "lemma": w.lemma, "pos": w.french}
        if w.feats and make.rng.random() < 0.1:
            attributes.update(form=text[:2], nform=text)
            text = f"{text[:1]}<ex>{text[1:]}</ex>"
        elif w.feats and make.rng.random() < 0.01:
            text = f'mecum<dtok id="{here}-1" form="me" lemma="ego" pos="PRO"/><dtok id="{here}-2" form="cum" lemma="cum" pos="PRE"/>'
        tokens.append(make("tok", attributes, text))
    return f'<s id="s-{next(make.count)}">{" ".join(tokens)}</s>\n'


def pointers(make, words):
    tokens = [make("w", {"ana": "#" + w.position, "lemma": w.lemma}, w.form) if w.feats else make("pc", {}, w.form) for w in words]
    return f"<s>{' '.join(tokens)}</s>\n"


def plain(make, words):
    return f'<p n="{next(make.count)}">{" ".join(w.form for w in words)}</p>\n'


# family: its sentences, the options that it needs
FAMILIES = {
    "latin": (latin, ["--sentence=ab"]), "epic": (epic, ["--sentence=l"]), "parliament": (parliament, []), "brown": (brown, []),
    "bnc": (bnc, ["--pos=c5", "--lemma=hw"]), "prints": (prints, ["--sentence=body", "--break=."]),
    "editor": (editor, ["--word=tok,dtok", "--form=text,form"]), "pointers": (pointers, []), "plain": (plain, []),
}


def sentences(rng, tokens):
    """Sentences as lists of words until there are enough tokens."""
    words = [word(*row) for row in itertools.islice(forms(rng), LEXICON)]
    rng.shuffle(words)
    weights = list(itertools.accumulate(1 / (rank + 2.7) for rank in range(1, len(words) + 1)))
    marks = [mark(form) for form in ",,,;:"]
    while tokens > 0:
        sentence = []
        for chosen in rng.choices(words, cum_weights=weights, k=min(60, tokens, 4 + int(rng.expovariate(1 / 12)))):
            sentence += [chosen, rng.choice(marks)] if rng.random() < 0.07 else [chosen]
        sentence[0] = sentence[0]._replace(form=sentence[0].form.capitalize())
        sentence.append(mark("."))
        tokens -= len(sentence)
        yield sentence


def main():
    parser = argparse.ArgumentParser(usage=__doc__.partition("usage: ")[2])
    parser.add_argument("--family", choices=FAMILIES, required=True)
    parser.add_argument("--seed", type=int, default=2718)
    parser.add_argument("--odd", type=float, default=1)
    parser.add_argument("--no-entities", action="store_true")
    parser.add_argument("--prefix")
    parser.add_argument("--options", action="store_true")
    parser.add_argument("tokens", type=int, nargs="?", default=0)
    arguments = parser.parse_args()
    make_sentence, options = FAMILIES[arguments.family]
    if arguments.options:
        print(*options, sep="\n")
        return
    rng = random.Random(arguments.seed)
    make = Maker(rng, arguments.odd, ODDITIES if arguments.no_entities else WITH_ENTITIES)
    prefix = arguments.prefix + ":" if arguments.prefix else ""
    namespace = "" if arguments.family == "bnc" and not prefix else f' xmlns{":" * bool(prefix)}{prefix[:-1]}="http://www.tei-c.org/ns/1.0"'

    def write(text):
        sys.stdout.write(re.sub(r"<(/?)(?=\w)", rf"<\1{prefix}", text) if prefix else text)
    sys.stdout.reconfigure(encoding="utf-8")
    write('<?xml version="1.0" encoding="UTF-8"?>\n' + ("" if arguments.no_entities else DOCTYPE % prefix)
          + f"<TEI{namespace}>\n<teiHeader><title>A <w>made-up</w> text</title></teiHeader>\n<text><body>\n")
    for words in sentences(rng, arguments.tokens):
        write(make_sentence(make, words))
    write("</body></text>\n</TEI>\n")


if __name__ == "__main__":
    main()
