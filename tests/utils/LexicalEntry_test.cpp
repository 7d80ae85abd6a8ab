#include "utils/LexicalEntry.h"

#include "utils/common_utils/text.h"

#include <gtest/gtest.h>
#include <libxml++/libxml++.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <tuple>

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
    EXPECT_EQ(entry.get_superlemma() + entry.get_lemma() + entry.get_word_form() + entry.get_lemma_source(),
              "f1f4f8f30");
    EXPECT_EQ(entry.size_originating_source_word_forms(), 2U);
    std::string expected = line_of(31, {{16, "PERSON_2"}, {22, "a,b"}, {7, "123"}});
    for (std::size_t at = 0; (at = expected.find('#', at)) != std::string::npos; at += 2)
        expected.insert(at, "\t");
    EXPECT_EQ(exported(entry), expected + "\n");
    LexicalEntry again; // what was exported without empty fields reads back
    again.parse_latin(expected);
    EXPECT_EQ(exported(again), expected + "\n");
}

TEST(LatinLine, FieldsOfOneLineShiftWhereOneIsEmpty) {
    const auto read = [](const std::string& line) {
        LexicalEntry entry;
        entry.parse_latin(line);
        return entry.get_superlemma() + '|' + entry.get_source() + '|' + entry.get_lemma_pos() + '|' +
               entry.get_corpus_frequency();
    };
    EXPECT_EQ(read(line_of(23, {{5, ""}})), "f1|f6|f7|");
    EXPECT_EQ(read(line_of(22, {{5, "\t"}})), "f1||f6|"); // a field of white space is a field
    EXPECT_EQ(read("#" + line_of(22)), "f0|f4|f5|");
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
    LexicalEntry tagger, reduced, full;
    const std::string line = line_of(31, {{14, "GERUNDIVE"}, {17, "ADJ"}});
    full.parse_latin(line);
    tagger.parse_latin_tagger(line);
    reduced.parse_latin_tagger_reduced(line);
    EXPECT_EQ(full.get_pos(), "ADJ");
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
    EXPECT_EQ(empty.str(), concatenate_duplicate("\t#", 18) + "\n");
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

/// An entry of a full line, with one column replaced (none where the line is not as long).
LexicalEntry entry_with(std::size_t column, const std::string& text) {
    LexicalEntry entry;
    entry.parse_latin(line_of(31, {{column, text}, {4, "am"}, {8, "amat"}}));
    return entry;
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

TEST(LatinMerge, FillsGapsExceptMoodTenseAndVoice) {
    for (std::size_t column = 0; column < 31; ++column) {
        if (column == 4 || column == 8)
            continue;
        SCOPED_TRACE(column);
        Lexicon lexicon;
        LexicalEntry stored = entry_with(column, " "), incoming = entry_with(99, "");
        const std::string before = exported(stored);
        lexicon.add(stored, true);
        EXPECT_FALSE(lexicon.add(incoming, true));
        EXPECT_EQ(exported(stored), column == 14 || column == 19 || column == 21 ? before : exported(incoming));
    }
}

TEST(LatinMerge, StoredFormsAreComparedAndTheFirstMatchWins) {
    Lexicon lexicon;
    LexicalEntry spelled = entry_with(17, "V"), abbreviated("am", "amat", "V"), first = entry_with(17, "N"), unknown;
    first.set_pos("N");
    lexicon.by_lemma.emplace("am", nullptr);
    EnglishLexicalEntry english("am", "amat", "V");
    lexicon.by_lemma.emplace("am", &english);
    EXPECT_TRUE(lexicon.add(spelled, false));
    EXPECT_TRUE(lexicon.add(abbreviated, false)); // "-at" is not "amat" here
    EXPECT_TRUE(lexicon.add(first, false));
    unknown = entry_with(17, " ");
    unknown.set_pos("");
    unknown.insert_originating_source_wordforms("z");
    unknown.insert_originating_lemmas("never");
    EXPECT_FALSE(lexicon.add(unknown, false));
    EXPECT_TRUE(spelled.contains_originating_source_word_forms("z"));
    EXPECT_FALSE(first.contains_originating_source_word_forms("z"));
    EXPECT_FALSE(spelled.contains_originating_lemmas("never"));
    EXPECT_EQ(lexicon.entries, (std::vector<BaseLexicalEntry*>{&spelled, &abbreviated, &first}));
    LexicalEntry empty("a", "ab", ""), noun("a", "ab", "N"); // an empty part of speech takes the incoming one
    lexicon.add(empty, false);
    EXPECT_FALSE(lexicon.add(noun, false));
    EXPECT_EQ(empty.get_pos(), "N");
}

TEST(TreebankWord, ReadsFormLemmaAndFirstTagLetter) {
    // The last byte of a lemma is cut: that is "t" of "et", and half of "é".
    using Row = std::tuple<const char*, const char*, const char*>; // attributes; word form, lemma and pos; output
    for (const auto& [attributes, expected, printed] :
         {Row("form='sum' lemma='sum1' postag='v1spia---'", "sum|sum|V", "pos: v\nmpos: V\n"),
          Row("form='et' lemma='et' postag='c--------'", "et|e|CON", "pos: c\nmpos: CON\n"),
          Row("form='a' lemma='a' postag='r--------'", "a|a|APPR", "pos: r\nmpos: APPR\n"),
          Row("form='-que' lemma='xé' postag='d'", "x\xC3que|x\xC3|ADV", "pos: d\nmpos: ADV\n"),
          Row("postag='n'", "||NN", "pos: n\nmpos: NN\n"), Row("postag='t'", "||VP", "pos: t\nmpos: VP\n"),
          Row("postag='a'", "||ADJ", "pos: a\nmpos: ADJ\n"), Row("postag='p'", "||P", "pos: p\nmpos: P\n"),
          Row("postag='m'", "||NUM", "pos: m\nmpos: NUM\n"), Row("postag='i'", "||ITJ", "pos: i\nmpos: ITJ\n"),
          Row("postag='e'", "||ITJ", "pos: e\nmpos: ITJ\n"), Row("postag='u--------'", "||$,", "pos: u\nmpos: $,\n"),
          Row("postag='x--------'", "||OLD", "pos: x\nmpos: OLD\n"), Row("postag='V'", "||OLD", "pos: V\nmpos: OLD\n"),
          Row("postag=''", "||OLD", "pos: \nmpos: OLD\n"), Row("", "||OLD", "pos: \nmpos: OLD\n")}) {
        SCOPED_TRACE(attributes);
        xmlpp::DomParser parser;
        parser.parse_memory(std::string("<word ") + attributes + "/>");
        LexicalEntry entry("old", "older", "OLD");
        testing::internal::CaptureStdout();
        entry.parse_ldt(parser.get_document()->get_root_node(), true);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), printed);
        EXPECT_EQ(entry.get_word_form() + '|' + entry.get_lemma() + '|' + entry.get_pos(), expected);
    }
}

TEST(TeiWord, TakesItsOwnTextOnly) {
    xmlpp::DomParser parser;
    parser.parse_memory("<w type='V' lemma='amo' function='pred'> am<hi>XX</hi><!-- no -->at </w>");
    LexicalEntry entry;
    entry.parse_tei(parser.get_document()->get_root_node());
    EXPECT_EQ(entry.get_abbreviated_word_form(), " amat ");
    EXPECT_EQ(entry.get_pos() + entry.get_lemma() + entry.get_function(), "Vamopred");
    parser.parse_memory("<w/>");
    entry.parse_tei(parser.get_document()->get_root_node());
    EXPECT_EQ(entry.get_word_form() + entry.get_pos() + entry.get_lemma() + entry.get_function(), "");
}

TEST(XmlWords, NullElementsAndGermanChangeNothing) {
    LexicalEntry entry("amo", "amat", "V");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    entry.parse_ldt(nullptr, false);
    entry.parse_tei(nullptr);
    entry.parse_german("Haus#Haus");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "not implemented yet\n");
    EXPECT_EQ(entry.get_word_form() + entry.get_lemma() + entry.get_pos(), "amatamoV");
}

} // namespace
} // namespace zelvor
