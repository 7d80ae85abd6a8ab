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

std::string list_of(const py::object& value) {
    if (py::isinstance<py::str>(value))
        return text_of(value).bytes;
    std::string list;
    bool is_first = true;
    for_each_text(py::reinterpret_borrow<py::iterable>(value), [&](const std::string& item) {
        if (!is_first)
            list += ',';
        is_first = false;
        list += item;
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
            throw py::type_error("an int is needed, not " + py::repr(value).cast<std::string>());
        return py::str(value);
    default:
        return text_of(value).bytes;
    }
}

void set(const ConversionSetting& setting, const py::object& value, ConversionTask& task) {
    const std::string text = setting.kind == Kind::FLAG ? "" : value_of(setting.kind, value);
    try {
        setting.set(task, text);
    } catch (const std::invalid_argument& error) {
        throw std::invalid_argument("wrong value of " + keyword_of(setting.name) + ": '" + text + "': " + error.what());
    }
}

/// Null where it is no option of such a function.
const ConversionSetting* setting_of(std::string name, bool only_reads) {
    if (name.ends_with('_'))
        name.pop_back();
    std::ranges::replace(name, '_', '-');
    const ConversionSetting* const setting = find_setting(name);
    const bool is_known = setting && setting->topic != Topic::RUN &&
                          (!only_reads || setting->topic == Topic::READING || setting->topic == Topic::ATTRIBUTES);
    return is_known ? setting : nullptr;
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
    task.inputs = input_paths(inputs);
    if (!lexicon.is_none())
        set_option("lexicon", lexicon, task);
    std::vector<const ConversionSetting*> given;
    for (const auto& [key, value] : options) {
        const std::string name = text_of(key).bytes;
        const ConversionSetting* const setting = setting_of(name, only_reads);
        if (!setting)
            throw py::type_error("there is no option '" + name + "'");
        const auto wanted = py::reinterpret_borrow<py::object>(value);
        if (!is_wanted(*setting, wanted))
            continue;
        set(*setting, wanted, task);
        given.push_back(setting);
    }
    complete_settings(task, given, keyword_of);
    return task;
}

void set_option(std::string_view name, const py::object& value, ConversionTask& task) {
    set(*find_setting(name), value, task);
}

std::string with_keywords(std::string message) {
    const auto replace = [&](std::string_view option, const std::string& keyword) {
        for (std::size_t at = 0; (at = message.find(option, at)) != std::string::npos; at += keyword.size()) {
            const std::size_t end = at + option.size();
            const bool is_whole = end == message.size() || message[end] == '=' || message[end] == ' ';
            message.replace(at, option.size(), is_whole ? keyword : std::string(option));
        }
    };
    for (const ConversionSetting& setting : conversion_settings())
        replace("--" + std::string(setting.name), keyword_of(setting.name));
    replace("--survey", "survey");
    replace("-l", "lexicon");
    return message;
}

void warn(const std::vector<std::string>& messages) {
    if (messages.empty())
        return;
    const std::string rest =
        messages.size() > 1 ? " (and " + std::to_string(messages.size() - 1) + " more messages)" : "";
    const std::string message = to_str(messages.front() + rest, "replace");
    if (PyErr_WarnEx(PyExc_UserWarning, message.c_str(), 1) != 0)
        throw py::error_already_set();
}

} // namespace zelvor::python
