#include "training/ConversionReport.h"

#include <json/json.h>

#include <iterator>
#include <string_view>

namespace zelvor {

namespace {

struct Row {
    const char* section;
    const char* key; ///< in the JSON
    const char* label;
};

/// By count.
constexpr Row ROWS[] = {
    {"files", "read", "read"},
    {"files", "failed", "failed"},
    {"files", "entities_refused", "external entities refused"},
    {"sentences", "written", "written"},
    {"tokens", "written", "written"},
    {"tokens", "replaced", "of them with replaced characters"},
    {"left_out", "no_analysis", "no analysis"},
    {"left_out", "not_json", "analysis is no JSON"},
    {"left_out", "other_json", "analysis is JSON of another shape"},
    {"left_out", "unknown_id", "id not in the lexicon"},
    {"left_out", "no_tag", "punctuation without a tag"},
    {"left_out", "breaks_line", "breaks its line"},
    {"left_out", "outside_sentence", "in no finished sentence"},
    {"lexicon", "lines", "lines read"},
    {"lexicon", "comments", "comments"},
    {"lexicon", "short", "short"},
    {"lexicon", "duplicates", "duplicates"},
};
static_assert(std::size(ROWS) == ConversionReport::COUNTS);

} // namespace

std::string ConversionReport::text() const {
    std::string text;
    std::string_view section;
    for (std::size_t i = 0; i < COUNTS; ++i) {
        const bool is_first = section != ROWS[i].section;
        section = ROWS[i].section;
        if (is_first)
            text.append(text.empty() ? "" : "\n").append(section == "left_out" ? "left out" : section).append(":");
        text.append(is_first ? " " : ", ").append(std::to_string(counts[i])).append(" ").append(ROWS[i].label);
    }
    return text + "\n";
}

std::string ConversionReport::json(int status) const {
    Json::Value root;
    for (std::size_t i = 0; i < COUNTS; ++i)
        root[ROWS[i].section][ROWS[i].key] = Json::UInt64{counts[i]};
    root["status"] = status;
    Json::StreamWriterBuilder format;
    format["indentation"] = "  ";
    return Json::writeString(format, root) + "\n";
}

const char* label_of(ConversionReport::Count count) { return ROWS[count].label; }

} // namespace zelvor
