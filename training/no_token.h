#pragma once

#include "training/ConversionOptions.h"
#include "training/ConversionReport.h"
#include "training/Survey.h"

#include <stdexcept>
#include <string>

namespace zelvor {

/// Ends a conversion that has written none; the text is why_no_token().
struct NoToken : std::invalid_argument {
    using std::invalid_argument::invalid_argument;
};

/// Why a conversion has written no token, by its counts, and what to try, in one line. `survey`: of the documents, or
/// of their first tokens where there are very many.
std::string why_no_token(const ConversionOptions& options, const ConversionReport& report, const Survey& survey);

} // namespace zelvor
