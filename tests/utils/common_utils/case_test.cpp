#include "utils/common_utils/case.h"

#include "tests/testing.h"

#include <cctype>

namespace zelvor {

TEST(Case, MapsTheFirstTheRestAndTheWhole) {
    // One character becomes two; a final sigma; nothing after a NUL is lost; invalid text is unchanged.
    using Row = std::array<std::string, 5>;
    for (const auto& [text, capitalized, downcased, rest_downcased, lowercase] :
         {Row{"ßx", "SSx", "ßx", "ßx", "ßx"}, Row{"ὁ ΛΌΓΟΣ", "Ὁ ΛΌΓΟΣ", "ὁ ΛΌΓΟΣ", "ὁ λόγος", "ὁ λόγος"},
          Row{"É\0BC"s, "É\0BC"s, "é\0BC"s, "É\0bc"s, "é\0bc"s}, Row{},
          Row{"A\xFF Bé\xC3", "A\xFF Bé\xC3", "A\xFF Bé\xC3", "A\xFF Bé\xC3", "A\xFF Bé\xC3"}}) {
        EXPECT_EQ(capitalize_first_unicode(text), capitalized);
        EXPECT_EQ(capitalize_first_unicode_glib(text).raw(), capitalized);
        EXPECT_EQ(downcase_first_unicode_glib(text).raw(), downcased);
        EXPECT_EQ(downcase_rest_unicode(text).raw(), rest_downcased);
        EXPECT_EQ(convert_lowercase(text), lowercase);
    }
    EXPECT_EQ(capitalize_multi_token_expression("  île  de\tla a\xFF cité ").raw(), "Île De\tla a\xFF Cité");
}

TEST(Case, Latin1TableHoldsInAnyLocaleAndItsGapsFollowTheLibrary) {
    const std::string small = "az\xE0\xE6\xE8\xEF\xF2\xF6\xF9\xFC", capital = "AZ\xC0\xC6\xC8\xCF\xD2\xD6\xD9\xDC";
    for (std::size_t i = 0; i < small.size(); ++i) {
        EXPECT_EQ(capitalize_char_latin1(small[i]), capital[i]);
        EXPECT_EQ(downcase_char_latin1(capital[i]), small[i]);
    }
    for (const char gap : "1\x7F\x80\xE7\xF0\xF1\xF7\xF8\xFD\xFE\xFF\xC7\xD0\xD1\xD7\xD8\xDD\xDE\xDF"s) {
        EXPECT_EQ(capitalize_char_latin1(gap), static_cast<char>(std::toupper(static_cast<signed char>(gap))));
        EXPECT_EQ(downcase_char_latin1(gap), static_cast<char>(std::tolower(static_cast<signed char>(gap))));
    }
    EXPECT_EQ(capitalize_first_latin1("\xE4h\xE4") + capitalize_first_latin1(""), "\xC4h\xE4");
}

} // namespace zelvor
