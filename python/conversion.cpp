#include "training/Conversion.h"
#include "python/background.h"
#include "python/keywords.h"
#include "python/report.h"
#include "training/conversion_settings.h"

#include <pybind11/stl.h>

#include <array>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <stdexcept>

namespace zelvor::python {

namespace {

using Progress = std::optional<py::function>;

/// What a run tells, from its threads to Python's.
class Bulletin {
public:
    explicit Bulletin(const Progress& progress) : m_progress(progress) {}

    ConversionObserver observer(std::stop_token cancelled) {
        const auto add = [this](const std::string& message) { messages.push_back(message); };
        const auto count = [this, cancelled](std::size_t ended, std::size_t all, std::uint64_t tokens) {
            std::unique_lock lock(m_mutex);
            m_counts = {ended, all, tokens};
            if (ended == all && m_progress) // what that raises comes before the files appear
                m_is_told.wait(lock, cancelled, [this] { return m_told == m_counts; });
        };
        return {add, add, count, cancelled};
    }

    /// Calls progress(ended, all, tokens) where these are others than before.
    void tell() {
        if (!m_progress)
            return;
        std::unique_lock lock(m_mutex);
        const Counts counts = m_counts;
        if (counts == m_told)
            return;
        lock.unlock();
        (*m_progress)(counts[0], counts[1], counts[2]);
        lock.lock();
        m_told = counts;
        m_is_told.notify_one();
    }

    std::vector<std::string> messages; ///< complete when the run has ended

private:
    using Counts = std::array<std::uint64_t, 3>; ///< documents that have ended, all documents, tokens

    const Progress& m_progress;
    std::mutex m_mutex;
    std::condition_variable_any m_is_told;
    Counts m_counts{}, m_told{};
};

py::object convert(const py::object& inputs, const Path& output, const py::object& lexicon, const py::object& jobs,
                   const Progress& progress, const py::kwargs& options) {
    ConversionTask task = task_of(inputs, lexicon, options, false);
    if (output.name.empty())
        throw std::system_error(ENOENT, std::generic_category(), output.name);
    task.output = output.name == "-" ? "./-" : output.name;
    task.jobs = available_cores();
    if (!jobs.is_none())
        set_option("jobs", jobs, task);
    Bulletin bulletin(progress);
    const auto run = [&](std::stop_token cancelled) {
        return run_conversion(task, bulletin.observer(std::move(cancelled)));
    };
    ConversionResult result;
    try {
        result = run_in_background(run, [&] { bulletin.tell(); });
    } catch (const WrongOutput& error) {
        throw std::invalid_argument(error.what());
    }
    for (const auto malformed : {ConversionReport::NOT_JSON, ConversionReport::OTHER_JSON})
        if (const std::uint64_t tokens = result.report[malformed]; tokens > 0)
            bulletin.messages.push_back(std::to_string(tokens) + " tokens left out: " + label_of(malformed));
    py::object report = make_report(result.report, result.status, bulletin.messages);
    if (result.has_ended) {
        if (result.status != 0)
            warn(bulletin.messages);
        return report;
    }
    std::string told;
    for (const std::string& message : bulletin.messages)
        told.append(told.empty() ? "" : "\n").append(message);
    const py::object raised = exception_of(result.why_stopped, told);
    raised.attr("report") = report;
    set_error(raised);
    throw py::error_already_set();
}

} // namespace

void bind_conversion(py::module_& module) {
    module.def("convert", &convert, py::arg("inputs"), py::arg("output"), py::arg("lexicon") = py::none(),
               py::arg("jobs") = py::none(), py::arg("progress") = py::none(),
               R"(convert(inputs, output, lexicon=None, jobs=None, progress=None, **options)
--

Writes the training data of documents, as the program tei2crf does, and returns a Report.

inputs are files and folders, or one of them; options are those of the program, with "_" for "-" and "_" behind break:
convert(..., break_=".", whole_sentences=True). Lists may be lists. Several documents are converted at the same time,
jobs of them, without Python's lock; progress(ended, all, tokens) is called at most 20 times a second,
and at the end.

The file is there when it is complete, and not before; what progress raises, and Ctrl-C, end the run without it. So does
what keeps it from going on: an OSError of a file, a ValueError of options or of what is in a file, otherwise a
RuntimeError; it has the Report as its attribute report. Documents with faults are a UserWarning, and in the messages of
the report.

>>> report = convert("examples/families/latin.xml", "train.txt", sentence="ab", columns=["form", "lemma", "pos"])
>>> report.tokens["written"] > 0
True
)");
}

} // namespace zelvor::python
