#include "utils/LexicalEntry_tables.h"

namespace zelvor {

LexicalEntry* LexicalEntry::clone() {
    auto* const copy = new LexicalEntry();
    copy->set_pos(m_pos);
    copy->set_lemma(get_lemma());
    copy->set_word_form(get_word_form());
    for (const Tables::Field field : Tables::CLONED)
        copy->*field = this->*field;
    return copy;
}

bool unifiable(const std::string& s1, const std::string& s2) { return null_equals(s1, s2); }

} // namespace zelvor
