#include "utils/lexicon_utils/wordnet.h"

#include "utils/common_utils/files.h"
#include "utils/common_utils/text.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace zelvor {

namespace {

using Fields = std::vector<std::string_view>;

// Fields of a data line: word count, then pairs of word and lexical id, then the pointer count and the first pointer.
constexpr std::size_t WORD_COUNT = 3, FIRST_WORD = 4, POINTER_BEHIND_WORDS = 5;

/// Of the field alone: behind one of white space, such as a tab, atoi would go on into the next.
int number_at(const Fields& fields, std::size_t i) { return std::atoi(std::string(fields.at(i)).c_str()); }

void read_synset_line(const Fields& fields, std::set<std::string>& words, std::set<std::string>* instances) {
    const int count = number_at(fields, WORD_COUNT);
    const auto place = [](std::size_t first, int i) { return first + 2 * static_cast<std::size_t>(i); };
    if (instances && fields.at(place(POINTER_BEHIND_WORDS, count)) != "@i")
        instances = nullptr;
    for (int i = 0; i < count; ++i) {
        std::string word(fields.at(place(FIRST_WORD, i)));
        std::ranges::replace(word, '_', ' ');
        if (instances)
            instances->insert(word);
        words.insert(std::move(word));
    }
}

} // namespace

void parse_wordnet_file(const std::string& filename, std::set<std::string>& output_tokens,
                        std::set<std::string>* pinstances) {
    bool is_header = true;
    int line_number = 0;
    for_each_line(filename, [&](const std::string& line) {
        const Fields fields = split_tokens(line, " ");
        is_header = is_header && number_at(fields, 0) == ++line_number;
        if (!is_header)
            read_synset_line(fields, output_tokens, pinstances);
    });
}

} // namespace zelvor
