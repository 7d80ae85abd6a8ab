// One text file, read as WordNet data, plain rules, statistics and an English lexicon.
#include "fuzz/fuzz.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/numbers.h"
#include "utils/lexicon_utils/lexicon_readers.h"
#include "utils/lexicon_utils/rules.h"
#include "utils/lexicon_utils/wordnet.h"

namespace zelvor::fuzz {

void check_rules(const MemoryFile& file, const std::string& lemma) {
    std::vector<Rule*> rules;
    parse_rules(file.path(), rules, nullptr);
    std::vector<std::string> forms;
    apply_rules(lemma, rules, forms, nullptr);
    for (const std::string& form : forms)
        require(std::ranges::any_of(rules, [&](const Rule* rule) { return rule->apply_rule(lemma) == form; }),
                "a form is what some rule makes", form);
    delete_rules(rules);
}

void check_lexicon(const MemoryFile& file) {
    std::set<std::string> names, words, instances;
    std::multimap<std::string, LexicalEntry*> entries;
    read_lexicon(file.path(), "", names, entries);
    for (const auto& [word_form, entry] : entries) {
        if (!word_form.starts_with('-') || word_form.starts_with(entry->get_lemma()))
            require_equal(entry->get_word_form(), word_form, "an entry has the form that it is filed under");
        delete entry;
    }
    succeeds([&] { get_words_from_lexicon(file.path(), words); });
    require(words.size() <= 2 * entries.size(), "a lemma and a form a line");
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
    const zelvor::fuzz::MemoryFile file(text);
    zelvor::fuzz::check_rules(file, text.substr(0, text.find_first_of(" \n")));
    zelvor::fuzz::check_lexicon(file);
    return 0;
}
