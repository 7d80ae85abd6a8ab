#include "utils/lexicon_utils/names.h"

#include <gtest/gtest.h>

#include <tuple>

extern "C" int wninit();

namespace zelvor {
namespace {

struct Names : testing::Test {
    static void SetUpTestSuite() { ASSERT_EQ(wninit(), 0) << "the WordNet database is missing"; }
};

TEST_F(Names, InstancesAreNounsWithAnInstanceHypernym) {
    for (const char* name : {"paris", "new_york", "einstein"})
        EXPECT_EQ(is_instance(name, 1), CINSTANCE) << name;
    EXPECT_EQ(is_instance("dog", 1), TYPE);
    EXPECT_EQ(is_instance("run", 2), TYPE);
    for (const std::string& word : {std::string("Paris"), std::string("new york"), std::string(300, 'a')})
        EXPECT_EQ(is_instance(word, 1), NOT_FOUND) << word;
    for (const int pos : {-1, 0, 3, 5})
        EXPECT_EQ(is_instance("dog", pos), NOT_FOUND) << pos;
}

TEST_F(Names, WordForms) {
    using Row = std::tuple<std::string, std::string, std::string>; // word form, lemma, part of speech
    const std::string unknown(300, 'z');
    for (const auto& [form, lemma, pos] :
         {Row("cats", "cat", "N"), Row("Wolves", "", "NE"), Row("ran", "", "V"), Row("running", "", "VB"),
          Row("larger", "", "ADJ"), Row("zorks", "zork", "N"), Row("zorks", "zork", "V"), Row("glasss", "", "N"),
          Row(unknown + "s", unknown, "N")})
        EXPECT_TRUE(is_word_form(form, lemma, pos)) << form << " " << pos;
    for (const auto& [form, lemma, pos] :
         {Row("cat", "cat", "N"), Row("cats", "cat", "X"), Row("zorks", "zork", "ADJ"), Row("zorks", "x", "N"),
          Row("Zorks", "zork", "N"), Row("gasses", "", "ADV"), Row("", "", "N")})
        EXPECT_FALSE(is_word_form(form, lemma, pos)) << form << " " << pos;
}

TEST_F(Names, Recognizers) {
    const std::map<std::string, int> counts = {{"Zork", 2}, {"zork", 1}, {"Blick", 1}, {"blick", 2}};
    const auto judge = [&](const std::string& word) {
        return std::string(uby_ne_recognizer(word, counts) ? "u" : "") +
               (clearnlp_ne_recognizer(word, counts) ? "c" : "") +
               (clearnlp_capitalized_adj_recognizer(word, counts) ? "a" : "");
    };
    for (const char* name : {"Paris", "Zork", "Xyzzy Frob", "Xyzzy éfrob", "Éxyz Frob", " "})
        EXPECT_EQ(judge(name), "u") << name;
    for (const char* other : {"Dog", "Blick", "blick", "Xyzzy", "Xyzzy frob", ""})
        EXPECT_EQ(judge(other), "") << other;
    EXPECT_EQ(judge("paris"), "c");
    EXPECT_EQ(judge("zork"), "ca");
}

} // namespace
} // namespace zelvor
