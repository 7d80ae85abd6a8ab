// An ARPA file, and words that its model scores as one sentence.
#include "fuzz/fuzz.h"
#include "utils/ArpaLM.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor;
    const auto [text, sentence] = fuzz::halves(data, size);
    const fuzz::MemoryFile file(text), other_file(sentence);
    ArpaVocab vocab;
    ArpaLM model(vocab), again(vocab);
    const bool is_loaded = model.load(file.path());
    fuzz::require(is_loaded || (vocab.size() == 3 && model.get_num_ngrams() == 1), "a faulty file leaves nothing",
                  text);
    const std::size_t words = vocab.size();
    fuzz::require(again.load(file.path()) == is_loaded && vocab.size() == words, "a file has the same words again",
                  text);
    const bool is_same = !again.load(other_file.path());
    std::vector<unsigned int> indices;
    for (const std::string& word : fuzz::split_at(sentence, ' '))
        indices.push_back(vocab.get_index(word, ArpaVocab::UNKNOWN));
    indices.push_back(VOCAB_NONE);
    TextStats stats;
    const float score = model.sentence_log_prob(indices.data(), stats);
    fuzz::require(!std::isnan(score) && stats.num_zero_probs <= indices.size(), "a score is a number", sentence);
    fuzz::require(!is_same || again.sentence_log_prob(indices.data(), stats) == score,
                  "a load that fails changes no score", sentence);
    return 0;
}
