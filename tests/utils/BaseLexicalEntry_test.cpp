#include "utils/BaseLexicalEntry.h"

#include "tests/testing.h"

#include <libxml++/libxml++.h>

#include <unistd.h>

namespace zelvor {

TEST(BaseLexicalEntry, AbbreviatesAgainstTheLemma) {
    // Only the constructor abbreviates against an empty lemma, and a leading "-" always reads as abbreviated.
    using Row = std::array<std::string, 5>; // lemma, word form, as stored by the constructor and by the setter, in full
    for (const auto& [lemma, word_form, by_constructor, by_setter, spelled_out] :
         {Row{"amic", "amicus", "-us", "-us", "amicus"}, Row{"amo", "amo", "-", "-", "amo"},
          Row{"amicus", "ami", "ami", "ami", "ami"}, Row{"", "abc", "-abc", "abc", "abc"}, Row{"", "", "-", "-", ""},
          Row{"am", "-x", "-x", "-x", "amx"}}) {
        const BaseLexicalEntry constructed(lemma, word_form, "");
        BaseLexicalEntry set;
        set.set_lemma(lemma);
        set.set_word_form(word_form);
        EXPECT_EQ((Row{lemma, constructed.get_word_form(), constructed.get_abbreviated_word_form(),
                       set.get_abbreviated_word_form(), set.get_word_form()}),
                  (Row{lemma, spelled_out, by_constructor, by_setter, spelled_out}));
    }
    BaseLexicalEntry entry("amic", "amicus", "N");
    entry.set_lemma("dom"); // takes over the stored form
    EXPECT_EQ(entry.get_word_form(), "domus");
    entry.set_word_form("aqua");
    entry.set_lemma("aqu");
    EXPECT_EQ(entry.get_abbreviated_word_form(), "-a");
}

TEST(BaseLexicalEntry, OrdersByFormThenLemmaThenPos) {
    const BaseLexicalEntry ordered[] = {{"b", "a", "A"}, {"b", "a", "N"}, {"c", "a", "A"}, {"a", "b", "A"}};
    for (const auto& left : ordered)
        for (const auto& right : ordered)
            EXPECT_EQ(left < right, &left < &right);
}

TEST(Susanne, ConvertsTagsAndKeepsTheOthers) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [tag, pos] :
         {Row("PPH01m", "PRP"), Row("APPGm", "PPOSAT"), Row("NN1c", "NN"), Row("NP1f", "NNP"), Row("VBR", "AUX"),
          Row("RR", "RB"), Row("CCr", "CC"), Row("NP1s", "NNP"), Row("AT1", "DT"), Row("VV0v", "VB"), Row("NN2", "NN2"),
          Row("nn1c", "nn1c"), Row("", "")}) {
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
        BaseLexicalEntry entry; // standard output, which the matcher cannot see, is sent to standard error
        EXPECT_EXIT((dup2(2, 1), entry.parse_susanne(line)), testing::ExitedWithCode(10), std::string(line) + "\n");
    }
}

TEST(Oanc, SpansTellTheirOffsetsAndKeepTheLastTag) {
    BaseLexicalEntry entry("a", "b", "c");
    entry.parse_oanc(nullptr, "");
    xmlpp::DomParser parser;
    for (const auto& [from, to, word_form] :
         {std::tuple{"1", "5", "dogs"}, {"1", "-1", "dogs b"}, {"7", "8", "b"}, {"99", "7", ""}}) {
        parser.parse_memory(std::string("<t from='") + from + "' to='" + to +
                            "'> <f name='base' value='cat'/><f name='msd' value='NN'/><f name='msd' value='NNS'/>"
                            "<f name='x' value='y'/></t>");
        testing::internal::CaptureStdout();
        try {
            entry.parse_oanc(parser.get_document()->get_root_node(), "a dogs b");
            EXPECT_EQ(entry.get_abbreviated_word_form(), word_form);
        } catch (const std::out_of_range&) {
            EXPECT_STREQ(word_form, "");
        }
        EXPECT_EQ(testing::internal::GetCapturedStdout(), std::string("sfrom: ") + from + "\nsto: " + to + "\n");
        EXPECT_EQ(entry.get_lemma() + entry.get_pos(), "catNNS");
    }
}

} // namespace zelvor
