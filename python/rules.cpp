#include "utils/lexicon_utils/rules.h"
#include "python/bindings.h"
#include "python/locks.h"
#include "utils/common_utils/encoding.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/utf8.h"

#include <pybind11/stl.h>

#include <sstream>
#include <stdexcept>
#include <string_view>

namespace zelvor::python {

namespace {

/// Why a line is hardly meant as a rule; empty where it may be.
std::string fault_of(const std::string& line, std::size_t number) {
    if (const char* const reason = number == 1 ? why_not_utf8_text(line) : nullptr)
        return std::string("the file ") + reason;
    if (!is_valid_utf8(line))
        return NOT_UTF8;
    if (line.ends_with('\r'))
        return "a carriage return at the end would belong to the rule; remove it, for instance with sed 's/\\r$//'";
    if (line.starts_with('<'))
        return "this looks like XML; rules with features can be read in C++ only";
    return "";
}

void check_lines(std::istream& text, const std::string& filename) {
    std::size_t number = 0;
    for_each_line(text, [&](const std::string& line) {
        ++number;
        if (const std::string fault = fault_of(line, number); !fault.empty())
            throw std::invalid_argument(filename + ":" + std::to_string(number) + ": " + fault);
    });
}

class Rules {
public:
    explicit Rules(const Path& path) {
        require_readable(path.name);
        without_lock([&](Unlocked&) {
            std::string text = read_file(path.name);
            if (text.starts_with(BYTE_ORDER_MARK))
                text.erase(0, BYTE_ORDER_MARK.size());
            std::istringstream checked(text), parsed(text);
            check_lines(checked, path.name);
            parse_rules(parsed, m_rules);
        });
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
appended. A line that is hardly meant as a rule is a ValueError with file and line.

>>> len(Rules("examples/english/plurals.txt")) > 0
True
)")
        .def(py::init<const Path&>(), py::arg("path"), "__init__(self, path)\n--\n\n")
        .def("__len__", &Rules::size)
        .def("apply", &Rules::apply, py::arg("lemma"),
             R"(apply(self, lemma)
--

The forms that the rules make of a lemma, longest premise first.

>>> Rules("examples/english/plurals.txt").apply("party")
['parties']
)");
}

} // namespace zelvor::python
