#pragma once

#include <string>
#include <string_view>

/// Conversion between text encodings. Bad input is never reported: the result ends where the conversion stopped.
namespace zelvor {

/// The same byte, reinterpreted.
unsigned char convert_to_unsigned(char c);
char convert_to_signed(unsigned char c);

/// Writes the NUL-terminated UTF-8 form of the NUL-terminated Latin-1 text `in` to `out`, which the caller provides
/// with room for at least 2 * length + 1 bytes.
void convert_latin1_to_utf8(const char* in, char* out);

/// The UTF-8 form of a Latin-1 text, up to its first NUL.
std::string convert_latin1_to_utf8(const std::string& s);

/// Converts `s` INTO `encoding1` FROM `encoding2` (names that iconv knows). Empty for an unknown encoding. The result
/// ends at its first zero byte, so UTF-16 and UTF-32 are of no use as a target.
std::string convert_encoding(const std::string& s, const std::string& encoding1, const std::string& encoding2);

/// What some editors put before UTF-8 text.
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// What is wrong with a line, and its remedy.
constexpr const char* NOT_UTF8 = "not in UTF-8; convert the file, for instance with iconv -f ISO-8859-1 -t UTF-8";

/// Why a file of lines that begins like this is not UTF-8 text, with the remedy, as the end of a sentence: "is UTF-16;
/// ...", "is compressed; ..." (gzip); null where the first bytes show nothing of the kind.
const char* why_not_utf8_text(std::string_view begin);

} // namespace zelvor
