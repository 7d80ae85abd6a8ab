// Words to store, one a line, and words to look up; compared with a trie written down from its definition. Besides, a
// random search and a random splitting that the input is the seed of.
#include "bench/literal_trie.h"
#include "fuzz/fuzz.h"
#include "utils/LetterTrieNode.h"
#include "utils/common_utils/utf8.h"

#include <cmath>
#include <iomanip>
#include <limits>
#include <random>
#include <sstream>

namespace zelvor::fuzz {
namespace {

constexpr std::size_t MAX_WORDS = 24, MAX_LENGTH = 40, MAX_QUERIES = 4;
constexpr std::size_t MAX_SPLIT_LENGTH = 28; // there can be exponentially many splittings
constexpr std::size_t MAX_FUZZY_LENGTH = 8;  // the search is exhaustive

using Words = std::vector<std::string>;

/// Both tries, with the same words.
struct Tries {
    explicit Tries(const Words& words) {
        for (const std::string& word : words) {
            trie.store_string(word, 0);
            literal.store(valid(word), 0);
        }
    }
    ~Tries() { trie.delete_tree(&trie); }
    Tries(const Tries&) = delete;
    Tries& operator=(const Tries&) = delete;

    /// As the trie reads a word: U+FFFD for what is no UTF-8.
    static Glib::ustring valid(const std::string& word) { return encode_utf8(decode_utf8(word)); }

