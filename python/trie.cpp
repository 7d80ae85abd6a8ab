#include "python/bindings.h"
#include "python/locks.h"
#include "utils/LetterTrieNode.h"
#include "utils/common_utils/utf8.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <sstream>

namespace zelvor::python {

namespace {

using WeightTable = LetterTrieNode::WeightTable;
using Match = std::pair<double, Glib::ustring>;
using Splitting = std::vector<Text>;

/// The table is ordered by pairs with the lower code point first.
std::string key_of(const py::handle& pair) {
    std::string text;
    if (py::isinstance<py::str>(pair))
        text = text_of(pair).bytes;
    else
        for (const py::handle part : py::reinterpret_borrow<py::iterable>(pair))
            text += text_of(part).bytes;
    std::u32string characters = decode_utf8(text);
    if (characters.size() != 2)
        throw py::value_error("a weight is that of a pair of characters, not of " + described(pair));
    std::ranges::sort(characters);
    return encode_utf8(characters);
}

void check_weight(double weight) {
    if (!(weight >= 0) || std::isinf(weight))
        throw py::value_error("a weight is a finite number of at least 0, not " + std::to_string(weight));
}

WeightTable weight_table(const py::object& weights) {
    WeightTable table;
    const auto pairs = py::dict(weights.is_none() ? py::dict() : weights).attr("copy")().cast<py::dict>();
    for (const auto& [pair, value] : pairs) {
        const double weight = PyFloat_AsDouble(value.ptr());
        if (PyErr_Occurred())
            throw py::error_already_set();
        check_weight(weight);
        const auto [place, is_new] = table.try_emplace(key_of(pair), weight);
        if (!is_new && place->second != weight)
            throw py::value_error("a pair has one weight, in whatever order: " + described(pair));
    }
    return table;
}

std::size_t count_leaves(const LetterTrieNode& root) {
    std::size_t leaves = 0;
    std::vector<const LetterTrieNode*> pending{&root};
    while (!pending.empty()) {
        const LetterTrieNode* const node = pending.back();
        pending.pop_back();
        leaves += node->is_leaf();
        pending.insert(pending.end(), node->get_children().begin(), node->get_children().end());
    }
    return leaves;
}

/// A trie that owns its nodes and does not change once it is made, so that threads may share it.
class Trie {
public:
    Trie(const py::iterable& words, const py::object& weights) : m_weights(weight_table(weights)) {
        for_each_text(words, [&](const std::string& word) { m_nodes->store_string(word, 0); });
        m_size = count_leaves(*m_nodes);
    }

    bool contains(const Text& word) const { return m_nodes->lookup_string(word.bytes, 0) != 0; }

    std::size_t size() const { return m_size; }

    py::list fuzzy(const Text& word, double budget, unsigned int start, double weight_end) const {
        if (std::isnan(budget))
            throw py::value_error("a budget is a number");
        check_weight(weight_end);
        LetterTrieNode::FuzzyMatches found;
        const std::unique_ptr<LetterTrieNode::FuzzyMatches, void (*)(LetterTrieNode::FuzzyMatches*)> owner(
            &found, LetterTrieNode::delete_mem);
        {
            const Unlocked unlocked;
            m_nodes->lookup_string_fuzzy_weighted(word.bytes, 0, budget, found, start, weight_end, &m_weights);
        }
        std::vector<const Match*> matches(found.begin(), found.end());
        std::ranges::sort(matches, [](const Match* a, const Match* b) {
            return a->first != b->first ? a->first > b->first : a->second.raw() < b->second.raw();
        });
        py::list list; // never with gaps, which the garbage collector would show to whoever asks
        for (const Match* const match : matches)
            list.append(py::make_tuple(to_str(match->second.raw()), match->first));
        return list;
    }

    py::list segment(const Text& word, std::uint64_t limit) const {
        py::list list;
        for (const Splitting& splitting : splittings_of(word, limit))
            list.append(splitting);
        return list;
    }
    std::optional<Text> longest_prefix(const Text& word) const {
        std::optional<std::size_t> length; // in bytes
        const LetterTrieNode* node = m_nodes.get();
        for (std::size_t at = 0; node;) {
            if (node->is_leaf())
                length = at;
            if (at == word.bytes.size())
                break;
            const DecodedCharacter character = decode_character(word.bytes, at);
            node = node->look_for_node(character.code_point);
            at += character.length;
        }
        return length ? std::optional(Text{word.bytes.substr(0, *length)}) : std::nullopt;
    }

    Text mark_suffixes(const Text& word) const {
        Glib::ustring marked;
        m_nodes->find_suffix(word.bytes, 0, marked);
        return {marked.raw()};
    }

