#include "utils/common_utils/case.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

using namespace std::string_literals;

namespace zelvor {
namespace {

TEST(Case, MapsTheFirstTheRestAndTheWhole) {
    const struct {
        std::string text, capitalized, downcased, rest_downcased, lowercase;
    } rows[] = {
        {"", "", "", "", ""},
        {"ABC", "ABC", "aBC", "Abc", "abc"},
        {"élan ÉTÉ", "Élan ÉTÉ", "élan ÉTÉ", "élan été", "élan été"},
        {"ÄÖ", "ÄÖ", "äÖ", "Äö", "äö"},
        {"ßx", "SSx", "ßx", "ßx", "ßx"}, // one character becomes two
        {"ﬁN", "FIN", "ﬁN", "ﬁn", "ﬁn"},
        {"ὁ ΛΌΓΟΣ", "Ὁ ΛΌΓΟΣ", "ὁ ΛΌΓΟΣ", "ὁ λόγος", "ὁ λόγος"},      // final sigma
        {"a\0BC\0"s, "A\0BC\0"s, "a\0BC\0"s, "a\0bc\0"s, "a\0bc\0"s}, // nothing after a NUL is lost
        {"A\xFF B", "A\xFF B", "A\xFF B", "A\xFF B", "A\xFF B"},      // invalid: unchanged
        {"Ab\xC3", "Ab\xC3", "Ab\xC3", "Ab\xC3", "Ab\xC3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(capitalize_first_unicode(row.text), row.capitalized);
        EXPECT_EQ(capitalize_first_unicode_glib(row.text).raw(), row.capitalized);
        EXPECT_EQ(downcase_first_unicode(row.text), row.downcased);
        EXPECT_EQ(downcase_first_unicode_glib(row.text).raw(), row.downcased);
        EXPECT_EQ(downcase_rest_unicode(row.text).raw(), row.rest_downcased);
        EXPECT_EQ(convert_lowercase(row.text), row.lowercase);
    }
}

TEST(Case, CapitalizesEveryWordOfAnExpression) {
    EXPECT_EQ(capitalize_multi_token_expression("new  york").raw(), "New York");
    EXPECT_EQ(capitalize_multi_token_expression("  île de la\tcité ").raw(), "Île De La\tcité");
    EXPECT_EQ(capitalize_multi_token_expression("a\xFF east").raw(), "a\xFF East");
    EXPECT_EQ(capitalize_multi_token_expression("  ").raw(), "");
}

bool is_in_table(int capital) {
    const std::string gaps = "\xC7\xD0\xD1\xD7\xD8\xDD\xDE\xDF";
    return capital >= 0xC0 && capital <= 0xDF && gaps.find(static_cast<char>(capital)) == std::string::npos;
}

TEST(Case, Latin1TableHoldsInAnyLocaleAndItsGapsFollowTheLibrary) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const auto c = static_cast<char>(byte);
        const auto sign_extended = static_cast<signed char>(byte);
        EXPECT_EQ(capitalize_char_latin1(c),
                  static_cast<char>(is_in_table(byte - 32) ? byte - 32 : std::toupper(sign_extended)));
        EXPECT_EQ(downcase_char_latin1(c),
                  static_cast<char>(is_in_table(byte) ? byte + 32 : std::tolower(sign_extended)));
    }
    EXPECT_EQ(capitalize_first_latin1("\xE4h\xE4"), "\xC4h\xE4");
    EXPECT_EQ(capitalize_first_latin1("ab"), "Ab");
    EXPECT_EQ(capitalize_first_latin1(""), "");
}

} // namespace
} // namespace zelvor
