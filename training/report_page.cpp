#include "training/report_page.h"

#include "training/report_findings.h"
#include "training/shown_text.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace zelvor {

namespace {

using Count = ConversionReport::Count;

constexpr std::size_t SHOWN_TAGS = 50; ///< the others are folded away

constexpr std::string_view STYLE = R"(
:root { color-scheme: light dark; --page: #fff; --text: #1b1f24; --soft: #59636e; --line: #d5dae0; --panel: #f3f5f7;
  --good: #1a7f37; --bad: #b35900; --none: #c62828; --c0: #2f6fb3; --c1: #c2500a; --c2: #8a5fbf; --c3: #b0851a; --c4: #a8326a;
  --c5: #4f8a3c; --c6: #7a5c45; --c7: #3a8f93; --c8: #d06a8c; --c9: #6b7280; --c10: #94591f; }
@media (prefers-color-scheme: dark) { :root { --page: #14171b; --text: #e4e7eb; --soft: #a0a9b4; --line: #3a424c;
  --panel: #20252b; --good: #57c878; --bad: #f0a050; --none: #ff7b72; --c0: #5b9fe8; --c1: #f08a48; --c2: #b795e6;
  --c3: #dfb64e; --c4: #e57aa8; --c5: #86c06c; --c6: #bf9a80; --c7: #62c0c4; --c8: #f0a0ba; --c9: #9aa4b2; --c10: #d09a5c; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--page); color: var(--text); font: 16px/1.5 system-ui, sans-serif; }
main { max-width: 62rem; margin: 0 auto; padding: 1rem 1rem 3rem; }
h1 { font-size: 1.6rem; margin: .5rem 0 1rem; }
h2 { font-size: 1.25rem; margin: 2.25rem 0 .5rem; padding-bottom: .2rem; border-bottom: 1px solid var(--line); }
h3 { font-size: 1.05rem; margin: 1.5rem 0 .2rem; }
p { margin: .4rem 0; }
.verdict { font-size: 1.15rem; padding: .7rem 1rem; background: var(--panel); border-left: .4rem solid var(--good); }
.verdict.mend { border-color: var(--bad); }
.verdict.nothing { border-color: var(--none); }
.soft, th, .place { color: var(--soft); }
li { margin: .4rem 0; }
table { width: 100%; table-layout: fixed; border-collapse: collapse; margin: .6rem 0; }
th, td { text-align: left; vertical-align: top; padding: .25rem .6rem .25rem 0; border-bottom: 1px solid var(--line); }
th { font-weight: 600; font-size: .85rem; }
td { overflow: hidden; overflow-wrap: anywhere; }
.number { width: 7rem; text-align: right; white-space: nowrap; font-variant-numeric: tabular-nums; }
.chart { width: 30%; }
.place { width: 32%; }
.place, small { font-size: .85rem; }
.token { white-space: pre-wrap; }
.token bdi { background: var(--panel); padding: 0 .15rem; -webkit-box-decoration-break: clone; box-decoration-break: clone; }
.option { white-space: nowrap; }
bdi { unicode-bidi: isolate; }
svg { display: block; width: 100%; }
svg.bar { height: .75rem; margin-top: .4rem; }
svg.all { height: 1.75rem; margin: .6rem 0; }
svg.key { display: inline-block; width: .8rem; height: .8rem; margin-right: .4rem; vertical-align: -.05rem; }
summary { cursor: pointer; padding: .3rem 0; }
@media (max-width: 40rem) { body { font-size: 15px; } .chart { width: 18%; } th, td { padding-right: .5rem; }
  .number { width: 4.8rem; font-size: .85rem; } }
@media print { main { max-width: none; } }
)";

/// Text for XML. What that cannot hold is "?", as is all that `shown` has made so.
std::string escaped(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text.substr(i, 3) == "\uFFFE" || text.substr(i, 3) == "\uFFFF") {
            out += '?';
            i += 2;
        } else if (text[i] == '<') {
            out += "&lt;";
        } else if (text[i] == '>') {
            out += "&gt;";
        } else if (text[i] == '&') {
            out += "&amp;";
        } else if (text[i] == '"') {
            out += "&quot;";
        } else {
            out += text[i];
        }
    return out;
}

/// Text of ours, in which the names of options are not broken.
std::string with_options(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t begin = std::min(text.find("--"), text.size());
        const std::size_t length = std::min(text.substr(begin).find_first_of(" ,;:."), text.size() - begin);
        out += escaped(text.substr(0, begin));
        if (length > 0)
            out += "<span class=\"option\">" + escaped(text.substr(begin, length)) + "</span>";
        text.remove_prefix(begin + length);
    }
    return out;
}

/// Text from outside, whose direction does not spread.
std::string isolated(std::string_view text) { return "<bdi>" + escaped(text) + "</bdi>"; }

std::string number_cell(const std::string& number) { return "<td class=\"number\">" + escaped(number) + "</td>"; }

/// Of a length of the chart, in tenths of a percent.
std::string part_of(std::uint64_t part, std::uint64_t all) {
    const std::uint64_t tenths = all == 0 ? 0 : part * 1000 / all;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "%";
}

std::string rectangle(const std::string& x, const std::string& width, std::size_t color) {
    return "<rect x=\"" + x + "\" width=\"" + width + "\" height=\"100%\" fill=\"var(--c" + std::to_string(color) +
           ")\"></rect>";
}

std::string bar_cell(std::uint64_t part, std::uint64_t all, std::size_t color) {
    return "<td class=\"chart\"><svg class=\"bar\" aria-hidden=\"true\">" + rectangle("0", part_of(part, all), color) +
           "</svg></td>";
}

/// What was counted; behind a beginning, how long all of it is.
std::string counted(const FrequentTexts::Text& text) {
    if (text.bytes == 0)
        return "<span class=\"soft\">(no text)</span>";
    const std::string rest = shown_rest(text);
    return isolated(shown(text.beginning)) + (rest.empty() ? "" : "<span class=\"soft\">" + rest + "</span>");
}

/// Of different texts.
std::string number_of(const ConversionStatistics::Frequent& frequent) {
    return (frequent.is_exact() ? "" : "At least ") + shown_count(frequent.distinct);
}

/// The page, section by section.
class Page {
public:
    explicit Page(const ReportContents& contents)
        : m_contents(contents), m_report(contents.report), m_reasons(m_report.reasons()),
          m_written(m_report[ConversionReport::TOKENS_WRITTEN]), m_tokens(m_report.tokens()) {}

