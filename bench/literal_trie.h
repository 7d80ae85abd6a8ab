#pragma once

#include <glibmm/ustring.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>
#include <vector>

/// The trie as one would write it down from its definition: strings indexed as they come, passed by value while
/// storing, one recursive call a step. The tests hold zelvor::LetterTrieNode against it, the benchmark measures it so.
struct LiteralTrie {
    using Matches = std::set<std::pair<double, Glib::ustring>*>;
    using Splittings = std::vector<std::vector<Glib::ustring>>;

    explicit LiteralTrie(gunichar character = 0) : c(character) {}
    virtual ~LiteralTrie() {
        for (LiteralTrie* child : children)
            delete child;
    }

    static std::map<Glib::ustring, double>* weights;

    LiteralTrie* look_for_node(gunichar wanted) const {
        const auto at = std::lower_bound(children.begin(), children.end(), wanted,
                                         [](const LiteralTrie* node, gunichar u) { return node->c < u; });
        return at != children.end() && (*at)->c == wanted ? *at : nullptr;
    }

    virtual void store(Glib::ustring str, unsigned int i) {
        ++num;
        if (i >= str.length()) {
            leaf = true;
            return;
        }
        LiteralTrie* child = look_for_node(str[i]);
        if (!child) {
            child = new LiteralTrie(str[i]);
            child->parent = this;
            children.insert(std::lower_bound(children.begin(), children.end(), child,
                                             [](const LiteralTrie* a, const LiteralTrie* b) { return a->c < b->c; }),
                            child);
        }
        child->store(str, i + 1);
    }

    int lookup(const Glib::ustring& str, unsigned int i) const {
        if (i >= str.length())
            return leaf;
        const LiteralTrie* child = look_for_node(str[i]);
        return child ? child->lookup(str, i + 1) : 0;
    }

    Glib::ustring read_off() const {
        Glib::ustring s;
        for (const LiteralTrie* node = this; node->parent; node = node->parent)
            s = Glib::ustring(1, node->c) + s;
        return s;
    }

    static double weight(gunichar c1, gunichar c2) {
        if (!weights)
            return 1.0;
        const Glib::ustring key = Glib::ustring(1, std::min(c1, c2)) + Glib::ustring(1, std::max(c1, c2));
        const auto found = weights->find(key);
        return found == weights->end() ? 1.0 : found->second;
    }

    /// From any node; `restart` is the root for the search with boundaries, null for the one without.
    int fuzzy(const Glib::ustring& str, unsigned int i, double t, Matches& set, unsigned int threshold, double end,
              LiteralTrie* restart) {
        if (i >= str.length() && leaf) {
            record(set, t);
            return 0;
        }
        int result = -1;
        const auto take = [&](int edits, int extra) {
            if (edits != -1 && (result == -1 || edits + extra < result))
                result = edits + extra;
        };
        const bool inside = i < str.length();
        if (LiteralTrie* child = inside ? look_for_node(str[i]) : nullptr)
            take(child->fuzzy(str, i + 1, t, set, threshold, end, nullptr), 0);
        if (!(t > 0.0) || i < threshold)
            return result;
        const double cost = leaf ? end : 1.0;
        if (inside)
            take(fuzzy(str, i + 1, t - cost, set, threshold, end, restart), 1);
        if (inside && restart)
            take(restart->fuzzy(str, i + 1, t - cost, set, threshold, end, restart), 1);
        for (LiteralTrie* child : children) {
            if (inside && child->c != str[i])
                take(child->fuzzy(str, i + 1, t - weight(c, str[i]), set, threshold, end, nullptr), 1);
            take(child->fuzzy(str, i, t - 1.0, set, threshold, end, restart), 1);
        }
        LiteralTrie* first = i + 1 < str.length() ? look_for_node(str[i + 1]) : nullptr;
        if (LiteralTrie* second = first ? first->look_for_node(str[i]) : nullptr)
            take(second->fuzzy(str, i + 2, t - 1.0, set, threshold, end, nullptr), 1);
        return result;
    }

    /// A budget that is there already counts without its fraction, whatever double it is.
    void record(Matches& set, double t) const {
        const Glib::ustring w = read_off();
        for (auto* pair : set)
            if (pair->second.raw() == w.raw()) {
                if (t > std::trunc(pair->first))
                    pair->first = t;
                return;
            }
        set.insert(new std::pair<double, Glib::ustring>(t, w));
    }

    Splittings segment(const Glib::ustring& str, unsigned int i, LiteralTrie* root, int depth) {
        Splittings result;
        if (i >= str.length()) {
            if (leaf && this != root && parent != root)
                result.push_back({read_off()});
            return result;
        }
        if (LiteralTrie* child = look_for_node(str[i]))
            result = child->segment(str, i + 1, root, depth + 1);
        if (leaf && this != root && depth >= 3)
            for (auto& rest : root->segment(str, i, root, 0)) {
                rest.insert(rest.begin(), read_off());
                result.push_back(rest);
            }
        return result;
    }

    gunichar c;
    std::vector<LiteralTrie*> children;
    bool leaf = false;
    int num = 0;
    LiteralTrie* parent = nullptr;
};

inline std::map<Glib::ustring, double>* LiteralTrie::weights = nullptr;
