#include "utils/LexicalEntry.h"

#include "utils/common_utils/text.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>

namespace zelvor {
namespace {

/// A line "f0#f1#...", with some fields replaced.
std::string line_of(std::size_t size, const std::map<std::size_t, std::string>& replaced = {}) {
    std::vector<std::string> fields;
    for (std::size_t i = 0; i < size; ++i)
        fields.push_back(replaced.contains(i) ? replaced.at(i) : "f" + std::to_string(i));
    return convert_list_to_string(fields.begin(), fields.end(), "#");
}

std::string exported(LexicalEntry& entry) {
    std::ostringstream os;
    entry.export_latin(os);
    return os.str();
}

TEST(LatinLine, EveryFieldHasItsPlace) {
    LexicalEntry entry;
    entry.parse_latin(line_of(32, {{16, "SECOND_PERSON"}, {22, ",a,,b"}, {7, " 123 "}}));
    EXPECT_EQ(entry.get_superlemma() + entry.get_superlemma_pos() + entry.get_lemma() + entry.get_source(), "f1f2f4f5");
    EXPECT_EQ(entry.get_lemma_pos() + entry.get_word_form_id() + entry.get_word_form() + entry.get_case(), "f6123f8f9");
    EXPECT_EQ(entry.get_comparison_degree() + entry.get_conjugation_type() + entry.get_declension_type(), "f10f11f12");
    EXPECT_EQ(entry.get_gender() + entry.get_mood() + entry.get_number() + entry.get_person(), "f13f14f15PERSON_2");
    EXPECT_EQ(entry.get_pos() + entry.get_pronoun_type() + entry.get_tense() + entry.get_verb_type(), "f17f18f19f20");
    EXPECT_EQ(entry.get_voice() + entry.get_corpus_frequency() + entry.get_text_frequency(), "f21f25f26");
    EXPECT_EQ(entry.get_created_by() + entry.get_last_change_by() + entry.get_error_reported(), "f27f28f29");
    EXPECT_EQ(entry.get_lemma_source(), "f30");
    EXPECT_EQ(entry.size_originating_source_word_forms(), 2U);
    EXPECT_TRUE(entry.contains_originating_source_lemmas("f23") && entry.contains_originating_source_pos("f24"));
    std::string expected = line_of(31, {{16, "PERSON_2"}, {22, "a,b"}, {7, "123"}});
    for (std::size_t at = 0; (at = expected.find('#', at)) != std::string::npos; at += 2)
        expected.insert(at, "\t");
    EXPECT_EQ(exported(entry), expected + "\n");
    LexicalEntry again; // what was exported without empty fields reads back
    again.parse_latin(expected);
    EXPECT_EQ(exported(again), expected + "\n");
}

TEST(LatinLine, FieldsOfOneLineShiftWhereOneIsEmpty) {
    LexicalEntry entry;
    entry.parse_latin(line_of(23, {{5, ""}}));
    EXPECT_EQ(entry.get_source(), "f6");
    LexicalEntry blank; // a field of white space is a field
    blank.parse_latin(line_of(22, {{5, "\t"}}));
    EXPECT_EQ(blank.get_source() + blank.get_lemma_pos(), "f6");
    LexicalEntry leading;
    leading.parse_latin("#" + line_of(22));
    EXPECT_EQ(leading.get_superlemma(), "f0");
    EXPECT_EQ(leading.get_corpus_frequency(), "");
}

TEST(LatinLine, PersonsAreConverted) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [written, stored] : {Row("FIRST_PERSON", "PERSON_1"), Row("THIRD_PERSON", "PERSON_3"),
                                          Row("PERSON_2", "PERSON_2"), Row("first_person", "first_person")}) {
        LexicalEntry full, tagger;
        full.parse_latin(line_of(22, {{16, written}}));
        tagger.parse_latin_tagger(line_of(22, {{16, written}}));
        EXPECT_EQ(full.get_person(), stored);
        EXPECT_EQ(tagger.get_person(), stored);
    }
}

