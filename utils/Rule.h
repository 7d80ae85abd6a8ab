#pragma once

#include <map>
#include <string>
#include <vector>

namespace zelvor {

class EnglishLexicalEntry;

/// A suffix rule: what ends with the premise has it replaced by the conclusion. Works on bytes, without case folding.
class Rule {
public:
    using Features = std::map<std::string, std::string>; ///< feature name to value

    /// Note the order. The feature sets are shared by the rules of a rule set and not owned; null: none.
    Rule(std::string conclusion_arg, std::string premise_arg, std::vector<Features*>* pvector_pmap_features);

    /// The input with the premise at its end replaced; an empty premise always applies. Empty: the rule does not apply
    /// (or leaves nothing).
    std::string apply_rule(const std::string& input) const;

    int feature_vector_size() const; ///< how many feature sets; 0 without any

    /// Sets the features of one set in the entry: COMPARISON_DEGREE, NUMERUS, PERSON, MOOD, TENSE, WFPOS (the form's
    /// own tag) and CASE. Other names are ignored. Throws std::out_of_range for a number outside the sets; does nothing
    /// for a rule without any.
    void fill_features(EnglishLexicalEntry& english_lexical_entry, int feature_set_number) const;

    void apply_rule_features(const std::string& input, EnglishLexicalEntry* plexical_english_entry) const; ///< nothing

    const std::string& get_conclusion() const { return m_conclusion; }
    const std::string& get_premise() const { return m_premise; }

protected:
    std::string m_conclusion;
    std::string m_premise;
    std::vector<Features*>* m_pvector_pmap_features;
};

} // namespace zelvor
