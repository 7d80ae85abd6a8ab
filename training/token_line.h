#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Training lines that every trainer reads alike: columns that are neither empty nor hold white space or control
/// characters, in lines short enough for fixed buffers.
namespace zelvor {

/// In bytes, without the line feed. Some trainers read into 8192 bytes and stop, without a word, where a line fills
/// them.
constexpr std::size_t MAX_TOKEN_LINE = 8190;

struct TokenLineFormat {
    enum class Column { FORM, LEMMA, POS };
    enum class BadToken { DROP, REPLACE, FAIL };

    std::vector<Column> columns{Column::FORM, Column::POS};
    char separator = ' ';
    BadToken on_bad_token = BadToken::DROP;
};

enum class TokenLineOutcome {
    WRITTEN,
    REPLACED, ///< written with "_" for an empty column and for each run of white space and control characters
    BROKEN,   ///< nothing written
};

/// Appends the token's line with its line feed to lines.
TokenLineOutcome append_token_line(std::string& lines, const TokenLineFormat& format, std::string_view form,
                                   std::string_view lemma, std::string_view pos);

/// Bytes that the character at `position` has when it is white space in a trainer's eyes, a control character, a line
/// separator or a lone surrogate; 0 for any other.
std::size_t breaking_character(std::string_view text, std::size_t position);

} // namespace zelvor
