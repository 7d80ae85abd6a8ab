#include "training/ConversionStatistics.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace zelvor {

namespace {

constexpr FrequentTexts::Room ROOM{81'920, 1024 * 1024};

static_assert(ConversionReport::COUNTS <= FrequentTexts::KINDS);

/// What failed is worse than whatever was left out.
bool is_worse(const ConversionStatistics::Document& one, const ConversionStatistics::Document& other) {
    const auto weight = [](const ConversionReport& report) {
        return std::pair(report[ConversionReport::FILES_FAILED], report.with_reason());
    };
    return weight(one.report) > weight(other.report);
}

} // namespace

ConversionStatistics::ConversionStatistics() : m_texts(ROOM) {}

void ConversionStatistics::add(const StatisticsPart& part, std::uint32_t document) {
    const auto& [lengths, longest] = part.sums;
    m_texts.add(part.texts, document);
    std::ranges::transform(m_sums.lengths, lengths, m_sums.lengths.begin(), std::plus<>());
    if (longest.tokens > m_sums.longest.tokens)
        m_sums.longest = {longest.tokens, document, longest.begin};
}

void ConversionStatistics::end_document(std::uint32_t document, const ConversionReport& report) {
    if (report.with_reason() == 0 && report[ConversionReport::FILES_FAILED] == 0)
        return;
    ++m_documents_with_losses;
    const Document entry{document, report};
    m_worst.insert(std::ranges::upper_bound(m_worst, entry, is_worse), entry);
    if (m_worst.size() > MAX_WORST)
        m_worst.pop_back();
}

void ConversionStatistics::forget_written() {
    m_has_written = false;
    m_sums.lengths = {};
    m_sums.longest = {};
    for (Document& document : m_worst)
        document.report[ConversionReport::TOKENS_WRITTEN] = 0;
}

ConversionStatistics::Frequent ConversionStatistics::frequent(ConversionReport::Count kind, std::size_t most) const {
    if (kind == TAG && !m_has_written)
        return {};
    const auto number = static_cast<std::uint8_t>(kind);
    return {m_texts.most_frequent(number, most), m_texts.distinct(number), m_texts.rarer(number, RARE),
            m_texts.error(number)};
}

} // namespace zelvor
