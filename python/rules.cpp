#include "utils/lexicon_utils/rules.h"
#include "python/bindings.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/utf8.h"

#include <pybind11/stl.h>

#include <stdexcept>

namespace zelvor::python {

namespace {

void require_utf8(const std::string& filename) {
    std::size_t number = 0;
    for_each_line(filename, [&](const std::string& line) {
        ++number;
        if (!is_valid_utf8(line))
            throw std::invalid_argument(filename + ":" + std::to_string(number) +
                                        ": not in UTF-8; convert the file, for instance with iconv");
    });
}

class Rules {
public:
    explicit Rules(const Path& path) {
        require_readable(path.name);
        require_utf8(path.name);
        parse_rules(path.name, m_rules, nullptr);
    }
    ~Rules() { delete_rules(m_rules); }
    Rules(const Rules&) = delete;
    Rules& operator=(const Rules&) = delete;

    std::vector<Text> apply(const Text& lemma) {
        std::vector<std::string> forms;
        apply_rules(lemma.bytes, m_rules, forms, nullptr);
        std::vector<Text> texts;
        texts.reserve(forms.size());
        for (std::string& form : forms)
            texts.push_back({std::move(form)});
        return texts;
    }
    std::size_t size() const { return m_rules.size(); }

private:
    std::vector<Rule*> m_rules;
};

} // namespace

void bind_rules(py::module_& module) {
    py::class_<Rules>(module, "Rules", R"(Suffix rules that make word forms, read from a file.

A line is "conclusion premise": what ends with the premise has it replaced by the conclusion; a conclusion alone is
appended.

>>> len(Rules("examples/english/plurals.txt")) > 0
True
)")
        .def(py::init<const Path&>(), py::arg("path"))
        .def("__len__", &Rules::size)
        .def("apply", &Rules::apply, py::arg("lemma"),
             R"(The forms that the rules make of a lemma, longest premise first.

>>> Rules("examples/english/plurals.txt").apply("party")
['parties']
)");
}

} // namespace zelvor::python
