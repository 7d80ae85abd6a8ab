import ast
import copy
import doctest
import gc
import glob
import inspect
import os
import pickle
import signal
import subprocess
import sys
import threading
import time

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


def stubs():
    """Everything in the stub, by its dotted name; what is called when a class is, by that of the class."""
    with open(os.path.join(os.path.dirname(zelvor.__file__), "_zelvor.pyi")) as stub:
        for node in ast.parse(stub.read()).body:
            if isinstance(node, (ast.ClassDef, ast.FunctionDef)):
                yield node.name, node
            for part in getattr(node, "body", []) if isinstance(node, ast.ClassDef) else []:
                name = getattr(part, "name", None) or part.target.id
                if name == "__init__":
                    part.args.args.pop(0)
                    yield node.name, part
                elif not name.startswith("_"):
                    yield f"{node.name}.{name}", part


def test_stub_names_what_is_there():
    there, stubbed = dict(members()), dict(stubs())
    assert stubbed.keys() == there.keys() | {"EntryIterator"}
    for name, stub in stubbed.items():
        if isinstance(stub, ast.FunctionDef) and callable(there[name]):
            signature = inspect.signature(there[name])
            named = [part for part in signature.parameters.values() if part.kind is not part.VAR_KEYWORD]
            shown = str(signature.replace(parameters=named))[1:-1]
            for part in (arg for arg in ast.walk(stub.args) if isinstance(arg, ast.arg)):
                part.annotation = None
            assert ast.unparse(stub.args).startswith(shown), name


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


def test_rules(folder):
    (folder / "marked").write_text("\ufeffies y\n", encoding="utf-8")
    assert Rules("marked").apply("party") == ["parties"]


def test_lexicon(folder):
    (folder / "a").write_text("// comment\n\n" + line("amat", id=7) + "\n" + line("amō", case="NOM"), encoding="utf-8")
    (folder / "b").write_text(line("-at", case="ACC", id="abc"))
    lexicon = Lexicon(folder / "a")
    iterator = iter(lexicon)
    first = next(iterator)
    assert (first.id, first.form, first.case, first.form_sources) == (7, "amat", "", [])
    assert lexicon.merge("b", source="second") == 0 and lexicon.read("b") == 1
    assert (first.case, first.form_sources, first.lemma_sources, first.pos_sources) == ("ACC", *[["second"]] * 3)
    assert [entry.form for entry in iterator] == ["amō", "amat"] and len(lexicon) == 3
    assert lexicon.lookup(id=7) == [first] and lexicon.lookup(id=8) == [] and lexicon.lookup("amō")[0].id is None
    assert len(lexicon.lookup("amat")) == 2 and len({*lexicon.lookup(lemma="am"), first}) == 3
    assert lexicon.lookup(id=2**70) == lexicon.lookup(id=0) == []
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
        lexicon.read("bad", on_bad_line=lambda *_: len(lexicon.lookup("amat")) / 0)
    assert len(lexicon) == 1


