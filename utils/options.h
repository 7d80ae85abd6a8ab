#pragma once

#include <string>

/// The names of command-line options, and the check that mandatory ones were given.
namespace zelvor {

static const std::string OPTION_HELP = "help";
static const std::string OPTION_VERBOSE = "verbose";
static const std::string OPTION_DATABASE_NAME = "database_name";
static const std::string OPTION_DATABASE_PASSWORD = "database_password";
static const std::string OPTION_DATABASE_USERNAME = "database_username";
static const std::string OPTION_DATABASE_HOSTNAME = "database_hostname";
static const std::string OPTION_OUTPUT_FILENAME = "output_filename";
static const std::string OPTION_LANGUAGE = "language";
static const std::string OPTION_INPUT_FILENAME = "input_filename";
static const std::string OPTION_RULE_FILENAME = "rule_directory"; // kept: the option's text differs from its name
static const std::string OPTION_WORDNET_DIRECTORY = "wordnet_directory";
static const std::string OPTION_WIKIPEDIA_STATISTICS_FILENAME = "wikipedia_statistics_filename";
static const std::string OPTION_MARKOV_XML_FILENAME = "xml_markov_filename"; // kept: likewise
static const std::string OPTION_INPUT_DIRECTORY = "input_directory";
static const std::string OPTION_OUTPUT_DIRECTORY = "output_directory";
static const std::string OPTION_CREATE_INDICES = "create_indices";
static const std::string OPTION_USE_LEMMA_FEATURES = "use_lemma_features";
static const std::string OPTION_USE_SKIP_GRAMS = "use_skip_grams";
static const std::string OPTION_LEXICON_FILENAME = "lexicon_filename";
static const std::string OPTION_LIBSVM_FILENAME = "libsvm_filename";
static const std::string OPTION_JOINT_TAGGING = "joint_tagging";
static const std::string OPTION_DISABLE_TRIE = "disable_trie";

/// Whether every option has a value. `options` holds (name, value) pairs and ends at a pair with an empty name. The
/// first option without a value is reported on standard error.
bool check_options(std::string options[][2]);

} // namespace zelvor
