#include "python/TokenGatherer.h"
#include "python/keywords.h"
#include "python/locks.h"
#include "python/report.h"
#include "training/ColumnLines.h"
#include "training/DocumentConverter.h"
#include "training/Survey.h"
#include "training/TagLexicon.h"
#include "training/TagMap.h"
#include "training/no_token.h"
#include "training/shown_text.h"
#include "training/tei_inputs.h"

#include <array>
#include <chrono>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace zelvor::python {

namespace {

constexpr const char* FIELDS[][2] = {
    {"form", "Its text, or what the option form says."},
    {"lemma", "Empty where there is none, as the tags and features."},
    {"pos", "The tag."},
    {"upos", "The universal tag."},
    {"feats", "Features, KEY=VALUE|KEY=VALUE."},
    {"attributes", "Of its element, as a dict, names as written."},
    {"file", "The document, or the file of an entity."},
    {"line", "Where its element ends."},
};
constexpr std::size_t NUM_FIELDS = std::size(FIELDS), NUM_TEXTS = 5;

PyTypeObject* token_type = nullptr; ///< a named tuple; never freed

/// The same str for what comes again and again; with Python's lock only.
class KnownTexts {
public:
    py::str operator()(std::string_view text) {
        const auto found = m_texts.find(text);
        if (found != m_texts.end())
            return found->second;
        py::str made = to_str(text, "replace");
        if (m_texts.size() < MAX_TEXTS && text.size() <= MAX_BYTES)
            m_texts.emplace(std::string(text), made);
        return made;
    }

private:
    static constexpr std::size_t MAX_TEXTS = 10'000, MAX_BYTES = 200;

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the standard's name
    };
    std::unordered_map<std::string, py::str, Hash, std::equal_to<>> m_texts;
};

/// What a document tells while it is read, without Python's lock.
class ReaderSink : public ConversionSink {
public:
    void write(std::string_view, std::uint64_t) override {}
    void fault(const std::string& document, const XmlPlace& place, const std::string& message) override {
        faults.append(faults.empty() ? "" : "\n").append(to_string(place, document) + ": " + message);
    }
    void left_out(ConversionReport::Count, const std::string&, const XmlPlace&, const std::string&) override {}
    void count(StatisticsPart&&) override {}

    /// Ctrl-C, and what else a handler of signals raises, which is then Python's error.
    bool is_cancelled() const override {
        if (m_has_error || ++m_calls % CALLS_A_LOOK != 0 || Clock::now() < m_next_look)
            return m_has_error;
        m_next_look = Clock::now() + std::chrono::milliseconds(50);
        m_has_error = unlocked->with_lock([] { return PyErr_CheckSignals() != 0; });
        return m_has_error;
    }
    bool has_error() const { return m_has_error; }

    std::string faults;
    Unlocked* unlocked = nullptr; ///< the scope in which the document is read

private:
    using Clock = std::chrono::steady_clock;
    static constexpr unsigned int CALLS_A_LOOK = 256;

    mutable unsigned int m_calls = 0;
    mutable Clock::time_point m_next_look = Clock::now() + std::chrono::milliseconds(50);
    mutable bool m_has_error = false;
};

/// Threads may share it: each sentence goes to one of them.
class TeiReader {
public:
    explicit TeiReader(ConversionTask task);
    TeiReader(const TeiReader&) = delete;
    TeiReader& operator=(const TeiReader&) = delete;

    py::list next();
    py::object report() {
        std::unique_lock lock(m_mutex);
        const ConversionReport report = m_report;
        const std::vector<std::string> messages = m_messages;
        lock.unlock(); // what makes objects of Python may run whatever code
        const bool is_malformed = report[ConversionReport::NOT_JSON] + report[ConversionReport::OTHER_JSON] > 0;
        return make_report(report, is_malformed || !messages.empty() ? 1 : 0, messages);
    }

private:
    void load_tables();
    void find_inputs();
    void read_document();
    void raise_fault();
    void end();
    py::list make_sentence(const GatheredDocument& document, GatheredDocument::Sentence sentence);
    py::object make_token(const GatheredDocument& document, std::size_t number);

    ConversionTask m_task;
    ConversionOptions m_line_options; ///< of the lines that whole sentences could be written in
    TagLexicon m_lexicon;
    TagMap m_map;
    std::vector<std::string> m_documents, m_messages;
    TokenGatherer* m_gatherer = nullptr; ///< of the converter
    std::unique_ptr<DocumentConverter> m_converter;
    ConversionReport m_report;
    Survey m_survey;

