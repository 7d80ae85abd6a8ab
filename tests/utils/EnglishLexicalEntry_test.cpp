#include "utils/EnglishLexicalEntry.h"

#include <gtest/gtest.h>

#include <memory>

namespace zelvor {
namespace {

EnglishLexicalEntry walks() {
    EnglishLexicalEntry entry("walk", "walks", "VBZ");
    entry.set_lemma_pos("VB");
    entry.set_case("NOMINATIVE");
    entry.set_comparison_degree("POSITIVE");
    entry.set_gender("F");
    entry.set_mood("INDICATIVE");
    entry.set_number("SINGULAR");
    entry.set_person("3");
    entry.set_tense("PRESENT");
    entry.set_semtype("motion");
    entry.insert_originating_source_wordforms("w2");
    entry.insert_originating_source_wordforms("w1");
    entry.insert_originating_source_lemmas("l");
    entry.insert_originating_source_pos("p");
    return entry;
}

TEST(EnglishLexicalEntry, HeadlineNamesTheFifteenColumns) {
    EXPECT_EQ(headline(), "#WORD_FORM\tLEMMA\tPOS\tWFPOS\tSOURCE WORD FORM\tSOURCE LEMMA\tSOURCE POS\tCASE\t"
                          "COMPARISON_DEGREE\tGENDER\tMOOD\tNUMERUS\tPERSON\tTENSE\tSEMTYPE");
}

TEST(EnglishLexicalEntry, ExportsOneLinePerMoodAndFeaturesByWordClass) {
    const std::string begin = "walks\twalk\t", sources = "\tVBZ\tw1,w2\tl\tp\t",
                      end = "\tSINGULAR\t3\tPRESENT\tmotion\n";
    const struct {
        const char *lemma_pos, *mood;
        std::string expected;
    } rows[] = {
        {"VB", "b,a", begin + "VB" + sources + "\t\tF\tb" + end + begin + "VB" + sources + "\t\tF\ta" + end},
        {"VB", "", begin + "VB" + sources + "\t\tF\t" + end},
        {"VB", ",", begin + "VB" + sources + "\t\tF\t" + end},
        {"NN", "b", begin + "NN" + sources + "NOMINATIVE\t\tF\t" + end},
        {"JJ", "b", begin + "JJ" + sources + "\tPOSITIVE\tF\t" + end},
        {"", "b", begin + sources + "\t\tF\t" + end},
    };
    for (const auto& row : rows) {
        EnglishLexicalEntry entry = walks();
        entry.set_lemma_pos(row.lemma_pos);
        entry.set_mood(row.mood);
        EXPECT_EQ(entry.to_string(), row.expected);
    }
    EXPECT_EQ(EnglishLexicalEntry("walk", "walks", "").to_string(), "");
    EXPECT_EQ(EnglishLexicalEntry().to_string(), "");
    walks().export_entry(nullptr);
}

TEST(EnglishLexicalEntry, ReadsColumnsAndEmptiesTheMissingOnes) {
    EnglishLexicalEntry entry = walks();
    entry.set_suffix1("s");
    entry.parse_tokens({"went", "go", "VB", "VBD", "a,b", "", "", "C", "D", "G"});
    EXPECT_EQ(entry.get_num_tokens(), 10);
    EXPECT_EQ(entry.get_case() + entry.get_comparison_degree() + entry.get_gender(), "CDG");
    EXPECT_EQ(entry.get_mood() + entry.get_number() + entry.get_person() + entry.get_tense() + entry.get_semtype(), "");
    EXPECT_EQ(entry.get_word_form() + entry.get_lemma_pos() + entry.get_pos() + entry.get_suffix1(), "wentVBVBDs");
    entry.parse_tokens({"a", "b", "", "", "", "", "", "", "", "", "M,N", "NU", "P", "T", "S", "more"});
    EXPECT_EQ(entry.get_mood() + entry.get_number() + entry.get_person() + entry.get_tense() + entry.get_semtype(),
              "M,NNUPTS");
}

TEST(EnglishLexicalEntry, ResetKeepsWhatItDoesNotName) {
    EnglishLexicalEntry entry = walks();
    entry.reset();
    EXPECT_EQ(entry.get_word_form() + entry.get_lemma() + entry.get_case() + entry.get_comparison_degree() +
                  entry.get_number() + entry.get_person() + entry.get_mood() + entry.get_tense(),
              "");
    EXPECT_EQ(entry.get_gender() + entry.get_semtype() + entry.get_pos() + entry.get_lemma_pos(), "FmotionVBZVB");
    EXPECT_EQ(entry.size_originating_source_word_forms(), 2U);
}

TEST(EnglishLexicalEntry, CombinesCommaLists) {
    const char* const rows[][3] = {
        {"", "x", "x"}, {"x", "", "x"}, {"b,a", "a", "a,b"}, {"b,a", "b,a", "b,a"}, {"NOM", "ACC,GEN", "ACC,GEN,NOM"},
        {"", "", ""}};
    for (const auto& [left, right, expected] : rows)
        EXPECT_EQ(EnglishLexicalEntry().combine(left, right), expected) << left << ' ' << right;
}

TEST(EnglishLexicalEntry, MergeComparesMoreWhenExtended) {
    const struct {
        void (*change)(EnglishLexicalEntry&);
        bool added_plain, added_extended;
    } rows[] = {
        {[](auto&) {}, false, false},
        {[](auto& e) { e.set_tense("PAST"); }, false, true},
        {[](auto& e) { e.set_number(""); }, false, true},
        {[](auto& e) { e.set_mood("X"); }, false, true},
        {[](auto& e) { e.set_case("X"); }, false, true},
        {[](auto& e) { e.set_person("X"); }, false, true},
        {[](auto& e) { e.set_lemma_pos("X"); }, false, true},
        {[](auto& e) { e.set_semtype("X"); }, false, true},
        {[](auto& e) { e.set_semtype(""); }, false, false},
        {[](auto& e) { e.set_gender("X"); }, false, false},
        {[](auto& e) { e.set_comparison_degree("X"); }, false, false},
        {[](auto& e) { e.set_pos("X"); }, true, true},
        {[](auto& e) { e.set_word_form("walked"); }, true, true},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        for (const bool extended : {false, true}) {
            EnglishLexicalEntry stored = walks(), incoming = walks();
            BaseLexicalEntry other_kind;
            rows[i].change(incoming);
            std::vector<BaseLexicalEntry*> entries;
            std::multimap<std::string, BaseLexicalEntry*> by_lemma{{"walk", nullptr}, {"walk", &other_kind}};
            stored.merge(entries, by_lemma, extended);
            const bool added = incoming.merge(entries, by_lemma, extended);
            EXPECT_EQ(added, extended ? rows[i].added_extended : rows[i].added_plain) << "row " << i;
            EXPECT_EQ(entries.size(), added ? 2U : 1U);
        }
    }
}

TEST(EnglishLexicalEntry, MergeComparesSpelledOutFormsAndCombinesSomeFeatures) {
    EnglishLexicalEntry stored = walks(), incoming = walks();
    stored.parse_tokens({"walks", "walk", "VB", "VBZ"});
    incoming.insert_originating_lemmas("o1");
    incoming.insert_originating_wordforms("o2");
    incoming.insert_originating_pos("o3");
    incoming.set_case("GENITIVE");
    incoming.set_semtype("act");
    std::vector<BaseLexicalEntry*> entries;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    stored.merge(entries, by_lemma, false);
    stored.set_case("NOMINATIVE,DATIVE");
    EXPECT_FALSE(incoming.merge(entries, by_lemma, false));
    EXPECT_EQ(stored.get_case(), "DATIVE,GENITIVE,NOMINATIVE");
    EXPECT_EQ(stored.get_comparison_degree() + stored.get_number() + stored.get_mood() + stored.get_semtype(),
              "POSITIVESINGULARINDICATIVEact");
    EXPECT_EQ(stored.get_tense() + stored.get_person() + stored.get_gender(), ""); // never filled
    EXPECT_TRUE(stored.contains_originating_lemmas("o1") && stored.contains_originating_word_forms("o2") &&
                stored.contains_originating_pos("o3") && stored.contains_originating_source_word_forms("w2") &&
                stored.contains_originating_source_lemmas("l") && stored.contains_originating_source_pos("p"));
}

TEST(EnglishLexicalEntry, LongestSuffix) {
    EnglishLexicalEntry entry;
    EXPECT_EQ(entry.get_longest_suffix(), "");
    entry.set_suffix1("g");
    EXPECT_EQ(entry.get_longest_suffix(), "g");
    entry.set_suffix2("ing");
    EXPECT_EQ(entry.get_longest_suffix(), "ing");
    entry.set_suffix3("king");
    EXPECT_EQ(entry.get_longest_suffix(), "king");
}

} // namespace
} // namespace zelvor
