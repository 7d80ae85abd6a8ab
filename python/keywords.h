#pragma once

#include "python/bindings.h"
#include "training/Conversion.h"

#include <string>
#include <string_view>
#include <vector>

/// What the functions that read documents share: their paths and the options of a conversion as keywords.
namespace zelvor::python {

/// One path, or several of any iterable. What the library would take for standard input is the name of a file here.
/// What cannot be read is an OSError; none at all a ValueError.
std::vector<std::string> input_paths(const py::object& inputs);

/// A task of these inputs and options, each under its name with "_" for "-", and with "_" behind a word of Python. An
/// unknown option is a TypeError, a wrong one a ValueError.
ConversionTask task_of(const py::object& inputs, const py::object& lexicon, const py::kwargs& options, bool only_reads);

/// Sets one, of any topic.
void set_option(std::string_view name, const py::object& value, ConversionTask& task);

/// The keyword of an option.
std::string keyword_of(std::string_view option);

/// One warning for all of these.
void warn(const std::vector<std::string>& messages);

} // namespace zelvor::python
