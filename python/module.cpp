#include "python/bindings.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace zelvor::python {

namespace {

void translate(std::exception_ptr pexception) {
    try {
        if (pexception)
            std::rethrow_exception(pexception);
    } catch (const std::system_error& error) {
        const py::object raised = os_error(error);
        PyErr_SetObject(py::type::handle_of(raised).ptr(), raised.ptr());
    }
}

} // namespace

/// OSError(number, message, file name) makes itself the right subclass.
py::object os_error(const std::system_error& error) {
    const std::string what = error.what(), message = ": " + error.code().message();
    const std::string name = what.ends_with(message) ? what.substr(0, what.size() - message.size()) : what;
    return py::reinterpret_borrow<py::object>(PyExc_OSError)(error.code().value(), error.code().message(),
                                                             path_to_str(name));
}

void require_readable(const std::string& filename) {
    errno = 0;
    std::ifstream file(filename, std::ios::binary);
    file.peek();
    if (!file.is_open() || file.bad())
        throw std::system_error(errno ? errno : EIO, std::generic_category(), filename);
}

} // namespace zelvor::python

PYBIND11_MODULE(_zelvor, module) {
    using namespace zelvor::python;
    py::options options;
    options.disable_function_signatures(); // the stub has them
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
    protect_functions(module);
    for (const char* const name : {"Entry", "LanguageModel", "Lexicon", "Report", "Rules", "TeiReader", "Trie"})
        module.attr(name).attr("__module__") = "zelvor"; // where users find them
}
