#pragma once

#include "training/ConversionReport.h"
#include "training/ConversionStatistics.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zelvor {

/// What a report file tells, in either format. All references must live as long as this.
struct ReportContents {
    static constexpr std::size_t MAX_TOKENS = 20; ///< listed, of each reason
    static constexpr std::size_t MAX_TAGS = 1000;

    const ConversionReport& report;
    const ConversionStatistics& statistics;
    const std::vector<std::string>& documents; ///< paths, by number
    std::string tag_column;
    bool has_lexicon = false;
    int status = 0;

    std::string document(std::uint32_t number) const; ///< its path, for people
    /// The file within or below a document, for people.
    std::string file(std::uint32_t document, std::string_view file) const;
};

/// A text that was counted, for people; behind one of which only the beginning is there, "... (1,234 bytes)".
std::string shown_counted(const FrequentTexts::Text& text);
std::string shown_rest(const FrequentTexts::Text& text); ///< of it, only what stands behind

} // namespace zelvor
