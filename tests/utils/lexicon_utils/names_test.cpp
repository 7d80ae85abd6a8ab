#include "utils/lexicon_utils/names.h"

#include <gtest/gtest.h>

#include <string>

extern "C" int wninit();

namespace zelvor {
namespace {

const std::map<std::string, int> STATISTICS = {{"Zork", 2}, {"zork", 1}, {"Blick", 1}, {"blick", 2}};

class Names : public testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(wninit(), 0) << "the WordNet database is missing"; }
};

TEST_F(Names, InstancesNeedAnInstanceHypernymOfANoun) {
    const struct {
        std::string word;
        int pos;
        instance_ret expected;
    } rows[] = {{"dog", 1, TYPE},
                {"paris", 1, CINSTANCE},
                {"Paris", 1, NOT_FOUND},
                {"new_york", 1, CINSTANCE},
                {"new york", 1, NOT_FOUND},
                {"run", 2, TYPE},
                {"paris", 2, NOT_FOUND},
                {"dog", 0, NOT_FOUND},
                {"dog", 5, NOT_FOUND},
                {"dog", -1, NOT_FOUND},
                {"", 1, TYPE},
                {std::string(300, 'a'), 1, NOT_FOUND}};
    for (const auto& row : rows)
        EXPECT_EQ(is_instance(row.word, row.pos), row.expected) << row.word << " " << row.pos;
}

TEST_F(Names, WordForms) {
    const struct {
        std::string form, lemma, pos;
        bool expected;
    } rows[] = {{"cats", "cat", "N", true},
                {"Wolves", "x", "NE", true},
                {"ran", "x", "V", true},
                {"running", "x", "VB", true},
                {"larger", "x", "ADJ", true},
                {"cat", "cat", "N", false},
                {"zorks", "zork", "N", true},
                {"zorks", "zork", "V", true},
                {"zorks", "zork", "ADJ", false},
                {"zorks", "zorx", "N", false},
                {"Zorks", "zork", "N", false},
                {"cats", "cat", "X", false},
                {"gasses", "x", "ADV", false},
                {"glasss", "x", "N", true},
                {"", "", "N", false},
                {std::string(300, 'z') + "s", std::string(300, 'z'), "N", true}};
    for (const auto& row : rows)
        EXPECT_EQ(is_word_form(row.form, row.lemma, row.pos), row.expected) << row.form << " " << row.pos;
}

TEST_F(Names, Recognizers) {
    const struct {
        std::string text;
        bool uby, clearnlp, adjective;
    } rows[] = {{"paris", false, true, false},
                {"Paris", true, false, false},
                {"Dog", false, false, false},
                {"zork", false, true, true},
                {"Zork", true, false, false},
                {"Blick", false, false, false},
                {"blick", false, false, false},
                {"Xyzzy", false, false, false},
                {"Xyzzy Frob", true, false, false},
                {"Xyzzy frob", false, false, false},
                {"Xyzzy \u00e9frob", true, false, false},
                {"\u00c9xyz Frob", true, false, false},
                {" ", true, false, false},
                {"", false, false, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(uby_ne_recognizer(row.text, STATISTICS), row.uby);
        EXPECT_EQ(clearnlp_ne_recognizer(row.text, STATISTICS), row.clearnlp);
        EXPECT_EQ(clearnlp_capitalized_adj_recognizer(row.text, STATISTICS), row.adjective);
    }
}

} // namespace
} // namespace zelvor
