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

std::string shown_counted(const FrequentTexts::Text& text) { return shown(text.beginning) + shown_rest(text); }

std::string shown_rest(const FrequentTexts::Text& text) {
    return text.beginning.size() == text.bytes ? "" : "... (" + shown_count(text.bytes) + " bytes)";
}

} // namespace zelvor