def raising_words():
    yield "a"
    raise KeyError(1)


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
    (TypeError, lambda: Trie(["a"]).fuzzy("a" * 100_000, None)),
    (UnicodeEncodeError, lambda: Trie(["a"]).fuzzy("a", **{"\ud800": 1})),
    (ValueError, lambda: Trie(["a"]).fuzzy("a", float("nan"))),
    (ValueError, lambda: Trie(["a"]).fuzzy("a", weight_end=-1)),
    (ValueError, lambda: Trie(["a"], {"abc": 1})),
    (ValueError, lambda: Trie(["a"], {"ab": 1, "ba": 2})),
    (ValueError, lambda: Trie(["a"], {("a", "b"): -1})),
    (TypeError, lambda: Trie(["a"], {"ab": "x"})),
    (TypeError, lambda: Trie(["a"], {5: 1})),
    (TypeError, lambda: Trie(["a"], 5)),
    (TypeError, lambda: setattr(Trie(["a"]), "__class__", Rules)),
    (TypeError, lambda: Trie.__base__()),
    (TypeError, lambda: object.__reduce__(Trie(["a"]))),
    (TypeError, lambda: Trie.__len__(None)),
    (TypeError, lambda: Rules.__len__(None)),
    (TypeError, lambda: LanguageModel.order.fget(None)),
    (TypeError, lambda: zelvor.TeiReader.__next__(None)),
    (RuntimeError, lambda: trie_that_is_made_within_itself()),
    (ValueError, lambda: Trie(["aaa", "aaaa"]).segment("a" * 100_000)),
    (FileNotFoundError, lambda: Lexicon("missing")),
    (IsADirectoryError, lambda: Lexicon(".")),
    (TypeError, lambda: Lexicon(3)),
    (ValueError, lambda: Lexicon("a\0b")),
    (ValueError, lambda: Lexicon().merge("examples/lexicon.txt", source="a#b")),
    (ValueError, lambda: Lexicon().merge("examples/lexicon.txt", source="a\0b")),
    (ValueError, lambda: Lexicon().merge("examples/lexicon.txt", source=" a")),
    (TypeError, lambda: Lexicon().lookup(id="7")),
    (TypeError, lambda: Lexicon().lookup()),
    (TypeError, lambda: Lexicon().lookup("a", lemma="a")),
    (UnicodeEncodeError, lambda: Lexicon().lookup("\udfff")),
    (FileNotFoundError, lambda: Lexicon().write("missing/file")),
    (FileNotFoundError, lambda: Lexicon().write("")),
    (TypeError, lambda: zelvor.Entry()),
    (TypeError, lambda: copy.copy(Lexicon())),
    (TypeError, lambda: pickle.dumps(Trie(["a"]))),
    (TypeError, lambda: pickle.dumps(Trie(["a"]), protocol=0)),
    (TypeError, lambda: Lexicon().__reduce__()),
    (FileNotFoundError, lambda: Rules("missing")),
    (ValueError, lambda: Rules("binary")),
    (ValueError, lambda: Rules("examples/english/forms.xml")),
    (FileNotFoundError, lambda: LanguageModel("missing")),
    (ValueError, lambda: LanguageModel("binary")),
    (OSError, lambda: LanguageModel("/proc/self/mem")),
    (TypeError, lambda: LanguageModel("examples/candidates/lemmas.arpa").score("dux")),
    (TypeError, lambda: zelvor.edit_distance("a", None)),
    (ValueError, lambda: zelvor.normalize_case("a", "small" * 200)),
    (UnicodeEncodeError, lambda: zelvor.normalize_case("a", "\ud800")),
    (FileNotFoundError, lambda: zelvor.read_tei(["examples/corpus", "missing"])),
    (ValueError, lambda: zelvor.read_tei([])),
    (TypeError, lambda: zelvor.read_tei("examples/corpus", header=True)),
    (TypeError, lambda: zelvor.read_tei("examples/corpus", nfc=1)),
    (TypeError, lambda: zelvor.read_tei("examples/corpus", sentence_="s")),
    (TypeError, lambda: zelvor.read_tei("examples/corpus", **{"punctuation-tag": "x"})),
    (ValueError, lambda: zelvor.read_tei("examples/corpus", pos=["a,b"])),
    (ValueError, lambda: zelvor.read_tei("examples/corpus", skip=[""])),
    (ValueError, lambda: zelvor.read_tei("examples/corpus", lexicon="")),
    (ValueError, lambda: zelvor.survey("examples/corpus", skip=["a b"])),
    (TypeError, lambda: zelvor.survey("examples/corpus", skip=b"note")),
    (TypeError, lambda: zelvor.convert("missing", "out", progress=5)),
    (TypeError, lambda: zelvor.convert("examples/corpus", "out", jobs="2" * 1000)),
    (UnicodeEncodeError, lambda: zelvor.read_tei("examples/corpus", pos="\ud800")),
    (ValueError, lambda: zelvor.read_tei("examples/corpus", word=[])),
    (ValueError, lambda: zelvor.read_tei("examples/corpus", "examples/lexicon.txt", pos="x")),
    (FileNotFoundError, lambda: zelvor.convert("examples/corpus", "out", "missing")),
    (ValueError, lambda: zelvor.convert("binary", "binary")),
    (ValueError, lambda: zelvor.convert("binary", "out", jobs=0)),
])
def test_errors_are_those_of_python(folder, error, call):
    (folder / "binary").write_bytes(BINARY)
    with pytest.raises(error) as raised:
        call()
    assert 0 < len(str(raised.value)) < 1000


class Hasty(Trie):
    def __init__(self):
        len(self)


def trie_that_is_made_within_itself():
    trie = Trie.__new__(Trie)
    trie.__init__(trie.__init__([]) or "x" for _ in range(1))


