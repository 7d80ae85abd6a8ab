#include "utils/lexicon_utils/candidates.h"

#include "utils/BaseLexicalEntry.h"
#include "utils/LMScoreFunctor.h"
#include "utils/common_utils/case.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <log4cpp/Category.hh>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <utility>

namespace zelvor {

namespace {

using Scores = std::map<std::string, double>;

// Appends the candidate, or else its lower-case form, when the lexicon has it.
template<typename Lexicon>
bool append_confirmed(const std::string& candidate, const Lexicon& lexicon, std::vector<std::string>& confirmed) {
    if (lexicon.contains(candidate)) {
        confirmed.push_back(candidate);
        return true;
    }
    std::string lower = convert_lowercase(candidate);
    if (!lexicon.contains(lower))
        return false;
    confirmed.push_back(std::move(lower));
    return true;
}

void append_texts(CandidateIterator begin, CandidateIterator end, std::vector<std::string>& texts) {
    for (; begin != end; ++begin)
        texts.push_back(begin->first);
}

std::string list_candidates(CandidateIterator begin, CandidateIterator end) {
    std::vector<std::string> list;
    for (; begin != end; ++begin)
        list.push_back(begin->first + ":" + convert_to_string(begin->second));
    return convert_list_to_string(list.begin(), list.end(), ",");
}

// The model's view of candidates that follow the same words.
class Context {
public:
    Context(const std::vector<std::string>& previous, Vocab* vocab, LM* lm, const std::string& unknown_message,
            log4cpp::Category* debug_log)
        : m_vocab(vocab), m_lm(lm), m_unknown_message(unknown_message), m_debug_log(debug_log) {
        for (const std::string& word : previous)
            m_indices.push_back(find_or_unknown(word));
        m_indices.resize(previous.size() + 2, VOCAB_NONE);
    }

    // The geometric mean of the probabilities of the n + 1 words; the sentence end counts in the product alone.
    double probability(const std::string& candidate) {
        m_indices[m_indices.size() - 2] = find_candidate(candidate);
        log("lm lemma: " + candidate);
        const double log10_prob = m_lm ? m_lm->sentence_log_prob(m_indices.data(), m_stats) : 0.0;
        log("score: " + convert_to_string(log10_prob));
        return std::pow(10.0, log10_prob / static_cast<double>(m_indices.size() - 1));
    }

private:
    unsigned int find(const std::string& word) const {
        return m_vocab ? m_vocab->get_index(word, VOCAB_NONE) : VOCAB_NONE;
    }

    unsigned int find_or_unknown(const std::string& word) const {
        const unsigned int index = find(word);
        return index == VOCAB_NONE ? find("<unk>") : index;
    }

    unsigned int find_candidate(const std::string& candidate) const {
        unsigned int index = find(candidate);
        if (index != VOCAB_NONE || !m_vocab)
            return index;
        const std::string lower = convert_lowercase(candidate);
        if (lower == candidate)
            log(m_unknown_message + candidate);
        else if (index = find(lower); index == VOCAB_NONE) // kept: this case alone is for standard output
            std::cout << m_unknown_message << candidate << std::endl;
        return index == VOCAB_NONE ? find("<unk>") : index;
    }

    void log(const std::string& message) const {
        if (m_debug_log)
            m_debug_log->debug(message);
    }

