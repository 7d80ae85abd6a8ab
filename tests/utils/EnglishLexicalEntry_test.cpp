#include "utils/LexicalEntry.h"

#include "tests/testing.h"
#include "utils/common_utils/text.h"

namespace zelvor {

/// The entry of a line with one column too many, and one changed.
EnglishLexicalEntry walks(std::size_t column = 16, const std::string& text = "") {
    std::vector<std::string> columns{"walks", "walk",       "VB",       "VBZ",   "w2,w1",      "l",
                                     "p",     "NOMINATIVE", "POSITIVE", "F",     "INDICATIVE", "SINGULAR",
                                     "3",     "PRESENT",    "motion",   "beyond"};
    if (column < columns.size())
        columns[column] = text;
    EnglishLexicalEntry entry;
    entry.parse_tokens(columns);
    return entry;
}

/// Word form, lemma, the two parts of speech, and then the features in the order of the columns.
std::string summary(const EnglishLexicalEntry& e) {
    const Strings values{e.get_word_form(),     e.get_lemma(), e.get_lemma_pos(),
                         e.get_pos(),           e.get_case(),  e.get_comparison_degree(),
                         e.get_gender(),        e.get_mood(),  e.get_number(),
                         e.get_person(),        e.get_tense(), e.get_semtype(),
                         e.get_longest_suffix()};
    return convert_list_to_string(values.begin(), values.end(), "|");
}

TEST(EnglishLexicalEntry, ExportsOneLinePerMoodAndFeaturesByWordClass) {
    EXPECT_EQ(headline(), "#WORD_FORM\tLEMMA\tPOS\tWFPOS\tSOURCE WORD FORM\tSOURCE LEMMA\tSOURCE POS\tCASE\t"
                          "COMPARISON_DEGREE\tGENDER\tMOOD\tNUMERUS\tPERSON\tTENSE\tSEMTYPE");
    using Row = std::tuple<const char*, const char*, Strings>; // lemma pos, mood, what differs
    for (const auto& [lemma_pos, mood, lines] :
         {Row("VB", "b,a", {"\t\tF\tb", "\t\tF\ta"}), Row("VB", ",", {"\t\tF\t"}),
          Row("NN", "b", {"NOMINATIVE\t\tF\t"}), Row("JJ", "b", {"\tPOSITIVE\tF\t"})}) {
        EnglishLexicalEntry entry = walks(10, mood);
        entry.set_lemma_pos(lemma_pos);
        std::string expected;
        for (const std::string& line : lines)
            expected +=
                "walks\twalk\t"s + lemma_pos + "\tVBZ\tw1,w2\tl\tp\t" + line + "\tSINGULAR\t3\tPRESENT\tmotion\n";
        EXPECT_EQ(entry.to_string(), expected);
    }
    EXPECT_EQ(EnglishLexicalEntry("walk", "walks", "").to_string(), "");
    walks().export_entry(nullptr);
}

TEST(EnglishLexicalEntry, MissingColumnsAreEmptiedAndResetKeepsWhatItDoesNotName) {
    EnglishLexicalEntry entry = walks();
    entry.set_suffix1("s");
    entry.reset();
    EXPECT_EQ(summary(entry), "||VB|VBZ|||F|||||motion|s");
    entry.parse_tokens({"went", "go", "VB", "VBD", "a,b", "", "", "C", "D", "G"});
    EXPECT_EQ(summary(entry) + std::to_string(entry.get_num_tokens()), "went|go|VB|VBD|C|D|G||||||s10");
}

TEST(EnglishLexicalEntry, MergeComparesMoreWhenExtended) {
    for (std::size_t column = 0; column < 15; ++column)
        for (const bool extended : {false, true})
            for (const char* const other : {"other", ""}) {
                const bool plain = column == 0 || column == 1 || column == 3;
                const bool ignored = (column >= 4 && column <= 6) || column == 8 || column == 9; // nor if extended
                const bool unknown = column == 14 && !*other; // an empty semantic type contradicts nothing
                EnglishLexicalEntry stored = walks(), incoming = walks(column, other);
                std::vector<BaseLexicalEntry*> entries;
                std::multimap<std::string, BaseLexicalEntry*> by_lemma{{"walk", nullptr}};
                stored.merge(entries, by_lemma, extended);
                const bool added = incoming.merge(entries, by_lemma, extended);
                EXPECT_EQ(added, plain || (extended && !ignored && !unknown)) << column << other << extended;
                EXPECT_EQ(entries.size(), added ? 2U : 1U);
            }
}

TEST(EnglishLexicalEntry, MergeComparesSpelledOutFormsAndCombinesSomeFeatures) {
    struct : LexicalEntry { // its lemma tells what has been combined before it
        std::string get_lemma() const override { return m_lemma + "," + m_number + m_mood; }
    } stored; // "walks", as it stands in the line; the other one is "-s"
    stored.parse_latin(" # # # #walk# # # #walks# # # # # # # # #VBZ# # # # ");
    EnglishLexicalEntry incoming = walks(7, "GENITIVE,DATIVE");
    incoming.insert_originating_lemmas("o1");
    incoming.insert_originating_wordforms("o2");
    incoming.insert_originating_pos("o3");
    std::vector<BaseLexicalEntry*> entries;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    stored.EnglishLexicalEntry::merge(entries, by_lemma, false);
    stored.set_case("NOMINATIVE,DATIVE");
    stored.set_semtype("act");
    EXPECT_FALSE(incoming.merge(entries, by_lemma, false));
    EXPECT_EQ(summary(stored), // gender, person and tense are never filled
              "walks|SINGULAR,walk,SINGULARINDICATIVE|VB|VBZ|DATIVE,GENITIVE,NOMINATIVE|POSITIVE||INDICATIVE|SINGULAR"
              "|||act,motion|");
    std::ostringstream origins;
    origins << static_cast<OriginatingLexicalEntryRepresentation&>(stored);
    EXPECT_EQ(origins.str(), "walks\tSINGULAR,walk\tVBZ\to1\to2\to3");
    EXPECT_TRUE(stored.contains_originating_source_word_forms("w2"));
    EXPECT_TRUE(stored.contains_originating_source_lemmas("l"));
    EXPECT_TRUE(stored.contains_originating_source_pos("p"));
}

} // namespace zelvor
