#include "utils/OriginatingLexicalEntryRepresentation.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zelvor {
namespace {

using Entry = OriginatingLexicalEntryRepresentation;
using Values = Entry::Values;

Values word_form_sources(const Entry& entry) {
    return {entry.originating_word_forms_source_begin(), entry.originating_word_forms_source_end()};
}

TEST(Provenance, ReadsSourceColumnsWordFormFirst) {
    Entry entry;
    entry.insert_originating_source_lemmas("kept");
    entry.parse_tokens({"amicus", "amic", "N", "N", ",b,,a,"});
    EXPECT_EQ(word_form_sources(entry), (Values{"a", "b"}));
    EXPECT_TRUE(entry.contains_originating_source_lemmas("kept")); // its token is missing
    entry.parse_tokens({"amicus", "amic", "N", "N", " x", "lemma", "pos", "ignored"});
    EXPECT_EQ(word_form_sources(entry), (Values{" x"}));
    EXPECT_TRUE(entry.contains_originating_source_lemmas("lemma"));
    EXPECT_FALSE(entry.contains_originating_source_lemmas("kept"));
    EXPECT_TRUE(entry.contains_originating_source_pos("pos"));
    EXPECT_EQ(entry.size_originating_lemmas() + entry.size_originating_word_forms(), 0U);
}

TEST(Provenance, MergeFoldsEqualFormsAndUnitesOriginsOnly) {
    std::vector<Entry*> entries;
    std::multimap<std::string, Entry*> by_lemma{{"amic", nullptr}};
    Entry stored("amic", "amicus", "N"), same("amic", "amicus", "N"), other_pos("amic", "amicus", "V");
    same.set_lemma_pos("X");
    same.insert_originating_lemmas("amicus");
    same.insert_originating_wordforms("amici");
    same.insert_originating_pos("NN");
    same.insert_originating_source_pos("lexicon");
    EXPECT_TRUE(stored.merge(entries, by_lemma, true));
    EXPECT_FALSE(same.merge(entries, by_lemma, true));
    EXPECT_TRUE(other_pos.merge(entries, by_lemma, false));
    EXPECT_EQ(entries, (std::vector<Entry*>{&stored, &other_pos}));
    EXPECT_EQ(by_lemma.count("amic"), 3U);
    EXPECT_TRUE(stored.contains_originating_lemmas("amicus") && stored.contains_originating_word_forms("amici") &&
                stored.contains_originating_pos("NN"));
    EXPECT_EQ(stored.size_originating_source_pos(), 0U);
    EXPECT_EQ(stored.get_lemma_pos(), "");
}

TEST(Provenance, PrintsAllWhereEverySourceAttestsAValue) {
    Entry entry("amicus", "amicus", "N");
    entry.insert_originating_lemmas("amicus");
    entry.insert_originating_wordforms("amicus");
    entry.insert_originating_wordforms("amice");
    entry.insert_originating_pos("N");
    const unsigned int before = Entry::num_sources;
    using Row = std::pair<unsigned int, const char*>;
    for (const auto& [sources, sets] : {Row(0, "amicus\tamice,amicus\tN"), Row(1, "all\tall\tall"),
                                        Row(2, "amicus\tall\tN"), Row(3, "amicus\tamice,amicus\tN")}) {
        Entry::num_sources = sources;
        std::ostringstream os;
        os << entry;
        EXPECT_EQ(os.str(), std::string("amicus\tamicus\tN\t") + sets);
    }
    Entry::num_sources = before;
}

TEST(Provenance, IntersectionsWithNothingAreEmpty) {
    Entry entry;
    Values values{"a"}, other{"b"};
    EXPECT_TRUE(entry.intersection_empty_originating_lemmas(&values));
    entry.insert_originating_lemmas("a");
    EXPECT_TRUE(entry.intersection_empty_originating_lemmas(nullptr));
    EXPECT_TRUE(entry.intersection_empty_originating_lemmas(&other));
    EXPECT_FALSE(entry.intersection_empty_originating_lemmas(&values));
    entry.insert_originating_source_wordforms("a");
    EXPECT_FALSE(entry.intersection_empty_originating_source_word_forms(&values));
    EXPECT_TRUE(entry.intersection_empty_originating_source_pos(&values));
}

} // namespace
} // namespace zelvor
