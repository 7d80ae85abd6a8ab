#include "utils/lexicon_utils/verbs.h"

#include "utils/EnglishLexicalEntry.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zelvor {

TEST(Verbs, AuxiliariesAndModalsGetTheirOwnTags) {
    using Row = std::tuple<const char*, const char*, const char*>; // word form, lemma, both tags
    for (const auto& [word_form, lemma, tags] :
         {Row("being", "be", "BE BEG"), Row("am", "be", "BE BEM"), Row("is", "be", "BEZ BE"),
          Row("been", "be", "BEN BE"), Row("are", "be", "BER BE"), Row("weren't", "weren't", "BED* BE"),
          Row("ain't", "ain't", "BEM* BE"), Row("do", "do", "DO DOD"), Row("doesn't", "x", "DOZ* DO"),
          Row("don't", "do", "DOZ* DO"), Row("must", "must", "MD MD"), Row("weren't", "be", "OLD VB"),
          Row("do", "make", "OLD VB"), Row("", "", "OLD VB")}) {
        EnglishLexicalEntry entry(lemma, word_form, "OLD"), other = entry;
        entry.set_lemma_pos("VB");
        concretize_verb_pos(entry);
        EXPECT_EQ(entry.get_pos() + " " + entry.get_lemma_pos(), tags) << word_form;
        other.set_lemma_pos("VBP");
        concretize_verb_pos(other);
        EXPECT_EQ(other.get_pos() + other.get_lemma_pos(), "OLDVBP");
    }
}

TEST(Verbs, Lines) {
    EXPECT_EQ(std_verb_to_string("w", "l", "p", "rl", "rw", "rp", "sl", "sw", "sp"),
              "w\tl\tp\trw\trl\trp\tsw\tsl\tsp\t\t\tINDICATIVE\t\t1,2\tPRESENT");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("3rd", false), "coniugatio-intrans-3");
    EXPECT_EQ(convert_to_wiktionary_conjugation_type("5th", true), "");
    EXPECT_EQ(create_genitive_form("James") + create_genitive_form("John"), "James'John's");
}

} // namespace zelvor
