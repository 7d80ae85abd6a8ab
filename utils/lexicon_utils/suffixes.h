#pragma once

#include <vector>

/// Suffixes of English entries, told by how many word forms share an end: the caller stores the forms, reversed, in a
/// trie (LetterTrieNode::store_string) and hands its root in; nothing is stored here.
namespace zelvor {

class EnglishLexicalEntry;
class LetterTrieNode;
class LexicalEntry;
class WordFormContainer;

/// Sets suffix1 to the last piece of the word form as LetterTrieNode::find_suffix marks it, and from more than two
/// (three) pieces suffix2 (suffix3) to the last two (three), if that has fewer bytes than half the characters of the
/// word form. Where what the trie knows of the word form does not begin with a letter (of the C locale in use, by its
/// first byte), nothing is set; slots that are not set keep what they hold. A byte that is not valid
/// UTF-8 comes back as U+FFFD, where the trie has one. Null arguments do nothing.
void extract_suffixes_from_lexical_entry(LetterTrieNode* pletter_trie_node,
                                         EnglishLexicalEntry* penglish_lexical_entry);

/// For each element that is an EnglishLexicalEntry (or derived from it).
void extract_suffixes_from_wordform_containers(LetterTrieNode* pletter_trie_node,
                                               std::vector<WordFormContainer*>& word_form_containers);
void extract_suffixes_from_lexical_entries(LetterTrieNode* pletter_trie_node, std::vector<LexicalEntry*>* pvec);

} // namespace zelvor
