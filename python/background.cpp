#include "python/background.h"

#include <stdexcept>
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
    std::exchange(runs.ending, std::stop_source()).request_stop(); // what begins later is not concerned
    const Unlocked unlocked;
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
