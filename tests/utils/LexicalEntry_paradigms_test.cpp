#include "utils/LexicalEntry.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

namespace zelvor {
namespace {

/// number|mood|person|tense|voice|case|gender|pos|lemma pos|superlemma pos|superlemma|stored form|spelled out
std::string summary(const LexicalEntry& e) {
    std::string text = e.get_number();
    for (const std::string& value : {e.get_mood(), e.get_person(), e.get_tense(), e.get_voice(), e.get_case(),
                                     e.get_gender(), e.get_pos(), e.get_lemma_pos(), e.get_superlemma_pos(),
                                     e.get_superlemma(), e.get_abbreviated_word_form(), e.get_word_form()})
        text += '|' + value;
    return text;
}

TEST(Paradigms, ConjugationRows) {
    const std::pair<ConjugationEntry, std::string> rows[] = {
        // a leading "-" alone is abbreviated: "amo" stays
        {{3, true, present, indicative, true, "-at", 1, "V", gnone, none},
         "SINGULAR|INDICATIVE|THIRD_PERSON|PRESENT|ACTIVE|||V|V|V|amo@V|-at|amoat"},
        {{0, true, perfect, infinitive, false, "amatus", 1, "VI", gnone, none},
         "|INFINITIVE||PERFECT|PASSIVE|||VI|V|V|amo@V|amatus|amatus"},
        {{4, false, plusquam, participle, true, "amo", 1, "VP", neuter, locative},
         "|PARTICIPLE||PLUPERFECT|ACTIVE|LOCATIVE|NEUTER|VP|V|V|amo@V|amo|amo"},
        {{1, false, imperfect, supina, true, "", 1, "", feminine, dative},
         "|SUPINE|FIRST_PERSON|IMPERFECT|ACTIVE|DATIVE|FEMININE||V|V|amo@V||"},
        {{2, false, future, gerund, true, "x", 1, "V", masculine, ablative},
         "PLURAL|GERUND|SECOND_PERSON|FUTURE|ACTIVE|ABLATIVE|MASCULINE|V|V|V|amo@V|x|x"},
        {{3, false, future2, gerundive, true, "x", 1, "V", gnone, vocative},
         "PLURAL|GERUNDIVE|THIRD_PERSON|FUTURE_PERFECT|ACTIVE|VOCATIVE||V|V|V|amo@V|x|x"},
        {{1, true, present, subjunctive, true, "x", 1, "V", gnone, none},
         "SINGULAR|SUBJUNCTIVE|FIRST_PERSON|PRESENT|ACTIVE|||V|V|V|amo@V|x|x"},
        {{2, true, present, imperative, true, "x", 1, "V", gnone, none},
         "SINGULAR|IMPERATIVE|SECOND_PERSON|PRESENT|ACTIVE|||V|V|V|amo@V|x|x"},
        {{-5, true, Time_val(6), Mood(-1), true, "x", 1, "V", Gender(9), Case(99)},
         "SINGULAR||||ACTIVE|||V|V|V|amo@V|x|x"}};
    for (auto [row, expected] : rows) {
        EXPECT_EQ(summary(LexicalEntry(&row, "amo")), expected);
        row.stem_index = 2; // with stems, the form is put together from stem, separator and ending
        const LexicalEntry stemmed(&row, "amo", {"am", "amo"}, "1st", "|"); // not abbreviated
        EXPECT_EQ(summary(stemmed) + stemmed.get_conjugation_type(),
                  expected.substr(0, expected.find("@V")) + "@V|amo|" + row.suffix + "|amo|" + row.suffix + "1st");
    }
}

TEST(Paradigms, DeclensionRowsReabbreviateTheSuffix) {
    using Row = std::tuple<const char*, const char*, const char*>; // suffix, gender, then what depends on them
    for (const auto& [suffix, gender, expected] :
         {Row("-us", "", "MASCULINE|N|N|N|amic@N|-us|amicus"), Row("", "", "MASCULINE|N|N|N|amic@N|-|amic"),
          Row("amic", "", "MASCULINE|N|N|N|amic@N|-|amic"), Row("amici", "", "MASCULINE|N|N|N|amic@N|-i|amici"),
          Row("us", "F", "F|N|N|N|amic@N|us|us")}) {
        DeclensionEntry declension{accusative, false, suffix, 1, masculine};
        EXPECT_EQ(summary(LexicalEntry(&declension, "amic", gender, "N")),
                  std::string("PLURAL|||||ACCUSATIVE|") + expected);
    }
}

TEST(Paradigms, StemIndexes) {
    const auto form = [](const auto& make) {
        try {
            return make().get_word_form();
        } catch (const std::out_of_range&) {
            return std::string("throws");
        }
    };
    using Row = std::tuple<std::size_t, int, const char*, const char*>; // number of stems, index, the two forms
    for (const auto& [size, index, declined, conjugated] :
         {Row(1, 2, "", "throws"), Row(1, 3, "a.x", "throws"), Row(1, 4, "throws", "throws"), Row(3, 3, "c.x", "c.x"),
          Row(3, 4, "b.x", "throws"), Row(0, 2, "", "throws"), Row(3, -2147483647 - 1, "throws", "throws")}) {
        std::vector<std::string> stems{"a", "b", "c"};
        stems.resize(size);
        DeclensionEntry declension{none, true, "x", index, gnone};
        ConjugationEntry conjugation{1, true, present, indicative, true, "x", index, "V", gnone, none};
        EXPECT_EQ(form([&] { return LexicalEntry(&declension, "l", stems, "2nd", "G", "N", "."); }), declined)
            << size << ' ' << index;
        EXPECT_EQ(form([&] { return LexicalEntry(&conjugation, "l", stems, "", "."); }), conjugated)
            << size << ' ' << index;
    }
    DeclensionEntry row{none, true, "x", 1, gnone};
    const LexicalEntry entry(&row, "a", {"a"}, "2nd", "G", "N", "."); // not abbreviated
    EXPECT_EQ(entry.get_declension_type() + summary(entry), "2ndSINGULAR||||||G|N|N|N|a@N|a.x|a.x");
    EXPECT_EQ(LexicalEntry(static_cast<ConjugationEntry*>(nullptr), "l").get_lemma(), ""); // no row: an empty entry
    EXPECT_EQ(LexicalEntry(static_cast<DeclensionEntry*>(nullptr), "l", {}, "", "", "", "").get_lemma(), "");
}

} // namespace
} // namespace zelvor
