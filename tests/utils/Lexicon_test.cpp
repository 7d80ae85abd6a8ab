#include "utils/Lexicon.h"

#include "tests/temporary_directory.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <new>
#include <random>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace zelvor {
namespace {

/// A lexicon line; the fields that are not named are unknown.
std::string line_of(const std::map<int, std::string>& fields) {
    std::string line;
    for (int i = 0; i < 22; ++i)
        line += (fields.contains(i) ? fields.at(i) : " ") + (i < 21 ? "#" : "");
    return line;
}

std::unique_ptr<LexicalEntry> entry_of(const std::string& line) {
    auto entry = std::make_unique<LexicalEntry>();
    entry->parse_latin(line);
    return entry;
}

template<typename Entries>
std::string exported(const Entries& entries) {
    std::ostringstream os;
    for (const auto* entry : entries)
        LexicalEntry(static_cast<const LexicalEntry&>(*entry)).export_latin(os);
    return os.str();
}

TEST(Lexicon, AddingFoldsAsMergingOnOneMapDoes) {
    std::mt19937 random(1);
    const auto one_of = [&](std::vector<std::string> values) { return values[random() % values.size()]; };
    for (int round = 0; round < 2'000; ++round) { // 50 entries each
        std::vector<std::unique_ptr<LexicalEntry>> owned;
        std::vector<BaseLexicalEntry*> merged;
        std::multimap<std::string, BaseLexicalEntry*> by_lemma;
        Lexicon lexicon;
        const bool extended = random() % 2 != 0;
        for (int i = 0; i < 50; ++i) {
            const std::string line = line_of({{4, one_of({"_", "am", "amo"})},
                                              {7, one_of({" ", " ", std::to_string(i)})},
                                              {8, one_of({"-", "-at", "amat", "_", " "})},
                                              {9, one_of({" ", "NOM", "ACC"})},
                                              {14, one_of({" ", "IND"})},
                                              {17, one_of({" ", "N", "V"})}});
            owned.push_back(entry_of(line));
            auto added = entry_of(line);
            for (LexicalEntry* entry : {owned.back().get(), added.get()})
                entry->insert_originating_source_pos(std::to_string(i % 3));
            ASSERT_EQ(lexicon.add(std::move(added), extended), owned.back()->merge(merged, by_lemma, extended));
        }
        ASSERT_EQ(exported(lexicon.entries()), exported(merged));
    }
}

TEST(Lexicon, FilesAreMergedLookedUpAndWritten) {
    const TemporaryDirectory folder;
    const std::string first =
        folder.write("first", "\xEF\xBB\xBF// am\n\n" + line_of({{4, "am"}, {8, "amat"}, {17, "V"}}) + "\r\n" +
                                  line_of({{4, "am"}, {7, "07"}, {8, "am"}, {17, "V"}}));
    const std::string second = folder.write("second", line_of({{4, "am"}, {7, "8"}, {8, "-at"}}) + "\n" +
                                                          line_of({{4, "x"}, {7, "9"}, {8, "amat"}}) + "\n");
    Lexicon lexicon;
    EXPECT_EQ(lexicon.read(first), 2U);
    EXPECT_EQ(lexicon.find_id(8), nullptr);
    EXPECT_EQ(lexicon.merge(second, "b"), 1U); // spelled out or not, it is one form
    EXPECT_EQ(lexicon.find_id(8), lexicon.entries()[0]) << "an id that was filled";
    EXPECT_EQ(lexicon.find_id(7), lexicon.entries()[1]);
    EXPECT_EQ(lexicon.find_id(0), nullptr);
    EXPECT_EQ(lexicon.find_form("amat"), (Lexicon::Entries{lexicon.entries()[0], lexicon.entries()[2]}));
    EXPECT_EQ(lexicon.find_lemma("am"), (Lexicon::Entries{lexicon.entries()[0], lexicon.entries()[1]}));
    EXPECT_TRUE(lexicon.find_form("-at").empty());
    EXPECT_FALSE(lexicon.add(nullptr, true));

    lexicon.write(folder.path("written"));
    Lexicon again;
    again.read(folder.path("written"));
    EXPECT_EQ(exported(again.entries()), exported(lexicon.entries()));
    EXPECT_NE(exported(again.entries()).find("\t#b\t#b\t#b\t#"), std::string::npos);
}

TEST(Lexicon, FailuresAreToldAndLeaveEverythingAsItWas) {
    const TemporaryDirectory folder;
    const std::string bad = folder.write("bad", line_of({{4, "a"}}) + "\n1#2#3\n" + line_of({{4, "\xE9"}}));
    Lexicon lexicon;
    EXPECT_THROW(lexicon.read(folder.path("missing")), std::system_error);
    EXPECT_THROW(lexicon.read(folder.path()), std::system_error);
    EXPECT_THROW(lexicon.read(folder.write("packed", "\x1F\x8B\x08\n"), [](auto...) {}), std::invalid_argument);
    EXPECT_THROW(lexicon.merge(bad, "a#b"), std::invalid_argument);
    try {
        lexicon.read(bad);
        ADD_FAILURE();
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(error.what(), bad + ":2: 3 of the 22 fields that a line must have: 1#2#3");
    }
    EXPECT_EQ(lexicon.size(), 0U);
    std::string told;
    lexicon.read(bad, [&](std::size_t number, const std::string& why) { told += std::to_string(number) + why[0]; });
    EXPECT_EQ(told, "233n");
    struct WithoutMemory : LexicalEntry {
        std::string get_word_form() const override { throw std::bad_alloc(); }
    };
    EXPECT_THROW(lexicon.append(std::make_unique<WithoutMemory>()), std::bad_alloc);
    EXPECT_EQ(lexicon.size(), 1U);
    EXPECT_TRUE(lexicon.find_lemma("").empty());

    folder.write("kept", "kept");
    using Row = std::array<const char*, 3>; // the first field, one that is set, and why the entry is refused
    for (const auto& [first, voice, reason] :
         {Row{"1", "a\nb", "\"#\" or a line end"}, Row{"1", "a#b", "\"#\" or a line end"},
          Row{"1", "#b", "\"#\" or a line end"}, Row{"//1", "b", "\"//\" would be a comment"},
          Row{"1", "b\xE9", "not UTF-8"}}) {
        auto entry = entry_of(line_of({{0, first}}));
        entry->set_voice(voice);
        Lexicon hostile;
        hostile.add(std::move(entry), false);
        try {
            hostile.write(folder.path("kept"));
            ADD_FAILURE() << reason;
        } catch (const std::invalid_argument& error) {
            EXPECT_NE(std::string_view(error.what()).find(reason), std::string_view::npos) << error.what();
        }
        EXPECT_EQ(folder.read("kept"), "kept");
    }
}

} // namespace
} // namespace zelvor
