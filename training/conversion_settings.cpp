#include "training/conversion_settings.h"

#include "training/ColumnLines.h"
#include "utils/common_utils/utf8.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <sched.h>

namespace zelvor {

namespace {

constexpr std::size_t MAX_JOBS = 256;

template<typename Value>
struct Choice {
    std::string_view name;
    Value value;
};

constexpr Choice<bool> CHOICES[] = {{"regular", false}, {"original", true}};
constexpr Choice<ConversionOptions::Format> FORMATS[] = {{"columns", ConversionOptions::Format::COLUMNS},
                                                         {"conllu", ConversionOptions::Format::CONLLU}};
constexpr Choice<char> SEPARATORS[] = {{"blank", ' '}, {"tab", '\t'}};
constexpr Choice<ConversionOptions::BadToken> BAD_TOKENS[] = {{"drop", ConversionOptions::BadToken::DROP},
                                                              {"replace", ConversionOptions::BadToken::REPLACE},
                                                              {"fail", ConversionOptions::BadToken::FAIL}};

/// The value of this name. Throws std::invalid_argument, which names those that there are.
template<typename Value, std::size_t N>
Value choose(const Choice<Value> (&choices)[N], std::string_view name) {
    const auto found = std::ranges::find(choices, name, &Choice<Value>::name);
    if (found != std::end(choices))
        return found->value;
    std::string names;
    for (const Choice<Value>& choice : choices)
        names.append(names.empty() ? "" : ", ").append(choice.name);
    throw std::invalid_argument("it is one of " + names);
}

ConversionOptions::Names read_names(std::string_view list) {
    ConversionOptions::Names names;
    for (const std::string_view name : split_list(list)) {
        if (name.empty() || name.find_first_of(": \t\r\n<>") != std::string_view::npos)
            throw std::invalid_argument("names of elements, without prefix, separated by commas");
        names.emplace_back(name);
    }
    return names;
}

std::string read_marks(const std::string& marks) {
    if (!is_valid_utf8(marks))
        throw std::invalid_argument("characters in UTF-8");
    return marks;
}

std::string read_tag(const std::string& tag) {
    for (std::size_t i = 0; i < tag.size(); ++i)
        if (breaking_character(tag, i) != 0)
            throw std::invalid_argument("a tag without blanks and control characters");
    return read_marks(tag);
}

std::string read_path(const std::string& path) {
    if (path.empty())
        throw std::invalid_argument("the name of a file");
    return path;
}

std::size_t read_jobs(const std::string& text) {
    std::size_t jobs = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), jobs);
    if (error != std::errc() || end != text.data() + text.size() || jobs < 1 || jobs > MAX_JOBS)
        throw std::invalid_argument("a number from 1 to " + std::to_string(MAX_JOBS));
    return jobs;
}

using Kind = ConversionSetting::Kind;
using Topic = ConversionSetting::Topic;
using Use = ValueSources::Use;
using Task = ConversionTask;
using Value = const std::string&;

