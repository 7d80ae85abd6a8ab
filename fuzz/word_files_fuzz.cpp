// One text file, read as WordNet data, plain rules, statistics and an English lexicon.
#include "fuzz/fuzz.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/numbers.h"
#include "utils/lexicon_utils/lexicon_readers.h"
#include "utils/lexicon_utils/rules.h"
#include "utils/lexicon_utils/wordnet.h"

namespace zelvor::fuzz {

void check(const MemoryFile& file, const std::string& lemma) {
    std::vector<Rule*> rules;
    std::vector<std::string> forms;
    parse_rules(file.path(), rules, nullptr);
    apply_rules(lemma, rules, forms, nullptr);
    for (const std::string& form : forms)
        require(std::ranges::any_of(rules, [&](const Rule* rule) { return rule->apply_rule(lemma) == form; }),
                "a form is what some rule makes", form);
    delete_rules(rules);

    std::set<std::string> names, words, instances;
    std::multimap<std::string, LexicalEntry*> entries;
    read_lexicon(file.path(), "", names, entries);
    for (const auto& [word_form, entry] : entries) {
        require(entry->get_word_form() == word_form || word_form.starts_with('-'), "an entry is under its form",
                word_form);
        delete entry;
    }
    succeeds([&] { get_words_from_lexicon(file.path(), words); });
    succeeds([&] { parse_wordnet_file(file.path(), words, &instances); });
    require(std::ranges::includes(words, instances), "an instance is a word");
    std::map<std::string, int> counts;
    std::set<int> numbers;
    read_statistics(file.path(), counts, numbers);
    read_string_int_hashtable(file.path(), counts);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    zelvor::fuzz::check(zelvor::fuzz::MemoryFile(text), text.substr(0, text.find_first_of(" \n")));
    return 0;
}
