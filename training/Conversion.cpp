#include "training/Conversion.h"

#include "training/ColumnLines.h"
#include "training/ConversionStatistics.h"
#include "training/DocumentConverter.h"
#include "training/DocumentTurns.h"
#include "training/TagLexicon.h"
#include "training/TagMap.h"
#include "training/no_token.h"
#include "training/report_json.h"
#include "training/report_page.h"
#include "training/shown_text.h"
#include "training/tei_inputs.h"
#include "utils/common_utils/files.h"
#include "utils/common_utils/output_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <stop_token>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace zelvor {

namespace {

/// By documents that wait for their turn, a job.
constexpr std::size_t MAX_KEPT_BYTES = std::size_t{8} * 1024 * 1024;

/// By the end of its name, in whatever case.
bool is_page(std::string_view path) {
    constexpr std::string_view end = ".html";
    const auto is_equal = [](char c, char lower) { return c == lower || (c >= 'A' && c <= 'Z' && c + ' ' == lower); };
    return path.size() >= end.size() && std::ranges::equal(path.substr(path.size() - end.size()), end, is_equal);
}

class Conversion : public DocumentOutlet {
public:
    Conversion(const ConversionTask& task, const ConversionObserver& observer)
        : m_task(task), m_observer(observer), m_survey(task.options.skip) {}

    ConversionResult run();

    void write(std::string_view text, std::uint64_t tokens) override;
    void fault(const std::string& message) override;
    void left_out(const std::string& message) override { m_observer.leave_out(message); }
    void count(const StatisticsPart& part) override { m_statistics.add(part, number()); }
    void add(const ConversionReport& report, const Survey* survey) override;

private:
    void convert();
    void find_inputs();
    void check_outputs() const;
    void load_tables();
    void load_lexicon();
    void read_documents();
    void convert_documents(DocumentTurns& turns, const DocumentConverter::Tables& tables);
    ConversionReport recount(std::size_t number, std::uint64_t writes, const DocumentConverter::Tables& tables);
    void check_that_something_came();
    void check_that_it_is_wanted() const;
    std::uint32_t number() const { return static_cast<std::uint32_t>(m_ended); } ///< of the document in turn
    void complain(const std::string& message) { m_observer.complain(message); }
    void end(const std::string& message);
    void write_report();

