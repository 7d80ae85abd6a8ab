#pragma once

#include "utils/OriginatingLexicalEntryRepresentation.h"

#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelvor {

/// An entry of the English lexicon. A feature holds one value or several joined with "," (ascending, without repeats,
/// where combine() made it); the empty string means that it is not set.
class EnglishLexicalEntry : public OriginatingLexicalEntryRepresentation {
public:
    EnglishLexicalEntry() = default;
    EnglishLexicalEntry(const std::string& lemma, const std::string& word_form, const std::string& pos)
        : OriginatingLexicalEntryRepresentation(lemma, word_form, pos) {}

    std::string get_case() const { return m_case; }
    void set_case(const std::string& cas) { m_case = cas; }
    std::string get_comparison_degree() const { return m_comparison_degree; }
    void set_comparison_degree(const std::string& comparison_degree) { m_comparison_degree = comparison_degree; }
    std::string get_mood() const { return m_mood; }
    void set_mood(const std::string& mood) { m_mood = mood; }
    std::string get_number() const { return m_number; }
    void set_number(const std::string& number) { m_number = number; }
    std::string get_tense() const { return m_tense; }
    void set_tense(const std::string& tense) { m_tense = tense; }
    std::string get_person() const { return m_person; }
    void set_person(const std::string& person) { m_person = person; }
    std::string get_gender() const { return m_gender; }
    void set_gender(std::string gender) { m_gender = std::move(gender); }
    std::string get_suffix1() const { return m_suffix1; }
    void set_suffix1(const std::string& suffix) { m_suffix1 = suffix; }
    std::string get_suffix2() const { return m_suffix2; }
    void set_suffix2(const std::string& suffix) { m_suffix2 = suffix; }
    std::string get_suffix3() const { return m_suffix3; }
    void set_suffix3(const std::string& suffix) { m_suffix3 = suffix; }
    std::string get_semtype() const { return m_semtype; }
    void set_semtype(const std::string& semtype) { m_semtype = semtype; }
    int get_num_tokens() const { return m_num_tokens; } ///< columns of the line that was parsed last

    /// Empties word form and lemma, and all features but gender and semtype; suffixes, tags and provenance stay.
    void reset();

    /// Reads an export line that the caller has split at single tabs, empty columns kept (parse() would drop them).
    /// Features whose column is missing become empty; the suffixes stay.
    void parse_tokens(const std::vector<std::string>& tokens) override;

    /// Writes one line of 15 tab-separated columns (see headline()) per mood of the entry, and flushes. Writes
    /// nothing to a null stream, and nothing of an entry that lacks lemma, form or part of speech.
    void export_entry(std::ostream* pofs) const;
    std::string to_string() const; ///< what export_entry writes

    /// The two comma lists as one, ascending and without repeats; equal lists and a lone one come back as they are.
    std::string combine(std::string l1, std::string l2) const;

    /// Folds this entry into the first one of the lexicon (keyed by lemma) that describes the same word form: same
    /// lemma, spelled-out word form and part of speech, with extended_comparison also the same tense, number, mood,
    /// case, person and part of speech of the lemma, and semtypes that do not contradict. That entry then takes all six
    /// provenance sets and the combined values of case, comparison degree, number, lemma, mood, part of speech of
    /// the lemma and semtype; returns false, and the caller keeps this entry. Otherwise both containers take this one
    /// and their owner owns it; returns true. Map values that are no English entries are passed over. An entry that
    /// they hold already is folded into itself: false. Not virtual: called through an EnglishLexicalEntry*, it merges a
    /// LexicalEntry as an English one.
    bool merge(std::vector<BaseLexicalEntry*>& vec_lexical_entry_representations,
               std::multimap<std::string, BaseLexicalEntry*>& map_lexical_entries, bool extended_comparison);

    std::string get_longest_suffix() const; ///< suffix 3, else 2, else 1

protected:
    std::string m_case;
    std::string m_comparison_degree;
    std::string m_mood;
    std::string m_number;
    std::string m_tense;
    std::string m_person;
    std::string m_gender;
    std::string m_suffix1;
    std::string m_suffix2;
    std::string m_suffix3;
    std::string m_semtype;
    int m_num_tokens = 0;

private:
    struct Tables; ///< which fields stand in which column and take part in which step of a merge
    bool describes_same_word_form(const EnglishLexicalEntry& other, bool extended_comparison) const;

    friend std::string headline();
};

/// Whether the values do not contradict: the empty one agrees with all.
bool null_equals(const std::string& s1, const std::string& s2);

/// The header of an export file: "#" and the 15 column names, tab-separated, no line end.
std::string headline();

} // namespace zelvor
