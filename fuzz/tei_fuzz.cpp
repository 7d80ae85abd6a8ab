// Two TEI documents, one after the other, through both kinds of conversion and through the reader of whole sentences:
// none leaves anything to the next, and sentences have the lines of a conversion with the same lexicon. That knows
// prefixes of names, so documents with one are not compared; nor are tokens that break a line.
#include "fuzz/fuzz.h"
#include "training/ColumnLines.h"
#include "training/ConversionStatistics.h"
#include "training/CrfTrainingTeiSaxParser.h"
#include "training/DocumentConverter.h"
#include "training/TagLexicon.h"
#include "utils/common_utils/entity_guard.h"

#include <algorithm>

namespace zelvor::fuzz {
namespace {

constexpr const char* LEXICON[] = {"0#a#a#0#a#a#NN#1#-#-#-#-#-#-#-#-#-#Noun#-#-#-#-",
                                   "0#a#a#0#a#a#V#2#-#-#-#-#-#-#-#-#-#Verb#-#-#-#-"};

const ConversionOptions FROM_ATTRIBUTES, FROM_LEXICON = [] {
    ConversionOptions options;
    options.has_lexicon = true;
    options.columns = read_columns("form,lemma,pos");
    return options;
}();

/// One kind of conversion; every token of a document is written or left out for a reason.
class Converter : public ConversionSink {
public:
    explicit Converter(const TagLexicon* lexicon)
        : m_converter(lexicon ? FROM_LEXICON : FROM_ATTRIBUTES, {lexicon, nullptr, 1, true}) {}

    std::string read(const std::string& path) {
        m_lines.clear();
        m_counted = 0;
        m_converter.convert(path, 1, *this);
        require(static_cast<std::uint64_t>(std::ranges::count(m_lines, '\n')) ==
                    m_converter.report()[ConversionReport::TOKENS_WRITTEN] +
                        m_converter.report()[ConversionReport::SENTENCES],
                "the report counts the lines", m_lines);
        require(m_counted == m_converter.report()[ConversionReport::TOKENS_WRITTEN] + m_converter.report().left_out(),
                "every token is counted by its text", m_lines);
        return m_lines;
    }

    void write(std::string_view text, std::uint64_t) override { m_lines += text; }
    void fault(const std::string&, const XmlPlace&, const std::string&) override {}
    void count(StatisticsPart&& part) override {
        for (std::uint8_t kind = 0; kind < ConversionReport::COUNTS; ++kind)
            for (const FrequentTexts::Text& text : part.texts.most_frequent(kind))
                m_counted += text.count;
    }
    void left_out(ConversionReport::Count, const std::string&, const XmlPlace&, const std::string&) override {}

private:
    DocumentConverter m_converter;
    std::string m_lines;
    std::uint64_t m_counted = 0; ///< tokens, in the statistics
};

/// Counts the tokens that begin, and frees all that it made.
class SentenceReader : public CrfTrainingTeiSaxParser {
public:
    SentenceReader() : CrfTrainingTeiSaxParser(nullptr, &entries()) { set_substitute_entities(true); }
    ~SentenceReader() override {
        for (const auto& sentence : m_sentences)
            std::ranges::for_each(*sentence, std::default_delete<LexicalEntry>());
    }
    SentenceReader& operator=(SentenceReader&&) = delete; // nor is there any other copy

    void on_start_element(const Glib::ustring& name, const AttributeList& attributes) override {
        CrfTrainingTeiSaxParser::on_start_element(name, attributes);
        const auto has_prefix = [](const Glib::ustring& text) { return text.raw().find(':') < text.raw().size(); };
        m_has_prefix |= has_prefix(name) || std::ranges::any_of(attributes, has_prefix, &Attribute::name);
        m_tokens_in += name.raw() == "w" || name.raw() == "c";
        if (name.raw() == "s")
            m_sentences.emplace_back(m_pvec_plexical_entry_representation);
    }

    std::string read(const std::string& path) {
        get_entry_representations()->clear();
        m_has_prefix = false;
        try {
            const EntityGuard guard(path, nullptr);
            parse_file(path);
        } catch (const std::exception&) { // the sentences before the fault are there
        }
        std::size_t tokens_out = 0;
        for (const auto& sentence : m_sentences)
            tokens_out += sentence->size();
        require(tokens_out <= m_tokens_in, "no more tokens come out than go in", path);
        std::string lines;
        for (const auto* const sentence : *get_entry_representations()) {
            ColumnLines format(FROM_LEXICON); // which leaves out what breaks a line
            for (const LexicalEntry* const entry : *sentence) {
                const std::string form = entry->get_word_form(), lemma = entry->get_lemma(), pos = entry->get_pos();
                Token token;
                std::tie(token.form, token.lemma, token.pos) = std::tie(form, lemma, pos);
                format.add(token);
            }
            lines += format.end();
        }
        return lines;
    }

    bool has_prefix() const { return m_has_prefix; }

private:
    static const std::map<int, LexicalEntry*>& entries() {
        static LexicalEntry noun, verb;
        static const std::map<int, LexicalEntry*> by_id = [] {
            noun.parse_latin(LEXICON[0]);
            verb.parse_latin(LEXICON[1]);
            return std::map<int, LexicalEntry*>{{1, &noun}, {2, &verb}};
        }();
        return by_id;
    }

    std::vector<std::unique_ptr<std::vector<LexicalEntry*>>> m_sentences;
    std::size_t m_tokens_in = 0;
    bool m_has_prefix = false;
};

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    static const zelvor::TagLexicon tags = [] {
        zelvor::TagLexicon lexicon;
        lexicon.load(MemoryFile(LEXICON[0] + std::string("\n") + LEXICON[1]).path(), false, [](auto, auto) {});
        return lexicon;
    }();
    const auto [first, second] = halves(data, size);
    const MemoryFile first_file(first), second_file(second);
    for (const zelvor::TagLexicon* const lexicon : {static_cast<const zelvor::TagLexicon*>(nullptr), &tags}) {
        Converter used(lexicon), fresh(lexicon);
        used.read(first_file.path());
        require_equal(used.read(second_file.path()), fresh.read(second_file.path()), "no state is left");
    }
    SentenceReader used, fresh;
    const std::string first_lines = used.read(first_file.path()), lines = fresh.read(second_file.path());
    if (!used.has_prefix())
        require_equal(Converter(&tags).read(first_file.path()), first_lines, "both readers see the same");
    require_equal(used.read(second_file.path()), lines, "no state is left, sentences");
    if (!fresh.has_prefix())
        require_equal(Converter(&tags).read(second_file.path()), lines, "both readers see the same, second document");
    return 0;
}
