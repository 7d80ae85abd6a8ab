#pragma once

#include "training/SurveyAdvice.h"
#include "training/SurveyResult.h"
#include "training/survey_documents.h"

#include <string>

namespace zelvor {

/// A survey for people: the elements that could be tokens, with their attributes, those that could be sentences, and
/// the command to try, or why there is none.
std::string survey_text(const SurveyResult& result, const SurveyAdvice& advice, const SurveyTask& task);

/// The command that makes training data of these documents, as a shell takes it.
std::string survey_command(const SurveyAdvice& advice, const SurveyTask& task);

} // namespace zelvor
