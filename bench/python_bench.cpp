// What bench/python.py compares the Python module with: the same calls in C++. Prints the processor time of one fuzzy
// lookup and of reading the lexicon, in nanoseconds.
// usage: python_bench WORDS QUERIES LEXICON
#include "bench/timing.h"
#include "utils/LetterTrieNode.h"
#include "utils/Lexicon.h"

#include <fstream>
#include <string>
#include <vector>

namespace {

std::vector<Glib::ustring> read_words(const char* filename) {
    std::vector<Glib::ustring> words;
    std::ifstream file(filename);
    for (std::string line; std::getline(file, line);)
        words.emplace_back(line);
    return words;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return 2;
    zelvor::LetterTrieNode root;
    for (const Glib::ustring& word : read_words(argv[1]))
        root.store_string(word, 0);
    const std::vector<Glib::ustring> queries = read_words(argv[2]);
    std::size_t found = 0;
    const double fuzzy = processor_seconds([&] {
        for (const Glib::ustring& query : queries) {
            zelvor::LetterTrieNode::FuzzyMatches matches;
            root.lookup_string_fuzzy(query, 0, 1.0, matches, 0, 1.0);
            found += matches.size();
            zelvor::LetterTrieNode::delete_mem(&matches);
        }
    });
    root.delete_tree(&root);
    std::size_t lines = 0;
    const double read = processor_seconds([&] {
        zelvor::Lexicon lexicon;
        lines = lexicon.read(argv[3]);
    });
    std::printf("%.0f %.0f %zu %zu\n", fuzzy * 1e9 / static_cast<double>(queries.size()), read * 1e9, found, lines);
}
