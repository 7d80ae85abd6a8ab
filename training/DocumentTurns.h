#pragma once

#include "training/ConversionReport.h"
#include "training/ConversionStatistics.h"
#include "training/Sentences.h"
#include "training/Survey.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
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

/// What a document has to say before its turn, step by step; pieces of memory that need not be moved as they grow.
class KeptSteps {
public:
    enum class Kind : std::uint8_t { TEXT, FAULT, LEFT_OUT, PART };

    /// The bytes that it takes.
    std::size_t add(Kind kind, std::string_view text, std::uint64_t tokens);
    void add(StatisticsPart&& part);

    /// Hands all of it over and forgets it. When a call of write() throws, `writes` is how many did not.
    void deliver(DocumentOutlet& outlet, std::uint64_t& writes);

private:
    struct Step {
        Kind kind;
        std::uint64_t tokens;
        std::size_t size;
    };

    std::deque<Step> m_steps;
    std::deque<std::string> m_pieces; ///< the texts of the steps; none is cut between two
    std::deque<StatisticsPart> m_parts;
};

/// Lets several threads convert documents as if one did it, in their order: a document that is the next in turn writes
/// through, others keep what they have until it is their turn. How much all of them keep is bounded.
class DocumentTurns {
public:
    /// What the report of a document is where its output fails after so many calls of write(); also counts what the
    /// document counts from then on.
    using Recount = std::function<ConversionReport(std::size_t number, std::uint64_t writes)>;

    /// The outlet must live as long as this.
    DocumentTurns(DocumentOutlet& outlet, std::size_t documents, std::size_t max_kept_bytes, Recount recount);

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
        void claim(std::size_t bytes) override;
        void release(std::size_t bytes) override;
        bool is_cancelled() const override { return m_turns.m_is_stopped; }

        /// For what can be read but once, and may have to be waited for: false after a stop.
        bool wait_for_turn();

        /// The document has ended, by itself or by what it threw, which stops all others behind it.
        void end(const ConversionReport& report, std::unique_ptr<Survey> survey, std::exception_ptr thrown);

    private:
        friend class DocumentTurns;

        bool is_in_turn();
        void keep(KeptSteps::Kind kind, std::string_view text, std::uint64_t tokens = 0);
        void wait_for_room(std::size_t bytes);

        DocumentTurns& m_turns;
        std::size_t m_number;
        bool m_is_in_turn = false;
        struct Kept {
            KeptSteps steps;
            std::optional<std::uint64_t> failed_after; ///< so many calls of write(), when they were delivered
            ConversionReport report;
            std::unique_ptr<Survey> survey;
            std::exception_ptr thrown;
            std::size_t bytes = 0, statistics_bytes = 0; ///< the latter claimed
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
    Recount m_recount;
    std::size_t m_documents, m_max_kept_bytes;
    std::mutex m_mutex;
    std::condition_variable m_changed; ///< another document is in turn, or the run stopped
    std::size_t m_next = 0;            ///< to be taken
    std::atomic<std::size_t> m_in_turn = 0;
    std::atomic<std::size_t> m_kept_bytes = 0;
    std::atomic<std::size_t> m_statistics_bytes = 0; ///< claimed by documents, and kept
    std::map<std::size_t, Document::Kept> m_ended;   ///< before their turn
    std::atomic<bool> m_is_stopped = false;
    std::exception_ptr m_thrown;
};

} // namespace zelvor
