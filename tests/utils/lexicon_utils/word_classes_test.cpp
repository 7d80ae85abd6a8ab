#include "utils/lexicon_utils/word_classes.h"

#include "tests/testing.h"

namespace zelvor {

TEST(WordClasses, TagsAndModalsMatchAsAWhole) {
    std::string classes;
    for (const std::string word : {"NE", "NN", "JJ", "ADJ", "V", "VB", "can", "wilt", "", "n", "NNS", "Must"})
        classes += is_noun(word) ? 'n' : is_adjective(word) ? 'a' : is_verb(word) ? 'v' : is_modal(word) ? 'm' : '-';
    EXPECT_EQ(classes, "nnaavvmm----");
}

TEST(WordClasses, NumbersAndLetters) {
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"rcl", {"XXX", "CD", "XL", "XIII", "MCMXC", "ix", "MMMMMDCCCLXXXVIII"}},
        {"rc", {"", "ı"}}, // whose capital is I
        {"ol", {"XII.", "xiii."}},
        {"o", {"."}},
        {"oc", {"3.", "-2."}},
        {"c", {"0.5", "-0.5"}},
        {"cl", {"7up", "2eggs"}},
        {"", {"0.", "@[`{é", "λ."}},
        {"l", {"XIV", "IIII", "Z", "a", "z", "IIX", "XIV.", "nan", "XIII\0"s, "ix\xFF", "λA"}}};
    for (const auto& [expected, words] : rows) // Roman, ordinal, cardinal, with Latin letters
        for (const std::string& word : words)
            EXPECT_EQ((is_latin_number(word) ? "r"s : "") + (is_odinal_number(word, "la") ? "o" : "") +
                          (is_cardinal_number(word, "") ? "c" : "") + (contains_latin_characters(word) ? "l" : ""),
                      expected)
                << word;
}

} // namespace zelvor
