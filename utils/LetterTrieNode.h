#pragma once

#include <glibmm/ustring.h>

#include <array>
#include <bit>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <set>
#include <stack>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

/// The bit of c's class; the 64 classes, in code-point order, keep apart what often stands side by side in words.
inline std::uint64_t child_slot(gunichar c) {
    static constexpr auto ascii_slots = [] {
        constexpr std::string_view first_of_slot = "'-.02ABCDEFGHIJKLMNOPQRSTUVWXYZ[abcdefghijklmnopqrstuvwxyz{";
        std::array<std::uint8_t, 128> slots{};
        for (std::size_t i = 1; i < slots.size(); ++i)
            slots[i] = slots[i - 1] + (first_of_slot.find(static_cast<char>(i)) != std::string_view::npos);
        return slots;
    }();
    const int slot = c < 0x80 ? ascii_slots[c] // and each of ā, ē, ī, ō, ū in its own
                              : 59 + (c >= 0x110) + (c >= 0x120) + (c >= 0x140) + (c >= 0x160);
    return std::uint64_t{1} << slot;
}

/// A trie over code points, one node a character; the root carries none. Strings may hold any bytes: each byte that is
/// not valid UTF-8 counts as the character U+FFFD, U+0000 is a character like any other. Positions and lengths are in
/// code points; a position beyond the string counts as its end. Strings are told apart by their characters alone: no
/// collation, no case folding, no normalisation.
///
/// Build: make a root, call store_string(word, 0) on it for each word. Freeing it takes two steps: what is
/// below by root.delete_tree(&root), then the root. A node owns its children, but its destructor frees none of them.
class LetterTrieNode {
public:
    using FuzzyMatches = std::set<std::pair<double, Glib::ustring>*>; ///< (budget left, stored string); owned by caller
    using Splittings = std::vector<std::vector<Glib::ustring>*>;      ///< each in the order of the input
    using WeightTable = std::map<Glib::ustring, double>;              ///< see set_weight_table

    LetterTrieNode() = default;                     ///< a root
    explicit LetterTrieNode(gunichar c) : m_c(c) {} ///< c: below 2^29, as every code point is
    virtual ~LetterTrieNode() = default;
    LetterTrieNode(const LetterTrieNode&) = delete;
    LetterTrieNode& operator=(const LetterTrieNode&) = delete;

    /// Stores str from current_index on below this node and counts it in every node that it reaches. New nodes are
    /// plain ones; a child of a derived class (see add_child) is entered through its own store_string.
    virtual void store_string(Glib::ustring str, unsigned int current_index);

    LetterTrieNode* look_for_node(gunichar c) const;                               ///< the child for c, or null
    int lookup_string(const Glib::ustring& str, unsigned int current_index) const; ///< 1: stored, 0: not

    /// Where the shortest stored proper prefix of str ends, or -1. The whole of str is never reported, except that a
    /// leaf at the start, or at the end of an empty str, gives current_index.
    int lookup_string_prefix(const Glib::ustring& str, unsigned int current_index) const;

    /// Follows str down the trie and appends to suffix each character that is found, U+FFFD for an invalid byte: with
    /// "|" before it where less than a third of all that came so far share it, but never before the first.
    void find_suffix(const Glib::ustring& str, unsigned int current_index, Glib::ustring& suffix) const;

    Glib::ustring read_off() const; ///< the string from the root to this node
    /// The paths of the stacked nodes, the bottom one first, then the path of this node, with blanks between them.
    Glib::ustring read_off_stack(std::stack<LetterTrieNode*> stack_letter_trie) const;
    void read_off_intern(Glib::ustring& s) const; ///< makes s begin with this node's path
    void read_off_stack_intern(Glib::ustring& s, std::stack<LetterTrieNode*>& stack_letter_trie) const; ///< empties it

    /// Deletes all nodes below this one, except proot (which may be null) and what hangs below it: children before
    /// their parents, in code-point order.
    void delete_tree(LetterTrieNode* proot);

    gunichar get_contents() const { return m_c; }
    LetterTrieNode* get_parent() const { return m_pparent; }
    const std::vector<LetterTrieNode*>& get_children() const { return m_vec_ptrie_nodes; } ///< in code-point order
    bool is_leaf() const { return m_is_leaf; } ///< a stored string ends here
    int get_num() const { return m_num; }      ///< how many store_string calls reached this node

