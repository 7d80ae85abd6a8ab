#include "utils/lexicon_utils/lexicon_readers.h"

#include "tests/testing.h"
#include "utils/LexicalEntry.h"

namespace zelvor {

TEST(LexiconReaders, TrimmedWordsAndStatistics) {
    const TemporaryDirectory directory;
    Words words{"kept"};
    get_words_from_lexicon(directory.write("l", " walked \twalk\tVBD\r\n\t\tcats\tcat \tNNS\tmore\n"), words);
    EXPECT_EQ(words, (Words{"kept", "walked", "walk", "cats", "cat"}));
    EXPECT_THROW(get_words_from_lexicon(directory.write("short", "a\tb\n"), words), std::out_of_range);
    std::string lemma, word_form, pos;
    EXPECT_THROW(parse(" v \t m ", lemma, word_form, pos), std::out_of_range);
    EXPECT_EQ(lemma + word_form + pos, " m  v "); // a line too short leaves what it set untrimmed
    std::map<std::string, int> counts{{"old", 1}};
    std::set<int> numbers; // a count that comes too late is a number all the same
    read_statistics(directory.write("s", " a=b=7 \r\n\n  \nx\n5\na=b=9\nold=2\n=3\nc = 4"), counts, numbers);
    EXPECT_EQ(counts, (std::map<std::string, int>{{"a=b", 7}, {"x", 0}, {"5", 5}, {"old", 1}, {"", 3}, {"c ", 4}}));
    EXPECT_EQ(numbers, (std::set<int>{0, 2, 3, 4, 5, 7, 9}));
}

TEST(LexiconReaders, LexiconAndNames) {
    const TemporaryDirectory directory;
    directory.write("names/a.lst", "Anna\n\nBea \n");
    directory.write("names/b.txt", "no");
    const std::string lexicon = directory.write(
        "lexicon", "walked\twalk\tVBD\textra\n\twalk\tVBD\n Rome \tRome\tNP\n\xFF\tAnna\tNNP\r\nOslo\tOslo\tNNP\n");
    Words names{"kept"}, printed;
    std::multimap<std::string, LexicalEntry*> entries;
    const auto read = [&](const std::string& lexicon_file, const std::string& folder) {
        return output_of([&] { read_lexicon(lexicon_file, folder, names, entries); });
    };
    const std::string folder = directory.path("names"), none = directory.path("none");
    std::istringstream output(read(lexicon, folder));
    for (std::string line; std::getline(output, line);) // in the order of the system
        printed.insert(line);
    // Two names and an empty one, Rome and Oslo; the carriage return keeps "NNP" from being a name tag.
    EXPECT_EQ(printed, (Words{"input_directory" + folder, "filename: " + folder + "/.", "filename: " + folder + "/..",
                              "filename: " + folder + "/a.lst", "filename: " + folder + "/b.txt", "all names: 5"}));
    EXPECT_EQ(names, (Words{"kept", "Anna", "", "Bea "}));
    ASSERT_EQ(entries.size(), 4U);
    const LexicalEntry& walked = *entries.find("walked")->second;
    EXPECT_EQ(walked.get_word_form() + walked.get_lemma() + walked.get_pos(), "walkedwalkVBD");
    EXPECT_TRUE(entries.contains(" Rome "));
    EXPECT_EQ(read(lexicon, none), "input_directory" + none + "\nError(2) opening " + none + "\n");
    EXPECT_EQ(read(none, ""), "input_directory\nall names: 0\n");
    for (const auto& [word_form, entry] : entries)
        delete entry;
}

TEST(LexiconReaders, CasesOfEndingsAndOfTheLexicon) {
    Words all, cases; // of the ending "um" of "arum" and "orum", too
    for (const std::string word_form :
         {"dominus", "rosa", "rosarum", "dominorum", "domini", "domino", "urbibus", "urbs", ""}) {
        get_cases_from_word_form(word_form, cases);
        for (const std::string& c : cases)
            all.insert(word_form + ' ' + c.substr(0, 3));
        cases.clear();
    }
    EXPECT_EQ(all, (Words{"dominus NOM", "dominus VOC", "rosa ACC", "rosa NOM", "rosa VOC", "rosarum ACC",
                          "rosarum GEN", "dominorum ACC", "dominorum GEN", "domini NOM", "domino ABL", "domino DAT",
                          "urbibus ABL", "urbibus DAT", "urbibus NOM", "urbibus VOC"}));
    LexicalEntry with, without; // the lexicon gives the empty case at most
    with.set_case("DATIVE");
    EXPECT_FALSE(get_cases_from_lexicon("x", {{"y", &without}}, cases));
    EXPECT_TRUE(get_cases_from_lexicon("x", {{"x", &with}, {"x", nullptr}, {"x", &without}}, cases));
    EXPECT_EQ(cases, Words{});
    EXPECT_TRUE(get_cases_from_lexicon("x", {{"x", &without}, {"x", &with}}, cases));
    EXPECT_EQ(cases, Words{""});
}

} // namespace zelvor
