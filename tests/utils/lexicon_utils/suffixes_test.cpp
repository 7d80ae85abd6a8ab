#include "utils/lexicon_utils/suffixes.h"

#include "tests/testing.h"

#include "utils/LetterTrieNode.h"
#include "utils/LexicalEntry.h"

namespace zelvor {

struct Endings : testing::Test {
    Endings() { // c, bc, abc and dabc, each less than a third as frequent as the one before; ing with and without lk
        const std::pair<const char*, int> reversed[] = {{"c", 64},  {"cb", 16},   {"cba", 4},       {"cbad", 1},
                                                        {"gni", 7}, {"gnikl", 2}, {"x\xC3\xA4", 1}, {"a3", 1}};
        for (const auto& [ending, count] : reversed)
            for (int i = 0; i < count; ++i)
                root.store_string(ending, 0);
    }
    ~Endings() override { root.delete_tree(&root); }
    LetterTrieNode root;
};

TEST_F(Endings, BecomeSuffixesOfGrowingLength) {
    // lk and ing are two pieces and make no second suffix, thing has one, abc three and dabc four. Three bytes are not
    // fewer than half of seven characters, nor two than half of four; characters are counted, not bytes. What begins
    // with a byte that is no letter is left alone.
    using Row = std::pair<const char*, std::string>;
    for (const auto& [word_form, suffixes] :
         {Row("xxxxxxxxlking", "ing old old"), Row("thing", "ing old old"), Row("xxxxxxxxdabc", "c bc abc"),
          Row("xxxxxxxxabc", "c bc old"), Row("xxxdabc", "c bc old"), Row("dabc", "c old old"),
          Row("äääädabc", "c bc abc"), Row("\xC3\xA4x", "old old old"), Row("3a", "old old old"),
          Row("", "old old old")}) {
        LexicalEntry entry("lemma", word_form, "N");
        entry.set_suffix1("old");
        entry.set_suffix2("old");
        entry.set_suffix3("old");
        std::vector<LexicalEntry*> entries{nullptr, &entry};
        extract_suffixes_from_lexical_entries(nullptr, &entries);
        extract_suffixes_from_lexical_entries(&root, nullptr);
        extract_suffixes_from_lexical_entries(&root, &entries);
        EXPECT_EQ(entry.get_suffix1() + " " + entry.get_suffix2() + " " + entry.get_suffix3(), suffixes) << word_form;
    }
    EnglishLexicalEntry entry("l", "thing", "N");
    BaseLexicalEntry other("l", "thing", "N");
    std::vector<WordFormContainer*> containers{nullptr, &other, &entry};
    extract_suffixes_from_wordform_containers(&root, containers);
    EXPECT_EQ(entry.get_suffix1(), "ing");
}

} // namespace zelvor
