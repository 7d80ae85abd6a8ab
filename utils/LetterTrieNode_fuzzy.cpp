#include "utils/LetterTrieNode.h"

#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <unordered_map>

namespace zelvor {

namespace {

constexpr int UNREACHED = INT_MAX;
// Trying all paths takes less time than keeping rows for a small budget and a word of usual length; on long repetitive
// texts it grows with the cube of the length.
constexpr double MAX_PATH_TOLERANCE = 2.0;
constexpr std::size_t MAX_PATH_LENGTH = 32;

/// The caller's result set with an index of its strings. Of several pairs for one string the first in the order of the
/// set counts; null pairs are passed over.
class Matches {
public:
    explicit Matches(LetterTrieNode::FuzzyMatches& matches) : m_matches(matches) {}

    void record(const LetterTrieNode* leaf, double budget, int edits) {
        m_fewest_edits = std::min(m_fewest_edits, edits);
        if (m_by_string.empty())
            for (auto* match : m_matches)
                if (match)
                    m_by_string.emplace(match->second.raw(), match);
        Glib::ustring word = leaf->read_off();
        if (const auto known = m_by_string.find(word.raw()); known != m_by_string.end()) {
            replace_budget(known->second->first, budget);
            return;
        }
        auto* match = new std::pair<double, Glib::ustring>(budget, std::move(word));
        m_matches.insert(match);
        m_by_string.emplace(match->second.raw(), match);
    }

    int fewest_edits() const { return m_fewest_edits == UNREACHED ? -1 : m_fewest_edits; }

private:
    /// Kept: the new budget is held against the integer part of the stored one, so that 1.5 replaces 1.7.
    static void replace_budget(double& stored, double budget) {
        if (budget > std::trunc(stored))
            stored = budget;
    }

    LetterTrieNode::FuzzyMatches& m_matches;
    std::unordered_map<std::string_view, std::pair<double, Glib::ustring>*> m_by_string;
    int m_fewest_edits = UNREACHED;
};

/// What both searches share: the input, from where and at what price it may be edited, and the results.
struct Query {
    const LetterTrieNode::WeightTable* weights; ///< null: every substitution costs 1
    std::u32string text;
    std::size_t length; ///< of the text, or the position of the start when that lies beyond it
    unsigned int threshold;
    double weight_end;
    Matches matches;

    Query(const Glib::ustring& str, unsigned int current_index, unsigned int start_threshold, double end_weight,
          LetterTrieNode::FuzzyMatches& set_lemmas, const LetterTrieNode::WeightTable* pweight_table)
        : weights(pweight_table && !pweight_table->empty() ? pweight_table : nullptr), text(decode_utf8(str.raw())),
          length(std::max<std::size_t>(current_index, text.size())), threshold(start_threshold), weight_end(end_weight),
          matches(set_lemmas) {}

    bool has_unit_costs() const { return weight_end == 1.0 && !weights; }
    bool may_edit(std::size_t position, double budget) const { return budget > 0.0 && position >= threshold; }
    bool is_match(const LetterTrieNode* node, std::size_t position) const {
        return position >= length && node->is_leaf();
    }
    /// The leaf that the rest of the text leads to without edits, or null.
    const LetterTrieNode* follow(const LetterTrieNode* node, std::size_t position) const {
        while (node && position < length)
            node = node->look_for_node(text[position++]);
        return node && node->is_leaf() ? node : nullptr;
    }
};

/// The searches wait for memory more than anything else: all children are asked for before the first is looked at.
void prefetch_children(const LetterTrieNode* node) {
    for (const LetterTrieNode* child : node->get_children())
        __builtin_prefetch(child);
}

/// The search for unit costs. The budget left then falls with the number of edits alone, and of all paths to a node
/// and position the one with the fewest edits gives every match that the others give, and better ones, whatever their
/// order. So each node is visited once, with a row of the fewest edits by position, as in the matrix of an edit
/// distance. With other costs this does not hold: see PathSearch.
class RowSearch {
public:
    RowSearch(Query& query, double tolerance) : m_query(query), m_budgets{tolerance} {
        if (tolerance > 0.0)
            m_max_edits = tolerance < MANY_EDITS ? static_cast<int>(std::ceil(tolerance)) : MANY_EDITS;
    }

