#include "utils/LetterTrieNode.h"
#include "utils/LexicalEntry.h"

#include <string_view>

/// With AddressSanitizer, which the library knows nothing of: keeps an entry, and misuses a trie as argv[1] says.
zelvor::LexicalEntry* kept;

zelvor::LetterTrieNode* make_trie(bool lose_it) {
    auto* root = new zelvor::LetterTrieNode;
    root->store_string("arma", 0);
    return lose_it ? nullptr : root;
}

int main(int argc, char** argv) {
    const std::string_view fault = argc > 1 ? argv[1] : "";
    kept = new zelvor::LexicalEntry("a lemma that needs memory of its own", "form", "NN");
    zelvor::LetterTrieNode* const root = make_trie(fault == "leaks");
    if (!root)
        return 0;
    root->delete_tree(root);
    delete root;
    return fault == "heap-use-after-free" && root->is_leaf();
}