    OwnedMutex m_mutex; ///< for what follows
    std::size_t m_next_document = 0, m_next_sentence = 0;
    std::shared_ptr<const GatheredDocument> m_document;
    std::string m_fault; ///< of this document, to be raised behind its sentences
    bool m_has_ended = false;

    KnownTexts m_known_texts; ///< tags, names of attributes and files
};

TeiReader::TeiReader(ConversionTask task) : m_task(std::move(task)), m_survey(m_task.options.skip) {
    ConversionOptions& options = m_task.options;
    options.format = ConversionOptions::Format::TOKENS;
    options.columns = read_columns("form,lemma,pos,upos,feats");
    {
        const Unlocked unlocked;
        load_tables();
        find_inputs();
    }
    m_line_options = options;
    m_line_options.columns = read_columns("form,pos");
    auto gatherer = std::make_unique<TokenGatherer>(
        options.whole_sentences ? std::make_unique<ColumnLines>(m_line_options) : nullptr);
    m_gatherer = gatherer.get();
    m_converter = std::make_unique<DocumentConverter>(
        options,
        DocumentConverter::Tables{m_task.lexicon.empty() ? nullptr : &m_lexicon, m_task.map.empty() ? nullptr : &m_map},
        std::move(gatherer));
    m_gatherer->place = [this] { return m_converter->place(); };
    warn(m_messages);
}

void TeiReader::load_tables() {
    if (!m_task.map.empty())
        m_map.load(m_task.map, m_task.options.nfc);
    if (m_task.lexicon.empty())
        return;
    const auto on_short_line = [this](std::size_t number, std::size_t fields) {
        m_messages.push_back(m_task.lexicon + ":" + std::to_string(number) + ": " + std::to_string(fields) +
                             " fields, at least 22 are needed");
        if (m_task.options.strict)
            throw std::invalid_argument(m_messages.back());
    };
    m_lexicon.load(m_task.lexicon, m_task.options.nfc, on_short_line).report(m_report);
}

void TeiReader::find_inputs() {
    TeiInputs inputs = find_documents(m_task.inputs, m_task.hidden, [](const std::string& folder, int error) {
        throw std::system_error(error, std::generic_category(), folder);
    });
    m_documents = std::move(inputs.documents);
    m_report[ConversionReport::FILES_PASSED_OVER] = inputs.passed_over;
    if (m_documents.empty())
        throw std::invalid_argument("no file whose name ends in .tei or .xml");
}

py::list TeiReader::next() {
    std::shared_ptr<const GatheredDocument> document;
    std::size_t sentence = 0;
    for (std::unique_lock lock(m_mutex); !document;) {
        if (m_document && m_next_sentence < m_document->sentences.size()) {
            document = m_document;
            sentence = m_next_sentence++;
        } else if (!m_fault.empty()) {
            raise_fault();
        } else if (m_next_document < m_documents.size()) {
            read_document();
        } else {
            m_document.reset();
            const bool is_to_tell =
                !std::exchange(m_has_ended, true) && m_report[ConversionReport::TOKENS_WRITTEN] == 0;
            lock.unlock();
            if (is_to_tell)
                warn({why_no_token(m_task.options, m_report, m_survey)});
            throw py::stop_iteration();
        }
    }
    return make_sentence(*document, document->sentences[sentence]);
}

void TeiReader::read_document() {
    const std::string& path = m_documents[m_next_document++];
    m_document.reset();
    m_next_sentence = 0;
    ReaderSink sink;
    {
        Unlocked unlocked;
        sink.unlocked = &unlocked;
        try {
            m_converter->convert(path, m_next_document, sink);
        } catch (const ConversionStopped& error) {
            if (sink.faults.empty())
                sink.faults = error.what();
        } catch (const ConversionCancelled&) {
        }
    }
    if (sink.has_error()) {
        end(); // there is no going on behind a gap
        throw py::error_already_set();
    }
    m_document = std::exchange(m_gatherer->document, nullptr);
    m_fault = std::move(sink.faults);
    m_report += m_converter->report();
    if (const auto survey = m_converter->take_survey();
        survey && m_report[ConversionReport::TOKENS_WRITTEN] == 0 && m_survey.tokens() < Survey::TOKENS_OF_HINT)
        m_survey.add(*survey);
}

void TeiReader::end() {
    m_next_document = m_documents.size();
    m_has_ended = true;
}

