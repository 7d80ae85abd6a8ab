#include "utils/lexicon_utils/verbs.h"

#include "tests/testing.h"

#include "utils/EnglishLexicalEntry.h"

namespace zelvor {

TEST(Verbs, AuxiliariesAndModalsGetTheirOwnTags) {
    std::istringstream rows( // word form, lemma, its tag, both tags: a second form of the tag, a negation, what stays
        "being be VB BE BEG  weren't weren't VB BED* BE  are be VB BER BE  do do VB DO DOD  does do VB DOZ DO  did do "
        "VB DOD DO "
        "doesn't x VB DOZ* DO  don't do VB DOZ* DO  must must VB MD MD  weren't be VB OLD VB  do make VB OLD VB  be be "
        "VBP OLD VBP");
    for (std::string word_form, lemma, tag, pos, lemma_pos; rows >> word_form >> lemma >> tag >> pos >> lemma_pos;) {
        EnglishLexicalEntry entry(lemma, word_form, "OLD");
        entry.set_lemma_pos(tag);
        concretize_verb_pos(entry);
        EXPECT_EQ(entry.get_pos() + " " + entry.get_lemma_pos(), pos + " " + lemma_pos) << word_form;
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
