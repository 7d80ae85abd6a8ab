#include "tools/tei2crf.h"

#include "tools/tei_inputs.h"
#include "training/ConversionReport.h"
#include "training/CrfTokenReader.h"
#include "training/TagLexicon.h"
#include "utils/common_utils/output_file.h"
#include "utils/common_utils/text.h"

#include <chrono>
#include <iostream>
#include <memory>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

namespace {

struct WrongUsage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

constexpr std::size_t MAX_SHOWN_BYTES = 200;

/// Text from outside in one short line that no terminal obeys.
std::string shown(const std::string& text) {
    std::string line;
    for (std::size_t i = 0; i < text.size() && line.size() < MAX_SHOWN_BYTES;) {
        const std::size_t length = breaking_character(text, i);
        line += length == 0 ? text[i] : text[i] == ' ' ? ' ' : '?';
        i += length == 0 ? 1 : length;
    }
    return line.size() < MAX_SHOWN_BYTES ? line : line + "...";
}

/// Standard error: messages, and where it is a terminal a line that tells how far the run is.
class Console {
public:
    explicit Console(bool with_progress) : m_with_progress(with_progress) {}

    void say(const std::string& message) {
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

bool is_same_file(const std::string& path1, const std::string& path2) {
    struct stat status1 {
    }, status2{};
    return stat(path1.c_str(), &status1) == 0 && stat(path2.c_str(), &status2) == 0 &&
           status1.st_dev == status2.st_dev && status1.st_ino == status2.st_ino && S_ISREG(status1.st_mode);
}

class Conversion {
public:
    explicit Conversion(const Tei2crfOptions& options)
        : m_options(options), m_console(options.quiet == 0 && isatty(STDERR_FILENO)) {}

    int run();

private:
    void convert();
    void load_lexicon();
    void find_inputs();
    void check_output(const std::string& path) const;
    void read_documents();
    void note_if_nothing();
    CrfTokenReader::Listener listener();
    void fault(const std::string& where, const std::string& message);
    std::string place(long line) const;
    int finish(int status);

    const Tei2crfOptions& m_options;
    Console m_console;
    ConversionReport m_report;
    TagLexicon m_lexicon;
    std::unique_ptr<OutputFile> m_output, m_report_file;
    std::vector<std::string> m_documents;
    std::string m_document; ///< the current one
    std::size_t m_begun = 0;
    bool m_has_fault = false;
};

int Conversion::run() {
    int status = 1;
    try {
        convert();
        status = m_has_fault ? 1 : 0;
    } catch (const WrongUsage& error) {
        m_console.say(std::string("tei2crf: ") + error.what());
        return 2;
    } catch (const ConversionStopped& error) {
        m_console.say("tei2crf: stopped: " + shown(error.what()));
    } catch (const std::system_error& error) { // files that the run needs
        m_console.say(std::string("tei2crf: ") + error.what());
    }
    return finish(status);
}

void Conversion::convert() {
    find_inputs();
    for (const std::string& path : {m_options.output, m_options.report})
        check_output(path);
    if (!m_options.report.empty())
        m_report_file = std::make_unique<OutputFile>(m_options.report);
    load_lexicon();
    m_output = std::make_unique<OutputFile>(m_options.output);
    read_documents();
    m_output->commit();
}

void Conversion::find_inputs() {
    m_documents = find_documents(m_options.inputs, m_options.hidden,
                                 [this](const std::string& folder, const std::string& message) {
                                     ++m_report[ConversionReport::FILES_FAILED];
                                     fault(folder, message);
                                 });
}

void Conversion::check_output(const std::string& path) const {
    const auto check = [&](const std::string& input) {
        if (!path.empty() && is_same_file(path, input))
            throw WrongUsage("the output would replace an input: " + path);
    };
    check(m_options.lexicon);
    for (const std::string& document : m_documents)
        check(document);
    if (!path.empty() && path == m_options.report && path == m_options.output)
        throw WrongUsage("one file for output and report: " + path);
}

void Conversion::load_lexicon() {
    const TagLexicon::Counts counts = m_lexicon.load(m_options.lexicon, [this](std::size_t number, std::size_t fields) {
        m_has_fault = true;
        const std::string message = m_options.lexicon + ":" + std::to_string(number) + ": " + std::to_string(fields) +
                                    " fields, at least 22 are needed";
        if (m_options.strict)
            throw ConversionStopped(message);
        if (m_options.verbose)
            m_console.say(shown(message));
    });
    m_report[ConversionReport::LEXICON_LINES] = counts.lines;
    m_report[ConversionReport::LEXICON_COMMENTS] = counts.comments;
    m_report[ConversionReport::LEXICON_SHORT] = counts.short_lines;
    m_report[ConversionReport::LEXICON_DUPLICATES] = counts.duplicates;
}

void Conversion::read_documents() {
    CrfTokenReader reader(m_lexicon, m_options.format, m_report, listener());
    reader.set_strict(m_options.strict);
    for (const std::string& document : m_documents) {
        m_document = document == "-" ? "standard input" : document;
        ++m_begun;
        if (document == "-")
            reader.read_standard_input();
        else
            reader.read_file(document);
        if (m_options.strict && m_has_fault)
            throw ConversionStopped("at the fault of " + m_document);
    }
    for (const auto malformed : {ConversionReport::NOT_JSON, ConversionReport::OTHER_JSON})
        m_has_fault = m_has_fault || m_report[malformed] > 0;
    note_if_nothing();
}

/// No count tells why; mostly it is a prefix at the elements.
void Conversion::note_if_nothing() {
    if (m_options.quiet >= 2)
        return;
    if (m_documents.empty())
        m_console.say("tei2crf: no file whose name ends in .tei or .xml");
    else if (m_report[ConversionReport::FILES_READ] > 0 && m_report[ConversionReport::SENTENCES] == 0)
        m_console.say("tei2crf: no sentence in any file; are the elements named s, w and c, without a prefix?");
}

CrfTokenReader::Listener Conversion::listener() {
    CrfTokenReader::Listener listener;
    listener.write = [this](std::string_view lines) {
        m_output->write(lines);
        m_console.show_progress([this] {
            return "tei2crf: file " + std::to_string(m_begun) + " of " + std::to_string(m_documents.size()) + ", " +
                   std::to_string(m_report[ConversionReport::TOKENS_WRITTEN]) + " tokens";
        });
    };
    listener.fault = [this](long line, const std::string& message) { fault(place(line), message); };
    if (m_options.verbose)
        listener.left_out = [this](ConversionReport::Count reason, long line, const std::string& text) {
            m_console.say(shown(place(line)) + ": " + label_of(reason) + ": " + shown(text));
        };
    return listener;
}

std::string Conversion::place(long line) const {
    return line > 0 ? m_document + ":" + std::to_string(line) : m_document;
}

void Conversion::fault(const std::string& where, const std::string& message) {
    m_has_fault = true;
    m_console.say("tei2crf: " + shown(where) + ": " + shown(message));
}

/// The report goes out whatever has happened.
int Conversion::finish(int status) {
    m_output.reset();
    if (m_report_file) {
        try {
            m_report_file->write(m_report.json(status));
            m_report_file->commit();
        } catch (const std::system_error& error) {
            m_console.say(std::string("tei2crf: ") + error.what());
            status = 1;
        }
    }
    m_console.clear();
    if (m_options.quiet < 2)
        std::cerr << m_report.text();
    return status;
}

} // namespace

int run_tei2crf(const Tei2crfOptions& options) { return Conversion(options).run(); }

} // namespace zelvor
