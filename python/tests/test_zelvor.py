import ast
import copy
import doctest
import gc
import inspect
import os
import pickle
import threading

import pytest

import zelvor
from conftest import ROOT
from zelvor import LanguageModel, Lexicon, Rules, Trie

LINE = " # # # #{lemma}# # #{id}#{form}#{case}" + "# " * 12  # 22 fields


def line(form, lemma="am", id=" ", case=" "):
    return LINE.format(form=form, lemma=lemma, id=id, case=case)


def members():
    """Everything that has a docstring, by its dotted name."""
    for name in zelvor.__all__:
        value = getattr(zelvor, name)
        yield name, value
        if inspect.isclass(value):
            yield from ((f"{name}.{key}", member) for key, member in vars(value).items() if not key.startswith("_"))


def test_examples_run():
    names = {name: getattr(zelvor, name) for name in zelvor.__all__}
    count = 0
    for name, value in [*members(), ("zelvor", zelvor)]:
        test = doctest.DocTestParser().get_doctest(value.__doc__, dict(names), name, None, 0)
        assert test.examples or inspect.isdatadescriptor(value), name
        results = doctest.DocTestRunner().run(test)
        assert not results.failed, name
        count += results.attempted
    assert count > 30
    tour = doctest.testfile(os.path.join(ROOT, "docs", "python.md"), module_relative=False, encoding="utf-8")
    assert tour.attempted > 10 and not tour.failed


def test_stub_names_what_is_there():
    with open(os.path.join(os.path.dirname(zelvor.__file__), "_zelvor.pyi")) as stub:
        names = set()
        for node in ast.parse(stub.read()).body:
            if isinstance(node, ast.ClassDef):
                names |= {f"{node.name}.{name}" for part in node.body
                          if not (name := getattr(part, "name", None) or part.target.id).startswith("_")}
            if isinstance(node, (ast.ClassDef, ast.FunctionDef)):
                names.add(node.name)
    assert names == {name for name, _ in members()} | {"EntryIterator"}


def test_trie():
    trie = Trie(["agri", "cultura", "agricola", "", "ä\0x"])
    assert [word in trie for word in ("agri", "agr", "", "ä\0x")] == [True, False, True, True]
    assert len(trie) == 5
    assert trie.fuzzy("agricolo") == [("agricola", 0.0)]
    assert trie.fuzzy("agri", 2.0)[0] == ("agri", 2.0)
    assert trie.fuzzy("xgri", start=1) == []
    assert trie.longest_prefix("agricultura") == "agri" and Trie(["b"]).longest_prefix("a") is None
    assert trie.segment("agricultura") == [["agri", "cultura"]] and trie.segment("x") == []
    tries = [Trie(["abc"], weights) for weights in ({("x", "a"): 0.25}, {"ax": 0.5}, {}, None)]
    assert [trie.fuzzy("axc") for trie in tries] == [[("abc", left)] for left in (0.75, 0.5, 0.0, 0.0)]


def test_lexicon(folder):
    (folder / "a").write_text("// comment\n\n" + line("amat", id=7) + "\n" + line("amō", case="NOM"), encoding="utf-8")
    (folder / "b").write_text(line("-at", case="ACC"))
    lexicon = Lexicon(folder / "a")
    iterator = iter(lexicon)
    first = next(iterator)
    assert (first.id, first.form, first.case, first.form_sources) == (7, "amat", "", [])
    assert lexicon.merge("b", source="second") == 0 and lexicon.read("b") == 1
    assert (first.case, first.form_sources, first.lemma_sources, first.pos_sources) == ("ACC", *[["second"]] * 3)
    assert [entry.form for entry in iterator] == ["amō", "amat"] and len(lexicon) == 3
    assert lexicon.lookup(id=7) == [first] and lexicon.lookup(id=8) == [] and lexicon.lookup("amō")[0].id is None
    assert len(lexicon.lookup("amat")) == 2 and len({*lexicon.lookup(lemma="am"), first}) == 3
    lexicon.write("-")
    assert [entry.form for entry in Lexicon(b"-").entries()] == ["amat", "amō", "amat"]
    entry = lexicon.lookup("amō")[0]
    del lexicon, iterator, first
    gc.collect()
    assert repr(entry) == "<Entry amō: am >"  # it keeps its lexicon


