#include "python/keywords.h"
#include "training/XmlReader.h"
#include "training/conversion_settings.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace zelvor::python {

namespace {

using Kind = ConversionSetting::Kind;
using Topic = ConversionSetting::Topic;

std::string path_of(const py::handle& path) {
    const auto name = py::cast<Path>(path).name;
    return name.size() == 1 && name[0] == '-' ? "./-" : name;
}

bool is_path(const py::handle& object) {
    return py::isinstance<py::str>(object) || py::isinstance<py::bytes>(object) || py::hasattr(object, "__fspath__");
}

/// Strings stay as they are: with commas between their items.
std::string list_of(const py::object& value) {
    if (py::isinstance<py::str>(value))
        return text_of(value).bytes;
    std::string list;
    for_each_text(py::reinterpret_borrow<py::iterable>(value), [&](const std::string& item) {
        if (item.empty() || item.find(',') != std::string::npos)
            throw std::invalid_argument("an item of a list is not empty and holds no comma, which parts items");
        list.append(list.empty() ? "" : ",").append(item);
    });
    return list;
}

/// As a setting takes it.
std::string value_of(Kind kind, const py::object& value) {
    switch (kind) {
    case Kind::LIST:
        return list_of(value);
    case Kind::PATH:
        return path_of(value);
    case Kind::NUMBER:
        if (!py::isinstance<py::int_>(value))
            throw py::type_error("an int is needed, not " + described(value));
        return py::str(value);
    default:
        return text_of(value).bytes;
    }
}

void set(const ConversionSetting& setting, const py::object& value, ConversionTask& task) {
    try {
        setting.set(task, setting.kind == Kind::FLAG ? "" : value_of(setting.kind, value));
    } catch (const std::invalid_argument& error) {
        throw std::invalid_argument("wrong value of " + keyword_of(setting.name) + ": " + described(value) + ": " +
                                    error.what());
    }
}

/// Null where it is no option of such a function.
const ConversionSetting* setting_of(std::string_view keyword, bool only_reads) {
    const auto is_meant = [&](const ConversionSetting& setting) { return keyword_of(setting.name) == keyword; };
    const auto settings = conversion_settings();
    const auto found = std::ranges::find_if(settings, is_meant);
    const bool is_known = found != settings.end() && found->topic != Topic::RUN &&
                          (!only_reads || found->topic == Topic::READING || found->topic == Topic::ATTRIBUTES);
    return is_known ? &*found : nullptr;
}

bool is_wanted(const ConversionSetting& setting, const py::object& value) {
    if (setting.kind != Kind::FLAG || value.is_none())
        return !value.is_none();
    if (!py::isinstance<py::bool_>(value))
        throw py::type_error(keyword_of(setting.name) + " is True or False");
    return py::cast<bool>(value);
}

} // namespace

std::string keyword_of(std::string_view option) {
    std::string keyword(option);
    std::ranges::replace(keyword, '-', '_');
    return keyword == "break" ? "break_" : keyword;
}

std::vector<std::string> input_paths(const py::object& inputs) {
    std::vector<std::string> paths;
    if (is_path(inputs))
        paths.push_back(path_of(inputs));
    else
        for (const py::handle path : py::iter(inputs))
            paths.push_back(path_of(path));
    if (paths.empty())
        throw py::value_error("no input: name a file or a folder");
    for (const std::string& path : paths)
        if (const int error = reading_error(path); error != 0 && error != EISDIR)
            throw std::system_error(error, std::generic_category(), path);
    return paths;
}

ConversionTask task_of(const py::object& inputs, const py::object& lexicon, const py::kwargs& options,
                       bool only_reads) {
    ConversionTask task;
    task.options.spelt = keyword_of;
    task.inputs = input_paths(inputs);
    if (!lexicon.is_none())
        set_option("lexicon", lexicon, task);
    std::vector<const ConversionSetting*> given;
    for (const auto& [key, value] : options) {
        const ConversionSetting* const setting = setting_of(text_of(key).bytes, only_reads);
        if (!setting)
            throw py::type_error("there is no option " + described(key));
        const auto wanted = py::reinterpret_borrow<py::object>(value);
        if (!is_wanted(*setting, wanted))
            continue;
        set(*setting, wanted, task);
        given.push_back(setting);
    }
    complete_settings(task, given);
    return task;
}

void set_option(std::string_view name, const py::object& value, ConversionTask& task) {
    set(*find_setting(name), value, task);
}

void warn(const std::vector<std::string>& messages) {
    if (messages.empty())
        return;
    const std::string rest =
        messages.size() > 1 ? " (and " + std::to_string(messages.size() - 1) + " more messages)" : "";
    if (PyErr_WarnFormat(PyExc_UserWarning, 1, "%U", to_str(messages.front() + rest, "replace").ptr()) != 0)
        throw py::error_already_set();
}

} // namespace zelvor::python
