#include "tools/tei2crf.h"

#include "tools/tei_inputs.h"
#include "training/ConversionReport.h"
#include "training/CrfTokenReader.h"
#include "training/TagLexicon.h"
#include "utils/common_utils/output_file.h"
#include "utils/common_utils/utf8.h"

#include <chrono>
#include <climits>
#include <iostream>
#include <memory>
#include <new>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace zelvor {

namespace {

struct WrongUsage : std::runtime_error {
    using std::runtime_error::runtime_error;
};

constexpr std::size_t MAX_SHOWN_BYTES = 200;

/// Text from outside in one line that no terminal obeys.
std::string shown(std::string_view text, std::size_t max_bytes = MAX_SHOWN_BYTES) {
    std::string line;
    for (std::size_t i = 0; i < text.size();) {
        if (line.size() >= max_bytes)
            return line + "...";
        const DecodedCharacter character = decode_character(text, i);
        const bool is_harmless = text[i] == ' ' || breaking_character(text, i) == 0;
        const bool is_valid = character.length > 1 || character.code_point < 0x80;
        line += is_harmless && is_valid ? text.substr(i, character.length) : "?";
        i += character.length;
    }
    return line;
}

std::string shown_path(const std::string& path) { return shown(path, PATH_MAX); }

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

/// What is behind an output, an open descriptor included.
bool status_of_output(const std::string& path, struct stat& status) {
    const int descriptor = OutputFile::descriptor_of(path);
    return (descriptor >= 0 ? fstat(descriptor, &status) : stat(path.c_str(), &status)) == 0;
}

bool is_same_regular(const struct stat& status1, const struct stat& status2) {
    return status1.st_dev == status2.st_dev && status1.st_ino == status2.st_ino && S_ISREG(status1.st_mode);
}

bool is_same_file(const std::string& output, const std::string& input) {
    struct stat status1 {
    }, status2{};
    const bool is_read = (input == "-" ? fstat(STDIN_FILENO, &status2) : stat(input.c_str(), &status2)) == 0;
    return is_read && status_of_output(output, status1) && is_same_regular(status1, status2);
}

bool is_same_output(const std::string& output1, const std::string& output2) {
    struct stat status1 {
    }, status2{};
    return status_of_output(output1, status1) && status_of_output(output2, status2) &&
           is_same_regular(status1, status2);
}

class Conversion {
public:
    explicit Conversion(const Tei2crfOptions& options)
        : m_options(options), m_console(options.quiet == 0 && isatty(STDERR_FILENO) &&
                                        !(OutputFile::descriptor_of(options.output) >= 0 && isatty(STDOUT_FILENO))) {}

    int run();

private:
    void convert();
    void load_lexicon();
    void find_inputs();
    void check_outputs() const;
    void read_documents();
    void note_if_nothing();
    CrfTokenReader::Listener listener();
    void fault(const std::string& where, const std::string& message);
    std::string shown_place(const CrfTokenReader::Place& place) const {
        return shown_path(to_string(place, m_document));
    }
    void show_progress();
    void give_up();
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
        m_console.say("tei2crf: " + shown_path(error.what()));
        return 2;
    } catch (const ConversionStopped& error) {
        m_console.say("tei2crf: stopped: " + shown_path(error.what()));
        give_up();
    } catch (const std::system_error& error) { // files that the run needs
        m_console.say("tei2crf: " + shown_path(error.what()));
        give_up();
    } catch (const std::bad_alloc&) {
        m_console.say("tei2crf: out of memory");
        give_up();
    }
    return finish(status);
}

void Conversion::convert() {
    find_inputs();
    check_outputs();
    if (!m_options.report.empty())
        m_report_file = std::make_unique<OutputFile>(m_options.report);
    if (m_options.strict && m_has_fault)
        throw ConversionStopped("at a folder that cannot be read");
    if (m_documents.empty())
        throw ConversionStopped("no file whose name ends in .tei or .xml");
    load_lexicon();
    m_output = std::make_unique<OutputFile>(m_options.output);
    read_documents();
    if (m_report[ConversionReport::FILES_READ] == 0 && m_report[ConversionReport::SENTENCES] == 0)
        throw ConversionStopped("nothing could be read");
    m_output->commit();
}

