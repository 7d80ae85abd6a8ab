#include "utils/common_utils/text.h"

#include "utils/common_utils/utf8.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

using Strings = std::vector<std::string>;

template<typename Views>
Strings to_strings(const Views& views) {
    return Strings(views.begin(), views.end());
}

TEST(Text, PrefixesAndSuffixes) {
    EXPECT_TRUE(vends_with("a.tei", ".tei"));
    EXPECT_FALSE(vends_with(".tei", "a.tei"));
    EXPECT_TRUE(vends_with("x", ""));
    EXPECT_FALSE(vstarts_with("/", "//"));
    EXPECT_TRUE(vstarts_with_ustring("äb", "ä"));
    EXPECT_FALSE(vstarts_with_ustring("ä", "\xC3")); // half a character is no prefix
    EXPECT_TRUE(all_alphanum("aZ09"));
    EXPECT_TRUE(all_alphanum(""));
    EXPECT_FALSE(all_alphanum("ä"));
    EXPECT_FALSE(is_number_or_letter(0x106));
}

TEST(Text, SearchNeverTriesTheLastFittingPlace) {
    const struct {
        const char *text, *pattern;
        int start, end, expected;
    } rows[] = {
        {"abc", "c", 0, -1, -1},
        {"abcd", "c", 0, -1, 2},
        {"abcd", "b", 2, -1, -1},
        {"abcd", "c", 0, 3, -1},
        {"abcd", "c", 0, 9, 2},
        {"ab", "abc", 0, -1, -1},
        {"xxabc", "ab", 0, 1, 2}, // an end before the pattern's
                                  // length wraps round
        {"xxabc", "bc", 0, 1, 3}, // ... and still reads nothing beyond the text
        {"abc", "x", 0, 0, -1},
        {"abc", "a", -1, -1, -1},
        {"abc", "a", 7, -1, -1},
        {"", "", 0, -1, -1},
        {"a", "", 0, -1, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(search_string(row.text, row.pattern, row.start, row.end), row.expected)
            << row.text << ' ' << row.pattern << ' ' << row.start << ' ' << row.end;
    EXPECT_EQ(search_string_last("abcabc", "bc"), 4);
    EXPECT_EQ(search_string_last("abc", "abcd"), -1);
}

TEST(Text, TwoSplittersThatDifferInEmptyFields) {
    const struct {
        const char* text;
        Strings tokens, fields;
    } rows[] = {
        {"a#b", {"a", "b"}, {"a", "b"}},
        {"a##b", {"a", "b"}, {"a", "b"}},
        {"#a", {"a"}, {"", "a"}},
        {"a#", {"a"}, {"a", ""}},
        {"##", {}, {"", ""}},
        {"", {}, {""}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(*tokenize(row.text, "#"), row.tokens);
        EXPECT_EQ(to_strings(split_tokens(row.text, "#")), row.tokens);
        EXPECT_EQ(to_strings(split_fields(row.text, "#")), row.fields);
    }
    std::set<std::string> values{"z"};
    tokenize_arg_set(",b,,a, c,", ",", values);
    EXPECT_EQ(values, (std::set<std::string>{" c", "a", "b", "z"}));
    EXPECT_EQ(*tokenize("a b;c", "; "), (Strings{"a", "b", "c"}));
}

TEST(Text, UnicodeSegmentsSkipOneCodePointOfTheSeparator) {
    const struct {
        const char *word, *separator;
        bool allow_empty;
        std::vector<Glib::ustring> expected;
    } rows[] = {
        {"a;;b", ";", false, {"a", "b"}},
        {"a;;b", ";", true, {"a", "", "b"}},
        {";", ";", true, {"", ""}},
        {";", ";", false, {}},
        {"", ";", true, {""}},
        {"aß-b", "ß-", false, {"a", "-b"}}, // the rest of a longer separator opens the next segment
        {"aaa", "aa", true, {"", "", "a"}},
        {"ab", "", true, {"ab"}},
    };
    for (const auto& row : rows) {
        std::vector<Glib::ustring> segments;
        tokenize_ustring(row.word, row.separator, segments, row.allow_empty);
        EXPECT_EQ(segments, row.expected) << row.word;
    }
}

TEST(Text, ShortensAndRepeats) {
    EXPECT_EQ(get_substr("abcd", 4), "abcd...");
    EXPECT_EQ(get_substr("abcd", 5), "abcd");
    EXPECT_EQ(head("abcd", 4), "abcd...");
    EXPECT_EQ(head("abcd", 5), "abcd");
    EXPECT_EQ(concatenate_duplicate("ab", 3), "ababab");
    EXPECT_EQ(concatenate_duplicate("ab", -1), "");
    EXPECT_EQ(trimmed(" \t\n\v\f\r"), "");
}

TEST(Text, ReplacesWithTheEndOfTheTextAsAWildcard) {
    const struct {
        const char *text, *from, *to, *expected;
    } rows[] = {{"ab", "bc", "X", "aX"}, {"abcb", "bc", "", "a"},    {"aäa", "ä", "ö", "aöa"},
                {"ab", "", "X", "ab"},   {"aaaa", "aaa", "b", "bb"}, {"\xC3", "é", "X", "\xC3"}};
    for (const auto& row : rows) {
        EXPECT_EQ(string_replace(row.text, row.from, row.to).raw(), row.expected) << row.text;
        EXPECT_EQ(string_replace_vec(row.text, {{row.from, row.to}, {"a", "Y"}}).raw(), row.expected) << row.text;
    }
    EXPECT_EQ(string_replace_vec("ab", {}).raw(), "");
}

TEST(Text, CodePointsSurviveReversalTrimmingAndReplacement) {
    EXPECT_EQ(revert("aä\U0001F702").raw(), "\U0001F702äa");
    EXPECT_EQ(revert("a\xC3").raw(), "\xC3"
                                     "a");
    EXPECT_EQ(utrim("\v\f ä b\r\n").raw(), "ä b");
    EXPECT_EQ(utrim(" \t").raw(), "");
    Glib::ustring text = "aäa\xFF";
    replace(text, 0xE4, 'x');
    EXPECT_EQ(text.raw(), "axa\xFF");
    replace(text, 'a', 0x1F702);
    EXPECT_EQ(text.raw(), "\U0001F702x\U0001F702\xFF");
}

TEST(Text, Arguments) {
    std::map<std::string, std::string> parameters{{"b", "old"}};
    parse_arguments("a=1&b=2&c&=d&=&&e=x=y", parameters);
    EXPECT_EQ(parameters,
              (std::map<std::string, std::string>{{"a", "1"}, {"b", "old"}, {"c", ""}, {"d", ""}, {"e", "x"}}));
}

TEST(Text, ConvertsToText) {
    EXPECT_EQ(convert_to_string(true), "true");
    EXPECT_EQ(convert_to_string("x"), "x");
    EXPECT_EQ(convert_to_string(std::pair<std::string, std::string>("a", "b")), "(a,b)");
    EXPECT_EQ(convert_to_string(1234567.0), "1.23457e+06");
    const std::vector<Glib::ustring> list{"ä", "", "b"};
    EXPECT_EQ(convert_list_to_string(list.begin(), list.end(), ", "), "ä, , b");
    EXPECT_EQ(convert_list_to_string(list.end(), list.end(), ","), "");
    testing::internal::CaptureStdout();
    print_set({"b", "a"});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "a b \n");
}

TEST(Text, FindsCodePointsAndLetters) {
    EXPECT_EQ(find("aéb;", ';', 0, 4), 3);
    EXPECT_EQ(find("aéb;", ';', 0, 3), -1);
    EXPECT_EQ(find("a;", 'a', 1, 9), -1);
    EXPECT_EQ(find("a;", ';', 3, 9), -1);
    EXPECT_TRUE(contains_alpha("1λ"));
    EXPECT_FALSE(contains_alpha("1-2\xFF"));
}

} // namespace
} // namespace zelvor
