#include "training/ReportContents.h"

#include "training/shown_text.h"

namespace zelvor {

std::string ReportContents::document(std::uint32_t number) const {
    const std::string& path = documents.at(number);
    return path == "-" ? "standard input" : shown_path(path);
}

std::string ReportContents::file(std::uint32_t number, std::string_view file) const {
    return file.empty() ? document(number) : shown_path(file);
}

std::string shown_counted(std::string_view text) {
    const bool may_be_cut = text.size() > FrequentTexts::MAX_TEXT - 4; // of a character that did not fit
    return shown(text) + (may_be_cut ? "..." : "");
}

} // namespace zelvor
