#pragma once

#include "training/ConversionOptions.h"
#include "training/ConversionReport.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <vector>

namespace zelvor {

/// A whole conversion: from which files, to which.
struct ConversionTask {
    ConversionOptions options;
    std::string lexicon; ///< empty: annotation from attributes
    std::string map;     ///< of tags; empty: none
    std::string output;  ///< empty: standard output
    std::string report;  ///< empty: none; a page where it ends in ".html", in any case, else JSON
    std::vector<std::string> inputs;
    bool hidden = false;  ///< hidden files and folders below a folder, too
    std::size_t jobs = 1; ///< documents that are converted at the same time
};

/// Outputs that would replace an input, or each other. The text says which.
struct WrongOutput : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Who is told how a conversion goes; none of the functions may be empty, or throw. They are called by one thread at a
/// time, not always the same.
struct ConversionObserver {
    /// What is wrong, in one line.
    std::function<void(const std::string& message)> complain;
    /// A token that is left out, where each is to be told: place, reason and text.
    std::function<void(const std::string& message)> leave_out;
    /// Documents that have ended, all documents, and tokens written; often.
    std::function<void(std::size_t ended, std::size_t all, std::uint64_t tokens)> progress;
    /// Stops the run at its next token, from any thread; neither output nor report appears then.
    std::stop_token cancelled = {};
};

struct ConversionResult {
    int status = 0; ///< 0 all well, 1 something could not be read or written or was malformed
    ConversionReport report;
    bool has_ended = true;          ///< false: a message has told why it stopped, and there is nothing more to say
    std::exception_ptr why_stopped; ///< std::system_error of a file, std::invalid_argument of what is in one, or others
};

/// Runs a conversion. An output file appears when all went well enough for it to be there, a report in any case. Throws
/// WrongOutput, before anything is read or written, and std::bad_alloc.
ConversionResult run_conversion(const ConversionTask& task, const ConversionObserver& observer);

} // namespace zelvor
