// Two TEI documents, one after the other, through both kinds of conversion.
#include "fuzz/fuzz.h"
#include "training/ConversionStatistics.h"
#include "training/DocumentConverter.h"
#include "training/TagLexicon.h"

#include <algorithm>

namespace zelvor::fuzz {
namespace {

/// One kind of conversion; every token of a document is written or left out for a reason.
class Converter : public ConversionSink {
public:
    explicit Converter(const TagLexicon* lexicon) : m_converter(options(lexicon), {lexicon, nullptr, 1, true}) {}

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
        for (std::uint8_t kind = 0; kind < ConversionReport::COUNTS; ++kind) {
            m_counted += part.sums.unlisted[kind];
            for (const FrequentTexts::Text& text : part.texts.sorted(kind))
                m_counted += text.count;
        }
    }
    void left_out(ConversionReport::Count, const std::string&, const XmlPlace&, const std::string&) override {}

private:
    static const ConversionOptions& options(bool has_lexicon) {
        static const ConversionOptions from_attributes, from_lexicon = [] {
            ConversionOptions options;
            options.has_lexicon = true;
            return options;
        }();
        return has_lexicon ? from_lexicon : from_attributes;
    }

    DocumentConverter m_converter;
    std::string m_lines;
    std::uint64_t m_counted = 0; ///< tokens, in the statistics
};

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    static const zelvor::TagLexicon tags = [] {
        zelvor::TagLexicon lexicon;
        lexicon.load(MemoryFile("0#a#a#0#a#a#NN#1#-#-#-#-#-#-#-#-#-#Noun#-#-#-#-\n"
                                "0#a#a#0#a#a#V#2#-#-#-#-#-#-#-#-#-#Verb#-#-#-#-\n")
                         .path(),
                     false, [](std::size_t, std::size_t) {});
        return lexicon;
    }();
    const auto [first, second] = halves(data, size);
    const MemoryFile first_file(first), second_file(second);
    for (const zelvor::TagLexicon* const lexicon : {static_cast<const zelvor::TagLexicon*>(nullptr), &tags}) {
        Converter used(lexicon), fresh(lexicon);
        used.read(first_file.path());
        require_equal(used.read(second_file.path()), fresh.read(second_file.path()), "no state is left");
    }
    return 0;
}
