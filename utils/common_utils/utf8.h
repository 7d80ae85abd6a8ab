#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 decoding that is safe on any bytes. Text from outside is decoded here, once, and indexed as code points
/// afterwards: Glib::ustring trusts its content, reads past the end of a truncated sequence, and indexes in O(n).
///
/// A byte that starts no complete valid sequence (stray continuation, overlong form, surrogate, truncation) counts as
/// one code point, U+FFFD. Nothing here throws on bad input.
namespace zelvor {

constexpr char32_t REPLACEMENT_CHARACTER = 0xFFFD;

struct DecodedCharacter {
    char32_t code_point;
    std::size_t length; ///< in bytes, 1 to 4
};

/// The character that begins at byte `position`, which must lie inside `text`.
DecodedCharacter decode_character(std::string_view text, std::size_t position);

/// All code points of `text`; U+0000 is a code point like any other.
std::u32string decode_utf8(std::string_view text);

/// Appends one code point; a surrogate or a value above U+10FFFF is written as U+FFFD.
void append_utf8(std::string& text, char32_t code_point);

std::string encode_utf8(std::u32string_view code_points);

bool is_valid_utf8(std::string_view text);

} // namespace zelvor
