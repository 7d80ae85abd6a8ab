#pragma once

#include "training/ConversionReport.h"
#include "training/FrequentTexts.h"
#include "training/XmlReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

/// How many tokens a sentence has: the first length of each class.
constexpr std::array<std::uint32_t, 16> SENTENCE_LENGTHS{0,  1,  5,  10, 15, 20,  25,  30,
                                                         35, 40, 45, 50, 75, 100, 200, 500};

struct StatisticsSums {
    struct Longest {
        std::uint64_t tokens = 0;
        std::uint32_t document = 0; ///< by number
        XmlPlace begin;
    };

    std::array<std::uint64_t, SENTENCE_LENGTHS.size()> lengths{};   ///< sentences written
    Longest longest;                                                ///< the first of them
    std::array<std::uint64_t, ConversionReport::COUNTS> unlisted{}; ///< tokens by kind that no text stands for
};

/// What a document, or some of it, adds to the statistics of a run.
struct StatisticsPart {
    FrequentTexts texts; ///< tags and tokens that were left out; kinds as in ConversionStatistics
    StatisticsSums sums;

    std::size_t bytes() const { return sizeof *this + texts.bytes(); }
};

/// Counts one document after the other: what its sentences are made of, and what is left out. Takes 80 KB at most; what
/// becomes more goes on as a part of the document.
class DocumentStatistics {
public:
    using Place = std::function<XmlPlace()>;
    using Send = std::function<void(StatisticsPart&& part)>;

    explicit DocumentStatistics(Place place); ///< where the parser is

    void begin_document(Send send);
    /// A token of the sentence. Only one that may still be dropped is remembered by its text.
    void add(std::string_view tag, std::string_view text, bool may_be_dropped);
    void leave_out(ConversionReport::Count reason, std::string_view text);
    /// What becomes of the tokens of the sentence, so many; it ends with either.
    void write(std::uint64_t tokens, std::uint64_t times);
    void drop(ConversionReport::Count reason, std::uint64_t tokens);
    /// Sends what there is.
    void end_document();

private:
    void leave_out(ConversionReport::Count reason, std::string_view text, const Place& place);
    void enter_tag(std::string_view tag);
    void remember(std::string_view text);
    void clear_sentence();
    void send(FrequentTexts& texts);

    Place m_place;
    Send m_send;
    FrequentTexts m_left_out, m_tags;
    StatisticsSums m_sums;
    std::vector<std::uint32_t> m_tokens_of_tag; ///< of the sentence, by number of the tag
    std::vector<std::uint32_t> m_tags_of_sentence;
    std::uint64_t m_tokens_without_number = 0; ///< of the sentence, for want of room
    XmlPlace m_begin;                          ///< of the sentence
    bool m_has_begun = false;
    std::vector<char> m_told;     ///< the tokens of the sentence, each behind its length
    std::size_t m_told_bytes = 0; ///< of these
    std::uint64_t m_num_told = 0;
};

/// What a run has written and left out, in more detail than by reasons; bounded, see docs/tei2crf.md.
class ConversionStatistics {
public:
    static constexpr ConversionReport::Count TAG = ConversionReport::TOKENS_WRITTEN; ///< other kinds: reasons

    struct Document {
        std::uint32_t number; ///< in the order of the run
        ConversionReport report;
    };
    struct Frequent {
        std::vector<FrequentTexts::Text> texts; ///< as of FrequentTexts::sorted()
        std::uint64_t error = 0;                ///< each may have come so many times more; 0: exact
        bool is_exact() const { return error == 0 && unlisted == 0; }
        std::uint64_t unlisted = 0; ///< tokens that are in none of the counts
    };

    ConversionStatistics();

    /// The number of the document must not be lower than the last one.
    void add(const StatisticsPart& part, std::uint32_t document);
    void end_document(std::uint32_t document, const ConversionReport& report);
    /// There will be no file.
    void forget_written();

    /// Those with faults or tokens left out, the most tokens first, of equal ones as they came; so many at most.
    static constexpr std::size_t MAX_WORST = 50;
    const std::vector<Document>& worst() const { return m_worst; }
    std::uint64_t documents_with_losses() const { return m_documents_with_losses; }

    Frequent frequent(ConversionReport::Count kind) const;
    const StatisticsSums& sums() const { return m_sums; }

private:
    FrequentTexts m_texts;
    StatisticsSums m_sums;
    std::vector<Document> m_worst;
    std::uint64_t m_documents_with_losses = 0;
    bool m_has_written = true;
};

} // namespace zelvor
