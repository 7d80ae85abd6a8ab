#include "utils/lexicon_utils/candidates.h"

#include "tests/testing.h"
#include "utils/BaseLexicalEntry.h"
#include "utils/LMScoreFunctor.h"

namespace zelvor {

using Candidates = WordFormContainer::Candidates;

// The index of a word is its place in the list; a sentence scores what is set for its last word, or 0.
struct ListModel : Vocab, LM {
    unsigned int get_index(const std::string& word, unsigned int unknown_value) const override {
        const auto place = static_cast<unsigned int>(std::ranges::find(words, word) - words.begin());
        return place == words.size() ? unknown_value : place;
    }
    float sentence_log_prob(const unsigned int* indices, TextStats& /*stats*/) override {
        sentences.emplace_back();
        std::string last;
        for (; *indices != VOCAB_NONE; ++indices)
            sentences.back() += (last = words[*indices]) + " ";
        return scores[last];
    }
    Strings words{"<unk>", "a", "x", "y"};
    Strings sentences;
    std::map<std::string, float> scores;
};

struct CandidateChoice : testing::Test {
    std::string lemma(const Strings& previous, Words lexicon, const Candidates& predicted) {
        return select_lemma(previous, lexicon, predicted.begin(), predicted.end(), &model, &model, "la", &log.category);
    }
    std::string word_form(const Strings& previous, const Candidates& predicted, bool rank = false) {
        return select_ocr_wf(previous, {{"x", nullptr}, {"y", nullptr}}, predicted.begin(), predicted.end(), &model,
                             &model, "", rank, &log.category);
    }
    ListModel model;
    CapturedLog log;
};

TEST(LMScoreFunctor, RanksByPowersOfE) {
    std::map<std::string, double> external{{"a", 0.8}, {"nan", std::nan("")}};
    const LMScoreFunctor ranked(&external, nullptr, 1, 2, 0.5, true, true, false, nullptr);
    EXPECT_NEAR(ranked.get_score("a"), 0.556385232, 1e-9); // e^0.8 / 4
    EXPECT_EQ(ranked.get_score("none"), 0.0);              // not e^0 / 4
    EXPECT_FALSE(ranked("a", "nan") || ranked("nan", "a"));
}

TEST(CombineCandidates, KeepsWhatTheLexiconConfirms) {
    using Row = std::tuple<Candidates, Words, const char*, Strings>;
    for (auto [predicted, lexicon, language, expected] :
         {Row({{"sum", 1}, {"esse", 1}}, {"esse", "sum"}, "la", {"sum", "esse"}),
          Row({{"esse", 1}}, {"esse", "sum"}, "en", {"esse"}), Row({{"x", 1}}, {"esse", "sum"}, "la", {"sum"}),
          Row({{"Rex", 1}, {"rex", 2}, {"ÓS", 1}}, {"rex", "ós"}, "la", {"rex", "rex", "ós"}),
          Row({{"x", 1}, {"", 1}}, {"b", "a"}, "", {"a", "b"}),
          Row({{"x", 1}, {"a", 2}, {"x", 3}}, {}, "la", {"x", "a", "x"})}) {
        std::map<std::string, double> scores;
        Strings intersection;
        combine_lemmas(predicted.begin(), predicted.end(), lexicon, language, scores, intersection);
        EXPECT_EQ(intersection, expected);
        EXPECT_EQ(scores, (std::map<std::string, double>(predicted.begin(), predicted.end()))); // as spelled, the first
    }
    const Candidates predicted{{"dvx", 8}, {"Rex", 2}, {"dux", 0.5}, {"dux", 0.25}};
    std::map<std::string, double> scores;
    Strings chosen;
    std::string language;
    double sum = 1;
    combine_wfs(predicted.begin(), predicted.end(), {{"rex", nullptr}, {"rex", nullptr}, {"dux", nullptr}}, language,
                scores, chosen, sum);
    EXPECT_EQ(chosen, (Strings{"rex", "dux", "dux"}));
    EXPECT_EQ(sum, 3.75);
}

TEST_F(CandidateChoice, LemmaByMeanProbabilityAndRawScore) {
    model.scores = {{"x", -6}, {"y", -3}}; // 3 words: 0.01 and 0.1, of 0.11
    EXPECT_EQ(lemma({"a", "unknown"}, {"x", "y"}, {{"x", 0.6}, {"y", 0.5}}), "y");
    EXPECT_EQ(model.sentences, (Strings{"a <unk> x ", "a <unk> y "}));
    log.expect({"previous lemmas: a,unknown", "lexicon lemmas: x,y", "predicted lemmas: x:0.6,y:0.5",
                "intersection: x,y", "lm lemma: x", "score: -6"});
    log.expect({"lemma: x", "score lm: 0.0909091", "score lemmatizer: 0.6", "total score: 0.345455"});
    EXPECT_EQ(lemma({}, {}, {}), "");
}

TEST_F(CandidateChoice, WordFormByLogarithmicPool) {
    model.scores = {{"x", -2}, {"y", 2 * std::log10(0.9F)}};
    // 0.8^0.75 0.1^0.25 = 0.475683 against 0.2^0.75 0.9^0.25 = 0.291295
    EXPECT_EQ(word_form({"a"}, {{"y", 0.2}, {"c", 5}, {"x", 0.8}}), "x");
    log.expect(
        {"previous wfss: a", "predicted ocr wfs: y:0.2,c:5,x:0.8", "intersection: y,x", "lm lemma: x", "score: -2"});
    log.expect({"word: x", "score lm: 0.1", "score ocr corrector: 0.8", "total score: 0.475683"});
    model.scores = {};
    EXPECT_EQ(word_form({}, {{"y", 1}, {"x", 2}}, true), "x");
    EXPECT_EQ(word_form({}, {{"y", -2}, {"x", -1}}, true), "y"); // a negative sum: all scores are NaN
}

TEST_F(CandidateChoice, UnknownCandidatesAreReportedWhereTheyWereLookedUpAndEqualOnesKeepTheirOrder) {
    EXPECT_EQ(output_of([&] {
                  EXPECT_EQ(lemma({}, {}, {{"zz%n", 2}, {"Zz", 1}, {"X", 0}}), "zz%n");
              }),
              "unknown lemma: Zz\n");
    EXPECT_EQ(output_of([&] { word_form({}, {{"WW", 1}}); }), "unknown wf: WW\n");
    Candidates predicted;
    for (int i = 40; i > 0; --i)
        predicted.emplace_back("w" + std::to_string(i), 0.5);
    Words none;
    EXPECT_EQ(select_lemma({"a"}, none, predicted.begin(), predicted.end(), nullptr, &model, "", nullptr), "w40");
    EXPECT_EQ(model.sentences.back(), ""); // without a vocabulary
}

TEST(LemmasOfAWordForm, SuffixBehindTheCommonPartAndUniquePartOfSpeech) {
    using Row = std::tuple<const char*, const char*, const char*>;
    for (const auto& [lemma, word_form, expected] :
         {Row("amo", "amabat", "abat"), Row("am", "amat", "t"), Row("am", "ama", ""), Row("amo", "rex", ""),
          Row("dē", "dēūs", "s"), Row("dé", "dē", "ē"), Row("a\xC4", "a\xC4", "")})
        EXPECT_EQ(get_suffix(lemma, word_form).raw(), expected) << lemma << ' ' << word_form;
    BaseLexicalEntry noun("amor", "amor", "N"), verb("amo", "amor", "V"), again("amo", "amat", "V"),
        other("amor", "x", "X");
    std::vector<BaseLexicalEntry*> entries{nullptr, &verb, &again, &noun, &other};
    EXPECT_EQ(get_pos(entries, "amo"), "V");
    EXPECT_EQ(get_pos(entries, "amor") + get_pos(entries, "rex"), "");
}

} // namespace zelvor
