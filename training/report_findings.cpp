#include "training/report_findings.h"

#include "training/shown_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zelvor {

namespace {

using Count = ConversionReport::Count;

// Rules of thumb; docs/tei2crf.md tells them.
constexpr std::uint64_t FEW_TOKENS = 20'000;
constexpr double MUCH = 0.01, TOO_MUCH = 0.1; ///< of what was left out
constexpr std::uint64_t RARE = ConversionStatistics::RARE;
constexpr double MANY_RARE = 0.2; ///< of the tags
constexpr std::uint64_t FEW_OF_A_TAG = 10, TOO_MANY_TAGS = 10'000;
constexpr double LONG_SENTENCES = 60, SHORT_SENTENCES = 3;

double share(std::uint64_t part, std::uint64_t all) {
    return all == 0 ? 0 : static_cast<double>(part) / static_cast<double>(all);
}

/// "1 file is", "2 files are".
std::string count_of(std::uint64_t count, const std::string& one, const std::string& several) {
    return shown_count(count) + " " + (count == 1 ? one : several);
}

std::string decimal(double number) {
    std::array<char, 64> text{};
    return {text.data(),
            std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 1).ptr};
}

/// What is found, one thing after the other.
class Search {
public:
    explicit Search(const ReportContents& contents)
        : m_contents(contents), m_report(contents.report), m_written(m_report[ConversionReport::TOKENS_WRITTEN]),
          m_tokens(m_report.tokens()) {}

    ReportFindings run() {
        if (m_report[ConversionReport::FILES_READ] + m_report[ConversionReport::FILES_FAILED] == 0)
            mend("No file was read: below a folder, the names of files must end in .tei or .xml.");
        else if (m_tokens == 0)
            mend("No token was found: --word, --punctuation and --sentence may name other elements; --survey tells "
                 "which there are.");
        find_failed_files();
        find_tokens_left_out();
        if (m_written > 0) {
            find_faults_of_tags();
            find_faults_of_sentences();
        }
        find_faults_of_lexicon();
        judge();
        return m_findings;
    }

private:
    void find_failed_files();
    void find_tokens_left_out();
    void find_faults_of_tags();
    void find_faults_of_sentences();
    void find_faults_of_lexicon();
    void judge();
    void mend(const std::string& text) { m_findings.to_mend.push_back(text); }

    const ReportContents& m_contents;
    const ConversionReport& m_report;
    std::uint64_t m_written, m_tokens;
    bool m_is_bad = false;
    ReportFindings m_findings;
};

void Search::find_failed_files() {
    const std::uint64_t failed = m_report[ConversionReport::FILES_FAILED];
    if (failed == 0)
        return;
    m_is_bad = share(failed, failed + m_report[ConversionReport::FILES_READ]) >= TOO_MUCH;
    mend(count_of(failed, "file was", "files were") +
         " not read without a fault. What stands behind a fault is missing, and not counted here. The messages of the "
         "run tell file and line.");
}

void Search::find_tokens_left_out() {
    m_is_bad = m_is_bad || share(m_report.with_reason(), m_tokens) >= TOO_MUCH;
    for (const Count reason : m_report.reasons())
        if (share(m_report[reason], m_tokens) >= MUCH || m_written == 0)
            mend(count_of(m_report[reason], "token", "tokens") + ", " + percent(m_report[reason], m_tokens) +
                 (m_report.is_written(reason) ? ", written all the same: " : ", left out: ") + label_of(reason) + ". " +
                 remedy_of(reason, m_contents.has_lexicon));
    const std::uint64_t replaced = m_report[ConversionReport::TOKENS_REPLACED];
    if (share(replaced, m_written) >= MUCH)
        mend(percent(replaced, m_written) + " of the tokens are written with _ for what would have broken their line.");
}

void Search::find_faults_of_tags() {
    const auto tags = m_contents.statistics.frequent(ConversionStatistics::TAG, 0);
    if (tags.distinct == 1 && tags.is_exact()) {
        m_is_bad = true;
        mend("All tokens have the same tag: there is nothing to learn. --columns or --pos name the tags.");
    }
    const bool are_too_many =
        tags.distinct > TOO_MANY_TAGS || (m_written >= FEW_TOKENS && m_written < FEW_OF_A_TAG * tags.distinct);
    if (are_too_many) {
        m_is_bad = true;
        mend(std::string(tags.is_exact() ? "" : "At least ") + count_of(tags.distinct, "tag", "different tags") +
             " for " + count_of(m_written, "token", "tokens") +
             ": too many to be learnt. --columns or --pos name the tags; where they are too fine, --map renames them.");
    }
    if (tags.is_exact() && tags.rare > 1 && share(tags.rare, tags.distinct) >= MANY_RARE)
        mend(shown_count(tags.rare) + " of " + shown_count(tags.distinct) + " tags come less than " +
             std::to_string(RARE) +
             " times, too rarely to be learnt. Where they are misprints or too fine, --map renames them.");
}

