#pragma once

#include "utils/common_utils/hash_index.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

constexpr float LOG10_ZERO = -99; ///< what stands for the logarithm of 0

/// Words in one piece of text, numbered as they come.
class WordTable {
public:
    std::uint32_t find(std::string_view word) const; ///< HashIndex::NONE when it is not there
    std::uint32_t add(std::string_view word);        ///< its number, old or new
    std::size_t size() const { return m_starts.size() - 1; }

private:
    std::string_view word(std::uint32_t number) const;

    std::string m_text;
    std::vector<std::size_t> m_starts{0}; ///< word i is m_text from m_starts[i] to m_starts[i + 1]
    HashIndex m_index;
};

/// N-grams of all orders as nodes: an n-gram is its first n - 1 words' node and its last word. About 30 bytes each.
class NgramTable {
public:
    static constexpr std::uint32_t NONE = HashIndex::NONE;
    static constexpr std::uint32_t ROOT = 0;   ///< the n-gram of no words
    static constexpr unsigned int UNKNOWN = 0; ///< the word "<unk>"

    NgramTable(); ///< holds "<unk>" with log10 probability LOG10_ZERO

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

} // namespace zelvor
