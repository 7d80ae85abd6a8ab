#include "training/shown_text.h"

#include "training/ColumnLines.h"
#include "utils/common_utils/utf8.h"

namespace zelvor {

std::string shown(std::string_view text, std::size_t max_bytes) {
    std::string line;
    for (std::size_t i = 0; i < text.size();) {
        if (line.size() >= max_bytes)
            return line + "...";
        const DecodedCharacter character = decode_character(text, i);
        const bool is_harmless = text[i] == ' ' || breaking_character(text, i) == 0;
        const bool is_valid = character.length > 1 || character.code_point < 0x80;
        line += is_harmless && is_valid ? text.substr(i, character.length) : "?";
        i += character.length;
    }
    return line;
}

} // namespace zelvor
