#include "utils/Lexicon.h"
#include "python/bindings.h"
#include "python/locks.h"

#include <pybind11/stl.h>

#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <utility>
#include <vector>

namespace zelvor::python {

namespace {

using Reader = std::string (LexicalEntry::*)() const;

/// What an entry shows as text, in the order of the lexicon line.
constexpr struct {
    const char* name;
    Reader read;
    const char* meaning;
} FIELDS[] = {
    {"superlemma", &LexicalEntry::get_superlemma, "The lemma that this one is listed under."},
    {"superlemma_pos", &LexicalEntry::get_superlemma_pos, "Part of speech of the superlemma."},
    {"lemma", &LexicalEntry::get_lemma, "The base form."},
    {"source", &LexicalEntry::get_source, "Where the record comes from."},
    {"lemma_pos", &LexicalEntry::get_lemma_pos, "Part of speech of the lemma."},
    {"form", &LexicalEntry::get_word_form, "The word form, spelled out."},
    {"case", &LexicalEntry::get_case, "Such as NOMINATIVE."},
    {"comparison_degree", &LexicalEntry::get_comparison_degree, "Such as POSITIVE."},
    {"conjugation_type", &LexicalEntry::get_conjugation_type, "Of a verb, such as FIRST."},
    {"declension_type", &LexicalEntry::get_declension_type, "Of a noun or adjective, such as THIRD."},
    {"gender", &LexicalEntry::get_gender, "Such as FEMININE."},
    {"mood", &LexicalEntry::get_mood, "Such as INDICATIVE."},
    {"number", &LexicalEntry::get_number, "SINGULAR or PLURAL."},
    {"person", &LexicalEntry::get_person, "PERSON_1 to PERSON_3."},
    {"pos", &LexicalEntry::get_pos, "The tag of this form."},
    {"pronoun_type", &LexicalEntry::get_pronoun_type, "Of a pronoun."},
    {"tense", &LexicalEntry::get_tense, "Such as PRESENT."},
    {"verb_type", &LexicalEntry::get_verb_type, "Such as REGULAR."},
    {"voice", &LexicalEntry::get_voice, "ACTIVE or PASSIVE."},
    {"corpus_frequency", &LexicalEntry::get_corpus_frequency, "Frequency in the corpus, as text."},
    {"text_frequency", &LexicalEntry::get_text_frequency, "Frequency in texts, as text."},
    {"created_by", &LexicalEntry::get_created_by, "Who made the record."},
    {"last_change_by", &LexicalEntry::get_last_change_by, "Who changed it last."},
    {"error_reported", &LexicalEntry::get_error_reported, "An error reported of the record."},
    {"lemma_source", &LexicalEntry::get_lemma_source, "Source of the lemma."},
};

using SourceIterator = std::set<std::string>::iterator (LexicalEntry::*)() const;

/// Which sources attest what.
constexpr struct {
    const char* name;
    SourceIterator begin, end;
    const char* meaning;
} SOURCES[] = {
    {"form_sources", &LexicalEntry::originating_word_forms_source_begin,
     &LexicalEntry::originating_word_forms_source_end, "Names of the sources that have the form, ascending."},
    {"lemma_sources", &LexicalEntry::originating_lemmas_source_begin, &LexicalEntry::originating_lemmas_source_end,
     "Names of the sources that have the lemma, ascending."},
    {"pos_sources", &LexicalEntry::originating_pos_source_begin, &LexicalEntry::originating_pos_source_end,
     "Names of the sources that have the tag, ascending."},
};

/// A lexicon that Python's threads share: whoever reads a file works without Python's lock.
struct SharedLexicon : std::enable_shared_from_this<SharedLexicon> {
    Lexicon lexicon;
    std::shared_mutex mutex; ///< of the lexicon
    std::mutex filing;       ///< held while a file is added, or written: readers that follow each other keep others out
};
using Owner = std::shared_ptr<const SharedLexicon>;

/// Calls use(lexicon) while nobody changes it; use must call nothing of Python.
template<typename Use>
auto reading(const SharedLexicon& shared, Use use) {
    auto& mutex = const_cast<std::shared_mutex&>(shared.mutex);
    std::shared_lock lock(mutex, std::try_to_lock);
    if (!lock.owns_lock()) {
        const Unlocked unlocked;
        lock.lock();
    }
    return use(shared.lexicon);
}

/// An entry keeps its lexicon alive.
struct Entry {
    Owner owner;
    const LexicalEntry* entry;

