#include "training/shown_text.h"

#include "training/ColumnLines.h"
#include "utils/common_utils/utf8.h"

namespace zelvor {

namespace {

/// To a shell.
constexpr std::string_view HARMLESS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789%+,-./:=@_";

/// Whether all that follows could be shown in another order, U+202A to U+202E and U+2066 to U+2069.
bool is_reordering(char32_t character) {
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

/// In octal: three digits end by themselves.
std::string octal(char c) {
    const auto byte = static_cast<unsigned char>(c);
    std::string escape = "\\";
    for (const int shift : {6, 3, 0})
        escape += static_cast<char>('0' + ((byte >> shift) & 7));
    return escape;
}

} // namespace

std::string shown(std::string_view text, std::size_t max_bytes) {
    std::string line;
    for (std::size_t i = 0; i < text.size();) {
        if (line.size() >= max_bytes)
            return line + "...";
        const DecodedCharacter character = decode_character(text, i);
        const bool is_harmless = text[i] == ' ' || breaking_character(text, i) == 0;
        const bool is_valid = character.length > 1 || character.code_point < 0x80;
        line +=
            is_harmless && is_valid && !is_reordering(character.code_point) ? text.substr(i, character.length) : "?";
        i += character.length;
    }
    return line;
}

std::string shown_count(std::uint64_t count) {
    std::string digits = std::to_string(count);
    for (std::size_t i = digits.size(); i > 3;)
        digits.insert(i -= 3, ",");
    return digits;
}

std::string shell_word(std::string_view word) {
    if (!word.empty() && word.find_first_not_of(HARMLESS) == std::string_view::npos)
        return std::string(word);
    const bool is_plain = shown_path(word) == word;
    std::string quoted = is_plain ? "'" : "$'";
    for (const char c : word)
        if (is_plain)
            quoted += c == '\'' ? "'\\''" : std::string(1, c);
        else
            quoted += HARMLESS.find(c) != std::string_view::npos ? std::string(1, c) : octal(c);
    return quoted + "'";
}

} // namespace zelvor
