#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zelvor {

/// A UTF-8 text addressed by code points without decoding all of it: a position is found by walking on from the last
/// one, or from where the last substring began, and only further back from the beginning. Positions that ascend, as
/// those of the tokens of a document do, cost one walk in all. The text is not copied and must outlive its reader.
/// Bytes that are no UTF-8 count as decode_character() has it.
class CodePoints {
public:
    static constexpr char32_t NONE = 0xFFFFFFFF;

    explicit CodePoints(std::string_view text) : m_text(text) {}

    char32_t at(std::uint32_t position); ///< NONE at or beyond the end
    bool contains(std::uint32_t position) { return at(position) != NONE; }

    /// As std::string::substr, in code points: a start beyond the end throws std::out_of_range, a length is cut.
    std::string substr(std::uint32_t from, std::uint32_t length);

private:
    struct Place {
        std::uint32_t position = 0;
        std::size_t byte = 0;
    };

    bool seek(std::uint32_t position); ///< false when it lies beyond the end (the end itself can be reached)

    std::string_view m_text;
    Place m_here;
    Place m_anchor; ///< where the last substring began
};

} // namespace zelvor
