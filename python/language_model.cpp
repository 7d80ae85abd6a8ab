#include "python/bindings.h"
#include "python/locks.h"
#include "utils/ArpaLM.h"

#include <pybind11/stl.h>

#include <stdexcept>
#include <system_error>
#include <vector>

namespace zelvor::python {

namespace {

class LanguageModel {
public:
    explicit LanguageModel(const Path& path) {
        require_readable(path.name);
        without_lock([&](Unlocked&) {
            if (m_model.load(path.name))
                return;
            if (const int error = m_model.get_system_error(); error != 0)
                throw std::system_error(error, std::generic_category(), path.name);
            throw std::invalid_argument(m_model.get_error());
        });
    }

    double score(const py::iterable& words) {
        std::vector<unsigned int> indices;
        for_each_text(words,
                      [&](const std::string& word) { indices.push_back(m_vocab.get_index(word, ArpaVocab::UNKNOWN)); });
        indices.push_back(VOCAB_NONE);
        TextStats stats;
        m_model.sentence_log_prob(indices.data(), stats);
        return stats.log10_prob;
    }

    bool contains(const Text& word) const { return m_vocab.find(word.bytes) != VOCAB_NONE; }
    std::size_t order() const { return m_model.get_order(); }

private:
    ArpaVocab m_vocab;
    ArpaLM m_model{m_vocab};
};

} // namespace

void bind_language_model(py::module_& module) {
    py::class_<LanguageModel>(module, "LanguageModel", R"(A back-off n-gram model in the ARPA text format.

>>> model = LanguageModel("examples/candidates/lemmas.arpa")
>>> model.order, "dux" in model
(2, True)
)")
        .def(py::init<const Path&>(), py::arg("path"), "__init__(self, path)\n--\n\n")
        .def("score", &LanguageModel::score, py::arg("words"),
             R"(score(self, words)
--

log10 of the probability of a sentence: its words and its end, after its begin.

A word that the model lacks counts as <unk>, and where it lacks that, too, as -99.

>>> model = LanguageModel("examples/candidates/lemmas.arpa")
>>> model.score(["dux", "pareo"]) > model.score(["duco", "pareo"])
True
)")
        .def("__contains__", &LanguageModel::contains)
        .def_property_readonly("order", &LanguageModel::order, "The length of the longest n-grams, in words.");
}

} // namespace zelvor::python
