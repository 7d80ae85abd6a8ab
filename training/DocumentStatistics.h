#pragma once

#include "training/ConversionReport.h"
#include "training/ConversionStatistics.h"
#include "training/SentenceFormat.h"
#include "training/XmlReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

class ConversionSink;

/// Counts one document after the other: what its sentences are made of, and what is left out. A tag counts as its token
/// comes. Where the sentence turns out to be dropped, or to be written several times, its lines tell what to make good;
/// so they do where too much has come to be kept, which goes on as a part of the document. Takes 500 KB at most, and
/// claims from the sink what it takes.
class DocumentStatistics {
public:
    using Place = std::function<XmlPlace()>;
    static constexpr ConversionReport::Count TAG = ConversionStatistics::TAG;

    /// Where the lines of the open sentence are, and where the parser is.
    DocumentStatistics(const SentenceFormat& lines, Place place);

    /// The sink must live as long as the document.
    void begin_document(ConversionSink& sink);
    /// A token of the sentence whose line is there, with its tag. `is_certain`: from here on, no token of the sentence
    /// is dropped, and all are written once.
    void add(std::string_view tag, bool is_certain) {
        if (!m_has_begun || m_is_deferred || is_certain || !m_texts.raise_known(TAG, tag, 1)) [[unlikely]]
            add_otherwise(tag, is_certain);
    }
    /// The text of the token with that number in the sentence, whose line does not tell it, or which lacks something
    /// and counts as such once the sentence is written. Where these are too much, the counts are no longer exact.
    void remember(std::uint64_t number, std::string_view text, ConversionReport::Count lack = TAG) {
        const Remembered head{number, static_cast<std::uint32_t>(text.size()), lack};
        if (m_remembered.size() - m_remembered_end < sizeof head + text.size() && !make_room_for(head)) [[unlikely]]
            return;
        std::memcpy(m_remembered.data() + m_remembered_end, &head, sizeof head);
        std::ranges::copy(text, m_remembered.data() + m_remembered_end + sizeof head);
        m_remembered_end += sizeof head + text.size();
    }
    void leave_out(ConversionReport::Count reason, std::string_view text);
    /// What becomes of the tokens of the sentence, so many, and of those that lack something; it ends with either.
    void write(std::uint64_t tokens, std::uint64_t lacking, std::uint64_t times);
    void drop(ConversionReport::Count reason);
    /// Sends what there is.
    void end_document();
    /// The same without the sentence, if it has not been written.
    void give_up_document();

private:
    static constexpr std::uint64_t NONE_FORGOTTEN = std::numeric_limits<std::uint64_t>::max();

    /// What is before each text.
    struct Remembered {
        std::uint64_t number;
        std::uint32_t length;
        ConversionReport::Count lack; ///< or TAG
    };

    bool make_room_for(const Remembered& head);
    std::optional<std::pair<Remembered, std::string_view>> next(std::size_t& at) const;
    void add_lacks(std::uint64_t times);
    void add_otherwise(std::string_view tag, bool is_certain);
    bool count(std::string_view tag, std::int64_t times);
    bool count(ConversionReport::Count reason, std::string_view text, std::uint64_t times, const Place& place);
    bool enter(std::uint8_t kind, std::string_view text, std::int64_t times, const XmlPlace& place);
    void add_lines(std::int64_t times);
    void take_back();
    void send_without_sentence();
    void send();
    void end_sentence();

    const SentenceFormat& m_lines;
    Place m_place;
    ConversionSink* m_sink = nullptr;
    FrequentTexts m_texts;
    StatisticsSums m_sums;
    XmlPlace m_begin; ///< of the sentence
    bool m_has_begun = false;
    bool m_is_deferred = false;     ///< the lines of the sentence are not counted yet
    bool m_is_certain = false;      ///< and stay, since the last token
    std::vector<char> m_remembered; ///< of the sentence: what is before each text, and its bytes; then what is free
    std::size_t m_remembered_end = 0;
    std::uint64_t m_forgotten_from = NONE_FORGOTTEN;
    std::array<std::uint64_t, FrequentTexts::KINDS> m_forgotten{}; ///< tokens, by what they lack
};

} // namespace zelvor
