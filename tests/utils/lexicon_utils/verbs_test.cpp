#include "utils/lexicon_utils/verbs.h"

#include "tests/testing.h"

#include "utils/EnglishLexicalEntry.h"

namespace zelvor {

TEST(Verbs, AuxiliariesAndModalsGetTheirOwnTags) {
    std::istringstream rows( // word form, lemma, both tags
        "being be BE BEG  be be BE BE  am be BE BEM  is be BEZ BE  was be BEDZ BE  been be BEN BE  were be BED BE "
        "are be BER BE  weren't weren't BED* BE  wasn't wasn't BEDZ* BE  ain't ain't BEM* BE  do do DO DOD "
        "does do DOZ DO  did do DOD DO  doesn't x DOZ* DO  don't do DOZ* DO  must must MD MD  weren't be OLD VB "
        "do make OLD VB");
    for (std::string word_form, lemma, pos, lemma_pos; rows >> word_form >> lemma >> pos >> lemma_pos;) {
        EnglishLexicalEntry entry(lemma, word_form, "OLD"), other = entry;
        entry.set_lemma_pos("VB");
        concretize_verb_pos(entry);
        EXPECT_EQ(entry.get_pos() + " " + entry.get_lemma_pos(), pos + " " + lemma_pos) << word_form;
        other.set_lemma_pos("VBP");
        concretize_verb_pos(other);
        EXPECT_EQ(other.get_pos() + other.get_lemma_pos(), "OLDVBP");
    }
}

TEST(Verbs, Lines) {
    EXPECT_EQ(std_verb_to_string("w", "l", "p", "rl", "rw", "rp", "sl", "sw", "sp"),
              "w\tl\tp\trw\trl\trp\tsw\tsl\tsp\t\t\tINDICATIVE\t\t1,2\tPRESENT");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("3rd", false), "coniugatio-intrans-3");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("1st", true), "coniugatio-1");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("5th", true), "");
    EXPECT_EQ(create_genitive_form("James") + create_genitive_form("John"), "James'John's");
}

} // namespace zelvor
