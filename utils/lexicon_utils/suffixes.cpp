#include "utils/lexicon_utils/suffixes.h"

#include "utils/LetterTrieNode.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/text.h"
#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <cctype>
#include <string>

namespace zelvor {

namespace {

/// isalpha of a plain char: a byte above 127 is negative there, and no letter.
bool starts_with_letter(const std::string& text) {
    return !text.empty() && static_cast<signed char>(text[0]) >= 0 && std::isalpha(text[0]);
}

} // namespace

void extract_suffixes_from_lexical_entry(LetterTrieNode* pletter_trie_node,
                                         EnglishLexicalEntry* penglish_lexical_entry) {
    if (!pletter_trie_node || !penglish_lexical_entry)
        return;
    std::u32string reversed = decode_utf8(penglish_lexical_entry->get_word_form());
    std::reverse(reversed.begin(), reversed.end());
    Glib::ustring marked;
    pletter_trie_node->find_suffix(encode_utf8(reversed), 0, marked);
    const std::string text = revert(marked).raw();
    std::vector<std::string> pieces;
    if (starts_with_letter(text))
        tokenize_arg(text, "|", pieces);
    if (pieces.empty())
        return;
    // Kept: bytes are compared with half the number of characters, and two pieces make no second suffix.
    const std::size_t limit = reversed.size() / 2;
    std::string suffix = pieces.back();
    penglish_lexical_entry->set_suffix1(suffix);
    if (pieces.size() > 2) {
        suffix = pieces.end()[-2] + suffix;
        if (suffix.size() < limit)
            penglish_lexical_entry->set_suffix2(suffix);
    }
    if (pieces.size() > 3) {
        suffix = pieces.end()[-3] + suffix;
        if (suffix.size() < limit)
            penglish_lexical_entry->set_suffix3(suffix);
    }
}

void extract_suffixes_from_wordform_containers(LetterTrieNode* pletter_trie_node,
                                               std::vector<WordFormContainer*>& word_form_containers) {
    for (WordFormContainer* container : word_form_containers)
        extract_suffixes_from_lexical_entry(pletter_trie_node, dynamic_cast<EnglishLexicalEntry*>(container));
}

void extract_suffixes_from_lexical_entries(LetterTrieNode* pletter_trie_node, std::vector<LexicalEntry*>* pvec) {
    if (!pvec)
        return;
    for (LexicalEntry* entry : *pvec)
        extract_suffixes_from_lexical_entry(pletter_trie_node, entry);
}

} // namespace zelvor
