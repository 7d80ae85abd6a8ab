#include "training/ConversionStatistics.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <utility>

namespace zelvor {

namespace {

constexpr FrequentTexts::Room ROOM_OF_RUN{49'152, 1024 * 1024};
constexpr FrequentTexts::Room ROOM_OF_TOKENS{384, 6 * 1024}, ROOM_OF_TAGS{768, 12 * 1024}; // of a document
constexpr std::size_t MAX_TOLD = std::size_t{16} * 1024;                                   // bytes

static_assert(ConversionReport::COUNTS <= FrequentTexts::KINDS);

std::size_t class_of(std::uint64_t length) {
    return static_cast<std::size_t>(std::ranges::upper_bound(SENTENCE_LENGTHS, length) - SENTENCE_LENGTHS.begin()) - 1;
}

/// What failed is worse than whatever was left out.
bool is_worse(const ConversionStatistics::Document& one, const ConversionStatistics::Document& other) {
    const auto weight = [](const ConversionReport& report) {
        return std::pair(report[ConversionReport::FILES_FAILED], report.left_out());
    };
    return weight(one.report) > weight(other.report);
}

} // namespace

DocumentStatistics::DocumentStatistics(Place place)
    : m_place(std::move(place)), m_left_out(ROOM_OF_TOKENS), m_tags(ROOM_OF_TAGS) {}

void DocumentStatistics::begin_document(Send send) {
    m_send = std::move(send);
    m_left_out = FrequentTexts(ROOM_OF_TOKENS);
    m_tags = FrequentTexts(ROOM_OF_TAGS);
    m_sums = {};
    m_tags_of_sentence.clear(); // of a document that did not come to its end
    m_tokens_of_tag.clear();
    m_told.resize(MAX_TOLD);
    clear_sentence();
}

void DocumentStatistics::add(std::string_view tag, std::string_view text, bool may_be_dropped) {
    if (!std::exchange(m_has_begun, true))
        m_begin = m_place();
    const std::uint32_t number = m_tags.find(ConversionStatistics::TAG, tag);
    if (number == FrequentTexts::NONE)
        enter_tag(tag);
    else if (m_tokens_of_tag[number]++ == 0)
        m_tags_of_sentence.push_back(number);
    if (may_be_dropped)
        remember(text);
}

void DocumentStatistics::enter_tag(std::string_view tag) {
    if (!m_tags.has_room(tag, {})) {
        ++m_tokens_without_number;
        return;
    }
    m_tags_of_sentence.push_back(m_tags.enter(ConversionStatistics::TAG, tag, {}));
    m_tokens_of_tag.push_back(1);
}

void DocumentStatistics::remember(std::string_view text) {
    const std::size_t length = std::min(text.size(), FrequentTexts::MAX_TEXT + 1);
    if (m_told_bytes + 1 + length > m_told.size())
        return;
    m_told[m_told_bytes++] = static_cast<char>(length);
    std::memcpy(m_told.data() + m_told_bytes, text.data(), length);
    m_told_bytes += length;
    ++m_num_told;
}

void DocumentStatistics::leave_out(ConversionReport::Count reason, std::string_view text) {
    leave_out(reason, text, m_place);
}

void DocumentStatistics::leave_out(ConversionReport::Count reason, std::string_view text, const Place& place) {
    const auto kind = static_cast<std::uint8_t>(reason);
    std::uint32_t number = m_left_out.find(kind, text);
    if (number == FrequentTexts::NONE) {
        const XmlPlace found = place();
        if (!m_left_out.has_room(text, found.file))
            send(m_left_out);
        number = m_left_out.enter(kind, text, {0, static_cast<std::uint32_t>(found.line), found.file});
    }
    m_left_out.raise(number, 1);
}

void DocumentStatistics::write(std::uint64_t tokens, std::uint64_t times) {
    m_sums.lengths[class_of(tokens)] += times;
    if (tokens > m_sums.longest.tokens)
        m_sums.longest = {tokens, 0, m_begin};
    for (const std::uint32_t number : m_tags_of_sentence)
        m_tags.raise(number, times * m_tokens_of_tag[number]);
    m_sums.unlisted[ConversionStatistics::TAG] += times * m_tokens_without_number;
    clear_sentence();
}

void DocumentStatistics::drop(ConversionReport::Count reason, std::uint64_t tokens) {
    m_sums.unlisted[reason] += tokens - m_num_told;
    for (std::size_t i = 0; i < m_told_bytes;) {
        const auto length = static_cast<unsigned char>(m_told[i]);
        leave_out(reason, {m_told.data() + i + 1, length}, [this] { return m_begin; });
        i += 1 + length;
    }
    clear_sentence();
}

void DocumentStatistics::clear_sentence() {
    for (const std::uint32_t number : m_tags_of_sentence)
        m_tokens_of_tag[number] = 0;
    m_tags_of_sentence.clear();
    m_tokens_without_number = 0;
    m_has_begun = false;
    m_told_bytes = 0;
    m_num_told = 0;
    if (m_tags.size() > ROOM_OF_TAGS.texts / 2) {
        send(m_tags);
        m_tokens_of_tag.clear();
    }
}

void DocumentStatistics::end_document() {
    send(m_tags);
    send(m_left_out);
}

/// Texts, and all sums.
void DocumentStatistics::send(FrequentTexts& texts) {
    m_send({std::exchange(texts, FrequentTexts(texts.room())), std::exchange(m_sums, {})});
}

ConversionStatistics::ConversionStatistics() : m_texts(ROOM_OF_RUN) {}

void ConversionStatistics::add(const StatisticsPart& part, std::uint32_t document) {
    const auto& [lengths, longest, unlisted] = part.sums;
    m_texts.add(part.texts, document);
    std::ranges::transform(m_sums.lengths, lengths, m_sums.lengths.begin(), std::plus<>());
    std::ranges::transform(m_sums.unlisted, unlisted, m_sums.unlisted.begin(), std::plus<>());
    if (longest.tokens > m_sums.longest.tokens)
        m_sums.longest = {longest.tokens, document, longest.begin};
}

void ConversionStatistics::end_document(std::uint32_t document, const ConversionReport& report) {
    if (report.left_out() == 0 && report[ConversionReport::FILES_FAILED] == 0)
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

ConversionStatistics::Frequent ConversionStatistics::frequent(ConversionReport::Count kind) const {
    if (kind == TAG && !m_has_written)
        return {};
    const auto number = static_cast<std::uint8_t>(kind);
    return {m_texts.sorted(number), m_texts.error(number), m_sums.unlisted[kind]};
}

} // namespace zelvor
