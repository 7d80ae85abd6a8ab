#include "python/bindings.h"

#include <cstddef>
#include <new>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace zelvor::python {

namespace {

PyCFunctionWithKeywords dispatch = nullptr; ///< what pybind11 makes all functions call

/// Instead of memory without an object in it, which pybind11 would hand to a method: of X.__new__(X), or of a subclass
/// whose __init__ has not called that of its parent yet.
void* refuse_uninitialised(std::size_t) {
    throw py::type_error("the object was never initialised: __init__ is missing");
}

/// Of what has no way of its own to be pickled and copied: older protocols of pickle would have pybind11 end the
/// process.
[[noreturn]] void refuse_to_reduce(const py::object& self) {
    throw py::type_error("cannot pickle " + described(py::type::of(self)) + ", nor copy it");
}

/// Cuts the message of pybind11 for wrong arguments, which ends with all of them.
void shorten_error() {
    constexpr Py_ssize_t max_length = 200;
    py::error_already_set error;
    const py::object message = py::reinterpret_steal<py::object>(PyObject_Str(error.value().ptr()));
    const py::str begin_of_arguments("\nInvoked with: ");
    const Py_ssize_t length = message ? PyUnicode_GetLength(message.ptr()) : 0;
    const Py_ssize_t begin = message ? PyUnicode_Find(message.ptr(), begin_of_arguments.ptr(), 0, length, 1) : -1;
    PyErr_Clear();
    if (begin < 0 || length - begin <= max_length)
        return error.restore();
    const auto kept = py::reinterpret_steal<py::object>(PyUnicode_Substring(message.ptr(), 0, begin + max_length));
    if (kept)
        PyErr_Format(PyExc_TypeError, "%U...", kept.ptr());
}

/// Names of arguments that are not UTF-8, and lack of memory, make pybind11 throw where nobody would catch it.
PyObject* call_protected(PyObject* self, PyObject* arguments, PyObject* keywords) {
    PyObject* result = nullptr;
    try {
        result = dispatch(self, arguments, keywords);
        if (!result && PyErr_ExceptionMatches(PyExc_TypeError))
            shorten_error();
    } catch (py::error_already_set& error) {
        error.restore();
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    }
    return result;
}

/// What is called of a class; None for self would be a null pointer to it.
PyObject* call_method(PyObject* self, PyObject* arguments, PyObject* keywords) {
    if (PyTuple_GET_SIZE(arguments) > 0 && PyTuple_GET_ITEM(arguments, 0) == Py_None) {
        PyErr_SetString(PyExc_TypeError, "a method needs an object, not None");
        return nullptr;
    }
    return call_protected(self, arguments, keywords);
}

/// Of an object whose __init__ is at work, pybind11 would take a second one for the first, and end the process when the
/// object goes.
PyObject* call_init(PyObject* self, PyObject* arguments, PyObject* keywords) {
    static auto* const at_work = new std::unordered_set<PyObject*>(); // with Python's lock only
    if (PyTuple_GET_SIZE(arguments) == 0)
        return call_method(self, arguments, keywords);
    PyObject* const object = PyTuple_GET_ITEM(arguments, 0);
    PyObject* result = nullptr;
    try {
        if (at_work->insert(object).second) {
            result = call_method(self, arguments, keywords);
            at_work->erase(object);
        } else {
            PyErr_SetString(PyExc_RuntimeError, "the object is about to be initialised already");
        }
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    }
    return result;
}

/// A function, a method, or what reads a property; `call` is what calls it.
void protect(py::object member, PyCFunctionWithKeywords call) {
    if (PyObject_TypeCheck(member.ptr(), &PyProperty_Type))
        member = member.attr("fget");
    if (PyInstanceMethod_Check(member.ptr()))
        member = py::reinterpret_borrow<py::object>(PyInstanceMethod_GET_FUNCTION(member.ptr()));
    if (!PyCFunction_Check(member.ptr()))
        return;
    PyMethodDef& definition = *reinterpret_cast<PyCFunctionObject*>(member.ptr())->m_ml;
    if (std::string_view(definition.ml_name) == "__init__")
        call = call_init;
    const auto called = reinterpret_cast<PyCFunctionWithKeywords>(reinterpret_cast<void (*)()>(definition.ml_meth));
    if (called == dispatch)
        definition.ml_meth = reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(call));
}

newfunc make_any = nullptr; ///< of the base of all classes

/// What pybind11 takes for an object, be it null.
PyObject* allocate(PyTypeObject* type, Py_ssize_t items) {
    PyObject* const allocated = PyType_GenericAlloc(type, items);
    if (!allocated)
        throw py::error_already_set();
    return allocated;
}

/// Of the base itself, or of a class that has no other base of these, pybind11 would end the process.
PyObject* make_protected(PyTypeObject* type, PyObject* arguments, PyObject* keywords) {
    try {
        if (!py::detail::all_type_info(type).empty())
            return make_any(type, arguments, keywords);
        PyErr_Format(PyExc_TypeError, "cannot create '%s' instances", type->tp_name);
    } catch (py::error_already_set& error) {
        error.restore();
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    }
    return nullptr;
}

/// Another class must not be put in the place of that of an object, whose memory would be taken for another's. So the
/// class cannot change any more, as those that are built in.
void protect_class(PyTypeObject& type) {
    if (PyTypeObject& base = *type.tp_base; base.tp_new != make_protected)
        make_any = std::exchange(base.tp_new, make_protected);
    type.tp_new = make_protected;
    type.tp_alloc = allocate;
#ifdef Py_TPFLAGS_IMMUTABLETYPE // from Python 3.10 on
    type.tp_flags |= Py_TPFLAGS_IMMUTABLETYPE;
#endif
}

void protect_all(const py::object& members, PyCFunctionWithKeywords call) {
    for (const py::handle member : py::list(members.attr("values")()))
        protect(py::reinterpret_borrow<py::object>(member), call);
}

} // namespace

void protect_functions(const py::module_& module) {
    const py::object any = module.attr("convert");
    dispatch = reinterpret_cast<PyCFunctionWithKeywords>(
        reinterpret_cast<void (*)()>(reinterpret_cast<PyCFunctionObject*>(any.ptr())->m_ml->ml_meth));
    const py::object members = module.attr("__dict__");
    protect_all(members, call_protected);
    for (const py::handle member : py::list(members.attr("values")())) {
        auto* const type = PyType_Check(member.ptr())
                               ? py::detail::get_type_info(reinterpret_cast<PyTypeObject*>(member.ptr()))
                               : nullptr;
        if (!type)
            continue;
        type->operator_new = refuse_uninitialised;
        if (!member.attr("__dict__").contains("__reduce__"))
            member.attr("__reduce__") = py::cpp_function(&refuse_to_reduce, py::is_method(member));
        protect_all(member.attr("__dict__"), call_method);
        protect_class(*type->type);
    }
}

} // namespace zelvor::python
