// Words to store, one a line, and words to look up; compared with a trie written down from its definition.
#include "bench/literal_trie.h"
#include "fuzz/fuzz.h"
#include "utils/LetterTrieNode.h"
#include "utils/common_utils/utf8.h"

#include <sstream>

namespace zelvor::fuzz {
namespace {

constexpr std::size_t MAX_WORDS = 24, MAX_LENGTH = 40, MAX_QUERIES = 4,
                      MAX_FUZZY_LENGTH = 8; // the search is exhaustive

/// Both tries, with the same words.
struct Tries {
    explicit Tries(const std::string& words) {
        for_each_line(words, [&](const std::string& word) {
            if (stored == MAX_WORDS || word.size() > MAX_LENGTH)
                return;
            ++stored;
            trie.store_string(word, 0);
            literal.store(valid(word), 0);
        });
    }
    ~Tries() { trie.delete_tree(&trie); }
    Tries(const Tries&) = delete;
    Tries& operator=(const Tries&) = delete;

    /// As the trie reads a word: U+FFFD for what is no UTF-8.
    static Glib::ustring valid(const std::string& word) { return encode_utf8(decode_utf8(word)); }

    LetterTrieNode trie;
    LiteralTrie literal;
    std::size_t stored = 0;
};

template<typename Matches>
std::string as_text(int edits, Matches& matches) {
    std::map<std::string, double> sorted;
    for (const auto* const match : matches) {
        sorted.emplace(match->second.raw(), match->first);
        delete match;
    }
    std::ostringstream os;
    os << edits;
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
    const std::string found_text = as_text(edits, found), expected_text = as_text(expected_edits, expected);
    // Which of two budgets that agree before the point stays depends on the order of the search.
    if (is_segmenting || weight_end != 1)
        require_equal(found_text.substr(0, found_text.find(' ')), expected_text.substr(0, expected_text.find(' ')),
                      "a fuzzy search finds the nearest words");
    else
        require_equal(found_text, expected_text, "a fuzzy search finds what the definition says");
}

void check_segments(Tries& tries, const std::string& query) {
    LetterTrieNode::Splittings* const found = tries.trie.segment(query, 0, nullptr, 0);
    const LiteralTrie::Splittings expected = tries.literal.segment(Tries::valid(query), 0, &tries.literal, 0);
    require((found ? found->size() : 0) == expected.size(), "as many splittings as the definition says", query);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        std::string joined;
        require((*found)[i]->size() == expected[i].size(), "a splitting has the words of the definition", query);
        for (std::size_t k = 0; k < expected[i].size(); ++k) {
            require_equal((*(*found)[i])[k].raw(), expected[i][k].raw(), "and in this order");
            joined += expected[i][k].raw();
        }
        require_equal(joined, Tries::valid(query).raw(), "its words make up the whole");
    }
    tries.trie.delete_segment_result(found);
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
    check_segments(tries, query);
    if (valid.size() > MAX_FUZZY_LENGTH)
        return;
    check_fuzzy(tries, query, 1, 1, false);
    check_fuzzy(tries, query, 2, 1, false);
    check_fuzzy(tries, query, 1.5, 0.5, false);
    check_fuzzy(tries, query, 1, 1, true);
}

} // namespace
} // namespace zelvor::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zelvor::fuzz;
    const auto [words, queries] = halves(data, size);
    Tries tries(words);
    std::size_t count = 0;
    for_each_line(queries, [&](const std::string& query) {
        if (query.size() <= MAX_LENGTH && count++ < MAX_QUERIES)
            check_query(tries, query);
    });
    return 0;
}
