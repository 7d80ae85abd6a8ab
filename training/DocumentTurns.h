#pragma once

#include "training/ConversionReport.h"
#include "training/ConversionStatistics.h"
#include "training/Sentences.h"
#include "training/Survey.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelvor {

/// Where documents go one after the other. Only one thread calls it at a time.
class DocumentOutlet {
public:
    virtual ~DocumentOutlet() = default;
    virtual void write(std::string_view text, std::uint64_t tokens) = 0;
    virtual void fault(const std::string& message) = 0;
    virtual void left_out(const std::string& message) = 0;
    virtual void count(const StatisticsPart& part) = 0;
    /// Of a document that has ended. The survey may be null.
    virtual void add(const ConversionReport& report, const Survey* survey) = 0;
};

/// Lets several threads convert documents as if one did it, in their order: a document that is the next in turn writes
/// through, others keep what they have until it is their turn. How much all of them keep is bounded.
class DocumentTurns {
public:
    /// The outlet must live as long as this.
    DocumentTurns(DocumentOutlet& outlet, std::size_t documents, std::size_t max_kept_bytes);

    /// The number of the next document, from 0; none when there is no more, or after a stop. Waits while too much is
    /// kept.
    std::optional<std::size_t> take();

    /// What one document writes, from its begin to its end; made and used in one thread.
    class Document : public ConversionSink {
    public:
        Document(DocumentTurns& turns, std::size_t number) : m_turns(turns), m_number(number) {}

        void write(std::string_view text, std::uint64_t tokens) override;
        void fault(const std::string& document, const XmlPlace& place, const std::string& message) override;
        void left_out(ConversionReport::Count reason, const std::string& document, const XmlPlace& place,
                      const std::string& text) override;
        void count(StatisticsPart&& part) override;
        bool is_cancelled() const override { return m_turns.m_is_stopped; }

        /// The document has ended, by itself or by what it threw, which stops all others behind it.
        void end(const ConversionReport& report, std::unique_ptr<Survey> survey, std::exception_ptr thrown);

    private:
        friend class DocumentTurns;

        bool is_in_turn();
        void keep(std::size_t bytes);
        void deliver();

        DocumentTurns& m_turns;
        std::size_t m_number;
        bool m_is_in_turn = false;
        struct Kept {
            std::string text;
            std::uint64_t tokens = 0;
            std::vector<std::pair<bool, std::string>> messages; ///< of tokens left out, or of faults
            std::vector<StatisticsPart> parts;
            ConversionReport report;
            std::unique_ptr<Survey> survey;
            std::exception_ptr thrown;
            std::size_t bytes = 0;
        } m_kept;
    };

    /// Stops the run, from any thread.
    void stop(std::exception_ptr reason);

    /// To be called after the last document: throws what stopped the run.
    void rethrow() const;

private:
    void deliver(Document::Kept& kept);
    void finish(std::size_t number, Document::Kept&& kept);

    DocumentOutlet& m_outlet;
    std::size_t m_documents, m_max_kept_bytes;
    std::mutex m_mutex;
    std::condition_variable m_changed; ///< another document is in turn, or the run stopped
    std::size_t m_next = 0;            ///< to be taken
    std::atomic<std::size_t> m_in_turn = 0;
    std::atomic<std::size_t> m_kept_bytes = 0;
    std::map<std::size_t, Document::Kept> m_ended; ///< before their turn
    std::atomic<bool> m_is_stopped = false;
    std::exception_ptr m_thrown;
};

} // namespace zelvor
