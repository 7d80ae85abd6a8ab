#pragma once

#include "training/ConversionOptions.h"
#include "training/SurveyAdvice.h"
#include "training/SurveyResult.h"
#include "training/survey_kinds.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace zelvor {

/// What is to be surveyed.
struct SurveyTask {
    std::vector<std::string> inputs;                          ///< as of a conversion
    bool hidden = false;                                      ///< hidden files and folders below a folder, too
    ConversionOptions::Names skip = ConversionOptions().skip; ///< elements that are passed over
};

/// Who is told how a survey goes; none of the functions may be empty.
struct SurveyObserver {
    /// What is wrong, in one line. Must not throw.
    std::function<void(const std::string& message)> complain;
    /// Documents that have ended, all documents, and tokens; after each document. Must not throw.
    std::function<void(std::size_t ended, std::size_t all, std::uint64_t tokens)> progress;
    /// Ends the survey, from any thread; the document that is being read does not count.
    std::stop_token cancelled = {};
};

struct DocumentsSurvey {
    SurveyResult result;
    std::vector<DocumentKind> kinds; ///< of all documents, also where it is but one
    std::size_t documents = 0;       ///< without a fault
    std::size_t faults = 0;          ///< of inputs, each told
};

/// Reads the documents; of one with a fault, what stands before it. Throws std::bad_alloc.
DocumentsSurvey survey_documents(const SurveyTask& task, const SurveyObserver& observer);

/// What makes training data of some of the documents.
struct WayToConvert {
    SurveyAdvice advice;
    std::vector<std::string> inputs;
    std::size_t documents; ///< these are
};

/// One for each kind of document, or two where its words are of two kinds, the one with the most tokens first; none
/// where there is nothing to convert. The survey must live as long.
std::vector<WayToConvert> ways_to_convert(const DocumentsSurvey& found, const SurveyTask& task);

} // namespace zelvor
