#include "utils/LetterTrieNode.h"

#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <cstdarg>
#include <typeinfo>
#include <utility>

namespace zelvor {

namespace {

/// Walks over the characters of a text from a given position on, decoding each once.
class CharacterReader {
public:
    CharacterReader(std::string_view text, unsigned int position) : m_text(text) {
        for (unsigned int i = 0; i < position && !at_end(); ++i)
            next();
    }
    bool at_end() const { return m_offset == m_text.size(); }
    gunichar next() {
        if (const auto byte = static_cast<unsigned char>(m_text[m_offset]); byte < 0x80) {
            ++m_offset;
            return byte;
        }
        const DecodedCharacter character = decode_character(m_text, m_offset);
        m_offset += character.length;
        return character.code_point;
    }

private:
    std::string_view m_text;
    std::size_t m_offset = 0;
};

/// The nodes from `node` up to the root. A parent cycle, which add_child of an ancestor makes, ends the climb.
std::vector<const LetterTrieNode*> climb(const LetterTrieNode* node) {
    std::vector<const LetterTrieNode*> path;
    const LetterTrieNode* seen = nullptr;
    for (std::size_t limit = 16; node && node != seen; node = node->get_parent()) {
        path.push_back(node);
        if (path.size() == limit) {
            seen = node;
            limit *= 2;
        }
    }
    return path;
}

} // namespace

std::map<Glib::ustring, double>* LetterTrieNode::m_pmap_weights = nullptr;

LetterTrieNode* LetterTrieNode::search_for_node(gunichar c) const {
    const int position = vector_binary_search(m_vec_ptrie_nodes, c, compare_chars, get_node_contents);
    return position < 0 ? nullptr : m_vec_ptrie_nodes[position];
}

void LetterTrieNode::store_string(Glib::ustring str, unsigned int current_index) {
    CharacterReader reader(str.raw(), current_index);
    LetterTrieNode* node = this;
    for (;; ++current_index) {
        ++node->m_num;
        if (reader.at_end())
            break;
        const gunichar c = reader.next();
        LetterTrieNode* child = node->look_for_node(c);
        if (!child) {
            child = new LetterTrieNode(c);
            node->add_child(
                child, vector_lower_bounds_binary_search(node->m_vec_ptrie_nodes, c, compare_chars, get_node_contents));
        }
        node = child;
        if (typeid(*node) != typeid(LetterTrieNode)) {
            node->store_string(std::move(str), current_index + 1);
            return;
        }
    }
    node->m_is_leaf = true;
}

int LetterTrieNode::lookup_string(const Glib::ustring& str, unsigned int current_index) const {
    const LetterTrieNode* node = this;
    for (CharacterReader reader(str.raw(), current_index); node && !reader.at_end();)
        node = node->look_for_node(reader.next());
    return node && node->m_is_leaf;
}

int LetterTrieNode::lookup_string_prefix(const Glib::ustring& str, unsigned int current_index) const {
    CharacterReader reader(str.raw(), current_index);
    const LetterTrieNode* node = this;
    for (;; ++current_index) {
        if (node->m_is_leaf)
            return static_cast<int>(current_index);
        if (reader.at_end())
            return -1;
        node = node->look_for_node(reader.next());
        if (!node || reader.at_end()) // a string equal to the whole input is no prefix of it
            return -1;
    }
}

void LetterTrieNode::find_suffix(const Glib::ustring& str, unsigned int current_index, Glib::ustring& suffix) const {
    std::string marked;
    const LetterTrieNode* node = this;
    for (CharacterReader reader(str.raw(), current_index); !reader.at_end();) {
        const gunichar c = reader.next();
        const LetterTrieNode* child = node->look_for_node(c);
        if (!child)
            break;
        if (node->m_pparent && node->m_num / 3.0 > child->m_num)
            marked += '|';
        append_utf8(marked, c);
        node = child;
    }
    suffix += Glib::ustring(std::move(marked));
}

void LetterTrieNode::read_off_intern(Glib::ustring& s) const {
    const std::vector<const LetterTrieNode*> path = climb(this);
    std::string text;
    for (auto node = path.rbegin(); node != path.rend(); ++node)
        if ((*node)->m_pparent)
            append_utf8(text, (*node)->m_c);
    s = text + s.raw();
}

Glib::ustring LetterTrieNode::read_off() const {
    Glib::ustring s;
    read_off_intern(s);
    return s;
}

void LetterTrieNode::read_off_stack_intern(Glib::ustring& s, std::stack<LetterTrieNode*>& stack_letter_trie) const {
    read_off_intern(s);
    for (; !stack_letter_trie.empty(); stack_letter_trie.pop())
        if (const LetterTrieNode* node = stack_letter_trie.top())
            s = (node->read_off() + " ").raw() + s.raw();
}

Glib::ustring LetterTrieNode::read_off_stack(std::stack<LetterTrieNode*> stack_letter_trie) const {
    Glib::ustring s;
    read_off_stack_intern(s, stack_letter_trie);
    return s;
}

/// Without memory of its own, since it may be called for want of that: children are taken from the end of their lists,
/// which are turned round for it, and know the way back.
void LetterTrieNode::delete_tree(LetterTrieNode* proot) {
    LetterTrieNode* node = this;
    std::ranges::reverse(node->m_vec_ptrie_nodes);
    while (node != this || !node->m_vec_ptrie_nodes.empty()) {
        if (node->m_vec_ptrie_nodes.empty()) {
            delete std::exchange(node, node->m_pparent);
            continue;
        }
        LetterTrieNode* const child = node->m_vec_ptrie_nodes.back();
        node->m_vec_ptrie_nodes.pop_back();
        if (child != proot) {
            child->m_pparent = node;
            node = child;
            std::ranges::reverse(node->m_vec_ptrie_nodes);
        } else if (child->m_pparent == node && node != this) {
            child->m_pparent = nullptr; // the node that it points to is about to go
        }
    }
    m_access = Access::NONE;
}

double LetterTrieNode::weight_in(const WeightTable* pweight_table, gunichar c1, gunichar c2) {
    if (!pweight_table)
        return 1.0;
    const auto [low, high] = std::minmax(c1, c2);
    const auto weight = pweight_table->find(Glib::ustring(encode_utf8(std::u32string{low, high})));
    return weight == pweight_table->end() ? 1.0 : weight->second;
}

double LetterTrieNode::lookup_weight(gunichar c1, gunichar c2) const { return weight_in(m_pmap_weights, c1, c2); }

void LetterTrieNode::add_child(LetterTrieNode* pletter_trie_node, int position) {
    if (!pletter_trie_node)
        return;
    const int index = std::clamp(position, -1, static_cast<int>(m_vec_ptrie_nodes.size()) - 1) + 1;
    m_vec_ptrie_nodes.insert(m_vec_ptrie_nodes.begin() + index, pletter_trie_node);
    pletter_trie_node->m_pparent = this;
    choose_access(pletter_trie_node, index);
}

void LetterTrieNode::choose_access(LetterTrieNode* pnew_child, int index) {
    if (m_vec_ptrie_nodes.size() == 1) {
        m_access = Access::ONLY_CHILD;
        m_ponly_child = pnew_child;
        return;
    }
    if (m_access == Access::ONLY_CHILD) {
        m_access = Access::SLOTS;
        m_slots = child_slot(m_ponly_child->m_c);
    }
    if (m_access == Access::SLOTS) {
        const std::uint64_t slot = child_slot(pnew_child->m_c);
        if ((m_slots & slot) || std::popcount(m_slots & (slot - 1)) != index)
            m_access = Access::SEARCH;
        m_slots |= slot;
    }
}

LetterTrieNode* LetterTrieNode::get_root() { return const_cast<LetterTrieNode*>(climb(this).back()); }

bool HashFunctor::operator()(LetterTrieNode* p1, LetterTrieNode* p2) const {
    return m_pmap && (*m_pmap)[p1] < (*m_pmap)[p2];
}

int min_positive(int n_args, ...) {
    std::va_list values;
    va_start(values, n_args);
    int result = -1;
    for (int i = 0; i < n_args; ++i) {
        const int value = va_arg(values, int);
        if (value != -1 && (value < result || result == -1))
            result = value;
    }
    va_end(values);
    return result;
}

bool compare_nodes(std::vector<Glib::ustring>* pvec1, std::vector<Glib::ustring>* pvec2) {
    return pvec1->size() < pvec2->size();
}

} // namespace zelvor