constexpr ConversionSetting SETTINGS[] = {
    {"lexicon", 'l', Kind::PATH, Topic::RUN, [](Task& task, Value value) { task.lexicon = read_path(value); }},
    {"output", 'o', Kind::PATH, Topic::RUN, [](Task& task, Value value) { task.output = read_path(value); }},
    {"jobs", 'j', Kind::NUMBER, Topic::RUN, [](Task& task, Value value) { task.jobs = read_jobs(value); }},

    {"sentence", 0, Kind::LIST, Topic::READING,
     [](Task& task, Value value) { task.options.sentence = read_names(value); }},
    {"word", 0, Kind::LIST, Topic::READING, [](Task& task, Value value) { task.options.word = read_names(value); }},
    {"punctuation", 0, Kind::LIST, Topic::READING,
     [](Task& task, Value value) { task.options.punctuation = read_names(value); }},
    {"map", 0, Kind::PATH, Topic::READING, [](Task& task, Value value) { task.map = read_path(value); }},
    {"nfc", 0, Kind::FLAG, Topic::READING, [](Task& task, Value) { task.options.nfc = true; }},
    {"whole-sentences", 0, Kind::FLAG, Topic::READING, [](Task& task, Value) { task.options.whole_sentences = true; }},
    {"hidden", 0, Kind::FLAG, Topic::READING, [](Task& task, Value) { task.hidden = true; }},
    {"strict", 0, Kind::FLAG, Topic::READING, [](Task& task, Value) { task.options.strict = true; }},

    {"skip", 0, Kind::LIST, Topic::ATTRIBUTES,
     [](Task& task, Value value) {
         task.options.skip = value.empty() ? ConversionOptions::Names() : read_names(value);
     }},
    {"choice", 0, Kind::TEXT, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.original_choice = choose(CHOICES, value); }},
    {"break", 0, Kind::TEXT, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.break_marks = read_marks(value); }},
    {"form", 0, Kind::LIST, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.form = ValueSources(value, Use::FORM); }},
    {"lemma", 0, Kind::LIST, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.lemma = ValueSources(value, Use::OTHER); }},
    {"pos", 0, Kind::LIST, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.pos = ValueSources(value, Use::OTHER); }},
    {"upos", 0, Kind::LIST, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.upos = ValueSources(value, Use::OTHER); }},
    {"feats", 0, Kind::LIST, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.feats = ValueSources(value, Use::FEATS); }},
    {"punctuation-tag", 0, Kind::TEXT, Topic::ATTRIBUTES,
     [](Task& task, Value value) { task.options.punctuation_tag = read_tag(value); }},

    {"format", 0, Kind::TEXT, Topic::WRITING,
     [](Task& task, Value value) { task.options.format = choose(FORMATS, value); }},
    {"columns", 0, Kind::LIST, Topic::COLUMNS,
     [](Task& task, Value value) { task.options.columns = read_columns(value); }},
    {"separator", 0, Kind::TEXT, Topic::COLUMNS,
     [](Task& task, Value value) { task.options.separator = choose(SEPARATORS, value); }},
    {"header", 0, Kind::FLAG, Topic::COLUMNS, [](Task& task, Value) { task.options.header = true; }},
    {"on-bad-token", 0, Kind::TEXT, Topic::WRITING,
     [](Task& task, Value value) { task.options.on_bad_token = choose(BAD_TOKENS, value); }},
    {"report", 0, Kind::PATH, Topic::WRITING,
     [](Task& task, Value value) { task.report = read_path(value == "-" ? "" : value); }},
    {"verbose", 'v', Kind::FLAG, Topic::WRITING, [](Task& task, Value) { task.options.verbose = true; }},
};

} // namespace

std::span<const ConversionSetting> conversion_settings() { return SETTINGS; }

const ConversionSetting* find_setting(std::string_view name) {
    const auto* const found = std::ranges::find(SETTINGS, name, &ConversionSetting::name);
    return found == std::end(SETTINGS) ? nullptr : found;
}

void complete_settings(ConversionTask& task, const std::vector<const ConversionSetting*>& given) {
    ConversionOptions& options = task.options;
    const auto spelt = options.spelt;
    options.has_lexicon = !task.lexicon.empty();
    if (options.format == ConversionOptions::Format::CONLLU)
        options.choose_conllu();
    for (const std::string& name : options.sentence)
        for (const ConversionOptions::Names& tokens : {options.word, options.punctuation_elements()})
            if (std::ranges::find(tokens, name) != tokens.end())
                throw std::invalid_argument("'" + name + "' cannot be a sentence and a token");
    const auto refuse = [&](bool is_wrong, Topic topic, const std::string& why) {
        const auto found = std::ranges::find(given, topic, &ConversionSetting::topic);
        if (is_wrong && found != given.end())
            throw std::invalid_argument(spelt((*found)->name) + why);
    };
    refuse(options.has_lexicon, Topic::ATTRIBUTES,
           " goes without " + spelt("lexicon") + " only: it is about annotation in attributes");
    refuse(options.format == ConversionOptions::Format::CONLLU, Topic::COLUMNS,
           " does not go with " + spelt("format") + "=conllu: its columns are always the same");
    const auto column = std::ranges::find_if(options.columns, &Column::is_category);
    if (!options.has_lexicon && column != options.columns.end())
        throw std::invalid_argument("column '" + column->name + "' goes with " + spelt("lexicon") +
                                    " only: a lexicon has it");
}

std::size_t available_cores() {
    cpu_set_t cores;
    const bool is_known = sched_getaffinity(0, sizeof cores, &cores) == 0;
    return is_known ? static_cast<std::size_t>(CPU_COUNT(&cores)) : std::max(1U, std::thread::hardware_concurrency());
}

} // namespace zelvor
