#include "utils/LexicalEntry.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace zelvor {
namespace {

/// number|mood|person|tense|voice|case|gender|pos|lemma pos|superlemma pos|superlemma|stored form|spelled out
std::string summary(const LexicalEntry& e) {
    std::ostringstream os;
    os << e.get_number() << '|' << e.get_mood() << '|' << e.get_person() << '|' << e.get_tense() << '|' << e.get_voice()
       << '|' << e.get_case() << '|' << e.get_gender() << '|' << e.get_pos() << '|' << e.get_lemma_pos() << '|'
       << e.get_superlemma_pos() << '|' << e.get_superlemma() << '|' << e.get_abbreviated_word_form() << '|'
       << e.get_word_form();
    return os.str();
}

TEST(Paradigms, ConjugationRows) {
    const struct {
        ConjugationEntry row;
        const char* expected;
    } rows[] = {
        {{3, true, present, indicative, true, "-at", 1, "V", gnone, none},
         "SINGULAR|INDICATIVE|THIRD_PERSON|PRESENT|ACTIVE|||V|V|V|amo@V|-at|amoat"},
        {{0, true, perfect, infinitive, false, "amatus", 1, "VI", gnone, none},
         "|INFINITIVE||PERFECT|PASSIVE|||VI|V|V|amo@V|amatus|amatus"},
        {{4, false, plusquam, participle, true, "amo", 1, "VP", neuter, locative},
         "|PARTICIPLE||PLUPERFECT|ACTIVE|LOCATIVE|NEUTER|VP|V|V|amo@V|amo|amo"}, // not abbreviated
        {{1, false, imperfect, supina, true, "", 1, "", feminine, dative},
         "|SUPINE|FIRST_PERSON|IMPERFECT|ACTIVE|DATIVE|FEMININE||V|V|amo@V||"},
        {{2, false, future, gerund, true, "x", 1, "V", masculine, ablative},
         "PLURAL|GERUND|SECOND_PERSON|FUTURE|ACTIVE|ABLATIVE|MASCULINE|V|V|V|amo@V|x|x"},
        {{3, false, future2, gerundive, true, "x", 1, "V", gnone, vocative},
         "PLURAL|GERUNDIVE|THIRD_PERSON|FUTURE_PERFECT|ACTIVE|VOCATIVE||V|V|V|amo@V|x|x"},
        {{-5, true, static_cast<Time_val>(6), static_cast<Mood>(-1), true, "x", 1, "V", static_cast<Gender>(9),
          static_cast<Case>(99)},
         "SINGULAR||||ACTIVE|||V|V|V|amo@V|x|x"},
    };
    for (auto row : rows) {
        EXPECT_EQ(summary(LexicalEntry(&row.row, "amo")), row.expected);
        // With stems, the form is put together from stem, separator and ending.
        row.row.stem_index = 2;
        const LexicalEntry stemmed(&row.row, "amo", {"am", "amav"}, "1st", "|");
        EXPECT_EQ(stemmed.get_word_form(), "amav|" + row.row.suffix);
        EXPECT_EQ(stemmed.get_conjugation_type(), "1st");
        const std::string expected = row.expected;
        EXPECT_EQ(summary(stemmed).substr(0, expected.find("@V")), expected.substr(0, expected.find("@V")));
    }
}

TEST(Paradigms, DeclensionRowsReabbreviateTheSuffix) {
    const struct {
        const char *suffix, *gender, *stored, *spelled_out;
    } rows[] = {{"-us", "", "-us", "amicus"},
                {"", "", "-", "amic"},
                {"amic", "", "-", "amic"},
                {"amici", "", "-i", "amici"},
                {"us", "F", "us", "us"}};
    for (const auto& row : rows) {
        DeclensionEntry declension{accusative, false, row.suffix, 1, masculine};
        const LexicalEntry entry(&declension, "amic", row.gender, "N");
        EXPECT_EQ(summary(entry), std::string("PLURAL|||||ACCUSATIVE|") + (*row.gender ? row.gender : "MASCULINE") +
                                      "|N|N|N|amic@N|" + row.stored + "|" + row.spelled_out);
    }
}

TEST(Paradigms, StemIndexes) {
    const std::vector<std::string> stems{"a", "b", "c", "d", "e"};
    const struct {
        std::size_t stems;
        int index;
        const char *declined, *conjugated; // null: throws
    } rows[] = {
        {1, 1, "a.x", "a.x"}, {1, 2, "", nullptr},    {1, 3, "a.x", nullptr},   {1, 4, nullptr, nullptr},
        {2, 2, "b.x", "b.x"}, {2, 3, "a.x", nullptr}, {2, 4, "b.x", nullptr},   {2, 5, nullptr, nullptr},
        {5, 5, "e.x", "e.x"}, {5, 6, "d.x", nullptr}, {5, 0, nullptr, nullptr}, {5, -1, nullptr, nullptr},
        {0, 1, "", nullptr},  {0, 2, "", nullptr},    {0, 3, nullptr, nullptr}, {5, -2147483647 - 1, nullptr, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.stems) + " stems, index " + std::to_string(row.index));
        const std::vector<std::string> some(stems.begin(), stems.begin() + static_cast<long>(row.stems));
        DeclensionEntry declension{none, true, "x", row.index, gnone};
        ConjugationEntry conjugation{1, true, present, indicative, true, "x", row.index, "V", gnone, none};
        const auto decline = [&] { return LexicalEntry(&declension, "l", some, "2nd", "G", "N", "."); };
        const auto conjugate = [&] { return LexicalEntry(&conjugation, "l", some, "", "."); };
        if (row.declined) {
            const LexicalEntry entry = decline();
            EXPECT_EQ(entry.get_word_form() + entry.get_declension_type() + entry.get_gender() + entry.get_superlemma(),
                      std::string(row.declined) + "2ndGl@N");
        } else {
            EXPECT_THROW(decline(), std::out_of_range);
        }
        if (row.conjugated)
            EXPECT_EQ(conjugate().get_word_form(), row.conjugated);
        else
            EXPECT_THROW(conjugate(), std::out_of_range);
    }
}

TEST(Paradigms, NullRowsGiveEmptyEntries) {
    ConjugationEntry* const conjugation = nullptr;
    DeclensionEntry* const declension = nullptr;
    EXPECT_EQ(LexicalEntry(conjugation, "l").get_lemma() + LexicalEntry(declension, "l", "", "").get_lemma() +
                  LexicalEntry(conjugation, "l", {}, "", "").get_lemma() +
                  LexicalEntry(declension, "l", {}, "", "", "", "").get_lemma(),
              "");
}

} // namespace
} // namespace zelvor
