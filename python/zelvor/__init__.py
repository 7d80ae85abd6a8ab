"""TEI corpora, lexica, letter tries, rules and language models for people who train taggers, Latin first.

>>> from zelvor import Trie
>>> Trie(["agricola", "nauta"]).fuzzy("agricela")
[('agricola', 0.0)]
"""

from ._zelvor import (
    Entry,
    LanguageModel,
    Lexicon,
    Report,
    Rules,
    TeiReader,
    Token,
    Trie,
    contains_latin_letters,
    contains_letters,
    convert,
    edit_distance,
    is_adjective,
    is_cardinal_number,
    is_modal,
    is_noun,
    is_ordinal_number,
    is_roman_numeral,
    is_verb,
    normalize_case,
    read_tei,
    survey,
)
from ._zelvor import __version__ as __version__

__all__ = [
    "Entry",
    "LanguageModel",
    "Lexicon",
    "Report",
    "Rules",
    "TeiReader",
    "Token",
    "Trie",
    "contains_latin_letters",
    "contains_letters",
    "convert",
    "edit_distance",
    "is_adjective",
    "is_cardinal_number",
    "is_modal",
    "is_noun",
    "is_ordinal_number",
    "is_roman_numeral",
    "is_verb",
    "normalize_case",
    "read_tei",
    "survey",
]
