#include "utils/OriginatingLexicalEntryRepresentation.h"

#include "tests/testing.h"

namespace zelvor {

using Entry = OriginatingLexicalEntryRepresentation;
using Values = Entry::Values;

TEST(Provenance, AColumnReplacesItsSourcesAndAMissingOneKeepsThem) {
    Entry entry;
    entry.insert_originating_source_lemmas("kept");
    entry.parse_tokens({"amicus", "amic", "N", "N", ",b,,a,"});
    entry.parse_tokens({"amicus", "amic", "N", "N", " x"});
    EXPECT_EQ(Values(entry.originating_word_forms_source_begin(), entry.originating_word_forms_source_end()),
              (Values{" x"}));
    EXPECT_TRUE(entry.contains_originating_source_lemmas("kept"));
    Values same{"kept", "x"}, other{"b"};
    EXPECT_FALSE(entry.intersection_empty_originating_source_lemmas(&same));
    EXPECT_TRUE(entry.intersection_empty_originating_source_lemmas(&other));
    EXPECT_TRUE(entry.intersection_empty_originating_source_lemmas(nullptr) &&
                intersection_empty<std::string>(nullptr, &same));
}

TEST(Provenance, MergeFoldsEqualFormsAndPrintsAllWhereEverySourceAttestsAValue) {
    std::vector<Entry*> entries;
    std::multimap<std::string, Entry*> by_lemma{{"amic", nullptr}};
    Entry stored("amic", "amicus", "N"), same("amic", "amicus", "N"), other_pos("amic", "amicus", "V"), twin = stored;
    stored.insert_originating_lemmas("amicus");
    same.set_lemma_pos("X");
    same.insert_originating_lemmas("amicus");
    same.insert_originating_wordforms("amicus");
    same.insert_originating_wordforms("amice");
    same.insert_originating_pos("N");
    same.insert_originating_source_pos("s");
    EXPECT_TRUE(stored.merge(entries, by_lemma, true));
    by_lemma.emplace("amic", &twin); // comes too late
    EXPECT_FALSE(same.merge(entries, by_lemma, true));
    EXPECT_TRUE(other_pos.merge(entries, by_lemma, false));
    EXPECT_EQ(std::prev(by_lemma.end())->second, &other_pos);
    EXPECT_EQ(stored.get_lemma_pos(), ""); // origins only
    EXPECT_FALSE(stored.contains_originating_source_pos("s"));
    const unsigned int before = Entry::num_sources;
    const char* const expected[] = {"amicus\tamice,amicus\tN", "all\tall\tall", "amicus\tall\tN",
                                    "amicus\tamice,amicus\tN"};
    for (Entry::num_sources = 0; Entry::num_sources < 4; ++Entry::num_sources) {
        std::ostringstream os;
        os << stored;
        EXPECT_EQ(os.str(), std::string("amicus\tamic\tN\t") + expected[Entry::num_sources]);
    }
    Entry::num_sources = before;
}

} // namespace zelvor
