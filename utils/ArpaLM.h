#pragma once

#include "utils/NgramModel.h"
#include "utils/common_utils/hash_index.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace log4cpp {
class Category;
}

/// Back-off n-gram models in the ARPA text format, the exchange format of the field's toolkits; see docs/candidates.md.
namespace zelvor {

/// Words in one piece of text. Always holds "<unk>", "<s>" and "</s>".
class ArpaVocab : public Vocab {
public:
    static constexpr unsigned int UNKNOWN = 0;
    static constexpr unsigned int SENTENCE_BEGIN = 1;
    static constexpr unsigned int SENTENCE_END = 2;

    ArpaVocab();

    unsigned int get_index(const std::string& word, unsigned int unknown_value = VOCAB_NONE) const override;
    unsigned int find(std::string_view word) const; ///< VOCAB_NONE when it is not there
    unsigned int add(std::string_view word);        ///< its index, old or new
    std::size_t size() const { return m_starts.size() - 1; }

private:
    std::string_view word(std::uint32_t index) const;

    std::string m_text;
    std::vector<std::size_t> m_starts{0}; ///< word i is m_text from m_starts[i] to m_starts[i + 1]
    HashIndex m_index;
};

/// N-grams of all orders as nodes: an n-gram is its first n - 1 words' node and its last word. About 30 bytes each.
class NgramTable {
public:
    static constexpr std::uint32_t NONE = HashIndex::NONE;
    static constexpr std::uint32_t ROOT = 0; ///< the n-gram of no words

    NgramTable(); ///< holds "<unk>" with log10 probability -99

    std::uint32_t find(std::uint32_t context, unsigned int word) const; ///< NONE when it is not there
    /// The node of context and word; a new one has no probability, and back-off weight 0 (log10).
    std::uint32_t add(std::uint32_t context, unsigned int word);
    void set(std::uint32_t ngram, float log10_prob, float log10_backoff);
    bool has_prob(std::uint32_t ngram) const;
    float log10_prob(std::uint32_t ngram) const { return m_ngrams[ngram].log10_prob; }
    float log10_backoff(std::uint32_t ngram) const { return m_ngrams[ngram].log10_backoff; }
    std::size_t size() const { return m_ngrams.size() - 1; }

private:
    struct Ngram {
        std::uint32_t context;
        unsigned int word;
        float log10_prob;
        float log10_backoff;
    };

    std::vector<Ngram> m_ngrams;
    HashIndex m_index;
};

class ArpaLM : public LM {
public:
    /// The vocabulary must outlive the model; load() adds words to it and changes no index, so that several models may
    /// share one. Until a file is loaded, every word is unknown. A null category silences the messages of load().
    explicit ArpaLM(ArpaVocab& vocab, log4cpp::Category* pmain_cat = nullptr)
        : m_vocab(vocab), m_pmain_cat(pmain_cat) {}

    /// Reads a model of any order. False, with one error record that names file and line, for what is not ARPA text or
    /// has no end; model and vocabulary are then as they were. Wrong counts are a warning.
    bool load(const std::string& filename);

    /// A word that the model lacks scores as "<unk>", and where the model lacks that too, -99.
    float sentence_log_prob(const unsigned int* words, TextStats& stats) override;

    std::size_t get_order() const { return m_order; }
    std::size_t get_num_ngrams() const { return m_ngrams.size(); } ///< with the contexts that the file left out

private:
    double score_next(unsigned int word, std::vector<std::uint32_t>& contexts) const;

    ArpaVocab& m_vocab;
    log4cpp::Category* m_pmain_cat;
    NgramTable m_ngrams;
    std::size_t m_order = 1;
};

} // namespace zelvor
