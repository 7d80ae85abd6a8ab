#pragma once

#include "training/ReportContents.h"

#include <string>
#include <vector>

namespace zelvor {

/// Whether the data are good enough to train on, and what to mend first.
struct ReportFindings {
    enum class Verdict { GOOD, MEND, NOTHING };

    Verdict verdict = Verdict::GOOD;
    std::string summary;              ///< of the verdict, a sentence or two
    std::vector<std::string> to_mend; ///< files, reasons by their number of tokens, tags, sentences, lexicon
};

ReportFindings find_what_to_mend(const ReportContents& contents);

/// What can be done about tokens that are left out for this reason.
const char* remedy_of(ConversionReport::Count reason, bool has_lexicon);

/// One number of another in percent: "0.3 %", "<0.1 %", ">99.9 %".
std::string percent(std::uint64_t part, std::uint64_t all);

} // namespace zelvor
