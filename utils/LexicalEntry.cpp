#include "utils/LexicalEntry_tables.h"
#include "utils/common_utils/object_pool.h"

#include <new>

namespace zelvor {

namespace {

constinit ObjectPool pool(sizeof(LexicalEntry));

/// Larger objects are those of derived classes. Address and leak checks need to see every object by itself.
constexpr bool is_pooled(std::size_t size) {
#ifdef __SANITIZE_ADDRESS__
    return size == 0;
#else
    return size == sizeof(LexicalEntry);
#endif
}

} // namespace

void* LexicalEntry::operator new(std::size_t size) { return is_pooled(size) ? pool.allocate() : ::operator new(size); }

void LexicalEntry::operator delete(void* pentry, std::size_t size) noexcept {
    if (is_pooled(size))
        pool.release(pentry);
    else
        ::operator delete(pentry, size);
}

LexicalEntry* LexicalEntry::clone() {
    auto* const copy = new LexicalEntry();
    copy->set_pos(m_pos);
    copy->set_lemma(get_lemma());
    copy->set_word_form(get_word_form());
    for (const Tables::Field field : Tables::CLONED)
        copy->*field = this->*field;
    return copy;
}

bool unifiable(const std::string& s1, const std::string& s2) { return s1.empty() || s2.empty() || s1 == s2; }

} // namespace zelvor