    /// The substitution costs of the fuzzy lookup, for all tries of the process: keys are two characters, the lower
    /// code point first. Not owned; null removes it. Must not change during a lookup.
    static void set_weight_table(std::map<Glib::ustring, double>* pweight_table) { m_pmap_weights = pweight_table; }
    static bool has_weights() { return m_pmap_weights && !m_pmap_weights->empty(); }
    double lookup_weight(gunichar c1, gunichar c2) const; ///< 1.0 where the table has nothing for the pair
    static double weight_in(const WeightTable* pweight_table, gunichar c1, gunichar c2); ///< null: 1.0

    /// Takes a child over, placed after index position (-1: first). Order and uniqueness are the caller's business.
    void add_child(LetterTrieNode* pletter_trie_node, int position);

    /// Adds every stored string within the edit budget `tolerance` to set_lemmas, with the budget that is left (higher
    /// is closer), and returns the fewest edit steps that led to one, -1 where there is none. For a string that is
    /// there already the budget is replaced when the new one is greater than the old one cut to an integer. Deletion
    /// (weight_end at a leaf), insertion and transposition cost 1; a substitution costs lookup_weight of the character
    /// before the substituted one and the input's, so the table has no say in a first character. Edits need a budget
    /// above 0 and start at start_threshold; the last one may overdraw. A match ends its path: longer stored strings
    /// are not reached through it. The search is exhaustive: with a weight table or another weight_end than 1 its time
    /// is exponential in the budget, and nothing caps it.
    int lookup_string_fuzzy(const Glib::ustring& str, unsigned int current_index, double tolerance,
                            FuzzyMatches& set_lemmas, unsigned int start_threshold, double weight_end);
    /// The same with a weight table of this call's own (null: none), whatever the process's is.
    int lookup_string_fuzzy_weighted(const Glib::ustring& str, unsigned int current_index, double tolerance,
                                     FuzzyMatches& set_lemmas, unsigned int start_threshold, double weight_end,
                                     const WeightTable* pweight_table) const;
    /// As above with the process's table; besides, before the first character that is kept or substituted, a skipped
    /// one may be a boundary after which the search starts afresh at proot_node (null: the root). Its time is always
    /// exponential in the budget. The stack is left as it came.
    int lookup_string_fuzzy_segment(const Glib::ustring& str, unsigned int current_index, double tolerance,
                                    FuzzyMatches& set_lemmas, unsigned int start_threshold, double weight_end,
                                    std::stack<LetterTrieNode*>& stack_letter_trie_node, LetterTrieNode* proot_node);
    static void delete_mem(FuzzyMatches* pset); ///< deletes the pairs and clears the set

    /// All ways to split str into stored strings, or null: inside at least 3 characters long, at the end 2; where two
    /// differ, the one with the longer word comes first. This node stands distance_from_root below proot (null: the
    /// root) in a word already begun. Free with delete_segment_result. The result can be exponential in the length.
    /// Besides, it needs 16 bytes for each stored string that begins at a position where a word may begin.
    Splittings* segment(const Glib::ustring& str, unsigned int current_index, LetterTrieNode* proot,
                        int distance_from_root);
    Splittings* segment_sorted(const Glib::ustring& str, unsigned int current_index); ///< fewest words first
    /// How many splittings segment_sorted would give, at most 2^64 - 1, in a time that does not depend on it.
    std::uint64_t count_splittings(const Glib::ustring& str, unsigned int current_index);
    void delete_segment_result(Splittings* pvec_vec);

    // Both printers leave out nodes that fewer than min_num strings reached, and put frequent children first.

    /// A line a node: two blanks for each level below this one, the character (as U+200B and the like where it would
    /// not be seen), the count, " *" where a stored string ends. Indents 100 levels at most: a deeper node says by how
    /// many levels it lies below those, as in "+7 ". The root's line begins with "(root)".
    void print(std::ostream& os, int min_num = 1) const;
    /// A Graphviz graph; stored strings end in a double circle.
    void print_dot(std::ostream& os, int min_num = 1) const;

protected:
    LetterTrieNode* get_root(); ///< climbs through the parents

