// One text file, read as WordNet data, plain rules, statistics and an English lexicon.
#include "fuzz/fuzz.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/numbers.h"
#include "utils/lexicon_utils/lexicon_readers.h"
#include "utils/lexicon_utils/rules.h"
#include "utils/lexicon_utils/wordnet.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace zelvor::fuzz {
namespace {

using Words = std::set<std::string>;

std::vector<std::string> split_at(const std::string& line, char separator) {
    std::vector<std::string> tokens(1);
    for (const char c : line)
        if (c != separator)
            tokens.back() += c;
        else if (!tokens.back().empty())
            tokens.emplace_back();
    if (tokens.back().empty())
        tokens.pop_back();
    return tokens;
}

/// The words of the lines, and false at the first that is too short.
bool read_synsets(const std::string& text, Words& words, Words& instances) {
    bool is_header = true, is_whole = true;
    int number = 0;
    for_each_line(text, [&](const std::string& line) {
        const std::vector<std::string> fields = split_at(line, ' ');
        is_whole = is_whole && (!fields.empty() || !is_header);
        is_header = is_header && is_whole && std::atoi(fields[0].c_str()) == ++number;
        is_whole = is_whole && (is_header || fields.size() > 3);
        if (is_header || !is_whole)
            return;
        const auto count = static_cast<std::size_t>(std::max(std::atoi(fields[3].c_str()), 0));
        const std::size_t pointer = 5 + 2 * static_cast<std::size_t>(std::int64_t{std::atoi(fields[3].c_str())});
        is_whole = pointer < fields.size();
        for (std::size_t i = 0; i < count && is_whole; ++i) {
            std::string word = fields[4 + 2 * i];
            std::ranges::replace(word, '_', ' ');
            words.insert(word);
            if (fields[pointer] == "@i")
                instances.insert(word);
        }
    });
    return is_whole;
}

void check_wordnet(const MemoryFile& file, const std::string& text) {
    Words words, instances, expected, expected_instances;
    bool is_whole = true;
    try {
        parse_wordnet_file(file.path(), words, &instances);
    } catch (const std::out_of_range&) {
        is_whole = false;
    }
    require(read_synsets(text, expected, expected_instances) == is_whole, "a line that is too short throws", text);
    require(words == expected, "the words of all synsets are read", text);
    require(instances == expected_instances, "and those of the instances", text);
}

void check_rules(const MemoryFile& file, const std::string& text) {
    std::vector<Rule*> rules;
    parse_rules(file.path(), rules, nullptr);
    std::size_t lines = 0, bytes = 0, read_bytes = 0;
    for_each_line(text, [&](const std::string& line) {
        ++lines;
        bytes += line.size() - (line.find(' ') != std::string::npos);
    });
    for (const Rule* const rule : rules)
        read_bytes += rule->get_conclusion().size() + rule->get_premise().size();
    require(rules.size() == lines && read_bytes == bytes, "a rule a line, nothing lost", text);
    require(
        std::ranges::is_sorted(rules, std::ranges::greater(), [](const Rule* r) { return r->get_premise().size(); }),
        "long premises come first", text);
    std::vector<std::string> forms;
    const std::string lemma = text.substr(0, text.find_first_of(" \n"));
    apply_rules(lemma, rules, forms, nullptr);
    require(forms.size() <= rules.size(), "no more forms than rules", text);
    for (const std::string& form : forms)
        require(std::ranges::any_of(rules, [&](const Rule* rule) { return rule->apply_rule(lemma) == form; }),
                "a form is what some rule makes", form);
    delete_rules(rules);
}

void check_statistics(const MemoryFile& file, const std::string& text) {
    std::map<std::string, int> counts, pairs;
    std::set<int> numbers;
    read_statistics(file.path(), counts, numbers);
    read_string_int_hashtable(file.path(), pairs);
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    require(counts.size() <= lines && numbers.size() <= lines && pairs.size() <= lines, "a count a line", text);
    for (const auto& [word, count] : counts)
        require(numbers.contains(count), "every count is among the numbers", word);
}

void check_lexicon(const MemoryFile& file, const std::string& text) {
    Words names, words;
    std::multimap<std::string, LexicalEntry*> entries;
    read_lexicon(file.path(), "", names, entries);
    std::size_t lines = 0;
    for_each_line(text, [&](const std::string& line) {
        const std::vector<std::string> fields = split_at(line, '\t');
        lines += fields.size() > 2;
        require(fields.size() < 3 || entries.contains(fields[0]), "an entry is filed under its form", line);
    });
    require(lines == entries.size(), "an entry for every line of three fields", text);
    for (const auto& [word_form, entry] : entries) {
        if (!word_form.starts_with('-') || word_form.starts_with(entry->get_lemma()))
            require_equal(entry->get_word_form(), word_form, "an entry has the form that it is filed under");
        delete entry;
    }
    try {
        get_words_from_lexicon(file.path(), words);
    } catch (const std::out_of_range&) { // a line is too short
    }
    require(words.size() <= 2 * lines, "a lemma and a form a line", text);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const std::string text(reinterpret_cast<const char*>(data), size);
    const MemoryFile file(text);
    check_wordnet(file, text);
    check_rules(file, text);
    check_statistics(file, text);
    check_lexicon(file, text);
    return 0;
}
