#include "utils/Lexicon.h"

#include <exception>
#include <iostream>
#include <string>

/// Merges lexicon files into one, the first ones before the others, and says how many analyses each has added. In the
/// result every value is attested by the files (their names without folders) that have it:
///     merge_lexica RESULT FILE...
int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: merge_lexica RESULT FILE...\n";
        return 2;
    }
    try {
        zelvor::Lexicon lexicon;
        for (int i = 2; i < argc; ++i) {
            const std::string path = argv[i];
            const std::size_t added = lexicon.merge(path, path.substr(path.rfind('/') + 1));
            std::cout << path << ": " << added << " new, " << lexicon.size() << " in all\n";
        }
        lexicon.write(argv[1]);
    } catch (const std::exception& error) { // names the file, and the line where there is one
        std::cerr << "merge_lexica: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
