#include "utils/BaseLexicalEntry.h"

#include <gtest/gtest.h>
#include <libxml++/libxml++.h>

#include <stdexcept>

#include <unistd.h>

namespace zelvor {
namespace {

TEST(Susanne, ConvertsTagsAndKeepsTheOthers) {
    const char* const rows[][2] = {{"PPH01m", "PRP"}, {"APPGm", "PPOSAT"}, {"NN1c", "NN"}, {"NP1f", "NNP"},
                                   {"VBR", "AUX"},    {"RR", "RB"},        {"CCr", "CC"},  {"NP1s", "NNP"},
                                   {"AT1", "DT"},     {"VV0v", "VB"},      {"NN2", "NN2"}, {"nn1c", "nn1c"},
                                   {"", ""}};
    for (const auto& [tag, pos] : rows) {
        BaseLexicalEntry entry;
        entry.parse_susanne(std::string("A19:0010b\t-\t") + tag + "\tThe\tthe\t[O[S[Nns:s.");
        EXPECT_EQ(entry.get_abbreviated_word_form() + entry.get_lemma(), "Thethe");
        EXPECT_EQ(entry.get_pos(), pos);
    }
    BaseLexicalEntry large;
    const std::string text(20'000'000, 'x');
    large.parse_susanne("\t\tNN1c\t" + text + "\tl\t" + text);
    EXPECT_EQ(large.get_word_form().size(), text.size());
}

TEST(SusanneDeathTest, LinesOfAnotherShapeEndTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* const line : {"a\tb\tc\td\te", "a\tb\tc\td\te\tf\tg", "", "plain"}) {
        BaseLexicalEntry entry;
        const std::string expected = std::string(line) + "\n";
        // Standard output, which the matcher cannot see, is sent to standard error.
        EXPECT_EXIT((dup2(2, 1), entry.parse_susanne(line)), testing::ExitedWithCode(10), expected);
    }
}

class Oanc : public testing::Test {
protected:
    /// The word form of a span; lemma "" means none is given.
    std::string word_form(const std::string& from, const std::string& to, const std::string& lemma,
                          const Glib::ustring& text) {
        parser.parse_memory("<t from='" + from + "' to='" + to + "'> <f name='base' value='" + lemma +
                            "'/><f name='msd' value='NN'/><f name='msd' value='NNS'/><f name='x' value='y'/></t>");
        testing::internal::CaptureStdout();
        try {
            entry.parse_oanc(parser.get_document()->get_root_node(), text);
        } catch (...) {
            testing::internal::GetCapturedStdout();
            throw;
        }
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "sfrom: " + from + "\nsto: " + to + "\n");
        EXPECT_EQ(entry.get_lemma() + entry.get_pos(), lemma + "NNS");
        return entry.get_abbreviated_word_form();
    }

    xmlpp::DomParser parser;
    BaseLexicalEntry entry;
};

TEST_F(Oanc, SpansAreRepairedOnce) {
    const struct {
        const char *from, *to, *lemma, *text, *expected;
    } rows[] = {
        {"2", "6", "dog", "a dogs b", "dogs"}, // begins with its lemma: as it is
        {"", "3", "", "abcde", "abc"},         // missing offsets are 0; an empty lemma begins every form
        // One to the left: the end moves where the character at it is a letter.
        {"1", "4", "dog", "a dogs b", "dog"},
        {"1", "5", "dog", "a dog, b", "dog"},
        {"1", "5", "cat", "a dogs b", "dogs"}, // the lemma is not asked again
        // Two to the left: the end moves where the character behind it is a letter.
        {"1", "5", "dog", "a  dogs b", "dogs"},
        {"1", "4", "dog", "a  dogs b", "dog"},
        {"1", "6", "dog", "a  dogs b", "dog"},
        {"1", "5", "dog", "a 'dogs b", "dogs"},
        {"1", "4", "dog", "a'dogs b", "'do"}, // but a span that begins at an apostrophe stays
        // Only ASCII is alphanumeric, and positions count code points.
        {"0", "2", "dog", "Ädogs", "do"},
        {"1", "3", "x", "ä\U00031234bc", "b"},
        {"19", "23", "dog", "0123456789012345é89 dogs, cats", "dogs"},
        {"19", "3", "x", "0123456789012345é89 dogs, cats", "dogs, cats"},
        {"1", "4", "dog", "\xFF dog", "do"},
        // Ends of the text, reversed and negative offsets.
        {"5", "9", "x", "abcde", ""},
        {"3", "1", "x", "ab .cd", "cd"},
        {"1", "-1", "x", "a dog", "dog"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(word_form(row.from, row.to, row.lemma, row.text), row.expected) << row.from << ' ' << row.text;
}

TEST_F(Oanc, ASpanBeyondTheTextThrowsAndANullElementDoesNothing) {
    EXPECT_THROW(word_form("6", "7", "x", "abcde"), std::out_of_range);
    EXPECT_THROW(word_form("-1", "7", "x", "abcde"), std::out_of_range);
    BaseLexicalEntry("a", "b", "c").parse_oanc(nullptr, "");
}

} // namespace
} // namespace zelvor
