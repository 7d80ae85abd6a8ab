#include "utils/lexicon_utils/names.h"

#include "tests/testing.h"

extern "C" int wninit();

namespace zelvor {

struct Names : testing::Test {
    static void SetUpTestSuite() { ASSERT_EQ(wninit(), 0) << "the WordNet database is missing"; }
};

TEST_F(Names, InstancesAreNounsWithAnInstanceHypernym) {
    using Row = std::tuple<std::string, int, instance_ret>;
    for (const auto& [word, pos, expected] :
         {Row("new_york", 1, CINSTANCE), Row("dog", 1, TYPE), Row("run", 2, TYPE), Row("turkey", 1, CINSTANCE),
          Row("quickly", 4, TYPE), Row("dog\0x"s, 1, NOT_FOUND), Row("Paris", 1, NOT_FOUND),
          Row(std::string(300, 'a'), 1, NOT_FOUND), Row("dog", -1, NOT_FOUND), Row("dog", 5, NOT_FOUND)})
        EXPECT_EQ(is_instance(word, pos), expected) << word << " " << pos;
}

TEST_F(Names, WordForms) {
    using Row = std::tuple<std::string, std::string, std::string, bool>; // word form, lemma, part of speech
    for (const auto& [form, lemma, pos, expected] :
         {Row("Wolves", "", "NE", true), Row("ran", "", "V", true), Row("larger", "", "ADJ", true),
          Row("zorks", "zork", "N", true), Row("zorks", "zork", "V", true), Row("glasss", "", "N", true),
          Row("Glasss", "", "N", false), Row("harder", "", "ADV", true), Row("cats", "cat", "X", false),
          Row("zorks", "zork", "ADJ", false), Row("Zorks", "zork", "N", false), Row("", "", "N", false)})
        EXPECT_EQ(is_word_form(form, lemma, pos), expected) << form << " " << pos;
}

TEST_F(Names, Recognizers) {
    const std::map<std::string, int> counts = {{"Zork", 2},      {"zork", 1},      {"Blick", 1}, {"blick", 2},
                                               {"Mopp Frob", 1}, {"mopp frob", 1}, {"Dog", 2}};
    using Row = std::pair<const char*, const char*>;
    for (const auto& [word, recognizers] :
         {Row("Paris", "u"), Row("Zork", "u"), Row("Xyzzy éfrob", "u"), Row("Éxyz Frob", "u"), Row(" ", "u"),
          Row("Dog", ""), Row("Blick", ""), Row("Mopp Frob", "u"), Row("Xyzzy “Frob”", "u"), Row("dog", "a"),
          Row("Xyzzy frob", ""), Row("", ""), Row("paris", "c"), Row("zork", "ca")})
        EXPECT_EQ(std::string(uby_ne_recognizer(word, counts) ? "u" : "") +
                      (clearnlp_ne_recognizer(word, counts) ? "c" : "") +
                      (clearnlp_capitalized_adj_recognizer(word, counts) ? "a" : ""),
                  recognizers)
            << word;
}

} // namespace zelvor