    void run(const LetterTrieNode* start, std::size_t position) {
        m_cells.assign(1, 0);
        descend_from(start, position, 0);
        while (!m_rows.empty()) {
            Row& last = m_rows.back();
            const auto& children = last.node->get_children();
            if (last.next_child < children.size()) {
                visit(children[last.next_child++]);
            } else {
                m_cells.resize(last.offset);
                m_rows.pop_back();
            }
        }
    }

private:
    static constexpr int MANY_EDITS = INT_MAX - 1; ///< more than any path can have

    /// The cells of a node's row, for the positions first, first + 1, ..., lie from `offset` on in m_cells.
    struct Row {
        const LetterTrieNode* node;
        std::size_t first;
        std::size_t offset;
        std::size_t size;
        std::size_t next_child;
    };

    /// One more edit, if there may be one.
    int edited(int edits, std::size_t position) const {
        return edits < m_max_edits && position >= m_query.threshold ? edits + 1 : UNREACHED;
    }

    int edits_at(const Row& row, std::size_t position) const {
        const bool inside = position >= row.first && position - row.first < row.size;
        return inside ? m_cells[row.offset + position - row.first] : UNREACHED;
    }

    /// Computes the row of a child of the last row's node.
    void visit(const LetterTrieNode* node) {
        const Row& parent = m_rows.back();
        const std::size_t offset = m_cells.size();
        const std::size_t last = std::min(parent.first + parent.size, m_query.length);
        std::size_t first = parent.first;
        for (std::size_t position = first; position <= last; ++position) {
            const int edits = enter(parent, node->get_contents(), position);
            if (edits == UNREACHED && m_cells.size() == offset)
                ++first;
            else
                m_cells.push_back(edits);
        }
        descend_from(node, first, offset);
    }

    /// The cell of a child for c, before deletions. At a match nothing is inserted.
    int enter(const Row& parent, gunichar c, std::size_t position) const {
        int edits = m_query.is_match(parent.node, position) ? UNREACHED : edited(edits_at(parent, position), position);
        if (position <= parent.first || position > m_query.text.size())
            return edits;
        const gunichar consumed = m_query.text[position - 1];
        const int before = m_cells[parent.offset + position - 1 - parent.first];
        edits = std::min(edits, consumed == c ? before : edited(before, position - 1));
        if (consumed == parent.node->get_contents() && m_rows.size() >= 2 && position >= 2 &&
            m_query.text[position - 2] == c)
            edits = std::min(edits, edited(edits_at(m_rows[m_rows.size() - 2], position - 2), position - 2));
        return edits;
    }

    /// Adds the deletions, which lead from one cell to the next, and cuts what was not reached from the end.
    void complete(std::size_t first, std::size_t offset) {
        for (std::size_t i = offset; i < m_cells.size() && first + i - offset < m_query.length; ++i) {
            const int deletion = edited(m_cells[i], first + i - offset);
            if (i + 1 < m_cells.size())
                m_cells[i + 1] = std::min(m_cells[i + 1], deletion);
            else if (deletion != UNREACHED)
                m_cells.push_back(deletion);
        }
        while (m_cells.size() > offset && m_cells.back() == UNREACHED)
            m_cells.pop_back();
    }

