#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace zelvor {

/// What a conversion has read, written and left out. Every token that ends is counted once for each time that it is
/// written, or once as left out.
struct ConversionReport {
    enum Count {
        FILES_READ,   ///< without a fault
        FILES_FAILED, ///< not read, or only up to a fault
        ENTITIES_REFUSED,
        SENTENCES,
        TOKENS_WRITTEN,
        TOKENS_REPLACED, ///< of these, with "_" in a column
        NO_ANALYSIS,
        NOT_JSON,
        OTHER_JSON,
        UNKNOWN_ID,
        NO_TAG,
        BREAKS_LINE,
        OUTSIDE_SENTENCE, ///< not in a sentence that ends
        LEXICON_LINES,
        LEXICON_COMMENTS,
        LEXICON_SHORT,
        LEXICON_DUPLICATES,
        COUNTS
    };

    std::uint64_t& operator[](Count count) { return counts[count]; }
    std::uint64_t operator[](Count count) const { return counts[count]; }

    /// A line a section, for people.
    std::string text() const;
    /// An object of the same sections, with the exit status of the run beside them and a line feed behind.
    std::string json(int status) const;

    std::array<std::uint64_t, COUNTS> counts{};
};

/// What the report says of a count: "no analysis" and such.
const char* label_of(ConversionReport::Count count);

} // namespace zelvor
