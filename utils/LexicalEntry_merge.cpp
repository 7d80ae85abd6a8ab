#include "utils/LexicalEntry_tables.h"

#include <algorithm>

namespace zelvor {

bool LexicalEntry::is_mergeable(const LexicalEntry& other, bool extended_comparison) const {
    const auto agree = [&](Tables::Field field) { return unifiable(this->*field, other.*field); };
    // The word form first: most candidates differ in it, and then only one part of a large entry is touched.
    return m_word_form == other.m_word_form && m_lemma == other.m_lemma && agree(&LexicalEntry::m_pos) &&
           (!extended_comparison || std::ranges::all_of(Tables::COMPARED, agree));
}

bool LexicalEntry::merge(std::vector<BaseLexicalEntry*>& vec_lexical_entry_representations,
                         std::multimap<std::string, BaseLexicalEntry*>& map_lexical_entries, bool extended_comparison) {
    const auto [begin, end] = map_lexical_entries.equal_range(m_lemma);
    for (auto it = begin; it != end; ++it) {
        auto* const stored = dynamic_cast<LexicalEntry*>(it->second);
        if (!stored || !is_mergeable(*stored, extended_comparison))
            continue;
        for (const Tables::Set set : Tables::SOURCES)
            (stored->*set).insert((this->*set).begin(), (this->*set).end());
        const auto fill = [&](Tables::Field field) {
            if ((stored->*field).empty())
                stored->*field = this->*field;
        };
        std::ranges::for_each(Tables::FILLED, fill);
        std::ranges::for_each(Tables::BOOKKEEPING, fill);
        return false;
    }
    vec_lexical_entry_representations.push_back(this);
    map_lexical_entries.emplace_hint(end, m_lemma, this);
    return true;
}

} // namespace zelvor
