#include "utils/EnglishLexicalEntry.h"

#include "utils/common_utils/text.h"
#include "utils/lexicon_utils/word_classes.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace zelvor {

struct EnglishLexicalEntry::Tables {
    using Field = std::string EnglishLexicalEntry::*;
    using Set = Values EnglishLexicalEntry::*;

    /// A feature column of the export line; with a test it is written only for lemmas of that word class.
    struct Column {
        const char* name;
        Field field;
        bool (*applies_to)(const std::string& lemma_pos);
    };

    static constexpr std::size_t FIRST_FEATURE = 7;
    static constexpr Column FEATURES[] = {
        {"CASE", &EnglishLexicalEntry::m_case, is_noun},
        {"COMPARISON_DEGREE", &EnglishLexicalEntry::m_comparison_degree, is_adjective},
        {"GENDER", &EnglishLexicalEntry::m_gender, nullptr},
        {"MOOD", &EnglishLexicalEntry::m_mood, is_verb},
        {"NUMERUS", &EnglishLexicalEntry::m_number, nullptr},
        {"PERSON", &EnglishLexicalEntry::m_person, nullptr},
        {"TENSE", &EnglishLexicalEntry::m_tense, nullptr},
        {"SEMTYPE", &EnglishLexicalEntry::m_semtype, nullptr},
    };

    static constexpr std::size_t COLUMNS = FIRST_FEATURE + std::size(FEATURES);

    static constexpr Set SOURCE_COLUMNS[] = {&EnglishLexicalEntry::m_originating_source_word_forms,
                                             &EnglishLexicalEntry::m_originating_source_lemmas,
                                             &EnglishLexicalEntry::m_originating_source_pos};

    /// Compared as they are when the comparison is extended; gender, comparison degree and suffixes never are.
    static constexpr Field COMPARED[] = {&EnglishLexicalEntry::m_tense,  &EnglishLexicalEntry::m_number,
                                         &EnglishLexicalEntry::m_mood,   &EnglishLexicalEntry::m_case,
                                         &EnglishLexicalEntry::m_person, &EnglishLexicalEntry::m_lemma_pos};

    static constexpr Set MERGED[] = {&EnglishLexicalEntry::m_originating_lemmas,
                                     &EnglishLexicalEntry::m_originating_word_forms,
                                     &EnglishLexicalEntry::m_originating_pos,
                                     &EnglishLexicalEntry::m_originating_source_lemmas,
                                     &EnglishLexicalEntry::m_originating_source_word_forms,
                                     &EnglishLexicalEntry::m_originating_source_pos};

    /// In this order, since a derived class may make its lemma of the other fields.
    static constexpr Field COMBINED[] = {&EnglishLexicalEntry::m_case,   &EnglishLexicalEntry::m_comparison_degree,
                                         &EnglishLexicalEntry::m_number, &EnglishLexicalEntry::m_lemma,
                                         &EnglishLexicalEntry::m_mood,   &EnglishLexicalEntry::m_lemma_pos,
                                         &EnglishLexicalEntry::m_semtype};
};

void EnglishLexicalEntry::reset() {
    m_case.clear();
    set_word_form("");
    m_lemma.clear();
    m_comparison_degree.clear();
    m_number.clear();
    m_person.clear();
    m_mood.clear();
    m_tense.clear();
}

void EnglishLexicalEntry::parse_tokens(const std::vector<std::string>& tokens) {
    m_num_tokens = static_cast<int>(tokens.size());
    for (const Tables::Column& column : Tables::FEATURES)
        (this->*column.field).clear();
    OriginatingLexicalEntryRepresentation::parse_tokens(tokens);
    for (std::size_t i = Tables::FIRST_FEATURE; i < tokens.size() && i < Tables::COLUMNS; ++i)
        this->*Tables::FEATURES[i - Tables::FIRST_FEATURE].field = tokens[i];
}

void EnglishLexicalEntry::export_entry(std::ostream* pofs) const {
    if (!pofs)
        return;
    std::vector<std::string> moods;
    tokenize_arg(m_mood, ",", moods);
    if (moods.empty())
        moods.emplace_back();
    if (m_lemma.empty() || m_word_form.empty() || m_pos.empty())
        moods.clear();
    for (const std::string& mood : moods) {
        *pofs << get_word_form() << '\t' << m_lemma << '\t' << m_lemma_pos << '\t' << m_pos;
        for (const Tables::Set set : Tables::SOURCE_COLUMNS)
            *pofs << '\t' << convert_list_to_string((this->*set).begin(), (this->*set).end(), ",");
        for (const Tables::Column& column : Tables::FEATURES) {
            *pofs << '\t';
            if (!column.applies_to || column.applies_to(m_lemma_pos))
                *pofs << (column.field == &EnglishLexicalEntry::m_mood ? mood : this->*column.field);
        }
        *pofs << '\n';
    }
    pofs->flush();
}

std::string EnglishLexicalEntry::to_string() const {
    std::ostringstream os;
    export_entry(&os);
    return os.str();
}

std::string EnglishLexicalEntry::combine(std::string l1, std::string l2) const {
    if (l1 == l2 || l1.empty())
        return l2;
    if (l2.empty())
        return l1;
    Values values;
    tokenize_arg_set(l1, ",", values);
    tokenize_arg_set(l2, ",", values);
    return convert_list_to_string(values.begin(), values.end(), ",");
}

bool EnglishLexicalEntry::describes_same_word_form(const EnglishLexicalEntry& other, bool extended_comparison) const {
    if (m_lemma != other.m_lemma || get_word_form() != other.get_word_form() || m_pos != other.m_pos)
        return false;
    const auto equal = [&](Tables::Field field) { return this->*field == other.*field; };
    return !extended_comparison ||
           (std::ranges::all_of(Tables::COMPARED, equal) && null_equals(m_semtype, other.m_semtype));
}

bool EnglishLexicalEntry::merge(std::vector<BaseLexicalEntry*>& vec_lexical_entry_representations,
                                std::multimap<std::string, BaseLexicalEntry*>& map_lexical_entries,
                                bool extended_comparison) {
    const auto [begin, end] = map_lexical_entries.equal_range(m_lemma);
    for (auto it = begin; it != end; ++it) {
        auto* const stored = dynamic_cast<EnglishLexicalEntry*>(it->second);
        if (!stored || !describes_same_word_form(*stored, extended_comparison))
            continue;
        for (const Tables::Set set : Tables::MERGED)
            (stored->*set).insert((this->*set).begin(), (this->*set).end());
        for (const Tables::Field field : Tables::COMBINED)
            stored->*field = field == &EnglishLexicalEntry::m_lemma ? combine(stored->get_lemma(), get_lemma())
                                                                    : combine(stored->*field, this->*field);
        return false;
    }
    vec_lexical_entry_representations.push_back(this);
    map_lexical_entries.emplace_hint(end, m_lemma, this);
    return true;
}

std::string EnglishLexicalEntry::get_longest_suffix() const {
    if (!m_suffix3.empty())
        return m_suffix3;
    return m_suffix2.empty() ? m_suffix1 : m_suffix2;
}

bool null_equals(const std::string& s1, const std::string& s2) { return s1.empty() || s2.empty() || s1 == s2; }

std::string headline() {
    std::string header = "#WORD_FORM\tLEMMA\tPOS\tWFPOS\tSOURCE WORD FORM\tSOURCE LEMMA\tSOURCE POS";
    for (const EnglishLexicalEntry::Tables::Column& column : EnglishLexicalEntry::Tables::FEATURES)
        header.append("\t").append(column.name);
    return header;
}

} // namespace zelvor
