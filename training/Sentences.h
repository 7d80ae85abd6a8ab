#pragma once

#include "training/ConversionOptions.h"
#include "training/ConversionReport.h"
#include "training/SentenceFormat.h"
#include "training/XmlReader.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelvor {

class DocumentStatistics;
struct StatisticsPart;

/// Ends a conversion before its end: at a bad token, or at a fault where none is wanted.
struct ConversionStopped : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Where the sentences of a document go, and what there is to tell of it.
class ConversionSink {
public:
    virtual ~ConversionSink() = default;
    virtual void write(std::string_view text, std::uint64_t tokens) = 0;
    /// A fault of the document itself, for which it counts as failed. Must not throw.
    virtual void fault(const std::string& document, const XmlPlace& place, const std::string& message) = 0;
    /// A token without a training line, where each is to be told.
    virtual void left_out(ConversionReport::Count reason, const std::string& document, const XmlPlace& place,
                          const std::string& text) = 0;
    /// What is to be counted of the document; only where statistics are.
    virtual void count(StatisticsPart&& part) = 0;
    /// They are about to take so many bytes, which waits while there are too many; they do no longer, unless these went
    /// with a part.
    virtual void claim(std::size_t /*bytes*/) {}
    virtual void release(std::size_t /*bytes*/) {}
    /// Whether the rest of the document is not wanted any more.
    virtual bool is_cancelled() const { return false; }
};

/// Leaves a document whose rest is not wanted.
struct ConversionCancelled {};

/// Which tokens are a sentence.
enum class SentenceRule {
    /// A run of tokens in a sentence element that no begin or end of one interrupts.
    RUN,
    /// The tokens from one begin of a sentence to the next, once for each end in between: what follows a sentence
    /// belongs to it, and one that holds another loses its own first tokens.
    TO_NEXT,
};

/// Puts tokens together into sentences and writes those that are to be written, as they end. What is left out is
/// counted by its reason, and told where that is wanted.
class Sentences {
public:
    /// All references must live as long as this, and so the statistics, which may be null.
    Sentences(const ConversionOptions& options, SentenceFormat& format, ConversionReport& report,
              DocumentStatistics* statistics, std::function<XmlPlace()> place);

    /// The sink must live as long as the document.
    void begin_document(const std::string& name, ConversionSink& sink);
    /// What has not ended by now is left out.
    void end_document();
    /// It does not come to its end: of what has not ended by now, only that counts which was certain to be written.
    void give_up_document();
    void begin_sentence(const XmlAttributes& attributes);
    void end_sentence();
    /// Counts a token that is to be added.
    void see(bool is_punctuation) {
        ++(is_punctuation ? m_report.marks : m_report.words);
        m_report.in_sentence += is_in_sentence();
    }
    /// `text` is the token as it is told. Throws ConversionStopped at one at which the options want to stop.
    void add(const Token& token, std::string_view text);
    /// The tokens in between are words of a single one.
    void begin_group(const Token& whole) { m_format.begin_group(whole); }
    void end_group() { m_format.end_group(); }
    /// Ends the run, as its sentence does; a next one begins.
    void break_sentence();

    bool is_in_sentence() const { return m_rule == SentenceRule::RUN ? m_depth > 0 : m_has_begun; }

private:
    /// Writes the sentence so many times. Where that is never, its tokens are in no sentence.
    void finish(std::uint64_t times);
    void drop(ConversionReport::Count reason);
    void write(std::uint64_t times);
    void count_written(std::uint64_t times);
    void begin_counts();
    void leave_out(ConversionReport::Count reason, std::string_view text, std::string_view detail);
    /// Whether the open sentence may still come to nothing.
    bool may_be_dropped() const { return m_ends == 0 || m_options.whole_sentences; }
    /// Whether it is written once, whatever comes.
    bool is_certain() const { return m_ends == 1 && m_depth == 0 && !m_options.whole_sentences; }
    void count(const Token& token, const TokenOutcome& outcome, std::string_view text);
    void note_lacks(const TokenOutcome& outcome, std::string_view text, std::string_view detail);
    /// Throws ConversionStopped.
    void stop_where_wanted(ConversionReport::Count reason, std::string_view text) const;
    void tell(ConversionReport::Count reason, std::string_view text, std::string_view detail);

    const ConversionOptions& m_options;
    SentenceRule m_rule;
    bool m_writes_empty; ///< sentences
    SentenceFormat& m_format;
    ConversionReport& m_report;
    DocumentStatistics* m_statistics;
    ConversionSink* m_sink = nullptr;
    std::function<XmlPlace()> m_place;

    std::string m_document;
    std::size_t m_depth = 0;                              ///< of sentences inside each other
    bool m_has_begun = false;                             ///< a sentence of this document
    std::uint64_t m_tokens = 0;                           ///< of the sentence
    std::uint64_t m_replaced = 0, m_lacking = 0;          ///< of them
    decltype(ConversionReport::counts) m_lacks{};         ///< what they lack
    std::uint64_t m_unwritten = 0;                        ///< tokens of its text that has not gone out yet
    std::uint64_t m_ends = 0;                             ///< of the sentence, where it goes on to the next
    bool m_is_whole = true;                               ///< no token of it was left out
    std::vector<std::pair<XmlPlace, std::string>> m_told; ///< its tokens, to be told in case they are left out
};

} // namespace zelvor
