#pragma once

#include "python/bindings.h"
#include "python/locks.h"

#include <chrono>
#include <future>
#include <shared_mutex>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <system_error>
#include <utility>

namespace zelvor::python {

/// What all runs in the background share.
struct BackgroundRuns {
    std::stop_source ending;           ///< of those that have begun; with Python's lock only
    std::shared_timed_mutex is_in_use; ///< each holds it
};
BackgroundRuns& background_runs();

/// Cancels those at work and waits a moment, so that none leaves anything behind; for the end of the interpreter.
void end_background_runs();

/// For a thread whose run was cancelled at the end of the interpreter, which mostly comes at once: then there is nobody
/// left to tell. Who waits for this thread before that has it end by std::runtime_error.
[[noreturn]] void end_thread();

/// What work() returns, of a thread of its own. Throws std::runtime_error where there can be none, as Python does.
template<typename Work>
auto start_thread(Work work) {
    try {
        return std::async(std::launch::async, std::move(work));
    } catch (const std::system_error& error) {
        throw std::runtime_error(std::string("can't start new thread: ") + error.what());
    }
}

/// The result of work(cancelled), which runs in a thread of its own and must not touch Python. Meanwhile, and once
/// behind it, this thread looks for signals and calls `meanwhile`; what these raise cancels the work and is thrown when
/// it has ended. At the end of the interpreter it is cancelled, too, for which this throws std::runtime_error.
template<typename Work, typename Meanwhile>
auto run_in_background(Work work, Meanwhile meanwhile) {
    constexpr std::chrono::milliseconds interval(50);
    BackgroundRuns& all = background_runs();
    std::stop_source source;
    const std::stop_token ending = all.ending.get_token();
    const std::stop_callback at_end(ending, [&source] { source.request_stop(); });
    auto result = start_thread([&all, &work, cancelled = source.get_token()] {
        const std::shared_lock in_use(all.is_in_use);
        return work(cancelled);
    });
    const auto is_ready = [&] {
        const Unlocked unlocked;
        return result.wait_for(interval) == std::future_status::ready;
    };
    try {
        for (bool has_ended = false; !has_ended;) {
            has_ended = is_ready();
            if (PyErr_CheckSignals() != 0)
                throw py::error_already_set();
            meanwhile();
        }
    } catch (...) {
        const Unlocked unlocked;
        source.request_stop();
        result.wait();
        throw;
    }
    auto done = result.get();
    if (ending.stop_requested())
        end_thread();
    return done;
}

} // namespace zelvor::python