    /// Keeps the row for the children if it can still edit; if not, what is left of the text decides at once.
    void descend_from(const LetterTrieNode* node, std::size_t first, std::size_t offset) {
        complete(first, offset);
        const std::size_t end = m_cells.size();
        const bool open = std::any_of(m_cells.begin() + static_cast<std::ptrdiff_t>(offset), m_cells.end(),
                                      [&](int edits) { return edits < m_max_edits; });
        for (std::size_t i = offset; i < end; ++i)
            if (const std::size_t position = first + i - offset;
                m_cells[i] != UNREACHED && (!open || m_query.is_match(node, position)))
                follow(node, position, m_cells[i]);
        if (open) {
            prefetch_children(node);
            m_rows.push_back({node, first, offset, end - offset, 0});
            return;
        }
        if (!m_rows.empty())
            transpose_through(node);
        m_cells.resize(offset);
    }

    /// The transpositions that lead from the last row through one of its node's children, which keeps no row.
    void transpose_through(const LetterTrieNode* child) {
        const Row& row = m_rows.back();
        for (std::size_t position = row.first; position < row.first + row.size; ++position)
            if (position + 1 < m_query.length && m_query.text[position + 1] == child->get_contents())
                if (const int edits = edited(edits_at(row, position), position); edits != UNREACHED)
                    follow(child->look_for_node(m_query.text[position]), position + 2, edits);
    }

    void follow(const LetterTrieNode* node, std::size_t position, int edits) {
        if (const LetterTrieNode* leaf = m_query.follow(node, position))
            m_query.matches.record(leaf, budget(edits), edits);
    }

    double budget(int edits) {
        while (m_budgets.size() <= static_cast<std::size_t>(edits))
            m_budgets.push_back(m_budgets.back() - 1.0);
        return m_budgets[edits];
    }

    Query& m_query;
    int m_max_edits = 0;           ///< with so many the budget is used up
    std::vector<double> m_budgets; ///< left after so many edits
    std::vector<int> m_cells;
    std::vector<Row> m_rows; ///< those of the current node's ancestors that can still edit
};

/// The search for any costs, path by path in the defined order (exact step, deletion, boundary, for each child
/// substitution and insertion, transposition): as a later match may lower a stored budget, no state may be skipped
/// because it was seen. A stack of its own takes the place of recursion.
class PathSearch {
public:
    PathSearch(Query& query, const LetterTrieNode* boundary_root) : m_query(query), m_boundary_root(boundary_root) {}

    void run(const LetterTrieNode* start, std::size_t position, double tolerance) {
        push({start, position, tolerance, 0, m_boundary_root != nullptr});
        while (!m_pending.empty()) {
            const State state = m_pending.back();
            m_pending.pop_back();
            if (m_query.is_match(state.node, state.position))
                m_query.matches.record(state.node, state.budget, state.edits);
            else if (!is_known_restart(state))
                expand(state);
        }
    }

private:
    struct State {
        const LetterTrieNode* node;
        std::size_t position;
        double budget;
        int edits;
        bool segmenting; ///< boundaries are still possible
    };

    /// What has no budget left is followed to its end here, so that dead ends never reach the stack.
    void push(State state) {
        if (!(state.budget > 0.0)) {
            state.node = m_query.follow(state.node, state.position);
            state.position = m_query.length;
        }
        if (state.node)
            m_pending.push_back(state);
    }

    /// The states that follow, the first in order pushed last.
    void expand(const State& state) {
        const bool inside = state.position < m_query.length;
        if (m_query.may_edit(state.position, state.budget))
            push_edits(state, inside);
        if (inside)
            if (const LetterTrieNode* child = state.node->look_for_node(m_query.text[state.position]))
                push({child, state.position + 1, state.budget, state.edits, false});
    }

