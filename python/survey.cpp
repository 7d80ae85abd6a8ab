#include "python/background.h"
#include "python/keywords.h"
#include "training/SurveyAdvice.h"
#include "training/survey_documents.h"

namespace zelvor::python {

namespace {

using namespace py::literals;

/// Text of documents, cut where it is long.
py::str str_of(const std::string& text) { return to_str(text, "replace"); }

template<typename Items, typename Convert>
py::list list_of(const Items& items, Convert convert) {
    py::list list;
    for (const auto& item : items)
        list.append(convert(item));
    return list;
}

py::dict attribute_of(const SurveyResult::Attribute& attribute) {
    return py::dict("name"_a = str_of(attribute.name), "elements"_a = attribute.elements,
                    "distinct"_a = attribute.distinct, "has_more"_a = attribute.has_more,
                    "examples"_a = list_of(attribute.examples, str_of));
}

py::dict pattern_of(const SurveyResult::Pattern& pattern) {
    py::list sources;
    for (const TokenSourceName& known : TOKEN_SOURCE_NAMES)
        if (pattern.sources[static_cast<std::size_t>(known.source)])
            sources.append(py::str(known.name.data(), known.name.size()));
    return py::dict("sources"_a = sources, "tokens"_a = pattern.tokens);
}

py::dict token_element_of(const SurveyResult::TokenElement& element) {
    return py::dict("name"_a = str_of(element.name), "is_punctuation"_a = element.is_punctuation,
                    "elements"_a = element.elements, "tokens"_a = element.tokens,
                    "attributes"_a = list_of(element.attributes, attribute_of),
                    "patterns"_a = list_of(element.patterns, pattern_of));
}

py::dict enclosing_of(const SurveyResult::EnclosingElement& element) {
    return py::dict("name"_a = str_of(element.name), "elements"_a = element.elements, "tokens"_a = element.tokens,
                    "median"_a = element.median, "end_marks"_a = element.end_marks);
}

py::dict end_mark_of(const SurveyResult::EndMark& mark) {
    return py::dict("text"_a = str_of(mark.text), "tokens"_a = mark.tokens, "declared"_a = mark.declared);
}

/// As keywords, without the columns; each is "--NAME=VALUE". What the survey itself was told comes along.
py::dict options_of(SurveyAdvice advice, const SurveyTask& task) {
    advice.columns.clear();
    py::dict options;
    if (task.hidden)
        options["hidden"] = true;
    if (task.skip != SurveyTask().skip && !advice.has_lexicon_json)
        options["skip"] = list_of(task.skip, str_of);
    for (const std::string& option : advice.options()) {
        const std::size_t end = option.find('=');
        options[py::str(keyword_of(std::string_view(option).substr(2, end - 2)))] = str_of(option.substr(end + 1));
    }
    return options;
}

py::str columns_of(const SurveyAdvice& advice) { return advice.columns.empty() ? "form,pos" : advice.columns; }

/// How to convert some of the documents.
py::dict way_of(const WayToConvert& way, const SurveyTask& task) {
    return py::dict("inputs"_a = list_of(way.inputs, path_to_str), "options"_a = options_of(way.advice, task),
                    "columns"_a = columns_of(way.advice), "needs_lexicon"_a = way.advice.has_lexicon_json,
                    "tokens"_a = way.advice.tokens, "documents"_a = way.documents);
}

py::dict survey(const py::object& inputs, const py::object& skip, bool hidden) {
    SurveyTask task{input_paths(inputs), hidden};
    if (!skip.is_none()) {
        ConversionTask with_option;
        set_option("skip", skip, with_option);
        task.skip = with_option.options.skip;
    }
    std::vector<std::string> messages;
    const auto run = [&](std::stop_token cancelled) {
        return survey_documents(task, {[&](const std::string& message) { messages.push_back(message); },
                                       [](std::size_t, std::size_t, std::uint64_t) {}, std::move(cancelled)});
    };
    const DocumentsSurvey found = run_in_background(run, [] {});
    warn(messages);
    const SurveyResult& result = found.result;
    const std::vector<WayToConvert> ways = ways_to_convert(found, task);
    SurveyAdvice advice = advise(result);
    if (!advice.obstacle.empty() && !ways.empty()) // of some documents that are rare among others
        advice = ways.front().advice;
    return py::dict("tokens"_a = result.tokens, "documents"_a = found.documents, "faults"_a = found.faults,
                    "token_elements"_a = list_of(result.token_elements, token_element_of),
                    "enclosing"_a = list_of(result.enclosing, enclosing_of),
                    "end_marks"_a = list_of(result.end_marks, end_mark_of), "options"_a = options_of(advice, task),
                    "columns"_a = columns_of(advice), "needs_lexicon"_a = advice.has_lexicon_json,
                    "ways"_a = list_of(ways, [&](const auto& way) { return way_of(way, task); }),
                    "obstacle"_a = str_of(advice.obstacle), "messages"_a = list_of(messages, str_of));
}

} // namespace

void bind_survey(py::module_& module) {
    module.def("survey", &survey, py::arg("inputs"), py::kw_only(), py::arg("skip") = py::none(),
               py::arg("hidden") = false,
               R"(survey(inputs, *, skip=None, hidden=False)
--

What is in documents of which nothing is known, as a dict, and the options that fit them.

token_elements could be tokens, the most frequent first, with what their attributes hold; enclosing could be sentences,
with the median of their lengths (above 255 to a sixteenth); options are keywords for read_tei and convert, columns one
for convert. Where no options read all documents, or all their words, ways has one for each kind: its inputs, options,
columns, and whether it needs a lexicon, the one for the most tokens first. obstacle says why there is no training data
in them, and is empty where there is. skip names elements that are not read, as in read_tei. Documents with faults are a
UserWarning, and in messages.

>>> found = survey("examples/families/latin.xml")
>>> found["options"]["sentence"], [element["name"] for element in found["token_elements"]]
('ab', ['w'])
)");
}

} // namespace zelvor::python
