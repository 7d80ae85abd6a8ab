#pragma once

#include "training/token_line.h"

#include <optional>
#include <string>
#include <vector>

namespace zelvor {

struct Tei2crfOptions {
    std::string lexicon;
    std::string output; ///< empty: standard output
    std::string report; ///< empty: no JSON report
    std::vector<std::string> inputs;
    TokenLineFormat format;
    bool hidden = false;
    bool strict = false;
    bool verbose = false;
    int quiet = 0;
};

/// The options of a command line, or nothing when there is nothing more to do: status is then 0 after the help or the
/// version (1 where these could not be written), and 2 after wrong usage, which is explained on standard error.
std::optional<Tei2crfOptions> read_tei2crf_options(int argc, char** argv, int& status);

} // namespace zelvor
