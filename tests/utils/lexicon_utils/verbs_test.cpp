#include "utils/lexicon_utils/verbs.h"

#include "utils/EnglishLexicalEntry.h"

#include <gtest/gtest.h>

namespace zelvor {
namespace {

TEST(Verbs, AuxiliariesAndModalsGetTheirOwnTags) {
    const char* const rows[][4] = {{"being", "be", "BE", "BEG"},
                                   {"be", "be", "BE", "BE"},
                                   {"am", "be", "BE", "BEM"},
                                   {"is", "be", "BEZ", "BE"},
                                   {"was", "be", "BEDZ", "BE"},
                                   {"been", "be", "BEN", "BE"},
                                   {"were", "be", "BED", "BE"},
                                   {"are", "be", "BER", "BE"},
                                   {"weren't", "weren't", "BED*", "BE"},
                                   {"wasn't", "wasn't", "BEDZ*", "BE"},
                                   {"ain't", "ain't", "BEM*", "BE"},
                                   {"do", "do", "DO", "DOD"},
                                   {"does", "do", "DOZ", "DO"},
                                   {"did", "do", "DOD", "DO"},
                                   {"doesn't", "x", "DOZ*", "DO"},
                                   {"don't", "do", "DOZ*", "DO"},
                                   {"wilt", "x", "MD", "MD"},
                                   {"must", "must", "MD", "MD"},
                                   {"weren't", "be", "OLD", "VB"},
                                   {"Be", "be", "OLD", "VB"},
                                   {"do", "make", "OLD", "VB"},
                                   {"walk", "walk", "OLD", "VB"},
                                   {"", "", "OLD", "VB"}};
    for (const auto& [word_form, lemma, pos, lemma_pos] : rows) {
        EnglishLexicalEntry entry(lemma, word_form, "OLD");
        entry.set_lemma_pos("VB");
        concretize_verb_pos(entry);
        EXPECT_EQ(entry.get_pos() + " " + entry.get_lemma_pos(), std::string(pos) + " " + lemma_pos) << word_form;
    }
    EnglishLexicalEntry other("be", "are", "OLD");
    other.set_lemma_pos("VBP");
    concretize_verb_pos(other);
    EXPECT_EQ(other.get_pos() + other.get_lemma_pos(), "OLDVBP");
}

TEST(Verbs, Lines) {
    EXPECT_EQ(std_verb_to_string("w", "l", "p", "rl", "rw", "rp", "sl", "sw", "sp"),
              "w\tl\tp\trw\trl\trp\tsw\tsl\tsp\t\t\tINDICATIVE\t\t1,2\tPRESENT");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("1st", true), "coniugatio-1");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("3rd", false), "coniugatio-intrans-3");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("5th", true), "");
    EXPECT_EQ(create_genitive_form("James") + create_genitive_form("John"), "James'John's");
}

} // namespace
} // namespace zelvor
