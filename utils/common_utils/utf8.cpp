#include "utils/common_utils/utf8.h"

namespace zelvor {

namespace {

constexpr DecodedCharacter INVALID_BYTE{REPLACEMENT_CHARACTER, 1};

/// A lead byte fixes the length of its sequence and the range of the second byte (which excludes overlong forms,
/// surrogates and values above U+10FFFF). Length 0: not a lead byte.
struct LeadByte {
    std::size_t length;
    unsigned char payload_mask;
    unsigned char second_min;
    unsigned char second_max;
};

constexpr LeadByte classify(unsigned char byte) {
    if (byte < 0xC2 || byte > 0xF4)
        return {0, 0, 0, 0};
    if (byte < 0xE0)
        return {2, 0x1F, 0x80, 0xBF};
    if (byte < 0xF0)
        return {3, 0x0F, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    return {4, 0x07, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
}

} // namespace

DecodedCharacter decode_character(std::string_view text, std::size_t position) {
    const auto byte_at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte_at(position);
    if (first < 0x80)
        return {first, 1};
    const LeadByte lead = classify(first);
    if (lead.length == 0 || text.size() - position < lead.length)
        return INVALID_BYTE;
    if (const unsigned char second = byte_at(position + 1); second < lead.second_min || second > lead.second_max)
        return INVALID_BYTE;
    char32_t code_point = first & lead.payload_mask;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const unsigned char byte = byte_at(position + i);
        if ((byte & 0xC0) != 0x80)
            return INVALID_BYTE;
        code_point = code_point << 6 | (byte & 0x3F);
    }
    return {code_point, lead.length};
}

std::u32string decode_utf8(std::string_view text) {
    std::u32string code_points;
    code_points.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const DecodedCharacter character = decode_character(text, position);
        code_points.push_back(character.code_point);
        position += character.length;
    }
    return code_points;
}

void append_utf8(std::string& text, char32_t code_point) {
    if (code_point > 0x10FFFF || (code_point >= 0xD800 && code_point <= 0xDFFF))
        code_point = REPLACEMENT_CHARACTER;
    const auto append = [&](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    if (code_point < 0x80) {
        append(code_point);
        return;
    }
    if (code_point < 0x800) {
        append(0xC0 | code_point >> 6);
    } else {
        if (code_point < 0x10000) {
            append(0xE0 | code_point >> 12);
        } else {
            append(0xF0 | code_point >> 18);
            append(0x80 | (code_point >> 12 & 0x3F));
        }
        append(0x80 | (code_point >> 6 & 0x3F));
    }
    append(0x80 | (code_point & 0x3F));
}

std::string encode_utf8(std::u32string_view code_points) {
    std::string text;
    text.reserve(code_points.size());
    for (const char32_t code_point : code_points)
        append_utf8(text, code_point);
    return text;
}

bool is_valid_utf8(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
        const DecodedCharacter character = decode_character(text, position);
        if (character.code_point == REPLACEMENT_CHARACTER && character.length == 1)
            return false;
        position += character.length;
    }
    return true;
}

} // namespace zelvor
