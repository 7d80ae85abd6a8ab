// Measures how the cost of one unit grows with the amount: every operation runs at n, 2 n and 4 n units. Prints one
// line a size, "OPERATION <tab> UNIT <tab> UNITS <tab> NANOSECONDS", the least of several rounds of processor time.
#include "bench/timing.h"
#include "tests/temporary_directory.h"
#include "utils/ArpaLM.h"
#include "utils/LetterTrieNode.h"
#include "utils/LexicalEntry.h"
#include "utils/common_utils/distance.h"
#include "utils/lexicon_utils/rules.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using zelvor::LetterTrieNode;
using zelvor::LexicalEntry;

constexpr int ROUNDS = 5;

/// Runs one round with so many units and returns the seconds of the part that counts.
using Round = std::function<double(std::size_t units)>;

struct Operation {
    const char* name;
    const char* unit;
    std::size_t units; ///< n
    Round round;
};

/// Words of three to six syllables.
std::vector<std::string> make_words(std::size_t count) {
    static const char* const syllables[] = {"ba",  "ce",  "di", "fo",  "gu",  "la",  "me",  "ni",  "po",  "ru",
                                            "sta", "tre", "vi", "quo", "tus", "ram", "net", "gis", "dor", "cul"};
    std::mt19937 random(1);
    std::vector<std::string> words(count);
    for (std::string& word : words)
        for (std::size_t left = 3 + random() % 4; left > 0; --left)
            word += syllables[random() % std::size(syllables)];
    return words;
}

enum class TrieUse { STORE, LOOK_UP, FUZZY };

double use_trie(std::size_t units, TrieUse use) {
    LetterTrieNode root;
    std::vector<Glib::ustring> words;
    for (std::string& word : make_words(units))
        words.emplace_back(std::move(word));
    double time = processor_seconds([&] {
        for (const Glib::ustring& word : words)
            root.store_string(word, 0);
    });
    std::shuffle(words.begin(), words.end(), std::mt19937(2));
    if (use == TrieUse::LOOK_UP) {
        time = processor_seconds([&] {
            for (const Glib::ustring& word : words)
                root.lookup_string(word, 0);
        });
    } else if (use == TrieUse::FUZZY) {
        constexpr std::size_t queries = 500;
        time = processor_seconds([&] {
            for (std::size_t i = 0; i < queries; ++i) {
                LetterTrieNode::FuzzyMatches matches;
                root.lookup_string_fuzzy(words[i], 0, 1.0, matches, 0, 1.0);
                LetterTrieNode::delete_mem(&matches);
            }
        });
        time *= static_cast<double>(units) / queries; // a query is the unit
    }
    root.delete_tree(&root);
    return time;
}

double segment(std::size_t units) {
    LetterTrieNode root;
    root.store_string("aaa", 0);
    root.store_string("aaaa", 0);
    const Glib::ustring hopeless = std::string(units, 'a') + "b";
    const double time = processor_seconds([&] { root.delete_segment_result(root.segment(hopeless, 0, &root, 0)); });
    root.delete_tree(&root);
    return time;
}

/// A unit is a pair of characters.
double compare(std::size_t units) {
    std::size_t length = 1;
    while (length * length < units)
        ++length;
    const Glib::ustring a = std::string(length, 'a'), b = std::string(length, 'b');
    return processor_seconds([&] { zelvor::levenshtein_distance(a, b, true); });
}

/// 20 analyses of each lemma, half of them from a second source.
double merge(std::size_t units) {
    std::vector<std::unique_ptr<LexicalEntry>> entries;
    for (std::size_t i = 0; i < units; ++i) {
        const std::string lemma = "lemma" + std::to_string(i % (units / 20) * 7919 % (units / 20));
        entries.push_back(std::make_unique<LexicalEntry>(lemma, lemma + std::to_string(i / (units / 20) % 10), "NN"));
    }
    std::vector<zelvor::BaseLexicalEntry*> merged;
    std::multimap<std::string, zelvor::BaseLexicalEntry*> by_lemma;
    return processor_seconds([&] {
        for (const auto& entry : entries)
            entry->merge(merged, by_lemma, true);
    });
}

