#include "utils/OriginatingLexicalEntryRepresentation.h"

#include <initializer_list>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using Entry = zelvor::OriginatingLexicalEntryRepresentation;

/// Folds the words of two sources into one list that tells which source attests what.
int main() {
    Entry::num_sources = 2; // what both attest is printed as "all"
    std::vector<Entry*> entries;
    std::multimap<std::string, Entry*> by_lemma;
    std::vector<std::unique_ptr<Entry>> owned; // the containers above own nothing
    for (const auto& [source, line] : std::initializer_list<std::pair<const char*, const char*>>{
             {"glossary", "amat\tamo\tV\tVerb"},
             {"glossary", "amor\tamor\tNN\tNoun"},
             {"treebank", "amat\tamo\tV\tVerb"},
             {"treebank", "amor\tamo\tV\tVerb"}}) { // "I am loved": another lemma, another entry
        auto entry = std::make_unique<Entry>();
        entry->parse(line);
        entry->insert_originating_lemmas(source);
        entry->insert_originating_wordforms(source);
        entry->insert_originating_pos(source);
        if (entry->merge(entries, by_lemma, false)) // false: folded into one that is there
            owned.push_back(std::move(entry));
    }
    for (Entry* const entry : entries)
        std::cout << *entry << '\n';
    return 0;
}
