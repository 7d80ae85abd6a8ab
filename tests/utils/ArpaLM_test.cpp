#include "utils/ArpaLM.h"

#include "tests/testing.h"

#include "utils/common_utils/text.h"

#include <boost/regex.hpp>

namespace zelvor {

// Read backwards inside each section; "sum et" is a context without a line of its own.
const std::string MODEL = "made by hand\n"
                          "\\data\\\nngram 1=6\nngram 2=5\nngram  3 = 3\n\n"
                          "\\1-grams:\n-1.5\trex\t-1\n-0.9\tsum\t-0.125\n-.7\tet\t-25e-2\n"
                          "-1.2\t</s>\n-99\t<s>\t-0.5\n-1\t<unk>\n\n"
                          "\\2-grams:\n-0.35 <s> et -0.15\n-0.8 et sum\n-0.6 sum </s>\n-0.4 rex sum -0.2\n"
                          "-0.3 <s> rex -0.0625\n\n"
                          "\\3-grams:\n-0.1 rex sum </s>\n-0.05 <s> et et\n-0.02 sum et rex\n\n\\end\\\nignored\n";

class Arpa : public testing::Test {
protected:
    bool load(std::string_view text) { return model.load(directory.write("model.arpa", text)); }

    float score(const std::string& sentence) {
        std::vector<unsigned int> words;
        for (const std::string_view word : split_tokens(sentence, " "))
            words.push_back(vocab.get_index(std::string(word), vocab.get_index("<unk>")));
        words.push_back(VOCAB_NONE);
        return model.sentence_log_prob(words.data(), stats);
    }

