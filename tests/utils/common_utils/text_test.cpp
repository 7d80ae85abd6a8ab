#include "utils/common_utils/text.h"

#include "tests/testing.h"

#include "utils/common_utils/utf8.h"

namespace zelvor {

TEST(Text, SearchNeverTriesTheLastFittingPlace) {
    // An end before the pattern's length wraps round, and still reads nothing beyond the text.
    using Row = std::tuple<const char*, const char*, int, int, int>;
    for (const auto& [text, pattern, start, end, expected] :
         {Row("abc", "c", 0, -1, -1), Row("abcd", "c", 0, -1, 2), Row("abcd", "b", 2, -1, -1),
          Row("abcd", "c", 0, 3, -1), Row("abc", "c", 0, 9, -1), Row("ab", "abc", 0, -1, -1),
          Row("xxabc", "ab", 0, 1, 2), Row("xxabc", "bc", 0, 1, 3), Row("abc", "c", 0, 0, 2),
          Row("abc", "abc", 0, 1, 0), Row("abc", "a", -1, -1, -1), Row("abc", "a", 7, -1, -1), Row("", "", 0, -1, -1),
          Row("a", "", 0, -1, 0)})
        EXPECT_EQ(search_string(text, pattern, start, end), expected)
            << text << ' ' << pattern << ' ' << start << ' ' << end;
    EXPECT_EQ(search_string_last("abcabc", "bc"), 4);
    EXPECT_EQ(search_string_last("abc", "abcd"), -1);
}

TEST(Text, SplittersThatDifferInEmptyFields) {
    std::set<std::string> values{"z"};
    tokenize_arg_set(",b,,a, c,", ",", values);
    Strings appended{"z"};
    tokenize_arg("a,b", ",", appended);
    EXPECT_EQ(appended, (Strings{"z", "a", "b"}));
    EXPECT_EQ(values, (std::set<std::string>{" c", "a", "b", "z"}));
    EXPECT_EQ(*tokenize("a b;c", "; "), (Strings{"a", "b", "c"}));
    // Of a longer separator one code point is skipped, the rest opens the next segment.
    using Segments = std::tuple<const char*, const char*, bool, std::vector<Glib::ustring>>;
    for (const auto& [word, separator, allow_empty, expected] :
         {Segments("a;;b", ";", false, {"a", "b"}), Segments("a;;b", ";", true, {"a", "", "b"}),
          Segments(";", ";", true, {"", ""}), Segments(";", ";", false, {}), Segments("", ";", true, {""}),
          Segments("aß-b", "ß-", false, {"a", "-b"}), Segments("aaa", "aa", true, {"", "", "a"}),
          Segments("ab", "", true, {"ab"})}) {
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
    EXPECT_TRUE(vends_with("a.tei", ".tei") && !vends_with(".tei", "a.tei") && !vstarts_with("/", "//"));
    EXPECT_TRUE(vends_with("ab", "ab") && vstarts_with("ab", "ab") && vends_with("a", "") && vstarts_with("a", ""));
    EXPECT_TRUE(vstarts_with_ustring("äb", "ä") && !vstarts_with_ustring("ä", "\xC3")); // half a character is no prefix
    EXPECT_TRUE(all_alphanum("azAZ09") && all_alphanum("") && !all_alphanum("ä") && !is_number_or_letter(0x161));
    EXPECT_TRUE(contains_alpha("1λ") && !contains_alpha("1-2\xFF"));
    EXPECT_EQ(find("aéb;", ';', 0, 4), 3);
    for (const int found : {find("aéb;", ';', 0, 3), find("a;", 'a', 1, 9), find("a;", ';', 3, 9)})
        EXPECT_EQ(found, -1);
    EXPECT_EQ(get_substr("abcd", 4) + get_substr("abcd", 5), "abcd...abcd");
    EXPECT_EQ(head("abcd", 4) + head("abcd", 5), "abcd...abcd");
    EXPECT_EQ(concatenate_duplicate("ab", 3) + concatenate_duplicate("ab", -1), "ababab");
    EXPECT_EQ(trimmed(" \t\n\v\f\r"), "");
    EXPECT_EQ(revert("aä\U0001F702").raw(), "\U0001F702äa");
    EXPECT_EQ(revert("z\xC3").raw(), "\xC3z");
    EXPECT_EQ(utrim("\v\f ä b\r\n").raw(), "ä b");
    EXPECT_EQ(utrim(" \t").raw(), "");
}

TEST(Text, ArgumentsAndLists) {
    std::map<std::string, std::string> parameters{{"b", "old"}};
    parse_arguments("a=1&b=2&c&=d&=&&e=x=y", parameters);
    EXPECT_EQ(parameters,
              (std::map<std::string, std::string>{{"a", "1"}, {"b", "old"}, {"c", ""}, {"d", ""}, {"e", "x"}}));
    EXPECT_EQ(convert_to_string(std::pair<std::string, std::string>("a", "b")), "(a,b)");
    EXPECT_EQ(convert_to_string(1234567.0), "1.23457e+06");
    const std::map<std::string, bool> map{{"a", true}, {"b", false}};
    EXPECT_EQ(convert_list_to_string(map.begin(), map.end(), ";"), "(a,true);(b,false)");
    const std::vector<Glib::ustring> list{"ä", "", "b"};
    EXPECT_EQ(convert_list_to_string(list.begin(), list.end(), ", "), "ä, , b");
    EXPECT_EQ(convert_list_to_string(list.end(), list.end(), ","), "");
    EXPECT_EQ(output_of([] { print_set({"b", "a"}); }), "a b \n");
}

} // namespace zelvor
