#pragma once

#include "python/bindings.h"
#include "training/ConversionReport.h"

#include <string>
#include <vector>

namespace zelvor::python {

/// A Report of Python: the sections as the JSON report has them.
py::object make_report(const ConversionReport& report, int status, const std::vector<std::string>& messages);

} // namespace zelvor::python
