#include "utils/lexicon_utils/candidates.h"

#include "utils/BaseLexicalEntry.h"
#include "utils/LMScoreFunctor.h"

#include <gtest/gtest.h>

#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>

#include <cmath>
#include <sstream>

namespace zelvor {
namespace {

using Candidates = WordFormContainer::Candidates;
using Strings = std::vector<std::string>;

// Words have their place in the list as index; sentences score what is set for their last word, 0 otherwise.
struct ListModel : Vocab, LM {
    unsigned int get_index(const std::string& word, unsigned int unknown_value) const override {
        const auto found = std::find(words.begin(), words.end(), word);
        return found == words.end() ? unknown_value : static_cast<unsigned int>(found - words.begin());
    }
    float sentence_log_prob(const unsigned int* indices, TextStats& /*stats*/) override {
        std::string sentence;
        for (; *indices != VOCAB_NONE; ++indices)
            sentence += words[last = *indices] + " ";
        sentences.push_back(sentence);
        return scores.contains(words[last]) ? scores[words[last]] : 0.0F;
    }

    Strings words{"<unk>", "a", "b", "x", "y", "sum"};
    std::map<std::string, float> scores;
    Strings sentences;
    unsigned int last = 0;
};

class CandidateChoice : public testing::Test {
protected:
    void SetUp() override {
        category.setAdditivity(false);
        category.addAppender(new log4cpp::OstreamAppender("log", &log));
        category.setPriority(log4cpp::Priority::DEBUG);
    }
    void TearDown() override { category.removeAllAppenders(); }

    std::string lemma(const Strings& previous, std::set<std::string> lexicon, const Candidates& predicted,
                      const std::string& language = "") {
        return select_lemma(previous, lexicon, predicted.begin(), predicted.end(), &model, &model, language, &category);
    }
    std::string word_form(const Strings& lexicon, const Candidates& predicted, bool rank = false) {
        std::multimap<std::string, BaseLexicalEntry*> entries;
        for (const std::string& word : lexicon)
            entries.emplace(word, nullptr);
        return select_ocr_wf({}, entries, predicted.begin(), predicted.end(), &model, &model, "", rank, &category);
    }
    void expect_logged(const Strings& messages) const {
        for (const std::string& message : messages)
            EXPECT_NE(log.str().find(" : " + message + "\n"), std::string::npos) << message << " in " << log.str();
    }

