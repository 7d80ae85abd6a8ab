#include "utils/lexicon_utils/lexicon_readers.h"

#include "tests/temporary_directory.h"
#include "utils/LexicalEntry.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zelvor {
namespace {

using Words = std::set<std::string>;

TEST(LexiconReaders, WordsOfALexiconAreTrimmed) {
    const TemporaryDirectory directory;
    Words words{"kept"};
    get_words_from_lexicon(directory.write("l", " walked \twalk\tVBD\r\n\t\tcats\tcat \tNNS\tmore\n"), words);
    EXPECT_EQ(words, (Words{"kept", "walked", "walk", "cats", "cat"}));
    EXPECT_THROW(get_words_from_lexicon(directory.write("short", "a\tb\n"), words), std::out_of_range);
    get_words_from_lexicon(directory.path("missing"), words);
    std::string lemma, word_form, pos;
    parse("w\tl\tp", lemma, word_form, pos);
    EXPECT_EQ(lemma + word_form + pos, "lwp");
}

TEST(LexiconReaders, Statistics) {
    const TemporaryDirectory directory;
    std::map<std::string, int> counts{{"old", 1}};
    std::set<int> numbers;
    read_statistics(directory.write("s", " a=b=7 \r\n\n  \nx\n5\na=b=9\nold=2\n=3\nc = 4"), counts, numbers);
    EXPECT_EQ(counts, (std::map<std::string, int>{{"a=b", 7}, {"x", 0}, {"5", 5}, {"old", 1}, {"", 3}, {"c ", 4}}));
    EXPECT_EQ(numbers, (std::set<int>{0, 2, 3, 4, 5, 7, 9})); // a count that comes too late is a number all the same
}

TEST(LexiconReaders, LexiconAndNames) {
    const TemporaryDirectory directory;
    directory.write("names/a.lst", "Anna\n\nBea \n");
    directory.write("names/b.txt", "no");
    std::filesystem::create_directory(directory.path("names/c.lst"));
    const std::string lexicon = directory.write(
        "lexicon", "walked\twalk\tVBD\textra\n\twalk\tVBD\n Rome \tRome\tNP\n\xFF\tAnna\tNNP\r\nOslo\tOslo\tNNP\n");
    Words names{"kept"};
    std::multimap<std::string, LexicalEntry*> entries;
    testing::internal::CaptureStdout();
    read_lexicon(lexicon, directory.path("names"), names, entries);
    std::string output = testing::internal::GetCapturedStdout();
    for (const char* const entry : {".", "..", "a.lst", "b.txt", "c.lst"}) { // in the order of the system
        const std::string line = "filename: " + directory.path("names") + "/" + entry + "\n";
        ASSERT_NE(output.find(line), output.npos) << output;
        output.erase(output.find(line), line.size());
    }
    // Two names and an empty one, Rome and Oslo; the carriage return keeps "NNP" from being a name tag.
    EXPECT_EQ(output, "input_directory" + directory.path("names") + "\nall names: 5\n");
    EXPECT_EQ(names, (Words{"kept", "Anna", "", "Bea "}));
    ASSERT_EQ(entries.size(), 4U);
    const LexicalEntry& walked = *entries.find("walked")->second;
    EXPECT_EQ(walked.get_word_form() + walked.get_lemma() + walked.get_pos(), "walkedwalkVBD");
    EXPECT_TRUE(entries.contains(" Rome "));
    testing::internal::CaptureStdout();
    read_lexicon(lexicon, directory.path("none"), names, entries);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "input_directory" + directory.path("none") + "\nError(2) opening " + directory.path("none") + "\n");
    testing::internal::CaptureStdout();
    read_lexicon(directory.path("none"), "", names, entries);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "input_directory\nall names: 0\n");
    for (const auto& [word_form, entry] : entries)
        delete entry;
}

TEST(LexiconReaders, CasesOfEndings) {
    const std::pair<const char*, Words> rows[] = {{"dominus", {"NOMINATIVE", "VOCATIVE"}},
                                                  {"rosa", {"ACCUSATIVE", "NOMINATIVE", "VOCATIVE"}},
                                                  {"rosarum", {"ACCUSATIVE", "GENITIVE"}},
                                                  {"dominorum", {"ACCUSATIVE", "GENITIVE"}},
                                                  {"domini", {"NOMINATIVE"}},
                                                  {"domino", {"ABLATIVE", "DATIVE"}},
                                                  {"urbibus", {"ABLATIVE", "DATIVE", "NOMINATIVE", "VOCATIVE"}},
                                                  {"urbs", {}},
                                                  {"", {}}};
    for (const auto& [word_form, expected] : rows) {
        Words cases;
        get_cases_from_word_form(word_form, cases);
        EXPECT_EQ(cases, expected) << word_form;
    }
}

TEST(LexiconReaders, CasesOfTheLexiconAreTheEmptyOneAtMost) {
    LexicalEntry with, without;
    with.set_case("DATIVE");
    Words cases;
    EXPECT_FALSE(get_cases_from_lexicon("x", {{"y", &without}}, cases));
    EXPECT_TRUE(get_cases_from_lexicon("x", {{"x", &with}, {"x", &without}}, cases));
    EXPECT_TRUE(get_cases_from_lexicon("x", {{"x", nullptr}}, cases));
    EXPECT_EQ(cases, Words{});
    EXPECT_TRUE(get_cases_from_lexicon("x", {{"x", &without}, {"x", &with}}, cases));
    EXPECT_EQ(cases, Words{""});
}

} // namespace
} // namespace zelvor
