#include "training/Sentences.h"

#include "training/DocumentStatistics.h"

#include <utility>

namespace zelvor {

namespace {

/// Most are one view.
bool is_same(std::string_view one, std::string_view other) {
    return one.size() == other.size() && (one.data() == other.data() || one == other);
}

} // namespace

Sentences::Sentences(const ConversionOptions& options, SentenceFormat& format, ConversionReport& report,
                     DocumentStatistics* statistics, std::function<XmlPlace()> place)
    : m_options(options), m_rule(options.has_lexicon ? SentenceRule::TO_NEXT : SentenceRule::RUN),
      m_writes_empty(options.has_lexicon && options.format == ConversionOptions::Format::COLUMNS), m_format(format),
      m_report(report), m_statistics(statistics), m_place(std::move(place)) {}

void Sentences::begin_document(const std::string& name, ConversionSink& sink) {
    m_document = name;
    m_sink = &sink;
    m_format.clear(); // of a document that did not come to its end
    m_told.clear();
    begin_counts();
    m_depth = 0;
    m_has_begun = false;
    m_is_whole = true;
    if (m_statistics)
        m_statistics->begin_document(sink);
}

/// Of a sentence.
void Sentences::begin_counts() {
    m_tokens = m_replaced = m_lacking = m_unwritten = m_ends = 0;
    m_lacks = {};
}

void Sentences::end_document() {
    finish(m_ends);
    if (m_statistics)
        m_statistics->end_document();
}

void Sentences::give_up_document() {
    if (is_certain() && m_tokens > 0)
        count_written(1);
    if (m_statistics)
        m_statistics->give_up_document();
}

void Sentences::begin_sentence(const XmlAttributes& attributes) {
    ++m_report.sentence_elements;
    finish(m_rule == SentenceRule::RUN ? 1 : m_ends);
    m_format.begin_sentence(attributes);
    ++m_depth;
    m_has_begun = true;
}

void Sentences::end_sentence() {
    if (m_rule == SentenceRule::RUN)
        finish(1);
    else
        ++m_ends;
    m_format.end_sentence();
    --m_depth;
}

void Sentences::break_sentence() { finish(1); }

void Sentences::finish(std::uint64_t times) {
    const bool is_rejected = m_options.whole_sentences && !m_is_whole;
    if (times == 0)
        drop(ConversionReport::OUTSIDE_SENTENCE);
    else if (is_rejected)
        drop(ConversionReport::INCOMPLETE_SENTENCE);
    else if (m_tokens > 0 || m_writes_empty)
        write(times);
    if (is_rejected)
        m_report[ConversionReport::SENTENCES_INCOMPLETE] += times;
    m_format.clear();
    m_told.clear();
    begin_counts();
    m_is_whole = true;
}

void Sentences::drop(ConversionReport::Count reason) {
    m_report[reason] += m_tokens;
    if (m_statistics)
        m_statistics->drop(reason);
    for (const auto& [place, text] : m_told)
        m_sink->left_out(reason, m_document, place, text);
}

void Sentences::write(std::uint64_t times) {
    const std::uint64_t unwritten = m_unwritten;
    count_written(times);
    for (; times > 0; --times)
        m_sink->write(m_format.end(), unwritten);
}

void Sentences::count_written(std::uint64_t times) {
    m_report[ConversionReport::SENTENCES] += times;
    m_report[ConversionReport::TOKENS_WRITTEN] += times * m_tokens;
    m_report[ConversionReport::TOKENS_REPLACED] += times * m_replaced;
    for (std::size_t i = 0; i < m_lacks.size(); ++i)
        m_report.counts[i] += times * m_lacks[i];
    m_report[ConversionReport::TOKENS_LACKING] += times * m_lacking;
    if (m_statistics)
        m_statistics->write(m_tokens, m_lacking, times);
    begin_counts();
}

/// Of a token that is written.
inline void Sentences::count(const Token& token, const TokenOutcome& outcome, std::string_view text) {
    const WrittenToken written = m_format.last(token, outcome);
    m_statistics->add(written.tag, is_certain());
    if (outcome.reason || (!is_same(text, written.form) && may_be_dropped())) [[unlikely]]
        m_statistics->remember(m_tokens - 1, text, outcome.reason.value_or(DocumentStatistics::TAG));
}

void Sentences::add(const Token& token, std::string_view text) {
    if (m_sink->is_cancelled())
        throw ConversionCancelled();
    if (!is_in_sentence())
        return leave_out(m_writes_empty && token.flaw ? *token.flaw : ConversionReport::OUTSIDE_SENTENCE, text,
                         token.detail);
    const TokenOutcome outcome =
        token.is_overlong ? TokenOutcome{false, false, ConversionReport::BREAKS_LINE, {}} : m_format.add(token);
    if (!outcome.is_written) {
        m_is_whole = false;
        return leave_out(*outcome.reason, text, token.detail);
    }
    ++m_tokens;
    ++m_unwritten;
    m_replaced += outcome.is_replaced;
    if (m_statistics)
        count(token, outcome, text);
    if (m_options.verbose && may_be_dropped())
        m_told.emplace_back(m_place(), text);
    note_lacks(outcome, text, token.detail);
    if (is_certain())
        if (const std::string some = m_format.take_some(); !some.empty())
            m_sink->write(some, std::exchange(m_unwritten, 0));
}

/// What a token that is written is without; it counts when its sentence is written.
void Sentences::note_lacks(const TokenOutcome& outcome, std::string_view text, std::string_view detail) {
    if (outcome.reason) {
        ++m_lacking;
        ++m_lacks[*outcome.reason];
        tell(*outcome.reason, text, detail);
        stop_where_wanted(*outcome.reason, text);
    }
    for (const Unfit& unfit : outcome.unfit) {
        ++m_lacks[unfit.kind];
        tell(unfit.kind, text, unfit.text);
    }
}

void Sentences::tell(ConversionReport::Count reason, std::string_view text, std::string_view detail) {
    if (m_options.verbose)
        m_sink->left_out(reason, m_document, m_place(),
                         std::string(text) + (detail.empty() ? "" : " (" + std::string(detail) + ")"));
}

void Sentences::leave_out(ConversionReport::Count reason, std::string_view text, std::string_view detail) {
    ++m_report[reason];
    if (m_statistics)
        m_statistics->leave_out(reason, text);
    tell(reason, text, detail);
    stop_where_wanted(reason, text);
}

void Sentences::stop_where_wanted(ConversionReport::Count reason, std::string_view text) const {
    const bool is_malformed = reason == ConversionReport::NOT_JSON || reason == ConversionReport::OTHER_JSON;
    const bool is_bad_token =
        reason == ConversionReport::BREAKS_LINE && m_options.on_bad_token == ConversionOptions::BadToken::FAIL;
    if ((m_options.strict && is_malformed) || is_bad_token)
        throw ConversionStopped(to_string(m_place(), m_document) + ": " + label_of(reason) + ": " + std::string(text));
}

} // namespace zelvor
