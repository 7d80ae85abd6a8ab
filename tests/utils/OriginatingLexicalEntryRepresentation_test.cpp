#include "utils/OriginatingLexicalEntryRepresentation.h"

#include "tests/testing.h"

namespace zelvor {

using Entry = OriginatingLexicalEntryRepresentation;

TEST(Provenance, AColumnReplacesItsSourcesAndAMissingOneKeepsThem) {
    Entry entry;
    entry.insert_originating_source_lemmas("kept");
    entry.parse_tokens({"amicus", "amic", "N", "N", ",b,,a,"});
    entry.parse_tokens({"amicus", "amic", "N", "N", " x"});
    EXPECT_EQ(Words(entry.originating_word_forms_source_begin(), entry.originating_word_forms_source_end()),
              (Words{" x"}));
    EXPECT_TRUE(entry.contains_originating_source_lemmas("kept"));
    Words same{"kept", "x"}, other{"b"};
    EXPECT_FALSE(entry.intersection_empty_originating_source_lemmas(&same));
    EXPECT_TRUE(entry.intersection_empty_originating_source_lemmas(&other));
    EXPECT_TRUE(entry.intersection_empty_originating_source_lemmas(nullptr));
    bool (*const are_disjoint)(Words*, Words*) = intersection_empty;
    EXPECT_TRUE(are_disjoint(nullptr, &same));
    EXPECT_FALSE(are_disjoint(&same, &same));
    EXPECT_TRUE(intersection_empty<std::string>(nullptr, &same));
}

TEST(Provenance, MergeFoldsEqualFormsAndPrintsAllWhereEverySourceAttestsAValue) {
    std::vector<Entry*> entries;
    Entry stored("amic", "amicus", "N"), same = stored, other_pos("amic", "amicus", "V"), twin = stored;
    std::multimap<std::string, Entry*> by_lemma{{"amic", nullptr}};
    for (const char* const form : {"amicus", "amice"})
        same.insert_originating_wordforms(form);
    same.insert_originating_lemmas("amicus");
    same.insert_originating_pos("N");
    same.insert_originating_source_pos("s");
    EXPECT_TRUE(stored.merge(entries, by_lemma, true));
    by_lemma.emplace("amic", &twin); // comes too late
    EXPECT_FALSE(same.merge(entries, by_lemma, true));
    EXPECT_TRUE(other_pos.merge(entries, by_lemma, false));
    EXPECT_EQ(std::prev(by_lemma.end())->second, &other_pos);
    EXPECT_FALSE(stored.contains_originating_source_pos("s")); // origins only
    const char* const expected[] = {"amicus\tamice,amicus\tN", "all\tall\tall", "amicus\tall\tN"};
    for (Entry::num_sources = 0; Entry::num_sources < 3; ++Entry::num_sources) {
        std::ostringstream os;
        os << stored;
        EXPECT_EQ(os.str(), "amicus\tamic\tN\t"s + expected[Entry::num_sources]);
    }
}

} // namespace zelvor
