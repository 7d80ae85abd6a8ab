#include "utils/LexicalEntry.h"

#include "tests/testing.h"

#include "utils/common_utils/text.h"

#include <libxml++/libxml++.h>

namespace zelvor {

static_assert(std::is_nothrow_move_constructible_v<LexicalEntry>, "a growing vector would copy");

/// A line "f0#f1#...", with some fields replaced.
std::string line_of(std::size_t size, const std::map<std::size_t, std::string>& replaced = {}) {
    std::vector<std::string> fields;
    for (std::size_t i = 0; i < size; ++i)
        fields.push_back(replaced.contains(i) ? replaced.at(i) : "f" + std::to_string(i));
    return convert_list_to_string(fields.begin(), fields.end(), "#");
}

LexicalEntry entry_of(const std::map<std::size_t, std::string>& replaced) {
    LexicalEntry entry;
    entry.parse_latin(line_of(31, replaced));
    return entry;
}

std::string exported(LexicalEntry& entry) {
    std::ostringstream os;
    entry.export_latin(os);
    return string_replace(os.str(), "\t#", "#").raw();
}

TEST(LatinLine, EveryFieldHasItsPlace) {
    LexicalEntry entry = entry_of({{16, "SECOND_PERSON"}, {22, ",a,,b"}, {7, " 123 "}, {9, "a\tb"}});
    EXPECT_EQ(entry.get_lemma() + entry.get_word_form(), "f4f8"); // names that the columns stand for
    EXPECT_EQ(exported(entry), line_of(31, {{16, "PERSON_2"}, {22, "a,b"}, {7, "123"}, {9, "a\tb"}}) + "\n");
}

TEST(LatinLine, TaggerReadersTakeLessAndTellGerunds) {
    LexicalEntry tagger, reduced, full;
    const std::string line = line_of(31, {{14, "GERUNDIVE"}, {16, "THIRD_PERSON"}, {17, "ADJ"}});
    full.parse_latin(line);
    tagger.parse_latin_tagger(line);
    reduced.parse_latin_tagger_reduced(line);
    EXPECT_EQ(full.get_pos(), "ADJ");
    EXPECT_EQ(exported(tagger), "#f1#f2##f4##f6#f7#f8#f9#f10###f13#GERUNDIVE#f15#PERSON_3#V##f19##f21#########\n");
    EXPECT_EQ(exported(reduced), "#f1#f2##f4##f6#f7#f8#f9########ADJ#############\n");
    full.parse_latin_tagger_reduced(line_of(18)); // empties some of what an earlier line has left
    EXPECT_EQ(exported(full), "f0#f1#f2#f3#f4#f5#f6#f7#f8#f9##f11#f12#####f17#f18##f20##f22#f23#f24#f25#f26#f27#f28#"
                              "f29#f30\n");
}

TEST(LatinLine, ShortLinesThrowAfterWhatTheyHold) {
    LexicalEntry entry("old", "older", "OLD");
    EXPECT_THROW(entry.parse_latin(""), std::out_of_range);
    EXPECT_EQ(exported(entry), std::string(30, '#') + "\n");
    EXPECT_THROW(entry.parse_latin(line_of(21, {{16, "FIRST_PERSON"}})), std::out_of_range);
    EXPECT_EQ(entry.get_word_form_id() + entry.get_pos() + entry.get_person(), "f7f17PERSON_1");
    EXPECT_THROW(entry.parse_latin_tagger_reduced(line_of(17)), std::out_of_range);
    EXPECT_EQ(entry.get_tense(), "f19"); // left by the line before: the short one ended before its turn
}

TEST(LatinEntry, GermanLayoutEndsWithASeparatorAndACloneIsAFreshAnalysis) {
    LexicalEntry entry = entry_of({{4, "am"}, {8, "-at"}});
    std::ostringstream os;
    entry.export_german(os);
    EXPECT_EQ(os.str(), "am\t#f6\t#amat\t#f9\t#f10\t#f13\t#f14\t#f15\t#f16\t#f17\t#f18\t#f19\t#f20\t#f21\t#f22\t#f23"
                        "\t#f24\t#f25\t#\n");
    entry = entry_of({{4, "am"}, {8, "amat"}}); // stored as it is written
    const std::unique_ptr<LexicalEntry> clone(entry.clone());
    EXPECT_EQ(clone->get_abbreviated_word_form(), "-at");
    EXPECT_EQ(exported(*clone), "#f1#f2##am##f6##amat#f9#f10#f11#f12###f15#f16#f17#f18#f19#f20##########\n");
}

struct LatinMerge : testing::Test {
    bool add(LexicalEntry& entry, bool extended = false) { return entry.merge(entries, by_lemma, extended); }
    std::vector<BaseLexicalEntry*> entries;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
};

TEST_F(LatinMerge, ComparesWhatItShould) {
    // Columns whose difference keeps entries apart, when compared plainly and when compared in full.
    for (std::size_t column = 0; column < 22; ++column)
        for (const bool extended : {false, true}) {
            SCOPED_TRACE(std::to_string(column) + (extended ? " extended" : ""));
            const bool plain = column == 4 || column == 8 || column == 17;
            const bool ignored = column == 0 || column == 3 || column == 5 || column == 7;
            LexicalEntry stored = entry_of({}), incoming = entry_of({{column, "other"}});
            LexicalEntry unknown = entry_of({{column, " "}}); // contradicts nothing, lemma and word form excepted
            by_lemma.clear();
            EXPECT_TRUE(add(stored, extended));
            EXPECT_EQ(add(incoming, extended), plain || (extended && !ignored));
            EXPECT_EQ(add(unknown, extended), column == 4 || column == 8);
        }
}

TEST_F(LatinMerge, FillsGapsExceptMoodTenseAndVoiceAndReplacesNothing) {
    for (std::size_t column = 0; column < 31; ++column) {
        if (column == 4 || column == 8) // whose difference keeps entries apart
            continue;
        std::map<std::size_t, std::string> others{{4, "f4"}, {8, "f8"}, {17, "f17"}}, merged = others;
        merged.insert({{22, "f22,g22"}, {23, "f23,g23"}, {24, "f24,g24"}});
        for (std::size_t i = 0; i < 31; ++i)
            others.emplace(i, "g" + std::to_string(i));
        merged[column] = column == 14 || column == 19 || column == 21 ? " " : others[column];
        by_lemma.clear();
        LexicalEntry stored = entry_of({{column, " "}}), incoming = entry_of(others), expected = entry_of(merged);
        add(stored);
        EXPECT_FALSE(add(incoming)) << column;
        EXPECT_EQ(exported(stored), exported(expected)) << column;
    }
}

TEST_F(LatinMerge, StoredFormsAreComparedAndTheFirstMatchWins) {
    EnglishLexicalEntry english("am", "amat", "V");
    LexicalEntry spelled = entry_of({{4, "am"}, {8, "amat"}, {17, "V"}}), unknown = spelled;
    LexicalEntry abbreviated("am", "amat", "V"); // "-at" is not "amat" here
    unknown.set_pos("");
    by_lemma = {{"am", nullptr}, {"am", &english}};
    unknown.insert_originating_source_wordforms("z");
    unknown.insert_originating_lemmas("never");
    EXPECT_TRUE(add(spelled));
    EXPECT_TRUE(add(abbreviated));
    EXPECT_FALSE(add(unknown));
    EXPECT_TRUE(spelled.contains_originating_source_word_forms("z"));
    EXPECT_FALSE(spelled.contains_originating_lemmas("never"));
}

TEST(XmlWords, TreebankWordsHaveFormLemmaAndFirstTagLetter) {
    // The last byte of a lemma is cut: that is "t" of "et", and half of "é".
    using Row = std::array<std::string, 3>; // attributes before the tag, tag, what is read
    for (const auto& [attributes, tag, expected] :
         {Row{"form='et' lemma='et'", "c--------", "et|e|CON"}, Row{"form='a' lemma='a'", "r--------", "a|a|APPR"},
          Row{"form='-que' lemma='xé'", "d", "x\xC3que|x\xC3|ADV"}, Row{"", "V", "||OLD"}, Row{"", "", "||OLD"}}) {
        xmlpp::DomParser parser;
        parser.parse_memory("<word " + attributes + " postag='" + tag + "'/>");
        LexicalEntry entry("old", "older", "OLD");
        const auto read = [&] { entry.parse_ldt(parser.get_document()->get_root_node(), true); };
        EXPECT_EQ(output_of(read),
                  "pos: " + tag.substr(0, 1) + "\nmpos: " + expected.substr(expected.rfind('|') + 1) + "\n");
        EXPECT_EQ(entry.get_word_form() + '|' + entry.get_lemma() + '|' + entry.get_pos(), expected);
    }
}

TEST(XmlWords, MissingAttributesEmptyAWord) {
    xmlpp::DomParser parser;
    LexicalEntry entry;
    for (const auto& [xml, expected] :
         {std::pair("<w type='V' lemma='amo' function='pred'>amat</w>", "amatVamopred"), {"<w/>", ""}}) {
        parser.parse_memory(xml);
        entry.parse_tei(parser.get_document()->get_root_node());
        entry.parse_tei(nullptr);
        entry.parse_ldt(nullptr, false);
        EXPECT_EQ(entry.get_word_form() + entry.get_pos() + entry.get_lemma() + entry.get_function(), expected);
    }
    testing::internal::CaptureStderr();
    entry.parse_german("Haus#Haus");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "not implemented yet\n");
}

} // namespace zelvor
