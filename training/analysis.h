#pragma once

#include "utils/common_utils/hash_index.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Json {
class Reader;
}

namespace zelvor {

/// What the analysis JSON of a token says: {"ls":[{"name":LEMMA,"wfs":[{"id":ID}, ...]}, ...]}. Only the first lemma
/// and its first word form count.
struct Analysis {
    enum class Outcome {
        FOUND,
        ABSENT,      ///< valid JSON without an id: no lemma, no word form, or null
        UNPARSABLE,  ///< no JSON
        WRONG_SHAPE, ///< JSON of other types than these
    };

    Outcome outcome = Outcome::ABSENT;
    int id = 0;
    std::string lemma;
};

/// The JSON of a token's lemma attribute, which must not be empty: drops the byte at each end (the character there must
/// be ASCII) and turns single quotes into the double ones of JSON.
void unwrap_analysis(std::string& json);

/// Reads analyses and remembers them: analyses repeat as words do. What is remembered is bounded: of more analyses than
/// there is room for, those that came up again stay.
class AnalysisReader {
public:
    enum class Text { PLAIN, WRAPPED }; ///< JSON, or as it is in attributes, see unwrap_analysis

    /// Of so many readers, all together remember as much as one.
    explicit AnalysisReader(Text text = Text::PLAIN, std::size_t readers = 1);

    /// The result is valid until the next call. Throws on no text; std::bad_alloc.
    const Analysis& read(Json::Reader& json_reader, const std::string& text);

private:
    struct Known {
        std::size_t hash;
        std::string text;
        Analysis analysis;
    };
    struct Generation {
        std::vector<Known> known;
        HashIndex index; ///< of known; the look-up is most of the cost, and most look-ups succeed
        std::size_t bytes = 0;

        Known* find(std::size_t hash, const std::string& text);
        const Analysis& add(Known&& analysis);
    };
    bool m_is_wrapped;
    std::size_t m_max_bytes; ///< of a generation
    Generation m_recent, m_former;
};

} // namespace zelvor
