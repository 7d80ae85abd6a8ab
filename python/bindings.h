#pragma once

#include <glibmm/ustring.h>

#include <pybind11/pybind11.h>

#include <exception>
#include <string>
#include <string_view>
#include <utility>

/// What the binding files share. Each binds one class, or one group of functions, of the module zelvor._zelvor.
namespace zelvor::python {

namespace py = pybind11;

/// A Python str as UTF-8. Bytes and None are a TypeError, lone surrogates a UnicodeEncodeError (a ValueError).
struct Text {
    std::string bytes;
};

/// A str, bytes or os.PathLike, as the system spells it.
struct Path {
    std::string name;
};

} // namespace zelvor::python

namespace pybind11::detail {

template<>
struct type_caster<zelvor::python::Text> {
    PYBIND11_TYPE_CASTER(zelvor::python::Text, const_name("str"));

    bool load(handle source, bool) {
        if (!PyUnicode_Check(source.ptr()))
            return false;
        Py_ssize_t size = 0;
        const char* const bytes = PyUnicode_AsUTF8AndSize(source.ptr(), &size);
        if (!bytes)
            throw error_already_set();
        value.bytes.assign(bytes, static_cast<std::size_t>(size));
        return true;
    }
    static handle cast(const zelvor::python::Text& text, return_value_policy, handle) {
        PyObject* const decoded =
            PyUnicode_DecodeUTF8(text.bytes.data(), static_cast<Py_ssize_t>(text.bytes.size()), nullptr);
        if (!decoded)
            throw error_already_set();
        return decoded;
    }
};

template<>
struct type_caster<zelvor::python::Path> {
    PYBIND11_TYPE_CASTER(zelvor::python::Path, const_name("str | os.PathLike"));

    bool load(handle source, bool) {
        PyObject* bytes = nullptr;
        if (!PyUnicode_FSConverter(source.ptr(), &bytes)) // names the type, or an embedded NUL
            throw error_already_set();
        const auto owner = reinterpret_steal<object>(bytes);
        value.name.assign(PyBytes_AS_STRING(bytes), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes)));
        return true;
    }
};

} // namespace pybind11::detail

namespace zelvor::python {

/// Throws std::system_error, which is an OSError in Python, for a file that could not be read.
void require_readable(const std::string& filename);

/// The exception of Python for one of C++: an OSError of the right subclass, a ValueError of std::invalid_argument
/// and ConversionStopped, a MemoryError, else a RuntimeError. Of the message, what is no UTF-8 is replaced.
py::object exception_of(const std::exception_ptr& thrown, std::string_view message);

/// As `raise` does.
void set_error(const py::object& exception);

/// What a caller handed in, for a message: its repr, cut where it is long. Nothing of that ends a C string.
std::string described(const py::handle& value);

/// What a caller's own container holds; anything but a str is a TypeError.
inline Text text_of(const py::handle& text) {
    if (!py::isinstance<py::str>(text))
        throw py::type_error("a str is needed, not " + described(py::type::of(text)));
    return py::cast<Text>(text);
}

/// A str of UTF-8; with errors as Python names their handling, or strict.
inline py::str to_str(std::string_view text, const char* errors = nullptr) {
    PyObject* const decoded = PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), errors);
    if (!decoded)
        throw py::error_already_set();
    return py::reinterpret_steal<py::str>(decoded);
}

/// A str of a path as the system spells it.
inline py::str path_to_str(std::string_view path) {
    return py::reinterpret_steal<py::str>(
        PyUnicode_DecodeFSDefaultAndSize(path.data(), static_cast<Py_ssize_t>(path.size())));
}

/// Calls use(text) for each str of an iterable; a str itself would be taken apart, and is a TypeError.
template<typename Use>
void for_each_text(const py::iterable& texts, Use use) {
    if (py::isinstance<py::str>(texts) || py::isinstance<py::bytes>(texts))
        throw py::type_error("a list of strings is needed, not one string");
    const py::object iterator = py::iter(texts);
    while (const auto text = py::reinterpret_steal<py::object>(PyIter_Next(iterator.ptr()))) {
        if (PyErr_CheckSignals() != 0) // Ctrl-C
            throw py::error_already_set();
        use(text_of(text).bytes);
    }
    if (PyErr_Occurred())
        throw py::error_already_set();
}

/// Makes what the module has safe for objects that were never initialised, and for any arguments.
void protect_functions(const py::module_& module);

void bind_conversion(py::module_& module);
void bind_language_model(py::module_& module);
void bind_lexicon(py::module_& module);
void bind_reader(py::module_& module);
void bind_report(py::module_& module);
void bind_rules(py::module_& module);
void bind_survey(py::module_& module);
void bind_text(py::module_& module);
void bind_trie(py::module_& module);

} // namespace zelvor::python
