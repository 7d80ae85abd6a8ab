#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zelvor {

class BaseLexicalEntry;

/// A word of a text: how it is spelled, the entries that it was matched to, ranked candidates, and what was chosen
/// among them. Owns neither the entries nor the embedding vector that it refers to.
class WordFormContainer {
public:
    using Candidates = std::vector<std::pair<std::string, double>>; ///< (text, score)

    WordFormContainer() = default;
    WordFormContainer(const std::string& word_form) : m_word_form(word_form) {}
    WordFormContainer(const WordFormContainer&) = default;
    WordFormContainer(WordFormContainer&&) = default;
    WordFormContainer& operator=(const WordFormContainer&) = default;
    WordFormContainer& operator=(WordFormContainer&&) = default;
    virtual ~WordFormContainer() = default;

    virtual std::string get_word_form() const;
    virtual void set_word_form(const std::string& word_form);

    std::string get_rule_pos() const { return m_rule_pos; }
    void set_rule_pos(const std::string& rule_pos) { m_rule_pos = rule_pos; }
    std::string get_rule_lemma() const { return m_rule_lemma; }
    void set_rule_lemma(std::string rule_lemma) { m_rule_lemma = std::move(rule_lemma); }
    std::string get_number_pos() const { return m_number_pos; }
    void set_number_pos(const std::string& number_pos) { m_number_pos = number_pos; }
    std::string get_original_wordform() const { return m_original_wordform; }
    void set_original_wordform(const std::string& original_wordform) { m_original_wordform = original_wordform; }
    std::string get_best_lemma() const { return m_best_lemma; }
    void set_best_lemma(const std::string& best_lemma) { m_best_lemma = best_lemma; }
    std::string get_best_suffix() const { return m_best_suffix; }
    void set_best_suffix(const std::string& best_suffix) { m_best_suffix = best_suffix; }
    std::string get_best_pos() const { return m_best_pos; }
    void set_best_pos(const std::string& best_pos) { m_best_pos = best_pos; }
    std::string get_exclude_pos() const { return m_exclude_pos; }
    void set_exclude_pos(std::string exclude_pos) { m_exclude_pos = std::move(exclude_pos); }
    std::string get_stemming_suffix() const { return m_stemming_suffix; }
    void set_stemming_suffix(const std::string& stemming_suffix) { m_stemming_suffix = stemming_suffix; }
    std::string get_em_predicted_pos() const { return m_em_predicted_pos; }
    void set_em_predicted_pos(const std::string& em_predicted_pos) { m_em_predicted_pos = em_predicted_pos; }

    int* get_word_embeddings() const { return m_pword_embeddings; }
    void set_word_embeddings(int* pword_embeddings) { m_pword_embeddings = pword_embeddings; }
    /// The length of every embedding vector: one value for all containers.
    static int get_word_embeddings_size() { return m_word_embeddings_size; }
    static void set_word_embeddings_size(int size) { m_word_embeddings_size = size; }

    std::vector<BaseLexicalEntry*>& get_referred_lexical_entries() { return m_referred_lexical_entries; }
    void push_back_referred_lexical_entry(BaseLexicalEntry* pentry) { m_referred_lexical_entries.push_back(pentry); }

    /// Appends; nothing is sorted, compared or capped.
    void add_predicted_lemmas(const std::string& lemma, double score) { m_predicted_lemmas.emplace_back(lemma, score); }
    /// Keeps a list in descending score order in that order, with one pair per lemma: a new lemma goes behind its
    /// equals, a known one moves up to a higher score. A list that is out of order is not repaired.
    void merge_max_predicted_lemmas(const std::string& lemma, double score);
    Candidates::iterator begin_predicted_lemmas() { return m_predicted_lemmas.begin(); }
    Candidates::iterator end_predicted_lemmas() { return m_predicted_lemmas.end(); }
    void remove_predicted_lemmas() { m_predicted_lemmas.clear(); }

    void add_predicted_ocr_wf(const std::string& word_form, double score) {
        m_predicted_corrected_wfs.emplace_back(word_form, score);
    }
    Candidates::iterator begin_predicted_ocr_wf() { return m_predicted_corrected_wfs.begin(); }
    Candidates::iterator end_predicted_ocr_wf() { return m_predicted_corrected_wfs.end(); }

    void add_rule(std::string name) { m_rule_names.insert(std::move(name)); }
    std::set<std::string>::iterator rule_names_begin() const { return m_rule_names.begin(); }
    std::set<std::string>::iterator rule_names_end() const { return m_rule_names.end(); }

    /// Stores a value unless the name has one already.
    void store_feature_value(const std::string& name, const std::string& value) {
        m_map_feature_values.emplace(name, value);
    }
    /// The value of `name`; an unknown name is entered with the empty value, which then stays.
    std::string get_feature_value(const std::string& name) { return m_map_feature_values[name]; }

protected:
    std::set<std::string> m_rule_names;
    std::string m_original_wordform;
    std::string m_word_form;
    std::vector<BaseLexicalEntry*> m_referred_lexical_entries;
    std::string m_rule_pos;
    std::string m_rule_lemma;
    std::string m_number_pos;
    Candidates m_predicted_lemmas;
    Candidates m_predicted_corrected_wfs;
    std::string m_best_lemma;
    std::string m_best_suffix;
    std::string m_best_pos;
    std::string m_exclude_pos;
    std::string m_stemming_suffix;
    int* m_pword_embeddings = nullptr;

public:
    inline static int m_word_embeddings_size = 0;

protected:
    std::map<std::string, std::string> m_map_feature_values;
    std::string m_em_predicted_pos;
};

} // namespace zelvor
