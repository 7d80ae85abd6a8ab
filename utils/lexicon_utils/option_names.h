#pragma once

#include <string>

/// Names of options that lexicon tools share.
namespace zelvor {

static const std::string OPTION_MODEL_FILENAME = "model_filename";
static const std::string OPTION_INPUT_WORD = "input_word";
static const std::string OPTION_TEMPORARY_FILENAME = "temporary_filename";

} // namespace zelvor
