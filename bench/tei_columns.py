#!/usr/bin/env python3
"""The yardstick: training data from the attributes of a TEI document, as a short script over lxml makes them.

usage: tei_columns.py FILE [SENTENCE]

Writes form, lemma, tag and features of each token and an empty line after each sentence to standard output. A sentence
is an s, or an element of the given name, a token a w, pc or c; a w in a w is a token instead of it. The script keeps
one sentence in memory.
"""
import re
import sys

from lxml import etree

SKIP = {"note", "fw", "del", "gap", "teiHeader"}
REJECTED = {"sic", "orig", "abbr"}
TOKENS = {"w", "pc", "c"}
BREAKING = re.compile("[\x00-\x20\x7f-\x9f\u2028\u2029]")
WHITE = " \t\r\n"
RUN = re.compile(f"[{WHITE}]+")
MAX_LINE = 8190
SENTENCE = (sys.argv[2:] or ["s"])[0]


def local(element, names={}):
    """The name without namespace; None for comments and processing instructions."""
    tag = element.tag
    if tag not in names:
        names[tag] = tag.rpartition("}")[2] if isinstance(tag, str) else None
    return names[tag]


def children(element):
    """The child elements that count."""
    for child in element:
        name = local(child)
        if name and name not in SKIP and not (name in REJECTED and local(element) == "choice"):
            yield child, name


def text(element, with_words=True):
    if not len(element):
        return element.text or ""
    parts = [element.text or ""]
    wanted = {child for child, name in children(element) if with_words or name != "w"}
    for child in element:
        if child in wanted:
            parts.append(text(child, with_words))
        parts.append(child.tail or "")
    return "".join(parts)


def clean(value):
    return RUN.sub(" ", value.strip(WHITE))


def form(element):
    return clean(text(element)) or clean(element.get("norm", ""))


def inner_words(element):
    """Words at any depth that hold no words themselves."""
    for child, name in children(element):
        found = list(inner_words(child))
        if not found and name == "w":
            found = [child]
        yield from found


def pointers(value):
    """mte:Ncmsg and #Ncmsg are Ncmsg; several are joined."""
    targets = (p.partition("#")[2] if "#" in p else p.partition(":")[2] if ":" in p else p for p in clean(value).split(" "))
    return "|".join(filter(None, targets))


def columns(element, name, its_form):
    """The token's line, or None where it has no form or tag, or a blank or control character in a column."""
    get = element.get
    tag, feats = "", []
    for feature in get("msd", "").strip(WHITE).split("|"):
        key, _, value = feature.partition("=")
        if key == "UPosTag":
            tag = tag or value
        elif key != "XPosTag":
            feats.append(feature)
    tag = (clean(get("pos", "")) or pointers(get("ana", "")) or tag or clean(get("type", "")) or ("PUNCT" if name != "w" else ""))
    if not its_form or not tag:
        return None
    values = [its_form, clean(get("lemma", "")) or "_", tag, "|".join(feats) or "_"]
    if any(map(BREAKING.search, values)):
        return None
    line = " ".join(values)
    return line if len(line) < MAX_LINE // 4 or len(line.encode()) <= MAX_LINE else None


def runs(element, lines):
    """Adds the lines of an element's tokens; the starts and ends of sentences in it are empty lines."""
    for child, name in children(element):
        if name in TOKENS:
            tokens = [(child, form(child))]
            if name == "w" and len(child):
                inner = [(word, form(word)) for word in inner_words(child)]
                if any(its_form for _, its_form in inner):
                    tokens = inner
                elif inner:
                    outer = clean(text(child, with_words=False)) or tokens[0][1]
                    tokens = [(child, outer)]
            lines += filter(None, (columns(token, name, its_form) for token, its_form in tokens))
        elif name == SENTENCE:
            lines.append("")
            runs(child, lines)
            lines.append("")
        elif len(child):
            runs(child, lines)
    return lines


def counts(sentence):
    """Whether neither a sentence nor anything that is passed over encloses it."""
    inside = local(sentence)
    for element in sentence.iterancestors():
        name = local(element)
        if name == SENTENCE or name in SKIP or name in TOKENS or name == "choice" and inside in REJECTED:
            return False
        inside = name
    return inside not in SKIP


def free(element):
    """Forgets the element and what was read before it."""
    element.clear()
    while element is not None:
        parent = element.getparent()
        while element.getprevious() is not None:
            del parent[0]
        element = parent


def main():
    for _, sentence in etree.iterparse(sys.argv[1], tag="{*}" + SENTENCE, resolve_entities=True, huge_tree=True):
        if sentence.getparent() is not None and next(sentence.iterancestors("{*}" + SENTENCE), None) is not None:
            continue
        if counts(sentence):
            lines = runs(sentence, [])
            if lines:
                tokens = "\n".join(lines).strip("\n")
                sys.stdout.write(re.sub("\n\n+", "\n\n", tokens) + "\n\n" if tokens else "")
        free(sentence)


if __name__ == "__main__":
    main()
