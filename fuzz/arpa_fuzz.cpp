// An ARPA file, and sentences that its model scores: one a line, blanks between the words.
#include "fuzz/fuzz.h"
#include "utils/ArpaLM.h"

#include <cmath>

namespace zelvor::fuzz {
namespace {

float score(ArpaLM& model, const ArpaVocab& vocab, const std::string& sentence) {
    std::vector<unsigned int> indices;
    for (const std::string& word : split_at(sentence, ' '))
        indices.push_back(vocab.get_index(word, ArpaVocab::UNKNOWN));
    indices.push_back(VOCAB_NONE);
    TextStats stats;
    const float score = model.sentence_log_prob(indices.data(), stats);
    require(!std::isnan(score) && stats.num_zero_probs <= indices.size(), "a score is a number", sentence);
    return score;
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
    for_each_line(sentences, [&](const std::string& line) {
        const float found = score(model, vocab, line);
        require(!is_same || score(again, vocab, line) == found, "a load that fails changes no score", line);
    });
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [text, sentences] = zelvor::fuzz::halves(data, size);
    zelvor::fuzz::check(text, sentences);
    return 0;
}
