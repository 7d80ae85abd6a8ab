#include "training/survey_text.h"

#include "training/shown_text.h"

#include <algorithm>

namespace zelvor {

namespace {

constexpr std::size_t MAX_LINES = 12; // of a kind
constexpr std::size_t MAX_SHOWN_VALUE = 40;
constexpr std::uint64_t MAX_SENTENCE = 1000; // tokens

std::string percent(std::uint64_t part, std::uint64_t whole) {
    if (part >= whole)
        return "100 %";
    const auto tenths = static_cast<std::uint64_t>(static_cast<double>(part) * 1000 / static_cast<double>(whole));
    return tenths == 0 ? "below 0.1 %" : std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " %";
}

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

template<typename Item>
std::size_t width_of(const std::vector<Item>& items) {
    std::size_t width = 0;
    for (const Item& item : items)
        width = std::max(width, std::min<std::size_t>(item.name.size(), 20));
    return width;
}

std::string more_text(std::size_t all) {
    return all > MAX_LINES ? "    and " + shown_count(all - MAX_LINES) + " more\n" : "";
}

std::string attribute_text(const SurveyResult::Attribute& attribute, const SurveyResult::TokenElement& element,
                           std::size_t width) {
    std::string text =
        "    " + padded(shown(attribute.name), width) + "  in " + percent(attribute.elements, element.elements);
    if (attribute.distinct > 0)
        text += std::string(", ") + (attribute.has_more ? "more than " : "") + shown_count(attribute.distinct) +
                (attribute.distinct == 1 ? " value: " : " values: ");
    for (std::size_t i = 0; i < attribute.examples.size(); ++i)
        text += (i > 0 ? "  " : "") + shown(attribute.examples[i], MAX_SHOWN_VALUE);
    return text + "\n";
}

std::string token_text(const SurveyResult::TokenElement& element) {
    std::string text = "  " + shown(element.name) + ": " + shown_count(element.elements);
    if (element.tokens < element.elements)
        text += ", of which " + shown_count(element.tokens) + " hold a form and no other token";
    text += "\n";
    const auto& attributes = element.attributes;
    const std::size_t width = width_of(attributes);
    for (std::size_t i = 0; i < std::min(attributes.size(), MAX_LINES); ++i)
        text += attribute_text(attributes[i], element, width);
    return text + more_text(attributes.size());
}

std::string tokens_text(const SurveyResult& result) {
    std::string text = "Elements that look like tokens, and their attributes where these are not empty:\n";
    for (std::size_t i = 0; i < std::min(result.token_elements.size(), MAX_LINES); ++i)
        text += token_text(result.token_elements[i]);
    return text + more_text(result.token_elements.size());
}

bool could_be_sentence(const SurveyResult::EnclosingElement& element, const SurveyResult& result) {
    return element.tokens * 10 >= result.tokens && element.median <= MAX_SENTENCE;
}

std::string enclosing_text(const SurveyResult& result, const SurveyAdvice& advice) {
    std::vector<SurveyResult::EnclosingElement> shown_ones;
    for (const SurveyResult::EnclosingElement& element : result.enclosing)
        if (could_be_sentence(element, result) || &element == advice.sentence)
            shown_ones.push_back(element);
    if (shown_ones.empty())
        return "";
    std::string text = "Elements around them, which could be sentences:\n";
    const std::size_t width = width_of(shown_ones);
    for (std::size_t i = 0; i < std::min(shown_ones.size(), MAX_LINES); ++i) {
        const SurveyResult::EnclosingElement& element = shown_ones[i];
        text += "  " + padded(shown(element.name), width) + "  " + shown_count(element.elements) + ", with " +
                percent(element.tokens, result.tokens) + " of the tokens, median " + shown_count(element.median) +
                " tokens\n";
    }
    return text + more_text(shown_ones.size());
}

std::string cut_text(const SurveyResult& result) {
    if (result.elements_cut + result.attributes_cut == 0)
        return "";
    return "Not looked at, for names that are too many or too long: " + shown_count(result.elements_cut) +
           " elements, " + shown_count(result.attributes_cut) + " attributes\n";
}

std::string obstacle_text(const SurveyAdvice& advice) {
    return "Nothing to convert: " + advice.obstacle +
           ". Looked for w, pc, c, tok, dtok, token, word, punct and pct with text, for other elements around one word "
           "with such attributes, and for tags and lemmas in " +
           looked_for() + ".\n";
}

/// As a shell takes it.
std::string survey_command(const WayToConvert& way, const SurveyTask& task) {
    const auto& [advice, inputs, documents] = way;
    std::string command = advice.has_lexicon_json ? "tei2crf -l LEXICON" : "tei2crf";
    std::vector<std::string> words = advice.options();
    if (task.hidden)
        words.emplace_back("--hidden");
    if (task.skip != ConversionOptions().skip && !advice.has_lexicon_json) {
        std::string names;
        for (const std::string& name : task.skip)
            names += (names.empty() ? "" : ",") + name;
        words.push_back("--skip=" + names);
    }
    if (std::ranges::any_of(inputs, [](const std::string& input) { return input.starts_with('-') && input != "-"; }))
        words.emplace_back("--");
    words.insert(words.end(), inputs.begin(), inputs.end());
    for (const std::string& word : words)
        command += " " + shell_word(word);
    return command;
}

/// In bytes; systems take some two million, the environment included.
constexpr std::size_t MAX_COMMAND = 1'000'000;

std::string command_text(const WayToConvert& way, const SurveyTask& task) {
    const std::string command = survey_command(way, task);
    if (command.size() <= MAX_COMMAND)
        return "  " + command + "\n";
    return "  " + survey_command({way.advice, {"FOLDER"}, way.documents}, task) +
           "\n(FOLDER is one that you move them to: their names are too many for a command. The first is " +
           shown_path(way.inputs.front()) + ".)\n";
}

std::string counted(std::uint64_t count, const std::string& what) {
    return shown_count(count) + " " + what + (count == 1 ? "" : "s");
}

constexpr std::string_view LEXICON_IS_NEEDED =
    "lemma is JSON, of a lexicon's ids: LEXICON stands for its file, which has the tags";

std::string ways_text(const std::vector<WayToConvert>& ways, const SurveyTask& task) {
    if (ways.size() == 1)
        return std::string(ways[0].advice.has_lexicon_json
                               ? LEXICON_IS_NEEDED
                               : "lemma is no JSON of a lexicon's ids: tags are read from attributes") +
               ".\nTry, to standard output or with -o FILE:\n" + command_text(ways[0], task);
    std::string text = "The tokens are encoded in " + shown_count(ways.size()) +
                       " ways, and no command reads all of them. Try, to standard output or with -o FILE,\n";
    for (const WayToConvert& way : ways) {
        text += "for " + counted(way.advice.tokens, "token") + " in " + counted(way.documents, "document");
        if (way.advice.has_lexicon_json)
            text.append(", whose ").append(LEXICON_IS_NEEDED);
        text += ":\n" + command_text(way, task);
    }
    return text;
}

} // namespace

std::string survey_text(const DocumentsSurvey& found, const SurveyTask& task) {
    const SurveyResult& result = found.result;
    const SurveyAdvice advice = advise(result);
    std::string text = shown_count(result.tokens) + " tokens\n";
    if (!result.token_elements.empty())
        text += tokens_text(result) + enclosing_text(result, advice);
    text += cut_text(result);
    const std::vector<WayToConvert> ways = ways_to_convert(found, task);
    return text + (ways.empty() ? obstacle_text(advice) : ways_text(ways, task));
}

} // namespace zelvor
