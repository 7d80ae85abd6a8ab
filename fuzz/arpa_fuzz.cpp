// An ARPA file, and sentences that its model scores: one a line, blanks between the words.
#include "fuzz/fuzz.h"
#include "utils/ArpaLM.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <vector>

namespace zelvor::fuzz {
namespace {

using Words = std::vector<std::string>;

double number(std::string_view text) {
    text.remove_prefix(text.starts_with('+'));
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return std::isinf(value) ? -99 : value;
}

/// The model as its definition has it: n-grams by their words, backed off one word at a time.
struct LiteralModel {
    explicit LiteralModel(const std::string& text) {
        ngrams[{"<unk>"}] = {-99, 0};
        bool is_data = false;
        for_each_line(text, [&](const std::string& line) {
            const std::string_view content = trimmed(line);
            is_data = is_data || content == "\\data\\";
            if (is_data && content.starts_with('\\'))
                order = static_cast<std::size_t>(std::atoi(content.substr(1).data()));
            max_order = std::max(max_order, is_ended ? 0 : order);
            is_ended = is_ended || (is_data && content == "\\end\\");
            if (!is_data || is_ended || order == 0 || content.empty() || content.starts_with('\\'))
                return;
            std::vector<std::string> fields = *tokenize(std::string(content), " \t");
            const double backoff = fields.size() == order + 2 ? number(fields.back()) : 0;
            const Words words(fields.begin() + 1, fields.begin() + 1 + static_cast<std::ptrdiff_t>(order));
            if (words == Words{"<unk>"}) // the one that is there from the start gives way
                ngrams[words] = {number(fields[0]), backoff};
            else
                ngrams.emplace(words, std::pair(number(fields[0]), backoff));
        });
    }

    double score(Words history, const std::string& word) const {
        const std::size_t length = std::min(history.size(), max_order - 1);
        history.erase(history.begin(), history.end() - static_cast<std::ptrdiff_t>(length));
        double sum = 0;
        for (;; history.erase(history.begin())) {
            Words ngram = history;
            ngram.push_back(word);
            if (const auto found = ngrams.find(ngram); found != ngrams.end())
                return sum + found->second.first;
            const auto context = ngrams.find(history);
            sum += context == ngrams.end() ? 0 : context->second.second;
        }
    }

    double sentence_score(Words sentence) const {
        Words history{"<s>"};
        double sum = 0;
        sentence.emplace_back("</s>");
        for (const std::string& word : sentence) {
            const std::string known = ngrams.contains({word}) ? word : "<unk>";
            sum += score(history, known);
            history.push_back(known);
        }
        return sum;
    }

    std::map<Words, std::pair<double, double>> ngrams; ///< log10 probability and back-off weight
    std::size_t order = 0;
    std::size_t max_order = 1;
    bool is_ended = false;
};

float score(ArpaLM& model, const ArpaVocab& vocab, const Words& sentence) {
    std::vector<unsigned int> indices;
    for (const std::string& word : sentence)
        indices.push_back(vocab.get_index(word, ArpaVocab::UNKNOWN));
    indices.push_back(VOCAB_NONE);
    TextStats stats;
    const float score = model.sentence_log_prob(indices.data(), stats);
    require(stats.num_words == sentence.size() && stats.num_oovs <= stats.num_words && stats.num_sentences == 1 &&
                stats.num_zero_probs <= stats.num_words + 1,
            "the counts fit the sentence");
    return score;
}

bool is_close(double a, double b) {
    return std::abs(a - b) <= 1e-4 * std::max({1.0, std::abs(a), std::abs(b)}) || (a == static_cast<float>(b));
}

void check(const std::string& text, const std::string& sentences) {
    const MemoryFile file(text), other_file(sentences);
    ArpaVocab vocab;
    ArpaLM model(vocab), again(vocab);
    if (!model.load(file.path())) {
        require(vocab.size() == 3 && model.get_num_ngrams() == 1, "a faulty file leaves nothing behind", text);
        return;
    }
    const std::size_t words = vocab.size();
    require(again.load(file.path()) && vocab.size() == words, "read again, a file has no new words", text);
    require(again.get_num_ngrams() == model.get_num_ngrams(), "and the same n-grams", text);
    const bool is_same = !again.load(other_file.path());
    const LiteralModel literal(text);
    require(literal.max_order == model.get_order(), "the order is that of the longest n-grams", text);
    for_each_line(sentences, [&](const std::string& line) {
        const Words sentence = *tokenize(line, " ");
        if (sentence.size() > 50)
            return;
        const float found = score(model, vocab, sentence);
        const double expected = literal.sentence_score(sentence);
        require(is_close(found, expected), "a sentence has the score of the definition",
                line + ": " + std::to_string(found) + ", not " + std::to_string(expected));
        require(!is_same || score(again, vocab, sentence) == found, "a load that fails changes no score", line);
    });
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [text, sentences] = zelvor::fuzz::halves(data, size);
    zelvor::fuzz::check(text, sentences);
    return 0;
}
