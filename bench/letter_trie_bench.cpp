// Measures LetterTrieNode on WordNet's nouns, or on a list with one word a line: letter_trie_bench [FILE]. Beside it
// run the trie written down literally, a hash set, a comparison with every word and an index of deletions. Prints the
// time of one operation, the rival's, and how many times as long the rival takes; fails when a result differs from the
// literal one, or when the last two find different numbers of words.
#include "bench/literal_trie.h"
#include "bench/timing.h"
#include "bench/word_scan.h"
#include "utils/LetterTrieNode.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <random>
#include <sstream>
#include <string>
#include <unordered_set>

namespace {

using zelvor::LetterTrieNode;
using Words = std::vector<std::string>;

/// Each noun once, in the order of the file, with blanks for the underscores.
Words read_wordnet_nouns(const char* filename) {
    Words words;
    std::unordered_set<std::string> seen;
    std::ifstream file(filename);
    for (std::string line, field; std::getline(file, line);) {
        std::istringstream fields(
            line); // offset, file number, type, number of words (hexadecimal), word, id, word, ...
        std::size_t count = 0;
        if (line.starts_with("  ") || !(fields >> field >> field >> field >> std::hex >> count))
            continue;
        for (std::string id; count > 0 && fields >> field >> id; --count) {
            std::replace(field.begin(), field.end(), '_', ' ');
            if (seen.insert(field).second)
                words.push_back(field);
        }
    }
    return words;
}

Words read_lines(const char* filename) {
    Words words;
    std::ifstream file(filename);
    for (std::string line; std::getline(file, line);)
        words.push_back(line);
    return words;
}

/// Seconds for one of `count` operations.
template<typename Work>
double seconds_each(std::size_t count, Work work) {
    return processor_seconds(work) / static_cast<double>(count);
}

void report(const char* what, double ours, const char* rival, double theirs) {
    if (std::isnan(theirs)) // the rival never ends
        std::printf("%-34s %11.3f us\n", what, ours * 1e6);
    else
        std::printf("%-34s %11.3f us   %-16s %11.3f us   %8.1f\n", what, ours * 1e6, rival, theirs * 1e6,
                    theirs / ours);
}

/// Every step-th word with one letter replaced.
Words misspell(const Words& words, std::size_t step, std::mt19937& random) {
    Words queries;
    for (std::size_t i = step / 2; i < words.size(); i += step) {
        std::string query = words[i];
        if (!query.empty())
            query[random() % query.size()] = static_cast<char>('a' + random() % 26);
        queries.push_back(query);
    }
    return queries;
}

struct Bench {
    Words words;
    LetterTrieNode root;
    LiteralTrie literal;
    std::size_t differences = 0;

    ~Bench() { root.delete_tree(&root); }

    void store() {
        const std::size_t before = mallinfo2().uordblks;
        const double ours = seconds_each(words.size(), [&] {
            for (const std::string& word : words)
                root.store_string(word, 0);
        });
        const std::size_t bytes = mallinfo2().uordblks - before;
        const double theirs = seconds_each(words.size(), [&] {
            for (const std::string& word : words)
                literal.store(word, 0);
        });
        report("store", ours, "literal", theirs);
        verdict("trie: literal / store", theirs / ours, Bound::AT_LEAST, 2.5);
        std::printf("%zu words, %.0f bytes a word\n", words.size(),
                    static_cast<double>(bytes) / static_cast<double>(words.size()));
    }

    void look_up(std::mt19937& random) {
        std::vector<Glib::ustring> queries(words.begin(), words.end());
        look_up(queries, "exact lookup, as stored");
        std::shuffle(queries.begin(), queries.end(), random);
        look_up(queries, "exact lookup, at random");
    }

    void look_up(const std::vector<Glib::ustring>& queries, const char* what) {
        const std::unordered_set<std::string> set(words.begin(), words.end());
        std::size_t found = 0;
        const double ours = seconds_each(queries.size(), [&] {
            for (const Glib::ustring& query : queries)
                found += root.lookup_string(query, 0);
        });
        const double hashed = seconds_each(queries.size(), [&] {
            for (const Glib::ustring& query : queries)
                found -= set.count(query.raw());
        });
        const double theirs = seconds_each(queries.size(), [&] {
            for (const Glib::ustring& query : queries)
                found += literal.lookup(query, 0);
        });
        differences += found != queries.size();
        report(what, ours, "literal", theirs);
        report("", ours, "unordered_set", hashed);
        verdict((std::string("trie: ") + what + " / unordered_set").c_str(), ours / hashed, Bound::AT_MOST, 3);
    }