    void push_edits(const State& state, bool inside) {
        const auto& [node, position, budget, edits, segmenting] = state;
        const auto& children = node->get_children();
        prefetch_children(node);
        if (position + 1 < m_query.length)
            if (const LetterTrieNode* first = node->look_for_node(m_query.text[position + 1]))
                if (const LetterTrieNode* second = first->look_for_node(m_query.text[position]))
                    push({second, position + 2, budget - 1.0, edits + 1, false});
        const double substituted = inside && !children.empty() ? budget - weight(node, position) : budget;
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            push({*child, position, budget - 1.0, edits + 1, segmenting});
            if (inside && (*child)->get_contents() != m_query.text[position])
                push({*child, position + 1, substituted, edits + 1, false});
        }
        if (!inside)
            return;
        const double deleted = budget - (node->is_leaf() ? m_query.weight_end : 1.0);
        if (segmenting)
            push({m_boundary_root, position + 1, deleted, edits + 1, true});
        push({node, position + 1, deleted, edits + 1, segmenting});
    }

    /// The table orders its keys by collation, which is slow: each pair is looked up once.
    double weight(const LetterTrieNode* node, std::size_t position) {
        if (!m_query.weights)
            return 1.0;
        const gunichar c1 = node->get_contents();
        const gunichar c2 = m_query.text[position];
        const auto [known, is_new] = m_weights.try_emplace(static_cast<std::uint64_t>(c1) << 32 | c2, 0.0);
        if (is_new)
            known->second = LetterTrieNode::weight_in(m_query.weights, c1, c2);
        return known->second;
    }

    /// With unit costs (only then) a restart with no fewer edits than an earlier one has nothing to add.
    bool is_known_restart(const State& state) {
        if (!m_query.has_unit_costs() || !state.segmenting || state.node != m_boundary_root)
            return false;
        const auto [fewest, is_new] = m_restarts.try_emplace(state.position, state.edits);
        const bool known = !is_new && fewest->second <= state.edits;
        fewest->second = std::min(fewest->second, state.edits);
        return known;
    }

    Query& m_query;
    const LetterTrieNode* m_boundary_root; ///< null in the search without boundaries
    std::vector<State> m_pending;
    std::unordered_map<std::uint64_t, double> m_weights;
    std::unordered_map<std::size_t, int> m_restarts; ///< fewest edits by position
};

} // namespace

int LetterTrieNode::lookup_string_fuzzy(const Glib::ustring& str, unsigned int current_index, double tolerance,
                                        FuzzyMatches& set_lemmas, unsigned int start_threshold, double weight_end) {
    return lookup_string_fuzzy_weighted(str, current_index, tolerance, set_lemmas, start_threshold, weight_end,
                                        m_pmap_weights);
}

int LetterTrieNode::lookup_string_fuzzy_weighted(const Glib::ustring& str, unsigned int current_index, double tolerance,
                                                 FuzzyMatches& set_lemmas, unsigned int start_threshold,
                                                 double weight_end, const WeightTable* pweight_table) const {
    Query query(str, current_index, start_threshold, weight_end, set_lemmas, pweight_table);
    const bool is_long = tolerance > 0.0 && query.text.size() > MAX_PATH_LENGTH;
    if (query.has_unit_costs() && (tolerance > MAX_PATH_TOLERANCE || is_long))
        RowSearch(query, tolerance).run(this, current_index);
    else
        PathSearch(query, nullptr).run(this, current_index, tolerance);
    return query.matches.fewest_edits();
}

int LetterTrieNode::lookup_string_fuzzy_segment(const Glib::ustring& str, unsigned int current_index, double tolerance,
                                                FuzzyMatches& set_lemmas, unsigned int start_threshold,
                                                double weight_end, std::stack<LetterTrieNode*>&,
                                                LetterTrieNode* proot_node) {
    Query query(str, current_index, start_threshold, weight_end, set_lemmas, m_pmap_weights);
    PathSearch(query, proot_node ? proot_node : get_root()).run(this, current_index, tolerance);
    return query.matches.fewest_edits();
}

void LetterTrieNode::delete_mem(FuzzyMatches* pset) {
    if (!pset)
        return;
    for (const auto* match : *pset)
        delete match;
    pset->clear();
}

} // namespace zelvor
