#pragma once

#include "utils/NgramModel.h"
#include "utils/WordFormContainer.h"

#include <glibmm/ustring.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace log4cpp {
class Category;
}

/// The choice of one lemma or spelling among the candidates of an external program (ranges of (text, score) pairs), by
/// what the lexicon confirms and what a language model expects after the previous choices.
namespace zelvor {

class BaseLexicalEntry;

using CandidateIterator = WordFormContainer::Candidates::const_iterator;

/// Appends to intersection_lemmas the candidates that the lexicon has, perhaps in lower case, in their order; in Latin
/// ("la") also "sum" when the lexicon has it. Where that leaves none: all lexicon lemmas, or without those, all
/// candidates. Each candidate's first score goes to the map under its own spelling: one that was lower-cased has none.
void combine_lemmas(CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted,
                    std::set<std::string>& lexicon_lemmas, const std::string& language,
                    std::map<std::string, double>& map_lemmatizer_score, std::vector<std::string>& intersection_lemmas);

/// The same for word forms, which are keys of the lexicon; sum_ocr_scores grows by the scores of the confirmed ones.
/// Where there are none, all candidates are taken and the sum stays. The language does not matter.
void combine_wfs(CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted,
                 const std::multimap<std::string, BaseLexicalEntry*>& map_lexicon, std::string& language,
                 std::map<std::string, double>& map_ocr_score, std::vector<std::string>& intersection_wfs,
                 double& sum_ocr_scores);

/// The candidate with the highest sum of half its score and half its share of the model's probability; of equals the
/// first; "" when there is none. A word that the vocabulary lacks scores as "<unk>"; without a model, all probabilities
/// are equal. Prints "unknown lemma: " and the candidate where its lower-case form was tried in vain, too.
std::string select_lemma(const std::vector<std::string>& previous_lemmas, std::set<std::string>& lexicon_lemmas,
                         CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted, Vocab* pvocab,
                         LM* plm, std::string current_language, log4cpp::Category* pmain_cat);

/// The word form with the highest product p^0.75 q^0.25 of the two shares. With `rank` the scores are natural
/// logarithms; they are still divided by the sum of the logarithms: where that is negative, no candidate beats another,
/// and the first one wins. Without it, a negative share has no power, and the choice is unspecified.
std::string select_ocr_wf(const std::vector<std::string>& previous_wfs,
                          std::multimap<std::string, BaseLexicalEntry*> map_lexicon,
                          CandidateIterator iter_begin_predicted, CandidateIterator iter_end_predicted, Vocab* pvocab,
                          LM* plm, std::string current_language, bool rank, log4cpp::Category* pmain_cat);

/// The rest of word_form from the first difference with lemma; "" when they differ at once. Of a word form that begins
/// with the whole lemma, one character after it is left out: am, amat gives "t".
Glib::ustring get_suffix(const Glib::ustring& lemma, const Glib::ustring& word_form);

/// The part of speech that all entries with this lemma have in common; "" when there are none or several.
std::string get_pos(std::vector<BaseLexicalEntry*>& vec_lexical_entries, const std::string& lemma);

} // namespace zelvor
