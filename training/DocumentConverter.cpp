#include "training/DocumentConverter.h"

#include "training/AttributeAnnotation.h"
#include "training/AttributeTokens.h"
#include "training/ColumnLines.h"
#include "training/ConlluLines.h"
#include "training/DocumentStatistics.h"
#include "training/LexiconAnnotation.h"
#include "training/LexiconTokens.h"
#include "training/Survey.h"
#include "training/XmlReader.h"

#include <exception>
#include <utility>

namespace zelvor {

namespace {

struct FromAttributes {
    FromAttributes(const ConversionOptions& options, const TagMap* map, Sentences& sentences)
        : annotation(options, map, sentences), tokens(options, annotation) {}

    AttributeAnnotation annotation;
    AttributeTokens tokens;
};

struct FromLexicon {
    FromLexicon(const ConversionOptions& options, const DocumentConverter::Tables& tables, Sentences& sentences)
        : annotation(options, *tables.lexicon, tables.map, tables.jobs), tokens(options, annotation, sentences) {}

    LexiconAnnotation annotation;
    LexiconTokens tokens;
};

/// Surveys the beginning of a document on its way to what converts it, up to its first token that is written.
class Surveyor : public XmlHandler {
public:
    Surveyor(const ConversionReport& report, XmlHandler& next) : m_report(report), m_next(next) {}

    void begin_document(const ConversionOptions& options, XmlReader& reader) {
        m_reader = &reader;
        survey = std::make_unique<Survey>(options.has_lexicon ? ConversionOptions::Names() : options.skip);
        reader.set_handler(*this);
    }

    void begin_element(std::string_view name, const XmlAttributes& attributes) override {
        if (has_written())
            survey.reset();
        if (!survey || survey->tokens() >= Survey::TOKENS_OF_HINT)
            m_reader->set_handler(m_next);
        else
            survey->begin_element(name, attributes);
        m_next.begin_element(name, attributes);
    }
    void end_element(std::string_view name) override {
        survey->end_element(name);
        m_next.end_element(name);
    }
    void text(std::string_view text) override {
        survey->text(text);
        m_next.text(text);
    }
    void cdata(std::string_view text) override {
        survey->cdata(text);
        m_next.cdata(text);
    }

    std::unique_ptr<Survey> survey;

private:
    bool has_written() const { return m_report[ConversionReport::TOKENS_WRITTEN] > 0; }

    const ConversionReport& m_report;
    XmlHandler& m_next;
    XmlReader* m_reader = nullptr;
};

std::unique_ptr<SentenceFormat> make_format(const ConversionOptions& options) {
    if (options.format == ConversionOptions::Format::CONLLU)
        return std::make_unique<ConlluLines>(options);
    return std::make_unique<ColumnLines>(options);
}

} // namespace

struct DocumentConverter::Stages {
    Stages(const ConversionOptions& all_options, const Tables& tables, std::unique_ptr<SentenceFormat> own_format)
        : options(all_options), format(own_format ? std::move(own_format) : make_format(options)),
          statistics(*format, [this] { return reader->place(); }),
          sentences(options, *format, report, tables.with_statistics ? &statistics : nullptr,
                    [this] { return reader->place(); }) {
        if (tables.lexicon)
            from_lexicon = std::make_unique<FromLexicon>(options, tables, sentences);
        else
            from_attributes = std::make_unique<FromAttributes>(options, tables.map, sentences);
        XmlHandler& tokens = tables.lexicon ? static_cast<XmlHandler&>(from_lexicon->tokens) : from_attributes->tokens;
        surveyor = std::make_unique<Surveyor>(report, tokens);
        reader = std::make_unique<XmlReader>(
            tokens,
            XmlReader::Listener{[this](const XmlPlace& place, const std::string& message) { fault(place, message); },
                                [this](const std::string& message) {
                                    ++report[ConversionReport::ENTITIES_REFUSED];
                                    fault({}, message);
                                },
                                [this] {
                                    if (sink->is_cancelled())
                                        throw ConversionCancelled();
                                }});
    }

    void begin_document(const std::string& path, std::size_t number, ConversionSink& to);
    void read(const std::string& path);
    void fault(const XmlPlace& place, const std::string& message);

    const ConversionOptions& options;
    ConversionSink* sink = nullptr;
    ConversionReport report;
    std::unique_ptr<SentenceFormat> format;
    DocumentStatistics statistics;
    Sentences sentences;
    std::unique_ptr<FromLexicon> from_lexicon; ///< either of the two
    std::unique_ptr<FromAttributes> from_attributes;
    std::unique_ptr<Surveyor> surveyor;
    std::unique_ptr<XmlReader> reader;
    std::string document;
    std::size_t faults = 0; ///< of the document
};

void DocumentConverter::Stages::begin_document(const std::string& path, std::size_t number, ConversionSink& to) {
    document = path == "-" ? "standard input" : path;
    sink = &to;
    faults = 0;
    report = {};
    format->begin_document(path, number);
    sentences.begin_document(document, to);
    surveyor->begin_document(options, *reader);
    if (from_lexicon)
        from_lexicon->tokens.begin_document();
    else
        from_attributes->tokens.begin_document();
}

void DocumentConverter::Stages::read(const std::string& path) {
    try {
        reader->read(path);
    } catch (const ConversionStopped&) {
        ++report[ConversionReport::FILES_FAILED];
        sentences.end_document();
        throw;
    } catch (...) {
        ++report[ConversionReport::FILES_FAILED];
        throw;
    }
    ++report[faults == 0 ? ConversionReport::FILES_READ : ConversionReport::FILES_FAILED];
    sentences.end_document();
}

void DocumentConverter::Stages::fault(const XmlPlace& place, const std::string& message) {
    ++faults;
    sink->fault(document, place, message);
    if (options.strict)
        reader->stop(std::make_exception_ptr(ConversionStopped("at the fault of " + document)));
}

DocumentConverter::DocumentConverter(const ConversionOptions& options, const Tables& tables,
                                     std::unique_ptr<SentenceFormat> format)
    : m_stages(std::make_unique<Stages>(options, tables, std::move(format))) {}

DocumentConverter::~DocumentConverter() = default;

XmlPlace DocumentConverter::place() const { return m_stages->reader->place(); }

const ConversionReport& DocumentConverter::report() const { return m_stages->report; }

std::unique_ptr<Survey> DocumentConverter::take_survey() {
    const bool has_written = m_stages->report[ConversionReport::TOKENS_WRITTEN] > 0;
    return has_written ? nullptr : std::move(m_stages->surveyor->survey);
}

void DocumentConverter::convert(const std::string& path, std::size_t number, ConversionSink& sink) {
    m_stages->begin_document(path, number, sink);
    try {
        m_stages->read(path);
    } catch (...) {
        m_stages->sentences.give_up_document();
        throw;
    }
}

} // namespace zelvor
