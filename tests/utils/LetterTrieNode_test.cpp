// The searches and splittings themselves are held against their definition by fuzz/trie_fuzz.cpp, in every test run.
#include "utils/LetterTrieNode.h"

#include "tests/testing.h"

#include <limits>
#include <random>

namespace zelvor {

struct Trie {
    explicit Trie(const Strings& words = {}) {
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

std::vector<Strings> take(LetterTrieNode::Splittings* splittings) {
    std::vector<Strings> result;
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

TEST(LetterTrie, FindsEachOfAnySetOfChildren) {
    std::mt19937 random(7);
    const std::u32string near = U"\x01 !'(-./0123489@AZ[_`az{~\x7f\u00e9\u010f\u0110\u0113\u016b\u1eb9\U0001F600";
    for (int round = 0; round < 500; ++round) {
        Trie trie;
        std::set<gunichar> stored;
        for (std::size_t count = random() % 12; count > 0; --count)
            trie.root.store_string(Glib::ustring(1, *stored.insert(near[random() % near.size()]).first), 0);
        for (const gunichar c : near)
            EXPECT_EQ(trie.root.look_for_node(c) != nullptr, stored.contains(c));
        EXPECT_TRUE(std::ranges::equal(trie.root.get_children(), stored, {}, get_node_contents));
    }
}

TEST(LetterTrie, MarksASuffixWhereFewerThanAThirdGoOn) {
    for (const auto& [with_b, marked] : {std::pair(2, "=a|bx"), {3, "=abx"}}) {
        Strings words(9, "acx");
        std::fill_n(words.begin(), with_b, "abx");
        Glib::ustring suffix = "=";
        Trie(words).root.find_suffix("zabx\xC3", 1, suffix);
        EXPECT_EQ(suffix.raw(), marked);
    }
}

TEST(LetterTrie, ReadsPathsAndStacks) {
    Trie trie({"haus", "boot", "\xC3\xA4"});
    LetterTrieNode *haus = trie.at("haus"), *boot = trie.at("boot");
    EXPECT_EQ(trie.root.look_for_node(0xE4)->read_off().raw(), "\xC3\xA4");
    EXPECT_EQ(boot->read_off_stack(std::stack<LetterTrieNode*>({haus, nullptr, boot})).raw(), "haus boot boot");
    EXPECT_EQ(min_positive(4, 7, -1, 0, -5), -5);
}

struct ShortNode : LetterTrieNode { // stores at most one character below itself, and tells its end
    ShortNode(gunichar c, std::string& ends) : LetterTrieNode(c), m_ends(ends) {}
    ~ShortNode() override { m_ends += static_cast<char>(m_c); }
    void store_string(Glib::ustring str, unsigned int current_index) override {
        LetterTrieNode::store_string(str.substr(0, current_index + 1), current_index);
    }
    std::string& m_ends;
};

TEST(LetterTrie, EntersDerivedChildrenSurvivesBackPointersAndDeletesChildrenFirst) {
    std::string ends, keys;
    Trie trie;
    for (const std::string path : {"a", "b", "ac", "ae", "acd"})
        trie.at(path.substr(0, path.size() - 1))->add_child(new ShortNode(path.back(), ends), 99); // clamped
    trie.root.add_child(new LetterTrieNode('d'), 1);
    trie.root.add_child(new LetterTrieNode('c'), 1);
    trie.root.add_child(nullptr, 0);
    for (const LetterTrieNode* node : trie.root.get_children())
        keys += static_cast<char>(node->get_contents());
    EXPECT_EQ(keys, "abcd");
    trie.root.store_string("bcd", 0);
    EXPECT_TRUE(trie.at("bc")->is_leaf());
    EXPECT_EQ(trie.at("bcd"), nullptr);
    const std::string path(20, 'd');
    trie.root.store_string(path, 0);
    trie.at("b")->add_child(&trie.root, -1); // a cycle of parents, far above: reading off ends all the same
    EXPECT_TRUE(trie.at(path)->read_off().raw().ends_with(path));
    trie.root.delete_tree(&trie.root);
    EXPECT_EQ(ends, "dceab");
    EXPECT_EQ(trie.root.look_for_node('b'), nullptr);
    EXPECT_EQ(trie.root.get_parent(), nullptr);
}

TEST(LetterTrie, HoldsAndSearchesVeryLongStrings) {
    const std::string word = std::string(100000, 'a') + "\xC3\xA4", half(2000, 'a');
    Trie trie({word, half});
    EXPECT_EQ(trie.root.lookup_string(word, 0), 1);
    EXPECT_EQ(take(trie.root.segment_sorted(word + word, 0)).at(0), Strings({word, word}));
    using Row = std::tuple<std::string, unsigned int, double>; // trying all paths would take minutes
    for (const auto& [str, threshold, weight_end] : {Row(word, 99998, 1), Row(word, 99998, 0.5), Row(half, 0, 1)}) {
        LetterTrieNode::FuzzyMatches matches;
        EXPECT_EQ(trie.root.lookup_string_fuzzy(str, 0, 3.0, matches, threshold, weight_end), 0);
        EXPECT_TRUE(
            std::ranges::any_of(matches, [&str = str](const auto* match) { return match->second.raw() == str; }));
        LetterTrieNode::delete_mem(&matches);
    }
    std::ostringstream os;
    trie.root.print(os);
    EXPECT_TRUE(os.str().ends_with("\n" + std::string(200, ' ') + "+99901 \u00e4 1 *\n"));
}

TEST(LetterTrie, WeighsByATableOfTheCallAndToleratesAnything) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const LetterTrieNode::WeightTable own{{"ay", 0.5}};
    using Row = std::tuple<Strings, const char*, double, const LetterTrieNode::WeightTable*, int, double>;
    for (const auto& [stored, str, tolerance, table, edits, left] :
         {Row({"abc"}, "ayc", 1, &own, 1, 0.5), Row({"abc"}, "axc", 1, nullptr, 1, 0),
          Row({"abc", "x"}, "", infinite, nullptr, 1, infinite), Row({"ab"}, "zzz", 1e12, nullptr, 3, 999999999997)}) {
        LetterTrieNode::FuzzyMatches matches;
        EXPECT_EQ(Trie(stored).root.lookup_string_fuzzy_weighted(str, 0, tolerance, matches, 0, 1, table), edits);
        EXPECT_EQ(matches.size(), stored.size());
        EXPECT_TRUE(std::ranges::all_of(matches, [&left = left](const auto* match) { return match->first == left; }))
            << str;
        LetterTrieNode::delete_mem(&matches);
    }
}

TEST(LetterTrie, SplitsIntoFewWordsFirstAndEndsOnHopelessInput) {
    EXPECT_EQ(take(Trie({"abcd", "ef", "abc", "def", "abcdef", "xyz"}).root.segment_sorted("abcdefxyz", 0)),
              (std::vector<Strings>{{"abcdef", "xyz"}, {"abc", "def", "xyz"}}));
    Trie runs({"aaa", "aaaa"});
    EXPECT_EQ(take(runs.root.segment_sorted(std::string(200, 'a') + "b", 0)).size(), 0U);
    EXPECT_EQ(runs.root.count_splittings(std::string(10, 'a'), 0), 3U); // 3 + 3 + 4 in any order
    EXPECT_EQ(runs.root.count_splittings(std::string(200, 'a') + "b", 0), 0U);
    EXPECT_EQ(runs.root.count_splittings(std::string(1000, 'a'), 0), UINT64_MAX);
}

} // namespace zelvor
