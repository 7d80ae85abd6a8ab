#include "utils/LexicalEntry.h"

#include "utils/common_utils/text.h"

#include <gtest/gtest.h>
#include <libxml++/libxml++.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <type_traits>

namespace zelvor {
namespace {

static_assert(std::is_nothrow_move_constructible_v<LexicalEntry>, "a growing vector would copy");

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
    entry.parse_latin(line_of(32, {{16, "SECOND_PERSON"}, {22, ",a,,b"}, {7, " 123 "}, {9, "a\tb"}}));
    EXPECT_EQ(entry.get_superlemma() + entry.get_lemma() + entry.get_word_form() + entry.get_lemma_source(),
              "f1f4f8f30"); // names that the columns stand for
    std::string expected = line_of(31, {{16, "PERSON_2"}, {22, "a,b"}, {7, "123"}, {9, "a\tb"}});
    for (std::size_t at = 0; (at = expected.find('#', at)) != std::string::npos; at += 2)
        expected.insert(at, "\t");
    EXPECT_EQ(exported(entry), expected + "\n");
    LexicalEntry again; // what was exported without empty fields reads back
    again.parse_latin(expected);
    EXPECT_EQ(exported(again), expected + "\n");
}

TEST(LatinLine, TaggerReadersTakeLessAndTellGerunds) {
    LexicalEntry tagger, reduced, full;
    const std::string line = line_of(31, {{14, "GERUNDIVE"}, {16, "THIRD_PERSON"}, {17, "ADJ"}});
    full.parse_latin(line);
    tagger.parse_latin_tagger(line);
    reduced.parse_latin_tagger_reduced(line);
    EXPECT_EQ(full.get_pos(), "ADJ");
    EXPECT_EQ(exported(tagger),
              "\t#f1\t#f2\t#\t#f4\t#\t#f6\t#f7\t#f8\t#f9\t#f10\t#\t#\t#f13\t#GERUNDIVE\t#f15\t#PERSON_3\t#V"
              "\t#\t#f19\t#\t#f21\t#\t#\t#\t#\t#\t#\t#\t#\t#\n");
    EXPECT_EQ(exported(reduced), "\t#f1\t#f2\t#\t#f4\t#\t#f6\t#f7\t#f8\t#f9\t#\t#\t#\t#\t#\t#\t#\t#ADJ"
                                 "\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\n");
    full.parse_latin_tagger_reduced(line_of(18)); // empties some of what an earlier line has left
    EXPECT_EQ(exported(full), "f0\t#f1\t#f2\t#f3\t#f4\t#f5\t#f6\t#f7\t#f8\t#f9\t#\t#f11\t#f12\t#\t#\t#\t#\t#f17"
                              "\t#f18\t#\t#f20\t#\t#f22\t#f23\t#f24\t#f25\t#f26\t#f27\t#f28\t#f29\t#f30\n");
}

TEST(LatinLine, ShortLinesThrowAfterWhatTheyHold) {
    LexicalEntry entry("old", "older", "OLD");
    entry.set_superlemma("oldest");
    EXPECT_THROW(entry.parse_latin(""), std::out_of_range);
    EXPECT_EQ(entry.get_lemma() + entry.get_word_form() + entry.get_pos() + entry.get_superlemma(), "");
    EXPECT_THROW(entry.parse_latin(line_of(21, {{16, "FIRST_PERSON"}})), std::out_of_range);
    EXPECT_EQ(entry.get_word_form_id() + entry.get_pos() + entry.get_person(), "f7f17PERSON_1");
    EXPECT_THROW(entry.parse_latin_tagger_reduced(line_of(17)), std::out_of_range);
    EXPECT_EQ(entry.get_tense(), "f19"); // left by the line before: the short one ended before its turn
}

TEST(LatinEntry, GermanLayoutEndsWithASeparatorAndACloneIsAFreshAnalysis) {
    LexicalEntry entry;
    std::ostringstream os;
    entry.export_german(os);
    entry.parse_latin(line_of(31, {{4, "am"}, {8, "-at"}}));
    entry.export_german(os);
    EXPECT_EQ(os.str(), concatenate_duplicate("\t#", 18) + "\nam\t#f6\t#amat\t#f9\t#f10\t#f13\t#f14\t#f15\t#f16\t#f17"
                                                           "\t#f18\t#f19\t#f20\t#f21\t#f22\t#f23\t#f24\t#f25\t#\n");
    entry.parse_latin(line_of(31, {{4, "am"}, {8, "amat"}})); // stored as it is written
    const std::unique_ptr<LexicalEntry> clone(entry.clone());
    EXPECT_EQ(clone->get_abbreviated_word_form(), "-at");
    EXPECT_EQ(exported(*clone), "\t#f1\t#f2\t#\t#am\t#\t#f6\t#\t#amat\t#f9\t#f10\t#f11\t#f12\t#\t#\t#f15\t#f16\t#f17"
                                "\t#f18\t#f19\t#f20\t#\t#\t#\t#\t#\t#\t#\t#\t#\t#\n");
}

LexicalEntry entry_of(const std::map<std::size_t, std::string>& replaced) {
    LexicalEntry entry;
    entry.parse_latin(line_of(31, replaced));
    return entry;
}

/// An entry of a full line, with one column replaced (none where the line is not as long).
LexicalEntry entry_with(std::size_t column, const std::string& text) {
    return entry_of({{column, text}, {4, "am"}, {8, "amat"}});
}

struct Lexicon {
    std::vector<BaseLexicalEntry*> entries;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    bool add(LexicalEntry& entry, bool extended) { return entry.merge(entries, by_lemma, extended); }
};

TEST(LatinMerge, ComparesWhatItShould) {
    // Columns whose difference keeps entries apart, when compared plainly and when compared in full.
    for (std::size_t column = 0; column < 22; ++column) {
        SCOPED_TRACE(column);
        const bool plain = column == 4 || column == 8 || column == 17;
        const bool ignored = column == 0 || column == 3 || column == 5 || column == 7;
        for (const bool extended : {false, true}) {
            Lexicon lexicon;
            LexicalEntry stored = entry_with(99, ""), incoming = entry_with(column, "other");
            EXPECT_TRUE(lexicon.add(stored, extended));
            EXPECT_EQ(lexicon.add(incoming, extended), plain || (extended && !ignored));
            // An empty value contradicts nothing, lemma and word form excepted.
            LexicalEntry unknown = entry_with(column, " ");
            EXPECT_EQ(lexicon.add(unknown, extended), column == 4 || column == 8);
        }
    }
}

TEST(LatinMerge, FillsGapsExceptMoodTenseAndVoiceAndReplacesNothing) {
    for (std::size_t column = 0; column < 31; ++column) {
        if (column == 4 || column == 8) // whose difference keeps entries apart
            continue;
        std::map<std::size_t, std::string> others{{4, "am"}, {8, "amat"}, {17, "f17"}}, merged = others;
        merged.insert({{22, "f22,g22"}, {23, "f23,g23"}, {24, "f24,g24"}});
        for (std::size_t i = 0; i < 31; ++i)
            others.emplace(i, "g" + std::to_string(i));
        merged[column] = column == 14 || column == 19 || column == 21 ? " " : others[column];
        Lexicon lexicon;
        LexicalEntry stored = entry_with(column, " "), incoming = entry_of(others), expected = entry_of(merged);
        lexicon.add(stored, false);
        EXPECT_FALSE(lexicon.add(incoming, false)) << column;
        EXPECT_EQ(exported(stored), exported(expected)) << column;
    }
}

TEST(LatinMerge, StoredFormsAreComparedAndTheFirstMatchWins) {
    Lexicon lexicon;
    EnglishLexicalEntry english("am", "amat", "V");
    LexicalEntry renamed = entry_with(17, "V");
    renamed.set_lemma("sum");
    lexicon.by_lemma = {{"am", nullptr}, {"am", &english}, {"am", &renamed}};
    LexicalEntry spelled = entry_with(17, "V"), abbreviated("am", "amat", "V"), noun = entry_with(17, "N");
    LexicalEntry empty("am", "am", ""), unknown = entry_with(17, " "), filling("am", "am", "N");
    unknown.insert_originating_source_wordforms("z");
    unknown.insert_originating_lemmas("never");
    EXPECT_TRUE(lexicon.add(spelled, false));
    EXPECT_TRUE(lexicon.add(abbreviated, false)); // "-at" is not "amat" here
    EXPECT_TRUE(lexicon.add(noun, false));
    EXPECT_TRUE(lexicon.add(empty, false));
    EXPECT_FALSE(lexicon.add(unknown, false));
    EXPECT_FALSE(lexicon.add(filling, false));
    EXPECT_TRUE(spelled.contains_originating_source_word_forms("z"));
    EXPECT_FALSE(noun.contains_originating_source_word_forms("z") || spelled.contains_originating_lemmas("never"));
    EXPECT_EQ(spelled.get_pos() + empty.get_pos(), "VN"); // only an empty part of speech takes the incoming one
    EXPECT_EQ(lexicon.entries, (std::vector<BaseLexicalEntry*>{&spelled, &abbreviated, &noun, &empty}));
}

TEST(XmlWords, TreebankWordsHaveFormLemmaAndFirstTagLetter) {
    // The last byte of a lemma is cut: that is "t" of "et", and half of "é".
    using Row = std::tuple<std::string, const char*, const char*>; // attributes before the tag, tag, what is read
    for (const auto& [attributes, tag, expected] :
         {Row("form='sum' lemma='sum1'", "v1spia---", "sum|sum|V"),
          Row("form='et' lemma='et'", "c--------", "et|e|CON"), Row("form='a' lemma='a'", "r--------", "a|a|APPR"),
          Row("form='-que' lemma='xé'", "d", "x\xC3que|x\xC3|ADV"), Row("", "n", "||NN"), Row("", "t", "||VP"),
          Row("", "a", "||ADJ"), Row("", "p", "||P"), Row("", "m", "||NUM"), Row("", "i", "||ITJ"),
          Row("", "e", "||ITJ"), Row("", "u--------", "||$,"), Row("", "x--------", "||OLD"), Row("", "V", "||OLD"),
          Row("", "", "||OLD")}) {
        xmlpp::DomParser parser;
        parser.parse_memory("<word " + attributes + " postag='" + tag + "'/>");
        LexicalEntry entry("old", "older", "OLD");
        testing::internal::CaptureStdout();
        entry.parse_ldt(parser.get_document()->get_root_node(), true);
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "pos: " + std::string(tag).substr(0, 1) + "\nmpos: " + entry.get_pos() + "\n");
        EXPECT_EQ(entry.get_word_form() + '|' + entry.get_lemma() + '|' + entry.get_pos(), expected);
    }
}

TEST(XmlWords, NullElementsChangeNothingAndMissingAttributesEmptyAWord) {
    xmlpp::DomParser parser;
    parser.parse_memory("<w type='V' lemma='amo' function='pred'>amat</w>");
    LexicalEntry entry;
    entry.parse_tei(parser.get_document()->get_root_node());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    entry.parse_ldt(nullptr, false);
    entry.parse_tei(nullptr);
    entry.parse_german("Haus#Haus");
    EXPECT_EQ(testing::internal::GetCapturedStdout() + '|' + testing::internal::GetCapturedStderr(),
              "|not implemented yet\n");
    EXPECT_EQ(entry.get_word_form() + entry.get_pos() + entry.get_lemma() + entry.get_function(), "amatVamopred");
    parser.parse_memory("<w/>");
    entry.parse_tei(parser.get_document()->get_root_node());
    EXPECT_EQ(entry.get_word_form() + entry.get_pos() + entry.get_lemma() + entry.get_function(), "");
}

} // namespace
} // namespace zelvor
