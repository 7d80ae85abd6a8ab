#pragma once

#include "training/ReportContents.h"

#include <string>

namespace zelvor {

/// A page for a browser, all in one file: no script, nothing from elsewhere. It is also well-formed XML.
std::string report_page(const ReportContents& contents);

} // namespace zelvor
