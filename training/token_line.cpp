#include "training/token_line.h"

#include <algorithm>

namespace zelvor {

namespace {

/// Whether a breaking character can begin with this byte.
bool may_break(char c) {
    return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '\xC2' || c == '\xE2' || c == '\xED';
}

bool is_breaking(std::string_view column) {
    if (column.empty())
        return true;
    for (std::size_t i = 0; i < column.size(); ++i)
        if (may_break(column[i]) && breaking_character(column, i) != 0)
            return true;
    return false;
}

void append_replaced(std::string& line, std::string_view column) {
    if (column.empty())
        line += '_';
    bool in_run = false;
    for (std::size_t i = 0; i < column.size();) {
        const std::size_t length = breaking_character(column, i);
        if (length == 0)
            line += column[i];
        else if (!in_run)
            line += '_';
        in_run = length != 0;
        i += std::max<std::size_t>(length, 1);
    }
}

} // namespace

std::size_t breaking_character(std::string_view text, std::size_t position) {
    const auto byte = [&](std::size_t i) {
        return position + i < text.size() ? static_cast<unsigned char>(text[position + i]) : 0U;
    };
    const unsigned int first = byte(0);
    if (first <= ' ' || first == 0x7F)
        return 1;
    if (first == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F) // U+0080 to U+009F
        return 2;
    if (first == 0xED && byte(1) >= 0xA0) // a surrogate, which JSON can name
        return byte(2) == 0 ? 2 : 3;
    return first == 0xE2 && byte(1) == 0x80 && (byte(2) == 0xA8 || byte(2) == 0xA9) ? 3 : 0; // U+2028, U+2029
}

TokenLineOutcome append_token_line(std::string& lines, const TokenLineFormat& format, std::string_view form,
                                   std::string_view lemma, std::string_view pos) {
    const std::size_t begin = lines.size();
    TokenLineOutcome outcome = TokenLineOutcome::WRITTEN;
    for (const TokenLineFormat::Column column : format.columns) {
        const std::string_view text = column == TokenLineFormat::Column::FORM    ? form
                                      : column == TokenLineFormat::Column::LEMMA ? lemma
                                                                                 : pos;
        if (lines.size() > begin)
            lines += format.separator;
        if (!is_breaking(text)) {
            lines += text;
        } else if (format.on_bad_token == TokenLineFormat::BadToken::REPLACE) {
            append_replaced(lines, text);
            outcome = TokenLineOutcome::REPLACED;
        } else {
            outcome = TokenLineOutcome::BROKEN;
            break;
        }
    }
    if (outcome == TokenLineOutcome::BROKEN || lines.size() - begin > MAX_TOKEN_LINE) {
        lines.resize(begin);
        return TokenLineOutcome::BROKEN;
    }
    lines += '\n';
    return outcome;
}

} // namespace zelvor