def test_bad_lines_are_told(folder):
    (folder / "bad").write_bytes(line("amat").encode() + b"\n1#2\n" + line("x\xe9").encode("latin-1") + b"\n")
    lexicon, told = Lexicon(), []
    for use in (lexicon.read, lexicon.merge):
        with pytest.raises(ValueError, match=r"bad:2: 2 of the 22 fields"):
            use("bad")
        assert len(lexicon) == 0
    assert lexicon.read("bad", on_bad_line=lambda *bad: told.append(bad)) == 1
    assert [number for number, _ in told] == [2, 3] and "UTF-8" in told[1][1]
    with pytest.raises(ZeroDivisionError):
        lexicon.read("bad", on_bad_line=lambda *_: 1 / 0)


def raising_words():
    yield "a"
    raise KeyError


BINARY = b"\\data\\\nngram 1=1\n\\1-grams:\nx\xff"


@pytest.mark.parametrize("error, call", [
    (TypeError, lambda: Trie("abc")),
    (TypeError, lambda: Trie(None)),
    (TypeError, lambda: Trie(["a", b"b"])),
    (TypeError, lambda: Trie(["a", None])),
    (KeyError, lambda: Trie(raising_words())),
    (UnicodeEncodeError, lambda: Trie(["\ud800"])),
    (UnicodeEncodeError, lambda: Trie(["a"]).fuzzy("\udc80")),
    (TypeError, lambda: Trie(["a"]).fuzzy(None)),
    (TypeError, lambda: Trie(["a"]).fuzzy("a", start=-1)),
    (ValueError, lambda: Trie(["a"]).fuzzy("a", float("nan"))),
    (ValueError, lambda: Trie(["a"], {"abc": 1})),
    (ValueError, lambda: Trie(["a"], {("a", "b"): -1})),
    (TypeError, lambda: Trie(["a"], {"ab": "x"})),
    (TypeError, lambda: Trie(["a"], {5: 1})),
    (TypeError, lambda: Trie(["a"], 5)),
    (ValueError, lambda: Trie(["aaa", "aaaa"]).segment("a" * 100_000)),
    (FileNotFoundError, lambda: Lexicon("missing")),
    (IsADirectoryError, lambda: Lexicon(".")),
    (TypeError, lambda: Lexicon(3)),
    (ValueError, lambda: Lexicon("a\0b")),
    (ValueError, lambda: Lexicon().merge("examples/lexicon.txt", source="a#b")),
    (TypeError, lambda: Lexicon().lookup()),
    (TypeError, lambda: Lexicon().lookup("a", lemma="a")),
    (UnicodeEncodeError, lambda: Lexicon().lookup("\udfff")),
    (FileNotFoundError, lambda: Lexicon().write("missing/file")),
    (FileNotFoundError, lambda: Lexicon().write("")),
    (TypeError, lambda: zelvor.Entry()),
    (TypeError, lambda: copy.copy(Lexicon())),
    (TypeError, lambda: pickle.dumps(Trie(["a"]))),
    (FileNotFoundError, lambda: Rules("missing")),
    (ValueError, lambda: Rules("binary")),
    (ValueError, lambda: Rules("examples/english/forms.xml")),
    (FileNotFoundError, lambda: LanguageModel("missing")),
    (ValueError, lambda: LanguageModel("binary")),
    (TypeError, lambda: LanguageModel("examples/candidates/lemmas.arpa").score("dux")),
    (TypeError, lambda: zelvor.edit_distance("a", None)),
    (ValueError, lambda: zelvor.normalize_case("a", "small")),
])
def test_errors_are_those_of_python(folder, error, call):
    (folder / "binary").write_bytes(BINARY)
    with pytest.raises(error):
        call()


def test_long_words_and_dropped_iterators():
    word = "ab" * 50_000
    trie = Trie([word])
    assert word in trie and trie.fuzzy(word[1:], 3.0) == [(word, 2.0)] and trie.longest_prefix(word + "x") == word
    assert trie.segment(word) == [[word]] and trie.mark_suffixes(word) == word
    iterator = iter(Lexicon("examples/lexicon.txt"))
    next(iterator)
    del iterator
    assert zelvor.normalize_case(word, "upper") == word.upper() and not zelvor.is_roman_numeral(word)


def test_threads_share_a_lexicon_and_have_weights_of_their_own():
    lexicon, failures = Lexicon("examples/lexicon.txt"), []

    def work(number):
        weight = number / 8
        trie = Trie(["abc"], {"ax": weight})
        for _ in range(200):
            if trie.fuzzy("axc") != [("abc", 1 - weight)]:
                failures.append(number)
        for _ in range(20):
            lexicon.merge("examples/glossary.txt", source=str(number))
            if len(lexicon.lookup("partes")) != 2 or not [e.form_sources for e in lexicon]:
                failures.append(number)

    threads = [threading.Thread(target=work, args=(number,)) for number in range(8)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures and len(lexicon) == 104
