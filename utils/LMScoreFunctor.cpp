#include "utils/LMScoreFunctor.h"

#include "utils/common_utils/text.h"

#include <log4cpp/Category.hh>

#include <cmath>

namespace zelvor {

LMScoreFunctor::LMScoreFunctor(std::map<std::string, double>* pmap_lemmatizer, std::map<std::string, double>* pmap_lm,
                               double sum_lmprobs, double sum_predicted_scores, double weight_lm, bool rank, bool ocr,
                               bool logOpPool, log4cpp::Category* pmain_cat)
    : m_pmap_lemmatizer(pmap_lemmatizer), m_pmap_lm(pmap_lm), m_sum_lmprobs(sum_lmprobs),
      m_sum_predicted_scores(sum_predicted_scores), m_weight_lm(weight_lm), m_rank(rank), m_ocr(ocr),
      m_logOpPool(logOpPool), m_pmain_cat(pmain_cat) {}

double LMScoreFunctor::get_score(const std::string& lemma) const {
    double external = 0;
    if (m_pmap_lemmatizer)
        if (const auto found = m_pmap_lemmatizer->find(lemma); found != m_pmap_lemmatizer->end())
            external = m_rank ? std::exp(found->second) : found->second;
    double lm = 0;
    if (m_pmap_lm)
        if (const auto found = m_pmap_lm->find(lemma); found != m_pmap_lm->end())
            lm = found->second;

    const double p = external / m_sum_predicted_scores;
    const double q = lm / m_sum_lmprobs;
    const double total =
        m_logOpPool ? std::pow(p, 1 - m_weight_lm) * std::pow(q, m_weight_lm) : (1 - m_weight_lm) * p + m_weight_lm * q;
    if (m_pmain_cat && m_pmain_cat->isDebugEnabled()) {
        m_pmain_cat->debug((m_ocr ? "word: " : "lemma: ") + lemma);
        m_pmain_cat->debug("score lm: " + convert_to_string(q));
        // kept: the lemmatiser's score is shown as it came, the OCR decoder's normalised
        m_pmain_cat->debug(m_ocr ? "score ocr corrector: " + convert_to_string(p)
                                 : "score lemmatizer: " + convert_to_string(external));
        m_pmain_cat->debug("total score: " + convert_to_string(total));
    }
    return total;
}

bool LMScoreFunctor::operator()(const std::string& lemma1, const std::string& lemma2) const {
    const double score1 = get_score(lemma1);
    const double score2 = get_score(lemma2);
    return score2 > score1;
}

} // namespace zelvor
