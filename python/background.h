#pragma once

#include "python/bindings.h"

#include <chrono>
#include <future>
#include <stop_token>

namespace zelvor::python {

/// The result of work(cancelled), which runs in a thread of its own and must not touch Python. Meanwhile, and once
/// behind it, this thread looks for signals and calls `meanwhile`; what these raise cancels the work and is thrown when
/// it has ended.
template<typename Work, typename Meanwhile>
auto run_in_background(Work work, Meanwhile meanwhile) {
    constexpr std::chrono::milliseconds interval(50);
    std::stop_source source;
    auto result = std::async(std::launch::async, work, source.get_token());
    const auto is_ready = [&] {
        const py::gil_scoped_release unlocked;
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
        const py::gil_scoped_release unlocked;
        source.request_stop();
        result.wait();
        throw;
    }
    return result.get();
}

} // namespace zelvor::python