    LetterTrieNode trie;
    LiteralTrie literal;
};

Words words_of(const std::string& text) {
    Words words;
    for_each_line(text, [&](const std::string& word) {
        if (words.size() < MAX_WORDS && word.size() <= MAX_LENGTH)
            words.push_back(word);
    });
    return words;
}

/// Takes the matches out of a set, too; a caller's null pairs are left alone.
template<typename Matches>
std::string as_text(int edits, Matches& matches) {
    std::map<std::string, double> sorted;
    for (const auto* const match : matches) {
        if (match)
            sorted.emplace(match->second.raw(), match->first);
        delete match;
    }
    std::ostringstream os;
    os << edits << std::setprecision(17);
    for (const auto& [word, budget] : sorted)
        os << ' ' << word << '=' << budget;
    return os.str();
}

void check_fuzzy(Tries& tries, const std::string& query, double tolerance, double weight_end, bool is_segmenting) {
    LetterTrieNode::FuzzyMatches found;
    LiteralTrie::Matches expected;
    std::stack<LetterTrieNode*> stack;
    const int edits = is_segmenting ? tries.trie.lookup_string_fuzzy_segment(query, 0, tolerance, found, 1, weight_end,
                                                                             stack, nullptr)
                                    : tries.trie.lookup_string_fuzzy(query, 0, tolerance, found, 0, weight_end);
    const int expected_edits = tries.literal.fuzzy(Tries::valid(query), 0, tolerance, expected, is_segmenting ? 1 : 0,
                                                   weight_end, is_segmenting ? &tries.literal : nullptr);
    require(stack.empty(), "the stack is left as it came", query);
    require_equal(as_text(edits, found), as_text(expected_edits, expected),
                  "a fuzzy search finds what the definition says");
}

std::string as_text(const LiteralTrie::Splittings& splittings) {
    std::string text;
    for (const auto& words : splittings) {
        for (const Glib::ustring& word : words)
            text += word.raw() + ' ';
        text += '|';
    }
    return text;
}

/// Takes the splittings, which may be none.
std::string as_text(LetterTrieNode::Splittings* splittings) {
    LiteralTrie::Splittings copy;
    for (std::size_t i = 0; splittings && i < splittings->size(); ++i)
        copy.emplace_back((*splittings)[i]->begin(), (*splittings)[i]->end());
    LetterTrieNode().delete_segment_result(splittings);
    return as_text(copy);
}

void check_segments(Tries& tries, const std::string& query) {
    const LiteralTrie::Splittings expected = tries.literal.segment(Tries::valid(query), 0, &tries.literal, 0);
    require_equal(as_text(tries.trie.segment(query, 0, nullptr, 0)), as_text(expected),
                  "the splittings are those of the definition, in its order");
    for (const auto& words : expected) {
        std::string joined;
        for (const Glib::ustring& word : words)
            joined += word.raw();
        require_equal(joined, Tries::valid(query).raw(), "the words of each make up the whole");
    }
}

void check_query(Tries& tries, const std::string& query) {
    const Glib::ustring valid = Tries::valid(query);
    require(tries.trie.lookup_string(query, 0) == tries.literal.lookup(valid, 0), "what is stored is found", query);
    const int prefix = tries.trie.lookup_string_prefix(query, 0);
    for (int length = 0; length < static_cast<int>(valid.size()) && length < (prefix < 0 ? INT_MAX : prefix); ++length)
        require(!tries.literal.lookup(Glib::ustring(valid, 0, static_cast<std::size_t>(length)), 0),
                "no shorter prefix is stored", query);
    require(prefix < 0 || tries.literal.lookup(Glib::ustring(valid, 0, static_cast<std::size_t>(prefix)), 0),
            "the prefix is stored", query);
    Glib::ustring suffix;
    tries.trie.find_suffix(query, 0, suffix);
    require(suffix.raw().size() <= 2 * valid.raw().size(), "a suffix is no longer than the word and its marks", query);
    if (valid.size() <= MAX_SPLIT_LENGTH)
        check_segments(tries, query);
    if (valid.size() > MAX_FUZZY_LENGTH)
        return;
    check_fuzzy(tries, query, 1, 1, false);
    check_fuzzy(tries, query, 2, 1, false);
    check_fuzzy(tries, query, 1.5, 0.5, false);
    check_fuzzy(tries, query, 1, 1, true);
}

class Random : public std::mt19937 {
public:
    using std::mt19937::mt19937;
    std::size_t below(std::size_t limit) { return (*this)() % limit; }
    template<typename T>
    T pick(const std::vector<T>& values) {
        return values[below(values.size())];
    }
    std::string word(std::size_t max_length, std::size_t letters) {
        std::string word(below(max_length + 1), 'a');
        for (char& c : word)
            c = static_cast<char>(c + below(letters));
        return word;
    }
};

template<typename Node>
Node* descend(Node* node, std::string_view path) {
    for (const char c : path)
        node = node->look_for_node(static_cast<gunichar>(c));
    return node;
}

/// One search with any costs, budget and bounds, from any node, into a set that holds something already.
void check_random_search(Tries& tries, const Words& words, const std::string& path, Random& random) {
    constexpr double infinity = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    std::map<Glib::ustring, double> weights;
    for (const char* const pair : {"aa", "ab", "ac", "bb", "bc", "cc"})
        if (random.below(2))
            weights[pair] = random.pick<double>({0.3, 0.5, 0.75, 1, 1.4, 2.5, 0, -0.25, nan, infinity});
    LiteralTrie::weights = random.below(2) ? &weights : nullptr;
    LetterTrieNode::set_weight_table(LiteralTrie::weights);
    const std::string query = random.word(5, 4);
    const double tolerance = random.pick<double>({0, -1, 0.4, 1, 1.5, 1.7, 2, 2.2, 2.6, 3, 3, 3.5, nan});
    const double weight_end = random.pick<double>({1, 1, 1, 1, 1, 0.5, 0, 1.7, -0.5});
    const double before = random.pick<double>({1.7, 0.5, -0.5, 2, nan});
    const auto threshold = random.pick<unsigned int>({0, 0, 0, 1, 2, 9}),
               from = random.pick<unsigned int>({0, 0, 0, 1, 7});
    LetterTrieNode* const restart = random.below(2) ? &tries.trie : nullptr; // null: the root as well
    LiteralTrie* const boundary = random.below(2) ? &tries.literal : nullptr;
    LetterTrieNode::FuzzyMatches found{nullptr, new std::pair<double, Glib::ustring>(before, words[0])};
    LiteralTrie::Matches expected{new std::pair<double, Glib::ustring>(before, words[0])};
    LetterTrieNode* const start = descend(&tries.trie, path);
    std::stack<LetterTrieNode*> stack;
    const int edits = boundary ? start->lookup_string_fuzzy_segment(query, from, tolerance, found, threshold,
                                                                    weight_end, stack, restart)
                               : start->lookup_string_fuzzy(query, from, tolerance, found, threshold, weight_end);
    const int expected_edits =
        descend(&tries.literal, path)->fuzzy(query, from, tolerance, expected, threshold, weight_end, boundary);
    LiteralTrie::weights = nullptr;
    LetterTrieNode::set_weight_table(nullptr);
    require_equal(as_text(edits, found), as_text(expected_edits, expected),
                  "any fuzzy search is that of the definition");
}

void check_random_splitting(Tries& tries, const Words& words, const std::string& path, Random& random) {
    std::string text;
    for (text = random.word(4, 2); random.below(3) > 0;)
        text += random.pick(words);
    const unsigned int from = random.pick<unsigned int>({0, 0, 0, 1, 7});
    const int depth = static_cast<int>(random.below(6)) - 1;
    LetterTrieNode* const root = random.below(2) ? &tries.trie : nullptr;
    require_equal(as_text(descend(&tries.trie, path)->segment(text, from, root, depth)),
                  as_text(descend(&tries.literal, path)->segment(text, from, &tries.literal, depth)),
                  "any splitting is that of the definition");
}

/// Few words of few letters, so that they share their beginnings.
void check_random_words(unsigned int seed) {
    Random random(seed);
    Words words(1 + random.below(8));
    const std::size_t letters = 2 + random.below(2);
    for (std::string& word : words)
        word = random.word(6, letters);
    Tries tries(words);
    const std::string path = random.below(4) ? "" : random.pick(words);
    check_random_search(tries, words, path, random);
    check_random_splitting(tries, words, path, random);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const auto [words, queries] = halves(data, size);
    Tries tries(words_of(words));
    std::size_t count = 0;
    for_each_line(queries, [&](const std::string& query) {
        if (query.size() <= MAX_LENGTH && count++ < MAX_QUERIES)
            check_query(tries, query);
    });
    check_random_words(
        static_cast<unsigned int>(std::hash<std::string_view>()({reinterpret_cast<const char*>(data), size})));
    return 0;
}