    const ConversionTask& m_task;
    const ConversionObserver& m_observer;
    ConversionReport m_report;
    ConversionStatistics m_statistics; ///< where there is a report file
    Survey m_survey;                   ///< of the first documents, as long as no token is written
    TagLexicon m_lexicon;
    TagMap m_map;
    std::unique_ptr<OutputFile> m_output, m_report_file;
    std::vector<std::string> m_documents;
    std::size_t m_ended = 0; ///< of them
    std::uint64_t m_tokens = 0;
    bool m_has_fault = false;
    bool m_is_header_due = false;
    std::exception_ptr m_why_stopped;
};

ConversionResult Conversion::run() {
    try {
        convert();
    } catch (const WrongOutput&) {
        throw;
    } catch (const ConversionStopped& error) {
        end("stopped: " + shown_path(error.what()));
    } catch (const std::system_error& error) { // files that the run needs
        end(shown_path(error.what()));
    } catch (const std::invalid_argument& error) { // what is in them
        end(shown_path(error.what()));
    } catch (const std::bad_alloc&) {
        end("out of memory");
    }
    m_output.reset();
    write_report();
    return {m_has_fault ? 1 : 0, m_report, m_why_stopped == nullptr, m_why_stopped};
}

void Conversion::convert() {
    find_inputs();
    check_outputs();
    if (!m_task.report.empty())
        m_report_file = std::make_unique<OutputFile>(m_task.report);
    if (m_task.options.strict && m_has_fault)
        throw ConversionStopped("at a folder that cannot be read");
    if (m_documents.empty())
        throw ConversionStopped("no file whose name ends in .tei or .xml" +
                                told_passed_over(m_report[ConversionReport::FILES_PASSED_OVER]));
    load_tables();
    check_that_it_is_wanted();
    m_output = std::make_unique<OutputFile>(m_task.output);
    m_is_header_due = m_task.options.header;
    read_documents();
    check_that_it_is_wanted();
    check_that_something_came();
    m_output->commit();
}

void Conversion::find_inputs() {
    TeiInputs inputs = find_documents(m_task.inputs, m_task.hidden, [this](const std::string& folder, int error) {
        ++m_report[ConversionReport::FILES_FAILED];
        fault(shown_path(folder) + ": " + std::strerror(error));
    });
    m_documents = std::move(inputs.documents);
    m_report[ConversionReport::FILES_PASSED_OVER] = inputs.passed_over;
}

void Conversion::check_outputs() const {
    const auto check = [&](const std::string& output) {
        const std::string tables[] = {m_task.lexicon, m_task.map};
        for (const std::span<const std::string> inputs : {std::span<const std::string>(tables), {m_documents}})
            if (const std::string* const input = OutputFile::first_input(output, inputs))
                throw WrongOutput("the output would replace an input: " + *input);
    };
    check(m_task.output);
    if (!m_task.report.empty())
        check(m_task.report);
    if (!m_task.report.empty() && OutputFile::is_one(m_task.report, m_task.output))
        throw WrongOutput("one file for output and report: " + m_task.report);
}

void Conversion::load_tables() {
    if (!m_task.map.empty())
        m_map.load(m_task.map, m_task.options.nfc);
    if (!m_task.lexicon.empty())
        load_lexicon();
}

void Conversion::load_lexicon() {
    bool is_first = true;
    const TagLexicon::Counts counts =
        m_lexicon.load(m_task.lexicon, m_task.options.nfc, [&](std::size_t number, std::size_t fields) {
            m_has_fault = true;
            const std::string message = m_task.lexicon + ":" + std::to_string(number) + ": " + std::to_string(fields) +
                                        " fields, at least 22 are needed";
            if (m_task.options.strict)
                throw ConversionStopped(message);
            if (is_first || m_task.options.verbose)
                complain(shown_path(message));
            is_first = false;
        });
    if (counts.has_mark)
        complain(shown_path(m_task.lexicon) + ": begins with a byte order mark, which is passed over");
    counts.report(m_report);
}

void Conversion::read_documents() {
    const std::size_t jobs = std::clamp<std::size_t>(m_task.jobs, 1, m_documents.size());
    const DocumentConverter::Tables tables{m_task.lexicon.empty() ? nullptr : &m_lexicon,
                                           m_task.map.empty() ? nullptr : &m_map, jobs, !m_task.report.empty()};
    DocumentTurns turns(*this, m_documents.size(), jobs * MAX_KEPT_BYTES,
                        [&](std::size_t number, std::uint64_t writes) { return recount(number, writes, tables); });
    const std::stop_callback on_cancelled(m_observer.cancelled, [&turns] { turns.stop(nullptr); });
    {
        std::vector<std::jthread> threads;
        try {
            for (std::size_t job = 1; job < jobs; ++job)
                threads.emplace_back([&] { convert_documents(turns, tables); });
        } catch (const std::system_error&) { // no more threads than these
        }
        convert_documents(turns, tables);
    }
    turns.rethrow();
}

/// Of a document whose output fails after so many calls. What it counts before has been counted.
ConversionReport Conversion::recount(std::size_t number, std::uint64_t writes,
                                     const DocumentConverter::Tables& tables) {
    class FailingSink : public ConversionSink {
    public:
        FailingSink(std::uint64_t writes, DocumentOutlet& outlet) : m_left(writes), m_outlet(outlet) {}
        void write(std::string_view /*text*/, std::uint64_t /*tokens*/) override {
            m_has_failed = m_has_failed || m_left-- == 0;
            if (m_has_failed)
                throw std::system_error(EIO, std::generic_category());
        }
        void fault(const std::string&, const XmlPlace&, const std::string&) override {}
        void left_out(ConversionReport::Count, const std::string&, const XmlPlace&, const std::string&) override {}
        void count(StatisticsPart&& part) override {
            if (m_has_failed)
                m_outlet.count(part);
        }

    private:
        std::uint64_t m_left;
        DocumentOutlet& m_outlet;
        bool m_has_failed = false;
    } sink(writes, *this);
    DocumentConverter converter(m_task.options, tables);
    try {
        converter.convert(m_documents[number], number + 1, sink);
    } catch (const std::exception&) { // as meant
    }
    return converter.report();
}

/// What one job does.
void Conversion::convert_documents(DocumentTurns& turns, const DocumentConverter::Tables& tables) {
    try {
        DocumentConverter converter(m_task.options, tables);
        while (const std::optional<std::size_t> number = turns.take()) {
            DocumentTurns::Document document(turns, *number);
            std::exception_ptr thrown;
            try {
                if (!is_regular_file(m_documents[*number]) && !document.wait_for_turn())
                    return;
                converter.convert(m_documents[*number], *number + 1, document);
            } catch (...) {
                thrown = std::current_exception();
            }
            document.end(converter.report(), converter.take_survey(), thrown);
        }
    } catch (...) {
        turns.stop(std::current_exception());
    }
}

void Conversion::check_that_it_is_wanted() const {
    if (m_observer.cancelled.stop_requested())
        throw ConversionStopped("cancelled");
}

void Conversion::check_that_something_came() {
    for (const auto malformed : {ConversionReport::NOT_JSON, ConversionReport::OTHER_JSON})
        m_has_fault = m_has_fault || m_report[malformed] > 0;
    if (m_report[ConversionReport::FILES_READ] == 0 && m_report[ConversionReport::SENTENCES] == 0 &&
        m_report.words + m_report.marks == 0)
        throw ConversionStopped("nothing could be read");
    if (m_report[ConversionReport::TOKENS_WRITTEN] == 0)
        throw std::invalid_argument(why_no_token(m_task.options, m_report, m_survey));
}

void Conversion::write(std::string_view text, std::uint64_t tokens) {
    if (tokens > 0 && std::exchange(m_is_header_due, false))
        m_output->write(header_line(m_task.options));
    m_output->write(text);
    m_tokens += tokens;
    m_observer.progress(m_ended, m_documents.size(), m_tokens);
}

void Conversion::add(const ConversionReport& report, const Survey* survey) {
    m_report += report;
    if (!m_task.report.empty())
        m_statistics.end_document(number(), report);
    if (survey && m_tokens == 0 && m_survey.tokens() < Survey::TOKENS_OF_HINT)
        m_survey.add(*survey);
    m_observer.progress(++m_ended, m_documents.size(), m_tokens);
}

void Conversion::fault(const std::string& message) {
    m_has_fault = true;
    complain(message);
}

/// Called while what stopped the run is handled. What went to a stream before the end stays; a file does not appear,
/// and then nothing counts as written.
void Conversion::end(const std::string& message) {
    m_why_stopped = std::current_exception();
    m_has_fault = true;
    complain(message);
    try {
        if (m_output && m_output->give_up())
            return;
    } catch (const std::system_error& error) {
        complain(shown_path(error.what()));
    }
    for (const auto count : {ConversionReport::SENTENCES, ConversionReport::TOKENS_WRITTEN,
                             ConversionReport::TOKENS_REPLACED, ConversionReport::TOKENS_LACKING})
        m_report[count] = 0;
    m_statistics.forget_written();
}

/// The report goes out whatever has happened, unless nobody wants it.
void Conversion::write_report() {
    if (!m_report_file || m_observer.cancelled.stop_requested())
        return;
    try {
        const ReportContents contents{
            m_report,           m_statistics, m_documents, tag_column(m_task.options).name, !m_task.lexicon.empty(),
            m_has_fault ? 1 : 0};
        m_report_file->write(is_page(m_task.report) ? report_page(contents) : report_json(contents));
        m_report_file->commit();
    } catch (const std::system_error& error) {
        complain(shown_path(error.what()));
        m_has_fault = true;
    } catch (const std::bad_alloc&) {
        complain(shown_path(m_task.report) + ": out of memory");
        m_has_fault = true;
    }
}

} // namespace

ConversionResult run_conversion(const ConversionTask& task, const ConversionObserver& observer) {
    return Conversion(task, observer).run();
}

} // namespace zelvor
