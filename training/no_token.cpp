#include "training/no_token.h"

#include "training/ColumnLines.h"
#include "training/SurveyAdvice.h"
#include "training/shown_text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zelvor {

namespace {

/// "w, pc or c"
std::string alternatives(const ConversionOptions::Names& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 < names.size() ? ", " : " or ") + shown(names[i]);
    return text;
}

constexpr std::uint64_t LONG_SENTENCE = 100; // tokens

/// What else a reason calls for than a look at the files.
struct Remedy {
    ConversionReport::Count reason;
    std::string_view before_option, option, text;
};

/// "1 token", "12 tokens"
std::string tokens_text(std::uint64_t count) { return shown_count(count) + (count == 1 ? " token" : " tokens"); }

constexpr Remedy REMEDIES[] = {
    {ConversionReport::NO_ANALYSIS, "", "", "is it the lexicon of these files?"},
    {ConversionReport::NOT_JSON, "without ", "lexicon", " tags are read from attributes"},
    {ConversionReport::OTHER_JSON, "without ", "lexicon", " tags are read from attributes"},
    {ConversionReport::UNKNOWN_ID, "", "", "is it the lexicon of these files?"},
    {ConversionReport::OUTSIDE_SENTENCE, "", "", "their sentence does not come to its end"},
    {ConversionReport::MAPPED_AWAY, "", "map", " leaves their tags out"},
    {ConversionReport::INCOMPLETE_SENTENCE, "", "whole-sentences", " leaves them out for others in their sentences"},
};

class Explanation {
public:
    Explanation(const ConversionOptions& options, const ConversionReport& report, const Survey& survey)
        : m_options(options), m_report(report), m_is_partial(survey.tokens() >= Survey::TOKENS_OF_HINT),
          m_tokens(survey.tokens()), m_result(survey.result()), m_advice(advise(m_result)) {}

    std::string text() const;

private:
    std::string seen() const;
    std::string without_elements() const;
    std::string without_analyses(bool have_others) const;
    std::string without_sentences() const;
    std::string by_reasons() const;
    std::string remedy(ConversionReport::Count reason) const;
    std::string option(const std::string& name) const;
    std::string extent() const;
    std::string spelt(std::string_view option) const { return m_options.spelt(option); }

    const ConversionOptions& m_options;
    const ConversionReport& m_report;
    bool m_is_partial;
    std::uint64_t m_tokens;
    SurveyResult m_result;
    SurveyAdvice m_advice;
};

std::string Explanation::text() const {
    const std::uint64_t malformed = m_report[ConversionReport::NOT_JSON] + m_report[ConversionReport::OTHER_JSON];
    const std::uint64_t absent = m_report[ConversionReport::NO_ANALYSIS];
    if (m_report.words + m_report.marks == 0)
        return without_elements();
    if (m_options.has_lexicon && m_report.words > 0 && (malformed + absent) * 2 > m_report.words)
        return without_analyses(malformed > 0);
    if (m_report.in_sentence == 0)
        return without_sentences();
    return by_reasons();
}

std::string Explanation::seen() const {
    std::string text;
    if (m_report.words > 0)
        text = shown_count(m_report.words) + " " + alternatives(m_options.word);
    if (m_report.marks > 0)
        text += (text.empty() ? "" : " and ") + shown_count(m_report.marks) + " " +
                alternatives(m_options.punctuation_elements());
    return text;
}

std::string Explanation::without_elements() const {
    ConversionOptions::Names names = m_options.word;
    std::ranges::copy(m_options.punctuation_elements(), std::back_inserter(names));
    std::string text = "no " + alternatives(names);
    std::string others;
    for (const std::string& word : m_advice.word)
        others += (others.empty() ? "" : ",") + word;
    if (others.empty() &&
        std::ranges::any_of(m_result.token_elements, [](const auto& found) { return found.name == "w"; }))
        others = "w"; // no option for the survey, but here
    if (!others.empty())
        return text + "; try " + shell_word(spelt("word") + "=" + others) + " (" + tokens_text(m_tokens) +
               (m_is_partial ? " and more" : "") + ")";
    return text + ", nor any other element that looks like a token";
}

