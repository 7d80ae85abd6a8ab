#pragma once

#include "python/bindings.h"
#include "python/locks.h"

#include <chrono>
#include <future>
#include <shared_mutex>
#include <stop_token>

namespace zelvor::python {

/// What all runs in the background share.
struct BackgroundRuns {
    std::stop_source ending;           ///< of the interpreter
    std::shared_timed_mutex is_in_use; ///< each holds it
    std::atomic<std::thread::id> ender;
};
BackgroundRuns& background_runs();

/// Cancels all of them and waits a moment, so that none leaves anything behind; for the end of the interpreter.
void end_background_runs();

/// The result of work(cancelled), which runs in a thread of its own and must not touch Python. Meanwhile, and once
/// behind it, this thread looks for signals and calls `meanwhile`; what these raise cancels the work and is thrown when
/// it has ended.
template<typename Work, typename Meanwhile>
auto run_in_background(Work work, Meanwhile meanwhile) {
    constexpr std::chrono::milliseconds interval(50);
    BackgroundRuns& all = background_runs();
    std::stop_source source;
    const std::stop_callback at_end(all.ending.get_token(), [&source] { source.request_stop(); });
    auto result = std::async(std::launch::async, [&all, &work, cancelled = source.get_token()] {
        const std::shared_lock in_use(all.is_in_use);
        return work(cancelled);
    });
    const auto is_ready = [&] {
        const Unlocked unlocked;
        const bool has_ended = result.wait_for(interval) == std::future_status::ready;
        if (all.ending.stop_requested() && all.ender != std::this_thread::get_id())
            stay();
        return has_ended;
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
    return result.get();
}

} // namespace zelvor::python
