#include "utils/LetterTrieNode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>
#include <tuple>

namespace zelvor {
namespace {

using Words = std::vector<std::string>;
using Set = LetterTrieNode::FuzzyMatches;
constexpr double INF = std::numeric_limits<double>::infinity();

struct Trie {
    explicit Trie(const Words& words = {}) {
        for (const std::string& word : words)
            root.store_string(word, 0);
    }
    ~Trie() { root.delete_tree(&root); }
    LetterTrieNode* at(std::string_view path) {
        LetterTrieNode* node = &root;
        for (const char c : path)
            node = node->look_for_node(c);
        return node;
    }
    LetterTrieNode root;
};

struct Matches : Set {
    ~Matches() { LetterTrieNode::delete_mem(this); }
};

std::map<std::string, double> contents(const Set& set) {
    std::map<std::string, double> result;
    for (const auto* pair : set)
        result[pair->second.raw()] = pair->first;
    return result;
}

std::vector<Words> take(LetterTrieNode::Splittings* splittings) {
    std::vector<Words> result;
    for (std::size_t i = 0; splittings && i < splittings->size(); ++i)
        result.emplace_back((*splittings)[i]->begin(), (*splittings)[i]->end());
    LetterTrieNode().delete_segment_result(splittings);
    return result;
}

TEST(LetterTrie, CountsMarksLeavesAndPrintsWhatIsFrequent) {
    Trie trie({"z", "ab", "\"", "ab", "ac", "\""});
    trie.root.store_string("ab", 1); // stores "b"
    trie.root.store_string("ab", 9); // beyond the end: the empty string
    std::ostringstream os;
    trie.root.print_dot(os, 2);
    EXPECT_EQ(os.str(), "digraph trie {\n    rankdir=LR;\n    node [shape=circle];\n"
                        "    n0 [label=\"\\n8\", shape=doublecircle];\n    n1 [label=\"a\\n3\"];\n    n0 -> n1;\n"
                        "    n2 [label=\"b\\n2\", shape=doublecircle];\n    n1 -> n2;\n"
                        "    n3 [label=\"\\\"\\n2\", shape=doublecircle];\n    n0 -> n3;\n}\n");
    os.str("");
    trie.root.print(os, 2);
    EXPECT_EQ(os.str(), "(root) 8 *\n  a 3\n    b 2 *\n  \" 2 *\n");
    os.str("");
    Trie({std::string("\0", 1), " ", "\n", "\x7f", "\u00e9", "\u202e", "\u2028", "\xff"}).root.print(os);
    EXPECT_EQ(os.str(), "(root) 8\n  U+0000 1 *\n  U+000A 1 *\n  U+0020 1 *\n  U+007F 1 *\n  \u00e9 1 *\n"
                        "  U+2028 1 *\n  U+202E 1 *\n  \ufffd 1 *\n");
}

TEST(LetterTrie, LooksUpWholeStringsAndProperPrefixes) {
    const std::string nul("a\0b", 3);
    // A whole string is no prefix of itself; a truncated character is one U+FFFD for each byte; nothing is normalised.
    using Row = std::tuple<Words, std::string, unsigned int, int, int>; // stored, input, from, found, prefix
    for (const auto& [stored, str, from, found, prefix] :
         {Row({"abc"}, "abc", 0, 1, -1), Row({"abc", "ab"}, "abc", 0, 1, 2), Row({"abc", "ab", ""}, "abc", 0, 1, 0),
          Row({"abc"}, "xabcd", 1, 0, 4), Row({}, "", 0, 0, -1), Row({""}, "", 0, 1, 0), Row({""}, "a", 7, 1, 7),
          Row({"a"}, "a", 7, 0, -1), Row({"a", "A", "\xC3\xA1", "\x01"}, "\x01\x02", 0, 0, 1),
          Row({nul}, nul, 0, 1, -1), Row({"a\xC3"}, "a\xEF\xBF\xBD", 0, 1, -1), Row({"\xE1\xBF"}, "\xE1\xBFz", 0, 0, 2),
          Row({"\xC2\xB2", "\xC3\xA9"}, "2", 0, 0, -1)}) {
        Trie trie(stored);
        EXPECT_EQ(trie.root.lookup_string(str, from), found) << testing::PrintToString(stored) << str;
        EXPECT_EQ(trie.root.lookup_string_prefix(str, from), prefix) << testing::PrintToString(stored) << str;
    }
}

TEST(LetterTrie, FindsEachOfAnySetOfChildren) {
    std::mt19937 random(7);
    const std::u32string near = U"\x01 !'(-./0123489@AZ[_`az{~\x7f\u00e9\u010f\u0110\u0113\u016b\u1eb9\U0001F600";
    for (int round = 0; round < 500; ++round) {
        Trie trie;
        std::set<gunichar> stored, found;
        for (std::size_t count = random() % 12; count > 0; --count)
            trie.root.store_string(Glib::ustring(1, *stored.insert(near[random() % near.size()]).first), 0);
        for (const gunichar c : near)
            if (trie.root.look_for_node(c))
                found.insert(c);
        EXPECT_EQ(found, stored);
        EXPECT_TRUE(std::ranges::equal(trie.root.get_children(), stored, {}, get_node_contents));
    }
}

TEST(LetterTrie, MarksASuffixWhereFewerThanAThirdGoOn) {
    const auto marks = [](int with_b, const char* str, unsigned int from) {
        Trie trie(Words(with_b, "abx"));
        for (int i = with_b; i < 9; ++i)
            trie.root.store_string("acx", 0);
        Glib::ustring suffix = "=";
        trie.root.find_suffix(str, from, suffix);
        return suffix.raw();
    };
    EXPECT_EQ(marks(2, "abx", 0), "=a|bx");
    EXPECT_EQ(marks(3, "abx", 0), "=abx"); // 3 is not below 9 / 3.0
    EXPECT_EQ(marks(2, "zab\xC3", 1), "=a|b");
    EXPECT_EQ(marks(2, "a", 5), "=");
}

TEST(LetterTrie, ReadsPathsAndStacksOfPaths) {
    Trie trie({"haus", "boot", "\xC3\xA4"});
    using Stack = std::stack<LetterTrieNode*>;
    LetterTrieNode *haus = trie.at("haus"), *boot = trie.at("boot");
    EXPECT_EQ(trie.root.look_for_node(0xE4)->read_off().raw(), "\xC3\xA4");
    EXPECT_EQ(trie.root.read_off_stack(Stack({haus})).raw(), "haus ");
    EXPECT_EQ(boot->read_off_stack(Stack({haus, nullptr, boot})).raw(), "haus boot boot");
}

class ShortNode : public LetterTrieNode { // stores at most one character below itself, and tells its end
public:
    explicit ShortNode(gunichar c, std::string* pends = nullptr) : LetterTrieNode(c), m_pends(pends) {}
    ~ShortNode() override {
        if (m_pends)
            *m_pends += static_cast<char>(m_c);
    }
    void store_string(Glib::ustring str, unsigned int current_index) override {
        LetterTrieNode::store_string(str.substr(0, current_index + 1), current_index);
    }

private:
    std::string* m_pends;
};

TEST(LetterTrie, DeletesChildrenInOrderAndBeforeTheirParents) {
    std::string ends;
    LetterTrieNode root;
    for (const char* path : {"a", "b", "ac", "ae", "acd"}) {
        LetterTrieNode* node = &root;
        for (; path[1] != 0 && node->look_for_node(*path); ++path)
            node = node->look_for_node(*path);
        node->add_child(new ShortNode(*path, &ends), 99);
    }
    root.delete_tree(&root);
    EXPECT_EQ(ends, "dceab");
}

TEST(LetterTrie, EntersDerivedChildrenAndSurvivesBackPointers) {
    Trie trie;
    auto* child = new ShortNode('b');
    trie.root.add_child(child, -1);
    trie.root.add_child(new LetterTrieNode('d'), 0);
    trie.root.add_child(new LetterTrieNode('c'), 0);
    trie.root.add_child(new LetterTrieNode('e'), 99); // clamped
    trie.root.add_child(nullptr, 0);
    std::string keys;
    for (const LetterTrieNode* node : trie.root.get_children())
        keys += static_cast<char>(node->get_contents());
    EXPECT_EQ(keys, "bcde");
    trie.root.store_string("bcd", 0);
    EXPECT_TRUE(child->get_parent() == &trie.root && trie.at("bc")->is_leaf() && !trie.at("bc")->look_for_node('d'));
    child->add_child(&trie.root, -1); // a parent cycle: reading off ends all the same
    EXPECT_EQ(child->read_off().raw().back(), 'b');
    trie.root.delete_tree(&trie.root);
    EXPECT_TRUE(trie.root.get_children().empty() && !trie.root.look_for_node('b') && !trie.root.get_parent());
}

TEST(LetterTrie, HoldsAndSearchesVeryLongStrings) {
    const std::string word = std::string(100000, 'a') + "\xC3\xA4", half(2000, 'a');
    Trie trie;
    trie.root.store_string(word, 0);
    EXPECT_EQ(trie.root.lookup_string(word, 0), 1);
    EXPECT_EQ(take(trie.root.segment_sorted(word + word, 0)), std::vector<Words>({{word, word}}));
    for (const double weight_end : {1.0, 0.5}) {
        Matches matches;
        EXPECT_EQ(trie.root.lookup_string_fuzzy(word, 0, 3.0, matches, 99998, weight_end), 0);
        EXPECT_EQ(contents(matches)[word], 3);
    }
    std::ostringstream os;
    trie.root.print(os);
    EXPECT_TRUE(os.str().ends_with("\n" + std::string(200, ' ') + "+99901 \u00e4 1 *\n"));
    trie.root.store_string(half, 0);
    Matches matches; // trying all paths would take minutes
    EXPECT_EQ(trie.root.lookup_string_fuzzy(half, 0, 2.0, matches, 0, 1.0), 0);
    EXPECT_EQ(contents(matches), (std::map<std::string, double>{{half, 2}}));
}

TEST(LetterTrieFree, SmallFunctions) {
    EXPECT_EQ(std::vector({min_positive(3, -1, 4, 2), min_positive(2, -1, -1), min_positive(3, 0, -1, -5)}),
              std::vector({2, -1, -5}));
    LetterTrieNode a('a'), b('b');
    std::map<LetterTrieNode*, int> counts{{&a, 1}};
    EXPECT_TRUE(HashFunctor(&counts)(&b, &a) && !HashFunctor(&counts)(&a, &b) && counts.count(&b)); // b counts 0
    std::map<Glib::ustring, double> weights{{"ab", 0.25}, {"a", 7}, {"", 7}};
    LetterTrieNode::set_weight_table(&weights);
    EXPECT_EQ(a.lookup_weight('a', 'b') + a.lookup_weight('b', 'a'), 0.5);
    EXPECT_EQ(a.lookup_weight('b', 'b') + a.lookup_weight(0xD800, 0xFFFFFFFF), 2.0);
    LetterTrieNode::set_weight_table(nullptr);
}

TEST(LetterTrieFuzzy, FindsKnownCases) {
    const std::string nul("\0a", 2);
    using Result = std::map<std::string, double>;
    std::map<Glib::ustring, double> weights{{"ax", 0.25}};
    LetterTrieNode::set_weight_table(&weights);
    using Row = std::tuple<Words, std::string, double, int, Result>; // stored, input, tolerance, steps, budgets left
    for (const auto& [stored, str, tolerance, steps, result] :
         {Row({"ccab"}, "xxba", 2.5, 3, {{"ccab", -0.5}}), Row({"abc", "x"}, "", INF, 1, {{"abc", INF}, {"x", INF}}),
          Row({"ab"}, "zzz", 1e12, 3, {{"ab", 999999999997}}), Row({nul}, "a\xC3", 2.0, 2, {{nul, 0}}),
          Row({"abc"}, "axc", 1.0, 1, {{"abc", 0.75}}), Row({"abc"}, "ayc", 1.0, 1, {{"abc", 0}}),
          Row({"abc"}, "bac", 1.0, 1, {{"abc", 0}}),
          Row({"m2", "m\xC2\xB2"}, "m2", 1.0, 0, {{"m2", 1}, {"m\xC2\xB2", 0}})}) {
        Matches matches;
        EXPECT_EQ(Trie(stored).root.lookup_string_fuzzy(str, 0, tolerance, matches, 0, 1), steps) << str;
        EXPECT_EQ(contents(matches), result) << str;
    }
    const LetterTrieNode::WeightTable own{{"ay", 0.5}};
    Matches by_own, by_none;
    Trie({"abc"}).root.lookup_string_fuzzy_weighted("ayc", 0, 1, by_own, 0, 1, &own);
    Trie({"abc"}).root.lookup_string_fuzzy_weighted("axc", 0, 1, by_none, 0, 1, nullptr);
    EXPECT_EQ(contents(by_own), (Result{{"abc", 0.5}}));
    EXPECT_EQ(contents(by_none), (Result{{"abc", 0}}));
    LetterTrieNode::set_weight_table(nullptr);
    Trie trie({"x", "abc"});
    Matches matches;
    std::stack<LetterTrieNode*> stack;
    EXPECT_EQ(trie.root.lookup_string_fuzzy("xbc", 0, 1, matches, 2, 1), -1);
    EXPECT_EQ(trie.at("x")->lookup_string_fuzzy("zabc", 0, 1, matches, 0, 0.5), -1);
    EXPECT_EQ(trie.at("x")->lookup_string_fuzzy_segment("zabc", 0, 1, matches, 0, 0.5, stack, nullptr), 1);
    EXPECT_EQ(contents(matches), (Result{{"abc", 0.5}})); // "z" is the boundary between "x" and "abc"
}

TEST(LetterTrieSegment, SortsByTheNumberOfWordsAndEndsOnHopelessInput) {
    // A first word needs three characters, a last one two.
    using Row = std::tuple<Words, std::string, unsigned int, std::vector<Words>>; // stored, input, from, splittings
    for (const auto& [stored, str, from, splittings] :
         {Row({"haus", "boot"}, "hausboot", 0, {{"haus", "boot"}}), Row({"ab", "cd"}, "abcd", 0, {}),
          Row({"abc", "d"}, "abcd", 0, {}), Row({"abc"}, "xxabc", 2, {{"abc"}}), Row({"", "abc"}, "", 0, {}),
          Row({"abcd", "ef", "abc", "def", "abcdef", "xyz"}, "abcdefxyz", 0,
              {{"abcdef", "xyz"}, {"abc", "def", "xyz"}}),
          Row({"aaa", "aaaa"}, std::string(200, 'a') + "b", 0, {})}) {
        EXPECT_EQ(take(Trie(stored).root.segment_sorted(str, from)), splittings) << str;
        EXPECT_EQ(Trie(stored).root.count_splittings(str, from), splittings.size()) << str;
    }
    EXPECT_EQ(Trie({"aaa", "aaaa"}).root.count_splittings(std::string(10, 'a'), 0), 3U); // 3+3+4 in any order
    EXPECT_EQ(Trie({"aaa", "aaaa"}).root.count_splittings(std::string(1000, 'a'), 0), UINT64_MAX);
    EXPECT_EQ(take(Trie({"abc"}).root.segment("abc", 0, nullptr, std::numeric_limits<int>::max())).size(), 1U);
    EXPECT_EQ(Trie({"abc"}).root.segment("abc", 7, nullptr, 0), nullptr);
}

} // namespace
} // namespace zelvor
