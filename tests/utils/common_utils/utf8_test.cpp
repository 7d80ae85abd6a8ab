#include "utils/common_utils/utf8.h"

#include "tests/testing.h"

using namespace std::string_view_literals;

namespace zelvor {

TEST(Utf8, DecodesValidTextAndReplacesEachBadByte) {
    // A stray continuation byte, truncated characters, an overlong "/", a surrogate, and one above U+10FFFF.
    using Row = std::pair<std::string_view, std::u32string_view>;
    for (const auto& [text, expected] :
         {Row("a\0\xC3\xA4\xE1\xBF\xA6\xF0\x9F\x9C\x82"sv, U"a\0ä\u1FE6\U0001F702"sv), Row("\x80z"sv, U"\uFFFDz"sv),
          Row("\xC3"sv, U"\uFFFD"sv), Row("\xE1\xBF"sv, U"\uFFFD\uFFFD"sv), Row("\xC0\xAF"sv, U"\uFFFD\uFFFD"sv),
          Row("\xED\xA0\x80"sv, U"\uFFFD\uFFFD\uFFFD"sv), Row("\xF4\x90\x80\x80"sv, U"\uFFFD\uFFFD\uFFFD\uFFFD"sv)})
        EXPECT_EQ(decode_utf8(text), expected) << testing::PrintToString(std::string(text));
    for (const char32_t code_point : {0x0, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF})
        EXPECT_EQ(decode_utf8(encode_utf8(std::u32string{code_point})), std::u32string{code_point});
    EXPECT_EQ(encode_utf8(std::u32string{0xD800, 0x110000}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_TRUE(is_valid_utf8("\xEF\xBF\xBD")); // U+FFFD itself is valid text
}

} // namespace zelvor