    LetterTrieNode* search_for_node(gunichar c) const;         ///< by bisection
    void choose_access(LetterTrieNode* pnew_child, int index); ///< for each child that is put in, at once

    /// How a child is found without looking at its siblings, which would cost a cache miss each.
    enum class Access : std::uint8_t { NONE, ONLY_CHILD, SLOTS, SEARCH };

    // 56 bytes, for which the heap takes 64, and what a lookup reads comes first: one cache line of it a letter.
    gunichar m_c : 29 = 0;
    bool m_is_leaf : 1 = false;
    Access m_access : 2 = Access::NONE;
    int m_num = 0;
    union {
        LetterTrieNode* m_ponly_child = nullptr;
        std::uint64_t m_slots; ///< child_slot of each child, none shared: its rank is the child's index
    };
    std::vector<LetterTrieNode*> m_vec_ptrie_nodes; ///< only add_child and delete_tree may change it: see m_access
    LetterTrieNode* m_pparent = nullptr;
    static std::map<Glib::ustring, double>* m_pmap_weights;
};

inline LetterTrieNode* LetterTrieNode::look_for_node(gunichar c) const {
    LetterTrieNode* child = nullptr;
    switch (m_access) {
    case Access::NONE:
        return nullptr;
    case Access::ONLY_CHILD:
        child = m_ponly_child;
        break;
    case Access::SLOTS: {
        const std::uint64_t slot = child_slot(c);
        if (!(m_slots & slot))
            return nullptr;
        child = m_vec_ptrie_nodes[std::popcount(m_slots & (slot - 1))];
        break;
    }
    case Access::SEARCH:
        return search_for_node(c);
    }
    return child->m_c == c ? child : nullptr;
}

/// Orders nodes by ascending count; a node without a count is entered into the map (not owned) with 0.
class HashFunctor {
public:
    explicit HashFunctor(std::map<LetterTrieNode*, int>* pmap) : m_pmap(pmap) {}
    bool operator()(LetterTrieNode* p1, LetterTrieNode* p2) const;

private:
    std::map<LetterTrieNode*, int>* m_pmap;
};

inline bool compare_chars(gunichar c1, gunichar c2) { return c1 < c2; }
inline gunichar get_node_contents(LetterTrieNode* m_pletter_trie_node) { return m_pletter_trie_node->get_contents(); }

/// Of n_args further int values the smallest that is not -1; -1 when there is none.
int min_positive(int n_args, ...);
bool compare_nodes(std::vector<Glib::ustring>* pvec1, std::vector<Glib::ustring>* pvec2); ///< fewer words first

/// The index of the last element of the sorted v1 whose key is less than u, -1 for none.
template<typename T, typename U, typename Less, typename Get>
int vector_lower_bounds_binary_search(const std::vector<T>& v1, const U& u, Less comparison_less, Get get_content) {
    const int size = static_cast<int>(v1.size());
    if (size == 0 || comparison_less(u, get_content(v1.front())))
        return -1;
    if (comparison_less(get_content(v1.back()), u))
        return size - 1;
    int start_pos = 0;
    int end_pos = size;
    for (int comparison_pos = -1;;) {
        const int old_comparison_pos = comparison_pos;
        comparison_pos = start_pos + (end_pos - start_pos) / 2;
        if (comparison_pos == old_comparison_pos)
            return comparison_pos;
        const auto& key = get_content(v1[comparison_pos]);
        if (comparison_less(u, key))
            end_pos = comparison_pos;
        else if (comparison_less(key, u))
            start_pos = comparison_pos;
        else
            return comparison_pos - 1;
    }
}

/// The index of the element of the sorted v1 whose key is u, -1 for none.
template<typename T, typename U, typename Less, typename Get>
int vector_binary_search(const std::vector<T>& v1, const U& u, Less comparison_less, Get get_content) {
    const int position = vector_lower_bounds_binary_search(v1, u, comparison_less, get_content);
    if (position == static_cast<int>(v1.size()) - 1)
        return -1;
    const auto& key = get_content(v1[position + 1]);
    return key != u ? -1 : position + 1;
}

} // namespace zelvor
