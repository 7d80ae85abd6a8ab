#include "training/DocumentStatistics.h"

#include "training/Sentences.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zelvor {

namespace {

constexpr FrequentTexts::Room ROOM{2048, 40 * 1024};
constexpr std::size_t MAX_REMEMBERED = std::size_t{256} * 1024, MIN_REMEMBERED = 1024; // bytes

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
    m_remembered = {};
    end_sentence();
}

void DocumentStatistics::add_otherwise(std::string_view tag, bool is_certain) {
    if (!std::exchange(m_has_begun, true))
        m_begin = m_place();
    m_is_certain = is_certain;
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

bool DocumentStatistics::count(ConversionReport::Count reason, std::string_view text, std::uint64_t times,
                               const Place& place) {
    const auto kind = static_cast<std::uint8_t>(reason);
    const auto signed_times = static_cast<std::int64_t>(times);
    return !m_texts.raise_known(kind, text, signed_times) && enter(kind, text, signed_times, place());
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

/// Whether there is some; from the first text that has none on, all are forgotten.
bool DocumentStatistics::make_room_for(const Remembered& head) {
    const std::size_t before = m_remembered.size(), bytes = m_remembered_end + sizeof head + head.length;
    if (bytes > MAX_REMEMBERED)
        m_forgotten_from = std::min(m_forgotten_from, head.number);
    if (m_forgotten_from != NONE_FORGOTTEN) {
        m_forgotten[head.lack] += head.lack != TAG;
        return false;
    }
    const std::size_t more = std::clamp(2 * bytes, MIN_REMEMBERED, MAX_REMEMBERED);
    m_sink->claim(more);
    m_remembered.resize(more);
    m_sink->release(before);
    return true;
}

/// What is remembered from there on, which then moves behind it.
std::optional<std::pair<DocumentStatistics::Remembered, std::string_view>>
DocumentStatistics::next(std::size_t& at) const {
    if (at == m_remembered_end)
        return std::nullopt;
    Remembered head{};
    std::memcpy(&head, m_remembered.data() + at, sizeof head);
    const std::string_view text(m_remembered.data() + at + sizeof head, head.length);
    at += sizeof head + head.length;
    return std::pair(head, text);
}

void DocumentStatistics::leave_out(ConversionReport::Count reason, std::string_view text) {
    if (!count(reason, text, 1, m_place))
        return;
    if (m_is_certain)
        send(); // tags of the sentence have gone already
    else
        send_without_sentence();
}

void DocumentStatistics::write(std::uint64_t tokens, std::uint64_t lacking, std::uint64_t times) {
    m_sums.lengths[class_of(tokens)] += times;
    if (tokens > m_sums.longest.tokens)
        m_sums.longest = {tokens, 0, m_begin};
    if (const std::uint64_t missing = times - (m_is_deferred ? 0 : 1); missing > 0)
        add_lines(static_cast<std::int64_t>(missing));
    if (lacking > 0)
        add_lacks(times);
    end_sentence();
}

void DocumentStatistics::add_lacks(std::uint64_t times) {
    for (std::size_t at = 0; const auto remembered = next(at);)
        if (const auto& [head, text] = *remembered; head.lack != TAG)
            if (count(head.lack, text, times, [this] { return m_begin; }))
                send();
    for (std::size_t kind = 0; kind < m_forgotten.size(); ++kind)
        m_texts.miss(static_cast<std::uint8_t>(kind), times * m_forgotten[kind]);
}

void DocumentStatistics::drop(ConversionReport::Count reason) {
    take_back();
    std::size_t position = 0, at = 0;
    auto remembered = next(at);
    std::uint64_t forgotten = 0;
    for (std::uint64_t i = 0; const auto token = m_lines.next(position); ++i) {
        if (i >= m_forgotten_from) {
            ++forgotten;
            continue;
        }
        const bool is_remembered = remembered && remembered->first.number == i;
        if (count(reason, is_remembered ? remembered->second : token->form, 1, [this] { return m_begin; }))
            send();
        if (is_remembered)
            remembered = next(at);
    }
    m_texts.miss(static_cast<std::uint8_t>(reason), forgotten);
    end_sentence();
}

void DocumentStatistics::end_sentence() {
    m_remembered_end = 0;
    if (std::exchange(m_forgotten_from, NONE_FORGOTTEN) != NONE_FORGOTTEN)
        m_forgotten = {};
    m_has_begun = false;
    m_is_deferred = false;
    m_is_certain = false;
}

void DocumentStatistics::end_document() {
    send();
    m_sink->release(m_remembered.size());
    m_remembered = {};
}

void DocumentStatistics::give_up_document() {
    if (m_has_begun)
        take_back();
    end_document();
}

void DocumentStatistics::send_without_sentence() {
    take_back();
    send();
}

void DocumentStatistics::send() {
    m_sink->count({std::exchange(m_texts, FrequentTexts(ROOM)), std::exchange(m_sums, {})});
}

} // namespace zelvor
