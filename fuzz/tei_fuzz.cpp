// Two TEI documents, one after the other, through both readers.
#include "fuzz/fuzz.h"
#include "training/CrfTokenReader.h"
#include "utils/common_utils/entity_guard.h"

#include <algorithm>
#include <deque>
#include <set>

namespace zelvor::fuzz {
namespace {

constexpr const char* LEXICON[][3] = {{"1", "NN", "Noun"}, {"2", "V", "Verb"}, {"3", "", "Noun"}, {"4", "ADJ", "a b"}};

const TokenLineFormat FORMAT{
    {TokenLineFormat::Column::FORM, TokenLineFormat::Column::LEMMA, TokenLineFormat::Column::POS},
    '\t',
    TokenLineFormat::BadToken::DROP};

std::string lexicon_text() {
    std::string text;
    for (const auto& [id, lemma_pos, pos] : LEXICON)
        text.append("0#a#a#0#a#a#")
            .append(lemma_pos)
            .append(" #")
            .append(id)
            .append("#-#-#-#-#-#-#-#-#-#")
            .append(pos) += "#-#-#-#-\n";
    return text;
}

/// The same lexicon for both readers.
struct Lexicon {
    Lexicon() {
        for_each_line(lexicon_text(), [&](const std::string& line) { entries.emplace_back().parse_latin(line); });
        for (LexicalEntry& entry : entries)
            by_id.emplace(std::stoi(entry.get_word_form_id()), &entry);
        tags.load(MemoryFile(lexicon_text()).path(), [](std::size_t, std::size_t) {});
    }

    std::deque<LexicalEntry> entries;
    std::map<int, LexicalEntry*> by_id;
    TagLexicon tags;
};

/// The reader of whole sentences; here it counts the tokens that begin and frees all that it made.
class SentenceReader : public CrfTrainingTeiSaxParser {
public:
    explicit SentenceReader(const std::map<int, LexicalEntry*>& lexicon) : CrfTrainingTeiSaxParser(nullptr, &lexicon) {
        set_substitute_entities(true);
    }
    ~SentenceReader() override {
        for (const auto* const sentence : m_sentences) {
            for (const LexicalEntry* const entry : *sentence)
                delete entry;
            delete sentence;
        }
    }
    SentenceReader(const SentenceReader&) = delete;
    SentenceReader& operator=(const SentenceReader&) = delete;

    void on_start_element(const Glib::ustring& name, const AttributeList& attributes) override {
        CrfTrainingTeiSaxParser::on_start_element(name, attributes);
        m_tokens_in += name.raw() == "w" || name.raw() == "c";
        if (m_pvec_plexical_entry_representation)
            m_sentences.insert(m_pvec_plexical_entry_representation);
    }

    std::string read(const std::string& path) {
        get_entry_representations()->clear();
        try {
            const EntityGuard guard(path, nullptr);
            parse_file(path);
        } catch (const std::exception&) { // the sentences before the fault are there
        }
        std::string lines;
        for (const auto* const sentence : *get_entry_representations()) {
            for (const LexicalEntry* const entry : *sentence)
                append_token_line(lines, FORMAT, entry->get_word_form(), entry->get_lemma(), entry->get_pos());
            lines += '\n';
        }
        std::size_t tokens_out = 0;
        for (const auto* const sentence : m_sentences)
            tokens_out += sentence->size();
        require(tokens_out <= m_tokens_in, "no more tokens come out than go in", path);
        return lines;
    }

private:
    std::set<const std::vector<LexicalEntry*>*> m_sentences;
    std::size_t m_tokens_in = 0;
};

/// The reader that writes lines as it goes.
struct LineReader {
    explicit LineReader(const TagLexicon& tags)
        : reader(tags, FORMAT, report,
                 {[this](std::string_view text) { lines += text; }, {}, [](const auto&, const auto&) {}}) {}

    std::string read(const std::string& path) {
        lines.clear();
        report = ConversionReport();
        reader.read_file(path);
        require(static_cast<std::uint64_t>(std::ranges::count(lines, '\n')) ==
                    report[ConversionReport::TOKENS_WRITTEN] + report[ConversionReport::SENTENCES],
                "the report counts the lines", lines);
        return lines;
    }

    std::string lines;
    ConversionReport report;
    CrfTokenReader reader;
};

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    static const Lexicon lexicon;
    const auto [first, second] = halves(data, size);
    const MemoryFile first_file(first), second_file(second);
    SentenceReader used_sentence_reader(lexicon.by_id), fresh_sentence_reader(lexicon.by_id);
    LineReader used_line_reader(lexicon.tags), fresh_line_reader(lexicon.tags);
    const std::string lines = used_sentence_reader.read(first_file.path());
    require_equal(used_line_reader.read(first_file.path()), lines, "both readers see the same sentences");
    const std::string second_lines = fresh_sentence_reader.read(second_file.path());
    require_equal(used_sentence_reader.read(second_file.path()), second_lines, "no state is left, sentences");
    require_equal(fresh_line_reader.read(second_file.path()), second_lines,
                  "both readers see the same, second document");
    require_equal(used_line_reader.read(second_file.path()), second_lines, "no state is left, lines");
    return 0;
}
