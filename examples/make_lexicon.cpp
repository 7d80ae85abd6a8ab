#include "utils/LexicalEntry.h"

#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// Makes a lexicon out of two sources, inflection paradigms and a word list, and writes it in the format that the
/// converter reads; an overview of which source attests which word goes to standard output:
///     make_lexicon lexicon.txt && convert_with_lexicon CORPUS lexicon.txt OUTPUT
namespace {

using namespace zelvor;

// Source one: rows of tables, applied to the stems of some lemmas. Such entries are rich in categories and have no id.

const ConjugationEntry FIRST_CONJUGATION[] = {
    {1, true, present, indicative, true, "o", 1, "V", gnone, none},
    {3, true, present, indicative, true, "at", 1, "V", gnone, none},
    {3, false, present, indicative, true, "ant", 1, "V", gnone, none},
    {0, true, present, infinitive, true, "are", 1, "V", gnone, none},
    {3, true, perfect, indicative, true, "it", 2, "V", gnone, none},
};

const DeclensionEntry FIRST_DECLENSION[] = {
    {nominative, true, "a", 1, feminine},  {genitive, true, "ae", 1, feminine},    {dative, true, "ae", 1, feminine},
    {accusative, true, "am", 1, feminine}, {nominative, false, "ae", 1, feminine},
};

const struct {
    const char* lemma;
    std::vector<std::string> stems;
} VERBS[] = {{"amo", {"am", "amav"}}, {"laudo", {"laud", "laudav"}}};

const struct {
    const char *lemma, *stem, *gender; // no gender: that of the row
} NOUNS[] = {{"puella", "puell", ""}, {"poeta", "poet", "MASCULINE"}};

// Source two: lines of the lexicon format, poor in categories. Only a line can give an entry its word-form id, the key
// of the converter: there is no setter. A blank field is an unknown value; an empty one would not be seen.
const char* const WORD_LIST[] = {
    " # # #1#amo#list#V#101#amat# # # # # # # # #V# # # # #list#list#list",
    " # # #1#amo#list#V#102#amavit# # # # # # # # #V# # # # #list#list#list",
    " # # #2#laudo#list#V#103#laudant# # # # # # # # #V# # # # #list#list#list",
    " # # #3#puella#list#NN#201#puellae#GENITIVE# # # # # # # #NN# # # # #list#list#list",
    " # # #3#puella#list#NN#202#puellae# # # # # # #PLURAL# #NN# # # # #list#list#list",
    " # # #4#poeta#list#NN#203#poetam# # # # # # # # #NN# # # # #list#list#list",
    " # # #5#et#list#CON#301#et# # # # # # # # #CON# # # # #list#list#list",
};

constexpr int SOURCES = 2;

/// Each container of a merge lists what it took; whoever holds the containers owns the entries.
template<typename Base, typename Entry>
struct Merged {
    std::vector<Base*> entries;
    std::multimap<std::string, Base*> by_lemma;
    std::vector<std::unique_ptr<Entry>> owned;

    void add(std::unique_ptr<Entry> entry) {
        if (entry->merge(entries, by_lemma, true)) // true: the categories must not contradict either
            owned.push_back(std::move(entry));
    }
};

using Lexicon = Merged<BaseLexicalEntry, LexicalEntry>;
using Overview = Merged<OriginatingLexicalEntryRepresentation, OriginatingLexicalEntryRepresentation>;

void attest(Overview& overview, const LexicalEntry& entry, const std::string& source) {
    auto word = std::make_unique<OriginatingLexicalEntryRepresentation>(entry.get_lemma(), entry.get_word_form(),
                                                                        entry.get_pos());
    word->insert_originating_lemmas(source);
    word->insert_originating_wordforms(source);
    word->insert_originating_pos(source);
    overview.add(std::move(word));
}

void add(Lexicon& lexicon, Overview& overview, std::unique_ptr<LexicalEntry> entry, const std::string& source) {
    entry->insert_originating_source_lemmas(source);
    entry->insert_originating_source_wordforms(source);
    entry->insert_originating_source_pos(source);
    attest(overview, *entry, source);
    lexicon.add(std::move(entry));
}

/// The entries of the paradigms go first and take the ids from the list: a merge fills empty ids, but neither mood nor
/// tense nor voice, which would be lost the other way round.
void merge_sources(Lexicon& lexicon, Overview& overview) {
    for (const auto& [lemma, stems] : VERBS)
        for (ConjugationEntry row : FIRST_CONJUGATION)
            add(lexicon, overview, std::make_unique<LexicalEntry>(&row, lemma, stems, "FIRST", ""), "paradigms");
    for (const auto& [lemma, stem, gender] : NOUNS)
        for (DeclensionEntry row : FIRST_DECLENSION)
            add(lexicon, overview,
                std::make_unique<LexicalEntry>(&row, lemma, std::vector<std::string>{stem}, "FIRST", gender, "NN", ""),
                "paradigms");
    for (const char* const line : WORD_LIST) {
        auto entry = std::make_unique<LexicalEntry>();
        entry->parse_latin(line);
        add(lexicon, overview, std::move(entry), "list");
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_lexicon LEXICON\n";
        return 2;
    }
    Lexicon lexicon;
    Overview overview;
    merge_sources(lexicon, overview);

    std::ofstream file(argv[1]);
    for (const auto& entry : lexicon.owned)
        if (!entry->get_word_form_id().empty()) // the converter would look for them all under the id 0
            entry->export_latin(file);
    if (!file) {
        std::cerr << "cannot write " << argv[1] << '\n';
        return 1;
    }

    LexicalEntry::set_num_sources(SOURCES); // what both sources attest is printed as "all"
    for (const auto& word : overview.owned)
        std::cout << *word << '\n';
    return 0;
}
