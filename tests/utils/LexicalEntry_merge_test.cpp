#include "utils/LexicalEntry.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace zelvor {
namespace {

const std::string FULL_LINE =
    "1#sl#SP#2#am#src#V#7#amat#NOM#POS#c1#d1#F#IND#SG#P3#V#pr#PRES#vt#ACT#a#b#c#11#12#x#y#e#ls";

/// The entry of the line, with one column emptied or changed (columns as in the line; -1: none).
LexicalEntry entry_with(int column, const std::string& text) {
    std::istringstream is(FULL_LINE);
    std::string line;
    int i = 0;
    for (std::string field; std::getline(is, field, '#'); ++i)
        line += (i ? "#" : "") + (i == column ? text : field);
    LexicalEntry entry;
    entry.parse_latin(line);
    return entry;
}

struct Lexicon {
    std::vector<BaseLexicalEntry*> entries;
    std::multimap<std::string, BaseLexicalEntry*> by_lemma;
    bool add(LexicalEntry& entry, bool extended) { return entry.merge(entries, by_lemma, extended); }
};

TEST(LatinMerge, ComparesWhatItShould) {
    // Columns whose difference keeps entries apart, when compared plainly and when compared in full.
    for (int column = 0; column < 22; ++column) {
        SCOPED_TRACE(column);
        const bool plain = column == 4 || column == 8 || column == 17;
        const bool ignored = column == 0 || column == 3 || column == 5 || column == 7;
        for (const bool extended : {false, true}) {
            Lexicon lexicon;
            LexicalEntry stored = entry_with(-1, ""), incoming = entry_with(column, "other");
            EXPECT_TRUE(lexicon.add(stored, extended));
            EXPECT_EQ(lexicon.add(incoming, extended), plain || (extended && !ignored));
            // An empty value contradicts nothing, lemma and word form excepted.
            LexicalEntry unknown = entry_with(column, " ");
            EXPECT_EQ(lexicon.add(unknown, extended), column == 4 || column == 8);
        }
    }
}

TEST(LatinMerge, FillsGapsExceptMoodTenseAndVoice) {
    const std::string expected_in_full = FULL_LINE;
    for (int column = 0; column < 31; ++column) {
        if (column == 4 || column == 8)
            continue;
        SCOPED_TRACE(column);
        Lexicon lexicon;
        LexicalEntry stored = entry_with(column, " "), incoming = entry_with(-1, "");
        std::ostringstream before, after, full;
        lexicon.add(stored, true);
        stored.export_latin(before);
        EXPECT_FALSE(lexicon.add(incoming, true));
        stored.export_latin(after);
        incoming.export_latin(full);
        const bool never_filled = column == 14 || column == 19 || column == 21;
        EXPECT_EQ(after.str(), never_filled ? before.str() : full.str());
    }
}

TEST(LatinMerge, StoredFormsAreComparedAndTheFirstMatchWins) {
    Lexicon lexicon;
    LexicalEntry spelled = entry_with(-1, ""), abbreviated("am", "amat", "V"), first = entry_with(17, "N"), unknown;
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
}

TEST(LatinMerge, AnEmptyPartOfSpeechTakesTheIncomingOne) {
    Lexicon lexicon;
    LexicalEntry empty("am", "amat", ""), noun("am", "amat", "N");
    lexicon.add(empty, false);
    EXPECT_FALSE(lexicon.add(noun, false));
    EXPECT_EQ(empty.get_pos(), "N");
}

} // namespace
} // namespace zelvor
