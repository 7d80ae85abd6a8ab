#include "utils/common_utils/text.h"

#include <glibmm/ustring.h>

#include "tests/testing.h"
#include "utils/common_utils/utf8.h"

namespace zelvor {

TEST(Text, SearchNeverTriesTheLastFittingPlace) {
    // An end before the pattern's length wraps round, and still reads nothing beyond the text.
    using Row = std::tuple<const char*, const char*, int, int, int>;
    for (const auto& [text, pattern, start, end, expected] :
         {Row("abc", "c", 0, -1, -1), Row("abcd", "c", 0, -1, 2), Row("abcd", "b", 2, -1, -1),
          Row("abcd", "c", 0, 3, -1), Row("abc", "c", 0, 9, -1), Row("ab", "abc", 0, -1, -1),
          Row("xxabc", "bc", 0, 1, 3), Row("abc", "c", 0, 0, 2), Row("abc", "abc", 0, 1, 0),
          Row("abc", "a", -1, -1, -1), Row("abc", "a", 7, -1, -1), Row("", "", 0, -1, -1), Row("a", "", 0, -1, 0)})
        EXPECT_EQ(search_string(text, pattern, start, end), expected)
            << text << ' ' << pattern << ' ' << start << ' ' << end;
    EXPECT_EQ(search_string_last("abcabc", "bc"), 4);
    EXPECT_EQ(search_string_last("abc", "abcd"), -1);
}

TEST(Text, SplittersThatDifferInEmptyFields) {
    Words values{"z"};
    tokenize_arg_set(",b,,a, c,", ",", values);
    EXPECT_EQ(values, (Words{" c", "a", "b", "z"}));
    EXPECT_EQ(*tokenize("a b;c", "; "), (Strings{"a", "b", "c"}));
    // Of a longer separator one code point is skipped, the rest opens the next segment.
    using Row = std::tuple<const char*, const char*, bool, std::vector<Glib::ustring>>;
    for (const auto& [word, separator, allow_empty, expected] :
         {Row("a;;b", ";", false, {"a", "b"}), Row("a;;b", ";", true, {"a", "", "b"}), Row(";", ";", true, {"", ""}),
          Row("", ";", true, {""}), Row("aß-b", "ß-", false, {"a", "-b"}), Row("aaa", "aa", true, {"", "", "a"}),
          Row("ab", "", true, {"ab"})}) {
        std::vector<Glib::ustring> segments;
        tokenize_ustring(word, separator, segments, allow_empty);
        EXPECT_EQ(segments, expected) << word;
    }
}

TEST(Text, ReplacesWithTheEndOfTheTextAsAWildcard) {
    using Row = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [text, from, to, expected] :
         {Row("ab", "bc", "X", "aX"), Row("abcb", "bc", "", "a"), Row("aäa", "ä", "ö", "aöa"), Row("ab", "", "X", "ab"),
          Row("aaaa", "aaa", "b", "bb"), Row("\xC3", "é", "X", "\xC3")}) {
        EXPECT_EQ(string_replace(text, from, to).raw(), expected) << text;
        EXPECT_EQ(string_replace_vec(text, {{from, to}, {"a", "Y"}}).raw(), expected) << text;
    }
    EXPECT_EQ(string_replace_vec("ab", {}).raw(), "");
    Glib::ustring text = "aäa\xFF";
    replace(text, 0xE4, 'x');
    replace(text, 'a', 0x1F702);
    EXPECT_EQ(text.raw(), "\U0001F702x\U0001F702\xFF");
}

TEST(Text, PrefixesSuffixesAndParts) {
    EXPECT_TRUE(vends_with("a.tei", ".tei"));
    EXPECT_FALSE(vends_with(".tei", "a.tei"));
    EXPECT_TRUE(vstarts_with("ab", "ab"));
    EXPECT_TRUE(vstarts_with_ustring("äb", "ä"));
    EXPECT_FALSE(vstarts_with_ustring("ä", "\xC3")); // half a character is no prefix
    EXPECT_TRUE(all_alphanum("azAZ09"));
    EXPECT_FALSE(all_alphanum("ä"));
    EXPECT_FALSE(is_number_or_letter(0x161));
    EXPECT_TRUE(contains_alpha("1λ"));
    EXPECT_FALSE(contains_alpha("1-2\xFF"));
    for (const auto& [found, expected] : {std::pair(find("aéb;", ';', 0, 4), 3),
                                          {find("aéb;", ';', 0, 3), -1},
                                          {find("a;", 'a', 1, 9), -1},
                                          {find("a;", ';', 3, 9), -1}})
        EXPECT_EQ(found, expected);
    const std::vector<Glib::ustring> list{"ä", "", "b"};
    using Made = std::pair<std::string, std::string>;
    for (const auto& [made, expected] :
         {Made(get_substr("abcd", 4), "abcd..."), Made(get_substr("abcd", 5), "abcd"), Made(head("abcd", 4), "abcd..."),
          Made(head("abcd", 5), "abcd"), Made(concatenate_duplicate("ab", 3), "ababab"),
          Made(revert("aä\U0001F702").raw(), "\U0001F702äa"), Made(revert("z\xC3").raw(), "\xC3z"),
          Made(utrim("\v\f ä b\r\n").raw(), "ä b"), Made(convert_to_string(1234567.0), "1.23457e+06"),
          Made(convert_list_to_string(list.begin(), list.end(), ", "), "ä, , b"),
          Made(output_of([] {
                   print_set({"b", "a"});
               }),
               "a b \n")})
        EXPECT_EQ(made, expected);
    std::map<std::string, std::string> parameters{{"b", "old"}};
    parse_arguments("a=1&b=2&c&=d&=&&e=x=y", parameters);
    EXPECT_EQ(parameters,
              (std::map<std::string, std::string>{{"a", "1"}, {"b", "old"}, {"c", ""}, {"d", ""}, {"e", "x"}}));
    const std::map<std::string, bool> map{{"a", true}, {"b", false}};
    EXPECT_EQ(convert_list_to_string(map.begin(), map.end(), ";"), "(a,true);(b,false)");
}

} // namespace zelvor
