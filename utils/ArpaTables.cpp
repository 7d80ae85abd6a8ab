#include "utils/ArpaTables.h"

#include <functional>

namespace zelvor {

namespace {

constexpr float NO_PROBABILITY = 1; // no logarithm of a probability is positive

std::uint64_t mixed(std::uint64_t key) {
    key *= 0x9E3779B97F4A7C15;
    return key ^ (key >> 32);
}

} // namespace

std::string_view WordTable::word(std::uint32_t number) const {
    return std::string_view(m_text).substr(m_starts[number], m_starts[number + 1] - m_starts[number]);
}

std::uint32_t WordTable::find(std::string_view word) const {
    return m_index.find(std::hash<std::string_view>()(word),
                        [&](std::uint32_t number) { return this->word(number) == word; });
}

std::uint32_t WordTable::add(std::string_view word) {
    if (const std::uint32_t known = find(word); known != HashIndex::NONE)
        return known;
    m_text += word;
    m_starts.push_back(m_text.size());
    return m_index.add([&](std::uint32_t number) { return std::hash<std::string_view>()(this->word(number)); });
}

NgramTable::NgramTable() {
    add(NONE, NONE); // the root
    set(add(ROOT, UNKNOWN), LOG10_ZERO, 0);
}

std::uint32_t NgramTable::find(std::uint32_t context, unsigned int word) const {
    return m_index.find(mixed(std::uint64_t{context} << 32 | word), [&](std::uint32_t ngram) {
        return m_ngrams[ngram].context == context && m_ngrams[ngram].word == word;
    });
}

std::uint32_t NgramTable::add(std::uint32_t context, unsigned int word) {
    if (const std::uint32_t known = find(context, word); known != NONE)
        return known;
    m_ngrams.push_back({context, word, NO_PROBABILITY, 0});
    return m_index.add([&](std::uint32_t ngram) {
        return mixed(std::uint64_t{m_ngrams[ngram].context} << 32 | m_ngrams[ngram].word);
    });
}

void NgramTable::set(std::uint32_t ngram, float log10_prob, float log10_backoff) {
    m_ngrams[ngram].log10_prob = log10_prob;
    m_ngrams[ngram].log10_backoff = log10_backoff;
}

bool NgramTable::has_prob(std::uint32_t ngram) const { return m_ngrams[ngram].log10_prob != NO_PROBABILITY; }

} // namespace zelvor
