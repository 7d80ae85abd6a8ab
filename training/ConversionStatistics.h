#pragma once

#include "training/ConversionReport.h"
#include "training/FrequentTexts.h"
#include "training/XmlReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
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

    std::array<std::uint64_t, SENTENCE_LENGTHS.size()> lengths{}; ///< sentences written
    Longest longest;                                              ///< the first of them
};

/// What a document, or some of it, adds to the statistics of a run.
struct StatisticsPart {
    FrequentTexts texts; ///< tags, and tokens by reason; kinds as in ConversionStatistics
    StatisticsSums sums;

    std::size_t bytes() const { return sizeof *this + texts.bytes(); }
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
        std::vector<FrequentTexts::Text> texts; ///< as of FrequentTexts::most_frequent()
        std::uint64_t distinct = 0;             ///< as many as have come, or at least so many
        std::uint64_t rare = 0;                 ///< of these, with a lower count than RARE
        std::uint64_t error = 0;                ///< each may have come so many times more
        bool is_exact() const { return error == 0; }
    };
    static constexpr std::uint64_t RARE = 3; ///< tokens

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

    Frequent frequent(ConversionReport::Count kind, std::size_t most) const;
    const StatisticsSums& sums() const { return m_sums; }

private:
    FrequentTexts m_texts;
    StatisticsSums m_sums;
    std::vector<Document> m_worst;
    std::uint64_t m_documents_with_losses = 0;
    bool m_has_written = true;
};

} // namespace zelvor
