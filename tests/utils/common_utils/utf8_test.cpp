#include "utils/common_utils/utf8.h"

#include "tests/testing.h"

using namespace std::string_view_literals;

namespace zelvor {

TEST(Utf8, DecodesValidTextAndReplacesEachBadByte) {
    // A stray continuation byte, truncated characters, an overlong "/", a surrogate, and one above U+10FFFF.
    using Row = std::pair<std::string_view, std::u32string_view>;
    for (const auto& [text, expected] :
         {Row(""sv, U""sv), Row("a\0b"sv, U"a\0b"sv),
          Row("\xC3\xA4\xE1\xBF\xA6\xF0\x9F\x9C\x82"sv, U"ä\u1FE6\U0001F702"sv), Row("\x80z"sv, U"\uFFFDz"sv),
          Row("\xC3"sv, U"\uFFFD"sv), Row("\xE1\xBF"sv, U"\uFFFD\uFFFD"sv), Row("\xC0\xAF"sv, U"\uFFFD\uFFFD"sv),
          Row("\xED\xA0\x80"sv, U"\uFFFD\uFFFD\uFFFD"sv), Row("\xF4\x90\x80\x80"sv, U"\uFFFD\uFFFD\uFFFD\uFFFD"sv)}) {
        SCOPED_TRACE(testing::PrintToString(std::string(text)));
        EXPECT_EQ(decode_utf8(text), expected);
        EXPECT_EQ(is_valid_utf8(text), expected.find(REPLACEMENT_CHARACTER) == expected.npos);
    }
    EXPECT_TRUE(is_valid_utf8("\xEF\xBF\xBD")); // U+FFFD itself is valid text
}

TEST(Utf8, EncodingInvertsDecodingAtEveryLengthBoundary) {
    for (const char32_t code_point : {0x0, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF}) {
        const std::u32string text(1, code_point);
        EXPECT_EQ(decode_utf8(encode_utf8(text)), text);
    }
    std::string text;
    append_utf8(text, 0xD800);
    append_utf8(text, 0x110000);
    EXPECT_EQ(text, "\xEF\xBF\xBD\xEF\xBF\xBD");
}

} // namespace zelvor