void Search::find_faults_of_sentences() {
    const double mean = 1 / share(m_report[ConversionReport::SENTENCES], m_written);
    if (mean > LONG_SENTENCES)
        mend("A sentence has " + decimal(mean) +
             " tokens on average: --sentence may name too large an element, or --break should cut it at marks.");
    else if (mean < SHORT_SENTENCES)
        mend("A sentence has " + decimal(mean) + " tokens on average: --sentence may name too small an element.");
    const std::uint64_t incomplete = m_report[ConversionReport::SENTENCES_INCOMPLETE];
    if (share(incomplete, incomplete + m_report[ConversionReport::SENTENCES]) >= MUCH)
        mend(count_of(incomplete, "sentence is", "sentences are") +
             " not written, since a token of each was left out; without --whole-sentences the others of its tokens "
             "would be.");
}

void Search::find_faults_of_lexicon() {
    if (const std::uint64_t lines = m_report[ConversionReport::LEXICON_SHORT]; lines > 0)
        mend(count_of(lines, "line of the lexicon has", "lines of the lexicon have") + " fewer than 22 fields.");
    if (const std::uint64_t lines = m_report[ConversionReport::LEXICON_DUPLICATES]; lines > 0)
        mend(count_of(lines, "line of the lexicon repeats", "lines of the lexicon repeat") +
             " an id; the first line of each counts.");
}

void Search::judge() {
    using Verdict = ReportFindings::Verdict;
    if (m_written == 0) {
        m_findings.verdict = Verdict::NOTHING;
        m_findings.summary = "There is nothing to train on: no token was written.";
    } else if (m_is_bad) {
        m_findings.verdict = Verdict::MEND;
        m_findings.summary = "Mend the data before you train on them.";
    } else if (m_written < FEW_TOKENS) {
        m_findings.verdict = Verdict::MEND;
        m_findings.summary = "Enough to try a trainer, but few tokens for a tagger: " + shown_count(FEW_TOKENS) +
                             " are little, 100,000 a good beginning.";
    } else if (m_findings.to_mend.empty()) {
        m_findings.summary = "The data are good enough to train on.";
    } else {
        m_findings.summary = "The data are good enough to train on, and would become better.";
    }
}

} // namespace

ReportFindings find_what_to_mend(const ReportContents& contents) { return Search(contents).run(); }

const char* remedy_of(Count reason, bool has_lexicon) {
    switch (reason) {
    case ConversionReport::NO_FORM:
        return "Their elements have no text: --form names attributes that hold it, --skip elements that are no tokens.";
    case ConversionReport::NO_ANALYSIS:
        return "They have no lemma attribute, or their analysis has no lemma, word form or id: their words are to be "
               "analysed, and entered into the lexicon.";
    case ConversionReport::NOT_JSON:
        return "Their lemma attribute holds no JSON, or broken JSON: what wrote it is to be mended.";
    case ConversionReport::OTHER_JSON:
        return "Their lemma attribute holds JSON of other members or types than the ids need.";
    case ConversionReport::UNKNOWN_ID:
        return "The lexicon lacks the ids of their analyses: it may be another or an older one than that of the "
               "corpus.";
    case ConversionReport::NO_TAG:
        return has_lexicon
                   ? "With a lexicon only the marks , . ( ) [ ] \" ' have a tag. Others can be written as one of "
                     "these, or be encoded as words with an analysis whose id the lexicon has, with their tag; "
                     "without -l, --punctuation-tag gives all marks one."
                   : "No source of the tag has a value: --pos names the attributes, --survey tells which there "
                     "are.";
    case ConversionReport::MAPPED_AWAY:
        return "The map has no new tag for theirs: as it should be, or a line of it is to be mended.";
    case ConversionReport::BREAKS_LINE:
        return "A column would hold white space or a control character, be empty, or be too long; "
               "--on-bad-token=replace writes _ for characters.";
    case ConversionReport::OUTSIDE_SENTENCE:
        return "They are in no sentence that ends: --sentence names other elements; a fault of a file cuts one off.";
    case ConversionReport::INCOMPLETE_SENTENCE:
        return "Another token of their sentence was left out, see the other reasons.";
    default:
        return "";
    }
}

std::string percent(std::uint64_t part, std::uint64_t all) {
    const double percent = 100 * share(part, all);
    if (part > 0 && percent < 0.1)
        return "<0.1 %";
    if (part < all && percent > 99.9)
        return ">99.9 %";
    return decimal(percent) + " %";
}

} // namespace zelvor
