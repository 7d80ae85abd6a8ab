#pragma once

#include "training/SurveyAdvice.h"
#include "training/SurveyResult.h"
#include "training/survey_documents.h"

#include <string>

namespace zelvor {

/// A survey for people: the elements that could be tokens, with their attributes, those that could be sentences, and
/// the command to try, one for each kind of document or word where there are several, or why there is none.
std::string survey_text(const DocumentsSurvey& found, const SurveyTask& task);

} // namespace zelvor
