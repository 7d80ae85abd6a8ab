#pragma once

#include <cstddef>
#include <string>

/// What candidate selection asks of an n-gram language model. ArpaLM.h reads models from files; a model of another
/// toolkit needs a subclass of Vocab and one of LM. All probabilities are log10.
namespace zelvor {

/// The index of no word; ends an array of word indices.
constexpr unsigned int VOCAB_NONE = 0xFFFFFFFF;

/// Words and their indices.
class Vocab {
public:
    virtual ~Vocab() = default;

    /// The index of a word, or unknown_value when the vocabulary lacks it.
    virtual unsigned int get_index(const std::string& word, unsigned int unknown_value = VOCAB_NONE) const = 0;
};

/// Totals over the sentences scored so far.
struct TextStats {
    double log10_prob = 0.0;
    std::size_t num_sentences = 0;
    std::size_t num_words = 0;      ///< without the sentence ends
    std::size_t num_oovs = 0;       ///< words that the model lacks
    std::size_t num_zero_probs = 0; ///< words and sentence ends scored -99 or less: the formats' logarithm of zero
};

/// A language model over the indices of one vocabulary.
class LM {
public:
    virtual ~LM() = default;

    /// log10 P(w1 ... wk `</s>` | `<s>`) of a sentence w1 ... wk, an array of indices that ends at VOCAB_NONE; adds to
    /// stats.
    virtual float sentence_log_prob(const unsigned int* words, TextStats& stats) = 0;
};

} // namespace zelvor
