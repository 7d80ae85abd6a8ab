#include "utils/LetterTrieNode.h"
#include "utils/LexicalEntry.h"
#include "utils/lexicon_utils.h"

#include <iostream>
#include <memory>

/// Reaches what zelvor calls for itself (Boost.Regex, WordNet) and what its headers show of others.
int main() {
    zelvor::LetterTrieNode root;
    root.store_string("arma", 0);
    std::cout << root.lookup_string("arma", 0) << root.lookup_string("arms", 0);
    root.delete_tree(&root);
    const std::unique_ptr<zelvor::BaseLexicalEntry> entry = std::make_unique<zelvor::LexicalEntry>();
    std::cout << (dynamic_cast<zelvor::LexicalEntry*>(entry.get()) != nullptr) << zelvor::is_modal("must")
              << zelvor::is_instance("Roma", 1) << '\n'; // WordNet is not opened: not found
}
