#include "utils/LexicalEntry_tables.h"

#include <algorithm>

namespace zelvor {

bool LexicalEntry::agrees_with(const LexicalEntry& other, bool extended_comparison) const {
    const auto agree = [&](Tables::Field field) { return unifiable(this->*field, other.*field); };
    return m_lemma == other.m_lemma && agree(&LexicalEntry::m_pos) &&
           (!extended_comparison || std::ranges::all_of(Tables::COMPARED, agree));
}

void LexicalEntry::fold_into(LexicalEntry& stored) const {
    for (const Tables::Set set : Tables::SOURCES)
        (stored.*set).insert((this->*set).begin(), (this->*set).end());
    const auto fill = [&](Tables::Field field) {
        if ((stored.*field).empty())
            stored.*field = this->*field;
    };
    std::ranges::for_each(Tables::FILLED, fill);
    std::ranges::for_each(Tables::BOOKKEEPING, fill);
}

bool LexicalEntry::merge(std::vector<BaseLexicalEntry*>& vec_lexical_entry_representations,
                         std::multimap<std::string, BaseLexicalEntry*>& map_lexical_entries, bool extended_comparison) {
    // Most candidates differ in the stored form: it is compared first, before a cast, and touches one part of the
    // entry.
    constexpr auto stored_form = &LexicalEntry::m_word_form;
    const auto [begin, end] = map_lexical_entries.equal_range(m_lemma);
    for (auto it = begin; it != end; ++it) {
        if (!it->second || it->second->*stored_form != m_word_form)
            continue;
        auto* const stored = dynamic_cast<LexicalEntry*>(it->second);
        if (!stored || !agrees_with(*stored, extended_comparison))
            continue;
        fold_into(*stored);
        return false;
    }
    vec_lexical_entry_representations.push_back(this);
    map_lexical_entries.emplace_hint(end, m_lemma, this);
    return true;
}

} // namespace zelvor
