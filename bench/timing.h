#pragma once

#include <cstdio>
#include <ctime>

/// Seconds of the processor that some work takes: other work on the machine counts less than by the clock.
template<typename Work>
double processor_seconds(Work work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

enum class Bound { AT_LEAST, AT_MOST };

/// Prints a ratio beside what is wanted of it, in the form that bench/run.sh gathers.
inline void verdict(const char* what, double ratio, Bound bound, double wanted) {
    const bool is_met = bound == Bound::AT_LEAST ? ratio >= wanted : ratio <= wanted;
    std::printf("%-64s %8.2f   wanted: at %s %g%s\n", what, ratio, bound == Bound::AT_LEAST ? "least" : "most", wanted,
                is_met ? "" : "   MISSED");
}