/// An OSError where the document cannot be read at all.
void TeiReader::raise_fault() {
    const std::string fault = shown_path(std::exchange(m_fault, {}));
    m_messages.push_back(fault);
    const std::string path = m_documents[m_next_document - 1];
    if (m_task.options.strict)
        end();
    const int error = !m_document || m_document->sentences.empty() ? reading_error(path) : 0;
    if (error != 0)
        throw std::system_error(error, std::generic_category(), path);
    PyErr_SetObject(PyExc_ValueError, to_str(fault, "replace").ptr());
    throw py::error_already_set();
}

py::list TeiReader::make_sentence(const GatheredDocument& document, GatheredDocument::Sentence sentence) {
    py::list tokens; // never with gaps, which the garbage collector would show to whoever asks
    for (std::size_t i = sentence.begin; i < sentence.end; ++i)
        tokens.append(make_token(document, i));
    return tokens;
}

py::object TeiReader::make_token(const GatheredDocument& document, std::size_t number) {
    const GatheredDocument::Token& token = document.tokens[number];
    const std::size_t attributes = token.text + NUM_TEXTS;
    std::array<py::object, NUM_FIELDS> fields;
    for (std::size_t i = 0; i < NUM_TEXTS; ++i) {
        const std::string_view text = document.text_at(token.text + i);
        fields[i] = i < 2 ? to_str(text, "replace") : m_known_texts(text); // form and lemma are of many kinds
    }
    py::dict values;
    for (std::size_t i = attributes; i < document.text_end(number); i += 2)
        values[m_known_texts(document.text_at(i))] = to_str(document.text_at(i + 1), "replace");
    fields[NUM_TEXTS] = std::move(values);
    fields[NUM_TEXTS + 1] = path_to_str(document.files[token.file]);
    fields[NUM_TEXTS + 2] = py::int_(token.line);
    auto made = py::reinterpret_steal<py::object>(token_type->tp_alloc(token_type, NUM_FIELDS)); // it is a tuple
    if (!made)
        throw py::error_already_set();
    for (std::size_t i = 0; i < NUM_FIELDS; ++i)
        PyTuple_SET_ITEM(made.ptr(), static_cast<Py_ssize_t>(i), fields[i].release().ptr());
    return made;
}

py::object make_token_type() {
    py::list names;
    for (const auto& [name, meaning] : FIELDS)
        names.append(name);
    py::object type = py::module_::import("collections").attr("namedtuple")("Token", names);
    for (const auto& [name, meaning] : FIELDS)
        type.attr(name).attr("__doc__") = meaning;
    type.attr("__module__") = "zelvor";
    type.attr("__doc__") = R"(A token of a sentence, as read_tei yields it: a named tuple.

>>> sentence = next(read_tei("examples/families/latin.xml", sentence="ab"))
>>> sentence[0].form, sentence[0].attributes["pos"], sentence[0].line > 0
('Hortus', 'NOMcom', True)
)";
    return type;
}

std::unique_ptr<TeiReader> read_tei(const py::object& paths, const py::object& lexicon, const py::kwargs& options) {
    return std::make_unique<TeiReader>(task_of(paths, lexicon, options, true));
}

} // namespace

void bind_reader(py::module_& module) {
    const py::object type = make_token_type();
    module.attr("Token") = type;
    token_type = reinterpret_cast<PyTypeObject*>(py::object(type).release().ptr());
    py::class_<TeiReader>(module, "TeiReader", R"(What read_tei returns: yields sentences; threads may share it.

>>> sum(len(sentence) for sentence in read_tei("examples/families/latin.xml", sentence="ab")) > 0
True
)")
        .def("__iter__", [](py::object self) { return self; })
        .def("__next__", &TeiReader::next)
        .def_property_readonly("report", &TeiReader::report, "A Report of what was read and left out so far.");
    module.def("read_tei", &read_tei, py::arg("paths"), py::arg("lexicon") = py::none(),
               R"(read_tei(paths, lexicon=None, **options)
--

Yields the sentences of TEI documents, lists of Token; the documents come sorted by path, as in convert.

paths are files and folders, or one of them; options are those of tei2crf that say what to read: see convert. All tokens
with a form are there, those without a tag too. It keeps one document at a time, which it reads without Python's lock.

A document with a fault, such as XML that is not well-formed, is a ValueError with file and line, behind the sentences
that could be read; one that cannot be read is an OSError. Whoever calls next() again goes on with the next document.
With strict, that is the end. Documents without any token to read end with a UserWarning that says why.

whole_sentences leaves out what convert leaves out: sentences with a token that has no tag, or cannot stand in a line.

>>> for sentence in read_tei("examples/families/latin.xml", sentence="ab"):
...     print(" ".join(token.form for token in sentence))
...     break
Hortus parvus floret .
)");
}

} // namespace zelvor::python
