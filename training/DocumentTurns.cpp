#include "training/DocumentTurns.h"

#include "training/shown_text.h"

#include <algorithm>
#include <utility>

namespace zelvor {

namespace {

/// Of all documents, when all that may be kept is kept.
constexpr std::size_t MAX_KEPT_STATISTICS = std::size_t{512} * 1024;

} // namespace

DocumentTurns::DocumentTurns(DocumentOutlet& outlet, std::size_t documents, std::size_t max_kept_bytes)
    : m_outlet(outlet), m_documents(documents), m_max_kept_bytes(max_kept_bytes) {}

std::optional<std::size_t> DocumentTurns::take() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] {
        return m_is_stopped || m_next == m_documents || m_next == m_in_turn || m_kept_bytes < m_max_kept_bytes;
    });
    if (m_is_stopped || m_next == m_documents)
        return std::nullopt;
    return m_next++;
}

void DocumentTurns::deliver(Document::Kept& kept) {
    for (const auto& [is_token, message] : kept.messages)
        is_token ? m_outlet.left_out(message) : m_outlet.fault(message);
    kept.messages.clear();
    for (const StatisticsPart& part : kept.parts)
        m_outlet.count(part);
    kept.parts.clear();
    m_kept_bytes -= std::exchange(kept.bytes, 0);
    if (const std::string text = std::exchange(kept.text, {}); !text.empty())
        m_outlet.write(text, std::exchange(kept.tokens, 0));
}

void DocumentTurns::finish(std::size_t number, Document::Kept&& ended) {
    const std::lock_guard lock(m_mutex);
    if (m_is_stopped)
        return;
    m_ended.emplace(number, std::move(ended));
    for (auto first = m_ended.begin(); !m_is_stopped && first != m_ended.end() && first->first == m_in_turn;
         first = m_ended.begin()) {
        Document::Kept kept = std::move(first->second);
        m_ended.erase(first);
        try {
            deliver(kept);
        } catch (...) {
            kept.thrown = std::current_exception();
        }
        m_outlet.add(kept.report, kept.survey.get());
        if (kept.thrown) {
            m_thrown = kept.thrown;
            m_is_stopped = true;
        } else {
            ++m_in_turn; // from here on, another thread may write
        }
    }
    m_changed.notify_all();
}

void DocumentTurns::stop(std::exception_ptr reason) {
    const std::lock_guard lock(m_mutex);
    if (!m_is_stopped)
        m_thrown = std::move(reason);
    m_is_stopped = true;
    m_changed.notify_all();
}

void DocumentTurns::rethrow() const {
    if (m_thrown)
        std::rethrow_exception(m_thrown);
}

bool DocumentTurns::Document::is_in_turn() {
    if (!m_is_in_turn && m_turns.m_in_turn == m_number) {
        m_is_in_turn = true;
        m_turns.deliver(m_kept);
    }
    return m_is_in_turn;
}

/// Waits for the turn where enough is kept.
void DocumentTurns::Document::keep(std::size_t bytes) {
    m_kept.bytes += bytes;
    if ((m_turns.m_kept_bytes += bytes) < m_turns.m_max_kept_bytes)
        return;
    {
        std::unique_lock lock(m_turns.m_mutex);
        m_turns.m_changed.wait(lock, [this] { return m_turns.m_is_stopped || m_turns.m_in_turn == m_number; });
    }
    if (!m_turns.m_is_stopped)
        is_in_turn();
}

void DocumentTurns::Document::write(std::string_view text, std::uint64_t tokens) {
    if (is_in_turn())
        return m_turns.m_outlet.write(text, tokens);
    m_kept.text += text;
    m_kept.tokens += tokens;
    keep(text.size());
}

void DocumentTurns::Document::fault(const std::string& document, const XmlPlace& place, const std::string& message) {
    std::string line = shown_path(to_string(place, document)) + ": " + shown(message);
    if (is_in_turn())
        return m_turns.m_outlet.fault(line);
    m_kept.messages.emplace_back(false, std::move(line));
    keep(m_kept.messages.back().second.size() + sizeof m_kept.messages.back());
}

void DocumentTurns::Document::left_out(ConversionReport::Count reason, const std::string& document,
                                       const XmlPlace& place, const std::string& text) {
    std::string line = shown_path(to_string(place, document)) + ": " + label_of(reason) + ": " + shown(text);
    if (is_in_turn())
        return m_turns.m_outlet.left_out(line);
    m_kept.messages.emplace_back(true, std::move(line));
    keep(m_kept.messages.back().second.size() + sizeof m_kept.messages.back());
}

void DocumentTurns::Document::count(StatisticsPart&& part) {
    if (is_in_turn())
        return m_turns.m_outlet.count(part);
    const std::size_t bytes = part.bytes();
    m_kept.parts.push_back(std::move(part));
    keep(bytes * std::max<std::size_t>(m_turns.m_max_kept_bytes / MAX_KEPT_STATISTICS, 1));
}

void DocumentTurns::Document::end(const ConversionReport& report, std::unique_ptr<Survey> survey,
                                  std::exception_ptr thrown) {
    m_kept.report = report;
    m_kept.survey = std::move(survey);
    m_kept.thrown = std::move(thrown);
    const std::size_t bytes = sizeof m_kept + (m_kept.survey ? m_kept.survey->bytes() : 0);
    m_kept.bytes += bytes;
    m_turns.m_kept_bytes += bytes;
    m_turns.finish(m_number, std::move(m_kept));
}

} // namespace zelvor
