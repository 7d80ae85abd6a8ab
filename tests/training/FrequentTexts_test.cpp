#include "training/FrequentTexts.h"

#include <gtest/gtest.h>

namespace zelvor {

/// As of one document: each letter a text.
FrequentTexts counted(std::uint8_t kind, const std::string& letters) {
    FrequentTexts texts({100, 1000});
    for (const char letter : letters) {
        const std::uint32_t number = texts.find(kind, {&letter, 1});
        texts.raise(number != FrequentTexts::NONE ? number : texts.enter(kind, {&letter, 1}, {0, 7, "f"}), 1);
    }
    return texts;
}

std::string sorted(const FrequentTexts& texts, std::uint8_t kind) {
    std::string all;
    for (const FrequentTexts::Text& text : texts.most_frequent(kind))
        all +=
            std::string(text.beginning) + std::to_string(text.count) + "@" + std::to_string(text.place.document) + " ";
    return all + "error " + std::to_string(texts.error(kind));
}

TEST(FrequentTexts, are_exact_while_there_is_room_and_too_low_by_the_error_then) {
    FrequentTexts texts({5, 1000});
    texts.add(counted(1, "abaabbaca"), 0);
    texts.add(counted(2, "aa"), 1);
    texts.add(counted(1, "db"), 2);
    EXPECT_EQ(sorted(texts, 1), "a5@0 b4@0 c1@0 d1@2 error 0");
    texts.add(counted(1, "ee"), 3); // the middle count of kind 1 goes from all of it: 4 of 5, 4, 1, 1
    EXPECT_EQ(sorted(texts, 1), "e2@3 a1@0 error 4");
    EXPECT_EQ(sorted(texts, 2), "a2@1 error 0");
    FrequentTexts narrow({5, 4}); // bytes: two of a text with its file
    narrow.add(counted(1, "abbc"), 0);
    EXPECT_EQ(sorted(narrow, 1), "c1@0 error 2");
    EXPECT_EQ(narrow.most_frequent(1)[0].place.line, 7);
    EXPECT_EQ(narrow.most_frequent(1)[0].place.file, "f");
}

TEST(FrequentTexts, tell_texts_apart_by_all_of_their_bytes_and_keep_whole_characters) {
    const std::string long_text = std::string(99, 'x') + "\u00E9"; // 101 bytes, of which the last two are one character
    FrequentTexts texts({100, 1000});
    const std::string whole[] = {"",
                                 "a",
                                 "aa",
                                 "aaa",
                                 "abc",
                                 "bbc",
                                 "abb",
                                 "abcdefgh",
                                 "abcdefgi",
                                 "Abcdefgh",
                                 "abcdefghabcdefgh",
                                 "abcdefghabcdefgi",
                                 "abcdefghiabcdefgh",
                                 "abcdefghjabcdefgh",
                                 "abcdefghabcdefghi",
                                 long_text,
                                 long_text + "z",
                                 long_text + "y"};
    for (std::uint32_t i = 0; i < std::size(whole); ++i) {
        ASSERT_EQ(texts.find(1, whole[i]), FrequentTexts::NONE) << whole[i];
        ASSERT_EQ(texts.enter(1, whole[i], {}), i);
        texts.raise(i, 1);
    }
    for (std::uint32_t i = 0; i < std::size(whole); ++i)
        EXPECT_EQ(texts.find(1, whole[i]), i);
    EXPECT_EQ(texts.find(2, "abc"), FrequentTexts::NONE);
    const FrequentTexts::Text last = texts.most_frequent(1).back();
    EXPECT_EQ(last.beginning, std::string(99, 'x'));
    EXPECT_EQ(last.bytes, 102);
}

} // namespace zelvor
