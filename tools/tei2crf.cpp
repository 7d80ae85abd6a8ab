#include "tools/tei2crf.h"

#include "training/shown_text.h"
#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <chrono>
#include <iostream>

#include <unistd.h>

namespace zelvor {

namespace {

/// Standard error: messages, and where it is a terminal a line that tells how far the run is.
class Console {
public:
    explicit Console(bool with_progress) : m_with_progress(with_progress) {}

    void say(std::string_view message) {
        clear();
        std::cerr << message << '\n';
    }

    template<typename Text>
    void show_progress(Text text) {
        if (!m_with_progress || Clock::now() < m_next)
            return;
        m_next = Clock::now() + std::chrono::milliseconds(200);
        std::cerr << "\r" << text() << "\x1b[K" << std::flush;
        m_is_shown = true;
    }

    void clear() {
        if (m_is_shown)
            std::cerr << "\r\x1b[K" << std::flush;
        m_is_shown = false;
    }

private:
    using Clock = std::chrono::steady_clock;

    bool m_with_progress;
    bool m_is_shown = false;
    Clock::time_point m_next = Clock::now() + std::chrono::milliseconds(500);
};

} // namespace

int run_tei2crf(const Tei2crfOptions& options) {
    const std::string& output = options.task.output;
    Console console(options.quiet == 0 && isatty(STDERR_FILENO) &&
                    !(OutputFile::descriptor_of(output) >= 0 && isatty(STDOUT_FILENO)));
    const ConversionObserver observer{[&](const std::string& message) { console.say("tei2crf: " + message); },
                                      [&](const std::string& message) { console.say(message); },
                                      [&](std::size_t ended, std::size_t all, std::uint64_t tokens) {
                                          console.show_progress([&] {
                                              return "tei2crf: file " + std::to_string(std::min(ended + 1, all)) +
                                                     " of " + std::to_string(all) + ", " + std::to_string(tokens) +
                                                     " tokens";
                                          });
                                      }};
    try {
        const ConversionResult result = run_conversion(options.task, observer);
        console.clear();
        if (options.quiet < 2 && result.has_ended)
            std::cerr << result.report.text();
        return result.status;
    } catch (const WrongOutput& error) {
        console.say("tei2crf: " + shown_path(error.what()));
        return 2;
    }
}

} // namespace zelvor
