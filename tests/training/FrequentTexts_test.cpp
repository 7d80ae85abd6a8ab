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
    for (const auto& [text, count, place] : texts.sorted(kind))
        all += std::string(text) + std::to_string(count) + "@" + std::to_string(place.document) + " ";
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
    EXPECT_EQ(narrow.sorted(1)[0].place.line, 7);
    EXPECT_EQ(narrow.sorted(1)[0].place.file, "f");
}

TEST(FrequentTexts, count_by_their_beginning_in_whole_characters) {
    FrequentTexts texts({5, 1000});
    texts.enter(1, std::string(99, 'x') + "\u00E9", {});
    EXPECT_EQ(texts.find(1, std::string(99, 'x') + "\u00E9z"), 0);
    EXPECT_EQ(texts.find(1, std::string(100, 'x')), FrequentTexts::NONE);
}

} // namespace zelvor
