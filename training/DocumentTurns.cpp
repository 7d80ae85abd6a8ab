#include "training/DocumentTurns.h"

#include "training/shown_text.h"

#include <algorithm>
#include <utility>

namespace zelvor {

namespace {

/// In bytes, of all documents but the one in turn: with what that and the run take, no more than 8 MB.
constexpr std::size_t MAX_STATISTICS = std::size_t{1792} * 1024;

constexpr std::size_t MIN_PIECE = 1024, MAX_PIECE = std::size_t{64} * 1024;

} // namespace

std::size_t KeptSteps::add(Kind kind, std::string_view text, std::uint64_t tokens) {
    const std::size_t last = m_pieces.empty() ? 0 : m_pieces.back().capacity();
    if (m_pieces.empty() || last - m_pieces.back().size() < text.size())
        m_pieces.emplace_back().reserve(std::max(text.size(), std::clamp(2 * last, MIN_PIECE, MAX_PIECE)));
    m_pieces.back() += text;
    m_steps.push_back({kind, tokens, text.size()});
    return text.size() + sizeof(Step);
}

void KeptSteps::add(StatisticsPart&& part) {
    m_parts.push_back(std::move(part));
    m_steps.push_back({Kind::PART, 0, 0});
}

void KeptSteps::deliver(DocumentOutlet& outlet, std::uint64_t& writes) {
    writes = 0;
    for (std::size_t begin = 0; !m_steps.empty(); m_steps.pop_front()) {
        const Step step = m_steps.front();
        if (step.kind == Kind::PART) {
            outlet.count(m_parts.front());
            m_parts.pop_front();
            continue;
        }
        if (begin == m_pieces.front().size() && step.size > 0) {
            m_pieces.pop_front();
            begin = 0;
        }
        const std::string_view text = std::string_view(m_pieces.front()).substr(begin, step.size);
        begin += step.size;
        if (step.kind == Kind::TEXT) {
            outlet.write(text, step.tokens);
            ++writes;
        } else if (step.kind == Kind::FAULT) {
            outlet.fault(std::string(text));
        } else {
            outlet.left_out(std::string(text));
        }
    }
    m_pieces.clear();
}

DocumentTurns::DocumentTurns(DocumentOutlet& outlet, std::size_t documents, std::size_t max_kept_bytes, Recount recount)
    : m_outlet(outlet), m_recount(std::move(recount)), m_documents(documents), m_max_kept_bytes(max_kept_bytes) {}

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
    std::uint64_t writes = 0;
    try {
        kept.steps.deliver(m_outlet, writes);
    } catch (...) {
        kept.failed_after = writes;
        throw;
    }
    m_kept_bytes -= std::exchange(kept.bytes, 0);
    m_statistics_bytes -= std::exchange(kept.statistics_bytes, 0);
}

void DocumentTurns::finish(std::size_t number, Document::Kept&& ended) {
    const std::lock_guard lock(m_mutex);
    if (m_is_stopped)
        return;
    m_ended.emplace(number, std::move(ended));
    for (auto first = m_ended.begin(); !m_is_stopped && first != m_ended.end() && first->first == m_in_turn;
         first = m_ended.begin()) {
        Document::Kept& kept = first->second;
        try {
            if (!kept.failed_after)
                deliver(kept);
        } catch (...) {
            kept.thrown = std::current_exception();
        }
        if (kept.failed_after) // it has come farther than what it said
            kept.report = m_recount(first->first, *kept.failed_after);
        m_outlet.add(kept.report, kept.survey.get());
        if (kept.thrown) {
            m_thrown = kept.thrown;
            m_is_stopped = true;
        } else {
            m_ended.erase(first);
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
        const std::lock_guard lock(m_turns.m_mutex); // nobody is about to wait who has not seen that there is room
        m_turns.m_changed.notify_all();
    }
    return m_is_in_turn;
}

bool DocumentTurns::Document::wait_for_turn() {
    std::unique_lock lock(m_turns.m_mutex);
    m_turns.m_changed.wait(lock, [this] { return m_turns.m_is_stopped || m_turns.m_in_turn == m_number; });
    return !m_turns.m_is_stopped;
}

void DocumentTurns::Document::wait_for_room(std::size_t bytes) {
    m_kept.bytes += bytes;
    if ((m_turns.m_kept_bytes += bytes) < m_turns.m_max_kept_bytes)
        return;
    std::unique_lock lock(m_turns.m_mutex);
    m_turns.m_changed.wait(lock, [this] {
        return m_turns.m_is_stopped || m_turns.m_in_turn == m_number || m_turns.m_kept_bytes < m_turns.m_max_kept_bytes;
    });
}

void DocumentTurns::Document::keep(KeptSteps::Kind kind, std::string_view text, std::uint64_t tokens) {
    wait_for_room(m_kept.steps.add(kind, text, tokens));
}

void DocumentTurns::Document::write(std::string_view text, std::uint64_t tokens) {
    if (is_in_turn())
        m_turns.m_outlet.write(text, tokens);
    else
        keep(KeptSteps::Kind::TEXT, text, tokens);
}

void DocumentTurns::Document::fault(const std::string& document, const XmlPlace& place, const std::string& message) {
    const std::string line = shown_path(to_string(place, document)) + ": " + shown(message);
    if (is_in_turn())
        m_turns.m_outlet.fault(line);
    else
        keep(KeptSteps::Kind::FAULT, line);
}

void DocumentTurns::Document::left_out(ConversionReport::Count reason, const std::string& document,
                                       const XmlPlace& place, const std::string& text) {
    const std::string line = shown_path(to_string(place, document)) + ": " + label_of(reason) + ": " + shown(text);
    if (is_in_turn())
        m_turns.m_outlet.left_out(line);
    else
        keep(KeptSteps::Kind::LEFT_OUT, line);
}

void DocumentTurns::Document::count(StatisticsPart&& part) {
    if (m_kept.failed_after) // it is counted anew
        return;
    if (is_in_turn()) {
        m_turns.m_outlet.count(part);
        return release(part.texts.bytes());
    }
    m_turns.m_statistics_bytes += sizeof part;
    m_kept.statistics_bytes += part.bytes();
    m_kept.steps.add(std::move(part));
}

void DocumentTurns::Document::claim(std::size_t bytes) {
    std::unique_lock lock(m_turns.m_mutex);
    m_turns.m_changed.wait(lock, [&] {
        return m_turns.m_is_stopped || m_turns.m_in_turn == m_number ||
               m_turns.m_statistics_bytes + bytes <= MAX_STATISTICS;
    });
    m_turns.m_statistics_bytes += bytes;
}

/// Who waits is told when the turn changes.
void DocumentTurns::Document::release(std::size_t bytes) { m_turns.m_statistics_bytes -= bytes; }

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
