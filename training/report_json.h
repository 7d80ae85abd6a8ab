#pragma once

#include "training/ReportContents.h"

#include <string>

namespace zelvor {

/// One object, with a line feed behind; its members are in docs/tei2crf.md.
std::string report_json(const ReportContents& contents);

} // namespace zelvor
