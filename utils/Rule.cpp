#include "utils/Rule.h"

#include "utils/EnglishLexicalEntry.h"

#include <utility>

namespace zelvor {

namespace {

using Setter = void (EnglishLexicalEntry::*)(const std::string&);

struct NamedSetter {
    const char* name;
    Setter setter;
};

constexpr NamedSetter SETTERS[] = {
    {"CASE", &EnglishLexicalEntry::set_case},     {"COMPARISON_DEGREE", &EnglishLexicalEntry::set_comparison_degree},
    {"MOOD", &EnglishLexicalEntry::set_mood},     {"NUMERUS", &EnglishLexicalEntry::set_number},
    {"PERSON", &EnglishLexicalEntry::set_person}, {"TENSE", &EnglishLexicalEntry::set_tense},
    {"WFPOS", &EnglishLexicalEntry::set_pos},
};

} // namespace

Rule::Rule(std::string conclusion_arg, std::string premise_arg, std::vector<Features*>* pvector_pmap_features)
    : m_conclusion(std::move(conclusion_arg)), m_premise(std::move(premise_arg)),
      m_pvector_pmap_features(pvector_pmap_features) {}

std::string Rule::apply_rule(const std::string& input) const {
    return input.ends_with(m_premise) ? input.substr(0, input.size() - m_premise.size()) + m_conclusion : "";
}

int Rule::feature_vector_size() const {
    return m_pvector_pmap_features ? static_cast<int>(m_pvector_pmap_features->size()) : 0;
}

void Rule::fill_features(EnglishLexicalEntry& english_lexical_entry, int feature_set_number) const {
    if (!m_pvector_pmap_features)
        return;
    const Features* const features = m_pvector_pmap_features->at(static_cast<std::size_t>(feature_set_number));
    if (!features)
        return;
    for (const auto& [name, setter] : SETTERS)
        if (const auto feature = features->find(name); feature != features->end())
            (english_lexical_entry.*setter)(feature->second);
}

void Rule::apply_rule_features(const std::string&, EnglishLexicalEntry*) const {}

} // namespace zelvor
