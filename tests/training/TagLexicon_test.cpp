#include "training/TagLexicon.h"

#include "tests/testing.h"

#include <system_error>

namespace zelvor {

TEST(TagLexicon, CountsItsLinesAndKeepsItsContentWhenALoadFails) {
    const TemporaryDirectory directory;
    const std::string line = "0#s#sp#3#l#src#V#17#w#9#10#11#12#13#14#15#16#Verb#18#19#20#21\n";
    const std::string path =
        directory.write("lexicon", "// comment\n" + line + line + "1#2#3#4#5#6#7#19#only so far\n\n0#x#x#x#x#x#x#0");
    TagLexicon lexicon;
    std::map<std::size_t, std::size_t> short_lines;
    const TagLexicon::Counts counts =
        lexicon.load(path, [&](std::size_t number, std::size_t fields) { short_lines[number] = fields; });
    EXPECT_EQ(counts.duplicates, 2U); // of 17, and of 0, which is the empty line's id, too
    EXPECT_EQ(short_lines, (std::map<std::size_t, std::size_t>{{4, 9}, {5, 1}, {6, 8}}));
    errno = 0;
    for (const std::string& unreadable : {path + ".missing", directory.path()})
        EXPECT_THROW(lexicon.load(unreadable, nullptr), std::system_error) << unreadable;
    EXPECT_EQ(*lexicon.find(17), "Verb");
    EXPECT_EQ(lexicon.find(-1), nullptr);
}

} // namespace zelvor
