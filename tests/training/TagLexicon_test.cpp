#include "training/TagLexicon.h"

#include "tests/temporary_directory.h"

#include <gtest/gtest.h>

#include <map>
#include <system_error>

namespace zelvor {
namespace {

std::string line(const std::string& id, const std::string& lemma_pos, const std::string& pos) {
    return "0#s#sp#3#l#src#" + lemma_pos + "#" + id + "#w#9#10#11#12#13#14#15#16#" + pos + "#18#19#20#21";
}

TEST(TagLexicon, FirstLineOfAnIdWinsAndShortLinesCountWithWhatTheyHold) {
    const TemporaryDirectory directory;
    const std::string path = directory.write(
        "lexicon", "// comment\n" + line("17", "V", "Verb") + "\n" + line(" 5 ", "NN", " Noun ") + "\r\n" +
                       line("17", "V", "Later") + "\n" + line("-3", "x", "Minus") + "#22#23#24\n" +
                       line("none", "x", "Zero") + "\n1#2#3#4#5#6#7#19#only so far\n\n" +
                       "0#s#sp#3#l##src#NE#20#w#9#10#11#12#13#14#15#16#Noun#18#19#20#21");
    TagLexicon lexicon;
    std::map<std::size_t, std::size_t> short_lines;
    const TagLexicon::Counts counts =
        lexicon.load(path, [&](std::size_t number, std::size_t fields) { short_lines[number] = fields; });
    EXPECT_EQ(counts.lines, 9U);
    EXPECT_EQ(counts.comments, 1U);
    EXPECT_EQ(counts.short_lines, 2U);
    EXPECT_EQ(counts.duplicates, 2U); // 17, and the empty line, whose id reads as 0
    EXPECT_EQ(short_lines, (std::map<std::size_t, std::size_t>{{7, 9}, {8, 1}}));
    const std::map<int, std::string> tags{{17, "Verb"}, {5, "NN"}, {-3, "Minus"}, {0, "Zero"}, {19, ""}, {20, "NE"}};
    for (const auto& [id, tag] : tags)
        EXPECT_TRUE(lexicon.find(id) && *lexicon.find(id) == tag) << id;
    EXPECT_EQ(lexicon.find(18), nullptr);

    for (const std::string& unreadable : {path + ".missing", directory.path()})
        EXPECT_THROW(lexicon.load(unreadable, nullptr), std::system_error) << unreadable;
    EXPECT_NE(lexicon.find(17), nullptr); // the content stays
}

} // namespace
} // namespace zelvor
