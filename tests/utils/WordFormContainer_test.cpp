#include "utils/WordFormContainer.h"

#include "tests/testing.h"

namespace zelvor {

using Candidates = WordFormContainer::Candidates;

TEST(WordFormContainer, MergingKeepsTheBestScorePerLemmaInDescendingOrder) {
    // Lists that are out of order are taken as they stand: the first step that applies decides.
    using Row = std::tuple<Candidates, const char*, double, Candidates>;
    for (const auto& [before, lemma, score, after] :
         {Row({{"b", 0.9}, {"a", 0.3}}, "a", 0.5, {{"b", 0.9}, {"a", 0.5}}),
          Row({{"b", 0.9}}, "c", 0.9, {{"b", 0.9}, {"c", 0.9}}),
          Row({{"b", 0.9}, {"c", 0.4}}, "a", 0.5, {{"b", 0.9}, {"a", 0.5}, {"c", 0.4}}),
          Row({{"b", 0.9}, {"c", 0.4}, {"a", 0.1}}, "a", 0.5, {{"b", 0.9}, {"a", 0.5}, {"c", 0.4}}),
          Row({{"a", 0.5}}, "a", std::nan(""), {{"a", 0.5}}),
          Row({{"b", 0.4}, {"a", 0.1}, {"a", 0.2}}, "a", 0.5, {{"a", 0.5}, {"b", 0.4}, {"a", 0.2}})}) {
        WordFormContainer container;
        for (const auto& candidate : before)
            container.add_predicted_lemmas(candidate.first, candidate.second);
        container.merge_max_predicted_lemmas(lemma, score);
        EXPECT_EQ(Candidates(container.begin_predicted_lemmas(), container.end_predicted_lemmas()), after);
    }
    WordFormContainer container;
    container.add_predicted_lemmas("a", 0.5);
    const std::string long_lemma(40, 'b'); // on the heap, so that a use after its end shows
    container.merge_max_predicted_lemmas(long_lemma, std::nan(""));
    EXPECT_EQ((container.end_predicted_lemmas() - 1)->first, long_lemma);
    container.merge_max_predicted_lemmas((container.end_predicted_lemmas() - 1)->first, 0.75); // of the list itself
    EXPECT_EQ(container.begin_predicted_lemmas()->first, long_lemma);
}

TEST(WordFormContainer, AskingForAFeatureEntersIt) {
    WordFormContainer container("amat");
    container.store_feature_value("x", "1");
    container.store_feature_value("x", "2");
    EXPECT_EQ(WordFormContainer(container).get_feature_value("x") + container.get_feature_value("y"), "1");
    container.store_feature_value("y", "3");
    EXPECT_EQ(container.get_feature_value("y"), "");
}

} // namespace zelvor
