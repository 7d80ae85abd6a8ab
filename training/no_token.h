#pragma once

#include "training/ConversionOptions.h"
#include "training/ConversionReport.h"
#include "training/Survey.h"

#include <string>

namespace zelvor {

/// Why a conversion has written no token, by its counts, and what to try, in one line. `survey`: of the documents, or
/// of their first tokens where there are very many.
std::string why_no_token(const ConversionOptions& options, const ConversionReport& report, const Survey& survey);

} // namespace zelvor
