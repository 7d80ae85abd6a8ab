#include "python/report.h"

#include <json/json.h>
#include <pybind11/stl.h>

namespace zelvor::python {

namespace {

struct Report {
    py::dict sections;
    py::str text;
    py::list messages;
};

struct Section {
    const char *name, *meaning;
};

constexpr Section SECTIONS[] = {
    {"files", "How many were read, failed, and so on."},
    {"sentences", "How many were written, or incomplete."},
    {"tokens", "How many were written; of these, how many with replaced characters, or lacking a tag."},
    {"values", "Values that the format has no place for."},
    {"left_out", "Tokens that were left out, by the reason."},
    {"lexicon", "The lines of the lexicon, where there was one."},
    {"status", "0 all well, 1 something could not be read, or was malformed."},
};

} // namespace

py::object make_report(const ConversionReport& report, int status, const std::vector<std::string>& messages) {
    Json::Value json = report.json();
    json["status"] = status;
    const std::string text = Json::writeString(Json::StreamWriterBuilder(), json);
    Report made{py::module_::import("json").attr("loads")(text), to_str(report.text()), py::list()};
    for (const std::string& message : messages)
        made.messages.append(to_str(message, "replace"));
    return py::cast(std::move(made));
}

void bind_report(py::module_& module) {
    py::class_<Report> report(module, "Report", R"(What was read and written; str() of it is for people.

>>> report = convert("examples/families/latin.xml", "train.txt", sentence="ab")
>>> report.status, report.files["read"], report.messages
(0, 1, [])
)");
    report.def(py::init([](const py::dict& sections, const py::str& text, const py::list& messages) {
                   return Report{sections, text, messages};
               }),
               "__init__(self, sections, text, messages)\n--\n\n", py::arg("sections"), py::arg("text"),
               py::arg("messages"));
    report.def("__reduce__", [](const py::object& self) {
        const auto& made = py::cast<const Report&>(self);
        return py::make_tuple(py::type::of(self), py::make_tuple(made.sections, made.text, made.messages));
    });
    for (const auto& [name, meaning] : SECTIONS)
        report.def_property_readonly(
            name, [name = name](const Report& self) { return py::object(self.sections[name]); }, meaning);
    report
        .def_property_readonly(
            "messages", [](const Report& self) { return self.messages; }, "What was wrong, a line each.")
        .def(
            "as_dict", [](const Report& self) { return py::module_::import("copy").attr("deepcopy")(self.sections); },
            R"(as_dict(self)
--

All of it but the messages, as a new dict. The JSON report has these counts, too, and statistics besides.

>>> sorted(convert("examples/families/latin.xml", "train.txt", sentence="ab").as_dict())
['files', 'left_out', 'lexicon', 'sentences', 'status', 'tokens', 'values']
)")
        .def("__str__", [](const Report& self) { return self.text; })
        .def("__repr__", [](const Report& self) { return py::str("<Report {}>").format(self.sections); });
}

} // namespace zelvor::python