    Text text(Reader read) const {
        return reading(*owner, [&](const Lexicon&) { return Text{(entry->*read)()}; });
    }
    bool operator==(const Entry& other) const { return entry == other.entry; }
};

struct EntryIterator {
    Owner owner;
    std::size_t next = 0;
};

std::vector<Entry> entries_of(const Owner& owner, const Lexicon::Entries& found) {
    std::vector<Entry> entries;
    for (const LexicalEntry* entry : found)
        entries.push_back({owner, entry});
    return entries;
}

using OnBadLine = std::optional<py::function>;

/// Calls add(lexicon, entry), which says whether it was new, for all entries of a file without Python's lock, and
/// returns how many were. Of the lexicon's lock it lets go now and then, so that others can read; files come one after
/// the other. Bad lines are told before the first entry, with neither lock.
template<typename Add>
std::size_t add_file(SharedLexicon& shared, const Path& path, const std::string& source, const OnBadLine& on_bad_line,
                     Add add) {
    constexpr std::size_t slice_size = 256;
    return without_lock([&](Unlocked& unlocked) {
        std::size_t added = 0;
        std::vector<std::unique_ptr<LexicalEntry>> slice;
        std::unique_lock filing(shared.filing, std::defer_lock);
        const auto add_slice = [&] {
            if (!filing)
                filing.lock();
            const std::unique_lock lock(shared.mutex);
            for (auto& entry : slice)
                added += add(shared.lexicon, std::move(entry));
            slice.clear();
        };
        Lexicon::BadLine tell;
        if (on_bad_line)
            tell = [&](std::size_t number, const std::string& reason) {
                unlocked.with_lock([&] { (*on_bad_line)(number, to_str(reason, "replace")); });
            };
        Lexicon::for_each_entry(path.name, source, tell, [&](std::unique_ptr<LexicalEntry> entry) {
            slice.push_back(std::move(entry));
            if (slice.size() == slice_size)
                add_slice();
        });
        add_slice();
        return added;
    });
}

std::size_t read(SharedLexicon& shared, const Path& path, const OnBadLine& on_bad_line) {
    return add_file(shared, path, "", on_bad_line, [](Lexicon& lexicon, std::unique_ptr<LexicalEntry> entry) {
        lexicon.append(std::move(entry));
        return true;
    });
}

std::size_t merge(SharedLexicon& shared, const Path& path, const Text& source, bool extended,
                  const OnBadLine& on_bad_line) {
    return add_file(shared, path, source.bytes, on_bad_line,
                    [extended](Lexicon& lexicon, std::unique_ptr<LexicalEntry> entry) {
                        return lexicon.add(std::move(entry), extended);
                    });
}

std::shared_ptr<SharedLexicon> make(const std::optional<Path>& path) {
    std::shared_ptr<SharedLexicon> owner(new SharedLexicon, FreeUnlocked());
    if (path)
        read(*owner, *path, std::nullopt);
    return owner;
}

/// None for what is greater or less than an int.
std::optional<int> int_of(const py::object& number) {
    const auto index = py::reinterpret_steal<py::object>(PyNumber_Index(number.ptr()));
    if (!index)
        throw py::error_already_set();
    int overflow = 0;
    const long value = PyLong_AsLongAndOverflow(index.ptr(), &overflow);
    return overflow == 0 && std::in_range<int>(value) ? std::optional(static_cast<int>(value)) : std::nullopt;
}

std::vector<Entry> look_up(const SharedLexicon& shared, const std::optional<Text>& form,
                           const std::optional<Text>& lemma, const py::object& id) {
    if (form.has_value() + lemma.has_value() + !id.is_none() != 1)
        throw py::type_error("lookup needs one of form, lemma and id");
    const std::optional<int> number = id.is_none() ? std::nullopt : int_of(id);
    return entries_of(shared.shared_from_this(), reading(shared, [&](const Lexicon& lexicon) {
                          if (form)
                              return lexicon.find_form(form->bytes);
                          if (lemma)
                              return lexicon.find_lemma(lemma->bytes);
                          const LexicalEntry* const entry = number ? lexicon.find_id(*number) : nullptr;
                          return entry ? Lexicon::Entries{entry} : Lexicon::Entries();
                      }));
}

/// A name that the library would take for standard output is one of a file here.
void write(SharedLexicon& shared, const Path& path) {
    const std::string name = path.name == "-" ? "./-" : path.name;
    if (name.empty())
        throw std::system_error(ENOENT, std::generic_category(), name);
    without_lock([&](Unlocked&) {
        const std::lock_guard filing(shared.filing);
        const std::shared_lock lock(shared.mutex);
        shared.lexicon.write(name);
    });
}

std::optional<int> id_of(const Entry& entry) {
    return reading(*entry.owner, [&](const Lexicon&) { return Lexicon::id_of(*entry.entry); });
}

void bind_entry(py::module_& module) {
    py::class_<Entry> entry(module, "Entry", R"(One analysis of a word form, as a lexicon holds it; "" is unknown.

It keeps its lexicon alive, and changes only by what a merge folds into it. Sources are kept of form, lemma and tag,
not of the other fields.

>>> entry = Lexicon("examples/lexicon.txt").lookup("partes")[0]
>>> entry.lemma, entry.case, entry.form_sources
('pars', 'ACCUSATIVE', ['example'])
)");
    entry.def_property_readonly("id", id_of,
                                "The word-form id of the lexicon; None without, or where it is no number below 2^31.");
    for (const auto& [name, field, meaning] : FIELDS)
        entry.def_property_readonly(
            name, [field = field](const Entry& self) { return self.text(field); }, meaning);
    for (const auto& [name, begin, end, meaning] : SOURCES)
        entry.def_property_readonly(
            name,
            [begin = begin, end = end](const Entry& self) {
                return reading(*self.owner, [&](const Lexicon&) {
                    std::vector<Text> names;
                    for (auto it = (self.entry->*begin)(); it != (self.entry->*end)(); ++it)
                        names.push_back({*it});
                    return names;
                });
            },
            meaning);
    entry
        .def(
            "__eq__", [](const Entry& self, const Entry& other) { return self == other; }, py::is_operator())
        .def("__hash__", [](const Entry& self) { return std::hash<const LexicalEntry*>()(self.entry); })
        .def("__repr__", [](const Entry& self) {
            return Text{"<Entry " + self.text(&LexicalEntry::get_word_form).bytes + ": " +
                        self.text(&LexicalEntry::get_lemma).bytes + " " + self.text(&LexicalEntry::get_pos).bytes +
                        ">"};
        });
}

} // namespace

void bind_lexicon(py::module_& module) {
    bind_entry(module);
    py::class_<EntryIterator>(module, "EntryIterator", "Goes on with what is added meanwhile.")
        .def("__iter__", [](EntryIterator& self) -> EntryIterator& { return self; })
        .def("__next__", [](EntryIterator& self) {
            const std::size_t number = self.next++; // before another thread comes
            const LexicalEntry* const entry = reading(*self.owner, [&](const Lexicon& lexicon) {
                return number < lexicon.size() ? lexicon.entries()[number] : nullptr;
            });
            if (!entry) {
                --self.next;
                throw py::stop_iteration();
            }
            return Entry{self.owner, entry};
        });
    const auto entries = [](const SharedLexicon& self) { return EntryIterator{self.shared_from_this()}; };
    py::class_<SharedLexicon, std::shared_ptr<SharedLexicon>>(module, "Lexicon",
                                                              R"(Analyses of word forms, the first added first.

Files hold one analysis a line, 31 fields separated by #. A line that cannot be read is a ValueError with file and line,
and the lexicon is as it was; with on_bad_line, such lines are left out: it is called with the number of each and what
is wrong, before anything of the file is added. What it raises leaves the lexicon as it was. Threads may share a
lexicon; Ctrl-C is noticed when a file has been read.

>>> lexicon = Lexicon("examples/lexicon.txt")
>>> len(lexicon)
103
)")
        .def(py::init(&make), py::arg("path") = py::none(), "__init__(self, path=None)\n--\n\n")
        .def("read", &read, py::arg("path"), py::kw_only(), py::arg("on_bad_line") = py::none(),
             R"(read(self, path, *, on_bad_line=None)
--

Appends an entry for each line of a file and returns how many; nothing is folded.

>>> Lexicon().read("examples/lexicon.txt")
103
)")
        .def("merge", &merge, py::arg("path"), py::kw_only(), py::arg("source") = "", py::arg("extended") = true,
             py::arg("on_bad_line") = py::none(),
             R"(merge(self, path, *, source='', extended=True, on_bad_line=None)
--

Adds the entries of a file and returns how many were new.

An entry that describes an analysis that is there is folded into it: it fills its gaps (mood, tense and voice excepted)
and adds its sources. Unless extended, only lemma, form and part of speech are compared. source is added to the sources
of form, lemma and part of speech.

>>> lexicon = Lexicon("examples/lexicon.txt")
>>> lexicon.merge("examples/glossary.txt", source="glossary")
1
>>> lexicon.lookup("partes")[0].form_sources
['example', 'glossary']
)")
        .def("lookup", &look_up, py::arg("form") = py::none(), py::kw_only(), py::arg("lemma") = py::none(),
             py::arg("id") = py::none(),
             R"(lookup(self, form=None, *, lemma=None, id=None)
--

The entries of a form, of a lemma, or of a word-form id (at most one), in the order added.

>>> [entry.form for entry in Lexicon("examples/lexicon.txt").lookup(lemma="pars")]
['partes', 'partes', 'partem']
)")
        .def("entries", entries, R"(entries(self)
--

All entries, in the order added.

>>> next(Lexicon("examples/lexicon.txt").entries())
<Entry Gallia: Gallia Noun>
)")
        .def("__iter__", entries)
        .def("__len__",
             [](const SharedLexicon& self) {
                 return reading(self, [](const Lexicon& lexicon) { return lexicon.size(); });
             })
        .def("write", &write, py::arg("path"),
             R"(write(self, path)
--

Writes a line for each entry. The file is there when it is complete, and not before.

A value with # or a line end is a ValueError, since it could not be read back.

>>> Lexicon("examples/lexicon.txt").write("copy.txt")
>>> len(Lexicon("copy.txt"))
103
)");
}

} // namespace zelvor::python