double apply_rules(std::size_t units) {
    std::vector<zelvor::Rule*> rules;
    for (std::size_t i = 0; i < units; ++i) // every rule applies, and none covers another
        rules.push_back(new zelvor::Rule("x" + std::to_string(100'000 + i), "", nullptr));
    std::vector<std::string> forms;
    const double time = processor_seconds([&] { zelvor::apply_rules("lemma", rules, forms, nullptr); });
    zelvor::delete_rules(rules);
    return time;
}

/// Half of the rules apply, and the conclusion of the others is the end of all of theirs.
double pass_over_rules(std::size_t units) {
    std::vector<zelvor::Rule*> rules;
    for (std::size_t i = 0; i < units / 2; ++i)
        rules.push_back(new zelvor::Rule(std::to_string(100'000 + i) + "s", "ing", nullptr));
    for (std::size_t i = 0; i < units / 2; ++i)
        rules.push_back(new zelvor::Rule("s", "qq", nullptr));
    std::vector<std::string> forms;
    const double time = processor_seconds([&] { zelvor::apply_rules("walking", rules, forms, nullptr); });
    zelvor::delete_rules(rules);
    return time;
}

/// A model of which a fifth of the n-grams are 1-grams and the others 2-grams.
double load_model(std::size_t units, const std::string& filename) {
    std::ofstream file(filename);
    const std::size_t words = units / 5;
    file << "\\data\\\nngram 1=" << words << "\nngram 2=" << units - words << "\n\n\\1-grams:\n";
    for (std::size_t i = 0; i < words; ++i)
        file << "-4.5\tverbum" << i << "\t-0.3\n";
    file << "\n\\2-grams:\n";
    for (std::size_t i = words; i < units; ++i)
        file << "-2.5\tverbum" << i % words << " verbum" << (i + i / words * 31) % words << '\n';
    file << "\n\\end\\\n";
    file.close();
    zelvor::ArpaVocab vocab;
    zelvor::ArpaLM model(vocab);
    bool loaded = false;
    const double time = processor_seconds([&] { loaded = model.load(filename); });
    if (!loaded || model.get_num_ngrams() < units)
        std::fprintf(stderr, "the model was not read whole\n");
    return time;
}

} // namespace

int main() {
    const zelvor::TemporaryDirectory directory;
    const Operation operations[] = {
        {"trie: store", "word", 50'000, [](std::size_t n) { return use_trie(n, TrieUse::STORE); }},
        {"trie: look up", "word", 50'000, [](std::size_t n) { return use_trie(n, TrieUse::LOOK_UP); }},
        {"trie: fuzzy, tolerance 1", "query", 50'000, [](std::size_t n) { return use_trie(n, TrieUse::FUZZY); }},
        {"segment without result", "character", 20'000, segment},
        {"edit distance", "pair of characters", 250'000, compare},
        {"merge", "entry", 50'000, merge},
        {"rules that all apply", "rule", 5'000, apply_rules},
        {"rules that miss", "rule", 5'000, pass_over_rules},
        {"language model: load", "n-gram", 100'000,
         [&](std::size_t n) { return load_model(n, directory.path("model.arpa")); }},
    };
    for (const Operation& operation : operations) {
        for (const std::size_t units : {operation.units, 2 * operation.units, 4 * operation.units}) {
            double least = operation.round(units);
            for (int i = 1; i < ROUNDS; ++i)
                least = std::min(least, operation.round(units));
            std::printf("%s\t%s\t%zu\t%.3f\n", operation.name, operation.unit, units,
                        least * 1e9 / static_cast<double>(units));
            std::fflush(stdout);
        }
    }
    return 0;
}