void Conversion::find_inputs() {
    m_documents = find_documents(m_options.inputs, m_options.hidden,
                                 [this](const std::string& folder, const std::string& message) {
                                     ++m_report[ConversionReport::FILES_FAILED];
                                     fault(shown_path(folder), message);
                                 });
}

void Conversion::check_outputs() const {
    const std::string &output = m_options.output, &report = m_options.report;
    const auto check = [&](const std::string& input) {
        if (is_same_file(output, input) || (!report.empty() && is_same_file(report, input)))
            throw WrongUsage("the output would replace an input: " + input);
    };
    check(m_options.lexicon);
    for (const std::string& document : m_documents)
        check(document);
    const int report_descriptor = OutputFile::descriptor_of(report), descriptor = OutputFile::descriptor_of(output);
    if (!report.empty() &&
        (report_descriptor >= 0 || descriptor >= 0 ? report_descriptor == descriptor || is_same_output(report, output)
                                                   : OutputFile::target_of(report) == OutputFile::target_of(output)))
        throw WrongUsage("one file for output and report: " + report);
}

void Conversion::load_lexicon() {
    bool is_first = true;
    const TagLexicon::Counts counts = m_lexicon.load(m_options.lexicon, [&](std::size_t number, std::size_t fields) {
        m_has_fault = true;
        const std::string message = m_options.lexicon + ":" + std::to_string(number) + ": " + std::to_string(fields) +
                                    " fields, at least 22 are needed";
        if (m_options.strict)
            throw ConversionStopped(message);
        if (is_first || m_options.verbose)
            m_console.say("tei2crf: " + shown_path(message));
        is_first = false;
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
        show_progress();
        if (document == "-")
            reader.read_standard_input();
        else
            reader.read_file(document);
    }
    for (const auto malformed : {ConversionReport::NOT_JSON, ConversionReport::OTHER_JSON})
        m_has_fault = m_has_fault || m_report[malformed] > 0;
    note_if_nothing();
}

/// No count tells why; mostly it is a prefix at the elements.
void Conversion::note_if_nothing() {
    if (m_options.quiet < 2 && m_report[ConversionReport::FILES_READ] > 0 && m_report[ConversionReport::SENTENCES] == 0)
        m_console.say("tei2crf: no sentence in any file; are the elements named s, w and c, without a prefix?");
}

CrfTokenReader::Listener Conversion::listener() {
    CrfTokenReader::Listener listener;
    listener.write = [this](std::string_view lines) {
        m_output->write(lines);
        show_progress();
    };
    listener.fault = [this](const CrfTokenReader::Place& place, const std::string& message) {
        fault(shown_place(place), message);
    };
    if (m_options.verbose)
        listener.left_out = [this](ConversionReport::Count reason, const CrfTokenReader::Place& place,
                                   const std::string& text) {
            m_console.say(shown_place(place) + ": " + label_of(reason) + ": " + shown(text));
        };
    return listener;
}

void Conversion::fault(const std::string& where, const std::string& message) {
    m_has_fault = true;
    m_console.say("tei2crf: " + where + ": " + shown(message));
}

void Conversion::show_progress() {
    m_console.show_progress([this] {
        return "tei2crf: file " + std::to_string(m_begun) + " of " + std::to_string(m_documents.size()) + ", " +
               std::to_string(m_report[ConversionReport::TOKENS_WRITTEN]) + " tokens";
    });
}

/// What went to a stream before the end stays; a file does not appear, and then nothing counts as written.
void Conversion::give_up() {
    try {
        if (m_output && m_output->give_up())
            return;
    } catch (const std::system_error& error) {
        m_console.say("tei2crf: " + shown_path(error.what()));
    }
    for (const auto count :
         {ConversionReport::SENTENCES, ConversionReport::TOKENS_WRITTEN, ConversionReport::TOKENS_REPLACED})
        m_report[count] = 0;
}

/// The report goes out whatever has happened.
int Conversion::finish(int status) {
    m_output.reset();
    if (m_report_file) {
        try {
            m_report_file->write(m_report.json(status));
            m_report_file->commit();
        } catch (const std::system_error& error) {
            m_console.say("tei2crf: " + shown_path(error.what()));
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
