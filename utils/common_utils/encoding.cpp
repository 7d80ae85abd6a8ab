#include "utils/common_utils/encoding.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zelvor {

unsigned char convert_to_unsigned(char c) { return static_cast<unsigned char>(c); }

char convert_to_signed(unsigned char c) { return static_cast<char>(c); }

void convert_latin1_to_utf8(const char* in, char* out) {
    for (; *in != '\0'; ++in) {
        const unsigned char byte = convert_to_unsigned(*in);
        if (byte < 0x80) {
            *out++ = *in;
        } else {
            *out++ = convert_to_signed(byte < 0xC0 ? 0xC2 : 0xC3);
            *out++ = convert_to_signed(0x80 | (byte & 0x3F));
        }
    }
    *out = '\0';
}

std::string convert_latin1_to_utf8(const std::string& s) {
    std::string buffer(2 * s.size() + 1, '\0');
    convert_latin1_to_utf8(s.c_str(), buffer.data());
    buffer.resize(std::strlen(buffer.c_str()));
    return buffer;
}

std::string convert_encoding(const std::string& s, const std::string& encoding1, const std::string& encoding2) {
    const iconv_t converter = iconv_open(encoding1.c_str(), encoding2.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1))
        return "";
    std::string input = s, output;
    std::size_t room = 2 * input.size() + 16, left = 0;
    do { // all of it in one call, since some encodings drop what they cannot say only to the end of a call
        output.assign(room, '\0');
        room *= 2;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        char *in = input.data(), *out = output.data();
        std::size_t in_left = input.size();
        left = output.size();
        errno = 0;
        iconv(converter, &in, &in_left, &out, &left); // what comes before a fault is the result
    } while (errno == E2BIG);
    iconv_close(converter);
    output.resize(std::min(output.find('\0'), output.size() - left));
    return output;
}

const char* why_not_utf8_text(std::string_view begin) {
    if (begin.starts_with("\x1F\x8B"))
        return "is compressed; unpack it, as gunzip does";
    if (begin.starts_with("\xFF\xFE") || begin.starts_with("\xFE\xFF") || begin.substr(0, 2).find('\0') < 2)
        return "is UTF-16; make it UTF-8, as iconv -f UTF-16 -t UTF-8 does";
    return nullptr;
}

} // namespace zelvor
