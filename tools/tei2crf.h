#pragma once

#include "tools/tei2crf_options.h"

namespace zelvor {

/// Converts the documents of the options and reports on standard error; the exit status of the program. Throws nothing
/// but std::bad_alloc.
int run_tei2crf(const Tei2crfOptions& options);

} // namespace zelvor