std::string Explanation::without_analyses(bool have_others) const {
    const std::uint64_t words = m_report[ConversionReport::NOT_JSON] + m_report[ConversionReport::OTHER_JSON] +
                                m_report[ConversionReport::NO_ANALYSIS];
    return shown_count(words) + " " + alternatives(m_options.word) +
           (have_others ? " whose lemma is no JSON of a lexicon" : " without an analysis in lemma") + ": without " +
           spelt("lexicon") + " tags are read from attributes";
}

std::string Explanation::without_sentences() const {
    const std::string names = alternatives(m_options.sentence);
    const bool is_one = m_report[ConversionReport::FILES_READ] + m_report[ConversionReport::FILES_FAILED] == 1;
    std::string text = seen() + ", none in a sentence: ";
    if (m_report.sentence_elements > 0)
        text += shown_count(m_report.sentence_elements) + " " + names + ", but no token in them";
    else
        text += (is_one ? "the file has no " : "the files have no ") + names;
    const SurveyResult::EnclosingElement* const sentence = m_advice.sentence;
    if (!sentence)
        return text;
    text += "; try " + shell_word(spelt("sentence") + "=" + sentence->name);
    if (!m_advice.break_marks.empty() && !m_options.has_lexicon && sentence->median > LONG_SENTENCE)
        text += " " + shell_word(spelt("break") + "=" + m_advice.break_marks);
    return text + " (" + shown_count(sentence->elements) +
           (sentence->elements == 1 ? " of them holds " : " of them hold ") +
           alternatives(m_report.words > 0 ? m_options.word : m_options.punctuation_elements()) + extent() + ")";
}

/// What a hint is about, where that is not all.
std::string Explanation::extent() const {
    return m_is_partial ? " among the first " + shown_count(m_tokens) + " tokens" : "";
}

std::string Explanation::by_reasons() const {
    std::string text = seen() + ", none of them written: ";
    const std::vector<ConversionReport::Count> reasons = m_report.reasons();
    for (std::size_t i = 0; i < reasons.size(); ++i)
        text += (i > 0 ? ", " : "") + shown_count(m_report[reasons[i]]) + " " + label_of(reasons[i]);
    return reasons.empty() ? text : text + "; " + remedy(reasons.front());
}

std::string Explanation::remedy(ConversionReport::Count reason) const {
    const std::string survey = spelt("survey") + " tells what there is";
    if (reason == ConversionReport::BREAKS_LINE && m_options.format == ConversionOptions::Format::TOKENS)
        return "each is longer than 1 MiB";
    if (reason == ConversionReport::BREAKS_LINE)
        return m_options.on_bad_token == ConversionOptions::BadToken::REPLACE
                   ? "their lines are longer than trainers read"
                   : spelt("on-bad-token") + "=replace writes them with _";
    const auto* const found = std::ranges::find(REMEDIES, reason, &Remedy::reason);
    if (found != std::end(REMEDIES))
        return std::string(found->before_option) + (found->option.empty() ? "" : spelt(found->option)) +
               std::string(found->text);
    if (m_options.has_lexicon) // of punctuation
        return "of punctuation, only , . ( ) [ ] \" ' have a tag";
    const Column& column = tag_column(m_options);
    const std::string name = reason == ConversionReport::NO_FORM ? "form" : column.name;
    if (reason != ConversionReport::NO_FORM && column.kind == Column::Kind::OTHER)
        return "the last column is the tag; " + survey;
    const std::string value = option(name);
    return (value.empty() ? spelt(name) + "=... says where they are" : "try " + value) + "; " + survey;
}

/// As the survey would have it.
std::string Explanation::option(const std::string& name) const {
    const std::string begin = "--" + name;
    for (const std::string& option : m_advice.options())
        if (option.starts_with(begin + "="))
            return shell_word(spelt(name) + option.substr(begin.size()));
    return "";
}

} // namespace

std::string why_no_token(const ConversionOptions& options, const ConversionReport& report, const Survey& survey) {
    return Explanation(options, report, survey).text();
}

} // namespace zelvor