    Text to_dot(int min_count) const {
        std::ostringstream os;
        m_nodes->print_dot(os, min_count);
        return {std::move(os).str()};
    }

private:
    std::vector<Splitting> splittings_of(const Text& word, std::uint64_t limit) const {
        const Unlocked unlocked;
        if (m_nodes->count_splittings(word.bytes, 0) > limit)
            throw py::value_error("there are more than " + std::to_string(limit) + " ways to split the word");
        const auto free = [this](LetterTrieNode::Splittings* found) { m_nodes->delete_segment_result(found); };
        const std::unique_ptr<LetterTrieNode::Splittings, decltype(free)> found(m_nodes->segment_sorted(word.bytes, 0),
                                                                                free);
        std::vector<Splitting> splittings(found ? found->size() : 0);
        for (std::size_t i = 0; i < splittings.size(); ++i)
            for (const Glib::ustring& part : *(*found)[i])
                splittings[i].push_back({part.raw()});
        return splittings;
    }

    struct DeleteAll {
        void operator()(LetterTrieNode* proot) const {
            proot->delete_tree(proot);
            delete proot;
        }
    };

    std::unique_ptr<LetterTrieNode, DeleteAll> m_nodes{new LetterTrieNode()};
    WeightTable m_weights;
    std::size_t m_size = 0; ///< in words
};

} // namespace

void bind_trie(py::module_& module) {
    using WithoutLock = py::call_guard<Unlocked>;
    py::class_<Trie, std::unique_ptr<Trie, FreeUnlocked>>(
        module, "Trie", R"(Words in a letter trie: finds misread words and splits compounds.

weights are the costs of misreading one letter for another, such as {"ae": 0.3}, whichever of the two is first; a pair
that is not there costs 1. They are this trie's own. What they price: a wrong letter costs what the table has for the
letter before it, in the stored word, and the wrong one; so they have no say in a first letter. A trie does not change;
threads may share it.

>>> trie = Trie(["agricola", "agri", "cultura"])
>>> "agri" in trie, len(trie)
(True, 3)
)")
        .def(py::init<const py::iterable&, const py::object&>(), py::arg("words"), py::arg("weights") = py::none(),
             "__init__(self, words, weights=None)\n--\n\n")
        .def("__contains__", &Trie::contains)
        .def("__len__", &Trie::size)
        .def("fuzzy", &Trie::fuzzy, py::arg("word"), py::arg("budget") = 1.0, py::kw_only(), py::arg("start") = 0,
             py::arg("weight_end") = 1.0,
             R"(fuzzy(self, word, budget=1.0, *, start=0, weight_end=1.0)
--

The stored words within a budget of edits, each with the budget left, best first.

A letter that is wrong, missing, too many, or exchanged with the next costs 1 (see weights); one that is too many behind
a stored word costs weight_end. The last edit may overdraw. Edits begin at the letter with the number start. Where
the word ends at a stored one, the search goes no deeper: of "ab" and "abc", "ab" finds itself alone, within 1. With
weights, or another weight_end than 1, time is exponential in the budget; Ctrl-C waits for the end.

>>> Trie(["agricola", "nauta"]).fuzzy("agricela", 2.0)
[('agricola', 1.0)]
)")
        .def("segment", &Trie::segment, py::arg("word"), py::kw_only(), py::arg("limit") = 1000,
             R"(segment(self, word, *, limit=1000)
--

All ways to split a word into stored words, fewest words first; more than limit are a ValueError.

Words inside have at least three letters, the last one two.

>>> Trie(["agri", "cultura", "agricultura"]).segment("agricultura")
[['agricultura'], ['agri', 'cultura']]
)")
        .def("longest_prefix", &Trie::longest_prefix, py::arg("word"),
             R"(longest_prefix(self, word)
--

The longest stored word that the word begins with, be it the whole; None without any.

>>> Trie(["agri", "agricola"]).longest_prefix("agricultura")
'agri'
)")
        .def("mark_suffixes", &Trie::mark_suffixes, py::arg("word"),
             R"(mark_suffixes(self, word)
--

What the trie knows of the word from its begin, with | where less than a third of its words go on so.

>>> Trie(["amo", "amas", "amat", "amamus", "amant"]).mark_suffixes("amamus")
'ama|mus'
)")
        .def("to_dot", &Trie::to_dot, py::arg("min_count") = 1, WithoutLock(),
             R"(to_dot(self, min_count=1)
--

The trie as a Graphviz graph, without the nodes that fewer than min_count words reach.

>>> print(Trie(["a"]).to_dot().splitlines()[0])
digraph trie {
)");
}

} // namespace zelvor::python
