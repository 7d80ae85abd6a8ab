#include "utils/BaseLexicalEntry.h"

#include <gtest/gtest.h>
#include <libxml++/libxml++.h>

#include <array>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace zelvor {
namespace {

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

TEST(BaseLexicalEntry, ParsesLines) {
    using Row = std::array<const char*, 3>; // a leading separator is an empty word form
    for (const auto& [line, printed, lemma_pos] :
         {Row{" amicus \t amic \t N \t V ", "amicus\tamic\t V \t", " N "},
          Row{"amicus##\tamic", "amicus\tamic\t\t", ""}, Row{"#amicus#amic#N", "\tamicus\tN\t", "amic"},
          Row{"amicus", "\t\t\t", ""}, Row{"", "\t\t\t", ""}, Row{"a#b#c#d#e", "a\tb\td\t", "c"}}) {
        BaseLexicalEntry entry("old", "older", "OLD");
        entry.set_lemma_pos("OLD");
        entry.parse(line);
        std::ostringstream os;
        os << entry;
        EXPECT_EQ(os.str() + entry.get_lemma_pos(), std::string(printed) + lemma_pos) << line;
    }
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

/// The word form of a span, or "throws".
std::string word_form_at(const std::string& from, const std::string& to, const std::string& lemma, const char* text) {
    xmlpp::DomParser parser;
    parser.parse_memory("<t from='" + from + "' to='" + to + "'> <f name='base' value='" + lemma +
                        "'/><f name='msd' value='NN'/><f name='msd' value='NNS'/><f name='x' value='y'/></t>");
    BaseLexicalEntry entry;
    testing::internal::CaptureStdout();
    try {
        entry.parse_oanc(parser.get_document()->get_root_node(), text);
    } catch (const std::out_of_range&) {
        entry.set_lemma("");
        entry.set_word_form("throws");
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "sfrom: " + from + "\nsto: " + to + "\n");
    EXPECT_EQ(entry.get_pos(), "NNS");
    return entry.get_abbreviated_word_form();
}

TEST(Oanc, SpansAreRepairedOnce) {
    // In turn: a form that begins with its lemma stays, missing offsets are 0, and an empty lemma begins every form.
    // One to the left, the end moves where the character at it is a letter; the lemma is not asked again. Two to the
    // left, the end moves where the character behind it is a letter; but a span that begins at an apostrophe stays.
    // Only ASCII is alphanumeric, positions count code points; ends of the text, reversed and negative offsets.
    using Row = std::array<const char*, 5>;
    for (const auto& [from, to, lemma, text, expected] :
         {Row{"2", "6", "dog", "a dogs b", "dogs"},
          Row{"", "3", "", "abcde", "abc"},
          Row{"1", "4", "dog", "a dogs b", "dog"},
          Row{"1", "5", "dog", "a dog, b", "dog"},
          Row{"1", "5", "cat", "a dogs b", "dogs"},
          Row{"1", "5", "dog", "a  dogs b", "dogs"},
          Row{"1", "4", "dog", "a  dogs b", "dog"},
          Row{"1", "6", "dog", "a  dogs b", "dog"},
          Row{"1", "5", "dog", "a 'dogs b", "dogs"},
          Row{"1", "4", "dog", "a'dogs b", "'do"},
          Row{"0", "2", "dog", "Ädogs", "do"},
          Row{"1", "3", "x", "ä\U00031234bc", "b"},
          Row{"19", "23", "dog", "0123456789012345é89 dogs, cats", "dogs"},
          Row{"19", "3", "x", "0123456789012345é89 dogs, cats", "dogs, cats"},
          Row{"1", "4", "dog", "\xFF dog", "do"},
          Row{"5", "9", "x", "abcde", ""},
          Row{"3", "1", "x", "ab .cd", "cd"},
          Row{"1", "-1", "x", "a dog", "dog"},
          Row{"6", "7", "x", "abcde", "throws"},
          Row{"-1", "7", "x", "abcde", "throws"}})
        EXPECT_EQ(word_form_at(from, to, lemma, text), expected) << from << ' ' << text;
    BaseLexicalEntry("a", "b", "c").parse_oanc(nullptr, "");
}

} // namespace
} // namespace zelvor
