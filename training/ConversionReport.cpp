#include "training/ConversionReport.h"

#include <json/json.h>

#include <algorithm>
#include <functional>
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
    {"files", "passed_over", "passed over by name"},
    {"sentences", "written", "written"},
    {"sentences", "incomplete", "incomplete and not written"},
    {"tokens", "written", "written"},
    {"tokens", "replaced", "of them with replaced characters"},
    {"tokens", "lacking", "of them without an analysis or a tag"},
    {"values", "upos", "no universal tag"},
    {"values", "feats", "no universal feature"},
    {"left_out", "no_form", "no form"},
    {"left_out", "no_analysis", "no analysis"},
    {"left_out", "not_json", "analysis is no JSON"},
    {"left_out", "other_json", "analysis is JSON of another shape"},
    {"left_out", "unknown_id", "id not in the lexicon"},
    {"left_out", "no_tag", "no tag"},
    {"left_out", "mapped_away", "tag left out by the map"},
    {"left_out", "breaks_line", "breaks its line"},
    {"left_out", "outside_sentence", "in no finished sentence"},
    {"left_out", "incomplete_sentence", "in an incomplete sentence"},
    {"lexicon", "lines", "lines read"},
    {"lexicon", "comments", "comments"},
    {"lexicon", "short", "short"},
    {"lexicon", "duplicates", "duplicates"},
};
static_assert(std::size(ROWS) == ConversionReport::COUNTS);

constexpr std::string_view LEFT_OUT = "left_out";

/// What some formats write tokens without.
bool is_lack(ConversionReport::Count reason) {
    return reason >= ConversionReport::NO_ANALYSIS && reason <= ConversionReport::NO_TAG;
}

} // namespace

ConversionReport& ConversionReport::operator+=(const ConversionReport& other) {
    std::ranges::transform(counts, other.counts, counts.begin(), std::plus<>());
    words += other.words;
    marks += other.marks;
    in_sentence += other.in_sentence;
    sentence_elements += other.sentence_elements;
    return *this;
}

std::vector<ConversionReport::Count> ConversionReport::reasons() const {
    std::vector<Count> reasons;
    for (std::size_t i = 0; i < COUNTS; ++i)
        if (ROWS[i].section == LEFT_OUT && counts[i] > 0)
            reasons.push_back(static_cast<Count>(i));
    std::ranges::stable_sort(reasons, std::greater<>(), [this](Count count) { return counts[count]; });
    return reasons;
}

std::uint64_t ConversionReport::with_reason() const {
    std::uint64_t sum = 0;
    for (const Count reason : reasons())
        sum += counts[reason];
    return sum;
}

bool ConversionReport::is_written(Count reason) const { return counts[TOKENS_LACKING] > 0 && is_lack(reason); }

/// What the section has counted, or its first row.
std::string ConversionReport::section_text(std::string_view section) const {
    std::string text;
    for (std::size_t i = 0; i < COUNTS; ++i)
        if (ROWS[i].section == section && counts[i] > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(counts[i]) + " " + ROWS[i].label;
    if (text.empty())
        text = std::string("0 ") + std::ranges::find(ROWS, section, &Row::section)->label;
    return std::string(section) + ": " + text + "\n";
}

std::string ConversionReport::text() const {
    std::string text = section_text("files") + section_text("sentences") + section_text("tokens");
    const auto line = [&](const char* what, Count count) {
        text.append(what).append(": " + std::to_string(counts[count]) + " " + label_of(count) + "\n");
    };
    for (const Count reason : reasons())
        line(is_written(reason) ? "written all the same" : "left out", reason);
    for (const Count unfit : {UPOS_UNFIT, FEATS_UNFIT})
        if (counts[unfit] > 0)
            line("values left out", unfit);
    return counts[LEXICON_LINES] > 0 ? text + section_text("lexicon") : text;
}

Json::Value ConversionReport::json() const {
    Json::Value root;
    for (std::size_t i = 0; i < COUNTS; ++i)
        root[ROWS[i].section][ROWS[i].key] = Json::UInt64{counts[i]};
    return root;
}

const char* label_of(ConversionReport::Count count) { return ROWS[count].label; }

const char* key_of(ConversionReport::Count count) { return ROWS[count].key; }

} // namespace zelvor
