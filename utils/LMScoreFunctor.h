#pragma once

#include <map>
#include <string>

namespace log4cpp {
class Category;
}

namespace zelvor {

/// Pools the external score of a candidate with its language-model probability; as a comparator, "less" by the pooled
/// score. Owns neither map; a null map or a missing key scores 0, a normaliser of 0 gives a score that is not finite.
class LMScoreFunctor {
public:
    LMScoreFunctor(std::map<std::string, double>* pmap_lemmatizer, std::map<std::string, double>* pmap_lm,
                   double sum_lmprobs, double sum_predicted_scores, double weight_lm, bool rank, bool ocr,
                   bool logOpPool, log4cpp::Category* pmain_cat);

    /// With w the weight, p and q the normalised external score and probability: (1 - w) p + w q, or p^(1 - w) q^w for
    /// a logarithmic pool. Logs the parts at DEBUG.
    double get_score(const std::string& lemma) const;
    bool operator()(const std::string& lemma1, const std::string& lemma2) const;

protected:
    std::map<std::string, double>* m_pmap_lemmatizer;
    std::map<std::string, double>* m_pmap_lm; ///< probabilities, not logarithms
    double m_sum_lmprobs;
    double m_sum_predicted_scores;
    double m_weight_lm; ///< from 0 to 1
    bool m_rank;        ///< the external scores are natural logarithms
    bool m_ocr;         ///< the candidates are word forms
    bool m_logOpPool;
    log4cpp::Category* m_pmain_cat;
};

} // namespace zelvor
