#include "python/background.h"

#include <stdexcept>
#include <thread>
#include <utility>

namespace zelvor::python {

/// Never destroyed: a thread may be left that looks at it.
BackgroundRuns& background_runs() {
    static auto* const runs = new BackgroundRuns();
    return *runs;
}

void end_background_runs() {
    constexpr std::chrono::seconds patience(2); // for what is not to be interrupted, such as the reading of a pipe
    BackgroundRuns& runs = background_runs();
    const std::stop_source ending = std::exchange(runs.ending, std::stop_source()); // what begins later has another
    const Unlocked unlocked;
    std::thread([ending]() mutable { ending.request_stop(); }).detach(); // it may wait for an output that nobody reads
    const std::unique_lock none_in_use(runs.is_in_use, patience);
}

void end_thread() {
    {
        const Unlocked unlocked;
        std::this_thread::sleep_for(std::chrono::seconds(1));
    }
    throw std::runtime_error("cancelled, since the interpreter ends");
}

} // namespace zelvor::python
