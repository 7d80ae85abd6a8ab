#include "utils/lexicon_utils/wordnet.h"

#include "tests/testing.h"

namespace zelvor {

TEST(WordNetFile, WordsAndInstances) {
    const TemporaryDirectory directory;
    const std::string file =
        directory.write("data", "  1 licence\n  2 more 3 4\n"
                                "00001 15 n 02 New_York 0 Big_Apple 0 001 @i 00002 n 0000 | gloss\n"
                                "5 15 n 0a lost 0 000 @i\n");
    Words words{"kept"}, instances;
    parse_wordnet_file(file, words, &instances);
    EXPECT_EQ(words, (Words{"kept", "New York", "Big Apple"})); // 0a reads as 0
    EXPECT_EQ(instances, (Words{"New York", "Big Apple"}));
    const std::string tab = directory.write("tab", "\t 1 n 01 tabbed 0"); // a tab is no line number
    parse_wordnet_file(tab, words, nullptr);
    EXPECT_TRUE(words.contains("tabbed"));
    EXPECT_THROW(parse_wordnet_file(tab, words, &instances), std::out_of_range); // no count of pointers
    parse_wordnet_file(directory.path("missing"), words, &instances);
}

} // namespace zelvor
