#include "utils/BaseLexicalEntry.h"
#include "utils/common_utils/code_points.h"

#include "tests/testing.h"

#include <libxml++/libxml++.h>

#include <unistd.h>

namespace zelvor {

TEST(BaseLexicalEntry, AbbreviatesAgainstTheLemma) {
    // Only the constructor abbreviates against an empty lemma, and a leading "-" always reads as abbreviated.
    using Row = std::array<std::string, 5>; // lemma, word form, as stored by the constructor and by the setter, in full
    for (const auto& [lemma, word_form, by_constructor, by_setter, spelled_out] :
         {Row{"amic", "amicus", "-us", "-us", "amicus"}, Row{"amicus", "ami", "ami", "ami", "ami"},
          Row{"", "abc", "-abc", "abc", "abc"}, Row{"", "", "-", "-", ""}, Row{"am", "-x", "-x", "-x", "amx"}}) {
        BaseLexicalEntry constructed(lemma, word_form, ""), set;
        set.set_lemma(lemma);
        set.set_word_form(word_form);
        EXPECT_EQ(constructed.get_abbreviated_word_form(), by_constructor);
        EXPECT_EQ(set.get_abbreviated_word_form(), by_setter);
        EXPECT_EQ(constructed.get_word_form() + set.get_word_form(), spelled_out + spelled_out);
    }
    BaseLexicalEntry entry("amic", "amicus", "N");
    entry.set_lemma("dom"); // takes over the stored form
    EXPECT_EQ(entry.get_word_form(), "domus");
}

TEST(BaseLexicalEntry, OrdersByFormThenLemmaThenPosAndReadsSusanneTags) {
    const BaseLexicalEntry ordered[] = {{"b", "a", "A"}, {"b", "a", "N"}, {"c", "a", "A"}, {"a", "b", "A"}};
    for (const auto& left : ordered)
        for (const auto& right : ordered)
            EXPECT_EQ(left < right, &left < &right);
    const std::string text(20'000'000, 'x');
    for (const auto& [tag, pos] : {std::pair("PPH01m", "PRP"), {"VV0v", "VB"}, {"NN2", "NN2"}, {"", ""}}) {
        BaseLexicalEntry entry;
        entry.parse_susanne("A19:0010b\t-\t"s + tag + "\tThe\tthe\t" + text);
        EXPECT_EQ(entry.get_abbreviated_word_form() + entry.get_lemma(), "Thethe");
        EXPECT_EQ(entry.get_pos(), pos);
    }
}

TEST(SusanneDeathTest, LinesOfAnotherShapeEndTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const char* const line : {"a\tb\tc\td\te", "a\tb\tc\td\te\tf\tg"}) {
        BaseLexicalEntry entry; // standard output, which the matcher cannot see, is sent to standard error
        EXPECT_EXIT((dup2(2, 1), entry.parse_susanne(line)), testing::ExitedWithCode(10), std::string(line) + "\n");
    }
}

TEST(Oanc, SpansTellTheirOffsetsAndKeepTheLastTag) {
    BaseLexicalEntry entry("a", "b", "c");
    entry.parse_oanc(nullptr, "");
    CodePoints reader("a dogs b"); // goes on from token to token, and back
    xmlpp::DomParser parser;
    for (const auto& [from, to, word_form] :
         {std::tuple{"1", "5", "dogs"}, {"1", "-1", "dogs b"}, {"7", "8", "b"}, {"99", "7", ""}, {"0", "1", "a"}}) {
        parser.parse_memory(std::string("<t from='") + from + "' to='" + to +
                            "'> <f name='base' value='cat'/><f name='msd' value='NN'/><f name='msd' value='NNS'/>"
                            "<f name='x' value='y'/></t>");
        for (const bool is_reader : {false, true}) {
            testing::internal::CaptureStdout();
            try {
                if (is_reader)
                    entry.parse_oanc(parser.get_document()->get_root_node(), reader);
                else
                    entry.parse_oanc(parser.get_document()->get_root_node(), "a dogs b");
                EXPECT_EQ(entry.get_abbreviated_word_form(), word_form);
            } catch (const std::out_of_range&) {
                EXPECT_STREQ(word_form, "");
            }
            EXPECT_EQ(testing::internal::GetCapturedStdout(), std::string("sfrom: ") + from + "\nsto: " + to + "\n");
            EXPECT_EQ(entry.get_lemma() + entry.get_pos(), "catNNS");
        }
    }
}

} // namespace zelvor
