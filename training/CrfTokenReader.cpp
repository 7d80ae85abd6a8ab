#include "training/CrfTokenReader.h"

#include "training/tags.h"
#include "utils/common_utils/entity_guard.h"
#include "utils/common_utils/text.h"

#include <glibmm/exception.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/uri.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

namespace {

/// Tokens of a closed sentence that wait for the next sentence are written once they are as many bytes.
constexpr std::size_t ENOUGH_TO_WRITE = 65536;

/// Of a longer text no more is kept: the token breaks its line anyway.
constexpr std::size_t MAX_TOKEN_TEXT = std::size_t{1024} * 1024;

/// Why a path cannot be read; empty for any readable file, a pipe included.
std::string why_unreadable(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0)
        return std::strerror(errno);
    return S_ISDIR(status.st_mode) ? std::strerror(EISDIR) : "";
}

ConversionReport::Count reason_of(Analysis::Outcome outcome) {
    switch (outcome) {
    case Analysis::Outcome::UNPARSABLE:
        return ConversionReport::NOT_JSON;
    case Analysis::Outcome::WRONG_SHAPE:
        return ConversionReport::OTHER_JSON;
    case Analysis::Outcome::FOUND:
        return ConversionReport::UNKNOWN_ID;
    case Analysis::Outcome::ABSENT:
        break;
    }
    return ConversionReport::NO_ANALYSIS;
}

CrfTokenReader* current_reader = nullptr;

std::string_view as_text(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

bool is_lack_of_memory(const xmlError* error) { return error && error->code == XML_ERR_NO_MEMORY; }

/// Gathers, while it lives, the messages of the XML library that belong to no parser, such as of a failed read.
class MessageCollector {
public:
    MessageCollector() {
        m_text.reserve(2 * MAX_BYTES); // append must not throw
        xmlSetGenericErrorFunc(this, &append);
    }
    ~MessageCollector() { xmlSetGenericErrorFunc(nullptr, nullptr); }
    MessageCollector(const MessageCollector&) = delete;
    MessageCollector& operator=(const MessageCollector&) = delete;

    std::string text() const { return std::string(trimmed(m_text)); }
    bool tells_lack_of_memory() const { return m_tells_lack_of_memory; }

private:
    static constexpr std::size_t MAX_BYTES = 1000;

    static void append(void* collector, const char* format, ...)
        __attribute__((format(printf, 2, 3))) { // piece by piece
        std::array<char, MAX_BYTES> piece{};
        va_list arguments;
        va_start(arguments, format);
        std::vsnprintf(piece.data(), piece.size(), format, arguments);
        va_end(arguments);
        auto& messages = *static_cast<MessageCollector*>(collector);
        if (is_lack_of_memory(xmlGetLastError()))
            messages.m_tells_lack_of_memory = true;
        if (messages.m_text.size() < MAX_BYTES)
            messages.m_text += piece.data();
    }

    std::string m_text;
    bool m_tells_lack_of_memory = false;
};

} // namespace

/// What the XML library calls. No exception may leave these; the first one ends the document instead.
struct CrfTokenReader::Callbacks {
    template<typename Use>
    static void run(void* context, Use use) {
        CrfTokenReader& reader = *current_reader;
        reader.m_current = static_cast<xmlParserCtxtPtr>(context);
        try {
            if (!reader.m_thrown)
                use(reader);
        } catch (...) {
            reader.m_thrown = std::current_exception();
        }
        if (!reader.m_thrown)
            return;
        xmlStopParser(reader.m_current);
        xmlStopParser(reader.context_); // the entities between the two end at their next call
    }

    static void start_element(void* context, const xmlChar* name, const xmlChar** attributes) {
        run(context, [&](CrfTokenReader& reader) { reader.begin_element(as_text(name), attributes); });
    }

    static void end_element(void* context, const xmlChar* name) {
        run(context, [&](CrfTokenReader& reader) { reader.end_element(as_text(name)); });
    }

