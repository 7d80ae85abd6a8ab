#include "training/universal_features.h"

#include <gtest/gtest.h>

#include <array>

namespace zelvor {

TEST(universal_features, ComeFromTheValuesOfAnAnalysis) {
    using Values =
        std::array<std::string, NUM_CATEGORIES>; // case, degree, gender, mood, number, person, -, tense, -, voice
    for (const auto& [values, features] : std::initializer_list<std::pair<Values, const char*>>{
             {{"DATIVE,ABLATIVE", "SUPERLATIVE", "NEUTER, MASCULINE", "-", "PLURAL", "-", "-", "-", "-", "-"},
              "Case=Abl,Dat|Degree=Abs|Gender=Masc,Neut|Number=Plur"},
             {{"", "POSITIVE", "COMMON", "IMPERATIVE", "", "SECOND_PERSON", "RELATIVE", "FUTURE", "x", ""},
              "Aspect=Imp|Mood=Imp|Person=2|Tense=Fut|VerbForm=Fin"},
             {{"", "", "", "INDICATIVE,SUBJUNCTIVE", "", "PERSON_1,FIRST_PERSON", "", "PLUPERFECT,PERFECT", "",
               "PASSIVE"},
              "Aspect=Perf|Mood=Ind,Sub|Person=1|Tense=Past,Pqp|VerbForm=Fin|Voice=Pass"},
             {{"", "", "", "PARTICIPLE", "", "", "", "FUTURE", "", ""}, "Aspect=Prosp|VerbForm=Part"},
             {{"", "", "", "INFINITIVE", "", "", "", "PLUPERFECT", "", ""}, "VerbForm=Inf"},
             {{"", "", "", "IMPERATIVE,INFINITIVE", "", "", "", "FUTURE", "", ""},
              "Aspect=Imp,Prosp|Mood=Imp|Tense=Fut|VerbForm=Fin,Inf"}})
        EXPECT_EQ(universal_features(values), features);
}

} // namespace zelvor