@pytest.mark.parametrize("call", [
    lambda: zelvor.Entry.__new__(zelvor.Entry).lemma,
    lambda: zelvor.Entry.__new__(zelvor.Entry) == Lexicon("examples/lexicon.txt").lookup(id=6)[0],
    lambda: LanguageModel.__new__(LanguageModel).score(["a"]),
    lambda: len(Lexicon.__new__(Lexicon)),
    lambda: Lexicon.__new__(Lexicon).lookup("a"),
    lambda: iter(Lexicon.__new__(Lexicon)),
    lambda: zelvor.Report.__new__(zelvor.Report).files,
    lambda: Rules.__new__(Rules).apply("a"),
    lambda: next(zelvor.TeiReader.__new__(zelvor.TeiReader)),
    lambda: next(type(iter(Lexicon())).__new__(type(iter(Lexicon())))),
    lambda: Trie.__new__(Trie).to_dot(),
    Hasty,
    type("Forgetful", (Trie,), {"__init__": lambda self: None}),
])
def test_objects_that_were_never_initialised(call):
    with pytest.raises(TypeError, match="__init__"):
        call()
    assert "a" in type("Own", (Trie,), {"__new__": lambda cls, *_: Trie.__new__(cls)})(["a"])


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


def document(folder, name, body, head=""):
    (folder / name).write_text(f"{head}<TEI>{body}</TEI>", encoding="utf-8")
    return str(folder / name)


def test_read_tei_yields_what_is_there(folder):
    (folder / "part.xml").write_text("\n<w pos='P'>ex</w>")
    path = document(folder, "a.xml", "<s><w pos='N' lemma='ā' xml:id='1'>a\n b</w><w/><pc>.</pc><w>c</w></s><w>no</w><s>\n\n&part;</s>",
                    "<!DOCTYPE TEI [<!ENTITY part SYSTEM 'part.xml'>]>")
    reader = zelvor.read_tei([os.fsencode(path)], map=None, break_="!", skip=[])
    assert list(reader) == [
        [("a b", "ā", "N", "", "", {"pos": "N", "lemma": "ā", "xml:id": "1"}, path, 2),
         (".", "", "PUNCT", "", "", {}, path, 2), ("c", "", "", "", "", {}, path, 2)],
        [("ex", "", "P", "", "", {"pos": "P"}, str(folder / "part.xml"), 2)]]
    assert (reader.report.tokens["written"], reader.report.left_out["no_form"]) == (4, 1)
    assert list(zelvor.read_tei(path, whole_sentences=True, pos=["x", "pos"]))[0][0].pos == "P"
    whole = zelvor.convert("examples/corpus", "out", "examples/lexicon.txt", whole_sentences=True).sentences["written"]
    assert len(list(zelvor.read_tei("examples/corpus", "examples/lexicon.txt", whole_sentences=True))) == whole == 8
    latin = next(zelvor.read_tei("examples/corpus", "examples/lexicon.txt"))[1]
    assert (latin.form, latin.lemma, latin.pos, latin.upos) == ("est", "sum", "Verb", "VERB")


def test_a_fault_comes_behind_its_sentences(folder):
    names = [document(folder, name, body) for name, body in (
        ("1.xml", "<s><w>a</w></s>\n<s><w>lost</s>"), ("2.xml", ""), ("3.xml", "<s><w>b</w></s>"),
        ("4.xml", "<s><w>c</w><w>" + "x" * 1_100_000 + "</w></s>"))]
    reader = zelvor.read_tei(names)
    os.remove(names[1])
    assert next(reader)[0].form == "a"
    with pytest.raises(ValueError, match=r"1\.xml:2: "):
        next(reader)
    with pytest.raises(FileNotFoundError):
        next(reader)
    assert [token.form for sentence in reader for token in sentence] == ["b", "c"]
    assert (len(reader.report.messages), reader.report.status, reader.report.left_out["breaks_line"]) == (2, 1, 1)
    reader = zelvor.read_tei([names[0], names[2]], strict=True)
    assert next(reader)[0].form == "a"
    with pytest.raises(ValueError, match=r"1\.xml:2: "):
        next(reader)
    assert list(reader) == []
    with pytest.warns(UserWarning, match="none of them written: 1 breaks its line; each"):
        assert list(zelvor.read_tei(document(folder, "5.xml", "<s><w>" + "x" * 1_100_000 + "</w></s>"))) == []
    with pytest.warns(UserWarning, match="try sentence=ab"):
        assert list(zelvor.read_tei("examples/families/latin.xml")) == []