    Vocab* m_vocab;
    LM* m_lm;
    std::string m_unknown_message;
    log4cpp::Category* m_debug_log;
    std::vector<unsigned int> m_indices; // the previous words, the candidate, the end
    TextStats m_stats;
};

double score_candidates(const std::vector<std::string>& candidates, Context context, Scores& probabilities) {
    double sum = 0;
    for (const std::string& candidate : candidates) {
        const double probability = context.probability(candidate);
        sum += probability;
        probabilities.emplace(candidate, probability);
    }
    return sum;
}

// Scores may be NaN, which a stable sort survives; equals keep their order.
std::string best_candidate(std::vector<std::string>& candidates, const LMScoreFunctor& is_less) {
    std::stable_sort(candidates.rbegin(), candidates.rend(), is_less);
    return candidates.empty() ? "" : candidates.front();
}

log4cpp::Category* enabled_debug_log(log4cpp::Category* category) {
    return category && category->isDebugEnabled() ? category : nullptr;
}

std::string select_word_form(const std::vector<std::string>& previous_wfs,
                             const std::multimap<std::string, BaseLexicalEntry*>& lexicon, CandidateIterator begin,
                             CandidateIterator end, Vocab* vocab, LM* lm, std::string language, bool rank,
                             log4cpp::Category* category) {
    log4cpp::Category* debug_log = enabled_debug_log(category);
    if (debug_log) {
        debug_log->debug("previous wfss: " + convert_list_to_string(previous_wfs.begin(), previous_wfs.end(), ","));
        debug_log->debug("predicted ocr wfs: " + list_candidates(begin, end));
    }
    Scores scores;
    std::vector<std::string> candidates;
    double sum_scores = 0;
    combine_wfs(begin, end, lexicon, language, scores, candidates, sum_scores);
    if (debug_log)
        debug_log->debug("intersection: " + convert_list_to_string(candidates.begin(), candidates.end(), ","));
    Scores probabilities;
    const double sum =
        score_candidates(candidates, Context(previous_wfs, vocab, lm, "unknown wf: ", debug_log), probabilities);
    return best_candidate(candidates,
                          LMScoreFunctor(&scores, &probabilities, sum, sum_scores, 0.25, rank, true, true, category));
}

} // namespace

void combine_lemmas(CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted,
                    std::set<std::string>& lexicon_lemmas, const std::string& language,
                    std::map<std::string, double>& map_lemmatizer_score,
                    std::vector<std::string>& intersection_lemmas) {
    for (auto it = iter_begin_predicted; it != iter_end_predicted; ++it) {
        map_lemmatizer_score.insert(*it);
        append_confirmed(it->first, lexicon_lemmas, intersection_lemmas);
    }
    if (language == "la" && lexicon_lemmas.contains("sum") &&
        std::ranges::find(intersection_lemmas, "sum") == intersection_lemmas.end())
        intersection_lemmas.emplace_back("sum"); // every form of "esse" is a form of "sum"
    if (!intersection_lemmas.empty())
        return;
    if (lexicon_lemmas.empty())
        append_texts(iter_begin_predicted, iter_end_predicted, intersection_lemmas);
    else
        intersection_lemmas.assign(lexicon_lemmas.begin(), lexicon_lemmas.end());
}

void combine_wfs(CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted,
                 const std::multimap<std::string, BaseLexicalEntry*>& map_lexicon, std::string& /*language*/,
                 std::map<std::string, double>& map_ocr_score, std::vector<std::string>& intersection_wfs,
                 double& sum_ocr_scores) {
    for (auto it = iter_begin_predicted; it != iter_end_predicted; ++it) {
        map_ocr_score.insert(*it);
        if (append_confirmed(it->first, map_lexicon, intersection_wfs))
            sum_ocr_scores += it->second;
    }
    if (intersection_wfs.empty())
        append_texts(iter_begin_predicted, iter_end_predicted, intersection_wfs);
}

std::string select_lemma(const std::vector<std::string>& previous_lemmas, std::set<std::string>& lexicon_lemmas,
                         CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted, Vocab* pvocab,
                         LM* plm, std::string current_language, log4cpp::Category* pmain_cat) {
    log4cpp::Category* debug_log = enabled_debug_log(pmain_cat);
    if (debug_log) {
        debug_log->debug("previous lemmas: " +
                         convert_list_to_string(previous_lemmas.begin(), previous_lemmas.end(), ","));
        debug_log->debug("lexicon lemmas: " +
                         convert_list_to_string(lexicon_lemmas.begin(), lexicon_lemmas.end(), ","));
        debug_log->debug("predicted lemmas: " + list_candidates(iter_begin_predicted, iter_end_predicted));
    }
    Scores scores;
    std::vector<std::string> candidates;
    combine_lemmas(iter_begin_predicted, iter_end_predicted, lexicon_lemmas, current_language, scores, candidates);
    if (debug_log)
        debug_log->debug("intersection: " + convert_list_to_string(candidates.begin(), candidates.end(), ","));
    Scores probabilities;
    const double sum = score_candidates(candidates, Context(previous_lemmas, pvocab, plm, "unknown lemma: ", debug_log),
                                        probabilities);
    return best_candidate(candidates,
                          LMScoreFunctor(&scores, &probabilities, sum, 1.0, 0.5, false, false, false, pmain_cat));
}

std::string select_ocr_wf(const std::vector<std::string>& previous_wfs,
                          std::multimap<std::string, BaseLexicalEntry*> map_lexicon,
                          CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted, Vocab* pvocab,
                          LM* plm, std::string current_language, bool rank, log4cpp::Category* pmain_cat) {
    return select_word_form(previous_wfs, map_lexicon, iter_begin_predicted, iter_end_predicted, pvocab, plm,
                            std::move(current_language), rank, pmain_cat);
}

Glib::ustring get_suffix(const Glib::ustring& lemma, const Glib::ustring& word_form) {
    const std::string& stem = lemma.raw();
    const std::string& form = word_form.raw();
    std::size_t i = 0; // bytes, in both
    std::size_t k = 0;
    while (i < stem.size() && k < form.size()) {
        const DecodedCharacter expected = decode_character(stem, i);
        const DecodedCharacter found = decode_character(form, k);
        if (expected.code_point != found.code_point)
            return k == 0 ? "" : form.substr(k);
        i += expected.length;
        k += found.length;
    }
    // kept: behind a whole lemma one character is skipped
    return k == form.size() ? "" : form.substr(k + decode_character(form, k).length);
}

std::string get_pos(std::vector<BaseLexicalEntry*>& vec_lexical_entries, const std::string& lemma) {
    std::set<std::string> tags;
    for (const BaseLexicalEntry* entry : vec_lexical_entries)
        if (entry && entry->get_lemma() == lemma)
            tags.insert(entry->get_pos());
    return tags.size() == 1 ? *tags.begin() : "";
}

} // namespace zelvor
