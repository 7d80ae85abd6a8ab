#include "utils/LexicalEntry.h"

#include <cstddef>
#include <span>

namespace zelvor {

namespace {

// The texts of the enumerations, in their order.
constexpr const char* TENSES[] = {"PRESENT", "PERFECT", "PLUPERFECT", "IMPERFECT", "FUTURE", "FUTURE_PERFECT"};
constexpr const char* MOODS[] = {"INDICATIVE", "SUBJUNCTIVE", "INFINITIVE", "IMPERATIVE",
                                 "GERUND",     "GERUNDIVE",   "PARTICIPLE", "SUPINE"};
constexpr const char* GENDERS[] = {"MASCULINE", "FEMININE", "NEUTER"};
constexpr const char* CASES[] = {"VOCATIVE", "NOMINATIVE", "GENITIVE", "ABLATIVE", "DATIVE", "ACCUSATIVE", "LOCATIVE"};
constexpr const char* PERSONS[] = {"FIRST_PERSON", "SECOND_PERSON", "THIRD_PERSON"};

/// The text of a value, which may come from outside; empty for what is not in the list.
const char* text_of(std::span<const char* const> texts, long long value) {
    return value >= 0 && value < std::ssize(texts) ? texts[static_cast<std::size_t>(value)] : "";
}

const char* number_text(bool singular) { return singular ? "SINGULAR" : "PLURAL"; }

bool has_number(Mood mood) { return mood != infinitive && mood != participle && mood != supina; }

/// stems[index - 1], bounds tested.
const std::string& stem_at(const std::vector<std::string>& stems, long long index) {
    return stems.at(static_cast<std::size_t>(index - 1));
}

/// Kept: a row that names a third stem or a later one falls back by two where the lemma has fewer.
std::string declined_form(const DeclensionEntry& row, const std::vector<std::string>& stems, const std::string& sep) {
    const long long index = row.stem_index;
    if (index <= std::ssize(stems))
        return stem_at(stems, index) + sep + row.suffix;
    return index > 2 ? stem_at(stems, index - 2) + sep + row.suffix : std::string();
}

} // namespace

void LexicalEntry::apply(const ConjugationEntry& row) {
    if (has_number(row.mood))
        m_number = number_text(row.sg);
    m_mood = text_of(MOODS, row.mood);
    m_pos = row.pos;
    m_lemma_pos = "V";
    m_superlemma_pos = "V";
    m_voice = row.active ? "ACTIVE" : "PASSIVE";
    m_gender = text_of(GENDERS, row.gender);
    m_person = text_of(PERSONS, row.person - 1LL);
    m_tense = text_of(TENSES, row.tense_val);
    m_case = text_of(CASES, row.cas);
}

void LexicalEntry::apply(const DeclensionEntry& row, const std::string& gender, const std::string& pos) {
    m_case = text_of(CASES, row.cas);
    m_gender = gender.empty() ? text_of(GENDERS, row.gender) : gender;
    m_number = number_text(row.sg);
    m_pos = pos;
    m_lemma_pos = pos;
    m_superlemma_pos = pos;
}

void LexicalEntry::set_superlemma_from_lemma() { m_superlemma = m_lemma + "@" + m_lemma_pos; }

LexicalEntry::LexicalEntry(ConjugationEntry* pconjugation_entry, const std::string& lemma) {
    if (!pconjugation_entry)
        return;
    apply(*pconjugation_entry);
    m_lemma = lemma;
    m_word_form = pconjugation_entry->suffix;
    set_superlemma_from_lemma();
}

LexicalEntry::LexicalEntry(DeclensionEntry* pdeclension_entry, const std::string& lemma, const std::string& gender,
                           const std::string& pos) {
    if (!pdeclension_entry)
        return;
    // The lemma is still empty here, so that set_lemma abbreviates a suffix that spells the form out.
    LexicalEntry::set_word_form(pdeclension_entry->suffix);
    set_lemma(lemma);
    apply(*pdeclension_entry, gender, pos);
    set_superlemma_from_lemma();
}

LexicalEntry::LexicalEntry(ConjugationEntry* pconjugation_entry, const std::string& lemma,
                           const std::vector<std::string>& stems, const std::string& conjugation_type,
                           const std::string& separator) {
    if (!pconjugation_entry)
        return;
    apply(*pconjugation_entry);
    m_lemma = lemma;
    m_word_form = stem_at(stems, pconjugation_entry->stem_index) + separator + pconjugation_entry->suffix;
    m_conjugation_type = conjugation_type;
    set_superlemma_from_lemma();
}

LexicalEntry::LexicalEntry(DeclensionEntry* pdeclension_entry, const std::string& lemma,
                           const std::vector<std::string>& stems, const std::string& declension_type,
                           const std::string& gender, const std::string& pos, const std::string& sep) {
    if (!pdeclension_entry)
        return;
    apply(*pdeclension_entry, gender, pos);
    m_declension_type = declension_type;
    m_lemma = lemma;
    m_word_form = declined_form(*pdeclension_entry, stems, sep);
    set_superlemma_from_lemma();
}

} // namespace zelvor
