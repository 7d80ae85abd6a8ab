#include "utils/lexicon_utils/verbs.h"

#include "utils/EnglishLexicalEntry.h"
#include "utils/lexicon_utils/word_classes.h"

namespace zelvor {

namespace {

struct VerbTags {
    const char* word_form;
    const char* lemma; ///< null: any
    const char* pos;
    const char* lemma_pos;
};

// Kept: for being, am and do the specific tag is the lemma's.
constexpr VerbTags VERB_TAGS[] = {
    {"being", "be", "BE", "BEG"},        {"be", "be", "BE", "BE"},         {"am", "be", "BE", "BEM"},
    {"is", "be", "BEZ", "BE"},           {"was", "be", "BEDZ", "BE"},      {"been", "be", "BEN", "BE"},
    {"were", "be", "BED", "BE"},         {"are", "be", "BER", "BE"},       {"weren't", "weren't", "BED*", "BE"},
    {"wasn't", "wasn't", "BEDZ*", "BE"}, {"ain't", "ain't", "BEM*", "BE"}, {"do", "do", "DO", "DOD"},
    {"does", "do", "DOZ", "DO"},         {"did", "do", "DOD", "DO"},       {"doesn't", nullptr, "DOZ*", "DO"},
    {"don't", nullptr, "DOZ*", "DO"},
};

void set_tags(EnglishLexicalEntry& entry, const char* pos, const char* lemma_pos) {
    entry.set_pos(pos);
    entry.set_lemma_pos(lemma_pos);
}

} // namespace

void concretize_verb_pos(EnglishLexicalEntry& english_lexical_entry) {
    if (english_lexical_entry.get_lemma_pos() != "VB")
        return;
    const std::string word_form = english_lexical_entry.get_word_form(), lemma = english_lexical_entry.get_lemma();
    for (const VerbTags& row : VERB_TAGS)
        if (word_form == row.word_form && (!row.lemma || lemma == row.lemma))
            return set_tags(english_lexical_entry, row.pos, row.lemma_pos);
    if (is_modal(word_form))
        set_tags(english_lexical_entry, "MD", "MD");
}

std::string std_verb_to_string(const std::string& word_form, const std::string& lemma, const std::string& pos,
                               const std::string& resource_lemma, const std::string& resource_word_form,
                               const std::string& resource_pos, const std::string& source_lemma,
                               const std::string& source_word_form, const std::string& source_pos) {
    std::string line;
    for (const std::string* const column : {&word_form, &lemma, &pos, &resource_word_form, &resource_lemma,
                                            &resource_pos, &source_word_form, &source_lemma})
        line.append(*column).append("\t");
    return line + source_pos + "\t\t\tINDICATIVE\t\t1,2\tPRESENT";
}

std::string convert_to_wiktionary_conjugation_type(const std::string& conjugation_type, bool transitivity) {
    for (const char* const ordinal : {"1st", "2nd", "3rd", "4th"})
        if (conjugation_type == ordinal)
            return std::string("coniugatio-") + (transitivity ? "" : "intrans-") + ordinal[0];
    return "";
}

std::string create_genitive_form(const std::string& lexicon_entry) {
    return lexicon_entry + (lexicon_entry.ends_with('s') ? "'" : "'s");
}

} // namespace zelvor
