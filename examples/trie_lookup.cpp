#include "utils/LetterTrieNode.h"

#include <algorithm>
#include <fstream>
#include <iostream>

namespace {

/// Confusions of an optical character recogniser, with what each costs of the budget; all others cost 1. The cost of a
/// substituted character is that of the character before it and the one that was read.
std::map<Glib::ustring, double> confusions{{"ce", 0.3}, {"il", 0.3}, {"nu", 0.4}, {"fs", 0.4}};

void print_corrections(zelvor::LetterTrieNode& root, const std::string& word) {
    zelvor::LetterTrieNode::FuzzyMatches matches;
    const int steps = root.lookup_string_fuzzy(word, 0, 2.0, matches, 0, 1.0);
    std::vector<std::pair<double, std::string>> sorted;
    for (const auto* match : matches)
        sorted.emplace_back(-match->first, match->second.raw()); // the closest have most of the budget left
    zelvor::LetterTrieNode::delete_mem(&matches);
    std::sort(sorted.begin(), sorted.end());
    std::cout << word << ": ";
    if (sorted.empty())
        std::cout << "nothing like it\n";
    else
        std::cout << sorted.size() << " within the budget, the nearest " << steps << " steps away\n";
    for (std::size_t i = 0; i < std::min<std::size_t>(sorted.size(), 5); ++i)
        std::cout << "    " << sorted[i].second << " (" << -sorted[i].first << " left)\n";
}

void print_parts(zelvor::LetterTrieNode& root, const std::string& word) {
    auto* splittings = root.segment_sorted(word, 0);
    if (!splittings)
        std::cout << "    cannot be split\n";
    for (std::size_t i = 0; splittings && i < splittings->size(); ++i) {
        std::cout << "    =";
        for (const Glib::ustring& part : *(*splittings)[i])
            std::cout << ' ' << part.raw();
        std::cout << '\n';
    }
    root.delete_segment_result(splittings);
}

} // namespace

/// Stores the words of a list, one a line, and for each further argument prints the nearest stored words and all ways
/// to put it together from stored words; without any, the trie:
///     trie_lookup examples/latin_words.txt rempubiicam agricela agricultura
int main(int argc, char** argv) {
    std::ifstream list(argc > 1 ? argv[1] : "");
    if (!list) {
        std::cerr << "usage: trie_lookup LIST [WORD...]\n";
        return 2;
    }
    zelvor::LetterTrieNode root;
    for (std::string word; std::getline(list, word);)
        root.store_string(word, 0);
    zelvor::LetterTrieNode::set_weight_table(&confusions);
    for (int i = 2; i < argc; ++i) {
        print_corrections(root, argv[i]);
        print_parts(root, argv[i]);
    }
    if (argc == 2)
        root.print(std::cout);
    root.delete_tree(&root);
    return 0;
}
