#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Json {
class Value;
}

namespace zelvor {

/// What a conversion has read, written and left out. Every token that ends is counted once for each time that it is
/// written, or once as left out.
struct ConversionReport {
    enum Count {
        FILES_READ,   ///< without a fault
        FILES_FAILED, ///< not read, or only up to a fault
        ENTITIES_REFUSED,
        FILES_PASSED_OVER, ///< below a folder, for their names
        SENTENCES,
        SENTENCES_INCOMPLETE, ///< not written, where only whole ones are
        TOKENS_WRITTEN,
        TOKENS_REPLACED, ///< of these, with "_" in a column
        TOKENS_LACKING,  ///< of these, those with a reason all the same
        UPOS_UNFIT,      ///< values that the format has no place for
        FEATS_UNFIT,
        NO_FORM,
        NO_ANALYSIS,
        NOT_JSON,
        OTHER_JSON,
        UNKNOWN_ID,
        NO_TAG,
        MAPPED_AWAY, ///< the map has nothing for their tag
        BREAKS_LINE,
        OUTSIDE_SENTENCE,    ///< not in a sentence that ends
        INCOMPLETE_SENTENCE, ///< in one of which another token was left out
        LEXICON_LINES,
        LEXICON_COMMENTS,
        LEXICON_SHORT,
        LEXICON_DUPLICATES,
        COUNTS
    };

    std::uint64_t& operator[](Count count) { return counts[count]; }
    std::uint64_t operator[](Count count) const { return counts[count]; }

    ConversionReport& operator+=(const ConversionReport& other);

    /// For which tokens were left out, or written without what they lack, the most frequent first.
    std::vector<Count> reasons() const;
    std::uint64_t with_reason() const; ///< tokens, left out or written all the same
    std::uint64_t left_out() const { return with_reason() - counts[TOKENS_LACKING]; }
    std::uint64_t tokens() const { return counts[TOKENS_WRITTEN] + left_out(); }
    /// Whether tokens with this reason are written all the same, by this format.
    bool is_written(Count reason) const;

    /// A line a section and a line a reason, without what did not occur; for people.
    std::string text() const;
    /// An object of the same sections.
    Json::Value json() const;

    std::array<std::uint64_t, COUNTS> counts{};

    /// What was seen, whatever became of it; not reported.
    std::uint64_t words = 0, marks = 0; ///< tokens
    std::uint64_t in_sentence = 0;      ///< of these
    std::uint64_t sentence_elements = 0;

private:
    std::string section_text(std::string_view section) const;
};

/// What the report says of a count: "no analysis" and such.
const char* label_of(ConversionReport::Count count);
/// Its member in the section of the JSON: "no_analysis" and such.
const char* key_of(ConversionReport::Count count);

} // namespace zelvor
