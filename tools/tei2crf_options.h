#pragma once

#include "training/Conversion.h"

#include <optional>

namespace zelvor {

struct Tei2crfOptions {
    ConversionTask task;
    bool survey = false; ///< instead of a conversion
    int quiet = 0;
};

/// The options of a command line, or nothing when there is nothing more to do: status is then 0 after the help or the
/// version (1 where these could not be written), and 2 after wrong usage, which is explained on standard error.
std::optional<Tei2crfOptions> read_tei2crf_options(int argc, char** argv, int& status);

} // namespace zelvor
