#pragma once

#include "utils/EnglishLexicalEntry.h"

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

enum Time_val : int { present, perfect, plusquam, imperfect, future, future2 };
enum Mood : int { indicative, subjunctive, infinitive, imperative, gerund, gerundive, participle, supina };
enum Gender : int { masculine, feminine, neuter, gnone };
enum Case : int { vocative, nominative, genitive, ablative, dative, accusative, locative, none };

/// A row of a conjugation table. Persons other than 1, 2 and 3 mean none; stem_index counts from 1.
struct ConjugationEntry {
    int person;
    bool sg;
    Time_val tense_val;
    Mood mood;
    bool active;
    std::string suffix;
    int stem_index;
    std::string pos;
    Gender gender;
    Case cas;
};

/// A row of a declension table; stem_index counts from 1.
struct DeclensionEntry {
    Case cas;
    bool sg;
    std::string suffix;
    int stem_index;
    Gender gender;
};

/// A Latin word form with all its categories, and what the lexicon notes of it. Ids and frequencies stay text.
class LexicalEntry : public EnglishLexicalEntry {
public:
    LexicalEntry() = default;
    LexicalEntry(const std::string& lemma, const std::string& word_form, const std::string& pos)
        : EnglishLexicalEntry(lemma, word_form, pos) {}

    // A paradigm row applied to a lemma. The row is read and not kept; a null row gives an empty entry. The
    // superlemma becomes lemma + "@" + part of speech. Without stems, a suffix "-at" reads back as the lemma and "at".
    // With stems, the word form is stem + separator + suffix, stored as it stands. An index outside the stems throws
    // std::out_of_range, but a declension row falls back by two from the third stem or a later one, and has an empty
    // word form where it lacks the first or second.
    LexicalEntry(ConjugationEntry* pconjugation_entry, const std::string& lemma);
    LexicalEntry(DeclensionEntry* pdeclension_entry, const std::string& lemma, const std::string& gender,
                 const std::string& pos);
    LexicalEntry(ConjugationEntry* pconjugation_entry, const std::string& lemma, const std::vector<std::string>& stems,
                 const std::string& conjugation_type, const std::string& separator);
    LexicalEntry(DeclensionEntry* pdeclension_entry, const std::string& lemma, const std::vector<std::string>& stems,
                 const std::string& declension_type, const std::string& gender, const std::string& pos,
                 const std::string& sep);

    std::string get_superlemma() const { return m_superlemma; }
    void set_superlemma(const std::string& superlemma) { m_superlemma = superlemma; }
    std::string get_word_form_id() const { return m_word_form_id; }
    std::string get_superlemma_pos() const { return m_superlemma_pos; }
    void set_superlemma_pos(const std::string& superlemma_pos) { m_superlemma_pos = superlemma_pos; }
    std::string get_conjugation_type() const { return m_conjugation_type; }
    void set_conjugation_type(const std::string& conjugation_type_arg) { m_conjugation_type = conjugation_type_arg; }
    std::string get_declension_type() const { return m_declension_type; }
    void set_declension_type(const std::string& declension_type) { m_declension_type = declension_type; }
    std::string get_pronoun_type() const { return m_pronoun; }
    void set_pronoun_type(const std::string& pronoun_type) { m_pronoun = pronoun_type; }
    std::string get_verb_type() const { return m_verb_type; }
    void set_verb_type(const std::string& verb_type) { m_verb_type = verb_type; }
    std::string get_voice() const { return m_voice; }
    void set_voice(const std::string& voice) { m_voice = voice; }
    std::string get_function() const { return m_function; }
    std::string get_source() const { return m_source; }
    std::string get_corpus_frequency() const { return m_corpus_frequency; }
    void set_corpus_frequency(const std::string& corpus_frequency) { m_corpus_frequency = corpus_frequency; }
    std::string get_text_frequency() const { return m_text_frequency; }
    void set_text_frequency(const std::string& text_frequency) { m_text_frequency = text_frequency; }
    std::string get_created_by() const { return m_created_by; }
    void set_created_by(const std::string& created_by) { m_created_by = created_by; }
    std::string get_last_change_by() const { return m_last_change_by; }
    void set_last_change_by(const std::string& last_change_by) { m_last_change_by = last_change_by; }
    std::string get_error_reported() const { return m_error_reported; }
    void set_error_reported(const std::string& error_reported) { m_error_reported = error_reported; }
    std::string get_lemma_source() const { return m_lemma_source; }
    void set_lemma_source(const std::string& lemma_source) { m_lemma_source = lemma_source; }
    std::string get_case_gender_number() const { return m_case_gender_number; }
    void set_case_gender_number(std::string case_gender_number) {
        m_case_gender_number = std::move(case_gender_number);
    }