    static void characters(void* context, const xmlChar* text, int length) {
        run(context, [&](CrfTokenReader& reader) {
            if (reader.m_is_word_node && reader.m_chars.size() <= MAX_TOKEN_TEXT)
                reader.m_chars.append(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
        });
    }
};

CrfTokenReader::CrfTokenReader(const TagLexicon& lexicon, const TokenLineFormat& format, ConversionReport& report,
                               Listener listener)
    : CrfTrainingTeiSaxParser(nullptr, nullptr), m_lexicon(lexicon), m_format(format), m_report(report),
      m_listener(std::move(listener)) {
    set_substitute_entities(true);
}

void CrfTokenReader::read_file(const std::string& path) {
    parse(path, why_unreadable(path), [&] {
        const EntityGuard guard(path, [this](const std::string& message) {
            ++m_report[ConversionReport::ENTITIES_REFUSED];
            this->fault({}, message);
        });
        parse_file(path);
        guard.rethrow();
    });
}

void CrfTokenReader::read_standard_input() {
    parse("standard input", "", [&] {
        const EntityGuard guard = EntityGuard::for_standard_input([this](const std::string& message) {
            ++m_report[ConversionReport::ENTITIES_REFUSED];
            this->fault({}, message);
        });
        parse_file("-");
        guard.rethrow();
    });
}

void CrfTokenReader::parse(const std::string& path, std::string fault, const std::function<void()>& run) {
    current_reader = this;
    m_path = path;
    m_faults = 0;
    m_has_error = m_has_fatal_error = false;
    m_current = nullptr;
    m_sentence = Sentence(); // of a document that did not come to its end
    m_is_in_text = false;
    m_depth = 0;
    if (fault.empty()) {
        const MessageCollector messages;
        try {
            run();
        } catch (const xmlpp::parse_error&) { // reported already, or but a warning
        } catch (const xmlpp::exception& error) {
            fault = error.what();
        } catch (const Glib::Exception& error) {
            fault = error.what().raw();
        }
        if (messages.tells_lack_of_memory() && !m_thrown)
            m_thrown = std::make_exception_ptr(std::bad_alloc());
        else if (const std::string text = messages.text(); !text.empty())
            fault = text;
    }
    if (!fault.empty())
        this->fault({}, fault);
    ++m_report[m_faults == 0 && !m_thrown ? ConversionReport::FILES_READ : ConversionReport::FILES_FAILED];
    const std::exception_ptr thrown = std::exchange(m_thrown, nullptr);
    try {
        if (thrown)
            std::rethrow_exception(thrown);
    } catch (const ConversionStopped&) {
        finish_sentence();
        throw;
    }
    finish_sentence();
}

void CrfTokenReader::on_start_document() {
    CrfTrainingTeiSaxParser::on_start_document();
    context_->sax->startElement = Callbacks::start_element;
    context_->sax->endElement = Callbacks::end_element;
    context_->sax->characters = Callbacks::characters;
    context_->sax->ignorableWhitespace = Callbacks::characters;
}

void CrfTokenReader::begin_element(std::string_view name, const unsigned char** attributes) {
    if (name == "s") {
        begin_sentence();
    } else if (name == "w" || name == "c") {
        begin_token();
        for (; attributes && *attributes; attributes += 2)
            if (as_text(attributes[0]) == "lemma" && attributes[1])
                m_lemma_json = as_text(attributes[1]);
    }
}

void CrfTokenReader::end_element(std::string_view name) {
    if (name == "w")
        end_word();
    else if (name == "c")
        end_punctuation();
    else if (name == "s")
        end_sentence();
}

void CrfTokenReader::on_error(const Glib::ustring& text) {
    m_current = faulty_context();
    const xmlError* const error = xmlGetLastError();
    const bool is_fatal = error && error->level == XML_ERR_FATAL;
    try { // what leaves this would stop the parser, where it may read on in a text that stopping has freed
        if (is_lack_of_memory(error) && !m_thrown)
            throw std::bad_alloc();
        if (!m_thrown && (!m_has_error || (is_fatal && !m_has_fatal_error))) {
            m_has_error = true;
            m_has_fatal_error = is_fatal;
            fault(place(), std::string(trimmed(text.raw())));
        }
    } catch (...) {
        m_thrown = std::current_exception();
    }
    stop_costly_errors();
}

void CrfTokenReader::fault(const Place& place, const std::string& message) {
    ++m_faults;
    m_listener.fault(place, message);
    if (m_strict && !m_thrown)
        m_thrown = std::make_exception_ptr(ConversionStopped("at the fault of " + m_path));
}

void CrfTokenReader::on_fatal_error(const Glib::ustring& text) { on_error(text); }

void CrfTokenReader::begin_sentence() {
    finish_sentence();
    m_is_in_text = true;
    ++m_depth;
}

void CrfTokenReader::end_sentence() {
    ++m_sentence.ends;
    --m_depth;
}

void CrfTokenReader::finish_sentence() {
    if (m_sentence.ends == 0 && m_sentence.tokens > 0) {
        m_report[ConversionReport::OUTSIDE_SENTENCE] += m_sentence.tokens;
        for (const auto& [place, text] : m_sentence.told)
            m_listener.left_out(ConversionReport::OUTSIDE_SENTENCE, place, text);
    }
    m_sentence.told.clear();
    m_report[ConversionReport::SENTENCES] += m_sentence.ends;
    m_report[ConversionReport::TOKENS_WRITTEN] += m_sentence.ends * m_sentence.tokens;
    m_report[ConversionReport::TOKENS_REPLACED] += m_sentence.ends * m_sentence.replaced;
    m_sentence.lines += '\n';
    for (; m_sentence.ends > 0; --m_sentence.ends)
        m_listener.write(m_sentence.lines);
    m_sentence.lines.clear();
    m_sentence.tokens = m_sentence.replaced = 0;
}

void CrfTokenReader::end_word() {
    if (m_lemma_json.size() <= 1) {
        leave_out(ConversionReport::NO_ANALYSIS);
    } else {
        unwrap_analysis(m_lemma_json);
        const Analysis& analysis = m_analysis_reader.read(m_json_reader, m_lemma_json);
        const bool has_id = analysis.outcome == Analysis::Outcome::FOUND;
        if (const std::string* const tag = has_id ? m_lexicon.find(analysis.id) : nullptr)
            add_token(m_chars, analysis.lemma, *tag);
        else
            leave_out(reason_of(analysis.outcome), has_id ? std::to_string(analysis.id) : m_lemma_json);
        if (analysis.outcome == Analysis::Outcome::UNPARSABLE)
            return; // as in the base
    }
    reset_token();
}

void CrfTokenReader::end_punctuation() {
    if (const std::string_view tag = punctuation_tag(m_chars); !tag.empty())
        add_token(m_chars, m_chars, tag);
    else
        leave_out(ConversionReport::NO_TAG);
    reset_token();
}

void CrfTokenReader::add_token(std::string_view form, std::string_view lemma, std::string_view pos) {
    if (!m_is_in_text)
        return leave_out(ConversionReport::OUTSIDE_SENTENCE);
    if (form.size() > MAX_TOKEN_TEXT)
        return leave_out(ConversionReport::BREAKS_LINE);
    std::string spelled_out;
    if (form.starts_with('-')) { // an entry takes it for a form abbreviated against the lemma
        spelled_out = BaseLexicalEntry(std::string(lemma), std::string(form), "").get_word_form();
        form = spelled_out;
    }
    const TokenLineOutcome outcome = append_token_line(m_sentence.lines, m_format, form, lemma, pos);
    if (outcome == TokenLineOutcome::BROKEN)
        return leave_out(ConversionReport::BREAKS_LINE);
    ++m_sentence.tokens;
    if (m_listener.left_out && m_sentence.ends == 0)
        m_sentence.told.emplace_back(place(), m_chars);
    m_sentence.replaced += outcome == TokenLineOutcome::REPLACED;
    if (m_sentence.lines.size() > ENOUGH_TO_WRITE && m_sentence.ends == 1 && m_depth == 0) {
        m_listener.write(m_sentence.lines);
        m_sentence.lines.clear();
    }
}

void CrfTokenReader::leave_out(ConversionReport::Count reason, std::string_view detail) {
    ++m_report[reason];
    if (m_listener.left_out)
        m_listener.left_out(reason, place(), detail.empty() ? m_chars : m_chars + " (" + std::string(detail) + ")");
    const bool is_malformed = reason == ConversionReport::NOT_JSON || reason == ConversionReport::OTHER_JSON;
    const bool is_bad_token =
        reason == ConversionReport::BREAKS_LINE && m_format.on_bad_token == TokenLineFormat::BadToken::FAIL;
    if ((m_strict && is_malformed) || is_bad_token)
        throw ConversionStopped(to_string(place(), m_path) + ": " + label_of(reason) + ": " + m_chars);
}

CrfTokenReader::Place CrfTokenReader::place() const {
    const bool is_in_entity = m_current != context_ && m_current && m_current->input && m_current->input->filename;
    const xmlParserCtxtPtr context = is_in_entity ? m_current : context_;
    Place place;
    if (is_in_entity) { // by an address; that of the document is escaped, see EntityGuard
        const std::unique_ptr<char, void (*)(void*)> file(xmlURIUnescapeString(m_current->input->filename, 0, nullptr),
                                                          xmlFree);
        place.file = file ? file.get() : m_current->input->filename;
    }
    place.line = context ? xmlSAX2GetLineNumber(context) : 0;
    return place;
}

std::string to_string(const CrfTokenReader::Place& place, const std::string& document) {
    return (place.file.empty() ? document : place.file) + (place.line > 0 ? ":" + std::to_string(place.line) : "");
}

} // namespace zelvor
