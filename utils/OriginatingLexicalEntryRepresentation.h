#pragma once

#include "utils/BaseLexicalEntry.h"

#include <algorithm>
#include <cstddef>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zelvor {

/// True when no element of *a is in *b, and when either is null.
template<typename T>
bool intersection_empty(const std::set<T>* a, const std::set<T>* b) {
    return !a || !b || std::ranges::none_of(*a, [b](const T& value) { return b->contains(value); });
}
template<typename T>
bool intersection_empty(std::set<T>* a, std::set<T>* b) {
    return intersection_empty(static_cast<const std::set<T>*>(a), static_cast<const std::set<T>*>(b));
}

/// An entry that records where it came from: the lemmas, forms and tags of the entries folded into it (originating
/// sets) and the names of the sources that attest each of these three (originating source sets). All sets ascend in
/// byte order. Constructors leave them empty; readers and merges fill them.
class OriginatingLexicalEntryRepresentation : public BaseLexicalEntry {
public:
    using Values = std::set<std::string>;
    using iterator = Values::iterator;

    OriginatingLexicalEntryRepresentation() = default;
    OriginatingLexicalEntryRepresentation(const std::string& lemma, const std::string& word_form,
                                          const std::string& pos)
        : BaseLexicalEntry(lemma, word_form, pos) {}

    /// Tokens 0 to 3 as in BaseLexicalEntry, then the sources of the word form, of the lemma and of the part of speech,
    /// each a comma list that replaces the set. A set whose token is missing stays as it was.
    void parse_tokens(const std::vector<std::string>& tokens) override;

    /// Folds this entry into the first one under its lemma with the same stored word form and part of speech: the
    /// originating sets are united, the source sets are not; returns false, and the caller keeps this entry. Without
    /// such an entry both containers take this one, which their owner then owns; returns true. Null entries are passed
    /// over; an entry that the containers hold already is folded into itself: false. extended_comparison has no effect
    /// here.
    virtual bool merge(std::vector<OriginatingLexicalEntryRepresentation*>& vec_lexical_entry_representations,
                       std::multimap<std::string, OriginatingLexicalEntryRepresentation*>& map_lexical_entries,
                       bool extended_comparison);

    virtual iterator originating_lemmas_begin() const { return m_originating_lemmas.begin(); }
    virtual iterator originating_lemmas_end() const { return m_originating_lemmas.end(); }
    virtual iterator originating_word_forms_begin() const { return m_originating_word_forms.begin(); }
    virtual iterator originating_word_forms_end() const { return m_originating_word_forms.end(); }
    virtual iterator originating_pos_begin() const { return m_originating_pos.begin(); }
    virtual iterator originating_pos_end() const { return m_originating_pos.end(); }
    virtual void insert_originating_lemmas(const std::string& str) { m_originating_lemmas.insert(str); }
    virtual void insert_originating_wordforms(const std::string& str) { m_originating_word_forms.insert(str); }
    virtual void insert_originating_pos(const std::string& str) { m_originating_pos.insert(str); }
    virtual std::size_t size_originating_lemmas() const { return m_originating_lemmas.size(); }
    virtual std::size_t size_originating_word_forms() const { return m_originating_word_forms.size(); }
    virtual std::size_t size_originating_pos() const { return m_originating_pos.size(); }

    virtual iterator originating_lemmas_source_begin() const { return m_originating_source_lemmas.begin(); }
    virtual iterator originating_lemmas_source_end() const { return m_originating_source_lemmas.end(); }
    virtual iterator originating_word_forms_source_begin() const { return m_originating_source_word_forms.begin(); }
    virtual iterator originating_word_forms_source_end() const { return m_originating_source_word_forms.end(); }
    virtual iterator originating_pos_source_begin() const { return m_originating_source_pos.begin(); }
    virtual iterator originating_pos_source_end() const { return m_originating_source_pos.end(); }
    virtual void insert_originating_source_lemmas(const std::string& str) { m_originating_source_lemmas.insert(str); }
    virtual void insert_originating_source_wordforms(const std::string& str) {
        m_originating_source_word_forms.insert(str);
    }
    virtual void insert_originating_source_pos(const std::string& str) { m_originating_source_pos.insert(str); }
    virtual std::size_t size_originating_source_lemmas() const { return m_originating_source_lemmas.size(); }
    virtual std::size_t size_originating_source_word_forms() const { return m_originating_source_word_forms.size(); }
    virtual std::size_t size_originating_source_pos() const { return m_originating_source_pos.size(); }

    bool contains_originating_lemmas(const std::string& str) const { return m_originating_lemmas.contains(str); }
    bool contains_originating_word_forms(const std::string& str) const {
        return m_originating_word_forms.contains(str);
    }
    bool contains_originating_pos(const std::string& str) const { return m_originating_pos.contains(str); }
    bool contains_originating_source_lemmas(const std::string& str) const {
        return m_originating_source_lemmas.contains(str);
    }
    bool contains_originating_source_word_forms(const std::string& str) const {
        return m_originating_source_word_forms.contains(str);
    }
    bool contains_originating_source_pos(const std::string& str) const {
        return m_originating_source_pos.contains(str);
    }

    bool intersection_empty_originating_lemmas(Values* other) const {
        return intersection_empty(&m_originating_lemmas, other);
    }
    bool intersection_empty_originating_word_forms(Values* other) const {
        return intersection_empty(&m_originating_word_forms, other);
    }
    bool intersection_empty_originating_pos(Values* other) const {
        return intersection_empty(&m_originating_pos, other);
    }
    bool intersection_empty_originating_source_lemmas(Values* other) const {
        return intersection_empty(&m_originating_source_lemmas, other);
    }
    bool intersection_empty_originating_source_word_forms(Values* other) const {
        return intersection_empty(&m_originating_source_word_forms, other);
    }
    bool intersection_empty_originating_source_pos(Values* other) const {
        return intersection_empty(&m_originating_source_pos, other);
    }

    /// How many sources the current merge run has; a printed set that holds as many values reads "all". 0: never.
    inline static unsigned int num_sources = 0;

protected:
    Values m_originating_lemmas;
    Values m_originating_word_forms;
    Values m_originating_pos;
    Values m_originating_source_lemmas;
    Values m_originating_source_word_forms;
    Values m_originating_source_pos;

    friend std::ostream& operator<<(std::ostream& os, OriginatingLexicalEntryRepresentation& entry);
};

/// The entry as BaseLexicalEntry prints it, then its three originating sets, lemmas first and parts of speech last
/// (comma lists, or "all"), separated by tabs; no line end.
std::ostream& operator<<(std::ostream& os, OriginatingLexicalEntryRepresentation& entry);

} // namespace zelvor
