#include "training/analysis.h"

#include "tests/testing.h"
#include "training/TagLexicon.h"

#include <json/json.h>

#include <malloc.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // Json::Reader, as in the reader itself

namespace zelvor {

TEST(AnalysisReader, RemembersABoundedAmount) {
    const auto bytes_in_use = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; }; // 0 under a sanitizer
    const std::size_t before = bytes_in_use();
    Json::Reader json_reader;
    AnalysisReader reader;
    for (int i = 0; i < 1000; ++i)
        reader.read(json_reader, std::string(100'000, ' ') + std::to_string(i));
    EXPECT_LT(bytes_in_use() - before, 50'000'000U);
}

TEST(TagLexicon, KeepsItsContentWhenALoadFails) {
    const TemporaryDirectory directory;
    TagLexicon lexicon;
    const auto load = [&](const std::string& path) { lexicon.load(path, false, [](auto, auto) {}); };
    load(directory.write("lexicon", "0#1#2#3#4#5#V#17#8#9#10#11#12#13#14#15#16#Verb#18#19#20#21"));
    EXPECT_THROW(load(directory.path()), std::system_error);
    EXPECT_THROW(load(directory.write("comments", "// no entry\n")), std::invalid_argument);
    EXPECT_EQ(*lexicon.find(17)->pos, "Verb");
}

} // namespace zelvor
