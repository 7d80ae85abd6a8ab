#include "python/background.h"
#include "python/bindings.h"
#include "training/Sentences.h"
#include "training/XmlReader.h"

#include <new>
#include <stdexcept>

namespace zelvor::python {

namespace {

void translate(std::exception_ptr thrown) {
    try {
        if (thrown)
            std::rethrow_exception(thrown);
    } catch (const py::error_already_set&) {
        throw;
    } catch (const py::builtin_exception&) {
        throw;
    } catch (const std::exception& error) {
        set_error(exception_of(thrown, error.what()));
    }
}

/// OSError(number, message, file name) makes itself the right subclass; the name is what the error was made with.
py::object os_error(const std::system_error& error) {
    const auto type = py::reinterpret_borrow<py::object>(PyExc_OSError);
    const std::string what = error.what(), message = error.code().message(), behind = ": " + message;
    if (!what.ends_with(behind))
        return type(error.code().value(), message);
    return type(error.code().value(), message, path_to_str(what.substr(0, what.size() - behind.size())));
}

} // namespace

py::object exception_of(const std::exception_ptr& thrown, std::string_view message) {
    const auto make = [&](PyObject* type) {
        return py::reinterpret_borrow<py::object>(type)(to_str(message, "replace"));
    };
    try {
        std::rethrow_exception(thrown);
    } catch (const std::system_error& error) {
        return error.code() == std::errc::not_enough_memory ? make(PyExc_MemoryError) : os_error(error);
    } catch (const std::invalid_argument&) {
        return make(PyExc_ValueError);
    } catch (const ConversionStopped&) { // by what is in a file
        return make(PyExc_ValueError);
    } catch (const std::bad_alloc&) {
        return make(PyExc_MemoryError);
    } catch (const std::exception&) {
        return make(PyExc_RuntimeError);
    }
}

void set_error(const py::object& exception) { PyErr_SetObject(py::type::handle_of(exception).ptr(), exception.ptr()); }

std::string described(const py::handle& value) {
    constexpr Py_ssize_t max_length = 100;
    const py::str text = py::repr(value);
    const auto begin = py::reinterpret_steal<py::object>(PyUnicode_Substring(text.ptr(), 0, max_length));
    const auto bytes = py::reinterpret_steal<py::object>(
        begin ? PyUnicode_AsEncodedString(begin.ptr(), "utf-8", "backslashreplace") : nullptr);
    if (!bytes)
        throw py::error_already_set();
    return PyBytes_AS_STRING(bytes.ptr()) + std::string(PyUnicode_GetLength(text.ptr()) > max_length ? "..." : "");
}

void require_readable(const std::string& filename) {
    if (const int error = reading_error(filename); error != 0)
        throw std::system_error(error, std::generic_category(), filename);
}

} // namespace zelvor::python

PYBIND11_MODULE(_zelvor, module) {
    using namespace zelvor::python;
    py::options options;
    options.disable_function_signatures(); // docstrings begin with those that Python reads; the stub has types
    py::register_local_exception_translator(translate);
    module.doc() = "The compiled part of zelvor.";
    module.attr("__version__") = ZELVOR_VERSION;
    bind_report(module);
    bind_conversion(module);
    bind_language_model(module);
    bind_lexicon(module);
    bind_reader(module);
    bind_rules(module);
    bind_survey(module);
    bind_text(module);
    bind_trie(module);
    for (const char* const name : {"Entry", "LanguageModel", "Lexicon", "Report", "Rules", "TeiReader", "Trie"})
        module.attr(name).attr("__module__") = "zelvor"; // where users find them
    protect_functions(module);
    py::module_::import("atexit").attr("register")(py::cpp_function(&end_background_runs));
}
