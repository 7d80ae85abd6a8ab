#include "utils/common_utils.h"

#include <iostream>
#include <string>

/// Takes a Latin-1 text apart: each token in lower case, its number of characters, its form in XML, and how many edits
/// away it is from WORD:
///     text_utilities "$(printf '\306neas & Dido')" aeneas
int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: text_utilities LATIN1_TEXT WORD\n";
        return 2;
    }
    const std::string text = zelvor::convert_latin1_to_utf8(std::string(argv[1]));
    for (const std::string_view token : zelvor::split_tokens(text, " ")) {
        const std::string lower = zelvor::convert_lowercase(std::string(token));
        std::cout << lower << ' ' << zelvor::decode_utf8(token).size() << ' '
                  << zelvor::xml_escape(std::string(token)).raw() << ' '
                  << zelvor::levenshtein_distance(lower, argv[2], false) << '\n';
    }
    return 0;
}
