#include "training/DocumentConverter.h"

#include "training/AttributeAnnotation.h"
#include "training/AttributeTokens.h"
#include "training/ColumnLines.h"
#include "training/LexiconAnnotation.h"
#include "training/LexiconTokens.h"
#include "training/XmlReader.h"

#include <exception>
#include <variant>

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

} // namespace

struct DocumentConverter::Stages {
    Stages(const ConversionOptions& all_options, const Tables& tables)
        : options(all_options), lines(options), sentences(options, lines, report, [this] { return reader->place(); }) {
        if (tables.lexicon)
            from_lexicon = std::make_unique<FromLexicon>(options, tables, sentences);
        else
            from_attributes = std::make_unique<FromAttributes>(options, tables.map, sentences);
        XmlHandler& tokens = tables.lexicon ? static_cast<XmlHandler&>(from_lexicon->tokens) : from_attributes->tokens;
        reader = std::make_unique<XmlReader>(
            tokens,
            XmlReader::Listener{[this](const XmlPlace& place, const std::string& message) { fault(place, message); },
                                [this](const std::string& message) {
                                    ++report[ConversionReport::ENTITIES_REFUSED];
                                    fault({}, message);
                                }});
    }

    void begin_document(const std::string& name, ConversionSink& to);
    void fault(const XmlPlace& place, const std::string& message);

    const ConversionOptions& options;
    ConversionSink* sink = nullptr;
    ConversionReport report;
    ColumnLines lines;
    Sentences sentences;
    std::unique_ptr<FromLexicon> from_lexicon; ///< either of the two
    std::unique_ptr<FromAttributes> from_attributes;
    std::unique_ptr<XmlReader> reader;
    std::string document;
    std::size_t faults = 0; ///< of the document
};

void DocumentConverter::Stages::begin_document(const std::string& name, ConversionSink& to) {
    document = name;
    sink = &to;
    faults = 0;
    report = {};
    sentences.begin_document(name, to);
    if (from_lexicon)
        from_lexicon->tokens.begin_document();
    else
        from_attributes->tokens.begin_document();
}

void DocumentConverter::Stages::fault(const XmlPlace& place, const std::string& message) {
    ++faults;
    sink->fault(document, place, message);
    if (options.strict)
        reader->stop(std::make_exception_ptr(ConversionStopped("at the fault of " + document)));
}

DocumentConverter::DocumentConverter(const ConversionOptions& options, const Tables& tables)
    : m_stages(std::make_unique<Stages>(options, tables)) {}

DocumentConverter::~DocumentConverter() = default;

const ConversionReport& DocumentConverter::report() const { return m_stages->report; }

void DocumentConverter::convert(const std::string& path, ConversionSink& sink) {
    Stages& stages = *m_stages;
    stages.begin_document(path == "-" ? "standard input" : path, sink);
    try {
        stages.reader->read(path);
    } catch (const ConversionStopped&) {
        ++stages.report[ConversionReport::FILES_FAILED];
        stages.sentences.end_document();
        throw;
    } catch (...) {
        ++stages.report[ConversionReport::FILES_FAILED];
        throw;
    }
    ++stages.report[stages.faults == 0 ? ConversionReport::FILES_READ : ConversionReport::FILES_FAILED];
    stages.sentences.end_document();
}

} // namespace zelvor