    void look_up_fuzzily(double tolerance, const Words& queries, double weight_end, bool segmenting, const char* what) {
        std::stack<LetterTrieNode*> stack;
        std::vector<LetterTrieNode::FuzzyMatches> found(queries.size()), expected(queries.size());
        std::vector<int> steps(queries.size());
        const double ours = seconds_each(queries.size(), [&] {
            for (std::size_t i = 0; i < queries.size(); ++i)
                steps[i] = segmenting ? root.lookup_string_fuzzy_segment(queries[i], 0, tolerance, found[i], 0,
                                                                         weight_end, stack, &root)
                                      : root.lookup_string_fuzzy(queries[i], 0, tolerance, found[i], 0, weight_end);
        });
        const double theirs = seconds_each(queries.size(), [&] {
            for (std::size_t i = 0; i < queries.size(); ++i)
                differences += steps[i] != literal.fuzzy(queries[i], 0, tolerance, expected[i], 0, weight_end,
                                                         segmenting ? &literal : nullptr);
        });
        for (std::size_t i = 0; i < queries.size(); ++i) {
            differences += contents(found[i]) != contents(expected[i]);
            LetterTrieNode::delete_mem(&found[i]);
            LetterTrieNode::delete_mem(&expected[i]);
        }
        char label[80];
        std::snprintf(label, sizeof label, "%s, tolerance %g", what, tolerance);
        report(label, ours, "literal", theirs);
        if (segmenting || LetterTrieNode::has_weights())
            return;
        verdict((std::string("trie: literal / ") + label).c_str(), theirs / ours, Bound::AT_LEAST, 4);
        look_up_otherwise(static_cast<int>(tolerance), queries, ours, label);
    }

    static std::set<std::pair<double, std::string>> contents(const LetterTrieNode::FuzzyMatches& matches) {
        std::set<std::pair<double, std::string>> result;
        for (const auto* match : matches)
            result.emplace(match->first, match->second.raw());
        return result;
    }

    /// The words within the edit distance by two other ways, which must find as many. Transpositions count 2 there.
    void look_up_otherwise(int distance, const Words& queries, double ours, const char* label) {
        const WordScan scan(words);
        std::vector<std::size_t> counts(std::min<std::size_t>(queries.size(), 20));
        const double scanned = seconds_each(counts.size(), [&] {
            for (std::size_t i = 0; i < counts.size(); ++i)
                counts[i] = scan.count(queries[i], distance);
        });
        DeletionIndex index(scan, distance);
        std::size_t found = 0;
        const double indexed = seconds_each(queries.size(), [&] {
            for (const std::string& query : queries)
                found += index.count(query);
        });
        for (std::size_t i = 0; i < counts.size(); ++i)
            differences += index.count(queries[i]) != counts[i];
        report("", ours, "every word", scanned);
        report("", ours, "deletion index", indexed);
        std::printf("%zu found, the index takes %zu bytes a word\n", found, index.bytes() / words.size());
        if (distance < 3)
            verdict((std::string("trie: every word / ") + label).c_str(), scanned / ours, Bound::AT_LEAST,
                    distance == 1 ? 50 : 4);
    }

    static void segment(std::size_t length, bool with_literal) {
        LetterTrieNode trie;
        LiteralTrie slow;
        for (const char* word : {"aaa", "aaaa"}) {
            trie.store_string(word, 0);
            slow.store(word, 0);
        }
        const Glib::ustring hopeless = std::string(length, 'a') + "b";
        const double ours = seconds_each(1, [&] { trie.delete_segment_result(trie.segment(hopeless, 0, &trie, 0)); });
        const double theirs =
            with_literal ? seconds_each(1, [&] { slow.segment(hopeless, 0, &slow, 0); }) : std::nan("");
        char label[80];
        std::snprintf(label, sizeof label, "segment a^%zu b over aaa, aaaa", length);
        report(label, ours, "literal", theirs);
        if (length == 200)
            verdict("trie: segment a^200 b, in milliseconds", ours * 1e3, Bound::AT_MOST, 1);
        trie.delete_tree(&trie);
    }
};

} // namespace

int main(int argc, char** argv) {
    Bench bench;
    bench.words = argc > 1 ? read_lines(argv[1]) : read_wordnet_nouns("/usr/share/wordnet/data.noun");
    if (bench.words.empty()) {
        std::fprintf(stderr, "usage: %s [FILE with one word a line]\n", argv[0]);
        return 1;
    }
    std::mt19937 random(1);
    std::printf("%-34s %14s   %-16s %14s   %8s\n", "", "trie", "rival", "", "ratio");
    bench.store();
    bench.look_up(random);
    const Words some = misspell(bench.words, bench.words.size() / 2000 + 1, random);
    const Words fewer = misspell(bench.words, bench.words.size() / 200 + 1, random);
    const Words few = misspell(bench.words, bench.words.size() / 40 + 1, random);
    const std::pair<double, const Words&> rounds[] = {{1, some}, {2, fewer}, {3, few}};
    for (const auto& [tolerance, queries] : rounds)
        bench.look_up_fuzzily(tolerance, queries, 1.0, false, "fuzzy");
    for (const auto& [tolerance, queries] : rounds)
        bench.look_up_fuzzily(tolerance, queries, 1.0, true, "boundaries");
    std::map<Glib::ustring, double> weights{{"il", 0.3}, {"ce", 0.4}, {"nu", 0.5}, {"hb", 0.5}, {"ft", 0.6}};
    LetterTrieNode::set_weight_table(&weights);
    LiteralTrie::weights = &weights;
    for (const auto& [tolerance, queries] : rounds)
        bench.look_up_fuzzily(tolerance, queries, 0.9, false, "weights");
    for (const auto& [tolerance, queries] : rounds)
        bench.look_up_fuzzily(tolerance, queries, 0.9, true, "weights, boundaries");
    Bench::segment(40, true);
    Bench::segment(200, false);
    Bench::segment(100000, false);
    std::printf("%zu results differ\n", bench.differences);
    return bench.differences != 0;
}
