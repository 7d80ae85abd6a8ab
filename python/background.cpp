#include "python/background.h"

namespace zelvor::python {

/// Never destroyed: a thread may be left that looks at it.
BackgroundRuns& background_runs() {
    static auto* const runs = new BackgroundRuns();
    return *runs;
}

void end_background_runs() {
    constexpr std::chrono::seconds patience(2); // for what is not to be interrupted, such as the reading of a pipe
    BackgroundRuns& runs = background_runs();
    const Unlocked unlocked;
    runs.ender = std::this_thread::get_id();
    runs.ending.request_stop();
    const std::unique_lock none_in_use(runs.is_in_use, patience);
}

} // namespace zelvor::python
