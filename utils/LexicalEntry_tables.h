#pragma once

#include "utils/LexicalEntry.h"

namespace zelvor {

/// The fields of the record, listed once for its readers, writers, clone and merge. For the sources of utils/ only.
struct LexicalEntry::Tables {
    using Field = std::string LexicalEntry::*;
    using Set = Values LexicalEntry::*;

    enum Reader { FULL, TAGGER, REDUCED };
    enum Action { SKIP, READ, CLEAR };

    /// A column of the lexicon line and what each reader does with its field.
    struct Column {
        Field field;
        Action actions[3]; ///< by Reader
    };

    /// Columns 0 to 21, which a full line must have.
    static constexpr Column COLUMNS[] = {
        {&LexicalEntry::m_superlemma_id, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_superlemma, {READ, READ, READ}},
        {&LexicalEntry::m_superlemma_pos, {READ, READ, READ}},
        {&LexicalEntry::m_lemma_id, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_lemma, {READ, READ, READ}},
        {&LexicalEntry::m_source, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_lemma_pos, {READ, READ, READ}},
        {&LexicalEntry::m_word_form_id, {READ, READ, READ}},
        {&LexicalEntry::m_word_form, {READ, READ, READ}},
        {&LexicalEntry::m_case, {READ, READ, READ}},
        {&LexicalEntry::m_comparison_degree, {READ, READ, CLEAR}},
        {&LexicalEntry::m_conjugation_type, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_declension_type, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_gender, {READ, READ, CLEAR}},
        {&LexicalEntry::m_mood, {READ, READ, CLEAR}},
        {&LexicalEntry::m_number, {READ, READ, CLEAR}},
        {&LexicalEntry::m_person, {READ, READ, CLEAR}},
        {&LexicalEntry::m_pos, {READ, READ, READ}},
        {&LexicalEntry::m_pronoun, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_tense, {READ, READ, CLEAR}},
        {&LexicalEntry::m_verb_type, {READ, SKIP, SKIP}},
        {&LexicalEntry::m_voice, {READ, READ, CLEAR}},
    };

    /// What every line reader empties before it reads.
    static constexpr Field EMPTIED_FIRST[] = {&LexicalEntry::m_superlemma, &LexicalEntry::m_lemma,
                                              &LexicalEntry::m_word_form, &LexicalEntry::m_pos};

    /// Columns 22 to 24, comma lists; also what a merge unites.
    static constexpr Set SOURCES[] = {&LexicalEntry::m_originating_source_word_forms,
                                      &LexicalEntry::m_originating_source_lemmas,
                                      &LexicalEntry::m_originating_source_pos};

    /// Columns 25 to 30; a merge fills them in this order too.
    static constexpr Field BOOKKEEPING[] = {&LexicalEntry::m_corpus_frequency, &LexicalEntry::m_text_frequency,
                                            &LexicalEntry::m_created_by,       &LexicalEntry::m_last_change_by,
                                            &LexicalEntry::m_error_reported,   &LexicalEntry::m_lemma_source};

    /// The columns of the short layout, before its sources and corpus frequency.
    static constexpr Field GERMAN[] = {&LexicalEntry::m_lemma,
                                       &LexicalEntry::m_lemma_pos,
                                       &LexicalEntry::m_word_form,
                                       &LexicalEntry::m_case,
                                       &LexicalEntry::m_comparison_degree,
                                       &LexicalEntry::m_gender,
                                       &LexicalEntry::m_mood,
                                       &LexicalEntry::m_number,
                                       &LexicalEntry::m_person,
                                       &LexicalEntry::m_pos,
                                       &LexicalEntry::m_pronoun,
                                       &LexicalEntry::m_tense,
                                       &LexicalEntry::m_verb_type,
                                       &LexicalEntry::m_voice};

    /// What a clone takes besides part of speech, lemma and word form.
    static constexpr Field CLONED[] = {&LexicalEntry::m_comparison_degree,
                                       &LexicalEntry::m_declension_type,
                                       &LexicalEntry::m_lemma_pos,
                                       &LexicalEntry::m_verb_type,
                                       &LexicalEntry::m_superlemma,
                                       &LexicalEntry::m_superlemma_pos,
                                       &LexicalEntry::m_person,
                                       &LexicalEntry::m_number,
                                       &LexicalEntry::m_tense,
                                       &LexicalEntry::m_case,
                                       &LexicalEntry::m_conjugation_type,
                                       &LexicalEntry::m_pronoun};

    /// What an extended comparison of a merge tests beyond a plain one.
    static constexpr Field COMPARED[] = {&LexicalEntry::m_tense,
                                         &LexicalEntry::m_number,
                                         &LexicalEntry::m_mood,
                                         &LexicalEntry::m_voice,
                                         &LexicalEntry::m_case,
                                         &LexicalEntry::m_person,
                                         &LexicalEntry::m_gender,
                                         &LexicalEntry::m_declension_type,
                                         &LexicalEntry::m_conjugation_type,
                                         &LexicalEntry::m_superlemma,
                                         &LexicalEntry::m_superlemma_pos,
                                         &LexicalEntry::m_lemma_pos,
                                         &LexicalEntry::m_verb_type,
                                         &LexicalEntry::m_pronoun,
                                         &LexicalEntry::m_comparison_degree};

    /// What a merge fills where it is empty, before the bookkeeping. Mood, tense and voice are compared, never filled.
    static constexpr Field FILLED[] = {&LexicalEntry::m_pos,
                                       &LexicalEntry::m_superlemma_pos,
                                       &LexicalEntry::m_lemma_pos,
                                       &LexicalEntry::m_source,
                                       &LexicalEntry::m_superlemma,
                                       &LexicalEntry::m_superlemma_id,
                                       &LexicalEntry::m_lemma_id,
                                       &LexicalEntry::m_word_form_id,
                                       &LexicalEntry::m_case,
                                       &LexicalEntry::m_number,
                                       &LexicalEntry::m_person,
                                       &LexicalEntry::m_gender,
                                       &LexicalEntry::m_declension_type,
                                       &LexicalEntry::m_conjugation_type,
                                       &LexicalEntry::m_verb_type,
                                       &LexicalEntry::m_pronoun,
                                       &LexicalEntry::m_comparison_degree};
};

} // namespace zelvor
