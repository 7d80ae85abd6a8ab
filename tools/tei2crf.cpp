#include "tools/tei2crf.h"

#include "training/SurveyAdvice.h"
#include "training/shown_text.h"
#include "training/survey_documents.h"
#include "training/survey_text.h"
#include "training/tei_inputs.h"
#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <new>
#include <string>
#include <vector>

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

bool wants_progress(const Tei2crfOptions& options) {
    return options.quiet == 0 && isatty(STDERR_FILENO) &&
           !(OutputFile::descriptor_of(options.task.output) >= 0 && isatty(STDOUT_FILENO));
}

void show_progress(Console& console, std::size_t ended, std::size_t all, std::uint64_t tokens) {
    console.show_progress([&] {
        return "tei2crf: file " + std::to_string(std::min(ended + 1, all)) + " of " + std::to_string(all) + ", " +
               std::to_string(tokens) + " tokens";
    });
}

int convert(const Tei2crfOptions& options) {
    Console console(wants_progress(options));
    const ConversionObserver observer{
        [&](const std::string& message) { console.say("tei2crf: " + message); },
        [&](const std::string& message) { console.say(message); },
        [&](std::size_t ended, std::size_t all, std::uint64_t tokens) { show_progress(console, ended, all, tokens); }};
    const ConversionResult result = run_conversion(options.task, observer);
    console.clear();
    if (options.quiet < 2 && result.has_ended)
        std::cerr << result.report.text();
    return result.status;
}

int survey(const Tei2crfOptions& options) {
    Console console(wants_progress(options));
    const auto untold = [](const std::string&, int) {};
    const std::vector<std::string> documents =
        find_documents(options.task.inputs, options.task.hidden, untold).documents;
    if (const std::string* const document = OutputFile::first_input("", documents))
        throw WrongOutput("the output would replace an input: " + *document);
    const SurveyTask task{options.task.inputs, options.task.hidden, options.task.options.skip};
    const DocumentsSurvey found =
        survey_documents(task, {[&](const std::string& message) { console.say("tei2crf: " + message); },
                                [&](std::size_t ended, std::size_t all, std::uint64_t tokens) {
                                    show_progress(console, ended, all, tokens);
                                }});
    console.clear();
    if (found.documents == 0 && found.result.tokens == 0)
        return 1; // told
    OutputFile out("");
    out.write(survey_text(found, task));
    out.commit();
    return found.faults > 0 || ways_to_convert(found, task).empty() ? 1 : 0;
}

} // namespace

int run_tei2crf(const Tei2crfOptions& options) {
    try {
        return options.survey ? survey(options) : convert(options);
    } catch (const WrongOutput& error) {
        std::cerr << "tei2crf: " << shown_path(error.what()) << '\n';
        return 2;
    } catch (const std::bad_alloc&) {
        std::cerr << "tei2crf: out of memory\n";
        return 1;
    }
}

} // namespace zelvor