    TemporaryDirectory directory;
    CapturedLog log;
    ArpaVocab vocab;
    ArpaLM model{vocab, &log.category};
    TextStats stats;
};

TEST_F(Arpa, ScoresBackOffByTheLongestContext) {
    using Row = std::pair<const char*, double>;
    const auto rows = {Row("", -0.5 - 1.2),
                       Row("rex sum", -0.3 + (-0.0625 - 0.4) - 0.1),
                       Row("sum et", (-0.5 - 0.9) + (-0.125 - 0.7) + (-0.25 - 1.2)), // "sum et" has the weight 1
                       Row("et et", -0.35 - 0.05 + (-0.25 - 1.2)),
                       Row("sum et rex", (-0.5 - 0.9) + (-0.125 - 0.7) - 0.02 + (-1 - 1.2)),
                       Row("rex dux", -0.3 + (-0.0625 - 1 - 1) - 1.2)};
    for (const std::string& text : {MODEL, boost::regex_replace(MODEL, boost::regex("\n"), "\r\n")}) {
        ASSERT_TRUE(load(text));
        for (const auto& [sentence, expected] : rows)
            EXPECT_NEAR(score(sentence), expected, 1e-6) << sentence;
    }
    EXPECT_EQ(log.records.str(), "");
    EXPECT_NEAR(stats.log10_prob, 2 * (-1.7 - 0.8625 - 3.675 - 1.85 - 4.445 - 3.5625), 1e-5);
    EXPECT_EQ(std::vector({stats.num_sentences, stats.num_words, stats.num_oovs, stats.num_zero_probs}),
              (std::vector<decltype(stats.num_words)>{12, 22, 2, 0}));
}

TEST_F(Arpa, ModelsMayLackUnknownWordsAndCount) {
    EXPECT_NEAR(score("rex"), -99 - 99, 1e-4); // nothing is loaded yet
    ASSERT_TRUE(load("\\data\\\nngram 1=3\n\\1-grams:\n-inf <s>\n-1 </s>\n-0.5 rex -0.25\n-2 rex -3\n"
                     "\\2-grams:\n0 rex </s>\n\\3-grams:\n-1 rex rex rex\n\\4-grams:\n-1 rex rex rex rex\n\\end\\"));
    EXPECT_TRUE(log.has("3 1-grams announced, 4 found"));
    EXPECT_TRUE(log.has("0 4-grams announced, 1 found"));
    stats = {};
    EXPECT_NEAR(score("rex"), -0.5 + 0, 1e-4); // a probability of 1
    EXPECT_NEAR(score("rex dux"), -0.5 + (-0.25 - 99) - 1, 1e-4);
    EXPECT_EQ(stats.num_zero_probs, 1u);
    // A second model over the vocabulary leaves the first its indices.
    const unsigned int rex = vocab.get_index("rex");
    ArpaLM other(vocab);
    ASSERT_TRUE(other.load(directory.write("other", MODEL)));
    EXPECT_EQ(vocab.get_index("rex"), rex);
    EXPECT_NEAR(score("rex sum"), -0.5 + (-0.25 - 99) - 1, 1e-4);
}

TEST_F(Arpa, UnknownWordsMayBeInCapitalsAndRoundingMayGoAboveOne) {
    const std::string start =
        "\xEF\xBB\xBF\\data\\\nngram 1=4\nngram 2=1\n\\1-grams:\n-1 </s>\n0.0001 a\n-2 <UNK> -0.5\n";
    const std::string end = "\\2-grams:\n-0.25 <UNK> a\n\\end\\\n";
    using Row = std::pair<const char*, double>; // the fourth 1-gram, and what "b a" scores with it
    for (const auto& [line, expected] : {Row("0.00003 c\n", -2 - 0.25 - 1), Row("-3 <unk>\n", -3 + 0 - 1)}) {
        log.records.str("");
        ASSERT_TRUE(load(start + line + end));
        EXPECT_NEAR(score("b a"), expected, 1e-6) << line;
        EXPECT_NEAR(score("<UNK> a"), -2 - 0.25 - 1, 1e-6) << line;
        EXPECT_TRUE(log.has(line[0] == '0' ? "above 0 count as 0: 2, the first one on line 6" : ": 1, the first one"));
        EXPECT_FALSE(log.has("announced")) << log.records.str();
    }
}

TEST_F(Arpa, AFailedLoadChangesNothingAndSaysWhere) {
    ASSERT_TRUE(load("\\data\\\nngram 1=2\n\\1-grams:\n-1 </s>\n-0.5 rex\n\\end\\\n"));
    const std::string start = "\\data\\\n\\1-grams:\n-1 novum\n";
    using Row = std::pair<std::string, const char*>;
    for (const auto& [text, message] :
         {Row("\x1F\x8B\x08\n\\data\\\n", "line 1: expected text, but the file is compressed"),
          Row("iARPA\n\\data\\\n", "line 1: expected a finished model"),
          Row(std::string("\0\xFF\n\0", 4), "line 2: expected \"\\data\\\""),
          Row("\\data\\\nngram 1:2\n", "line 2: expected \"ngram ORDER=COUNT\""),
          Row("\\data\\\n\\end\\\n", "line 2: expected a section"),
          Row(start + "\\3-grams:\n", "line 4: expected \"\\2-grams:\" or \"\\end\\\""),

          Row(start + "-1 a -0,5\n", "line 4: expected a log10"), Row(start + "nan a\n", "line 4: expected a log10"),
          Row(start + "-1 " + std::string(10'000'000, 'a') + " b\n", "aaa..."),
          Row(start + "\\2-grams:\n-1 novum b\n", "line 5: expected words of the 1-grams, not b")}) {
        log.records.str("");
        EXPECT_FALSE(load(text)) << message;
        EXPECT_TRUE(log.has("ERROR CAPTURED_LOG : " + directory.path("model.arpa: line "))) << message;
        EXPECT_TRUE(log.has(message)) << log.records.str();
    }
    EXPECT_FALSE(model.load(directory.path("missing %n")));
    EXPECT_EQ(model.get_error(), directory.path("missing %n") + ": expected a file that can be read");
    for (std::size_t length = 0; length <= MODEL.find("\\end\\") + 4; ++length)
        EXPECT_FALSE(load(MODEL.substr(0, length))) << length;
    EXPECT_EQ(vocab.size(), 4u);
    EXPECT_NEAR(score("rex"), -1.5, 1e-6);
}

} // namespace zelvor