TEST(LatinLine, TaggerReadersTakeLessAndTellGerunds) {
    LexicalEntry full, tagger, reduced;
    const std::string line = line_of(31, {{14, "GERUNDIVE"}, {17, "ADJ"}});
    full.parse_latin(line);
    tagger.parse_latin_tagger(line);
    reduced.parse_latin_tagger_reduced(line);
    EXPECT_EQ(full.get_pos() + tagger.get_pos() + reduced.get_pos(), "ADJVADJ");
    EXPECT_EQ(exported(tagger),
              "\t#f1\t#f2\t#\t#f4\t#\t#f6\t#f7\t#f8\t#f9\t#f10\t#\t#\t#f13\t#GERUNDIVE\t#f15\t#f16\t#V"
              "\t#\t#f19\t#\t#f21\t#\t#\t#\t#\t#\t#\t#\t#\t#\n");
    EXPECT_EQ(exported(reduced), "\t#f1\t#f2\t#\t#f4\t#\t#f6\t#f7\t#f8\t#f9\t#\t#\t#\t#\t#\t#\t#\t#ADJ"
                                 "\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\n");
    // The reduced reader empties what an earlier line has left.
    full.parse_latin_tagger_reduced(line_of(18));
    EXPECT_EQ(full.get_mood() + full.get_tense() + full.get_voice() + full.get_gender(), "");
}

TEST(LatinLine, ShortLinesThrowAfterWhatTheyHold) {
    LexicalEntry entry("old", "older", "OLD");
    EXPECT_THROW(entry.parse_latin(""), std::out_of_range);
    EXPECT_EQ(entry.get_lemma() + entry.get_word_form() + entry.get_pos(), "");
    EXPECT_THROW(entry.parse_latin(line_of(21, {{16, "FIRST_PERSON"}})), std::out_of_range);
    EXPECT_EQ(entry.get_word_form_id() + entry.get_pos() + entry.get_person(), "f7f17PERSON_1");
    EXPECT_THROW(entry.parse_latin_tagger(line_of(21)), std::out_of_range);
    EXPECT_THROW(entry.parse_latin_tagger_reduced(line_of(17)), std::out_of_range);
    EXPECT_EQ(entry.get_gender() + entry.get_person(), "");
    EXPECT_EQ(entry.get_tense(), "f19"); // left by the line before: the short one ended before its turn
    EXPECT_NO_THROW(entry.parse_latin_tagger_reduced(line_of(18)));
    EXPECT_NO_THROW(entry.parse_latin(line_of(21) + "#"));
}

TEST(LatinLine, GermanLayoutEndsWithASeparator) {
    LexicalEntry entry;
    std::ostringstream empty, os;
    entry.export_german(empty);
    std::string separators;
    for (int i = 0; i < 18; ++i)
        separators += "\t#";
    EXPECT_EQ(empty.str(), separators + "\n");
    entry.parse_latin(line_of(31, {{4, "am"}, {8, "-at"}}));
    entry.export_german(os);
    EXPECT_EQ(os.str(), "am\t#f6\t#amat\t#f9\t#f10\t#f13\t#f14\t#f15\t#f16\t#f17\t#f18\t#f19\t#f20\t#f21\t#f22\t#f23\t#"
                        "f24\t#f25\t#\n");
}

TEST(LatinEntry, CloneIsAFreshAnalysis) {
    LexicalEntry entry;
    entry.parse_latin(line_of(31, {{4, "am"}, {8, "amat"}}));
    const std::unique_ptr<LexicalEntry> clone(entry.clone());
    EXPECT_EQ(clone->get_abbreviated_word_form(), "-at");
    EXPECT_EQ(exported(*clone), "\t#f1\t#f2\t#\t#am\t#\t#f6\t#\t#amat\t#f9\t#f10\t#f11\t#f12\t#\t#\t#f15\t#f16\t#f17"
                                "\t#f18\t#f19\t#f20\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\n");
}

TEST(LatinEntry, NumberOfSourcesWraps) {
    const unsigned int before = LexicalEntry::num_sources;
    LexicalEntry::set_num_sources(-1);
    EXPECT_EQ(OriginatingLexicalEntryRepresentation::num_sources, 4294967295U);
    LexicalEntry::num_sources = before;
}

} // namespace
} // namespace zelvor
