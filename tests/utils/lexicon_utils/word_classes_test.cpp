#include "utils/lexicon_utils/word_classes.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

namespace zelvor {
namespace {

TEST(WordClasses, TagFamiliesMatchWholeTags) {
    const struct {
        std::string pos;
        bool noun, adjective, verb;
    } rows[] = {{"NE", true, false, false},  {"NP", true, false, false},   {"N", true, false, false},
                {"NN", true, false, false},  {"NNS", false, false, false}, {"JJ", false, true, false},
                {"ADJ", false, true, false}, {"JJR", false, false, false}, {"V", false, false, true},
                {"VB", false, false, true},  {"VBD", false, false, false}, {"", false, false, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pos);
        EXPECT_EQ(is_noun(row.pos), row.noun);
        EXPECT_EQ(is_adjective(row.pos), row.adjective);
        EXPECT_EQ(is_verb(row.pos), row.verb);
    }
}

TEST(WordClasses, ModalsEndAtTheEmptyString) {
    for (const std::string modal : {"should", "ought", "wilt"})
        EXPECT_TRUE(is_modal(modal));
    for (const std::string other : {"", "Should", "be", "wil"})
        EXPECT_FALSE(is_modal(other));
}

TEST(WordClasses, Numbers) {
    const struct {
        std::string text;
        bool latin, ordinal, cardinal;
    } rows[] = {
        {"XIII", true, false, true},
        {"MCMXC", true, false, true},
        {"ix", true, false, true},
        {"", true, false, true},
        {"MMMMMDCCCLXXXVIII", true, false, true},
        {"IV", false, false, false},
        {"XIV", false, false, false},
        {"IIX", false, false, false},
        {"XIII\0"s, false, false, false},
        {"ix\xFF", false, false, false},
        {"3.", false, true, true},
        {"XII.", false, true, false},
        {"XIV.", false, false, false},
        {"0.", false, false, false},
        {".", false, true, false},
        {"3", false, false, true},
        {"3..", false, true, true},
        {"-2.", false, true, true},
        {"0.5", false, false, true},
        {"0", false, false, false},
        {"abc", false, false, false},
        {"7up", false, false, true},
        {"nan", false, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(is_latin_number(row.text), row.latin);
        EXPECT_EQ(is_odinal_number(row.text, "la"), row.ordinal);
        EXPECT_EQ(is_cardinal_number(row.text, ""), row.cardinal);
    }
}

TEST(WordClasses, LatinCharactersAreAscii) {
    EXPECT_TRUE(contains_latin_characters("12z"));
    EXPECT_TRUE(contains_latin_characters("λA"));
    EXPECT_FALSE(contains_latin_characters("@[`{1é"));
    EXPECT_FALSE(contains_latin_characters(""));
}

} // namespace
} // namespace zelvor
