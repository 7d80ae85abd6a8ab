#include "utils/LetterTrieNode.h"

#include "utils/common_utils/utf8.h"

#include <glib.h>

#include <algorithm>
#include <cstdio>
#include <ostream>

namespace zelvor {

namespace {

struct Visit {
    const LetterTrieNode* node;
    std::size_t number; ///< in the order of the visits, from 0
    std::size_t parent; ///< the parent's number
    std::size_t depth;  ///< below the node at which the walk began
};

/// Visits `start` and all nodes below it that min_num strings reached, frequent children first, then in their order.
template<typename Use>
void walk_by_frequency(const LetterTrieNode* start, int min_num, Use use) {
    std::vector<Visit> pending{{start, 0, 0, 0}};
    for (std::size_t number = 0; !pending.empty(); ++number) {
        Visit visit = pending.back();
        pending.pop_back();
        visit.number = number;
        use(visit);
        std::vector<LetterTrieNode*> children;
        std::map<LetterTrieNode*, int> counts;
        const std::vector<LetterTrieNode*>& all = visit.node->get_children();
        for (auto child = all.rbegin(); child != all.rend(); ++child)
            if ((*child)->get_parent() == visit.node && (*child)->get_num() >= min_num) {
                children.push_back(*child);
                counts[*child] = (*child)->get_num();
            }
        std::stable_sort(children.begin(), children.end(), HashFunctor(&counts)); // the last is taken up first
        for (const LetterTrieNode* child : children)
            pending.push_back({child, 0, number, visit.depth + 1});
    }
}

constexpr std::size_t MAX_INDENTED_DEPTH = 100; // or the output would grow with the square of a string's length

/// Blanks, control characters and those that turn the direction of what follows are named instead.
std::string visible(gunichar c) {
    if (g_unichar_isgraph(c) && !g_unichar_isspace(c))
        return encode_utf8(std::u32string(1, c));
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", c);
    return name;
}

/// A quoted Graphviz string: U+0000 and control characters would end or break the line.
std::string dot_label(gunichar c) {
    std::string text;
    if (c == '"' || c == '\\')
        text = '\\';
    append_utf8(text, c < ' ' ? REPLACEMENT_CHARACTER : c);
    return text;
}

} // namespace

void LetterTrieNode::print(std::ostream& os, int min_num) const {
    walk_by_frequency(this, min_num, [&os](const Visit& visit) {
        os << std::string(2 * std::min(visit.depth, MAX_INDENTED_DEPTH), ' ');
        if (visit.depth > MAX_INDENTED_DEPTH)
            os << '+' << visit.depth - MAX_INDENTED_DEPTH << ' ';
        os << (visit.node->m_pparent ? visible(visit.node->m_c) : "(root)") << ' ' << visit.node->m_num
           << (visit.node->m_is_leaf ? " *\n" : "\n");
    });
}

void LetterTrieNode::print_dot(std::ostream& os, int min_num) const {
    os << "digraph trie {\n    rankdir=LR;\n    node [shape=circle];\n";
    walk_by_frequency(this, min_num, [this, &os](const Visit& visit) {
        const LetterTrieNode* node = visit.node;
        os << "    n" << visit.number << " [label=\"" << (node->m_pparent ? dot_label(node->m_c) : "") << "\\n"
           << node->m_num << (node->m_is_leaf ? "\", shape=doublecircle];\n" : "\"];\n");
        if (node != this)
            os << "    n" << visit.parent << " -> n" << visit.number << ";\n";
    });
    os << "}\n";
}

} // namespace zelvor
