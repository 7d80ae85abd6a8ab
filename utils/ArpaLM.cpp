#include "utils/ArpaLM.h"

#include "utils/ArpaReader.h"
#include "utils/ArpaTables.h"
#include "utils/logging_utils.h"

#include <utility>

namespace zelvor {

ArpaVocab::ArpaVocab() : m_pwords(std::make_unique<WordTable>()) {
    for (const std::string_view word : {"<unk>", "<s>", "</s>"})
        add(word);
}

ArpaVocab::~ArpaVocab() = default;

unsigned int ArpaVocab::get_index(const std::string& word, unsigned int unknown_value) const {
    const unsigned int index = find(word);
    return index == VOCAB_NONE ? unknown_value : index;
}

unsigned int ArpaVocab::find(std::string_view word) const {
    static_assert(VOCAB_NONE == HashIndex::NONE && UNKNOWN == NgramTable::UNKNOWN);
    return m_pwords->find(word);
}

unsigned int ArpaVocab::add(std::string_view word) { return m_pwords->add(word); }
std::size_t ArpaVocab::size() const { return m_pwords->size(); }

ArpaLM::ArpaLM(ArpaVocab& vocab, log4cpp::Category* pmain_cat)
    : m_vocab(vocab), m_pmain_cat(pmain_cat), m_pngrams(std::make_unique<NgramTable>()) {}

ArpaLM::~ArpaLM() = default;

std::size_t ArpaLM::get_num_ngrams() const { return m_pngrams->size(); }

bool ArpaLM::load(const std::string& filename) {
    ArpaReader reader(*m_vocab.m_pwords);
    const bool is_read = reader.read(filename);
    for (const std::string& warning : reader.get_warnings())
        log_message(m_pmain_cat, {warning}, log4cpp::Priority::WARN);
    if (!is_read) {
        m_error = reader.get_error();
        m_system_error = reader.get_system_error();
        log_message(m_pmain_cat, {m_error}, log4cpp::Priority::ERROR);
    }
    if (is_read) {
        m_order = reader.get_order();
        *m_vocab.m_pwords = std::move(reader.vocab());
        *m_pngrams = std::move(reader.ngrams());
    }
    return is_read;
}

namespace {

// contexts[k] is the n-gram of the last k words, or NONE; afterwards `word` is the last one.
double score_next(const NgramTable& ngrams, unsigned int word, std::vector<std::uint32_t>& contexts) {
    double log10_prob = 0;
    bool is_found = false;
    for (std::size_t length = contexts.size(); length-- > 0;) {
        const std::uint32_t context = contexts[length];
        const std::uint32_t ngram = context == NgramTable::NONE ? context : ngrams.find(context, word);
        if (length + 1 < contexts.size())
            contexts[length + 1] = ngram;
        if (is_found || context == NgramTable::NONE)
            continue;
        is_found = ngram != NgramTable::NONE && ngrams.has_prob(ngram);
        log10_prob += is_found ? ngrams.log10_prob(ngram) : ngrams.log10_backoff(context);
    }
    return log10_prob;
}

} // namespace

float ArpaLM::sentence_log_prob(const unsigned int* words, TextStats& stats) {
    std::vector<std::uint32_t> contexts(m_order, NgramTable::NONE);
    contexts[0] = NgramTable::ROOT;
    if (m_order > 1)
        contexts[1] = m_pngrams->find(NgramTable::ROOT, ArpaVocab::SENTENCE_BEGIN);

    double total = 0;
    const auto score = [&](unsigned int word) {
        const bool is_known = m_pngrams->find(NgramTable::ROOT, word) != NgramTable::NONE;
        const double log10_prob = score_next(*m_pngrams, is_known ? word : ArpaVocab::UNKNOWN, contexts);
        stats.num_zero_probs += log10_prob <= LOG10_ZERO;
        total += log10_prob;
        return is_known && word != ArpaVocab::UNKNOWN;
    };
    for (; words && *words != VOCAB_NONE; ++words) {
        ++stats.num_words;
        stats.num_oovs += !score(*words);
    }
    score(ArpaVocab::SENTENCE_END);
    ++stats.num_sentences;
    stats.log10_prob += total;
    return static_cast<float>(total);
}

} // namespace zelvor