    static void set_num_sources(int num_sources_arg) { num_sources = static_cast<unsigned int>(num_sources_arg); }

    bool contains_originating_lemmas(const std::string& str) const { return m_originating_lemmas.contains(str); }
    bool contains_originating_word_forms(const std::string& str) const {
        return m_originating_word_forms.contains(str);
    }
    bool contains_originating_pos(const std::string& str) const { return m_originating_pos.contains(str); }

    /// A new entry, owned by the caller, with this one's form, lemma, parts of speech and categories, but for mood,
    /// gender and voice, and without ids, provenance and bookkeeping.
    LexicalEntry* clone();

    // One line of the Latin lexicon, fields separated by "#" (see docs/formats.md), read into a fresh entry. A line
    // with too few fields (22, 22 and 18 are needed) throws std::out_of_range after storing those before the missing
    // one.
    void parse_latin(const std::string& line);                ///< all fields
    void parse_latin_tagger(const std::string& line);         ///< what a tagger needs; gerunds and gerundives become V
    void parse_latin_tagger_reduced(const std::string& line); ///< a coarse tag set: finer categories are emptied

    /// A word element of a treebank in the layout of the Latin Dependency Treebank: form, lemma (its last byte is a
    /// homonym mark and is cut, whatever it is) and the first letter of postag. Prints "pos: " and "mpos: " lines.
    void parse_ldt(xmlpp::Element* pel, bool autocorrect);
    /// A word element of a TEI text: type, lemma, function, and its own text without that of child elements.
    void parse_tei(xmlpp::Element* pelement);
    void parse_german(const std::string& line); ///< reserved; says so on standard error

    /// Writes all 31 fields of the Latin lexicon line, separated by "\t#", and a line end. Empty fields are written
    /// empty, the word form spelled out.
    void export_latin(std::ostream& os);
    /// A shorter layout of 18 fields, each followed by "\t#".
    void export_german(std::ostream& os);

    /// Folds this entry into the first one of the lexicon (keyed by lemma) with the same stored word form and a part of
    /// speech that does not contradict; with extended_comparison no other category may contradict either (an empty
    /// value contradicts nothing). That entry then takes the three source sets and fills its empty fields, mood, tense
    /// and voice excepted; returns false, and the caller keeps this entry. Otherwise both containers take this one and
    /// their owner owns it; returns true. Map values that are no Latin entries are passed over. An entry that they hold
    /// already is folded into itself: false.
    bool merge(std::vector<BaseLexicalEntry*>& vec_lexical_entry_representations,
               std::multimap<std::string, BaseLexicalEntry*>& map_lexical_entries, bool extended_comparison);

protected:
    std::string m_superlemma;
    std::string m_word_form_id;
    bool m_is_sep = false;
    std::string m_superlemma_id;
    std::string m_superlemma_name;
    std::string m_superlemma_pos;
    std::string m_lemma_id;
    std::string m_conjugation_type;
    std::string m_declension_type;
    std::string m_pronoun;
    std::string m_verb_type;
    std::string m_voice;
    std::string m_function;
    std::string m_source;
    std::string m_corpus_frequency;
    std::string m_text_frequency;
    std::string m_created_by;
    std::string m_last_change_by;
    std::string m_error_reported;
    std::string m_lemma_source;
    std::string m_case_gender_number;

private:
    struct Tables; ///< which fields a line holds, a clone copies, and a merge compares and fills
    std::vector<std::string_view> read_line(const std::string& line, int reader); ///< returns the fields of the line
    void apply(const ConjugationEntry& row);
    void apply(const DeclensionEntry& row, const std::string& gender, const std::string& pos);
    void set_superlemma_from_lemma();
    bool agrees_with(const LexicalEntry& other, bool extended_comparison) const; ///< whatever the word forms are
    void fold_into(LexicalEntry& stored) const;
    friend class Lexicon; // which finds the entry to fold into in its own way
};

/// True when either value is empty (unknown) or both are equal.
bool unifiable(const std::string& s1, const std::string& s2);

} // namespace zelvor
