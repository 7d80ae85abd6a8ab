#include "utils/LetterTrieNode.h"

#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <memory>

namespace zelvor {

namespace {

constexpr int MIN_INNER_LENGTH = 3; ///< of a word that another one follows; the last word needs only 2

/// Splits one string. What follows a boundary depends on its position alone, so each position is looked at once, and
/// only boundaries from which the end can be reached are followed: without a splitting the time is at most the length
/// times the longest stored string.
class Segmenter {
public:
    Segmenter(std::u32string text, const LetterTrieNode* root)
        : m_text(std::move(text)), m_root(root), m_starts(m_text.size() + 1) {}

    /// The number of splittings, or the largest number. The words that follow a boundary are counted once.
    std::uint64_t count(const LetterTrieNode* node, std::size_t position, int depth) {
        m_first = walk(node, position, depth);
        explore(position);
        prune(m_first);
        std::vector<std::uint64_t> counts(m_text.size() + 1);
        const auto count_from = [&](const Start& start) {
            std::uint64_t sum = start.ends_string;
            for (std::size_t i = sum; i < start.words.size(); ++i)
                if (__builtin_add_overflow(sum, counts[start.words[i].end], &sum))
                    return UINT64_MAX;
            return sum;
        };
        for (std::size_t i = m_text.size(); i-- > position;)
            counts[i] = count_from(m_starts[i]);
        return count_from(m_first);
    }

    /// Null when there is no splitting.
    std::unique_ptr<LetterTrieNode::Splittings> run(const LetterTrieNode* node, std::size_t position, int depth) {
        m_first = walk(node, position, depth);
        explore(position);
        if (!prune(m_first))
            return nullptr;
        auto splittings = std::make_unique<LetterTrieNode::Splittings>();
        enumerate(*splittings);
        return splittings;
    }

private:
    struct Word {
        const LetterTrieNode* node;
        std::size_t end;
    };
    /// The words that begin at one place, longest first; the last word of the string has no `next` to reach.
    struct Start {
        std::vector<Word> words;
        bool reached = false;
        bool ends_string = false; ///< words[0] is a last word
    };

    Start walk(const LetterTrieNode* node, std::size_t position, int depth) {
        Start start;
        depth = std::min(depth, MIN_INNER_LENGTH); // no more is ever asked
        for (; node && position < m_text.size();
             node = node->look_for_node(m_text[position++]), depth = std::min(depth + 1, MIN_INNER_LENGTH))
            if (node->is_leaf() && node != m_root && depth >= MIN_INNER_LENGTH) {
                start.words.push_back({node, position});
                m_starts[position].reached = true;
            }
        start.ends_string = node && node->is_leaf() && node != m_root && node->get_parent() != m_root;
        if (start.ends_string)
            start.words.push_back({node, m_text.size()});
        std::reverse(start.words.begin(), start.words.end());
        return start;
    }

    /// Walks from every position that a boundary reaches, then drops, from the end on, what leads nowhere.
    void explore(std::size_t first) {
        for (std::size_t position = first; position < m_text.size(); ++position)
            if (m_starts[position].reached)
                m_starts[position] = walk(m_root, position, 0);
        for (std::size_t position = m_text.size(); position-- > first;)
            m_starts[position].reached = prune(m_starts[position]);
    }

    /// Keeps the words from which the end of the string is reached; false when none is left.
    bool prune(Start& start) const {
        std::size_t kept = start.ends_string;
        for (std::size_t i = kept; i < start.words.size(); ++i)
            if (m_starts[start.words[i].end].reached)
                start.words[kept++] = start.words[i];
        start.words.erase(start.words.begin() + static_cast<std::ptrdiff_t>(kept), start.words.end());
        return kept > 0;
    }

    void enumerate(LetterTrieNode::Splittings& splittings) const {
        struct Choice {
            const Start* start;
            std::size_t index;
        };
        std::vector<Choice> choices{{&m_first, 0}};
        std::vector<Glib::ustring> words;
        while (!choices.empty()) {
            auto& [start, index] = choices.back();
            if (index == start->words.size()) {
                choices.pop_back();
                if (!words.empty())
                    words.pop_back();
                continue;
            }
            const Word& word = start->words[index];
            words.push_back(word.node->read_off());
            if (index++ == 0 && start->ends_string) {
                splittings.push_back(new std::vector<Glib::ustring>(words));
                words.pop_back();
            } else {
                choices.push_back({&m_starts[word.end], 0});
            }
        }
    }

    std::u32string m_text;
    const LetterTrieNode* m_root;
    Start m_first;
    std::vector<Start> m_starts; ///< by position
};

} // namespace

LetterTrieNode::Splittings* LetterTrieNode::segment(const Glib::ustring& str, unsigned int current_index,
                                                    LetterTrieNode* proot, int distance_from_root) {
    std::u32string text = decode_utf8(str.raw());
    const std::size_t position = std::min<std::size_t>(current_index, text.size());
    return Segmenter(std::move(text), proot ? proot : get_root()).run(this, position, distance_from_root).release();
}

std::uint64_t LetterTrieNode::count_splittings(const Glib::ustring& str, unsigned int current_index) {
    std::u32string text = decode_utf8(str.raw());
    const std::size_t position = std::min<std::size_t>(current_index, text.size());
    return Segmenter(std::move(text), get_root()).count(this, position, 0);
}

LetterTrieNode::Splittings* LetterTrieNode::segment_sorted(const Glib::ustring& str, unsigned int current_index) {
    Splittings* splittings = segment(str, current_index, get_root(), 0);
    if (splittings)
        std::stable_sort(splittings->begin(), splittings->end(), compare_nodes);
    return splittings;
}

void LetterTrieNode::delete_segment_result(Splittings* pvec_vec) {
    if (!pvec_vec)
        return;
    for (const std::vector<Glib::ustring>* splitting : *pvec_vec)
        delete splitting;
    delete pvec_vec;
}

} // namespace zelvor
