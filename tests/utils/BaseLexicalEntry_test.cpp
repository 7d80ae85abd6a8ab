#include "utils/BaseLexicalEntry.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zelvor {
namespace {

TEST(BaseLexicalEntry, AbbreviatesAgainstTheLemma) {
    const struct {
        const char *lemma, *word_form, *by_constructor, *by_setter, *spelled_out;
    } rows[] = {
        {"amic", "amicus", "-us", "-us", "amicus"},
        {"amo", "amo", "-", "-", "amo"},
        {"amo", "amat", "amat", "amat", "amat"},
        {"amicus", "ami", "ami", "ami", "ami"},
        {"", "abc", "-abc", "abc", "abc"}, // only the constructor abbreviates against an empty lemma
        {"", "", "-", "-", ""},
        {"am", "-x", "-x", "-x", "amx"}, // a leading "-" always reads as abbreviated
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.word_form);
        const BaseLexicalEntry constructed(row.lemma, row.word_form, "");
        EXPECT_EQ(constructed.get_abbreviated_word_form(), row.by_constructor);
        EXPECT_EQ(constructed.get_word_form(), row.spelled_out);
        BaseLexicalEntry set;
        set.set_lemma(row.lemma);
        set.set_word_form(row.word_form);
        EXPECT_EQ(set.get_abbreviated_word_form(), row.by_setter);
        EXPECT_EQ(set.get_word_form(), row.spelled_out);
    }
}

TEST(BaseLexicalEntry, ANewLemmaTakesOverTheStoredForm) {
    BaseLexicalEntry entry("amic", "amicus", "N");
    entry.set_lemma("dom");
    EXPECT_EQ(entry.get_word_form(), "domus");
    entry.set_word_form("aqua");
    entry.set_lemma("aqu");
    EXPECT_EQ(entry.get_abbreviated_word_form(), "-a");
}

TEST(BaseLexicalEntry, ParsesLines) {
    const struct {
        const char *line, *printed, *lemma_pos;
    } rows[] = {
        {"amicus#amicus#N#V", "amicus\tamicus\tV\t", "N"},
        {" amicus \t amic \t N \t V ", "amicus\tamic\t V \t", " N "},
        {"amicus##\tamic", "amicus\tamic\t\t", ""},
        {"#amicus#amic#N", "\tamicus\tN\t", "amic"}, // a leading separator is an empty word form
        {"amicus", "\t\t\t", ""},
        {"", "\t\t\t", ""},
        {"a#b#c#d#e", "a\tb\td\t", "c"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        BaseLexicalEntry entry("old", "older", "OLD");
        entry.set_lemma_pos("OLD");
        entry.parse(row.line);
        std::ostringstream os;
        os << entry;
        EXPECT_EQ(os.str(), row.printed);
        EXPECT_EQ(entry.get_lemma_pos(), row.lemma_pos);
    }
}

TEST(BaseLexicalEntry, OrdersByFormThenLemmaThenPos) {
    const BaseLexicalEntry ordered[] = {{"b", "a", "A"}, {"b", "a", "N"}, {"c", "a", "A"}, {"a", "b", "A"}};
    for (const auto& left : ordered)
        for (const auto& right : ordered)
            EXPECT_EQ(left < right, &left < &right);
}

} // namespace
} // namespace zelvor
