#include "training/tags.h"

namespace zelvor {

namespace {

constexpr std::string_view PUNCTUATION_TAGS[][2] = {{",", "$,"}, {".", "$."}, {"(", "$("},  {")", "$("},
                                                    {"[", "$("}, {"]", "$("}, {"\"", "$("}, {"'", "$("}};

} // namespace

std::string_view punctuation_tag(std::string_view text) {
    for (const auto& [mark, tag] : PUNCTUATION_TAGS)
        if (text == mark)
            return tag;
    return {};
}

const std::string& word_tag(const std::string& pos, const std::string& lemma_pos) {
    return pos == "Noun" ? lemma_pos : pos;
}

} // namespace zelvor
