#include "utils/LexicalEntry.h"

#include "tests/testing.h"
#include "utils/common_utils/text.h"

namespace zelvor {

std::string features(const LexicalEntry& e) {
    const Strings values{e.get_number(), e.get_mood(), e.get_person(), e.get_tense(),
                         e.get_voice(),  e.get_case(), e.get_gender()};
    return convert_list_to_string(values.begin(), values.end(), "|");
}

/// part of speech|that of the lemma and of the superlemma|superlemma|stored form|spelled out
std::string form(const LexicalEntry& e) {
    const Strings values{
        e.get_pos(),      e.get_lemma_pos(), e.get_superlemma_pos(), e.get_superlemma(), e.get_abbreviated_word_form(),
        e.get_word_form()};
    return convert_list_to_string(values.begin(), values.end(), "|");
}

TEST(Paradigms, ConjugationRows) {
    const std::string s = "-at"; // a leading "-" is abbreviated, whatever stands before it
    using Row = std::pair<ConjugationEntry, std::string>;
    for (auto [row, expected] :
         {Row({3, true, present, indicative, true, s, 1, "VI", gnone, none},
              "SINGULAR|INDICATIVE|THIRD_PERSON|PRESENT|ACTIVE||"),
          Row({1, true, present, subjunctive, true, s, 1, "VI", gnone, none},
              "SINGULAR|SUBJUNCTIVE|FIRST_PERSON|PRESENT|ACTIVE||"),
          Row({0, true, perfect, infinitive, false, s, 1, "VI", gnone, none}, "|INFINITIVE||PERFECT|PASSIVE||"),
          Row({4, false, plusquam, participle, true, s, 1, "VI", neuter, locative},
              "|PARTICIPLE||PLUPERFECT|ACTIVE|LOCATIVE|NEUTER"),
          Row({1, false, imperfect, supina, true, s, 1, "VI", feminine, dative},
              "|SUPINE|FIRST_PERSON|IMPERFECT|ACTIVE|DATIVE|FEMININE"),
          Row({2, false, future, gerund, true, s, 1, "VI", masculine, ablative},
              "PLURAL|GERUND|SECOND_PERSON|FUTURE|ACTIVE|ABLATIVE|MASCULINE"),
          Row({3, false, future2, gerundive, true, s, 1, "VI", gnone, vocative},
              "PLURAL|GERUNDIVE|THIRD_PERSON|FUTURE_PERFECT|ACTIVE|VOCATIVE|"),
          Row({-5, true, Time_val(6), Mood(-1), true, s, 1, "VI", Gender(9), Case(99)}, "SINGULAR||||ACTIVE||")}) {
        const LexicalEntry plain(&row, "amo"), stemmed(&row, "amo", {"am", "amo"}, "1st", "|");
        EXPECT_EQ(features(plain), expected);
        EXPECT_EQ(features(stemmed), expected);
        EXPECT_EQ(form(plain), "VI|V|V|amo@V|-at|amoat");
        EXPECT_EQ(form(stemmed) + stemmed.get_conjugation_type(), "VI|V|V|amo@V|am|-at|am|-at1st"); // not abbreviated
    }
}

TEST(Paradigms, DeclensionRowsReabbreviateTheSuffix) {
    using Row = std::tuple<const char*, const char*, const char*, const char*>; // suffix, gender, what is read
    for (const auto& [suffix, gender, read, stored] :
         {Row("-us", "", "MASCULINE", "-us|amicus"), Row("", "", "MASCULINE", "-|amic"),
          Row("amici", "", "MASCULINE", "-i|amici"), Row("us", "F", "F", "us|us")}) {
        DeclensionEntry declension{accusative, false, suffix, 1, masculine};
        const LexicalEntry entry(&declension, "amic", gender, "N");
        EXPECT_EQ(features(entry), std::string("PLURAL|||||ACCUSATIVE|") + read);
        EXPECT_EQ(form(entry), std::string("N|N|N|amic@N|") + stored);
    }
}

TEST(Paradigms, StemIndexes) {
    using Row = std::tuple<std::size_t, int, const char*, const char*>; // number of stems, index, the two forms
    for (const auto& [size, index, declined, conjugated] :
         {Row(1, 2, "", "throws"), Row(1, 3, "a.x", "throws"), Row(1, 4, "throws", "throws"), Row(3, 3, "c.x", "c.x"),
          Row(3, 4, "b.x", "throws"), Row(3, -2147483647 - 1, "throws", "throws")}) {
        std::vector<std::string> stems{"a", "b", "c"};
        stems.resize(size);
        DeclensionEntry declension{none, true, "x", index, gnone};
        ConjugationEntry conjugation{1, true, present, indicative, true, "x", index, "V", gnone, none};
        EXPECT_EQ(
            text_or_throws([&] { return LexicalEntry(&declension, "l", stems, "2nd", "G", "N", ".").get_word_form(); }),
            declined);
        EXPECT_EQ(text_or_throws([&] { return LexicalEntry(&conjugation, "l", stems, "", ".").get_word_form(); }),
                  conjugated);
    }
    DeclensionEntry row{nominative, true, "x", 1, gnone};
    const LexicalEntry entry(&row, "a", {"a"}, "2nd", "G", "N", "."); // not abbreviated
    EXPECT_EQ(entry.get_declension_type() + features(entry), "2ndSINGULAR|||||NOMINATIVE|G");
    EXPECT_EQ(LexicalEntry(static_cast<ConjugationEntry*>(nullptr), "l").get_lemma(), ""); // no row: an empty entry
}

} // namespace zelvor
