"""The yardstick of zelvor.read_tei: the same tokens, as a short program over lxml's iterparse makes them."""
from lxml import etree
from tei_columns import WHITE, children, clean, counts, form, free, inner_words, local, pointers, text

TOKENS = {"w", "pc", "c"}


def token(element, name, its_form, file):
    get = element.get
    tag, feats = "", []
    for feature in get("msd", "").strip(WHITE).split("|"):
        key, _, value = feature.partition("=")
        if key == "UPosTag":
            tag = tag or value
        elif key != "XPosTag":
            feats.append(feature)
    pos = clean(get("pos", "")) or pointers(get("ana", "")) or tag or clean(get("type", "")) or ("PUNCT" if name != "w" else "")
    return its_form, clean(get("lemma", "")), pos, tag, "|".join(feats), dict(element.attrib), file, element.sourceline


def tokens_in(element, tokens, file):
    for child, name in children(element):
        if name in TOKENS:
            found = [(child, form(child))]
            if name == "w" and len(child):
                inner = [(word, form(word)) for word in inner_words(child)]
                if any(its_form for _, its_form in inner):
                    found = inner
                elif inner:
                    found = [(child, clean(text(child, with_words=False)) or found[0][1])]
            tokens += [token(word, name, its_form, file) for word, its_form in found if its_form]
        elif len(child):
            tokens_in(child, tokens, file)
    return tokens


def read(file):
    """Sentences, which must not hold others."""
    for _, sentence in etree.iterparse(file, tag="{*}s", resolve_entities=True, huge_tree=True):
        if counts(sentence):
            tokens = tokens_in(sentence, [], file)
            if tokens:
                yield tokens
        free(sentence)
