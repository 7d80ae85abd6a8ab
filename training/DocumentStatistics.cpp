#include "training/DocumentStatistics.h"

#include "training/Sentences.h"

#include <algorithm>

namespace zelvor {

namespace {

constexpr FrequentTexts::Room ROOM{1024, 20 * 1024};

std::size_t class_of(std::uint64_t length) {
    return static_cast<std::size_t>(std::ranges::upper_bound(SENTENCE_LENGTHS, length) - SENTENCE_LENGTHS.begin()) - 1;
}

} // namespace

DocumentStatistics::DocumentStatistics(const SentenceFormat& lines, Place place)
    : m_lines(lines), m_place(std::move(place)), m_texts(ROOM) {}

void DocumentStatistics::begin_document(ConversionSink& sink) {
    m_sink = &sink;
    m_texts = FrequentTexts(ROOM); // of a document that did not come to its end
    m_sums = {};
    end_sentence();
}

void DocumentStatistics::add_otherwise(std::string_view tag, bool is_certain) {
    if (!std::exchange(m_has_begun, true))
        m_begin = m_place();
    if (is_certain) {
        if (std::exchange(m_is_deferred, false))
            add_lines(1);
        else if (count(tag, 1))
            send();
    } else if (!m_is_deferred && count(tag, 1)) {
        send_without_sentence();
    }
}

/// Whether there is no room left.
bool DocumentStatistics::count(std::string_view tag, std::int64_t times) {
    return !m_texts.raise_known(TAG, tag, times) && enter(TAG, tag, times, {});
}

bool DocumentStatistics::enter(std::uint8_t kind, std::string_view text, std::int64_t times, const XmlPlace& place) {
    const std::size_t before = m_texts.bytes(), growth = m_texts.growth(text, place.file);
    if (growth > 0)
        m_sink->claim(growth);
    const std::uint32_t number = m_texts.enter(kind, text, {0, static_cast<std::uint32_t>(place.line), place.file});
    if (growth > 0)
        m_sink->release(before + growth - m_texts.bytes());
    m_texts.raise(number, times);
    return m_texts.is_full();
}

void DocumentStatistics::add_lines(std::int64_t times) {
    std::size_t position = 0;
    while (const auto token = m_lines.next(position))
        if (count(token->tag, times))
            send();
}

/// What has been counted of the lines of the sentence: all of their tags are there.
void DocumentStatistics::take_back() {
    if (!std::exchange(m_is_deferred, true))
        add_lines(-1);
}

void DocumentStatistics::remember(std::uint64_t number, std::string_view text) {
    m_texts_of_sentence.emplace_back(number, text);
}

void DocumentStatistics::leave_out(ConversionReport::Count reason, std::string_view text) {
    leave_out(reason, text, m_place);
}

void DocumentStatistics::leave_out(ConversionReport::Count reason, std::string_view text, const Place& place) {
    const auto kind = static_cast<std::uint8_t>(reason);
    if (!m_texts.raise_known(kind, text, 1) && enter(kind, text, 1, place()))
        send_without_sentence();
}

void DocumentStatistics::write(std::uint64_t tokens, std::uint64_t times) {
    m_sums.lengths[class_of(tokens)] += times;
    if (tokens > m_sums.longest.tokens)
        m_sums.longest = {tokens, 0, m_begin};
    if (const std::uint64_t missing = times - (m_is_deferred ? 0 : 1); missing > 0)
        add_lines(static_cast<std::int64_t>(missing));
    end_sentence();
}

void DocumentStatistics::drop(ConversionReport::Count reason) {
    take_back();
    auto text = m_texts_of_sentence.begin();
    std::size_t position = 0;
    for (std::uint64_t i = 0; const auto token = m_lines.next(position); ++i) {
        const bool is_told = text == m_texts_of_sentence.end() || text->first != i;
        leave_out(reason, is_told ? token->form : std::string_view((text++)->second), [this] { return m_begin; });
    }
    end_sentence();
}

void DocumentStatistics::end_sentence() {
    m_texts_of_sentence.clear();
    m_has_begun = false;
    m_is_deferred = false;
}

void DocumentStatistics::end_document() { send(); }

void DocumentStatistics::send_without_sentence() {
    take_back();
    send();
}

void DocumentStatistics::send() {
    m_sink->count({std::exchange(m_texts, FrequentTexts(ROOM)), std::exchange(m_sums, {})});
}

} // namespace zelvor
