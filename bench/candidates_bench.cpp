#include "bench/timing.h"
#include "tests/temporary_directory.h"
#include "utils/ArpaLM.h"
#include "utils/BaseLexicalEntry.h"
#include "utils/lexicon_utils/candidates.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <malloc.h>

/// Times the language model and the choice of candidates on generated data:
///     candidates_bench [N-GRAMS] [FILE]
/// FILE keeps the generated trigram model.
namespace {

/// A tenth of the n-grams are 1-grams and 4 tenths 2-grams; the words of all others are drawn at random.
void write_model(const std::string& filename, std::size_t num_ngrams) {
    const std::size_t num_words = num_ngrams / 10;
    const std::size_t counts[] = {num_words + 3, num_ngrams * 4 / 10, num_ngrams / 2};
    std::ofstream file(filename);
    file << "\\data\\\n";
    for (std::size_t order = 1; order <= 3; ++order)
        file << "ngram " << order << '=' << counts[order - 1] << '\n';
    file << "\n\\1-grams:\n-2\t<unk>\n-99\t<s>\t-0.3\n-1\t</s>\n";
    for (std::size_t word = 0; word < num_words; ++word)
        file << "-4.123456\tverbum" << word << "\t-0.30103\n";
    std::mt19937 random(1);
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    file << "\n\\2-grams:\n";
    for (std::size_t i = 0; i < counts[1]; ++i) {
        pairs.emplace_back(i % num_words, random() % num_words);
        file << "-2.345678\tverbum" << pairs.back().first << " verbum" << pairs.back().second << "\t-0.2345\n";
    }
    file << "\n\\3-grams:\n";
    for (std::size_t i = 0; i < counts[2]; ++i) {
        const auto& [first, second] = pairs[i % pairs.size()];
        file << "-1.234567\tverbum" << first << " verbum" << second << " verbum" << random() % num_words << '\n';
    }
    file << "\n\\end\\\n";
}

bool time_model(const std::string& filename, zelvor::ArpaVocab& vocab, zelvor::ArpaLM& model) {
    const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    bool loaded = false;
    const double loading = processor_seconds([&] { loaded = model.load(filename); });
    if (!loaded) {
        std::cerr << "cannot read " << filename << '\n';
        return false;
    }
    const std::size_t memory = mallinfo2().uordblks + mallinfo2().hblkhd - before;
    std::cout << "loading " << model.get_num_ngrams() << " n-grams: " << loading * 1e3 << " ms, "
              << double(memory) / double(model.get_num_ngrams()) << " bytes each\n";

    constexpr int num_sentences = 100'000;
    std::mt19937 random(2);
    std::vector<unsigned int> words(12, zelvor::VOCAB_NONE);
    zelvor::TextStats stats;
    const double scoring = processor_seconds([&] {
        for (int i = 0; i < num_sentences; ++i) {
            for (std::size_t k = 0; k < 11; ++k)
                words[k] = static_cast<unsigned int>(random() % vocab.size());
            model.sentence_log_prob(words.data(), stats);
        }
    });
    std::cout << "scoring 11 words: " << scoring * 1e6 / num_sentences << " us (log10 " << stats.log10_prob << ")\n";
    return true;
}

void time_selection(zelvor::ArpaVocab& vocab, zelvor::ArpaLM& model) {
    std::vector<std::string> previous;
    std::set<std::string> lexicon_lemmas;
    zelvor::WordFormContainer::Candidates predicted;
    for (int i = 0; i < 20; ++i) {
        predicted.emplace_back("verbum" + std::to_string(i * 7), 0.05);
        lexicon_lemmas.insert(predicted.back().first);
        if (i % 2)
            previous.push_back("verbum" + std::to_string(i));
    }
    constexpr int num_rounds = 10'000;
    std::size_t length = 0;
    const double selecting = processor_seconds([&] {
        for (int i = 0; i < num_rounds; ++i)
            length += zelvor::select_lemma(previous, lexicon_lemmas, predicted.begin(), predicted.end(), &vocab, &model,
                                           "la", nullptr)
                          .size();
    });
    std::cout << "select_lemma, 20 candidates after 10 lemmas: " << selecting * 1e6 / num_rounds << " us\n";

    std::multimap<std::string, zelvor::BaseLexicalEntry*> lexicon;
    for (int i = 0; i < 100'000; ++i)
        lexicon.emplace("verbum" + std::to_string(i), nullptr);
    double copying = 1, choosing = 1; // the least of several rounds
    for (int i = 0; i < 20; ++i) {
        copying = std::min(copying, processor_seconds([&] { length += std::multimap(lexicon).size(); }));
        choosing = std::min(choosing, processor_seconds([&] {
                                length += zelvor::select_ocr_wf(previous, lexicon, predicted.begin(), predicted.end(),
                                                                &vocab, &model, "la", false, nullptr)
                                              .size();
                            }));
    }
    std::cout << "select_ocr_wf, 100000 entries: " << choosing * 1e3 << " ms; a copy of the lexicon " << copying * 1e3
              << " ms (" << length << ")" << std::endl;
    verdict("select_ocr_wf / a copy of its lexicon, 100000 entries", choosing / copying, Bound::AT_MOST, 1.2);
}

} // namespace

int main(int argc, char** argv) {
    const std::size_t num_ngrams = argc > 1 ? std::stoul(argv[1]) : 1'000'000;
    const zelvor::TemporaryDirectory directory;
    const std::string filename = argc > 2 ? argv[2] : directory.path("model.arpa");
    write_model(filename, num_ngrams);
    zelvor::ArpaVocab vocab;
    zelvor::ArpaLM model(vocab);
    if (!time_model(filename, vocab, model))
        return 1;
    time_selection(vocab, model);
    return 0;
}
