#include "training/universal_features.h"

#include "training/ValueSource.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <map>
#include <set>

namespace zelvor {

namespace {

/// The table of docs/tei2crf.md.
constexpr std::string_view TAGS[][2] = {
    {"$,", "PUNCT"},      {"$.", "PUNCT"},        {"$(", "PUNCT"},   {"ADJ", "ADJ"},
    {"Adjective", "ADJ"}, {"ADV", "ADV"},         {"Adverb", "ADV"}, {"AP", "ADP"},
    {"APPR", "ADP"},      {"Preposition", "ADP"}, {"CON", "CCONJ"},  {"Conjunction", "CCONJ"},
    {"ITJ", "INTJ"},      {"NE", "PROPN"},        {"NN", "NOUN"},    {"Noun", "NOUN"},
    {"NUM", "NUM"},       {"Numeral", "NUM"},     {"P", "PRON"},     {"PRO", "PRON"},
    {"Pronoun", "PRON"},  {"V", "VERB"},          {"VP", "VERB"},    {"Verb", "VERB"},
};

constexpr std::string_view UNIVERSAL_TAGS[] = {"ADJ",  "ADP",  "ADV",   "AUX",   "CCONJ", "DET", "INTJ", "NOUN", "NUM",
                                               "PART", "PRON", "PROPN", "PUNCT", "SCONJ", "SYM", "VERB", "X"};

struct Row {
    Category category;
    std::string_view value;
    std::string_view features;
    std::string_view other_features; ///< of a tense, where the form is not finite
};

constexpr std::string_view FINITE = "VerbForm=Fin";

constexpr Row ROWS[] = {
    {Category::CASE, "NOMINATIVE", "Case=Nom", {}},
    {Category::CASE, "GENITIVE", "Case=Gen", {}},
    {Category::CASE, "DATIVE", "Case=Dat", {}},
    {Category::CASE, "ACCUSATIVE", "Case=Acc", {}},
    {Category::CASE, "ABLATIVE", "Case=Abl", {}},
    {Category::CASE, "VOCATIVE", "Case=Voc", {}},
    {Category::CASE, "LOCATIVE", "Case=Loc", {}},
    {Category::DEGREE, "COMPARATIVE", "Degree=Cmp", {}},
    {Category::DEGREE, "SUPERLATIVE", "Degree=Abs", {}},
    {Category::GENDER, "MASCULINE", "Gender=Masc", {}},
    {Category::GENDER, "FEMININE", "Gender=Fem", {}},
    {Category::GENDER, "NEUTER", "Gender=Neut", {}},
    {Category::MOOD, "INDICATIVE", "Mood=Ind|VerbForm=Fin", {}},
    {Category::MOOD, "SUBJUNCTIVE", "Mood=Sub|VerbForm=Fin", {}},
    {Category::MOOD, "IMPERATIVE", "Mood=Imp|VerbForm=Fin", {}},
    {Category::MOOD, "INFINITIVE", "VerbForm=Inf", {}},
    {Category::MOOD, "PARTICIPLE", "VerbForm=Part", {}},
    {Category::MOOD, "GERUND", "VerbForm=Ger", {}},
    {Category::MOOD, "GERUNDIVE", "VerbForm=Gdv", {}},
    {Category::MOOD, "SUPINE", "VerbForm=Sup", {}},
    {Category::NUMBER, "SINGULAR", "Number=Sing", {}},
    {Category::NUMBER, "PLURAL", "Number=Plur", {}},
    {Category::PERSON, "PERSON_1", "Person=1", {}},
    {Category::PERSON, "PERSON_2", "Person=2", {}},
    {Category::PERSON, "PERSON_3", "Person=3", {}},
    {Category::PERSON, "FIRST_PERSON", "Person=1", {}},
    {Category::PERSON, "SECOND_PERSON", "Person=2", {}},
    {Category::PERSON, "THIRD_PERSON", "Person=3", {}},
    {Category::TENSE, "PRESENT", "Aspect=Imp|Tense=Pres", "Aspect=Imp"},
    {Category::TENSE, "IMPERFECT", "Aspect=Imp|Tense=Past", {}},
    {Category::TENSE, "PERFECT", "Aspect=Perf|Tense=Past", "Aspect=Perf"},
    {Category::TENSE, "PLUPERFECT", "Aspect=Perf|Tense=Pqp", {}},
    {Category::TENSE, "FUTURE", "Aspect=Imp|Tense=Fut", "Aspect=Prosp"},
    {Category::TENSE, "FUTURE_PERFECT", "Aspect=Perf|Tense=Fut", {}},
    {Category::VOICE, "ACTIVE", "Voice=Act", {}},
    {Category::VOICE, "PASSIVE", "Voice=Pass", {}},
};

/// Names in ascending order, which is that without regard to case as well.
using Features = std::map<std::string_view, std::set<std::string_view>>;

void add(Features& features, std::string_view list) {
    while (!list.empty()) {
        const std::size_t equals = list.find('='), end = std::min(list.find('|'), list.size());
        features[list.substr(0, equals)].insert(list.substr(equals + 1, end - equals - 1));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

/// use(row) for each value of a category that the table has.
template<typename Use>
void for_each_row(Category category, std::string_view values, Use use) {
    for (const std::string_view value : split_list(values))
        for (const Row& row : ROWS)
            if (row.category == category && row.value == trimmed(value))
                use(row);
}

} // namespace

std::string_view universal_tag(std::string_view tag) {
    const auto* const found = std::ranges::find(TAGS, tag, [](const auto& row) { return row[0]; });
    return found == std::end(TAGS) ? std::string_view() : (*found)[1];
}

bool is_universal_tag(std::string_view tag) {
    return std::ranges::find(UNIVERSAL_TAGS, tag) != std::end(UNIVERSAL_TAGS);
}

std::string universal_features(std::span<const std::string, NUM_CATEGORIES> values) {
    Features features;
    bool is_finite = false, is_other = false;
    for_each_row(Category::MOOD, values[static_cast<std::size_t>(Category::MOOD)],
                 [&](const Row& row) { (row.features.ends_with(FINITE) ? is_finite : is_other) = true; });
    for (std::size_t i = 0; i < NUM_CATEGORIES; ++i)
        for_each_row(static_cast<Category>(i), values[i], [&](const Row& row) {
            const bool is_tense = row.category == Category::TENSE;
            if (!is_tense || is_finite)
                add(features, row.features);
            if (is_tense && (is_other || !is_finite))
                add(features, row.other_features);
        });
    std::string list;
    for (const auto& [name, of_name] : features) {
        list.append(list.empty() ? "" : "|").append(name);
        for (char separator = '='; const std::string_view value : of_name) {
            (list += separator) += value;
            separator = ',';
        }
    }
    return list;
}

} // namespace zelvor