    std::string text() {
        add_head();
        add_findings();
        add_tokens();
        add_left_out();
        add_documents();
        add_sentences();
        add_tags();
        return m_text + "</main>\n</body>\n</html>\n";
    }

private:
    void add_head();
    void add_findings();
    void add_tokens();
    void add_row_of_tokens(std::string_view label, std::uint64_t count, std::size_t color);
    void add_left_out();
    void add_tokens_of(Count reason);
    void add_documents();
    void add_document(const ConversionStatistics::Document& document, std::uint64_t most);
    void add_sentences();
    void add_tags();
    void add_rows_of_tags(std::span<const FrequentTexts::Text> tags, std::uint64_t most);
    void add_estimate(const ConversionStatistics::Frequent& frequent);
    std::string place(std::uint32_t document, std::string_view file, long line) const;

    /// Of the reason, as in all charts; 0 is that of what was written.
    std::size_t color_of(Count reason) const {
        return static_cast<std::size_t>(std::ranges::find(m_reasons, reason) - m_reasons.begin()) + 1;
    }

    const ReportContents& m_contents;
    const ConversionReport& m_report;
    std::vector<Count> m_reasons;
    std::uint64_t m_written, m_tokens;
    std::string m_text;
};

void Page::add_head() {
    m_text +=
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'\"/>\n"
        "<title>Training data: " +
        shown_count(m_written) + " tokens</title>\n<style>" + std::string(STYLE) +
        "</style>\n</head>\n<body>\n<main>\n<h1>Training data: " + shown_count(m_written) + " tokens</h1>\n";
}

void Page::add_findings() {
    constexpr std::string_view classes[] = {"good", "mend", "nothing"}; // by verdict
    const ReportFindings findings = find_what_to_mend(m_contents);
    m_text += "<p class=\"verdict " + std::string(classes[static_cast<std::size_t>(findings.verdict)]) + "\">" +
              escaped(findings.summary) + "</p>\n<h2>What to mend first</h2>\n";
    if (findings.to_mend.empty()) {
        m_text += "<p>Nothing stands out.</p>\n";
        return;
    }
    m_text += "<ol>\n";
    for (const std::string& finding : findings.to_mend)
        m_text += "<li>" + with_options(finding) + "</li>\n";
    m_text += "</ol>\n";
}

void Page::add_tokens() {
    m_text += "<h2>Tokens</h2>\n";
    if (m_tokens > 0) {
        m_text += "<svg class=\"all\" role=\"img\" aria-label=\"" + escaped(percent(m_written, m_tokens)) +
                  " of the tokens written\">" + rectangle("0", part_of(m_written, m_tokens), 0);
        std::uint64_t before = m_written;
        for (const Count reason : m_reasons) {
            if (m_report.is_written(reason))
                continue;
            m_text += rectangle(part_of(before, m_tokens), part_of(m_report[reason], m_tokens), color_of(reason));
            before += m_report[reason];
        }
        m_text += "</svg>\n";
    }
    m_text += "<table>\n";
    add_row_of_tokens("written", m_written, 0);
    for (const Count reason : m_reasons)
        add_row_of_tokens((m_report.is_written(reason) ? "written all the same: " : "left out: ") +
                              std::string(label_of(reason)),
                          m_report[reason], color_of(reason));
    m_text += "</table>\n<p class=\"soft\">" + shown_count(m_report[ConversionReport::SENTENCES]) +
              " sentences written. Files: " + shown_count(m_report[ConversionReport::FILES_READ]) +
              " read without a fault, " + shown_count(m_report[ConversionReport::FILES_FAILED]) + " failed, " +
              shown_count(m_report[ConversionReport::FILES_PASSED_OVER]) + " passed over by name.</p>\n";
}

void Page::add_row_of_tokens(std::string_view label, std::uint64_t count, std::size_t color) {
    m_text += "<tr><td><svg class=\"key\" aria-hidden=\"true\">" + rectangle("0", "100%", color) + "</svg>" +
              escaped(label) + "</td>" + number_cell(shown_count(count)) + number_cell(percent(count, m_tokens)) +
              "</tr>\n";
}

void Page::add_left_out() {
    m_text += "<h2>Tokens left out</h2>\n";
    if (m_reasons.empty())
        m_text += "<p>None.</p>\n";
    for (const Count reason : m_reasons)
        add_tokens_of(reason);
}

void Page::add_tokens_of(Count reason) {
    const auto tokens = m_contents.statistics.frequent(reason, ReportContents::MAX_TOKENS);
    m_text += "<h3>" + escaped(label_of(reason)) + ": " + shown_count(m_report[reason]) + "</h3>\n<p>" +
              with_options(remedy_of(reason, m_contents.has_lexicon)) + "</p>\n";
    m_text += "<p class=\"soft\">" +
              std::string(m_report.is_written(reason) ? "Such tokens are written all the same. " : "") +
              number_of(tokens) + (tokens.distinct == 1 ? " token" : " different tokens") +
              (tokens.distinct > tokens.texts.size() ? ", the most frequent " + shown_count(tokens.texts.size())
                                                     : std::string()) +
              ":</p>\n";
    add_estimate(tokens);
    m_text +=
        "<table>\n<tr><th>Token</th><th class=\"number\">Times</th><th class=\"chart\"></th><th class=\"place\">" +
        std::string(tokens.is_exact() ? "First in" : "In") + "</th></tr>\n";
    for (const FrequentTexts::Text& token : tokens.texts)
        m_text += "<tr><td class=\"token\">" + counted(token) + "</td>" + number_cell(shown_count(token.count)) +
                  bar_cell(token.count, tokens.texts.front().count, color_of(reason)) + "<td class=\"place\">" +
                  place(token.place.document, token.place.file, token.place.line) + "</td></tr>\n";
    m_text += "</table>\n";
}

void Page::add_estimate(const ConversionStatistics::Frequent& frequent) {
    if (frequent.error > 0)
        m_text += "<p>There are more than could be kept apart: these counts are estimates, each too low by " +
                  shown_count(frequent.error) +
                  " at most, and texts that came no more often than that may be "
                  "missing.</p>\n";
}

std::string Page::place(std::uint32_t document, std::string_view file, long line) const {
    return isolated(m_contents.file(document, file)) + (line > 0 ? ":" + std::to_string(line) : "");
}

void Page::add_documents() {
    const auto& worst = m_contents.statistics.worst();
    const std::uint64_t all = m_contents.statistics.documents_with_losses();
    m_text += "<h2>Documents</h2>\n";
    if (worst.empty()) {
        m_text += "<p>None has a fault, or a token that was left out.</p>\n";
        return;
    }
    m_text += "<p class=\"soft\">" + shown_count(all) + (all == 1 ? " document has" : " documents have") +
              " faults, or tokens that were left out or lack something" +
              (all > worst.size() ? ", the worst " + std::to_string(worst.size()) : std::string()) +
              ":</p>\n<table>\n<tr><th>Document</th><th class=\"number\">Written</th><th class=\"number\">Left out</th>"
              "<th class=\"chart\"></th></tr>\n";
    for (const auto& document : worst)
        add_document(document, worst.front().report.with_reason());
    m_text += "</table>\n";
}

void Page::add_document(const ConversionStatistics::Document& document, std::uint64_t most) {
    const ConversionReport& report = document.report;
    const std::uint64_t left_out = report.left_out(), written = report[ConversionReport::TOKENS_WRITTEN];
    std::string reasons = report[ConversionReport::FILES_FAILED] > 0 ? "has a fault" : "";
    for (const Count reason : report.reasons())
        reasons += (reasons.empty() ? "" : ", ") + shown_count(report[reason]) + " " + label_of(reason);
    m_text += "<tr><td>" + isolated(m_contents.document(document.number)) + "<br/><small class=\"soft\">" +
              escaped(reasons) + "</small></td>" + number_cell(shown_count(written)) +
              number_cell(shown_count(left_out)) + "<td class=\"chart\"><svg class=\"bar\" aria-hidden=\"true\">";
    std::uint64_t before = 0;
    for (const Count reason : report.reasons()) {
        m_text += rectangle(part_of(before, most), part_of(report[reason], most), color_of(reason));
        before += report[reason];
    }
    m_text += "</svg></td></tr>\n";
}

void Page::add_sentences() {
    const StatisticsSums& sums = m_contents.statistics.sums();
    m_text += "<h2>Lengths of sentences</h2>\n";
    if (m_report[ConversionReport::SENTENCES] == 0) {
        m_text += "<p>No sentence was written.</p>\n";
        return;
    }
    m_text += "<table>\n<tr><th>Tokens</th><th class=\"number\">Sentences</th><th class=\"chart\"></th></tr>\n";
    const std::uint64_t most = std::ranges::max(sums.lengths);
    for (std::size_t i = 0; i < SENTENCE_LENGTHS.size(); ++i) {
        const std::uint32_t first = SENTENCE_LENGTHS[i];
        const bool is_last = i + 1 == SENTENCE_LENGTHS.size();
        if (first == 0 && sums.lengths[i] == 0)
            continue;
        const std::uint32_t last = is_last ? first : SENTENCE_LENGTHS[i + 1] - 1;
        m_text += "<tr><td>" + shown_count(first) +
                  (is_last         ? " and more"
                   : last != first ? " to " + shown_count(last)
                                   : std::string()) +
                  "</td>" + number_cell(shown_count(sums.lengths[i])) + bar_cell(sums.lengths[i], most, 0) + "</tr>\n";
    }
    m_text += "</table>\n";
    if (const auto& [tokens, document, begin] = sums.longest; tokens > 0)
        m_text += "<p class=\"soft\">The longest has " + shown_count(tokens) + " tokens; it begins in " +
                  place(document, begin.file, begin.line) + "</p>\n";
}

void Page::add_tags() {
    const auto tags = m_contents.statistics.frequent(ConversionStatistics::TAG, ReportContents::MAX_TAGS);
    m_text += "<h2>Tags</h2>\n";
    if (m_written == 0) {
        m_text += "<p>No token was written.</p>\n";
        return;
    }
    m_text +=
        "<p class=\"soft\">" + number_of(tags) + (tags.distinct == 1 ? " value" : " different values") +
        " of the column " + isolated(shown(m_contents.tag_column)) +
        (tags.distinct > tags.texts.size() ? ", the most frequent " + shown_count(tags.texts.size()) : std::string()) +
        ":</p>\n";
    add_estimate(tags);
    const std::span all(tags.texts);
    const std::span shown = all.first(std::min(all.size(), SHOWN_TAGS)), folded = all.subspan(shown.size());
    if (shown.empty())
        return;
    add_rows_of_tags(shown, shown.front().count);
    if (folded.empty())
        return;
    m_text += "<details>\n<summary>" + shown_count(folded.size()) + " more</summary>\n";
    add_rows_of_tags(folded, shown.front().count);
    m_text += "</details>\n";
}

void Page::add_rows_of_tags(std::span<const FrequentTexts::Text> tags, std::uint64_t most) {
    m_text += "<table>\n<tr><th>Tag</th><th class=\"number\">Tokens</th><th class=\"number\">Share</th>"
              "<th class=\"chart\"></th></tr>\n";
    for (const FrequentTexts::Text& tag : tags)
        m_text += "<tr><td>" + counted(tag) + "</td>" + number_cell(shown_count(tag.count)) +
                  number_cell(percent(tag.count, m_written)) + bar_cell(tag.count, most, 0) + "</tr>\n";
    m_text += "</table>\n";
}

} // namespace

std::string report_page(const ReportContents& contents) { return Page(contents).text(); }

} // namespace zelvor
