#include "utils/WordFormContainer.h"

#include <algorithm>

namespace zelvor {

std::string WordFormContainer::get_word_form() const { return m_word_form; }

void WordFormContainer::set_word_form(const std::string& word_form) { m_word_form = word_form; }

void WordFormContainer::merge_max_predicted_lemmas(const std::string& lemma, double score) {
    const auto is_lemma = [&](const auto& candidate) { return candidate.first == lemma; };
    const auto place = std::ranges::find_if(
        m_predicted_lemmas, [&](const auto& candidate) { return is_lemma(candidate) || score > candidate.second; });
    if (place != m_predicted_lemmas.end() && is_lemma(*place)) {
        place->second = std::max(place->second, score);
        return;
    }
    const auto index = place - m_predicted_lemmas.begin();
    std::pair candidate(lemma, score); // before the list changes: the lemma may be a part of it
    if (const auto lower = std::find_if(place, m_predicted_lemmas.end(), is_lemma); lower != m_predicted_lemmas.end())
        m_predicted_lemmas.erase(lower);
    m_predicted_lemmas.insert(m_predicted_lemmas.begin() + index, std::move(candidate));
}

} // namespace zelvor
