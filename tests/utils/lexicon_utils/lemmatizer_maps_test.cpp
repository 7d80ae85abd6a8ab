#include "utils/lexicon_utils/lemmatizer_maps.h"

#include "tests/testing.h"
#include "utils/BaseLexicalEntry.h"

namespace zelvor {

TEST(LemmatizerMaps, SingleCachesKeepWholeLines) {
    const TemporaryDirectory directory;
    const std::string file = directory.write("cache", "amat\tamat amo||0.9\namat\tlater\nno separator\n\tempty key\n");
    LineCache cache{{"", "known"}}, ocr;
    fill_lemmatizer_hashmap(file, cache);
    EXPECT_EQ(cache, (LineCache{{"", "known"}, {"amat", "amat\tamat amo||0.9"}}));
    fill_ocr_hashmap(directory.path("missing"), ocr);
    fill_ocr_hashmap(file, ocr);
    EXPECT_EQ(ocr,
              (LineCache{{"amat\tamat", "amat\tamat amo||0.9"}, {"no", "no separator"}, {"\tempty", "\tempty key"}}));
}

TEST(LemmatizerMaps, AttachmentScoresAreThoseOfFrequentPairs) {
    const TemporaryDirectory directory;
    std::map<std::pair<std::string, std::string>, double> scores;
    parse_attachment_map(directory.write("scores",
                                         "a,b:20.5,,x,,x,x,0.5\na,b:22,x,x,x,0.6,y\nc,d:20,x,x,x,1\n"
                                         "e,f:30,x,x,x,nan\ne,f:30,x,x,x,-nan\ne,f:30,x,x,x,inf\ng,h:30,1,2,3\n"
                                         "h:i,j\nno\n,k:1e9,1,2,3,-4\no,p,q:25,0,0,0,x:y\n"),
                         scores);
    EXPECT_EQ(scores, (decltype(scores){{{"a", "b"}, 0.5}, {{"", "k"}, -4}, {{"o", "p,q"}, 0}}));
}

TEST(LemmatizerMaps, ExportComesBackUnderOtherKeysAndFromTheWorkingDirectory) {
    const TemporaryDirectory directory;
    std::map<std::string, LineCache*> caches{{"zv_v", new LineCache{{"amat", "amat amo||0.9"}, {"x", "y"}}},
                                             {"zv_n", nullptr}};
    export_lemmatizer_map(caches, directory.path());
    free_lemmatizer_map(caches);
    EXPECT_EQ(directory.read("zv_v"), "amat:amat amo||0.9\nx:y\n");
    directory.write("zv_n.old.cache", "rosa rosa||1 \nrosa later\n");
    caches["zv_a"] = nullptr; // stays without lines
    directory.write("zv_a.d", "");
    const auto fill = [&](const std::string& folder) {
        return output_of([&] { fill_lemmatizer_hashmap_allpos(folder, caches); });
    };
    EXPECT_EQ(fill(directory.path()), "input_directory" + directory.path() + "\n");
    EXPECT_EQ(caches.at("zv_v")->size(), 0U);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(directory.path());
    EXPECT_EQ(fill(".") + fill("missing"), "input_directory.\ninput_directorymissing\nError(2) opening missing\n");
    std::filesystem::current_path(before);
    EXPECT_EQ(*caches["zv_v"], (LineCache{{"amat:amat", "amat:amat amo||0.9"}}));
    EXPECT_EQ(*caches["zv_n"], (LineCache{{"rosa", "rosa rosa||1 "}}));
    EXPECT_EQ(caches.at("zv_a"), nullptr);
    free_lemmatizer_map(caches);
}

TEST(LemmatizerMaps, IndexesByTag) {
    BaseLexicalEntry verb("amo", "amat", "V");
    std::vector<BaseLexicalEntry*> entries{&verb, nullptr, &verb};
    Words tags{"A"};
    get_possible_pos(&entries, tags);
    get_possible_pos(nullptr, tags);
    EXPECT_EQ(tags, (Words{"A", "V"}));
    std::map<std::string, Words*> word_forms{{"N", nullptr}};
    std::map<std::string, WordFormContainers*> containers{{"N", nullptr}};
    for (const auto& [pos, steps] :
         {std::pair("V", "1\n2\n3\n5\n6\n7\n8\n"), {"V", "1\n2\n3\n4\n8\n"}, {"N", "1\n2\n3\n4\n8\n"}}) {
        add_pos_wf_to_hash(word_forms, pos, "amat");
        EXPECT_EQ(output_of([&, &pos = pos] { add_pos_wf_to_wfc(containers, pos, "amat", nullptr); }), steps);
    }
    EXPECT_EQ(*word_forms.at("V"), (Words{"amat"}));
    EXPECT_EQ(containers.at("V")->count("amat"), 2u);
    EXPECT_EQ(containers.at("N"), nullptr);
    free_pos_wf_to_hash(word_forms);
    free_wfc_hash(containers);
    EXPECT_TRUE(containers.empty());
}

} // namespace zelvor
