// Words to store, one a line, and words to look up, compared with a trie written down from its definition. The input is
// also the seed of the costs, budgets and bounds of the searches; one without a line "%%" is nothing but a seed.
#include "bench/literal_trie.h"
#include "fuzz/fuzz.h"
#include "utils/LetterTrieNode.h"
#include "utils/common_utils/utf8.h"

#include <iomanip>
#include <limits>
#include <random>

namespace zelvor::fuzz {

using Words = std::vector<std::string>;

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

/// As the trie reads a word: U+FFFD for what is no UTF-8.
Glib::ustring valid(const std::string& word) { return encode_utf8(decode_utf8(word)); }

/// Both tries, with the same words, searched from the end of the same path.
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

    void descend(const std::string& path) {
        for (const char32_t c : decode_utf8(path)) {
            node = node->look_for_node(c);
            literal_node = literal_node->look_for_node(c);
        }
    }

    LetterTrieNode trie, *node = &trie;
    LiteralTrie literal, *literal_node = &literal;
};

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

/// Any costs, budget and bounds, and a set that holds something already.
void check_fuzzy(const Tries& tries, const std::string& known, const std::string& query, unsigned int from,
                 Random& random) {
    constexpr double infinity = std::numeric_limits<double>::infinity(), nan = std::numeric_limits<double>::quiet_NaN();
    std::map<Glib::ustring, double> weights;
    for (const char* const pair : {"aa", "ab", "ac", "bb", "bc", "cc"})
        if (random.below(2))
            weights[pair] = random.pick<double>({0.3, 0.5, 0.75, 1, 1.4, 2.5, 0, -0.25, nan, infinity});
    LiteralTrie::weights = random.below(2) ? &weights : nullptr;
    LetterTrieNode::set_weight_table(LiteralTrie::weights);
    const double tolerance = random.pick<double>({0, -1, 0.4, 1, 1.5, 1.7, 2, 2.2, 2.6, 3, 3, 3.5, nan});
    const double weight_end = random.pick<double>({1, 1, 1, 1, 1, 0.5, 0, 1.7, -0.5});
    const double before = random.pick<double>({1.7, 0.5, -0.5, 2, nan});
    const auto threshold = random.pick<unsigned int>({0, 0, 0, 1, 2, 9});
    auto* const root = const_cast<LetterTrieNode*>(random.below(2) ? &tries.trie : nullptr); // null: the root as well
    auto* const boundary = const_cast<LiteralTrie*>(random.below(2) ? &tries.literal : nullptr);
    LetterTrieNode::FuzzyMatches found{nullptr, new std::pair<double, Glib::ustring>(before, valid(known))};
    LiteralTrie::Matches expected{new std::pair<double, Glib::ustring>(before, valid(known))};
    std::stack<LetterTrieNode*> stack;
    const int edits = boundary ? tries.node->lookup_string_fuzzy_segment(query, from, tolerance, found, threshold,
                                                                         weight_end, stack, root)
                               : tries.node->lookup_string_fuzzy(query, from, tolerance, found, threshold, weight_end);
    const int expected_edits =
        tries.literal_node->fuzzy(valid(query), from, tolerance, expected, threshold, weight_end, boundary);
    LiteralTrie::weights = nullptr;
    LetterTrieNode::set_weight_table(nullptr);
    require(stack.empty(), "the stack is left as it came", query);
    require_equal(as_text(edits, found), as_text(expected_edits, expected), "a fuzzy search is that of the definition");
}

/// Takes the splittings, which may be none.
void check_splittings(LetterTrieNode::Splittings* found, const LiteralTrie::Splittings& expected) {
    LiteralTrie::Splittings copy;
    for (std::size_t i = 0; found && i < found->size(); ++i)
        copy.emplace_back((*found)[i]->begin(), (*found)[i]->end());
    LetterTrieNode().delete_segment_result(found);
    require(copy == expected, "the splittings are those of the definition, in its order");
}

void check_query(const Tries& tries, const std::string& query, unsigned int from) {
    const Glib::ustring text = valid(query);
    const auto is_stored = [&](std::size_t length) { return tries.literal.lookup(text.substr(0, length), from) != 0; };
    require(tries.trie.lookup_string(query, from) == is_stored(text.size()), "what is stored is found", query);
    int prefix = text.size() <= from && is_stored(text.size()) ? static_cast<int>(from) : -1;
    for (std::size_t length = text.size(); length-- > from;)
        prefix = is_stored(length) ? static_cast<int>(length) : prefix;
    require(tries.trie.lookup_string_prefix(query, from) == prefix, "the shortest proper prefix is found", query);
}

} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    constexpr std::size_t max_words = 24, max_split_length = 28,
                          max_fuzzy_length = 8; // what is searched is exponential
    auto [stored, queries] = halves(data, size);
    Random random(
        static_cast<unsigned int>(std::hash<std::string_view>()({reinterpret_cast<const char*>(data), size})));
    Words words = split_at(stored, '\n');
    words.resize(std::min(words.size(), max_words));
    if (queries.empty()) { // few words of few letters, so that they share their beginnings
        words.resize(1 + random.below(8));
        for (std::string& word : words)
            word = random.word(6, 3);
        queries = random.word(5, 4) + "\n" + random.word(4, 2) + random.pick(words) + random.pick(words);
    }
    Tries tries(words);
    tries.descend(random.below(4) ? "" : random.pick(words));
    for (const std::string& query : split_at(queries.substr(0, 100), '\n')) {
        const int depth = static_cast<int>(random.below(6)) - 1;
        const unsigned int from = random.pick<unsigned int>({0, 0, 0, 1, 7});
        check_query(tries, query, from);
        if (query.size() <= max_fuzzy_length)
            check_fuzzy(tries, words[0], query, from, random);
        if (query.size() <= max_split_length)
            check_splittings(tries.node->segment(query, from, random.below(2) ? &tries.trie : nullptr, depth),
                             tries.literal_node->segment(valid(query), from, &tries.literal, depth));
    }
    return 0;
}