    ListModel model;
    std::ostringstream log;
    log4cpp::Category& category = log4cpp::Category::getInstance("CANDIDATES_TEST");
};

TEST(LMScoreFunctor, PoolsLinearlyOrLogarithmically) {
    std::map<std::string, double> external{{"a", 0.8}, {"b", 0.1}, {"c", 0.5}};
    std::map<std::string, double> lm{{"a", 0.2}, {"b", 0.3}};
    const LMScoreFunctor linear(&external, &lm, 0.4, 1.0, 0.5, false, false, false, nullptr);
    EXPECT_NEAR(linear.get_score("a"), 0.65, 1e-12);
    EXPECT_NEAR(linear.get_score("c"), 0.25, 1e-12);
    EXPECT_EQ(linear.get_score("none"), 0.0);
    EXPECT_TRUE(linear("b", "a"));
    EXPECT_FALSE(linear("a", "a"));
    const LMScoreFunctor logarithmic(&external, &lm, 0.4, 1.6, 0.25, false, true, true, nullptr);
    EXPECT_NEAR(logarithmic.get_score("a"), 0.5, 1e-12); // 0.5^0.75 0.5^0.25
    EXPECT_EQ(logarithmic.get_score("c"), 0.0);
    const LMScoreFunctor ranked(&external, nullptr, 1, 2, 0.5, true, true, false, nullptr);
    EXPECT_NEAR(ranked.get_score("a"), 0.556385232, 1e-9); // e^0.8 / 4
    EXPECT_EQ(ranked.get_score("none"), 0.0);              // not e^0 / 4
}

TEST(CombineLemmas, KeepsWhatTheLexiconConfirms) {
    const struct {
        Candidates predicted;
        std::set<std::string> lexicon;
        const char* language;
        Strings expected;
    } rows[] = {
        {{{"esse", 1}}, {"esse", "sum"}, "la", {"esse", "sum"}},
        {{{"sum", 1}, {"esse", 1}}, {"esse", "sum"}, "la", {"sum", "esse"}},
        {{{"esse", 1}}, {"esse", "sum"}, "en", {"esse"}},
        {{{"x", 1}}, {"esse", "sum"}, "la", {"sum"}},
        {{{"Rex", 1}, {"rex", 2}, {"ÓS", 1}}, {"rex", "ós"}, "la", {"rex", "rex", "ós"}},
        {{{"Rex", 1}, {"x", 1}}, {"Rex", "rex"}, "", {"Rex"}},
        {{{"x", 1}, {"", 1}}, {"b", "a"}, "", {"a", "b"}},
        {{{"x", 1}, {"a", 2}, {"x", 3}}, {}, "la", {"x", "a", "x"}},
        {{}, {}, "la", {}},
    };
    for (auto [predicted, lexicon, language, expected] : rows) {
        std::map<std::string, double> scores;
        Strings intersection;
        combine_lemmas(predicted.begin(), predicted.end(), lexicon, language, scores, intersection);
        EXPECT_EQ(intersection, expected);
        // the first score counts, under the candidate's own spelling
        EXPECT_EQ(scores, (std::map<std::string, double>(predicted.begin(), predicted.end())));
    }
}

TEST(CombineWordForms, SumsTheConfirmedScores) {
    const std::multimap<std::string, BaseLexicalEntry*> lexicon{{"rex", nullptr}, {"rex", nullptr}, {"dux", nullptr}};
    const Candidates predicted{{"dvx", 8}, {"Rex", 2}, {"dux", 0.5}, {"dux", 0.25}};
    std::map<std::string, double> scores;
    Strings intersection;
    std::string language = "la";
    double sum = 1;
    combine_wfs(predicted.begin(), predicted.end(), lexicon, language, scores, intersection, sum);
    EXPECT_EQ(intersection, (Strings{"rex", "dux", "dux"}));
    EXPECT_EQ(scores, (std::map<std::string, double>{{"dvx", 8}, {"Rex", 2}, {"dux", 0.5}}));
    EXPECT_EQ(sum, 3.75);
    intersection.clear();
    combine_wfs(predicted.begin(), predicted.begin() + 1, lexicon, language, scores, intersection, sum);
    EXPECT_EQ(intersection, Strings{"dvx"});
    EXPECT_EQ(sum, 3.75);
}

TEST_F(CandidateChoice, LemmaByMeanProbabilityAndRawScore) {
    model.scores = {{"x", -6}, {"y", -3}}; // 3 words: 0.01 and 0.1, of 0.11
    EXPECT_EQ(lemma({"a", "unknown"}, {"x", "y"}, {{"x", 0.6}, {"y", 0.5}}), "y");
    EXPECT_EQ(model.sentences, (Strings{"a <unk> x ", "a <unk> y "}));
    expect_logged({"previous lemmas: a,unknown", "lexicon lemmas: x,y", "predicted lemmas: x:0.6,y:0.5",
                   "intersection: x,y", "lm lemma: x", "score: -6", "lemma: x", "score lm: 0.0909091",
                   "score lemmatizer: 0.6", "total score: 0.345455", "total score: 0.704545"});
    // A candidate confirmed in lower case has no score of its own: 0 + 0.25 against 0.1 + 0.25.
    model.scores = {};
    EXPECT_EQ(lemma({}, {"x", "y"}, {{"X", 0.9}, {"y", 0.2}}), "y");
    EXPECT_EQ(lemma({}, {}, {}), "");
    EXPECT_EQ(lemma({}, {"sum"}, {}, "la"), "sum");
}

TEST_F(CandidateChoice, WordFormByLogarithmicPool) {
    model.scores = {{"a", -2}, {"b", 2 * std::log10(0.9F)}};
    model.words.push_back("n"); // one previous word
    std::multimap<std::string, BaseLexicalEntry*> lexicon{{"a", nullptr}, {"b", nullptr}};
    const Candidates predicted{{"b", 0.2}, {"c", 5}, {"a", 0.8}};
    EXPECT_EQ(select_ocr_wf({"n"}, lexicon, predicted.begin(), predicted.end(), &model, &model, "la", false, &category),
              "a"); // 0.8^0.75 0.1^0.25 = 0.475683 against 0.2^0.75 0.9^0.25 = 0.291295
    expect_logged({"previous wfss: n", "predicted ocr wfs: b:0.2,c:5,a:0.8", "intersection: b,a", "lm lemma: a",
                   "score: -2", "word: a", "score lm: 0.1", "score ocr corrector: 0.8", "total score: 0.475683",
                   "total score: 0.291295"});
    EXPECT_EQ(log.str().find("lexicon"), std::string::npos);
    EXPECT_EQ(word_form({"b"}, {}), "");
    EXPECT_EQ(word_form({}, {{"b", -2}, {"a", -1}}, true), "b");         // nothing confirmed, the sum is 0
    EXPECT_EQ(word_form({"a", "b"}, {{"b", -2}, {"a", -1}}, true), "b"); // a negative sum: no number at all
    model.scores = {};
    EXPECT_EQ(word_form({"a", "b"}, {{"b", 1}, {"a", 2}}, true), "a");
}

TEST_F(CandidateChoice, UnknownCandidatesAreReportedWhereTheyWereLookedUp) {
    testing::internal::CaptureStdout();
    EXPECT_EQ(lemma({}, {}, {{"zz%n", 2}, {"Zz", 1}, {"X", 0}}), "zz%n");
    EXPECT_EQ(word_form({}, {{"WW", 1}}), "WW");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "unknown lemma: Zz\nunknown wf: WW\n");
    expect_logged({"unknown lemma: zz%n"});
    EXPECT_EQ(log.str().find("unknown lemma: Zz"), std::string::npos);
    EXPECT_EQ(model.sentences, (Strings{"<unk> ", "<unk> ", "x ", "<unk> "}));
}

TEST_F(CandidateChoice, WorksWithoutModelAndLogAndKeepsTheOrderOfEquals) {
    Candidates predicted;
    for (int i = 40; i > 0; --i)
        predicted.emplace_back("w" + std::to_string(i), i % 2 ? 0.5 : std::nan(""));
    std::set<std::string> lexicon;
    const std::string best =
        select_lemma({"a"}, lexicon, predicted.begin(), predicted.end(), nullptr, nullptr, "la", nullptr);
    EXPECT_EQ(best[0], 'w');
    for (auto& [text, score] : predicted)
        score = 0.5;
    EXPECT_EQ(select_lemma({"a"}, lexicon, predicted.begin(), predicted.end(), nullptr, &model, "", nullptr), "w40");
    EXPECT_EQ(model.sentences, Strings(40, "")); // without a vocabulary the sentences are empty
    EXPECT_EQ(select_ocr_wf({}, {}, predicted.begin(), predicted.end(), &model, nullptr, "", false, nullptr), "w40");
}

TEST(Suffix, BehindTheCommonPart) {
    const struct {
        const char *lemma, *word_form, *expected;
    } rows[] = {{"amo", "amabat", "abat"}, {"am", "amat", "t"}, {"am", "am", ""},  {"am", "ama", ""},
                {"amo", "am", ""},         {"amo", "rex", ""},  {"", "abc", "bc"}, {"", "", ""},
                {"dēs", "dēt", "t"},       {"dē", "dēūs", "s"}, {"dé", "dē", "ē"}, {"a\xC4", "a\xC4", ""}};
    for (const auto& [lemma, word_form, expected] : rows)
        EXPECT_EQ(get_suffix(lemma, word_form).raw(), expected) << lemma << ' ' << word_form;
}

TEST(UniquePartOfSpeech, OfTheEntriesOfALemma) {
    BaseLexicalEntry amor("amor", "amor", "N"), amare("amo", "amor", "V"), again("amo", "amat", "V");
    BaseLexicalEntry other("amor", "amoris", "X");
    std::vector<BaseLexicalEntry*> entries{&amor, nullptr, &amare, &again};
    EXPECT_EQ(get_pos(entries, "amo") + get_pos(entries, "amor") + get_pos(entries, "rex"), "VN");
    entries.push_back(&other);
    EXPECT_EQ(get_pos(entries, "amor"), "");
}

} // namespace
} // namespace zelvor
