#include "utils/OriginatingLexicalEntryRepresentation.h"

#include "utils/common_utils/text.h"

#include <ostream>

namespace zelvor {

void OriginatingLexicalEntryRepresentation::parse_tokens(const std::vector<std::string>& tokens) {
    BaseLexicalEntry::parse_tokens(tokens);
    // The order of the line: word form before lemma.
    Values* const columns[] = {&m_originating_source_word_forms, &m_originating_source_lemmas,
                               &m_originating_source_pos};
    for (std::size_t i = 0; i < std::size(columns) && i + 4 < tokens.size(); ++i) {
        columns[i]->clear();
        tokenize_arg_set(tokens[i + 4], ",", *columns[i]);
    }
}

bool OriginatingLexicalEntryRepresentation::merge(
    std::vector<OriginatingLexicalEntryRepresentation*>& vec_lexical_entry_representations,
    std::multimap<std::string, OriginatingLexicalEntryRepresentation*>& map_lexical_entries,
    bool /*extended_comparison*/) {
    const auto [begin, end] = map_lexical_entries.equal_range(m_lemma);
    for (auto it = begin; it != end; ++it) {
        OriginatingLexicalEntryRepresentation* const stored = it->second;
        if (!stored || stored->m_lemma != m_lemma || stored->m_word_form != m_word_form || stored->m_pos != m_pos)
            continue;
        stored->m_originating_lemmas.insert(m_originating_lemmas.begin(), m_originating_lemmas.end());
        stored->m_originating_word_forms.insert(m_originating_word_forms.begin(), m_originating_word_forms.end());
        stored->m_originating_pos.insert(m_originating_pos.begin(), m_originating_pos.end());
        return false;
    }
    vec_lexical_entry_representations.push_back(this);
    map_lexical_entries.emplace_hint(end, m_lemma, this);
    return true;
}

std::ostream& operator<<(std::ostream& os, OriginatingLexicalEntryRepresentation& entry) {
    BaseLexicalEntry base(entry);
    os << base;
    const char* separator = "";
    for (auto* values : {&entry.m_originating_lemmas, &entry.m_originating_word_forms, &entry.m_originating_pos}) {
        os << separator;
        separator = "\t";
        const unsigned int sources = OriginatingLexicalEntryRepresentation::num_sources;
        if (sources != 0 && values->size() >= sources)
            os << "all";
        else
            write_set(*values, os);
    }
    return os;
}

} // namespace zelvor