def test_convert_tells_how_it_went(folder):
    good, bad, told = document(folder, "g.xml", "<s><w pos='N'>a</w></s>"), document(folder, "h.xml", "<s>"), []
    with pytest.raises(ZeroDivisionError):
        zelvor.convert(good, "none", report="none.json", progress=lambda ended, *_: 1 // (1 - ended))
    report = zelvor.convert(good, "-", jobs=1, columns=["form", "pos"], progress=lambda *counts: told.append(counts))
    assert (folder / "-").read_text() == "a N\n\n" and told == [(1, 1, 1)]
    for report in (report, pickle.loads(pickle.dumps(report, protocol=0)), copy.deepcopy(report)):
        assert (report.status, report.tokens["written"], report.as_dict()["files"]["read"]) == (0, 1, 1)
    with pytest.warns(UserWarning, match="h.xml:1: "):
        assert zelvor.convert([good, bad], "out").status == 1
    with pytest.raises(ValueError, match="try sentence=ab ") as stopped:
        zelvor.convert("examples/families/latin.xml", "none")
    assert stopped.value.report.left_out["outside_sentence"] == 7 and not glob.glob("none*")
    with pytest.raises(ValueError, match="a-l b.xml:1: "):
        zelvor.convert(document(folder, "a-l b.xml", "<s>"), "none")
    with pytest.raises(ValueError, match="'-l ' is no column"):
        zelvor.convert(good, "none", columns="-l ")
    found = zelvor.survey("examples/families/latin.xml", skip=iter(["fw"]), hidden=True)
    assert found["options"] == {"hidden": True, "skip": ["fw"], "sentence": "ab"}
    assert zelvor.convert("examples/families/latin.xml", "out", columns=found["columns"], **found["options"]).status == 0


@pytest.mark.parametrize("end", [KeyboardInterrupt, KeyError])
def test_a_long_conversion_can_be_ended(folder, end):
    os.mkdir("in")
    document(folder, "in/a.xml", "<s><w pos='N'>a</w></s>" * 30_000)
    for number in range(1000):
        os.link("in/a.xml", f"in/{number}.xml")
    before = set(os.listdir())
    if end is KeyboardInterrupt:
        threading.Timer(0.1, signal.raise_signal, [signal.SIGINT]).start()
    with pytest.raises(end):
        zelvor.convert("in", "out", report="report", progress=(lambda *_: {}[0]) if end is KeyError else None)
    assert set(os.listdir()) == before


def test_a_handler_of_signals_cannot_use_the_reader_that_it_interrupts(folder):
    reader = zelvor.read_tei(document(folder, "a.xml", "<s><w>a</w></s>" * 1_000_000))
    before = signal.signal(signal.SIGALRM, lambda *_: next(reader))
    try:
        signal.setitimer(signal.ITIMER_REAL, 0.01)
        with pytest.raises(RuntimeError, match="already at work"):
            next(reader)
    finally:
        signal.signal(signal.SIGALRM, before)


def test_a_signal_ends_nothing_that_waits_for_a_pipe(folder):
    os.mkfifo("model")
    os.mkfifo("lexicon")

    def work():
        with open("model", "w") as model:
            time.sleep(0.1)
            model.write("none")
        time.sleep(0.1)
        (folder / "copy").write_bytes((folder / "lexicon").read_bytes())

    before, thread = signal.signal(signal.SIGALRM, lambda *_: None), threading.Thread(target=work, daemon=True)
    try:
        signal.setitimer(signal.ITIMER_REAL, 0.02, 0.02)
        thread.start()
        with pytest.raises(ValueError, match="no ARPA file"):
            LanguageModel("model")
        Lexicon("examples/lexicon.txt").write("lexicon")
        thread.join()
    finally:
        signal.setitimer(signal.ITIMER_REAL, 0)
        signal.signal(signal.SIGALRM, before)
    assert len(Lexicon("copy")) == 103


@pytest.mark.parametrize("work", [
    "zelvor.convert('a.xml', 'out')",
    "zelvor.convert('a.xml', 'out', progress=lambda *_: any(0 for _ in iter(int, 1)))",
    "[zelvor.edit_distance('a' * 3000, 'b' * 3000) for _ in iter(int, 1)]",
    "zelvor.Lexicon().read('bad', on_bad_line=lambda *_: any(0 for _ in iter(int, 1)))",
])
def test_the_interpreter_may_end_meanwhile(folder, work):
    document(folder, "a.xml", "<s><w pos='N'>a</w></s>" * 1_000_000)
    (folder / "bad").write_text("1#2")
    before = set(os.listdir())
    ended = subprocess.run([sys.executable, "-c", "import threading, time, zelvor\n"
                            f"threading.Thread(target=lambda: {work}, daemon=True).start()\ntime.sleep(0.1)"])
    assert ended.returncode == 0 and set(os.listdir()) == before


def test_threads_share_a_reader(folder):
    reader, forms = zelvor.read_tei([document(folder, name, "<s><w>a</w></s>" * 9000) for name in "ab"]), []
    threads = [threading.Thread(target=lambda: forms.extend(s[0].form for s in reader)) for _ in range(8)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert forms == ["a"] * 18_000
